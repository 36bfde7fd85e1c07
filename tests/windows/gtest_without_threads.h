// GoogleTest for a compiler whose library has no threads.
//
// GoogleTest then leaves its owner of platform handles out, but its death tests still name it.
// Included before GoogleTest's own sources, this is that class.
#pragma once

#ifdef __cplusplus
#include <windows.h>

namespace testing::internal {

class AutoHandle {
 public:
  using Handle = void*;

  AutoHandle() = default;
  explicit AutoHandle(Handle handle) : handle_(handle) {}
  AutoHandle(const AutoHandle&) = delete;
  AutoHandle& operator=(const AutoHandle&) = delete;
  ~AutoHandle() { Reset(); }

  Handle Get() const { return handle_; }
  void Reset() { Reset(nullptr); }
  void Reset(Handle handle) {
    const bool isOpen = handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE;
    if (isOpen && handle_ != handle) CloseHandle(handle_);
    handle_ = handle;
  }

 private:
  Handle handle_ = nullptr;
};

}  // namespace testing::internal
#endif
