#include "services/clsConvert.h"

#include <cmath>
#include <string>
#include <utility>

#include "frame/decimal.h"
#include "services/binary_number.h"
#include "services/date_parts.h"
#include "services/number_field.h"
#include "services/plain_number.h"

namespace LibTarvoCI {
namespace {

struct Marks {
  char16_t thousands;
  char16_t decimals;
};

constexpr Marks kDotComma{u'.', u','};
constexpr Marks kCommaDot{u',', u'.'};

void formatNumber(Currency value, std::int16_t width, std::int16_t decimals, bool parenthesis,
                  Marks marks, Text& result) {
  if (width < 0) fail(tarvo::kInvalidProcedureCall, u"valWidth");
  if (decimals < 0) fail(tarvo::kInvalidProcedureCall, u"valDecimals");
  formatField(value,
              {.thousandsMark = marks.thousands,
               .decimalMark = marks.decimals,
               .width = static_cast<std::size_t>(width),
               .decimals = decimals,
               .parenthesis = parenthesis},
              result);
}

// The number without its sign.
double magnitudeOf(const tarvo::Decimal& number) {
  std::string digits;
  for (const TextView part : {number.units, number.decimals}) {
    for (const char16_t digit : part) digits.push_back(static_cast<char>(digit));
  }
  return nearestDouble(digits, -static_cast<int>(number.decimals.size()));
}

std::int64_t roundedNumber(TextView text) {
  if (!tarvo::isDecimal(text)) fail(tarvo::kTypeMismatch, u"valText");
  try {
    return tarvo::roundedHalfToEven(tarvo::parseDecimal(text), 0);
  } catch (const tarvo::RunTimeError& error) {
    fail(error.number(), u"valText");
  }
}

template <class To>
To roundedTo(TextView text) {
  const std::int64_t number = roundedNumber(text);
  if (!std::in_range<To>(number)) fail(tarvo::kOverflow, u"valText");
  return static_cast<To>(number);
}

}  // namespace

void clsConvert::fFormatNumberDotComma(Currency valValue, std::int16_t valWidth,
                                       std::int16_t valDecimals, bool valParenthesis,
                                       Text& result) {
  formatNumber(valValue, valWidth, valDecimals, valParenthesis, kDotComma, result);
}

void clsConvert::fFormatNumberCommaDot(Currency valValue, std::int16_t valWidth,
                                       std::int16_t valDecimals, bool valParenthesis,
                                       Text& result) {
  formatNumber(valValue, valWidth, valDecimals, valParenthesis, kCommaDot, result);
}

void clsConvert::putField(Currency valValue, const FieldForm& form,
                          std::span<char16_t> field) noexcept {
  const Marks& marks = form.hasCommaDot ? kCommaDot : kDotComma;
  LibTarvoCI::putField(valValue,
                       {.thousandsMark = marks.thousands,
                        .decimalMark = marks.decimals,
                        .width = field.size(),
                        .decimals = form.decimals,
                        .parenthesis = form.parenthesis},
                       field.data());
}

void clsConvert::fNumberToText(const Value& valNumber, Text& result) {
  plainNumber(valNumber, result);
}

double clsConvert::fTextToNumber(TextView valText) {
  const tarvo::Decimal number = tarvo::leadingDecimal(valText);
  if (number.units.empty()) return 0;
  const double magnitude = magnitudeOf(number);
  if (std::isinf(magnitude)) fail(tarvo::kOverflow, u"valText");
  return number.negative && magnitude != 0 ? -magnitude : magnitude;
}

bool clsConvert::fIsNumeric(TextView valText) { return tarvo::isDecimal(valText); }

std::uint8_t clsConvert::fTextToByte(TextView valText) { return roundedTo<std::uint8_t>(valText); }

std::int16_t clsConvert::fTextToInteger(TextView valText) {
  return roundedTo<std::int16_t>(valText);
}

void clsConvert::fBooleanToText(bool valValue, Text& result) {
  result.assign(valValue ? u"S" : u"N");
}

void clsConvert::fDateToText(Date valDate, Text& result) { dayMonthYear(valDate, result); }

std::int32_t clsConvert::fReportWidth(std::int32_t valLength, std::int16_t) {
  if (valLength < 0) fail(tarvo::kInvalidProcedureCall, u"valLength");
  return valLength;
}

}  // namespace LibTarvoCI
