#include "services/number_field.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "services/digits.h"

namespace LibTarvoCI {
namespace {

// For a sign, 15 digits, 4 marks, a mark and 4 digits, and for blanks in most fields.
constexpr std::size_t kRoom = 40;
using Room = std::array<char16_t, kRoom>;

// What stands before a number is there already.
constexpr Room kBlanks = [] {
  Room blanks{};
  blanks.fill(u' ');
  return blanks;
}();

// The digits of every group between two marks.
constexpr auto kGroups = [] {
  std::array<std::array<char16_t, 3>, 1000> groups{};
  for (std::size_t i = 0; i < groups.size(); ++i) {
    groups[i] = {static_cast<char16_t>(u'0' + i / 100), static_cast<char16_t>(u'0' + i / 10 % 10),
                 static_cast<char16_t>(u'0' + i % 10)};
  }
  return groups;
}();

// Writes from the last character to the first.
class Backwards {
 public:
  explicit Backwards(char16_t* end) noexcept : first_(end) {}

  const char16_t* first() const noexcept { return first_; }

  void put(char16_t character) noexcept { *--first_ = character; }

  // The last digits, `count` of them.
  void putDigits(std::uint64_t number, int count) noexcept {
    for (; count > 0; --count, number /= 10) put(static_cast<char16_t>(u'0' + number % 10));
  }

  // The digits of a whole number, at least one, with a mark (unless it is 0) between each three.
  void putUnits(std::uint64_t number, char16_t mark) noexcept {
    for (; number >= kGroups.size(); number /= kGroups.size()) {
      const auto& group = kGroups[static_cast<std::size_t>(number % kGroups.size())];
      first_ -= group.size();
      std::memcpy(first_, group.data(), sizeof group);
      if (mark != 0) put(mark);
    }
    // The first group has no zeros before its digits.
    const auto& group = kGroups[static_cast<std::size_t>(number)];
    const std::size_t digits = number >= 100 ? 3 : number >= 10 ? 2 : 1;
    first_ -= digits;
    std::copy_n(group.end() - digits, digits, first_);
  }

 private:
  char16_t* first_;
};

// An amount to be written: its digits, rounded, and its sign; 0: none.
struct Amount {
  std::uint64_t rounded;
  char16_t sign;
};

void write(const Amount& amount, const NumberField& field, Backwards& number) noexcept {
  if (field.decimals > 0) {
    const int count = std::min(field.decimals, Currency::kDecimals);
    const std::uint64_t step = kSteps[static_cast<std::size_t>(count)];
    number.putDigits(amount.rounded % Currency::kUnit / step, count);
    number.put(field.decimalMark);
  }
  number.putUnits(amount.rounded / Currency::kUnit, field.thousandsMark);
  if (amount.sign != 0) number.put(amount.sign);
}

// For a number that does not fit.
void formatWithoutMarks(Currency value, NumberField field, Text& result) {
  if (field.thousandsMark == 0) {
    result.assign(field.width, u'*');
  } else {
    field.thousandsMark = 0;
    formatField(value, field, result);
  }
}

}  // namespace

void formatField(Currency value, const NumberField& field, Text& result) {
  const std::uint64_t rounded = roundedMagnitude(magnitudeOf(value), field.decimals);
  const bool isNegative = value.tenThousandths < 0 && rounded != 0;
  const bool isEnclosed = isNegative && field.parenthesis;
  const Amount amount{rounded, isEnclosed ? u'(' : isNegative ? u'-' : char16_t{0}};

  Room room = kBlanks;
  char16_t* const end = room.data() + room.size();
  Backwards number(end);
  write(amount, field, number);

  // What stands behind the decimals that an amount has.
  const auto zeros = static_cast<std::size_t>(std::max(field.decimals - Currency::kDecimals, 0));
  const std::size_t written = static_cast<std::size_t>(end - number.first());
  const std::size_t size = written + zeros + (isEnclosed ? 1 : 0);
  if (field.width != 0 && size > field.width) {
    formatWithoutMarks(value, field, result);
    return;
  }
  result.clear();
  if (size == written && field.width <= kRoom) {
    const std::size_t taken = std::max(written, field.width);
    result.append(end - taken, taken);
    return;
  }
  if (size < field.width) result.append(field.width - size, u' ');
  result.append(number.first(), written).append(zeros, u'0');
  if (isEnclosed) result.push_back(u')');
}

}  // namespace LibTarvoCI
