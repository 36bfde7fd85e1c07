#include "platform/win32/own_window.h"

namespace tarvo::platform {

// The system's class of all these windows.  It names code of this library, so it goes when the
// library is unloaded.
class OwnWindowClass {
 public:
  OwnWindowClass() noexcept {
    constexpr DWORD kByAddress =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    GetModuleHandleExW(kByAddress, reinterpret_cast<LPCWSTR>(&OwnWindow::procedure), &module_);
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = &OwnWindow::procedure;
    description.hInstance = module_;
    description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
    description.lpszClassName = kName;
    RegisterClassExW(&description);
  }
  OwnWindowClass(const OwnWindowClass&) = delete;
  OwnWindowClass& operator=(const OwnWindowClass&) = delete;
  ~OwnWindowClass() { UnregisterClassW(kName, module_); }

  HMODULE module() const noexcept { return module_; }

  static constexpr const wchar_t* kName = L"TarvoRdpPreview";

 private:
  HMODULE module_ = nullptr;
};

namespace {

const OwnWindowClass& windowClass() {
  static const OwnWindowClass kClass;
  return kClass;
}

}  // namespace

HWND OwnWindow::createWindow(const wchar_t* title, DWORD style, const RECT& place, HWND parent) {
  return CreateWindowExW(0, OwnWindowClass::kName, title, style, place.left, place.top,
                         place.right - place.left, place.bottom - place.top, parent, nullptr,
                         windowClass().module(), this);
}

LRESULT CALLBACK OwnWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* self = reinterpret_cast<OwnWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr && message == WM_NCCREATE) {
    self = static_cast<OwnWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    self->window_ = window;
    self->addReference();
    const HDC screen = GetDC(window);
    self->dotsPerInch_ = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(window, screen);
  }
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  const Ref<OwnWindow> keptMeanwhile(self);
  const LRESULT result = self->answerSafely(message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    self->window_ = nullptr;
    self->release();
  }
  return result;
}

// Nothing may be thrown through the system's code.
LRESULT OwnWindow::answerSafely(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  try {
    return answer(message, wParam, lParam);
  } catch (...) {
    reportException();
    return 0;
  }
}

BufferedPaint::BufferedPaint(HWND window) : window_(window) {
  const HDC screen = BeginPaint(window, &paint_);
  GetClientRect(window, &area_);
  buffer_ = CreateCompatibleDC(screen);
  bitmap_ = CreateCompatibleBitmap(screen, area_.right, area_.bottom);
  oldBitmap_ = SelectObject(buffer_, bitmap_);
}

BufferedPaint::~BufferedPaint() {
  const RECT& stale = paint_.rcPaint;
  BitBlt(paint_.hdc, stale.left, stale.top, stale.right - stale.left, stale.bottom - stale.top,
         buffer_, stale.left, stale.top, SRCCOPY);
  SelectObject(buffer_, oldBitmap_);
  DeleteObject(bitmap_);
  DeleteDC(buffer_);
  EndPaint(window_, &paint_);
}

void BufferedPaint::fill(const RECT& area, COLORREF colour) const noexcept {
  SetDCBrushColor(buffer_, colour);
  FillRect(buffer_, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

}  // namespace tarvo::platform
