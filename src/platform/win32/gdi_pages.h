// Pages of text drawn by the system's drawing calls: the same drawing for a window and a printer.
#pragma once

#include <windows.h>

#include <cstddef>

#include "graphic/paged_text.h"

namespace tarvo::platform {

// Where a page comes on a device, in the device's units.
struct PagePlacement {
  double left = 0;  // of the page's upper left corner; may lie outside the device
  double top = 0;
  double unitsPerTwipX = 1;
  double unitsPerTwipY = 1;
};

// Draws a page's text, in black; the paper is not touched.  Every character begins in its column,
// whatever the widths of the font that the system has for the page's.  False when a call of the
// system failed.  REQUIRES: page < pages.pageCount().
bool drawPage(HDC device, const PagedText& pages, std::size_t page, const PagePlacement& placement);

}  // namespace tarvo::platform
