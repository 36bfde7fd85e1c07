// The printing mode's dialog before the windows of the program that asks for it: a compiled client
// with its windows, and its operator in a second thread.
#include <functional>

#include "client.h"
#include "screen.h"

namespace tarvo::client {
namespace {

using screen::fail;

constexpr int kContinue = 103;
constexpr UINT_PTR kTimer = 1;

int ticks = 0;  // of the owner's timer

LRESULT CALLBACK ownerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_TIMER) ++ticks;
  return DefWindowProcW(window, message, wParam, lParam);
}

HWND makeOwner(int x, int y) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = &ownerProcedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = L"Owner";
  RegisterClassW(&windowClass);
  const HWND owner = CreateWindowExW(0, L"Owner", L"Cliente", WS_OVERLAPPEDWINDOW | WS_VISIBLE, x,
                                     y, 500, 400, nullptr, nullptr, windowClass.hInstance, nullptr);
  SetForegroundWindow(owner);
  SetActiveWindow(owner);
  return owner;
}

struct Answer {
  HRESULT status = S_FALSE;
  ePrintingMode mode = ePM_Text;
  VARIANT_BOOL accepted = VARIANT_FALSE;
};

// Asks for the mode while an operator does something; false when the operator says so.
struct Scene {
  HWND owner = nullptr;
  std::function<bool(HWND dialog)> work;
  bool isRight = false;
};

DWORD WINAPI operate(void* parameter) {
  auto& scene = *static_cast<Scene*>(parameter);
  const HWND dialog = screen::waitForDialog(GetCurrentProcessId());
  scene.isRight = dialog != nullptr ? scene.work(dialog) : fail("no dialog");
  return 0;
}

bool ask(_clsLibTarvoRdp* helpers, Scene scene, Answer& answer) {
  const HANDLE person = CreateThread(nullptr, 0, &operate, &scene, 0, nullptr);
  answer = Answer();
  answer.status = helpers->fChoosePrintingMode(&answer.mode, &answer.accepted);
  // The operator may still send messages to this thread.
  while (MsgWaitForMultipleObjects(1, &person, FALSE, screen::kPatience, QS_SENDMESSAGE) ==
         WAIT_OBJECT_0 + 1) {
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | (QS_SENDMESSAGE << 16));
  }
  CloseHandle(person);
  if (screen::findWindow(GetCurrentProcessId(), L"#32770") != nullptr) return fail("still there");
  if (scene.owner != nullptr && !IsWindowEnabled(scene.owner)) return fail("the owner is disabled");
  return scene.isRight;
}

RECT placeOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return place;
}

bool confirm(HWND dialog) {
  PostMessageW(GetDlgItem(dialog, kContinue), BM_CLICK, 0, 0);
  return true;
}

// --- What is looked at.

bool isModalInTheMiddle(_clsLibTarvoRdp* helpers) {
  const HWND owner = makeOwner(100, 150);
  ticks = 0;
  SetTimer(owner, kTimer, 20, nullptr);
  Answer answer;
  const auto work = [owner](HWND dialog) {
    if (GetWindow(dialog, GW_OWNER) != owner) return fail("another owner");
    if (IsWindowEnabled(owner)) return fail("the owner takes input");
    const RECT outer = placeOf(owner);
    const RECT own = placeOf(dialog);
    const LONG across = own.left + own.right - outer.left - outer.right;
    const LONG down = own.top + own.bottom - outer.top - outer.bottom;
    if (std::abs(across) > 2 || std::abs(down) > 2) return fail("not in the owner's middle");
    if (!screen::comesTrue([] { return ticks > 2; })) return fail("the owner's timer stands");
    return confirm(dialog);
  };
  bool isRight = ask(helpers, {owner, work}, answer);
  if (answer.status != S_OK || answer.accepted != VARIANT_TRUE || answer.mode != ePM_Graphic) {
    isRight = fail("the answer to a confirmation");
  }
  if (GetActiveWindow() != owner) isRight = fail("the owner is not active again");
  DestroyWindow(owner);
  return isRight;
}

bool staysOnTheScreen(_clsLibTarvoRdp* helpers) {
  const HWND owner = makeOwner(GetSystemMetrics(SM_CXSCREEN) - 150, -250);
  Answer answer;
  const auto work = [](HWND dialog) {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const RECT own = placeOf(dialog);
    const bool isInside = own.left >= area.left && own.top >= area.top && own.right <= area.right &&
                          own.bottom <= area.bottom;
    return confirm(dialog) && (isInside || fail("outside the screen"));
  };
  const bool isRight = ask(helpers, {owner, work}, answer);
  DestroyWindow(owner);
  return isRight;
}

bool needsNoOwner(_clsLibTarvoRdp* helpers) {
  Answer answer;
  const auto work = [](HWND dialog) {
    const bool isAlone = GetWindow(dialog, GW_OWNER) == nullptr;
    return confirm(dialog) && (isAlone || fail("an owner from nowhere"));
  };
  return ask(helpers, {nullptr, work}, answer) &&
         (answer.accepted == VARIANT_TRUE || fail("the answer without an owner"));
}

bool leavesADisabledOwnerAlone(_clsLibTarvoRdp* helpers) {
  const HWND owner = makeOwner(100, 150);
  EnableWindow(owner, FALSE);
  SetActiveWindow(owner);
  Answer answer;
  bool isRight = ask(helpers, {nullptr, confirm}, answer);
  if (IsWindowEnabled(owner)) isRight = fail("the owner was enabled");
  DestroyWindow(owner);
  return isRight;
}

// `active` is the one that has the input, or null for none.
bool makesTheseWait(_clsLibTarvoRdp* helpers, HWND active, HWND one, HWND other) {
  SetActiveWindow(active);
  if (GetActiveWindow() != active) return fail("another window is active");
  Answer answer;
  const auto work = [=](HWND dialog) {
    const bool allWait = !IsWindowEnabled(one) && !IsWindowEnabled(other);
    return confirm(dialog) && (allWait || fail("a window takes input"));
  };
  bool isRight = ask(helpers, {nullptr, work}, answer);
  if (!IsWindowEnabled(one) || !IsWindowEnabled(other)) isRight = fail("a window stays disabled");
  return isRight;
}

bool makesAllWindowsWait(_clsLibTarvoRdp* helpers) {
  const HWND one = makeOwner(100, 150);
  const HWND other = makeOwner(300, 250);
  const bool withOneActive = makesTheseWait(helpers, one, one, other);
  const bool withNoneActive = makesTheseWait(helpers, nullptr, one, other);
  DestroyWindow(one);
  DestroyWindow(other);
  return withOneActive && withNoneActive;
}

// Nothing was handed over: neither the service of the keys nor that of the errors.
bool anErrorClosesIt(_clsLibTarvoRdp* helpers) {
  const HWND owner = makeOwner(100, 150);
  Answer answer;
  const auto work = [](HWND) {
    screen::press(VK_F6);
    return true;
  };
  bool isRight = ask(helpers, {owner, work}, answer);
  if (answer.status != static_cast<HRESULT>(0x800A005B)) isRight = fail("another error than 91");
  if (takeErrorText() != "LibTarvoRdpCI|Object variable not set") isRight = fail("its text");
  if (answer.mode != ePM_Graphic || answer.accepted != VARIANT_FALSE) isRight = fail("its answer");
  DestroyWindow(owner);
  return isRight;
}

bool theProgramsEndClosesIt(_clsLibTarvoRdp* helpers) {
  Answer answer;
  const DWORD thread = GetCurrentThreadId();
  const auto work = [thread](HWND) { return PostThreadMessageW(thread, WM_QUIT, 42, 0) != 0; };
  bool isRight = ask(helpers, {nullptr, work}, answer);
  if (answer.status != S_OK || answer.accepted != VARIANT_FALSE) isRight = fail("the end's answer");
  MSG message{};
  const bool isPassedOn = PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != 0;
  if (!isPassedOn || message.wParam != 42) isRight = fail("the end is not passed on");
  return isRight;
}

int run() {
  const auto helpers = create<_clsLibTarvoRdp>(library(), CLSID_clsLibTarvoRdp);
  if (!helpers) return fail("no helpers") ? 0 : 1;
  int failures = 0;
  for (const auto look :
       {&needsNoOwner, &isModalInTheMiddle, &staysOnTheScreen, &leavesADisabledOwnerAlone,
        &makesAllWindowsWait, &anErrorClosesIt, &theProgramsEndClosesIt}) {
    if (!look(helpers.get())) ++failures;
  }
  std::printf("%d of 7 failed\n", failures);
  std::fflush(stdout);
  return failures == 0 ? 42 : 1;
}

}  // namespace
}  // namespace tarvo::client

int main() {
  CoInitialize(nullptr);
  return tarvo::client::run();
}
