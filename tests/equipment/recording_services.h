// The core services as tests need them: they write down every call with its exact arguments, hand
// it on to the service behind them, and can be made to raise an error at their nth call.
//
//   CallLog log;
//   auto texto = make<RecordingTexto>(log, standIn);
//   texto->fault.raiseAt(3, kOverflow);
//
// A line of the log is "clsTexto.fLeftMargin \"Total\", 2"; see inQuotes() for the texts.  A call
// that raises is in the log as well, and does not reach the service behind.
#pragma once

#include <string>
#include <vector>

#include "equipment/call_log.h"
#include "frame/services.h"

namespace tarvo::test {

// Leaves clsTexto::replaceEach as it is, so that every replacement shows as a call.
class RecordingTexto final : public clsTexto {
 public:
  RecordingTexto(CallLog& log, Ref<clsTexto> next) : log_(log), next_(std::move(next)) {}

  Fault fault;

  std::int32_t fPosition(TextView valText, TextView valSearched, std::int32_t valStart) override;
  void fPart(TextView valText, std::int32_t valStart, std::int32_t valCount, Text& result) override;
  std::int32_t fLength(TextView valText) override;
  void fTrim(TextView valText, Text& result) override;
  void fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) override;
  void fSplit(TextView valText, TextView valSeparator, TextList& result) override;
  void fDelete(TextView valText, std::int32_t valStart, std::int32_t valDistance,
               Text& result) override;
  void fInsert(TextView valText, TextView valInserted, std::int32_t valPosition,
               Text& result) override;
  void fStrip(TextView valText, TextView valCharacter, Text& result) override;
  void fRepeat(TextView valCharacter, std::int32_t valCount, Text& result) override;
  void fAlignLeft(TextView valText, std::int32_t valWidth, Text& result) override;
  void fAlignRight(TextView valText, std::int32_t valWidth, Text& result) override;
  void fAlignCenter(TextView valText, std::int32_t valWidth, Text& result) override;
  void fPadOrCut(TextView valText, std::int32_t valWidth, TextView valFill, Text& result) override;
  void fLeftMargin(TextView valText, std::uint8_t valMargin, Text& result) override;
  void fFitToWidth(TextView valText, std::uint8_t valWidth, Text& result) override;
  bool fHolds(TextView valText, TextView valMarker) override;

 private:
  template <class... Arguments>
  clsTexto& record(const char* operation, const Arguments&... arguments);

  CallLog& log_;
  Ref<clsTexto> next_;
};

// A number's line names its kind: "clsConvert.fNumberToText int16 7".
class RecordingConvert final : public clsConvert {
 public:
  RecordingConvert(CallLog& log, Ref<clsConvert> next) : log_(log), next_(std::move(next)) {}

  Fault fault;

  void fFormatNumberDotComma(Currency valValue, std::int16_t valWidth, std::int16_t valDecimals,
                             bool valParenthesis, Text& result) override;
  void fFormatNumberCommaDot(Currency valValue, std::int16_t valWidth, std::int16_t valDecimals,
                             bool valParenthesis, Text& result) override;
  void fNumberToText(const Value& valNumber, Text& result) override;
  double fTextToNumber(TextView valText) override;
  bool fIsNumeric(TextView valText) override;
  std::uint8_t fTextToByte(TextView valText) override;
  std::int16_t fTextToInteger(TextView valText) override;
  void fBooleanToText(bool valValue, Text& result) override;
  void fDateToText(Date valDate, Text& result) override;
  std::int32_t fReportWidth(std::int32_t valLength, std::int16_t valCode) override;

 private:
  template <class... Arguments>
  clsConvert& record(const char* operation, const Arguments&... arguments);

  CallLog& log_;
  Ref<clsConvert> next_;
};

// "clsUtilDate.fFormatDate day 35868, \"dd/mm\""; an operation without arguments is its name alone.
class RecordingDate final : public clsUtilDate {
 public:
  RecordingDate(CallLog& log, Ref<clsUtilDate> next) : log_(log), next_(std::move(next)) {}

  Fault fault;

  Date fToday() override;
  void fTimeText(Text& result) override;
  void fFormatDate(Date valDate, TextView valFormat, Text& result) override;
  void fDefaultDateText(Date valDate, Text& result) override;
  std::int16_t fYear(Date valDate) override;

 private:
  template <class... Arguments>
  clsUtilDate& record(const char* operation, const Arguments&... arguments);

  CallLog& log_;
  Ref<clsUtilDate> next_;
};

// "clsUtilMathOperations.fRound 12500/10000, 0"
class RecordingMath final : public clsUtilMathOperations {
 public:
  RecordingMath(CallLog& log, Ref<clsUtilMathOperations> next)
      : log_(log), next_(std::move(next)) {}

  Fault fault;

  Currency fRound(Currency valValue, std::int16_t valDecimals) override;

 private:
  CallLog& log_;
  Ref<clsUtilMathOperations> next_;
};

// The operator of a test: reads every message and answers every question.
class RecordingMessage final : public clsMessage {
 public:
  explicit RecordingMessage(CallLog& log) : log_(log) {}

  Fault fault;
  bool accepts = true;  // the answer to every question

  void sShowMessage(Text& refText) override;
  void sShowMessageWithTitle(TextView valText, TextView valTitle) override;
  void sWarning(Text& refText) override;
  void sWarningWithTitle(TextView valText, TextView valTitle) override;
  bool fAskAcceptCancel(TextView valText, TextView valTitle) override;
  bool fWarnLocation(TextView valProjectTitle, std::int16_t valLocationCode) override;

 private:
  template <class... Arguments>
  void record(const char* operation, const Arguments&... arguments);

  CallLog& log_;
};

// Keeps every report.  The description that it gives back is the old one and " < PROCEDURE".
class RecordingError final : public clsError {
 public:
  explicit RecordingError(CallLog& log) : log_(log) {}

  Fault fault;

  struct Report {
    Text description;
    Text className;
    Text procedure;
    Text module;
    std::int16_t kind;
    std::int32_t helpContext;
    Text helpFile;
    std::int32_t lastDllError;
    std::int32_t reserved;
  };
  std::vector<Report> reports;

  // The procedures that reported, innermost first: "fReplaceInvalidChars sWriteToFileHandle
  // sWrite".
  std::string trail() const;

  void fDescribeError(TextView valDescription, TextView valClassName, TextView valProcedureName,
                      TextView valModuleDescription, std::int16_t valKind,
                      std::int32_t valHelpContext, TextView valHelpFile,
                      std::int32_t valLastDllError, std::int32_t valReserved,
                      Text& result) override;

 private:
  CallLog& log_;
};

}  // namespace tarvo::test
