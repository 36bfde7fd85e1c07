// Decimal numbers as people write them, read without binary floating point.
#pragma once

#include <cstdint>

#include "frame/text.h"

namespace tarvo {

// A written number in its parts.  The views look into the text that was read.
struct Decimal {
  bool negative = false;
  TextView units;     // digits before the mark, at least one
  TextView decimals;  // digits after it, none when it has no mark
};

// Whether the text is a number: an optional "+" or "-", digits, and optionally one "," or "." with
// digits after it.  Blanks (character 32) at its ends do not matter.
bool isDecimal(TextView text) noexcept;

// The number that the whole text is, by the same rule.  Raises: 13 when it is none.
Decimal parseDecimal(TextView text);

// The longest number at the front of the text, by the same rule; "" as its units when there is
// none.
Decimal leadingDecimal(TextView text) noexcept;

// The number times ten to the power of `decimals`, rounded half to even.
// REQUIRES: 0 <= decimals <= 18.  Raises: 6 when it does not fit 64 bits with a sign.
std::int64_t roundedHalfToEven(const Decimal& number, int decimals);

// Without the blanks (character 32) at its ends.
TextView trimBlanks(TextView text) noexcept;

}  // namespace tarvo
