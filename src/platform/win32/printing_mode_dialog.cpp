// The printing mode's dialog: a modal window from a template in memory.
//
// Its measures are dialog units, so it follows the font and the screen's resolution.  It has a
// message loop of its own, because a dialog's own one would keep Esc and F6 from the form.
#include <windows.h>
// windows.h must come first.
#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "frame/run_time_error.h"
#include "platform/win32/waiting_windows.h"
#include "ui/printing_mode_window.h"

namespace tarvo::platform {
namespace {

constexpr int kFirstControl = 101;  // the controls' numbers, in their order

int idOf(PrintingModeControl control) { return kFirstControl + static_cast<int>(control); }

bool isControl(int id) {
  return id >= kFirstControl && id < kFirstControl + static_cast<int>(kPrintingModeControlCount);
}

PrintingModeControl controlOf(int id) {
  return static_cast<PrintingModeControl>(id - kFirstControl);
}

[[noreturn]] void failWithSystemError() {
  setLastSystemError(static_cast<std::int32_t>(GetLastError()));
  throw RunTimeError(kInternalError, kPrintingModeCaption);
}

// --- The template.

enum WindowClass : WORD { kButton = 0x80, kStatic = 0x82 };

struct Place {
  short x, y, width, height;  // dialog units
};

class DialogTemplate {
 public:
  DialogTemplate() {
    constexpr DWORD kStyle = DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU;
    add(kStyle, {0, 0, 190, 96});
    words_.push_back(0);  // no menu
    words_.push_back(0);  // the dialogs' own class
    add(kPrintingModeCaption);
    words_.push_back(8);  // points
    add(kPrintingModeFont);

    addItem(SS_ETCHEDFRAME, {7, 7, 176, 20}, kStatic, -1, {});
    addItem(SS_CENTER | SS_NOPREFIX, {10, 13, 170, 9}, kStatic, -1, kPrintingModeTitle);
    addItem(BS_AUTORADIOBUTTON | WS_TABSTOP | WS_GROUP, {52, 35, 90, 10},
            PrintingModeControl::kGraphic);
    addItem(BS_AUTORADIOBUTTON, {52, 49, 90, 10}, PrintingModeControl::kText);
    addItem(BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP, {37, 74, 54, 14},
            PrintingModeControl::kContinue);
    addItem(BS_PUSHBUTTON | WS_TABSTOP, {99, 74, 54, 14}, PrintingModeControl::kCancel);
    words_[kItemCountAt] = static_cast<WORD>(itemCount_);
  }

  const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

 private:
  // Behind the two double words of style.
  static constexpr std::size_t kItemCountAt = 4;

  void add(DWORD style, const Place& place) {
    const DWORD head[] = {style, 0};
    add(head, sizeof head);
    if (words_.size() == kItemCountAt) words_.push_back(0);
    add(&place, sizeof place);
  }
  void add(const void* bytes, std::size_t size) {
    const std::size_t at = words_.size();
    words_.resize(at + size / sizeof(WORD));
    std::memcpy(&words_[at], bytes, size);
  }
  void add(TextView text) {
    words_.insert(words_.end(), text.begin(), text.end());
    words_.push_back(0);
  }
  void addItem(DWORD style, const Place& place, WindowClass windowClass, int id, TextView text) {
    if (words_.size() % 2 != 0) words_.push_back(0);  // items begin at double words
    add(style | WS_CHILD | WS_VISIBLE, place);
    words_.push_back(static_cast<WORD>(id));
    words_.push_back(0xFFFF);  // a class by its number follows
    words_.push_back(windowClass);
    add(text);
    words_.push_back(0);  // no data of its own
    ++itemCount_;
  }
  void addItem(DWORD style, const Place& place, PrintingModeControl control) {
    addItem(style, place, kButton, idOf(control), captionOf(control));
  }

  std::vector<WORD> words_;
  int itemCount_ = 0;
};

// --- The tooltip.

// The library of the tooltips, loaded when it is needed.  Without it the dialog has none.
class ToolTips {
 public:
  ToolTips() : library_(LoadLibraryW(L"comctl32.dll")) {
    if (library_ == nullptr) return;
    const auto initialize = reinterpret_cast<decltype(&InitCommonControlsEx)>(
        GetProcAddress(library_, "InitCommonControlsEx"));
    const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_BAR_CLASSES};
    if (initialize != nullptr) initialize(&wanted);
  }
  ToolTips(const ToolTips&) = delete;
  ToolTips& operator=(const ToolTips&) = delete;
  ~ToolTips() {
    if (library_ != nullptr) FreeLibrary(library_);
  }

  // It goes with the dialog.
  static void add(HWND dialog, HWND control, TextView text) {
    const HWND tip = CreateWindowExW(
        WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, CW_USEDEFAULT,
        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, dialog, nullptr, nullptr, nullptr);
    TTTOOLINFOW info{};
    info.cbSize = TTTOOLINFOW_V1_SIZE;
    info.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    info.hwnd = dialog;
    info.uId = reinterpret_cast<UINT_PTR>(control);
    info.lpszText = const_cast<wchar_t*>(reinterpret_cast<const wchar_t*>(text.data()));
    SendMessageW(tip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info));
  }

 private:
  HMODULE library_;
};

// --- The window.

// The middle of `outer`, but never outside the monitor's work area.
void moveToMiddle(HWND window, const RECT& outer) {
  RECT own{};
  GetWindowRect(window, &own);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromRect(&outer, MONITOR_DEFAULTTONEAREST), &monitor);
  const LONG width = own.right - own.left;
  const LONG height = own.bottom - own.top;
  const auto placed = [](LONG from, LONG to, LONG size, LONG least, LONG most) {
    const LONG middle = from + (to - from - size) / 2;
    return std::max(least, std::min(middle, most - size));
  };
  const RECT& work = monitor.rcWork;
  SetWindowPos(window, nullptr, placed(outer.left, outer.right, width, work.left, work.right),
               placed(outer.top, outer.bottom, height, work.top, work.bottom), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

class Dialog final : public PrintingModeWindow {
 public:
  ~Dialog() override { destroy(); }

  void choose(PrintingModeControl option) override {
    chosen_ = option;
    if (window_ != nullptr) showChosen();
  }

  void close() override {
    isClosed_ = true;
    // The loop may wait for a message while it handles one that was sent.
    if (window_ != nullptr) PostMessageW(window_, WM_NULL, 0, 0);
  }

  void showModal(PrintingModeEvents& events) override {
    events_ = &events;
    const HWND owner = GetActiveWindow();
    const ToolTips toolTips;
    // However this ends: the tooltip's window is one of the library that is freed next.
    const Shown shown(*this);
    window_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), DialogTemplate().get(), owner,
                                         &Dialog::procedure, reinterpret_cast<LPARAM>(this));
    if (window_ == nullptr) failWithSystemError();
    place(owner);
    WaitingWindows others;
    others.disableAllBut(window_);
    ShowWindow(window_, SW_SHOW);
    SetForegroundWindow(window_);
    runLoop();
  }

 private:
  class Shown {
   public:
    explicit Shown(Dialog& dialog) : dialog_(dialog) {}
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;
    ~Shown() { dialog_.destroy(); }

   private:
    Dialog& dialog_;
  };

  void destroy() {
    if (window_ != nullptr) DestroyWindow(std::exchange(window_, nullptr));
  }

  // Nothing is raised here: the events keep what fails in them.
  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
      SetWindowLongPtrW(window, DWLP_USER, lParam);
      reinterpret_cast<Dialog*>(lParam)->initialize(window);
      return TRUE;
    }
    auto* self = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (self == nullptr) return FALSE;
    switch (message) {
      case WM_COMMAND:
        return self->command(LOWORD(wParam), HIWORD(wParam)) ? TRUE : FALSE;
      case WM_CLOSE:
        self->close();
        return TRUE;
      default:
        return FALSE;
    }
  }

  void initialize(HWND window) {
    window_ = window;
    showChosen();
    ToolTips::add(window, GetDlgItem(window, idOf(PrintingModeControl::kCancel)),
                  kPrintingModeCancelTip);
  }

  void showChosen() {
    CheckRadioButton(window_, idOf(PrintingModeControl::kGraphic), idOf(PrintingModeControl::kText),
                     idOf(chosen_));
  }

  void place(HWND owner) {
    RECT outer{};
    if (owner == nullptr || IsIconic(owner) || !GetWindowRect(owner, &outer)) {
      SystemParametersInfoW(SPI_GETWORKAREA, 0, &outer, 0);
    }
    moveToMiddle(window_, outer);
  }

  bool command(int id, int notification) {
    if (!isControl(id) || notification != BN_CLICKED) return false;
    events_->clicked(controlOf(id));
    return true;
  }

  void runLoop() {
    MSG message;
    while (!isClosed_) {
      const BOOL got = GetMessageW(&message, nullptr, 0, 0);
      if (got < 0) failWithSystemError();
      if (got == 0) {  // the program ends: the loops behind this one must see it too
        PostQuitMessage(static_cast<int>(message.wParam));
        return;
      }
      if (tellForm(message)) continue;
      if (!IsDialogMessageW(window_, &message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
      }
    }
  }

  // Whether the message ends with the form's handler.
  bool tellForm(const MSG& message) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
    if (message.hwnd != window_ && !IsChild(window_, message.hwnd)) return false;
    const int id = GetDlgCtrlID(message.hwnd);
    const auto control = isControl(id) ? controlOf(id) : PrintingModeControl::kContinue;
    events_->keyPressed(control, static_cast<std::int16_t>(message.wParam), shiftState());
    // A dialog's own way with Esc would be to close.
    return isClosed_ || message.wParam == VK_ESCAPE;
  }

  static std::int16_t shiftState() {
    const auto isDown = [](int key) { return GetKeyState(key) < 0; };
    return static_cast<std::int16_t>((isDown(VK_SHIFT) ? 1 : 0) | (isDown(VK_CONTROL) ? 2 : 0) |
                                     (isDown(VK_MENU) ? 4 : 0));
  }

  PrintingModeEvents* events_ = nullptr;
  HWND window_ = nullptr;
  PrintingModeControl chosen_ = PrintingModeControl::kGraphic;
  bool isClosed_ = false;
};

}  // namespace

std::unique_ptr<PrintingModeWindow> makePrintingModeWindow() { return std::make_unique<Dialog>(); }

}  // namespace tarvo::platform
