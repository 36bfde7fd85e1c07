#include "frame/currency.h"

#include <cmath>
#include <string>

#include "frame/decimal.h"

namespace tarvo {

Currency roundHalfAwayFromZero(Currency value, int decimals) {
  if (decimals >= Currency::kDecimals) return value;
  std::int64_t step = 1;
  for (int i = decimals; i < Currency::kDecimals; ++i) step *= 10;
  const std::int64_t rest = value.tenThousandths % step;
  const std::int64_t whole = value.tenThousandths - rest;
  const std::int64_t magnitude = rest < 0 ? -rest : rest;
  if (magnitude * 2 < step) return {whole};
  return {rest < 0 ? checkedSubtract(whole, step) : checkedAdd(whole, step)};
}

CurrencyDigits digitsOf(Currency value) {
  // The most negative amount has no positive twin in 64 bits with a sign.
  const std::uint64_t magnitude = value.tenThousandths < 0
                                      ? 0 - static_cast<std::uint64_t>(value.tenThousandths)
                                      : static_cast<std::uint64_t>(value.tenThousandths);
  CurrencyDigits digits;
  digits.units = fromAscii(std::to_string(magnitude / Currency::kUnit));
  std::uint64_t fraction = magnitude % Currency::kUnit;
  digits.decimals.assign(Currency::kDecimals, u'0');
  for (auto digit = digits.decimals.rbegin(); digit != digits.decimals.rend(); ++digit) {
    *digit = static_cast<char16_t>(u'0' + fraction % 10);
    fraction /= 10;
  }
  return digits;
}

Currency currencyFromDouble(double value) {
  const double scaled = std::nearbyint(value * static_cast<double>(Currency::kUnit));
  // 2^63 is the first double past the range; the comparison is false for "not a number" too.
  constexpr double kLimit = 9223372036854775808.0;
  if (!(scaled >= -kLimit && scaled < kLimit)) throw RunTimeError(kOverflow);
  return {static_cast<std::int64_t>(scaled)};
}

double toDouble(Currency value) noexcept {
  return static_cast<double>(value.tenThousandths) / static_cast<double>(Currency::kUnit);
}

Currency currencyFromText(TextView text) {
  return {roundedHalfToEven(parseDecimal(text), Currency::kDecimals)};
}

}  // namespace tarvo
