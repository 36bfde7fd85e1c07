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

// Three digits.
using Group = std::array<char16_t, 3>;

// Those of every group between two marks, and those of every first group, with blanks in place of
// the zeros before its digits.
constexpr std::size_t kOneGroup = 1000;
constexpr auto kGroups = [] {
  std::array<Group, kOneGroup> groups{};
  for (std::size_t i = 0; i < groups.size(); ++i) {
    groups[i] = {static_cast<char16_t>(u'0' + i / 100), static_cast<char16_t>(u'0' + i / 10 % 10),
                 static_cast<char16_t>(u'0' + i % 10)};
  }
  return groups;
}();
constexpr auto kFirstGroups = [] {
  auto groups = kGroups;
  for (std::size_t i = 0; i < 100; ++i) groups[i][0] = u' ';
  for (std::size_t i = 0; i < 10; ++i) groups[i][1] = u' ';
  return groups;
}();

// Writes from the last character to the first.
class Backwards {
 public:
  explicit Backwards(char16_t* end) noexcept : first_(end) {}

  const char16_t* first() const noexcept { return first_; }

  void put(char16_t character) noexcept { *--first_ = character; }

  // The last digits of a group, `kCount` of them.
  template <std::size_t kCount>
  void putDigits(std::size_t number) noexcept {
    first_ -= kCount;
    std::memcpy(first_, kGroups[number].data() + (3 - kCount), kCount * sizeof *first_);
  }

  // The digits of a whole number, at least one, with a mark (unless it is 0) between each three.
  // REQUIRES: blanks before it, which stay.
  void putUnits(std::uint64_t number, char16_t mark) noexcept {
    while (number >= kOneGroup) {
      const std::uint64_t rest = number / kOneGroup;
      putDigits<3>(static_cast<std::size_t>(number - rest * kOneGroup));
      if (mark != 0) put(mark);
      number = rest;
    }
    const Group& group = kFirstGroups[static_cast<std::size_t>(number)];
    std::memcpy(first_ - group.size(), group.data(), sizeof group);
    first_ -= number >= 100 ? 3 : number >= 10 ? 2 : 1;
  }

 private:
  char16_t* first_;
};

// What stands in a field but its blanks, written into the end of a room.
class WrittenAmount {
 public:
  [[gnu::always_inline]] WrittenAmount(Currency value, const NumberField& field) noexcept
      : number_(room_.end()) {
    const std::uint64_t rounded = roundedMagnitude(magnitudeOf(value), field.decimals);
    const bool isNegative = value.tenThousandths < 0 && rounded != 0;
    isEnclosed_ = isNegative && field.parenthesis;
    if (field.decimals > 0) {
      putDecimals(static_cast<std::size_t>(rounded % Currency::kUnit), field.decimals);
      number_.put(field.decimalMark);
    }
    number_.putUnits(rounded / Currency::kUnit, field.thousandsMark);
    if (isNegative) number_.put(isEnclosed_ ? u'(' : u'-');
    // What stands behind the decimals that an amount has.
    zeros_ = static_cast<std::size_t>(std::max(field.decimals - Currency::kDecimals, 0));
  }

  WrittenAmount(const WrittenAmount&) = delete;  // it looks into itself

  std::size_t size() const noexcept { return written() + zeros_ + (isEnclosed_ ? 1 : 0); }

  // Puts the number to the right end of the width, which it does not exceed.
  void putInto(char16_t* place, std::size_t width) const noexcept {
    if (size() == written() && width <= kRoom) {
      std::memcpy(place, room_.end() - width, width * sizeof *place);
      return;
    }
    place = std::fill_n(place, width - size(), u' ');
    place = std::copy_n(number_.first(), written(), place);
    place = std::fill_n(place, zeros_, u'0');
    if (isEnclosed_) *place = u')';
  }

 private:
  std::size_t written() const noexcept {
    return static_cast<std::size_t>(room_.end() - number_.first());
  }

  void putDecimals(std::size_t decimals, int count) noexcept {
    switch (count) {
      case 1:
        return number_.putDigits<1>(decimals / 1000);
      case 2:
        return number_.putDigits<2>(decimals / 100);
      case 3:
        return number_.putDigits<3>(decimals / 10);
      default:
        number_.putDigits<1>(decimals % 10);
        number_.putDigits<3>(decimals / 10);
    }
  }

  Room room_ = kBlanks;
  Backwards number_;
  std::size_t zeros_;
  bool isEnclosed_;
};

NumberField withoutMarks(NumberField field) noexcept {
  field.thousandsMark = 0;
  return field;
}

}  // namespace

void formatField(Currency value, const NumberField& field, Text& result) {
  if (field.width != 0) {
    result.resize(field.width);
    putField(value, field, result.data());
    return;
  }
  const WrittenAmount amount(value, field);
  result.resize(amount.size());
  amount.putInto(result.data(), result.size());
}

void putField(Currency value, const NumberField& field, char16_t* place) noexcept {
  const WrittenAmount amount(value, field);
  if (amount.size() <= field.width) {
    amount.putInto(place, field.width);
  } else if (field.thousandsMark != 0) {
    putField(value, withoutMarks(field), place);
  } else {
    std::fill_n(place, field.width, u'*');
  }
}

}  // namespace LibTarvoCI
