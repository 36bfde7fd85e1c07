#include "platform/win32/preview_window.h"

#include <windows.h>

#include <algorithm>
#include <string>

#include "frame/run_time_error.h"
#include "platform/win32/preview_bar.h"
#include "platform/win32/preview_canvas.h"
#include "platform/win32/preview_commands.h"
#include "platform/win32/preview_dialogs.h"
#include "platform/win32/waiting_windows.h"

namespace tarvo::platform {
namespace {

LONG livingWindows = 0;

constexpr std::size_t kLongestEntry = 6;

class PreviewWindow final : public OwnWindow {
 public:
  PreviewWindow(Ref<const PagedText> pages, TextView title)
      : pages_(std::move(pages)),
        title_(title),
        canvas_(make<PreviewCanvas>(pages_)),
        bar_(make<PreviewBar>()) {
    state_.pageCount = pages_->pageCount();
    InterlockedIncrement(&livingWindows);
  }

  ~PreviewWindow() override {
    DeleteObject(font_);
    InterlockedDecrement(&livingWindows);
  }

  // Until this window is closed; the system then activates one of them, so they are let go first.
  void keepWaiting(WaitingWindows& others) {
    others.disableAllBut(window());
    waiting_ = &others;
  }

  void close() {
    if (waiting_ != nullptr) waiting_->restore();
    if (window() != nullptr) DestroyWindow(window());
  }

  // Not shown yet; false when the system makes no window.
  bool create(HWND owner) {
    const std::wstring caption(title_.begin(), title_.end());
    if (createWindow(caption.c_str(), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, firstPlace(), owner) ==
        nullptr) {
      return false;
    }
    SetMenu(window(), makePreviewMenu());
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    font_ = CreateFontIndirectW(&metrics.lfMessageFont);
    status_ = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_CENTERIMAGE, 0, 0, 0, 0,
                              window(), nullptr, nullptr, nullptr);
    SendMessageW(status_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    if (status_ == nullptr || !bar_->create(window(), font_) || !canvas_->create(window())) {
      DestroyWindow(window());
      return false;
    }
    layOut();
    showState();
    return true;
  }

  void show() {
    ShowWindow(window(), SW_SHOW);
    SetForegroundWindow(window());
    UpdateWindow(window());
  }

 private:
  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override {
    switch (message) {
      case WM_SIZE:
        if (canvas_->window() != nullptr) {
          layOut();
          showState();
        }
        return 0;
      case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {pixels(320), pixels(240)};
        return 0;
      case WM_ERASEBKGND:
        return 1;  // covered by what is in it
      case WM_COMMAND:
        run(static_cast<PreviewCommand>(LOWORD(wParam)));
        return 0;
      case WM_KEYDOWN:
        if (takeKey(wParam)) return 0;
        break;
      case WM_MOUSEWHEEL:
        turnWheel(GET_WHEEL_DELTA_WPARAM(wParam), (GET_KEYSTATE_WPARAM(wParam) & MK_CONTROL) != 0);
        return 0;
      case WM_INITMENUPOPUP:
        enableMenu();
        return 0;
      case WM_CLOSE:
        close();
        return 0;
      default:
        break;
    }
    return defaultAnswer(message, wParam, lParam);
  }

  void reportException() noexcept override {
    showCurrentError(window(), L"Error inesperado.", title_);
  }

  // Most of the screen's free part.
  static RECT firstPlace() noexcept {
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const LONG width = (work.right - work.left) * 4 / 5;
    const LONG height = (work.bottom - work.top) * 9 / 10;
    const LONG left = (work.left + work.right - width) / 2;
    const LONG top = (work.top + work.bottom - height) / 2;
    return {left, top, left + width, top + height};
  }

  void layOut() {
    RECT area{};
    GetClientRect(window(), &area);
    const int statusHeight = pixels(24);
    const int middle = std::max(0L, area.bottom - bar_->height() - statusHeight);
    MoveWindow(bar_->window(), 0, 0, area.right, bar_->height(), TRUE);
    MoveWindow(canvas_->window(), 0, bar_->height(), area.right, middle, TRUE);
    MoveWindow(status_, 0, bar_->height() + middle, area.right, statusHeight, TRUE);
  }

  void showState() {
    state_.page = canvas_->page();
    state_.percent = static_cast<int>(canvas_->percent() + 0.5);
    state_.zoom = canvas_->zoom();
    bar_->show(state_);
    std::wstring text = L"  P\u00E1gina " + std::to_wstring(state_.page + 1) + L" de " +
                        std::to_wstring(state_.pageCount);
    if (state_.isEntering) text += L"    Ir a la p\u00E1gina: " + state_.entry;
    if (text == shownStatus_) return;
    SetWindowTextW(status_, text.c_str());
    shownStatus_ = text;
  }

  void enableMenu() {
    const HMENU bar = GetMenu(window());
    const auto enable = [bar](PreviewCommand command, bool isEnabled) {
      EnableMenuItem(bar, static_cast<UINT>(command), isEnabled ? MF_ENABLED : MF_GRAYED);
    };
    const bool isFirst = canvas_->page() == 0;
    const bool isLast = canvas_->page() + 1 == state_.pageCount;
    enable(PreviewCommand::kFirstPage, !isFirst);
    enable(PreviewCommand::kPreviousPage, !isFirst);
    enable(PreviewCommand::kNextPage, !isLast);
    enable(PreviewCommand::kLastPage, !isLast);
    const auto check = [bar](PreviewCommand command, bool isOn) {
      CheckMenuItem(bar, static_cast<UINT>(command), isOn ? MF_CHECKED : MF_UNCHECKED);
    };
    check(PreviewCommand::kPageWidth, canvas_->zoom() == PreviewCanvas::Zoom::kPageWidth);
    check(PreviewCommand::kWholePage, canvas_->zoom() == PreviewCanvas::Zoom::kWholePage);
  }

  void run(PreviewCommand command) {
    if (command == PreviewCommand::kNone) return;
    setEntering(command == PreviewCommand::kGoToPage);
    switch (command) {
      case PreviewCommand::kPrint:
        printFromDialog(window(), *pages_, canvas_->page(), title_);
        break;
      case PreviewCommand::kSave:
        saveFromDialog(window(), *pages_, title_);
        break;
      case PreviewCommand::kClose:
        close();
        return;
      case PreviewCommand::kFirstPage:
        canvas_->showPage(0);
        break;
      case PreviewCommand::kPreviousPage:
        turnBack(false);
        break;
      case PreviewCommand::kNextPage:
        turnOver();
        break;
      case PreviewCommand::kLastPage:
        canvas_->showPage(state_.pageCount - 1);
        break;
      case PreviewCommand::kZoomIn:
        canvas_->zoomIn();
        break;
      case PreviewCommand::kZoomOut:
        canvas_->zoomOut();
        break;
      case PreviewCommand::kPageWidth:
        canvas_->setZoom(PreviewCanvas::Zoom::kPageWidth);
        break;
      case PreviewCommand::kWholePage:
        canvas_->setZoom(PreviewCanvas::Zoom::kWholePage);
        break;
      case PreviewCommand::kActualSize:
        canvas_->setZoom(PreviewCanvas::Zoom::kFixed, 100);
        break;
      default:
        break;
    }
    showState();
  }

  // Whether the key means something here.
  bool takeKey(WPARAM key) {
    const bool withControl = GetKeyState(VK_CONTROL) < 0;
    if (state_.isEntering && takeKeyOfEntry(key)) return true;
    if (const wchar_t digit = digitOfKey(key); digit != L'\0' && !withControl) {
      setEntering(true);
      addDigit(digit);
    } else if (const PreviewCommand command = commandOfKey(key, withControl);
               command != PreviewCommand::kNone) {
      run(command);
      return true;
    } else if (!moveByKey(key)) {
      return false;
    }
    showState();
    return true;
  }

  // Keys that have another meaning while a page's number is being entered.
  bool takeKeyOfEntry(WPARAM key) {
    if (key == VK_ESCAPE) {
      setEntering(false);
    } else if (key == VK_RETURN) {
      goToEntry();
    } else if (key == VK_BACK) {
      if (!state_.entry.empty()) state_.entry.pop_back();
    } else {
      return false;
    }
    showState();
    return true;
  }

  void setEntering(bool isEntering) {
    if (isEntering && state_.isEntering) return;
    state_.isEntering = isEntering;
    state_.entry.clear();
  }

  void addDigit(wchar_t digit) {
    if (state_.entry.size() < kLongestEntry) state_.entry.push_back(digit);
  }

  // A number that is too large is the last page.
  void goToEntry() {
    std::size_t page = 0;
    for (const wchar_t digit : state_.entry)
      page = page * 10 + static_cast<std::size_t>(digit - L'0');
    setEntering(false);
    if (page > 0) canvas_->showPage(std::min(page, state_.pageCount) - 1);
  }

  bool moveByKey(WPARAM key) {
    const int step = 3 * canvas_->rowHeight();
    switch (key) {
      case VK_UP:
        canvas_->scroll(0, -step);
        return true;
      case VK_DOWN:
        canvas_->scroll(0, step);
        return true;
      case VK_LEFT:
        canvas_->scroll(-step, 0);
        return true;
      case VK_RIGHT:
        canvas_->scroll(step, 0);
        return true;
      case VK_SPACE:
        read(std::max(step, canvas_->viewHeight() - step), GetKeyState(VK_SHIFT) < 0);
        return true;
      default:
        return false;
    }
  }

  // Moves down (or up) a page, and over its end.
  void read(int distance, bool upwards) {
    if (canvas_->scroll(0, upwards ? -distance : distance)) return;
    upwards ? turnBack(true) : turnOver();
  }

  void turnOver() {
    if (canvas_->page() + 1 < state_.pageCount) canvas_->showPage(canvas_->page() + 1);
  }
  void turnBack(bool toItsEnd) {
    if (canvas_->page() > 0) canvas_->showPage(canvas_->page() - 1, toItsEnd);
  }

  // Fine wheels send parts of a notch.
  void turnWheel(int delta, bool zooms) {
    wheel_ += delta;
    for (; std::abs(wheel_) >= WHEEL_DELTA; wheel_ += wheel_ > 0 ? -WHEEL_DELTA : WHEEL_DELTA) {
      const bool isUp = wheel_ > 0;
      if (zooms) {
        isUp ? canvas_->zoomIn() : canvas_->zoomOut();
      } else {
        read(6 * canvas_->rowHeight(), isUp);
      }
    }
    showState();
  }

  Ref<const PagedText> pages_;
  Text title_;
  Ref<PreviewCanvas> canvas_;
  Ref<PreviewBar> bar_;
  HWND status_ = nullptr;
  HFONT font_ = nullptr;
  PreviewState state_;
  std::wstring shownStatus_;
  int wheel_ = 0;
  WaitingWindows* waiting_ = nullptr;
};

// A service's session has windows, but nobody sees them.
bool sessionHasScreen() noexcept {
  USEROBJECTFLAGS flags{};
  if (!GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags,
                                 nullptr)) {
    return true;
  }
  return (flags.dwFlags & WSF_VISIBLE) != 0;
}

void runUntilClosed(PreviewWindow& preview) {
  MSG message{};
  while (preview.window() != nullptr) {
    const BOOL answer = GetMessageW(&message, nullptr, 0, 0);
    if (answer <= 0) preview.close();
    if (answer == 0) PostQuitMessage(static_cast<int>(message.wParam));
    if (answer <= 0) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace

bool anyPreviewIsOpen() noexcept { return InterlockedCompareExchange(&livingWindows, 0, 0) != 0; }

bool showPreview(const Ref<const PagedText>& pages, TextView title, bool modal) {
  if (!sessionHasScreen()) return false;
  const Ref<PreviewWindow> preview = make<PreviewWindow>(pages, title);
  if (!preview->create(modal ? GetActiveWindow() : nullptr)) return false;
  WaitingWindows others;
  if (modal) preview->keepWaiting(others);
  preview->show();
  if (modal) runUntilClosed(*preview);
  return true;
}

}  // namespace tarvo::platform
