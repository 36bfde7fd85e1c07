#include "services/number_field.h"

#include <algorithm>
#include <array>

#include "services/digits.h"

namespace LibTarvoCI {
namespace {

constexpr int kGroup = 3;  // digits between two marks

// A number written from its last character to its first.
class Written {
 public:
  // For a sign, 15 digits, 4 marks, a mark and 4 digits, and for blanks in most fields.
  static constexpr std::size_t kRoom = 40;

  void put(char16_t character) noexcept { characters_[--first_] = character; }

  // The digits of a whole number, at least one, with a mark before each third one but the first.
  void putUnits(std::uint64_t number, char16_t mark) noexcept {
    int untilMark = mark != 0 ? kGroup : -1;  // never
    do {
      if (untilMark == 0) {
        put(mark);
        untilMark = kGroup;
      }
      put(static_cast<char16_t>(u'0' + number % 10));
      number /= 10;
      --untilMark;
    } while (number != 0);
  }

  // That many digits of a fraction, which is in ten-thousandths.
  void putDecimals(std::uint64_t fraction, int count) noexcept {
    for (int i = Currency::kDecimals; i > count; --i) fraction /= 10;
    for (int i = 0; i < count; ++i, fraction /= 10) {
      put(static_cast<char16_t>(u'0' + fraction % 10));
    }
  }

  // Blanks before it, up to the width.  REQUIRES: width <= kRoom.
  void fillUpTo(std::size_t width) noexcept {
    while (first_ > kRoom - width) put(u' ');
  }

  TextView text() const noexcept { return {characters_.data() + first_, kRoom - first_}; }

 private:
  std::array<char16_t, kRoom> characters_;
  std::size_t first_ = kRoom;  // an index: it is copied with the characters
};

struct Amount {
  std::uint64_t rounded;
  char16_t sign;  // 0: none
};

Written write(const Amount& amount, const NumberField& field, char16_t thousandsMark) {
  Written written;
  if (field.decimals > 0) {
    written.putDecimals(amount.rounded % Currency::kUnit,
                        std::min(field.decimals, Currency::kDecimals));
    written.put(field.decimalMark);
  }
  written.putUnits(amount.rounded / Currency::kUnit, thousandsMark);
  if (amount.sign != 0) written.put(amount.sign);
  return written;
}

}  // namespace

void formatField(Currency value, const NumberField& field, Text& result) {
  const std::uint64_t rounded = roundedMagnitude(magnitudeOf(value), field.decimals);
  const bool isNegative = value.tenThousandths < 0 && rounded != 0;
  const bool isEnclosed = isNegative && field.parenthesis;
  const Amount amount{rounded, isEnclosed ? u'(' : isNegative ? u'-' : char16_t{0}};
  const auto zeros = static_cast<std::size_t>(std::max(field.decimals - Currency::kDecimals, 0));
  const std::size_t behind = zeros + (isEnclosed ? 1 : 0);

  Written number = write(amount, field, field.thousandsMark);
  const auto fits = [&] {
    return field.width == 0 || number.text().size() + behind <= field.width;
  };
  if (!fits()) number = write(amount, field, 0);
  if (!fits()) {
    result.assign(field.width, u'*');
    return;
  }
  if (behind == 0 && field.width <= Written::kRoom) {
    number.fillUpTo(field.width);
    result.assign(number.text());
    return;
  }
  const std::size_t used = number.text().size() + behind;
  result.assign(used < field.width ? field.width - used : 0, u' ').append(number.text());
  result.append(zeros, u'0');
  if (isEnclosed) result.push_back(u')');
}

}  // namespace LibTarvoCI
