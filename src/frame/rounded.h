// Whole numbers from binary ones, as automation's own conversions make them.
#pragma once

#include <cmath>
#include <concepts>
#include <limits>

#include "frame/run_time_error.h"

namespace tarvo {

// Rounded half to even.  Raises: 6 when the result does not fit, and for what is no number.
template <std::integral To>
To roundHalfToEven(double value) {
  using Limits = std::numeric_limits<To>;
  static_assert(sizeof(To) <= sizeof(std::int32_t), "a double holds every value of the type");
  const double whole = std::nearbyint(value);
  if (!(whole >= Limits::min() && whole <= Limits::max())) throw RunTimeError(kOverflow);
  return static_cast<To>(whole);
}

}  // namespace tarvo
