// Services that hand every call on to another one, the stand-in where no other is given, for those
// who change one operation or two:
//
//   class DoublingConvert final : public ForwardingConvert {
//    public:
//     std::uint8_t fTextToByte(TextView valText) override {
//       return 2 * ForwardingConvert::fTextToByte(valText);
//     }
//   };
//
// The text service among them must be asked for everything, whatever stands behind it.
#pragma once

#include <utility>

#include "frame/services.h"
#include "services/clsConvert.h"
#include "services/clsTexto.h"
#include "services/clsUtilDate.h"

namespace tarvo::test {

class ForwardingTexto : public clsTexto {
 public:
  explicit ForwardingTexto(Ref<clsTexto> next = make<LibTarvoCI::clsTexto>())
      : next_(std::move(next)) {}

  std::int32_t fPosition(TextView valText, TextView valSearched, std::int32_t valStart) override {
    return next().fPosition(valText, valSearched, valStart);
  }
  void fPart(TextView valText, std::int32_t valStart, std::int32_t valCount,
             Text& result) override {
    next().fPart(valText, valStart, valCount, result);
  }
  std::int32_t fLength(TextView valText) override { return next().fLength(valText); }
  void fTrim(TextView valText, Text& result) override { next().fTrim(valText, result); }
  void fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) override {
    next().fReplaceAll(valText, valOld, valNew, result);
  }
  void fSplit(TextView valText, TextView valSeparator, TextList& result) override {
    next().fSplit(valText, valSeparator, result);
  }
  void fDelete(TextView valText, std::int32_t valStart, std::int32_t valDistance,
               Text& result) override {
    next().fDelete(valText, valStart, valDistance, result);
  }
  void fInsert(TextView valText, TextView valInserted, std::int32_t valPosition,
               Text& result) override {
    next().fInsert(valText, valInserted, valPosition, result);
  }
  void fStrip(TextView valText, TextView valCharacter, Text& result) override {
    next().fStrip(valText, valCharacter, result);
  }
  void fRepeat(TextView valCharacter, std::int32_t valCount, Text& result) override {
    next().fRepeat(valCharacter, valCount, result);
  }
  void fAlignLeft(TextView valText, std::int32_t valWidth, Text& result) override {
    next().fAlignLeft(valText, valWidth, result);
  }
  void fAlignRight(TextView valText, std::int32_t valWidth, Text& result) override {
    next().fAlignRight(valText, valWidth, result);
  }
  void fAlignCenter(TextView valText, std::int32_t valWidth, Text& result) override {
    next().fAlignCenter(valText, valWidth, result);
  }
  void fPadOrCut(TextView valText, std::int32_t valWidth, TextView valFill, Text& result) override {
    next().fPadOrCut(valText, valWidth, valFill, result);
  }
  void fLeftMargin(TextView valText, std::uint8_t valMargin, Text& result) override {
    next().fLeftMargin(valText, valMargin, result);
  }
  void fFitToWidth(TextView valText, std::uint8_t valWidth, Text& result) override {
    next().fFitToWidth(valText, valWidth, result);
  }
  bool fHolds(TextView valText, TextView valMarker) override {
    return next().fHolds(valText, valMarker);
  }

 protected:
  // Asked once in each call.
  virtual clsTexto& next() { return *next_; }

 private:
  Ref<clsTexto> next_;
};

class ForwardingConvert : public clsConvert {
 public:
  explicit ForwardingConvert(Ref<clsConvert> next = make<LibTarvoCI::clsConvert>())
      : next_(std::move(next)) {}

  void fFormatNumberDotComma(Currency valValue, std::int16_t valWidth, std::int16_t valDecimals,
                             bool valParenthesis, Text& result) override {
    next().fFormatNumberDotComma(valValue, valWidth, valDecimals, valParenthesis, result);
  }
  void fFormatNumberCommaDot(Currency valValue, std::int16_t valWidth, std::int16_t valDecimals,
                             bool valParenthesis, Text& result) override {
    next().fFormatNumberCommaDot(valValue, valWidth, valDecimals, valParenthesis, result);
  }
  void fNumberToText(const Value& valNumber, Text& result) override {
    next().fNumberToText(valNumber, result);
  }
  double fTextToNumber(TextView valText) override { return next().fTextToNumber(valText); }
  bool fIsNumeric(TextView valText) override { return next().fIsNumeric(valText); }
  std::uint8_t fTextToByte(TextView valText) override { return next().fTextToByte(valText); }
  std::int16_t fTextToInteger(TextView valText) override { return next().fTextToInteger(valText); }
  void fBooleanToText(bool valValue, Text& result) override {
    next().fBooleanToText(valValue, result);
  }
  void fDateToText(Date valDate, Text& result) override { next().fDateToText(valDate, result); }
  std::int32_t fReportWidth(std::int32_t valLength, std::int16_t valCode) override {
    return next().fReportWidth(valLength, valCode);
  }

 protected:
  // Asked once in each call.
  virtual clsConvert& next() { return *next_; }

 private:
  Ref<clsConvert> next_;
};

class ForwardingDate : public clsUtilDate {
 public:
  explicit ForwardingDate(Ref<clsUtilDate> next = make<LibTarvoCI::clsUtilDate>())
      : next_(std::move(next)) {}

  Date fToday() override { return next().fToday(); }
  void fTimeText(Text& result) override { next().fTimeText(result); }
  void fFormatDate(Date valDate, TextView valFormat, Text& result) override {
    next().fFormatDate(valDate, valFormat, result);
  }
  void fDefaultDateText(Date valDate, Text& result) override {
    next().fDefaultDateText(valDate, result);
  }
  std::int16_t fYear(Date valDate) override { return next().fYear(valDate); }

 protected:
  // Asked once in each call.
  virtual clsUtilDate& next() { return *next_; }

 private:
  Ref<clsUtilDate> next_;
};

// With nobody behind it every message is lost, and every question answered with True.
class ForwardingMessage : public clsMessage {
 public:
  explicit ForwardingMessage(Ref<clsMessage> next = {}) : next_(std::move(next)) {}

  void sShowMessage(Text& refText) override {
    if (next_) next_->sShowMessage(refText);
  }
  void sShowMessageWithTitle(TextView valText, TextView valTitle) override {
    if (next_) next_->sShowMessageWithTitle(valText, valTitle);
  }
  void sWarning(Text& refText) override {
    if (next_) next_->sWarning(refText);
  }
  void sWarningWithTitle(TextView valText, TextView valTitle) override {
    if (next_) next_->sWarningWithTitle(valText, valTitle);
  }
  bool fAskAcceptCancel(TextView valText, TextView valTitle) override {
    return !next_ || next_->fAskAcceptCancel(valText, valTitle);
  }
  bool fWarnLocation(TextView valProjectTitle, std::int16_t valLocationCode) override {
    return !next_ || next_->fWarnLocation(valProjectTitle, valLocationCode);
  }

 private:
  Ref<clsMessage> next_;
};

}  // namespace tarvo::test
