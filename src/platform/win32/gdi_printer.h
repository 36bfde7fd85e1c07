// Pages on a printer, by the system's drawing calls.
//
// The printer is asked for the pages' paper: its size, and upright or lying.  What it then has room
// for decides: pages are printed in their own size when all between their margins can be printed,
// else smaller, so that nothing is cut.
//
// Raises: 482 with the printer's name when anything fails; no part of the job is printed then, as
// far as the system can still take it back.
#pragma once

#include <windows.h>

#include <vector>

#include "graphic/paged_text.h"

namespace tarvo::platform {

// A printer driver's settings, of whatever length they are; empty: the printer's own.
using PrinterSettings = std::vector<BYTE>;

// The printer's settings with the pages' paper in them; empty when the printer has none.
PrinterSettings settingsFor(const PageFormat& format, TextView printerName);

// Prints all pages as one job.
void printPages(const PagedText& pages, TextView title, TextView printerName);

// Pages from `first` to the one before `end`.  REQUIRES: first < end <= pageCount().
struct PageRange {
  std::size_t first;
  std::size_t end;
};

// Prints pages on a printer that is open already.  The name is for the error's description.
void printPages(HDC printer, const PagedText& pages, PageRange range, TextView title,
                TextView printerName);

}  // namespace tarvo::platform
