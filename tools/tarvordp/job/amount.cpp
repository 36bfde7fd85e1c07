#include "tarvordp/job/amount.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

#include "frame/decimal.h"
#include "frame/text.h"
#include "tarvordp/json/excerpt.h"

namespace tarvordp {
namespace {

// Amounts have 15 digits before their decimals; what is below any rounding needs no digit behind.
constexpr std::int64_t kTooManyUnits = 16;
constexpr std::int64_t kTooManyZeros = 8;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view takeDigits(std::string_view& text) {
  const auto end = std::ranges::find_if_not(text, isDigit);
  const std::string_view digits(text.begin(), end);
  text.remove_prefix(digits.size());
  return digits;
}

bool takeOneOf(std::string_view& text, std::string_view characters) {
  if (text.empty() || characters.find(text[0]) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

// An exponent that nobody can count to is as good as the greatest one.
std::optional<std::int64_t> takeExponent(std::string_view& text) {
  constexpr std::size_t kMostDigits = 9;
  constexpr std::int64_t kGreatest = 999'999'999;
  if (!takeOneOf(text, "eE")) return 0;
  const bool isNegative = text.starts_with('-');
  takeOneOf(text, "+-");
  std::string_view digits = takeDigits(text);
  if (digits.empty()) return std::nullopt;
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  std::int64_t exponent = digits.size() > kMostDigits ? kGreatest : 0;
  if (digits.size() <= kMostDigits) {
    std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  }
  return isNegative ? -exponent : exponent;
}

struct WrittenNumber {
  bool isNegative = false;
  std::string digits;          // without zeros before the first other digit
  std::int64_t unitCount = 0;  // how many of them stand before the decimals; may be negative
};

std::optional<WrittenNumber> takeApart(std::string_view text, std::string_view separators) {
  WrittenNumber number;
  number.isNegative = text.starts_with('-');
  takeOneOf(text, "+-");
  const std::string_view units = takeDigits(text);
  if (units.empty()) return std::nullopt;
  std::string_view decimals;
  if (takeOneOf(text, separators)) {
    decimals = takeDigits(text);
    if (decimals.empty()) return std::nullopt;
  }
  const std::optional<std::int64_t> exponent = takeExponent(text);
  if (!exponent || !text.empty()) return std::nullopt;
  number.digits.append(units).append(decimals);
  const std::size_t zeros = std::min(number.digits.find_first_not_of('0'), number.digits.size());
  number.digits.erase(0, zeros);
  number.unitCount =
      static_cast<std::int64_t>(units.size()) + *exponent - static_cast<std::int64_t>(zeros);
  return number;
}

// The same number without exponent.  REQUIRES: a count of units that memory can hold.
void writeOut(const WrittenNumber& number, tarvo::Text& units, tarvo::Text& decimals) {
  const tarvo::Text digits = tarvo::fromAscii(number.digits);
  if (number.unitCount <= 0) {
    units.assign(1, u'0');
    decimals.assign(static_cast<std::size_t>(-number.unitCount), u'0').append(digits);
    return;
  }
  const auto count = static_cast<std::size_t>(number.unitCount);
  units = digits.substr(0, count);
  units.resize(count, u'0');
  if (digits.size() > count) decimals = digits.substr(count);
}

[[noreturn]] void tooLarge(std::string_view written) {
  throw BadValue(quotedExcerpt(written) +
                 " is no amount: the greatest one is 922337203685477.5807, and the least one is "
                 "-922337203685477.5808");
}

constexpr std::string_view kPoint = ".";
constexpr std::string_view kPointOrComma = ".,";

// Who wrote more than one separator, or another one, is told what may stand there.
[[noreturn]] void noNumber(std::string_view written, std::string_view separators) {
  std::string wrong = quotedExcerpt(written) + " is no number";
  if (written.find_first_of("0123456789") != std::string_view::npos &&
      written.find_first_of(kPointOrComma) != std::string_view::npos) {
    wrong += separators == kPoint ? ": write \".\"" : ": write one \",\" or \".\"";
    wrong += " before its decimals, and nothing between its thousands";
  }
  throw BadValue(wrong);
}

tarvo::Currency amountOf(std::string_view written, std::string_view separators) {
  const std::optional<WrittenNumber> number = takeApart(written, separators);
  if (!number) noNumber(written, separators);
  if (number->digits.empty() || number->unitCount < -kTooManyZeros) return {};
  if (number->unitCount >= kTooManyUnits) tooLarge(written);
  tarvo::Text units;
  tarvo::Text decimals;
  writeOut(*number, units, decimals);
  try {
    return {tarvo::roundedHalfToEven({number->isNegative, units, decimals},
                                     tarvo::Currency::kDecimals)};
  } catch (const tarvo::RunTimeError&) {
    tooLarge(written);
  }
}

}  // namespace

tarvo::Currency readAmount(std::string_view written) { return amountOf(written, kPoint); }

tarvo::Currency readCellAmount(std::string_view written) {
  return amountOf(written, kPointOrComma);
}

std::string amountText(tarvo::Currency amount) {
  const tarvo::CurrencyDigits digits = tarvo::digitsOf(amount);
  std::string text;
  if (amount < tarvo::Currency{}) text += '-';
  text += tarvo::toUtf8(digits.units);
  std::string decimals = tarvo::toUtf8(digits.decimals);
  decimals.erase(decimals.find_last_not_of('0') + 1);
  if (!decimals.empty()) text.append(".").append(decimals);
  return text;
}

namespace {

// Takes that many digits and, if one is asked for, the separator behind them.
std::optional<int> takePart(std::string_view& text, std::size_t size, std::string_view separators) {
  const std::string_view digits = text.substr(0, size);
  if (digits.size() != size || !std::ranges::all_of(digits, isDigit)) return std::nullopt;
  text.remove_prefix(size);
  if (!separators.empty() && !takeOneOf(text, separators)) return std::nullopt;
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

// Raises: std::bad_optional_access when the text has another form.
tarvo::CivilTime civilTimeIn(std::string_view text, std::string_view separators) {
  tarvo::CivilTime time;
  time.year = takePart(text, 4, "-").value();
  time.month = takePart(text, 2, "-").value();
  const bool hasTime = text.size() > 2;
  time.day = takePart(text, 2, hasTime ? separators : "").value();
  if (!hasTime) return time;
  time.hour = takePart(text, 2, ":").value();
  time.minute = takePart(text, 2, ":").value();
  time.second = takePart(text, 2, "").value();
  if (!text.empty()) throw std::bad_optional_access();
  return time;
}

}  // namespace

tarvo::Date readDate(std::string_view written, std::string_view separators) {
  try {
    return tarvo::dateOf(civilTimeIn(written, separators));
  } catch (const std::bad_optional_access&) {
    throw BadValue(quotedExcerpt(written) + " is no date: write YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS");
  } catch (const tarvo::RunTimeError&) {
    throw BadValue(quotedExcerpt(written) + " is no day of the calendar");
  }
}

}  // namespace tarvordp
