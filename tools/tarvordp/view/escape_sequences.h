// How long the control codes of the printer languages are, those that no profile has included.
//
// It knows where a code ends, and how wide the graphics are that it prints; what a code does is no
// matter of it.
#pragma once

#include <cstddef>
#include <string_view>

#include "tarvordp/profile/printer_language.h"

namespace tarvordp {

struct CodeExtent {
  std::size_t size = 1;       // bytes of the code and its arguments, as far as they are there
  std::size_t data = 0;       // bytes of data behind them, which are there
  std::size_t announced = 0;  // as many as there ought to be
  bool endIsKnown = true;     // false: what follows `size` may belong to the code
  bool isGraphics = false;    // the data are columns of dots
  int width = 0;              // of the graphics, 1/720 inch
};

// The code at the front.  Without a language only that is known which needs none: a code that
// begins by ESC, FS or GS has another byte at least, and nobody knows how many.
// REQUIRES: the first byte is a control byte.
CodeExtent extentOf(PrinterLanguage language, std::string_view bytes) noexcept;

}  // namespace tarvordp
