// The stand-in of the conversion service, for those who change one of its operations.
#pragma once

#include "services/clsConvert.h"

namespace tarvo::test {

class ForwardingConvert : public clsConvert {
 public:
  void fFormatNumberDotComma(Currency valValue, std::int16_t valWidth, std::int16_t valDecimals,
                             bool valParenthesis, Text& result) override {
    standIn_->fFormatNumberDotComma(valValue, valWidth, valDecimals, valParenthesis, result);
  }
  void fFormatNumberCommaDot(Currency valValue, std::int16_t valWidth, std::int16_t valDecimals,
                             bool valParenthesis, Text& result) override {
    standIn_->fFormatNumberCommaDot(valValue, valWidth, valDecimals, valParenthesis, result);
  }
  void fNumberToText(const Value& valNumber, Text& result) override {
    standIn_->fNumberToText(valNumber, result);
  }
  double fTextToNumber(TextView valText) override { return standIn_->fTextToNumber(valText); }
  bool fIsNumeric(TextView valText) override { return standIn_->fIsNumeric(valText); }
  std::uint8_t fTextToByte(TextView valText) override { return standIn_->fTextToByte(valText); }
  std::int16_t fTextToInteger(TextView valText) override {
    return standIn_->fTextToInteger(valText);
  }
  void fBooleanToText(bool valValue, Text& result) override {
    standIn_->fBooleanToText(valValue, result);
  }
  void fDateToText(Date valDate, Text& result) override { standIn_->fDateToText(valDate, result); }
  std::int32_t fReportWidth(std::int32_t valLength, std::int16_t valCode) override {
    return standIn_->fReportWidth(valLength, valCode);
  }

 private:
  Ref<LibTarvoCI::clsConvert> standIn_ = make<LibTarvoCI::clsConvert>();
};

}  // namespace tarvo::test
