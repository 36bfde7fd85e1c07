// Arithmetic that cannot leave its type unnoticed.
//
// The library counts lines, points and places in bytes and 16-bit integers, and a result that does
// not fit is run-time error 6.  These helpers are where that happens; no code casts a result down.
#pragma once

#include <concepts>
#include <utility>

#include "frame/run_time_error.h"

namespace tarvo {

// `value` as the type To.  Raises: 6 when it does not fit.
template <std::integral To, std::integral From>
constexpr To narrow(From value) {
  if (!std::in_range<To>(value)) throw RunTimeError(kOverflow);
  return static_cast<To>(value);
}

// The sum, difference and product of two values of one type, in that type.
// Raises: 6 when the result does not fit.
template <std::integral T>
constexpr T checkedAdd(T a, T b) {
  T result{};
  if (__builtin_add_overflow(a, b, &result)) throw RunTimeError(kOverflow);
  return result;
}

template <std::integral T>
constexpr T checkedSubtract(T a, T b) {
  T result{};
  if (__builtin_sub_overflow(a, b, &result)) throw RunTimeError(kOverflow);
  return result;
}

template <std::integral T>
constexpr T checkedMultiply(T a, T b) {
  T result{};
  if (__builtin_mul_overflow(a, b, &result)) throw RunTimeError(kOverflow);
  return result;
}

// Runs body(counter) for counter = first, first + 1, ... last, with a counter of the type T.
// The counter steps once past the last value before the loop ends, so a last value that is the
// type's greatest is error 6 after the body has run for it.
template <std::integral T, class Body>
constexpr void countedLoop(T first, T last, Body&& body) {
  for (T counter = first; counter <= last; counter = checkedAdd(counter, T{1})) body(counter);
}

}  // namespace tarvo
