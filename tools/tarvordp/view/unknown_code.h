// A control code that the profile does not know, as it is shown.
#pragma once

#include <cstddef>
#include <string>

namespace tarvordp {

struct UnknownCode {
  std::string bytes;          // all of it, data included
  std::size_t data = 0;       // bytes of data at its end
  std::size_t announced = 0;  // as many as there ought to be
  bool endIsKnown = true;     // false: what follows may belong to it
  bool isGraphics = false;    // the data are columns of dots
  int width = 0;              // of the graphics, 1/720 inch: the room that they take on the line

  bool empty() const noexcept { return bytes.empty(); }
};

// "1B 43 21", "1B 4B 08 00: 8 bytes of graphics", and "1B 6B ?" for one whose end nobody knows.
std::string shown(const UnknownCode& code);

// "<1B 43 21>"
std::string shownBetweenBrackets(const UnknownCode& code);

}  // namespace tarvordp
