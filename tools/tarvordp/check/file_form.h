// What is wrong with a template as a file, before it is taken for lines.
#pragma once

#include <cstdint>
#include <string_view>

#include "tarvordp/check/findings.h"

namespace tarvordp {

enum class FileForm : std::uint8_t {
  usual,          // one byte a letter, as far as can be seen
  otherEncoding,  // its lines can be read, but letters beyond ASCII are others than were written
  noText,         // it holds bytes that no text has; what is written in it may be none
  unreadable,     // nothing in it is what was written
};

// Tells each thing once, at its first place.
FileForm checkedFileForm(std::string_view bytes, Findings& findings);

}  // namespace tarvordp
