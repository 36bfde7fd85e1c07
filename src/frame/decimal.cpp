#include "frame/decimal.h"

#include "frame/checked.h"

namespace tarvo {
namespace {

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Takes the digits at the front of `text` off it.
TextView takeDigits(TextView& text) {
  std::size_t count = 0;
  while (count < text.size() && isDigit(text[count])) ++count;
  const TextView digits = text.substr(0, count);
  text.remove_prefix(count);
  return digits;
}

// Takes the longest number at the front of `text` off it; a mark without digits stays.
Decimal takeDecimal(TextView& text) {
  Decimal number;
  if (!text.empty() && (text[0] == u'-' || text[0] == u'+')) {
    number.negative = text[0] == u'-';
    text.remove_prefix(1);
  }
  number.units = takeDigits(text);
  const bool hasMark = !text.empty() && (text[0] == u',' || text[0] == u'.');
  if (hasMark && !number.units.empty() && text.size() > 1 && isDigit(text[1])) {
    text.remove_prefix(1);
    number.decimals = takeDigits(text);
  }
  return number;
}

// Adds one digit at the right end of a negative magnitude.  Negative, because the range has one
// value more below zero than above.
std::int64_t appendDigit(std::int64_t magnitude, char16_t digit) {
  const std::int64_t shifted = checkedMultiply(magnitude, std::int64_t{10});
  return checkedSubtract(shifted, static_cast<std::int64_t>(digit - u'0'));
}

enum class Rest { kBelowHalf, kHalf, kAboveHalf };

Rest classify(TextView rest) {
  if (rest.empty() || rest[0] < u'5') return Rest::kBelowHalf;
  const bool onlyZerosFollow = rest.find_first_not_of(u'0', 1) == TextView::npos;
  return rest[0] == u'5' && onlyZerosFollow ? Rest::kHalf : Rest::kAboveHalf;
}

}  // namespace

TextView trimBlanks(TextView text) noexcept {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

bool isDecimal(TextView text) noexcept {
  TextView rest = trimBlanks(text);
  return !takeDecimal(rest).units.empty() && rest.empty();
}

Decimal parseDecimal(TextView text) {
  TextView rest = trimBlanks(text);
  const Decimal number = takeDecimal(rest);
  if (number.units.empty() || !rest.empty()) throw RunTimeError(kTypeMismatch);
  return number;
}

Decimal leadingDecimal(TextView text) noexcept {
  TextView rest = trimBlanks(text);
  return takeDecimal(rest);
}

std::int64_t roundedHalfToEven(const Decimal& number, int decimals) {
  std::int64_t magnitude = 0;
  for (const char16_t digit : number.units) magnitude = appendDigit(magnitude, digit);
  const auto kept = static_cast<std::size_t>(decimals);
  for (std::size_t i = 0; i < kept; ++i) {
    magnitude = appendDigit(magnitude, i < number.decimals.size() ? number.decimals[i] : u'0');
  }
  const Rest rest =
      number.decimals.size() > kept ? classify(number.decimals.substr(kept)) : Rest::kBelowHalf;
  const bool isOdd = magnitude % 2 != 0;
  if (rest == Rest::kAboveHalf || (rest == Rest::kHalf && isOdd)) {
    magnitude = checkedSubtract(magnitude, std::int64_t{1});
  }
  return number.negative ? magnitude : checkedSubtract(std::int64_t{0}, magnitude);
}

}  // namespace tarvo
