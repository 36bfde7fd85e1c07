// Amounts: a 64-bit count of ten-thousandths.
//
// The range is ±922,337,203,685,477.5807.  No binary floating point touches an amount on its way
// from the client to the paper; a result outside the range is run-time error 6.
#pragma once

#include <compare>
#include <cstdint>

#include "frame/checked.h"
#include "frame/text.h"

namespace tarvo {

struct Currency {
  static constexpr std::int64_t kUnit = 10'000;
  static constexpr int kDecimals = 4;

  std::int64_t tenThousandths = 0;

  // A whole amount.  Raises: 6.
  static constexpr Currency ofUnits(std::int64_t units) { return {checkedMultiply(units, kUnit)}; }

  friend constexpr auto operator<=>(Currency, Currency) = default;

  // Raises: 6.
  friend constexpr Currency operator+(Currency a, Currency b) {
    return {checkedAdd(a.tenThousandths, b.tenThousandths)};
  }
  friend constexpr Currency operator-(Currency a, Currency b) {
    return {checkedSubtract(a.tenThousandths, b.tenThousandths)};
  }
  constexpr Currency& operator+=(Currency other) { return *this = *this + other; }
};

// Rounded half away from zero to that many decimals; 4 and more leave the value as it is.
// REQUIRES: decimals >= 0.  Raises: 6 when rounding leaves the range.
Currency roundHalfAwayFromZero(Currency value, int decimals);

// The value's digits without its sign, in the two parts of a decimal number: "1250" and "5000".
// The second part always has four digits.
struct CurrencyDigits {
  Text units;
  Text decimals;
};
CurrencyDigits digitsOf(Currency value);

// The nearest amount, halves to the even ten-thousandth (the rule of automation's own conversion).
// Raises: 6 for a number outside the range, or none at all.
Currency currencyFromDouble(double value);

// The nearest binary number.  For clients' conversions only.
double toDouble(Currency value) noexcept;

// The amount that a plain decimal number says: an optional sign, digits, optionally "." or "," and
// digits; more than four decimals round half to even.  Raises: 13 for any other text; 6.
Currency currencyFromText(TextView text);

}  // namespace tarvo
