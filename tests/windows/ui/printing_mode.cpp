// The operator before the printing mode's dialog.
//
//   printing_mode FOLDER COMMAND...
//
// Starts a command and works each dialog that it shows as kVisits says; printing_mode.vbs shows
// them in the same order, and checks what it gets.  Pictures of some go to FOLDER\NAME.xwd.
//
// Ends with the command's exit code, or with 1 when a dialog was not as expected.
#include "screen.h"

namespace {

using screen::fail;

// The controls' numbers.
constexpr int kGraphic = 101;
constexpr int kText = 102;
constexpr int kContinue = 103;
constexpr int kCancel = 104;

using Step = bool (*)(HWND dialog);

struct Visit {
  const char* shows;
  std::vector<Step> steps;           // the last one closes the dialog
  const wchar_t* picture = nullptr;  // before the last one
};

// The focus is asked of the dialog's thread.
HWND focusOf(HWND dialog) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info);
  return info.hwndFocus;
}

template <int kId>
bool hasFocus(HWND dialog) {
  const HWND expected = GetDlgItem(dialog, kId);
  return screen::comesTrue([&] { return focusOf(dialog) == expected; }) ||
         fail("the focus is not on " + std::to_string(kId));
}

template <WORD kKey>
bool key(HWND) {
  screen::press(kKey);
  return true;
}
template <WORD kKey>
bool withAlt(HWND) {
  screen::pressWith(VK_MENU, kKey);
  return true;
}
// A busy screen learns late where windows and pointer are: a click before that goes elsewhere.
template <int kId>
bool mouse(HWND dialog) {
  const HWND control = GetDlgItem(dialog, kId);
  screen::moveMouseTo(control);
  const bool isThere = screen::comesTrue([&] {
    POINT pointer;
    return GetForegroundWindow() == dialog && GetCursorPos(&pointer) != 0 &&
           WindowFromPoint(pointer) == control;
  });
  if (!isThere) return fail("the pointer is not on it: " + std::to_string(kId));
  screen::clickMouse();
  return true;
}
template <int kId>
bool isChosen(HWND dialog) {
  const auto state = [&](int id) { return SendDlgItemMessageW(dialog, id, BM_GETCHECK, 0, 0); };
  return screen::comesTrue([&] {
           return state(kId) == BST_CHECKED && state(kGraphic + kText - kId) == BST_UNCHECKED;
         }) ||
         fail("not chosen alone: " + std::to_string(kId));
}
bool closeBox(HWND dialog) {
  PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
  return true;
}

// By message from another process, which the dialog handles while it waits for its next one.
bool pressByMessage(HWND dialog) {
  SendMessageW(GetDlgItem(dialog, kContinue), BM_CLICK, 0, 0);
  return true;
}

bool staysOpen(HWND dialog) {
  Sleep(screen::kTimeToDraw);
  return IsWindowVisible(dialog) ? true : fail("it closed");
}

bool hasToolTip(HWND dialog) {
  screen::moveMouseTo(GetDlgItem(dialog, kCancel));
  DWORD process = 0;
  GetWindowThreadProcessId(dialog, &process);
  std::wstring text;
  const bool isShown = screen::comesTrue([&] {
    const HWND tip = screen::findWindow(process, L"tooltips_class32");
    if (tip != nullptr) text = screen::textOf(tip);
    return tip != nullptr;
  });
  if (!isShown) return fail("no tooltip");
  return text == L"Se cancela por completo el proceso de impresión" || fail("tooltip: ", text);
}

const Visit kVisits[] = {
    {"Enter confirms", {hasFocus<kGraphic>, isChosen<kGraphic>, key<VK_RETURN>}, L"fresh"},
    {"Esc cancels", {key<VK_ESCAPE>}},
    {"F6 confirms", {key<VK_F6>}},
    {"the first button's letter", {withAlt<'C'>}},
    {"the second button's letter", {withAlt<'A'>}},
    {"the other option by its key, and Enter",
     {key<VK_DOWN>, isChosen<kText>, hasFocus<kText>, key<VK_RETURN>},
     L"text"},
    {"the other option by the mouse", {mouse<kText>, isChosen<kText>, mouse<kContinue>}},
    {"there and back, by the mouse",
     {mouse<kText>, isChosen<kText>, mouse<kGraphic>, isChosen<kGraphic>, mouse<kContinue>}},
    {"the second button by the mouse", {mouse<kText>, mouse<kCancel>}},
    {"the close box", {closeBox}},
    {"Alt+F4", {withAlt<VK_F4>}},
    {"F6 on the other option", {key<VK_DOWN>, hasFocus<kText>, key<VK_F6>}},
    {"Esc on the other option", {key<VK_DOWN>, hasFocus<kText>, key<VK_ESCAPE>}},
    {"Esc on the first button", {key<VK_TAB>, hasFocus<kContinue>, key<VK_ESCAPE>}},
    {"F6 on the second button",
     {key<VK_TAB>, hasFocus<kContinue>, key<VK_TAB>, hasFocus<kCancel>, key<VK_F6>}},
    {"Enter on the second button",
     {key<VK_TAB>, hasFocus<kContinue>, key<VK_TAB>, hasFocus<kCancel>, key<VK_RETURN>}},
    {"round the controls",
     {key<VK_TAB>, hasFocus<kContinue>, key<VK_TAB>, hasFocus<kCancel>, key<VK_TAB>,
      hasFocus<kGraphic>, key<VK_RETURN>}},
    {"a click by message", {pressByMessage}},
    {"the tooltip", {hasToolTip, key<VK_ESCAPE>}, L"tooltip"},
    // A script serves from here on.
    {"keys that the service takes",
     {key<VK_F6>, staysOpen, key<VK_ESCAPE>, staysOpen, mouse<kContinue>}},
    {"a service that chooses and presses by name", {key<VK_F2>}},
    {"a service that fails", {key<VK_F3>}},
    {"the next one", {key<VK_RETURN>}},
};

BOOL CALLBACK addContent(HWND window, LPARAM parameter) {
  auto& all = *reinterpret_cast<std::wstring*>(parameter);
  all += screen::classOf(window) + L" " + std::to_wstring(GetDlgCtrlID(window) & 0xFFFF) + L" " +
         screen::textOf(window) + L"\n";
  return TRUE;
}

// "Button 103 &Continuar", a line for each in their order.
std::wstring contentOf(HWND dialog) {
  std::wstring content;
  EnumChildWindows(dialog, &addContent, reinterpret_cast<LPARAM>(&content));
  return content;
}

constexpr const wchar_t* kContent =
    L"Static 65535 \n"
    L"Static 65535 Seleccione el Modo de Impresión\n"
    L"Button 101 Impresión Gráfica\n"
    L"Button 102 Impresión Texto\n"
    L"Button 103 &Continuar\n"
    L"Button 104 C&ancelar\n";

bool look(HWND dialog) {
  const std::wstring caption = screen::textOf(dialog);
  if (caption != L"Modos de Impresión Disponibles") return fail("caption: ", caption);
  const std::wstring content = contentOf(dialog);
  return content == kContent || fail("content: ", content);
}

bool make(const Visit& visit, DWORD process, const std::wstring& folder) {
  const HWND dialog = screen::waitForDialog(process);
  if (dialog == nullptr) return fail(std::string("no dialog: ") + visit.shows);
  bool isRight = look(dialog);
  for (std::size_t i = 0; i < visit.steps.size(); ++i) {
    const bool isLast = i + 1 == visit.steps.size();
    if (isLast && visit.picture != nullptr) screen::takePicture(folder, visit.picture);
    isRight = visit.steps[i](dialog) && isRight;
  }
  if (!screen::comesTrue([&] { return !IsWindow(dialog); })) {
    return fail(std::string("stays: ") + visit.shows);
  }
  return isRight || fail(std::string("in: ") + visit.shows);
}

std::wstring quotedCommand(int count, wchar_t** words) {
  std::wstring line;
  for (int i = 0; i < count; ++i) line += L"\"" + std::wstring(words[i]) + L"\" ";
  return line;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  if (count < 3) {
    std::puts("usage: printing_mode FOLDER COMMAND...");
    return 2;
  }
  std::wstring line = quotedCommand(count - 2, words + 2);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                      &started)) {
    std::puts("FAILED the command cannot be started");
    return 1;
  }
  bool allRight = true;
  for (const Visit& visit : kVisits) {
    allRight = make(visit, started.dwProcessId, words[1]) && allRight;
    if (WaitForSingleObject(started.hProcess, 0) == WAIT_OBJECT_0) break;
  }
  DWORD exitCode = 1;
  if (WaitForSingleObject(started.hProcess, screen::kPatience) == WAIT_OBJECT_0) {
    GetExitCodeProcess(started.hProcess, &exitCode);
  } else {
    std::puts("FAILED one dialog too many, or the command does not end");
    TerminateProcess(started.hProcess, 1);
  }
  std::fflush(stdout);
  return allRight ? static_cast<int>(exitCode) : 1;
}
