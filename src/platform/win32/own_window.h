// A window of the library's own: an object that gets the window's messages.
//
// The object lives at least as long as its window, and may be kept longer by references.
#pragma once

#include <windows.h>

#include "frame/object.h"

namespace tarvo::platform {

class OwnWindow : public Object {
 public:
  // Null before it was made and after it has gone.
  HWND window() const noexcept { return window_; }

 protected:
  // Makes the window; null when the system makes none.
  HWND createWindow(const wchar_t* title, DWORD style, const RECT& place, HWND parent);

  // A message; what it does not know goes to defaultAnswer().
  virtual LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) = 0;

  // An exception came out of answer(); it is being handled when this is called.
  // Default: nothing, the message counts as dealt with.
  virtual void reportException() noexcept {}

  LRESULT defaultAnswer(UINT message, WPARAM wParam, LPARAM lParam) const noexcept {
    return DefWindowProcW(window_, message, wParam, lParam);
  }

  // Soon, and all of it.
  void repaint() const noexcept {
    if (window_ != nullptr) InvalidateRect(window_, nullptr, FALSE);
  }

  // So many pixels as `units` are on a screen of 96 dots an inch.
  int pixels(int units) const noexcept { return MulDiv(units, dotsPerInch_, 96); }
  int dotsPerInch() const noexcept { return dotsPerInch_; }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT answerSafely(UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  HWND window_ = nullptr;
  int dotsPerInch_ = 96;

  friend class OwnWindowClass;
};

// Draws into memory, and shows it all at once at its end: nothing flickers.
class BufferedPaint {
 public:
  explicit BufferedPaint(HWND window);
  BufferedPaint(const BufferedPaint&) = delete;
  BufferedPaint& operator=(const BufferedPaint&) = delete;
  ~BufferedPaint();

  HDC device() const noexcept { return buffer_; }
  const RECT& area() const noexcept { return area_; }

  void fill(const RECT& area, COLORREF colour) const noexcept;

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
  RECT area_{};
  HDC buffer_;
  HBITMAP bitmap_;
  HGDIOBJ oldBitmap_;
};

}  // namespace tarvo::platform
