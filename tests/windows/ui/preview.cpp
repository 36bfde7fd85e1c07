// The preview window on a screen, driven by the keyboard.
//
//   preview FOLDER    pictures of it go to FOLDER
#include <gmock/gmock.h>
#include <windows.h>
// windows.h must come first.
#include <objbase.h>

#include <cmath>
#include <functional>

#include "equipment/errors.h"
#include "equipment/temporary_folder.h"
#include "graphic/page_output.h"
#include "graphic/pdf_writer.h"
#include "platform/win32/preview_window.h"
#include "preview_operator.h"

namespace tarvo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char16_t* kTitle = u"Relación de Facturas por Cobrar";
const std::wstring kCaption = L"Relación de Facturas por Cobrar";

std::string utf8(const std::wstring& text) { return toUtf8(Text(text.begin(), text.end())); }

Text padded(Text text, std::size_t width) {
  text.resize(std::max(width, text.size()), u' ');
  return text;
}

// A report that looks like one.
Ref<PagedText> report(std::size_t pageCount, PageFormat format = {}) {
  const Ref<PagedText> pages = make<PagedText>(std::move(format));
  const std::size_t columns = pages->columns();
  const std::size_t rows = pages->rowsPerPage();
  for (std::size_t page = 1; page <= pageCount; ++page) {
    const Text number = u"Página " + fromAscii(std::to_string(page));
    pages->addRow(padded(u"INVERSIONES EL ÑANDÚ, C.A.", columns - number.size()) + number);
    pages->addRow(Text(kTitle) + u" al 31/12/2024");
    pages->addRow(Text(columns, u'='));
    pages->addRow(padded(padded(u"Número", 12) + u"Cliente", columns - 15) + u"          Monto");
    pages->addRow(Text(columns, u'-'));
    const std::size_t last = page == pageCount ? rows / 2 : rows;
    for (std::size_t row = 5; row < last; ++row) {
      const std::size_t invoice = page * 100 + row;
      Text amount = fromAscii(std::to_string(invoice * 37 % 9000 + 100)) + u",50";
      amount.insert(0, 15 - amount.size(), u' ');
      pages->addRow(padded(padded(fromAscii(std::to_string(invoice)), 12) + u"Cliente nº " +
                               fromAscii(std::to_string(row)) + u", Sociedad Anónima",
                           columns - 15) +
                    amount);
    }
  }
  return pages;
}

PageFormat wideFormat() {
  PageFormat format;
  format.width = 24480;
  format.height = 15840;
  format.landscape = true;
  return format;
}

class PreviewWindows : public testing::Test {
 public:
  using Script = std::function<void(PreviewWindows&)>;

  // Shows pages modally while an operator does what the script says.  The window is closed at the
  // end of the script if it is still there.
  void showTo(const Ref<const PagedText>& pages, const Script& script) {
    begin(script);
    output_->show(pages, kTitle, true);
    end();
    EXPECT_TRUE(found_) << "the window did not appear, or got no input";
    EXPECT_FALSE(platform::anyPreviewIsOpen());
  }

  void begin(const Script& script) {
    script_ = script;
    thread_ = CreateThread(nullptr, 0, &runScript, this, 0, nullptr);
  }
  void end() {
    WaitForSingleObject(thread_, INFINITE);
    CloseHandle(thread_);
  }

  // --- For scripts.

  HWND window() const { return window_; }

  std::string status() const {
    const std::wstring text = textOf(FindWindowExW(window_, nullptr, L"Static", nullptr));
    const std::size_t start = text.find_first_not_of(L' ');
    return start == std::wstring::npos ? "" : utf8(text.substr(start));
  }

  // Presses a key and waits for that status; notes it, or the one that is there instead.
  void expectStatus(const std::string& expected, WORD key, WORD held = 0) {
    press(key, held);
    waitForStatus(expected);
  }
  void waitForStatus(const std::string& expected) {
    comesTrue([&] { return status() == expected; }, 3000);
    expected_.push_back(expected);
    seen_.push_back(status());
  }

  // Presses a key and waits until the window has dealt with it.
  void pressAndWait(WORD key, WORD held = 0) {
    press(key, held);
    Sleep(120);
    SendMessageW(window_, WM_NULL, 0, 0);
  }

  void note(const std::string& what) { notes_.push_back(what); }

  std::vector<std::string> notes_;
  TemporaryFolder folder_;
  Ref<PageOutput> output_ = platform::makePageOutput();

  void TearDown() override { EXPECT_EQ(seen_, expected_); }

 private:
  static DWORD WINAPI runScript(void* parameter) {
    auto& self = *static_cast<PreviewWindows*>(parameter);
    self.window_ = Operator::waitForWindow(kCaption);
    self.found_ = self.window_ != nullptr && Operator::giveInput(self.window_);
    if (self.found_) self.script_(self);
    if (self.window_ != nullptr && IsWindow(self.window_))
      PostMessageW(self.window_, WM_CLOSE, 0, 0);
    return 0;
  }

  Script script_;
  HANDLE thread_ = nullptr;
  HWND window_ = nullptr;
  bool found_ = false;
  std::vector<std::string> expected_;
  std::vector<std::string> seen_;
};

TEST_F(PreviewWindows, TurnPagesByKeys) {
  bool closedByEscape = false;
  showTo(report(12), [&](PreviewWindows& at) {
    at.waitForStatus("Página 1 de 12");
    takePicture(L"page_width");
    at.expectStatus("Página 2 de 12", VK_NEXT);
    at.expectStatus("Página 3 de 12", VK_NEXT);
    at.expectStatus("Página 2 de 12", VK_PRIOR);
    at.expectStatus("Página 12 de 12", VK_END);
    takePicture(L"last_page");
    at.pressAndWait(VK_NEXT);
    at.waitForStatus("Página 12 de 12");
    at.expectStatus("Página 1 de 12", VK_HOME);
    at.pressAndWait(VK_PRIOR);
    at.waitForStatus("Página 1 de 12");
    press(VK_ESCAPE);
    closedByEscape = comesTrue([&] { return !IsWindow(at.window()); });
  });
  EXPECT_TRUE(closedByEscape);
}

TEST_F(PreviewWindows, GoToAPageByItsNumber) {
  showTo(report(12), [](PreviewWindows& at) {
    at.expectStatus("Página 1 de 12    Ir a la página: 7", '7');
    takePicture(L"entry");
    at.expectStatus("Página 7 de 12", VK_RETURN);
    at.expectStatus("Página 7 de 12    Ir a la página: ", 'G', VK_CONTROL);
    at.expectStatus("Página 7 de 12    Ir a la página: 1", VK_NUMPAD1);
    at.expectStatus("Página 7 de 12    Ir a la página: 10", VK_NUMPAD0);
    at.expectStatus("Página 7 de 12    Ir a la página: 1", VK_BACK);
    at.expectStatus("Página 7 de 12    Ir a la página: 11", '1');
    at.expectStatus("Página 11 de 12", VK_RETURN);
    at.expectStatus("Página 11 de 12    Ir a la página: 5", '5');
    at.expectStatus("Página 11 de 12", VK_ESCAPE);
    at.expectStatus("Página 11 de 12    Ir a la página: 9", '9');
    at.pressAndWait('9');
    at.expectStatus("Página 12 de 12", VK_RETURN);
    at.pressAndWait('0');
    at.expectStatus("Página 12 de 12", VK_RETURN);
  });
}

TEST_F(PreviewWindows, MoveThePaperAndGoOnAtItsEnd) {
  showTo(report(3), [](PreviewWindows& at) {
    at.waitForStatus("Página 1 de 3");
    at.pressAndWait(VK_DOWN);
    at.waitForStatus("Página 1 de 3");
    for (int i = 0; i < 20 && at.status() == "Página 1 de 3"; ++i) at.pressAndWait(VK_SPACE);
    at.waitForStatus("Página 2 de 3");
    at.pressAndWait(VK_SPACE, VK_SHIFT);
    at.waitForStatus("Página 1 de 3");
    takePicture(L"end_of_page");
  });
}

// The bar of buttons, and behind it the page.
HWND barOf(HWND window) { return FindWindowExW(window, nullptr, L"TarvoRdpPreview", nullptr); }
HWND pageOf(HWND window) {
  return FindWindowExW(window, barOf(window), L"TarvoRdpPreview", nullptr);
}

// Pixels in one direction, from the page's scroll bar: the paper with the desk around it, and the
// part of it that has room.
struct Extent {
  int content = 0;
  int room = 0;

  bool fits() const { return content > 0 && content == room; }
};
Extent extentOf(HWND window, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE;
  GetScrollInfo(pageOf(window), bar, &info);
  return {info.nMax + 1, std::min(info.nMax + 1, static_cast<int>(info.nPage))};
}

// What a paper of so many twips needs.
int contentFor(int twips, int percent) {
  const HDC screen = GetDC(nullptr);
  const int dotsPerInch = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  const int desk = MulDiv(14, dotsPerInch, 96);
  return static_cast<int>(static_cast<double>(twips) * percent * dotsPerInch / (100 * 1440.0)) +
         2 * desk;
}

bool hasSize(HWND window, int percent) {
  const PageFormat format;
  return extentOf(window, SB_HORZ).content == contentFor(format.width, percent) &&
         extentOf(window, SB_VERT).content == contentFor(format.height, percent);
}
bool showsWholePage(HWND window) {
  return extentOf(window, SB_HORZ).fits() && extentOf(window, SB_VERT).fits();
}
bool showsPageWidth(HWND window) {
  return extentOf(window, SB_HORZ).fits() && !extentOf(window, SB_VERT).fits();
}

TEST_F(PreviewWindows, ShowAnySize) {
  showTo(report(2), [](PreviewWindows& at) {
    const auto check = [&at](const char* what, const std::function<bool(HWND)>& isRight) {
      if (comesTrue([&] { return isRight(at.window()); }, 3000)) return;
      at.note(std::string(what) + ": " + std::to_string(extentOf(at.window(), SB_HORZ).content) +
              " by " + std::to_string(extentOf(at.window(), SB_VERT).content));
    };
    const auto percent = [](int size) {
      return [size](HWND window) { return hasSize(window, size); };
    };
    check("begins with the page's width", &showsPageWidth);
    at.pressAndWait('0', VK_CONTROL);
    check("whole page", &showsWholePage);
    takePicture(L"whole_page");
    at.pressAndWait('1', VK_CONTROL);
    check("own size", percent(100));
    takePicture(L"own_size");
    at.pressAndWait(VK_ADD);
    check("larger", percent(125));
    for (int i = 0; i < 9; ++i) at.pressAndWait(VK_ADD);
    check("largest", percent(400));
    takePicture(L"largest");
    for (int i = 0; i < 20; ++i) at.pressAndWait(VK_SUBTRACT);
    check("smallest", percent(10));
    takePicture(L"smallest");
    SetWindowPos(at.window(), nullptr, 30, 30, 420, 360, SWP_NOZORDER);
    at.pressAndWait('2', VK_CONTROL);
    check("page width of a small window", &showsPageWidth);
    takePicture(L"small_window");
    at.waitForStatus("Página 1 de 2");
  });
  EXPECT_THAT(notes_, ElementsAre());
}

TEST_F(PreviewWindows, ShowWidePages) {
  const PageFormat format = wideFormat();
  showTo(report(2, format), [&format](PreviewWindows& at) {
    at.waitForStatus("Página 1 de 2");
    takePicture(L"wide_page");
    const int desk = contentFor(0, 100);
    const double across = extentOf(at.window(), SB_HORZ).content - desk;
    const double down = extentOf(at.window(), SB_VERT).content - desk;
    const double expected = across * format.height / format.width;
    if (!extentOf(at.window(), SB_HORZ).fits()) at.note("wider than the window");
    if (across < 500 || std::abs(down - expected) > 2) {
      at.note("not of its form: " + std::to_string(across) + " by " + std::to_string(down));
    }
    at.pressAndWait('1', VK_CONTROL);
    const int ownSize = contentFor(format.width, 100);
    if (!comesTrue([&] { return extentOf(at.window(), SB_HORZ).content == ownSize; }, 3000)) {
      at.note("another size than its own");
    }
  });
  EXPECT_THAT(notes_, ElementsAre());
}

// The buttons are drawn, each as wide as its text needs: so the mouse tries one place after the
// other until the window has done what the next button does.
class BarClicker {
 public:
  explicit BarClicker(PreviewWindows& at) : at_(at) {}

  // From here to the right, or to the left.
  template <class Effect>
  void clickUntil(const char* what, int step, Effect&& hasEffect) {
    for (int tries = 0; tries < 30; ++tries, x_ += step) {
      click();
      if (hasEffect()) return;
    }
    at_.note(std::string("no button for: ") + what);
  }
  void clickUntilStatus(const std::string& status, int step) {
    clickUntil(status.c_str(), step, [&] { return at_.status() == status; });
  }

  void moveTo(int x) { x_ = x; }
  int place() const { return x_; }

 private:
  void click() {
    const HWND bar = barOf(at_.window());
    SendMessageW(bar, WM_MOUSEMOVE, 0, MAKELPARAM(x_, 20));
    SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x_, 20));
    SendMessageW(bar, WM_LBUTTONUP, 0, MAKELPARAM(x_, 20));
    Sleep(40);
    SendMessageW(at_.window(), WM_NULL, 0, 0);
  }

  PreviewWindows& at_;
  int x_ = 0;
};

TEST_F(PreviewWindows, HaveAButtonForEveryMove) {
  constexpr int kRight = 8;
  constexpr int kLeft = -8;
  showTo(report(4), [](PreviewWindows& at) {
    at.waitForStatus("Página 1 de 4");
    BarClicker mouse(at);
    mouse.moveTo(300);
    mouse.clickUntilStatus("Página 2 de 4", kRight);
    const int next = mouse.place();
    mouse.clickUntilStatus("Página 4 de 4", kRight);
    const int last = mouse.place();
    mouse.moveTo(next + 2 * kLeft);
    mouse.clickUntilStatus("Página 4 de 4    Ir a la página: ", kLeft);
    at.expectStatus("Página 4 de 4", VK_ESCAPE);
    mouse.moveTo(mouse.place() - 58);
    mouse.clickUntilStatus("Página 3 de 4", kLeft);
    mouse.clickUntilStatus("Página 1 de 4", kLeft);
    at.pressAndWait('1', VK_CONTROL);
    mouse.moveTo(last + 30);
    const auto hasPercent = [&at](int percent) {
      return [&at, percent] { return hasSize(at.window(), percent); };
    };
    mouse.clickUntil("smaller", kRight, hasPercent(90));
    mouse.clickUntil("own size", kRight, hasPercent(100));
    mouse.clickUntil("larger", kRight, hasPercent(125));
    mouse.clickUntil("page width", kRight, [&at] { return showsPageWidth(at.window()); });
    mouse.clickUntil("whole page", kRight, [&at] { return showsWholePage(at.window()); });
    takePicture(L"buttons");
    mouse.clickUntil("close", kRight, [&at] { return !IsWindow(at.window()); });
  });
  EXPECT_THAT(notes_, ElementsAre());
}

TEST_F(PreviewWindows, HaveAMenuForEveryCommand) {
  std::vector<std::string> entries;
  showTo(report(2), [&](PreviewWindows& at) {
    const HMENU bar = GetMenu(at.window());
    for (int i = 0; i < GetMenuItemCount(bar); ++i) {
      const HMENU menu = GetSubMenu(bar, i);
      for (int j = 0; j < GetMenuItemCount(menu); ++j) {
        wchar_t text[80] = {};
        GetMenuStringW(menu, static_cast<UINT>(j), text, 80, MF_BYPOSITION);
        if (text[0] != L'\0') entries.push_back(utf8(text));
      }
    }
    press(VK_MENU);
    Sleep(200);
    press('P');
    Sleep(200);
    takePicture(L"menu");
    at.expectStatus("Página 2 de 2", 'S');
  });
  EXPECT_EQ(entries.size(), 13u);
  EXPECT_THAT(entries, testing::Contains("&Imprimir...\tCtrl+P"));
}

TEST_F(PreviewWindows, FollowTheWheel) {
  showTo(report(3), [](PreviewWindows& at) {
    at.waitForStatus("Página 1 de 3");
    for (int i = 0; i < 30; ++i) {
      PostMessageW(at.window(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
    }
    at.waitForStatus("Página 3 de 3");
    const int before = extentOf(at.window(), SB_HORZ).content;
    PostMessageW(at.window(), WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, WHEEL_DELTA), 0);
    if (!comesTrue([&] { return extentOf(at.window(), SB_HORZ).content > before; })) {
      at.note("no larger");
    }
    at.waitForStatus("Página 3 de 3");
    at.expectStatus("Página 1 de 3", VK_HOME);
  });
  EXPECT_THAT(notes_, ElementsAre());
}

TEST_F(PreviewWindows, MakeTheOtherWindowsWait) {
  const HWND other =
      CreateWindowExW(0, L"#32770", L"La ventana del cliente", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                      0, 300, 200, nullptr, nullptr, nullptr, nullptr);
  SetActiveWindow(other);
  bool waited = false;
  showTo(report(1), [&](PreviewWindows&) { waited = !IsWindowEnabled(other); });
  EXPECT_TRUE(waited);
  EXPECT_TRUE(IsWindowEnabled(other));
  EXPECT_EQ(GetActiveWindow(), other);
  DestroyWindow(other);
}

TEST_F(PreviewWindows, CloseWhenTheMessageLoopIsToEnd) {
  const DWORD thread = GetCurrentThreadId();
  showTo(report(1), [thread](PreviewWindows& at) {
    PostThreadMessageW(thread, WM_QUIT, 42, 0);
    if (!comesTrue([&] { return !IsWindow(at.window()); })) at.note("stays");
  });
  EXPECT_THAT(notes_, ElementsAre());
  MSG message{};
  EXPECT_NE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), 0);
  EXPECT_EQ(message.wParam, 42u);
}

TEST_F(PreviewWindows, LiveByTheClientsLoopWhenTheyAreNotModal) {
  output_->show(report(2), kTitle, false);
  EXPECT_TRUE(platform::anyPreviewIsOpen());
  begin([](PreviewWindows& at) {
    at.expectStatus("Página 2 de 2", VK_NEXT);
    press(VK_ESCAPE);
    comesTrue([&] { return !IsWindow(at.window()); });
  });
  MSG message{};
  const DWORD start = GetTickCount();
  while (platform::anyPreviewIsOpen() && GetTickCount() - start < 2 * kPatience) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
  end();
  EXPECT_FALSE(platform::anyPreviewIsOpen());
}

// --- Saving and printing.

// Enters a file's name in the dialog for saving, and accepts.
bool saveAs(const Text& path) {
  const HWND dialog = Operator::waitForDialog();
  if (dialog == nullptr || !Operator::giveInput(dialog)) return false;
  takePicture(L"save_dialog");
  // The name is what has the focus.
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &thread);
  const std::wstring name(path.begin(), path.end());
  SendMessageW(thread.hwndFocus, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
  press(VK_RETURN);
  return true;
}

// The text of a message box, which is then closed.
std::string readBox(HWND other, const wchar_t* picture) {
  const HWND box = Operator::waitForDialog(other);
  if (box == nullptr) return "no message box";
  takePicture(picture);
  std::wstring text;
  HWND child = nullptr;
  while ((child = FindWindowExW(box, child, L"Static", nullptr)) != nullptr) text += textOf(child);
  PostMessageW(box, WM_COMMAND, IDOK, 0);
  comesTrue([box] { return !IsWindow(box); });
  return utf8(text);
}

TEST_F(PreviewWindows, SaveThePages) {
  const Ref<PagedText> pages = report(2);
  const Text path = folder_.pathOf(u"año.pdf");
  showTo(pages, [&](PreviewWindows& at) {
    press('S', VK_CONTROL);
    if (!saveAs(path)) at.note("no dialog");
    comesTrue([&] { return folder_.has(u"año.pdf") && IsWindowEnabled(at.window()); });
    Operator::giveInput(at.window());
    at.expectStatus("Página 2 de 2", VK_NEXT);
  });
  EXPECT_THAT(notes_, ElementsAre());
  EXPECT_TRUE(folder_.contentOf(u"año.pdf") == pdfOf(*pages, kTitle));
}

TEST_F(PreviewWindows, TellWhyAFileCannotBeSaved) {
  const HANDLE locked = CreateFileW((folder_.path() / L"ocupado.pdf").c_str(), GENERIC_WRITE, 0,
                                    nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  std::string text;
  showTo(report(2), [&](PreviewWindows& at) {
    press('S', VK_CONTROL);
    if (!saveAs(folder_.pathOf(u"ocupado.pdf"))) at.note("no dialog");
    // It asks whether the file is to be replaced.
    const HWND dialog = Operator::waitForDialog();
    const HWND question = Operator::waitForDialog(dialog);
    PostMessageW(question, WM_COMMAND, IDYES, 0);
    comesTrue([&] { return !IsWindow(question) && !IsWindow(dialog); });
    text = readBox(nullptr, L"error_box");
    Operator::giveInput(at.window());
    at.expectStatus("Página 2 de 2", VK_NEXT);
  });
  CloseHandle(locked);
  EXPECT_THAT(notes_, ElementsAre());
  EXPECT_THAT(text, HasSubstr("No se pudo guardar el informe."));
  EXPECT_THAT(text, HasSubstr("ocupado.pdf"));
}

// The equipment's printers have a driver that knows no pages.
TEST_F(PreviewWindows, TellWhyAReportCannotBePrinted) {
  std::string text;
  showTo(report(2), [&](PreviewWindows& at) {
    press('P', VK_CONTROL);
    const HWND dialog = Operator::waitForDialog();
    takePicture(L"print_dialog");
    if (dialog == nullptr || textOf(dialog).find(L"Print") == std::wstring::npos) {
      at.note("no print dialog");
    }
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    text = readBox(dialog, L"print_error");
    Operator::giveInput(at.window());
    at.expectStatus("Página 2 de 2", VK_NEXT);
  });
  EXPECT_THAT(notes_, ElementsAre());
  EXPECT_THAT(text, HasSubstr("No se pudo imprimir el informe."));
  EXPECT_THAT(text, HasSubstr("TarvoRaw"));
}

}  // namespace
}  // namespace tarvo::test

// The system's dialogs for files do not work for a user without one, and the equipment's user has
// none.
static void giveDesktopFolder() {
  constexpr wchar_t kFolder[] = L"C:\\windows\\temp";
  RegSetKeyValueW(HKEY_CURRENT_USER,
                  L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders",
                  L"Desktop", REG_SZ, kFolder, sizeof kFolder);
}

int main(int count, char** words) {
  testing::InitGoogleMock(&count, words);
  if (count > 1) {
    const std::string folder = std::string("Z:") + words[1];
    tarvo::test::picturesFolder.assign(folder.begin(), folder.end());
  }
  giveDesktopFolder();
  CoInitialize(nullptr);
  const int result = RUN_ALL_TESTS();
  CoUninitialize();
  return result;
}
