// What the operator can ask the preview window for, and how: by its menu, and by keys.
#pragma once

#include <windows.h>

namespace tarvo::platform {

// The numbers of the menu's entries.
enum class PreviewCommand : WORD {
  kNone,
  kPrint,
  kSave,
  kClose,
  kFirstPage,
  kPreviousPage,
  kNextPage,
  kLastPage,
  kGoToPage,
  kZoomIn,
  kZoomOut,
  kPageWidth,
  kWholePage,
  kActualSize,
};

// The window's menu; the window's from then on.
HMENU makePreviewMenu();

// kNone for a key that is no command.
PreviewCommand commandOfKey(WPARAM key, bool withControl) noexcept;

// The digit on a key; character 0 when it has none.
wchar_t digitOfKey(WPARAM key) noexcept;

}  // namespace tarvo::platform
