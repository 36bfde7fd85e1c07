#include "services/number_field.h"

#include <algorithm>

#include "services/digits.h"

namespace LibTarvoCI {
namespace {

constexpr std::size_t kGroup = 3;

std::size_t digitCount(std::uint64_t number) {
  std::size_t count = 1;
  for (; number >= 10; number /= 10) ++count;
  return count;
}

void insertMarks(Text& text, std::size_t firstDigit, std::size_t digits, char16_t mark) {
  for (std::size_t fromRight = kGroup; fromRight < digits; fromRight += kGroup) {
    text.insert(firstDigit + digits - fromRight, 1, mark);
  }
}

void appendDecimals(Text& text, std::uint64_t fraction, const NumberField& field) {
  if (field.decimals == 0) return;
  text.push_back(field.decimalMark);
  const std::size_t first = text.size();
  appendDigits(text, fraction, Currency::kDecimals);
  text.resize(first + static_cast<std::size_t>(field.decimals), u'0');
}

}  // namespace

void formatField(Currency value, const NumberField& field, Text& result) {
  const std::uint64_t rounded = roundedMagnitude(magnitudeOf(value), field.decimals);
  const std::uint64_t units = rounded / Currency::kUnit;
  const bool isNegative = value.tenThousandths < 0 && rounded != 0;
  const bool isEnclosed = isNegative && field.parenthesis;

  const std::size_t digits = digitCount(units);
  const std::size_t marks = (digits - 1) / kGroup;
  std::size_t plainWidth = digits + (isNegative ? 1 : 0) + (isEnclosed ? 1 : 0);
  if (field.decimals > 0) plainWidth += 1 + static_cast<std::size_t>(field.decimals);

  result.clear();
  if (field.width != 0 && plainWidth > field.width) {
    result.append(field.width, u'*');
    return;
  }
  const bool hasMarks = field.width == 0 || plainWidth + marks <= field.width;
  const std::size_t used = plainWidth + (hasMarks ? marks : 0);
  if (used < field.width) result.append(field.width - used, u' ');
  if (isNegative) result.push_back(isEnclosed ? u'(' : u'-');
  const std::size_t firstDigit = result.size();
  appendDigits(result, units);
  if (hasMarks) insertMarks(result, firstDigit, digits, field.thousandsMark);
  appendDecimals(result, rounded % Currency::kUnit, field);
  if (isEnclosed) result.push_back(u')');
}

}  // namespace LibTarvoCI
