// The page output port: where the pages of a report go.
//
// One back-end per platform.  Windows: a preview window, the printer's own drawing, a file.
// Elsewhere: the user's viewer, CUPS, a file (platform/posix/page_output.cpp).  Files are PDF
// everywhere, see saved_pages.h.
//
// The pages may be kept after a call, by a window that stays open for instance.
//
// Threads: the client's.  Raises: a run-time error that names the file or the printer whenever the
// pages did not get where they should; nothing fails in silence.
#pragma once

#include "frame/object.h"
#include "frame/text.h"
#include "graphic/paged_text.h"

namespace tarvo {

// "Printer error": there is no such printer, or it took no job.
inline constexpr std::int32_t kPrinterError = 482;

class PageOutput : public Object {
 public:
  // Shows the pages to the operator, under the title.  `modal`: the call ends when the operator has
  // closed them.  Where nothing can be shown they are saved in the current folder, under a name
  // that no other file has: saveUnshownPages() of saved_pages.h.
  virtual void show(const Ref<const PagedText>& pages, TextView title, bool modal) = 0;

  // Prints the pages as one job of that title.  A printer named "file:PATH" is that file: the pages
  // are saved.  Raises: 482 for an unknown printer and for one that took no job.
  virtual void print(const Ref<const PagedText>& pages, TextView title, TextView printerName) = 0;

  // Writes the pages into a file: savePages() of saved_pages.h.
  virtual void save(const Ref<const PagedText>& pages, TextView title, TextView printerName) = 0;
};

// Raises: always 482, "Printer error: NAME", with the reason in parentheses when there is one.
[[noreturn]] void failToPrint(TextView printerName, TextView reason);

namespace platform {
Ref<PageOutput> makePageOutput();
}  // namespace platform

}  // namespace tarvo
