#include "services/plain_number.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <variant>

#include "frame/decimal.h"
#include "services/binary_number.h"
#include "services/digits.h"

namespace LibTarvoCI {
namespace {

constexpr char16_t kDecimalMark = u',';

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

void appendAscii(std::string_view digits, Text& result) {
  result.append(digits.begin(), digits.end());
}

// The digits with as many zeros, or the mark, as the exponent says.
void appendPlain(const DecimalDigits& decimal, Text& result) {
  const std::string_view digits = decimal.digits;
  if (decimal.exponent >= 0) {
    appendAscii(digits, result);
    result.append(static_cast<std::size_t>(decimal.exponent), u'0');
    return;
  }
  const auto decimals = static_cast<std::size_t>(-decimal.exponent);
  const std::size_t units = digits.size() > decimals ? digits.size() - decimals : 0;
  appendAscii(units > 0 ? digits.substr(0, units) : "0", result);
  result.push_back(kDecimalMark);
  result.append(decimals - (digits.size() - units), u'0');
  appendAscii(digits.substr(units), result);
}

void assignDouble(double number, Text& result) {
  if (!std::isfinite(number)) fail(tarvo::kOverflow, u"valNumber");
  assignSigned(number < 0, result);
  appendPlain(fewestDigits(std::fabs(number)), result);
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
