// What an operator does with a report in the preview window: prints it, saves it.  Both ask first,
// by the system's own dialogs, and tell what went wrong in a message box; neither raises.
//
// The system's dialogs are loaded when they are used for the first time: a client that only prints
// should not wait for them.
#pragma once

#include <windows.h>

#include "graphic/paged_text.h"

namespace tarvo::platform {

// The dialog has the pages' paper as its first setting; `page` is the one offered when only some
// are to be printed.
void printFromDialog(HWND owner, const PagedText& pages, std::size_t page, TextView title) noexcept;

void saveFromDialog(HWND owner, const PagedText& pages, TextView title) noexcept;

// Shows the exception that is being handled, below the sentence.
void showCurrentError(HWND owner, const wchar_t* sentence, TextView title) noexcept;

}  // namespace tarvo::platform
