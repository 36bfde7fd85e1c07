// Stand-in of the conversion service.
//
// Raises: 5 for a negative width, count of decimals or length.
#pragma once

#include "frame/services.h"
#include "services/fail.h"

namespace LibTarvoCI {

class clsConvert final : public tarvo::clsConvert {
 public:
  // Number fields: see number_field.h.
  void fFormatNumberDotComma(Currency valValue, std::int16_t valWidth, std::int16_t valDecimals,
                             bool valParenthesis, Text& result) override;
  void fFormatNumberCommaDot(Currency valValue, std::int16_t valWidth, std::int16_t valDecimals,
                             bool valParenthesis, Text& result) override;

  // See plain_number.h.
  void fNumberToText(const Value& valNumber, Text& result) override;

  // The number at the front of the text (an optional sign, digits, optionally one "," or "." and
  // digits), blanks before it ignored; 0 when there is none.  Raises: 6 past the greatest double.
  double fTextToNumber(TextView valText) override;

  // Whether the whole text is such a number; blanks at its ends ignored.
  bool fIsNumeric(TextView valText) override;

  // The number that the whole text is, fractions rounded half to even in decimal.
  // Raises: 13 when the text is not numeric, 6 when the rounded number does not fit.
  std::uint8_t fTextToByte(TextView valText) override;
  std::int16_t fTextToInteger(TextView valText) override;

  // "S" or "N".
  void fBooleanToText(bool valValue, Text& result) override;

  // dd/mm/yyyy.  Raises: 6 for a date outside the range.
  void fDateToText(Date valDate, Text& result) override;

  // The length itself, whatever the code.
  std::int32_t fReportWidth(std::int32_t valLength, std::int16_t valCode) override;

  void putField(Currency valValue, const FieldForm& form,
                std::span<char16_t> field) noexcept override;
  bool putsFields() const noexcept override { return true; }

  bool mayBeBypassed() const noexcept override { return true; }
};

}  // namespace LibTarvoCI
