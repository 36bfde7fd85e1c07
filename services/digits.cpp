#include "services/digits.h"

#include <algorithm>
#include <array>

namespace LibTarvoCI {

void appendDigits(Text& text, std::uint64_t number, int atLeast) {
  std::array<char16_t, 20> digits;  // the greatest number has 20
  std::size_t first = digits.size();
  const std::size_t mustStart = digits.size() - static_cast<std::size_t>(atLeast);
  while (number != 0 || first > mustStart) {
    digits[--first] = static_cast<char16_t>(u'0' + number % 10);
    number /= 10;
  }
  text.append(digits.data() + first, digits.size() - first);
}

std::uint64_t magnitudeOf(Currency value) noexcept {
  const auto bits = static_cast<std::uint64_t>(value.tenThousandths);
  return value.tenThousandths < 0 ? 0 - bits : bits;
}

std::uint64_t roundedMagnitude(std::uint64_t magnitude, int decimals) noexcept {
  constexpr std::array<std::uint64_t, Currency::kDecimals + 1> kSteps{10'000, 1'000, 100, 10, 1};
  const std::uint64_t step =
      kSteps[static_cast<std::size_t>(std::min(decimals, Currency::kDecimals))];
  const std::uint64_t rest = magnitude % step;
  const std::uint64_t whole = magnitude - rest;
  return rest * 2 < step ? whole : whole + step;
}

}  // namespace LibTarvoCI
