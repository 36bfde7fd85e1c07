// Pages as a PDF file: small, searchable, the same bytes for the same pages.
//
// PDF 1.4, which every viewer and printer understands.  The font is Courier in one of its four
// styles, whatever name the pages give; it is one of those that every viewer has, so no font is in
// the file.  Text is in the encoding of Western Europe (code page 1252): what that lacks is "?",
// one for each character of 16 bits, and controls are as visibleCharacter() says.
#pragma once

#include <string>

#include "frame/text.h"
#include "graphic/paged_text.h"

namespace tarvo {

// The whole file; the title is what a viewer shows for it.
std::string pdfOf(const PagedText& pages, TextView title);

}  // namespace tarvo
