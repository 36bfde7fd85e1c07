// One of each service that does nothing and answers nothing, for tests that only ask which object
// is where and how long it lives.
#pragma once

#include "frame/services.h"

namespace tarvo::test {

class SilentError : public clsError {
 public:
  void fDescribeError(TextView, TextView, TextView, TextView, std::int16_t, std::int32_t, TextView,
                      std::int32_t, std::int32_t, Text&) override {}
};

class SilentMessage : public clsMessage {
 public:
  void sShowMessage(Text&) override {}
  void sShowMessageWithTitle(TextView, TextView) override {}
  void sWarning(Text&) override {}
  void sWarningWithTitle(TextView, TextView) override {}
  bool fAskAcceptCancel(TextView, TextView) override { return false; }
  bool fWarnLocation(TextView, std::int16_t) override { return false; }
};

class SilentTexto : public clsTexto {
 public:
  std::int32_t fPosition(TextView, TextView, std::int32_t) override { return 0; }
  void fPart(TextView, std::int32_t, std::int32_t, Text&) override {}
  std::int32_t fLength(TextView) override { return 0; }
  void fTrim(TextView, Text&) override {}
  void fReplaceAll(TextView, TextView, TextView, Text&) override {}
  void fSplit(TextView, TextView, TextList&) override {}
  void fDelete(TextView, std::int32_t, std::int32_t, Text&) override {}
  void fInsert(TextView, TextView, std::int32_t, Text&) override {}
  void fStrip(TextView, TextView, Text&) override {}
  void fRepeat(TextView, std::int32_t, Text&) override {}
  void fAlignLeft(TextView, std::int32_t, Text&) override {}
  void fAlignRight(TextView, std::int32_t, Text&) override {}
  void fAlignCenter(TextView, std::int32_t, Text&) override {}
  void fPadOrCut(TextView, std::int32_t, TextView, Text&) override {}
  void fLeftMargin(TextView, std::uint8_t, Text&) override {}
  void fFitToWidth(TextView, std::uint8_t, Text&) override {}
  bool fHolds(TextView, TextView) override { return false; }
};

class SilentConvert : public clsConvert {
 public:
  void fFormatNumberDotComma(Currency, std::int16_t, std::int16_t, bool, Text&) override {}
  void fFormatNumberCommaDot(Currency, std::int16_t, std::int16_t, bool, Text&) override {}
  void fNumberToText(const Value&, Text&) override {}
  double fTextToNumber(TextView) override { return 0; }
  bool fIsNumeric(TextView) override { return false; }
  std::uint8_t fTextToByte(TextView) override { return 0; }
  std::int16_t fTextToInteger(TextView) override { return 0; }
  void fBooleanToText(bool, Text&) override {}
  void fDateToText(Date, Text&) override {}
  std::int32_t fReportWidth(std::int32_t, std::int16_t) override { return 0; }
};

class SilentUtilDate : public clsUtilDate {
 public:
  Date fToday() override { return {}; }
  void fTimeText(Text&) override {}
  void fFormatDate(Date, TextView, Text&) override {}
  void fDefaultDateText(Date, Text&) override {}
  std::int16_t fYear(Date) override { return 0; }
};

class SilentUtilMathOperations : public clsUtilMathOperations {
 public:
  Currency fRound(Currency, std::int16_t) override { return {}; }
};

class SilentUtilFile : public clsUtilFile {
 public:
  bool fFileExists(TextView) override { return false; }
};

class SilentApi : public clsApi {
 public:
  bool fFormKey(Ref<Object>&, std::int16_t, std::int16_t) override { return false; }
  void sPressButton(Ref<Object>&) override {}
  std::int32_t fWidthForItems(Ref<Object>&) override { return 0; }
  void sAdjustDropDown(Ref<Object>&) override {}
};

class SilentUtReport : public clsUtReport {
 public:
  void fLoadLayout(TextView, TextView, Text&) override {}
  bool fApplyLayout(Ref<Object>&, TextView) override { return false; }
  void sBindText(Ref<Object>&, TextView, TextView, std::int32_t) override {}
  void sSetFont(Ref<Object>&, TextView, TextView, std::int16_t, bool, bool) override {}
  void sRunReport(Ref<Object>&, bool, TextView, bool, TextView, ePrintingDevice, TextView,
                  TextView) override {}
};

}  // namespace tarvo::test
