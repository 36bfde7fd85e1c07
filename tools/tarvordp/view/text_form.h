// Printed pages as plain text: the lines that were printed.
#pragma once

#include <iosfwd>

#include "tarvordp/view/page_model.h"

namespace tarvordp {

// Writes a page in UTF-8: each line with a line feed, a form feed where the page was ejected.
//
// Looks are left out; codes that the profile does not know stand where they were, as <1B 43 21>.
// Left out too are empty lines of less than a line's height: they moved the paper, and are no lines
// of the report.  What was printed over a line stands below it, unless it only underlined it or
// made it bold.
void writeText(std::ostream& out, const Page& page);

// Whether only the paper moved, by less than a line.
bool isSmallSkip(const Line& line) noexcept;

}  // namespace tarvordp
