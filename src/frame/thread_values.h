// What the library keeps per thread.
#pragma once

#include <cstdint>

#include "frame/modRDPGlobalValues.h"

namespace tarvo {

struct ThreadValues {
  modRDPGlobalValues services;
  std::int32_t lastSystemError = 0;

  // Made on a thread's first use.  It is not destroyed when the thread ends: the services of an
  // ended apartment must not be called any more, not even to let go of them.
  static ThreadValues& ofThisThread();
};

// The platform's one pointer per thread, empty on a new thread.
namespace platform {
void* threadPointer() noexcept;
void setThreadPointer(void* pointer) noexcept;
}  // namespace platform

// Whether any thread's set holds a service.  A host must not unload the library then: the services
// were handed over for the life of the library, and a new copy would know nothing of them.
bool anyThreadHoldsServices() noexcept;

}  // namespace tarvo
