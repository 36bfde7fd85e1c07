// Printed bytes and texts in a form that a person can read and review.
#pragma once

#include <string>
#include <string_view>

#include "frame/text.h"

namespace tarvo::test {

// Printer bytes.  Plain ASCII stands for itself; every other byte, and "<" itself, is its number in
// angle brackets: <1B>E Total <0D><0A>.  A new line starts after each byte 0A, so a dump has one
// line for each printed one.  A blank at the very end is <20>, so that no editor loses it.
std::string bytesDump(std::string_view bytes);

// A text between quotation marks, in UTF-8.  Characters that nobody can see (controls, the
// no-break blank, the soft hyphen, half a surrogate pair) are numbers in angle brackets, and so are
// "<" and the quotation mark.
std::string inQuotes(TextView text);

}  // namespace tarvo::test
