// Whole numbers as digits at the end of a text.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "services/fail.h"

namespace LibTarvoCI {

// Appends the number, with zeros before it when it has fewer than `atLeast` digits.
// REQUIRES: 0 <= atLeast <= 20.
void appendDigits(Text& text, std::uint64_t number, int atLeast = 1);

// The digits of an amount without its sign.  Unsigned, because the most negative amount has no
// positive twin in 64 bits with a sign.
inline std::uint64_t magnitudeOf(Currency value) noexcept {
  const auto bits = static_cast<std::uint64_t>(value.tenThousandths);
  return value.tenThousandths < 0 ? 0 - bits : bits;
}

// An amount's magnitude rounded half away from zero to that many decimals; 4 and more leave it as
// it is.  Never leaves the type, though the result may be too great for an amount.
// REQUIRES: decimals >= 0, and a magnitude that magnitudeOf() gave.
inline std::uint64_t roundedMagnitude(std::uint64_t magnitude, int decimals) noexcept {
  // Division by a number that is known beforehand is no division.
  const auto roundedTo = [magnitude](std::uint64_t step) {
    const std::uint64_t rest = magnitude % step;
    const std::uint64_t whole = magnitude - rest;
    return rest * 2 < step ? whole : whole + step;
  };
  switch (decimals) {
    case 0:
      return roundedTo(10'000);
    case 1:
      return roundedTo(1'000);
    case 2:
      return roundedTo(100);
    case 3:
      return roundedTo(10);
    default:
      return magnitude;
  }
}

}  // namespace LibTarvoCI
