// Stand-ins as services that must be asked for everything, as outside ones are.
#pragma once

#include "services/clsTexto.h"
#include "services/clsUtilDate.h"

namespace tarvo::test {

class AskedTexto final : public clsTexto {
 public:
  int calls = 0;
  bool splitsIntoNothing = false;  // another service's answer to an empty text

  std::int32_t fPosition(TextView valText, TextView valSearched, std::int32_t valStart) override {
    return counted().fPosition(valText, valSearched, valStart);
  }
  void fPart(TextView valText, std::int32_t valStart, std::int32_t valCount,
             Text& result) override {
    counted().fPart(valText, valStart, valCount, result);
  }
  std::int32_t fLength(TextView valText) override { return counted().fLength(valText); }
  void fTrim(TextView valText, Text& result) override { counted().fTrim(valText, result); }
  void fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) override {
    counted().fReplaceAll(valText, valOld, valNew, result);
  }
  void fSplit(TextView valText, TextView valSeparator, TextList& result) override {
    counted().fSplit(valText, valSeparator, result);
    if (splitsIntoNothing && valText.empty()) result.clear();
  }
  void fDelete(TextView valText, std::int32_t valStart, std::int32_t valDistance,
               Text& result) override {
    counted().fDelete(valText, valStart, valDistance, result);
  }
  void fInsert(TextView valText, TextView valInserted, std::int32_t valPosition,
               Text& result) override {
    counted().fInsert(valText, valInserted, valPosition, result);
  }
  void fStrip(TextView valText, TextView valCharacter, Text& result) override {
    counted().fStrip(valText, valCharacter, result);
  }
  void fRepeat(TextView valCharacter, std::int32_t valCount, Text& result) override {
    counted().fRepeat(valCharacter, valCount, result);
  }
  void fAlignLeft(TextView valText, std::int32_t valWidth, Text& result) override {
    counted().fAlignLeft(valText, valWidth, result);
  }
  void fAlignRight(TextView valText, std::int32_t valWidth, Text& result) override {
    counted().fAlignRight(valText, valWidth, result);
  }
  void fAlignCenter(TextView valText, std::int32_t valWidth, Text& result) override {
    counted().fAlignCenter(valText, valWidth, result);
  }
  void fPadOrCut(TextView valText, std::int32_t valWidth, TextView valFill, Text& result) override {
    counted().fPadOrCut(valText, valWidth, valFill, result);
  }
  void fLeftMargin(TextView valText, std::uint8_t valMargin, Text& result) override {
    counted().fLeftMargin(valText, valMargin, result);
  }
  void fFitToWidth(TextView valText, std::uint8_t valWidth, Text& result) override {
    counted().fFitToWidth(valText, valWidth, result);
  }
  bool fHolds(TextView valText, TextView valMarker) override {
    return counted().fHolds(valText, valMarker);
  }

 private:
  clsTexto& counted() {
    ++calls;
    return *standIn_;
  }

  Ref<LibTarvoCI::clsTexto> standIn_ = make<LibTarvoCI::clsTexto>();
};

class AskedDate final : public clsUtilDate {
 public:
  Date fToday() override { return standIn_->fToday(); }
  void fTimeText(Text& result) override { standIn_->fTimeText(result); }
  void fFormatDate(Date valDate, TextView valFormat, Text& result) override {
    standIn_->fFormatDate(valDate, valFormat, result);
  }
  void fDefaultDateText(Date valDate, Text& result) override {
    standIn_->fDefaultDateText(valDate, result);
  }
  std::int16_t fYear(Date valDate) override { return standIn_->fYear(valDate); }

 private:
  Ref<LibTarvoCI::clsUtilDate> standIn_ = make<LibTarvoCI::clsUtilDate>();
};

}  // namespace tarvo::test
