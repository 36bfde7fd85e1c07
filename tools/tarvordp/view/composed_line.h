// A printed line as characters in a row, for showing it where nothing can stand on anything else.
//
// What was printed over a line (a carriage return without a line feed) joins it where the two make
// one character: a letter and an underscore are an underlined letter, the same letter twice is a
// bold one, anything stands on a blank.  What covers other characters becomes a row of its own
// below, so that nothing is lost.
#pragma once

#include <string>
#include <vector>

#include "tarvordp/view/page_model.h"

namespace tarvordp {

struct Cell {
  int x = 0;
  Look look;
  char16_t character = u' ';
  char16_t printed = u' ';  // as it was sent: the first blank of a tab is one, the others are 0
  std::string unknown;      // not empty: the cell is no character, but an unknown code, as shown
};

using CellRow = std::vector<Cell>;

// At least one row, which may be empty.
std::vector<CellRow> composed(const Line& line);

}  // namespace tarvordp
