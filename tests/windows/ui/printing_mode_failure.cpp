// The printing mode's dialog when the system fails it in the middle.
#include <gmock/gmock.h>
#include <windows.h>

#include "equipment/errors.h"
#include "ui/printing_mode_window.h"

// The system's function as this program calls it: the entry of its import table.
#ifdef _WIN64
#define TARVO_IMPORTED_GET_MESSAGE "__imp_GetMessageW"
#else
#define TARVO_IMPORTED_GET_MESSAGE "__imp__GetMessageW@16"
#endif
extern "C" decltype(&GetMessageW) importedGetMessage __asm__(TARVO_IMPORTED_GET_MESSAGE);

namespace tarvo::test {
namespace {

BOOL WINAPI fail(MSG*, HWND, UINT, UINT) {
  SetLastError(ERROR_INVALID_WINDOW_HANDLE);
  return -1;
}

// While it lives, no message can be had.
class FailingMessages {
 public:
  FailingMessages() { put(&fail); }
  FailingMessages(const FailingMessages&) = delete;
  FailingMessages& operator=(const FailingMessages&) = delete;
  ~FailingMessages() { put(old_); }

 private:
  static void put(decltype(&GetMessageW) function) {
    DWORD protection = 0;
    VirtualProtect(&importedGetMessage, sizeof function, PAGE_READWRITE, &protection);
    importedGetMessage = function;
    VirtualProtect(&importedGetMessage, sizeof function, protection, &protection);
  }

  decltype(&GetMessageW) old_ = importedGetMessage;
};

class NoEvents final : public PrintingModeEvents {
 public:
  void clicked(PrintingModeControl) noexcept override {}
  void keyPressed(PrintingModeControl, std::int16_t, std::int16_t) noexcept override {}
};

HWND shownDialog() {
  return FindWindowW(nullptr, reinterpret_cast<const wchar_t*>(kPrintingModeCaption.data()));
}

// Its tooltip is a window of a library that is freed as soon as showModal() ends.
TEST(PrintingModeDialog, IsGoneWithTheErrorThatEndsIt) {
  const auto dialog = platform::makePrintingModeWindow();
  NoEvents events;
  const HWND other =
      CreateWindowExW(0, L"#32770", L"La ventana del cliente", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                      0, 300, 200, nullptr, nullptr, nullptr, nullptr);
  {
    const FailingMessages failing;
    const auto error = errorOf([&] { dialog->showModal(events); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->lastDllError(), ERROR_INVALID_WINDOW_HANDLE);
  }
  EXPECT_EQ(shownDialog(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(other));
  DestroyWindow(other);
}

}  // namespace
}  // namespace tarvo::test
