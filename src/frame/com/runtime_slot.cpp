#include "frame/com/runtime_slot.h"

#include <cxxabi.h>
#include <windows.h>

#include <cstdlib>
#include <exception>

// In place of the run-time library's own, which names the exception that nobody caught on a
// standard error stream that nobody reads, and brings a tenth of the server's size for it.
void __gnu_cxx::__verbose_terminate_handler() { std::abort(); }

namespace tarvo::com {
namespace {

DWORD runtimeSlot = TLS_OUT_OF_INDEXES;

// The slot that the next caller will get: the system gives out the lowest free one.
DWORD nextFreeSlot() {
  const DWORD slot = TlsAlloc();
  if (slot != TLS_OUT_OF_INDEXES) TlsFree(slot);
  return slot;
}

}  // namespace

void noteRuntimeSlot() noexcept {
  const DWORD expected = nextFreeSlot();
  if (expected == TLS_OUT_OF_INDEXES || TlsGetValue(expected) != nullptr) return;
  // Declared as a function without effects, so the result must be seen to be used.
  const void* volatile globals = abi::__cxa_get_globals();
  static_cast<void>(globals);
  // Another thread may have been quicker; then the slot is not known and stays.
  if (TlsGetValue(expected) != nullptr) runtimeSlot = expected;
}

void freeRuntimeSlot() noexcept {
  if (runtimeSlot != TLS_OUT_OF_INDEXES) TlsFree(runtimeSlot);
}

}  // namespace tarvo::com
