// The operator in front of the companion's message boxes.
//
//   message_boxes FOLDER COMMAND...
//
// Starts a command, waits for each message box that it shows, looks at it, and answers it with the
// keyboard.  What it expects is in kBoxes; message_boxes.vbs shows the boxes in the same order, and
// checks what it gets for an answer.  Pictures of some boxes go to FOLDER\NAME.xwd, a copy of the
// file named in TARVO_SCREEN.
//
// Ends with the command's exit code, or with 1 when a box was not as expected.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

struct Box {
  const wchar_t* caption;
  const wchar_t* text;
  int buttons;
  std::vector<WORD> keys;  // that close it
  const wchar_t* picture = nullptr;
};

constexpr const wchar_t* kOwnCaption = L"LibTarvoCI";

const Box kBoxes[] = {
    {kOwnCaption,
     L"No se reconoce el nombre de la impresora: Impresora rápida Nº 1 (Ñandú)",
     1,
     {VK_RETURN},
     L"unknown_printer"},
    {kOwnCaption, L"No se reconoce el nombre de la impresora: otra", 1, {VK_ESCAPE}},
    {L"Impresión de Plantilla",
     L"Atributo desconocido: «ÁÉÍÓÚ áéíóú ñÑ üÜ ¿? ¡! ªº €»",
     1,
     {VK_RETURN},
     L"letters"},
    {kOwnCaption, L"Línea uno\nLínea dos", 1, {VK_RETURN}},
    {L"Impresión de Informe", L"antes después", 1, {VK_ESCAPE}},
    {L"Dé la vuelta a la hoja", L"¿Está listo?", 2, {VK_RETURN}, L"question"},
    {L"Dé la vuelta a la hoja", L"¿Está listo?", 2, {VK_ESCAPE}},
    {L"Dé la vuelta a la hoja", L"¿Está listo?", 2, {VK_TAB, VK_RETURN}},
    {L"Proyecto",
     L"El componente Proyecto se está ejecutando desde una carpeta de prueba. ¿Desea continuar?",
     2,
     {VK_RETURN}},
    {L"Proyecto",
     L"El componente Proyecto se está ejecutando desde una carpeta de respaldo. ¿Desea continuar?",
     2,
     {VK_ESCAPE}},
};

constexpr DWORD kPatience = 20000;  // milliseconds
constexpr DWORD kPause = 20;
constexpr DWORD kTimeToDraw = 300;

// Asks until the answer is yes or the time is over.
template <class Question>
bool comesTrue(Question&& question) {
  const DWORD start = GetTickCount();
  while (!question()) {
    if (GetTickCount() - start > kPatience) return false;
    Sleep(kPause);
  }
  return true;
}

std::string utf8(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  std::string result(text.size() * 3, '\0');
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(),
                                       static_cast<int>(result.size()), nullptr, nullptr);
  result.resize(static_cast<std::size_t>(size));
  return result;
}

// By message: the windows are another process's.
std::wstring textOf(HWND window) {
  wchar_t buffer[1024] = {};
  SendMessageW(window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(buffer));
  return buffer;
}

bool hasClass(HWND window, const wchar_t* name) {
  wchar_t buffer[64] = {};
  GetClassNameW(window, buffer, 64);
  return lstrcmpiW(buffer, name) == 0;
}

struct Search {
  DWORD process;
  HWND found;
};

BOOL CALLBACK visitWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != search.process || !IsWindowVisible(window) || !hasClass(window, L"#32770")) {
    return TRUE;
  }
  search.found = window;
  return FALSE;
}

HWND findBox(DWORD process) {
  Search search{process, nullptr};
  EnumWindows(&visitWindow, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// What stands in a box: the texts of its static controls, and its buttons.
struct Content {
  std::wstring text;
  int buttons = 0;
};

BOOL CALLBACK visitChild(HWND window, LPARAM parameter) {
  auto& content = *reinterpret_cast<Content*>(parameter);
  if (!IsWindowVisible(window)) return TRUE;
  if (hasClass(window, L"Button")) {
    ++content.buttons;
  } else {
    content.text += textOf(window);
  }
  return TRUE;
}

// As the keyboard does it: to whichever window has the input.
void press(WORD key) {
  INPUT events[2] = {};
  for (INPUT& event : events) {
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
  }
  events[1].ki.dwFlags = KEYEVENTF_KEYUP;
  SendInput(2, events, sizeof(INPUT));
}

void takePicture(const std::wstring& folder, const wchar_t* name) {
  const wchar_t* const screen = _wgetenv(L"TARVO_SCREEN");
  if (screen == nullptr) return;
  Sleep(kTimeToDraw);
  CopyFileW((std::wstring(L"Z:") + screen).c_str(), (folder + L"\\" + name + L".xwd").c_str(),
            FALSE);
}

class Operator {
 public:
  Operator(DWORD process, std::wstring folder) : process_(process), folder_(std::move(folder)) {}

  bool answer(const Box& box) {
    HWND window = nullptr;
    if (!comesTrue([&] { return (window = findBox(process_)) != nullptr; })) {
      return fail("no box: ", box.text);
    }
    const bool isRight = look(window, box);
    if (box.picture != nullptr) takePicture(folder_, box.picture);
    SetForegroundWindow(window);
    if (!comesTrue([&] { return GetForegroundWindow() == window; })) {
      return fail("cannot get the input: ", box.text);
    }
    for (const WORD key : box.keys) press(key);
    if (!comesTrue([&] { return !IsWindow(window); })) return fail("stays: ", box.text);
    return isRight;
  }

 private:
  static bool fail(const char* what, const std::wstring& text) {
    std::printf("FAILED %s%s\n", what, utf8(text).c_str());
    return false;
  }

  static bool look(HWND window, const Box& box) {
    Content content;
    EnumChildWindows(window, &visitChild, reinterpret_cast<LPARAM>(&content));
    const std::wstring caption = textOf(window);
    if (caption != box.caption) return fail("caption: ", caption);
    if (content.text != box.text) return fail("text: ", content.text);
    if (content.buttons != box.buttons) return fail("number of buttons: ", box.text);
    return true;
  }

  DWORD process_;
  std::wstring folder_;
};

std::wstring quotedCommand(int count, wchar_t** words) {
  std::wstring line;
  for (int i = 0; i < count; ++i) line += L"\"" + std::wstring(words[i]) + L"\" ";
  return line;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  if (count < 3) {
    std::puts("usage: message_boxes FOLDER COMMAND...");
    return 2;
  }
  std::wstring line = quotedCommand(count - 2, words + 2);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                      &started)) {
    std::puts("FAILED: the command cannot be started");
    return 1;
  }
  Operator person(started.dwProcessId, words[1]);
  bool allRight = true;
  for (const Box& box : kBoxes) {
    allRight = person.answer(box) && allRight;
    if (WaitForSingleObject(started.hProcess, 0) == WAIT_OBJECT_0) break;
  }
  DWORD exitCode = 1;
  if (WaitForSingleObject(started.hProcess, kPatience) == WAIT_OBJECT_0) {
    GetExitCodeProcess(started.hProcess, &exitCode);
  } else {
    std::puts("FAILED: one box too many, or the command does not end");
    TerminateProcess(started.hProcess, 1);
  }
  std::fflush(stdout);
  return allRight ? static_cast<int>(exitCode) : 1;
}
