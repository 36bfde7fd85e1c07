// The window in which an operator looks at a report before it is printed or saved.
//
// It shows one page at a time.  Everything works with the keyboard alone:
//   Page Up, Page Down     the page before, the next one; Home, End: the first, the last
//   digits and Enter       that page (Ctrl+G begins too); Esc takes the number back
//   arrows, Space          move the paper; Space goes on to the next page at its end
//   +, -, Ctrl+wheel       larger, smaller
//   Ctrl+0, Ctrl+1, Ctrl+2 the whole page, its own size, the width of the page
//   Ctrl+P, Ctrl+S         print, save as PDF
//   Esc                    close
//
// What goes wrong while a window prints or saves is told to the operator in a message box.
#pragma once

#include "graphic/paged_text.h"

namespace tarvo::platform {

// Shows the pages under the title.
//   modal      the thread's other windows wait, and the call ends when the operator has closed the
//              window.  A request to end the thread's message loop closes it too, and goes on to
//              the next loop.
//   otherwise  the window lives by the thread's message loop, and ends with the thread.
// False when the session has no screen to show it on, or the system makes no window.
bool showPreview(const Ref<const PagedText>& pages, TextView title, bool modal);

// Whether any thread shows a window.  A host must not unload the library then.
bool anyPreviewIsOpen() noexcept;

}  // namespace tarvo::platform
