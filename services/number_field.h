// Amounts as people read them: with marks between thousands, in a field of fixed width.
#pragma once

#include "services/fail.h"

namespace LibTarvoCI {

struct NumberField {
  char16_t thousandsMark = u'.';
  char16_t decimalMark = u',';
  std::size_t width = 0;     // 0: as wide as the number
  int decimals = 0;          // past the fourth, zeros
  bool parenthesis = false;  // around a negative number, in place of "-" before it
};

// The amount, rounded half away from zero, right-aligned in its field.  An amount that rounds to
// zero has no sign.  A number that does not fit loses its thousands marks; if it still does not
// fit, the field is filled with "*": a number is never shown with digits missing.
// Takes every amount there is.  REQUIRES: decimals >= 0.
void formatField(Currency value, const NumberField& field, Text& result);

// The same, put where there is room for just the width.  REQUIRES: a width; 0 <= decimals <= 255.
void putField(Currency value, const NumberField& field, char16_t* place) noexcept;

}  // namespace LibTarvoCI
