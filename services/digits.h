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

// What one unit of the last decimal is worth, by the number of decimals.
inline constexpr std::array<std::uint64_t, Currency::kDecimals + 1> kSteps{10'000, 1'000, 100, 10,
                                                                           1};

// An amount's magnitude rounded half away from zero to that many decimals; 4 and more leave it as
// it is.  Never leaves the type, though the result may be too great for an amount.
// REQUIRES: decimals >= 0, and a magnitude that magnitudeOf() gave.
inline std::uint64_t roundedMagnitude(std::uint64_t magnitude, int decimals) noexcept {
  const std::uint64_t step =
      kSteps[static_cast<std::size_t>(std::min(decimals, Currency::kDecimals))];
  const std::uint64_t rest = magnitude % step;
  const std::uint64_t whole = magnitude - rest;
  return rest * 2 < step ? whole : whole + step;
}

}  // namespace LibTarvoCI
