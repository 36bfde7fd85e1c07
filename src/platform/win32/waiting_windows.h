// The windows of a thread that take no input while another one of it is modal.
//
// A window that is hidden or disabled already is left alone, before and afterwards.  The others
// must be let go before the modal window goes, or the system activates another program's window.
//
// Threads: the windows'.
#pragma once

#include <windows.h>

#include <new>
#include <vector>

namespace tarvo::platform {

class WaitingWindows {
 public:
  WaitingWindows() = default;
  WaitingWindows(const WaitingWindows&) = delete;
  WaitingWindows& operator=(const WaitingWindows&) = delete;
  ~WaitingWindows() { restore(); }

  // Without memory for it a window stays enabled.
  void disableAllBut(HWND window) {
    EnumThreadWindows(GetCurrentThreadId(), &visit, reinterpret_cast<LPARAM>(this));
    std::erase(windows_, window);
    for (const HWND other : windows_) EnableWindow(other, FALSE);
  }
  // More than once does no harm.
  void restore() {
    for (const HWND window : windows_) EnableWindow(window, TRUE);
    windows_.clear();
  }

 private:
  static BOOL CALLBACK visit(HWND window, LPARAM parameter) {
    if (!IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
    try {
      reinterpret_cast<WaitingWindows*>(parameter)->windows_.push_back(window);
    } catch (const std::bad_alloc&) {
      return FALSE;
    }
    return TRUE;
  }

  std::vector<HWND> windows_;
};

}  // namespace tarvo::platform
