// An operator in front of a window of this program: a thread that presses keys and looks at what is
// shown, while the program's own thread waits in a modal window.
//
// It only touches windows, by the system's calls; what it sees is looked at by the test afterwards.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tarvo::test {

constexpr DWORD kPatience = 15000;  // milliseconds
constexpr DWORD kTimeToDraw = 400;

// Asks until the answer is yes or the time is over.
template <class Question>
bool comesTrue(Question&& question, DWORD patience = kPatience) {
  const DWORD start = GetTickCount();
  while (!question()) {
    if (GetTickCount() - start > patience) return false;
    Sleep(15);
  }
  return true;
}

inline std::wstring textOf(HWND window) {
  wchar_t buffer[1024] = {};
  SendMessageTimeoutW(window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(buffer), SMTO_ABORTIFHUNG,
                      kPatience, nullptr);
  return buffer;
}

// Where pictures go; empty: none are taken.
inline std::wstring picturesFolder;

inline void takePicture(const std::wstring& name) {
  const wchar_t* const screen = _wgetenv(L"TARVO_SCREEN");
  if (screen == nullptr || picturesFolder.empty()) return;
  Sleep(kTimeToDraw);
  CopyFileW((std::wstring(L"Z:") + screen).c_str(),
            (picturesFolder + L"/" + name + L".xwd").c_str(), FALSE);
}

// As the keyboard does it: to whichever window has the input.  `held` stays down meanwhile.
inline void press(WORD key, WORD held = 0) {
  std::vector<INPUT> events;
  const auto add = [&events](WORD which, DWORD flags) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = which;
    event.ki.dwFlags = flags;
    events.push_back(event);
  };
  if (held != 0) add(held, 0);
  add(key, 0);
  add(key, KEYEVENTF_KEYUP);
  if (held != 0) add(held, KEYEVENTF_KEYUP);
  SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT));
}

class Operator {
 public:
  // Visible, of this process, with that caption; null when none comes.
  static HWND waitForWindow(const std::wstring& caption) {
    HWND found = nullptr;
    comesTrue([&] {
      found = FindWindowW(nullptr, caption.c_str());
      return found != nullptr && IsWindowVisible(found);
    });
    return found;
  }

  // A dialog or message box other than `other`; null when none comes.
  static HWND waitForDialog(HWND other = nullptr) {
    HWND found = nullptr;
    comesTrue([&] {
      found = nullptr;
      while ((found = FindWindowExW(nullptr, found, L"#32770", nullptr)) != nullptr) {
        if (found != other && IsWindowVisible(found)) return true;
      }
      return false;
    });
    return found;
  }

  static bool giveInput(HWND window) {
    SetForegroundWindow(window);
    return comesTrue([window] { return GetForegroundWindow() == window; });
  }
};

}  // namespace tarvo::test
