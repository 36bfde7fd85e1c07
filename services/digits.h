// Whole numbers as digits at the end of a text.
#pragma once

#include <cstdint>

#include "services/fail.h"

namespace LibTarvoCI {

// Appends the number, with zeros before it when it has fewer than `atLeast` digits.
// REQUIRES: 0 <= atLeast <= 20.
void appendDigits(Text& text, std::uint64_t number, int atLeast = 1);

// The digits of an amount without its sign.  Unsigned, because the most negative amount has no
// positive twin in 64 bits with a sign.
std::uint64_t magnitudeOf(Currency value) noexcept;

// An amount's magnitude rounded half away from zero to that many decimals; 4 and more leave it as
// it is.  Never leaves the type, though the result may be too great for an amount.
// REQUIRES: decimals >= 0, and a magnitude that magnitudeOf() gave.
std::uint64_t roundedMagnitude(std::uint64_t magnitude, int decimals) noexcept;

}  // namespace LibTarvoCI
