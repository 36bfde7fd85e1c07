// An operator before the screen: finds a dialog, looks at it, and works it with keyboard and mouse.
//
// Dialogs may be another process's.  Whatever is waited for comes within kPatience or never.
#pragma once

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace screen {

inline constexpr DWORD kPatience = 20000;  // milliseconds
inline constexpr DWORD kPause = 20;
inline constexpr DWORD kTimeToDraw = 300;

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

inline std::string utf8(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  std::string result(text.size() * 3, '\0');
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(),
                                       static_cast<int>(result.size()), nullptr, nullptr);
  result.resize(static_cast<std::size_t>(size));
  return result;
}

// Says what is wrong; always false.
inline bool fail(const std::string& what, const std::wstring& more = {}) {
  std::printf("FAILED %s%s\n", what.c_str(), utf8(more).c_str());
  return false;
}

// By message: the windows may be another process's.
inline std::wstring textOf(HWND window) {
  wchar_t buffer[1024] = {};
  SendMessageW(window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(buffer));
  return buffer;
}

inline std::wstring classOf(HWND window) {
  wchar_t buffer[64] = {};
  GetClassNameW(window, buffer, 64);
  return buffer;
}

struct WindowSearch {
  DWORD process;
  const wchar_t* className;
  HWND found;
};

inline BOOL CALLBACK visitWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<WindowSearch*>(parameter);
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  const bool isIt = owner == search.process && IsWindowVisible(window) &&
                    lstrcmpiW(classOf(window).c_str(), search.className) == 0;
  if (isIt) search.found = window;
  return isIt ? FALSE : TRUE;
}

// The visible top-level window of the class that a process shows, or null.
inline HWND findWindow(DWORD process, const wchar_t* className) {
  WindowSearch search{process, className, nullptr};
  EnumWindows(&visitWindow, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// Waits for a dialog and for the input to be its own; null when it does not come.
inline HWND waitForDialog(DWORD process) {
  HWND dialog = nullptr;
  const auto isThere = [&] { return (dialog = findWindow(process, L"#32770")) != nullptr; };
  if (!comesTrue(isThere)) return nullptr;
  SetForegroundWindow(dialog);
  return comesTrue([&] { return GetForegroundWindow() == dialog; }) ? dialog : nullptr;
}

// --- Keyboard and mouse, as the hardware does it: to whichever window has the input.

inline void sendKey(WORD key, bool isUp) {
  INPUT event{};
  event.type = INPUT_KEYBOARD;
  event.ki.wVk = key;
  event.ki.dwFlags = isUp ? KEYEVENTF_KEYUP : 0;
  SendInput(1, &event, sizeof event);
}

inline void press(WORD key) {
  sendKey(key, false);
  sendKey(key, true);
}

inline void pressWith(WORD modifier, WORD key) {
  sendKey(modifier, false);
  press(key);
  sendKey(modifier, true);
}

inline void moveMouseTo(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
}

inline void clickMouse() {
  INPUT events[2] = {};
  for (INPUT& event : events) event.type = INPUT_MOUSE;
  events[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
  events[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
  SendInput(2, events, sizeof(INPUT));
}

// FOLDER\NAME.xwd, a copy of the file named in TARVO_SCREEN; nothing without it.
inline void takePicture(const std::wstring& folder, const std::wstring& name) {
  const wchar_t* const picture = _wgetenv(L"TARVO_SCREEN");
  if (picture == nullptr) return;
  Sleep(kTimeToDraw);
  CopyFileW((std::wstring(L"Z:") + picture).c_str(), (folder + L"\\" + name + L".xwd").c_str(),
            FALSE);
}

}  // namespace screen
