#include <windows.h>

#include "frame/thread_values.h"

namespace tarvo::platform {
namespace {

// A slot of the process, of which there are about a thousand.  It is given back when the library is
// unloaded, so that a program may load and unload it as often as it likes.  (The compiler's own
// thread_local takes a slot and keeps it.)
class Slot {
 public:
  Slot() noexcept : index_(TlsAlloc()) {}
  Slot(const Slot&) = delete;
  Slot& operator=(const Slot&) = delete;
  ~Slot() { TlsFree(index_); }

  void* get() const noexcept { return TlsGetValue(index_); }
  void set(void* pointer) const noexcept { TlsSetValue(index_, pointer); }

 private:
  DWORD index_;
};

// Made on its first use, which may come before this file's own statics.
const Slot& slot() noexcept {
  static const Slot kSlot;
  return kSlot;
}

}  // namespace

void* threadPointer() noexcept { return slot().get(); }
void setThreadPointer(void* pointer) noexcept { slot().set(pointer); }

}  // namespace tarvo::platform
