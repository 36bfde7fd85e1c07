// Between decimal digits and binary numbers, exactly: the nearest double to a decimal number, and
// the shortest decimal number that is nearest to a double.
//
// Built on the C library's own conversions, which every program carries anyway; they round
// correctly, and no digit passes through them with a decimal mark, which is the locale's.
#pragma once

#include <string>
#include <string_view>

namespace LibTarvoCI {

// The double nearest to `digits` times ten to the power of `exponent`; infinite when that is beyond
// the greatest.  REQUIRES: plain digits, at least one.
double nearestDouble(std::string_view digits, int exponent);

// The number is `digits` times ten to the power of `exponent`.
struct DecimalDigits {
  std::string digits;
  int exponent = 0;
};

// No zero stands at either end of the digits, but for zero itself, which is "0".
// REQUIRES: finite and not negative.
DecimalDigits fewestDigits(double number);

}  // namespace LibTarvoCI
