#include "services/digits.h"

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

}  // namespace LibTarvoCI
