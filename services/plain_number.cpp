#include "services/plain_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <variant>

#include "frame/decimal.h"
#include "services/digits.h"

namespace LibTarvoCI {
namespace {

constexpr char16_t kDecimalMark = u',';

// The greatest double has 309 digits; the smallest needs 324 decimals after "-0.".
constexpr std::size_t kLongestDouble = 400;

void assignSigned(bool isNegative, Text& result) { result.assign(isNegative ? u"-" : u""); }

void assignInteger(std::int32_t number, Text& result) {
  const std::int64_t wide = number;
  assignSigned(wide < 0, result);
  appendDigits(result, static_cast<std::uint64_t>(wide < 0 ? -wide : wide));
}

void assignAmount(Currency amount, Text& result) {
  const std::uint64_t magnitude = magnitudeOf(amount);
  assignSigned(amount.tenThousandths < 0, result);
  appendDigits(result, magnitude / Currency::kUnit);
  const std::uint64_t fraction = magnitude % Currency::kUnit;
  if (fraction == 0) return;
  result.push_back(kDecimalMark);
  appendDigits(result, fraction, Currency::kDecimals);
  result.erase(result.find_last_not_of(u'0') + 1);
}

void assignDouble(double number, Text& result) {
  if (!std::isfinite(number)) fail(tarvo::kOverflow, u"valNumber");
  if (number == 0) number = 0;  // takes the sign off a zero
  std::array<char, kLongestDouble> digits;
  const std::to_chars_result end =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
  if (end.ec != std::errc()) fail(tarvo::kOverflow, u"valNumber");
  result.assign(digits.data(), end.ptr);
  const std::size_t mark = result.find(u'.');
  if (mark != Text::npos) result[mark] = kDecimalMark;
}

void assignNumericText(TextView text, Text& result) {
  if (!tarvo::isDecimal(text)) fail(tarvo::kTypeMismatch, u"valNumber");
  tarvo::Decimal number = tarvo::parseDecimal(text);
  number.units.remove_prefix(std::min(number.units.find_first_not_of(u'0'), number.units.size()));
  number.decimals = number.decimals.substr(0, number.decimals.find_last_not_of(u'0') + 1);
  const bool isZero = number.units.empty() && number.decimals.empty();
  assignSigned(number.negative && !isZero, result);
  result.append(number.units.empty() ? TextView(u"0") : number.units);
  if (number.decimals.empty()) return;
  result.push_back(kDecimalMark);
  result.append(number.decimals);
}

struct Writer {
  Text& result;

  void operator()(tarvo::Empty) const { result.assign(u"0"); }
  void operator()(std::uint8_t number) const { assignInteger(number, result); }
  void operator()(std::int16_t number) const { assignInteger(number, result); }
  void operator()(std::int32_t number) const { assignInteger(number, result); }
  void operator()(double number) const { assignDouble(number, result); }
  void operator()(Currency amount) const { assignAmount(amount, result); }
  void operator()(const Text& text) const { assignNumericText(text, result); }
  // Only the kinds that are not numbers arrive here.
  template <class NotANumber>
  void operator()(const NotANumber&) const {
    fail(tarvo::kTypeMismatch, u"valNumber");
  }
};

}  // namespace

void plainNumber(const Value& number, Text& result) {
  std::visit(Writer{result}, number.content());
}

}  // namespace LibTarvoCI
