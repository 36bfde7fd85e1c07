// Printed pages for a person at a terminal.
#pragma once

#include <cstddef>
#include <iosfwd>

#include "tarvordp/view/page_model.h"

namespace tarvordp {

// Writes a page under a ruler that names it ("──── page 2 of 3 ────").
//
// Expanded letters take two columns; pitches are not told apart otherwise.  With `ansi` bold,
// underlined and italic print is shown as such, and codes that the profile does not know (<1B 43
// 21>) are dim. Empty lines of less than a line's height are left out.
void writeForTerminal(std::ostream& out, const Page& page, std::size_t number, std::size_t pages,
                      bool ansi);

}  // namespace tarvordp
