#include "frame/thread_values.h"

namespace tarvo::platform {
namespace {
thread_local void* pointerOfThisThread = nullptr;
}

void* threadPointer() noexcept { return pointerOfThisThread; }
void setThreadPointer(void* pointer) noexcept { pointerOfThisThread = pointer; }

}  // namespace tarvo::platform
