#include "equipment/recording_services.h"

#include "equipment/show_arguments.h"

namespace tarvo::test {
namespace {

template <class... Arguments>
void recordCall(CallLog& log, Fault& fault, const char* operation, const Arguments&... arguments) {
  std::string line = operation;
  if constexpr (sizeof...(arguments) > 0) line += " " + showArguments(arguments...);
  log.add(std::move(line));
  fault.countCall();
}

}  // namespace

template <class... Arguments>
clsTexto& RecordingTexto::record(const char* operation, const Arguments&... arguments) {
  recordCall(log_, fault, operation, arguments...);
  return *next_;
}

std::int32_t RecordingTexto::fPosition(TextView valText, TextView valSearched,
                                       std::int32_t valStart) {
  return record("clsTexto.fPosition", valText, valSearched, valStart)
      .fPosition(valText, valSearched, valStart);
}
void RecordingTexto::fPart(TextView valText, std::int32_t valStart, std::int32_t valCount,
                           Text& result) {
  record("clsTexto.fPart", valText, valStart, valCount).fPart(valText, valStart, valCount, result);
}
std::int32_t RecordingTexto::fLength(TextView valText) {
  return record("clsTexto.fLength", valText).fLength(valText);
}
void RecordingTexto::fTrim(TextView valText, Text& result) {
  record("clsTexto.fTrim", valText).fTrim(valText, result);
}
void RecordingTexto::fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) {
  record("clsTexto.fReplaceAll", valText, valOld, valNew)
      .fReplaceAll(valText, valOld, valNew, result);
}
void RecordingTexto::fSplit(TextView valText, TextView valSeparator, TextList& result) {
  record("clsTexto.fSplit", valText, valSeparator).fSplit(valText, valSeparator, result);
}
void RecordingTexto::fDelete(TextView valText, std::int32_t valStart, std::int32_t valDistance,
                             Text& result) {
  record("clsTexto.fDelete", valText, valStart, valDistance)
      .fDelete(valText, valStart, valDistance, result);
}
void RecordingTexto::fInsert(TextView valText, TextView valInserted, std::int32_t valPosition,
                             Text& result) {
  record("clsTexto.fInsert", valText, valInserted, valPosition)
      .fInsert(valText, valInserted, valPosition, result);
}
void RecordingTexto::fStrip(TextView valText, TextView valCharacter, Text& result) {
  record("clsTexto.fStrip", valText, valCharacter).fStrip(valText, valCharacter, result);
}
void RecordingTexto::fRepeat(TextView valCharacter, std::int32_t valCount, Text& result) {
  record("clsTexto.fRepeat", valCharacter, valCount).fRepeat(valCharacter, valCount, result);
}
void RecordingTexto::fAlignLeft(TextView valText, std::int32_t valWidth, Text& result) {
  record("clsTexto.fAlignLeft", valText, valWidth).fAlignLeft(valText, valWidth, result);
}
void RecordingTexto::fAlignRight(TextView valText, std::int32_t valWidth, Text& result) {
  record("clsTexto.fAlignRight", valText, valWidth).fAlignRight(valText, valWidth, result);
}
void RecordingTexto::fAlignCenter(TextView valText, std::int32_t valWidth, Text& result) {
  record("clsTexto.fAlignCenter", valText, valWidth).fAlignCenter(valText, valWidth, result);
}
void RecordingTexto::fPadOrCut(TextView valText, std::int32_t valWidth, TextView valFill,
                               Text& result) {
  record("clsTexto.fPadOrCut", valText, valWidth, valFill)
      .fPadOrCut(valText, valWidth, valFill, result);
}
void RecordingTexto::fLeftMargin(TextView valText, std::uint8_t valMargin, Text& result) {
  record("clsTexto.fLeftMargin", valText, valMargin).fLeftMargin(valText, valMargin, result);
}
void RecordingTexto::fFitToWidth(TextView valText, std::uint8_t valWidth, Text& result) {
  record("clsTexto.fFitToWidth", valText, valWidth).fFitToWidth(valText, valWidth, result);
}
bool RecordingTexto::fHolds(TextView valText, TextView valMarker) {
  return record("clsTexto.fHolds", valText, valMarker).fHolds(valText, valMarker);
}

template <class... Arguments>
clsConvert& RecordingConvert::record(const char* operation, const Arguments&... arguments) {
  recordCall(log_, fault, operation, arguments...);
  return *next_;
}

void RecordingConvert::fFormatNumberDotComma(Currency valValue, std::int16_t valWidth,
                                             std::int16_t valDecimals, bool valParenthesis,
                                             Text& result) {
  record("clsConvert.fFormatNumberDotComma", valValue, valWidth, valDecimals, valParenthesis)
      .fFormatNumberDotComma(valValue, valWidth, valDecimals, valParenthesis, result);
}
void RecordingConvert::fFormatNumberCommaDot(Currency valValue, std::int16_t valWidth,
                                             std::int16_t valDecimals, bool valParenthesis,
                                             Text& result) {
  record("clsConvert.fFormatNumberCommaDot", valValue, valWidth, valDecimals, valParenthesis)
      .fFormatNumberCommaDot(valValue, valWidth, valDecimals, valParenthesis, result);
}
void RecordingConvert::fNumberToText(const Value& valNumber, Text& result) {
  record("clsConvert.fNumberToText", valNumber).fNumberToText(valNumber, result);
}
double RecordingConvert::fTextToNumber(TextView valText) {
  return record("clsConvert.fTextToNumber", valText).fTextToNumber(valText);
}
bool RecordingConvert::fIsNumeric(TextView valText) {
  return record("clsConvert.fIsNumeric", valText).fIsNumeric(valText);
}
std::uint8_t RecordingConvert::fTextToByte(TextView valText) {
  return record("clsConvert.fTextToByte", valText).fTextToByte(valText);
}
std::int16_t RecordingConvert::fTextToInteger(TextView valText) {
  return record("clsConvert.fTextToInteger", valText).fTextToInteger(valText);
}
void RecordingConvert::fBooleanToText(bool valValue, Text& result) {
  record("clsConvert.fBooleanToText", valValue).fBooleanToText(valValue, result);
}
void RecordingConvert::fDateToText(Date valDate, Text& result) {
  record("clsConvert.fDateToText", valDate).fDateToText(valDate, result);
}
std::int32_t RecordingConvert::fReportWidth(std::int32_t valLength, std::int16_t valCode) {
  return record("clsConvert.fReportWidth", valLength, valCode).fReportWidth(valLength, valCode);
}

template <class... Arguments>
clsUtilDate& RecordingDate::record(const char* operation, const Arguments&... arguments) {
  recordCall(log_, fault, operation, arguments...);
  return *next_;
}

Date RecordingDate::fToday() { return record("clsUtilDate.fToday").fToday(); }
void RecordingDate::fTimeText(Text& result) { record("clsUtilDate.fTimeText").fTimeText(result); }
void RecordingDate::fFormatDate(Date valDate, TextView valFormat, Text& result) {
  record("clsUtilDate.fFormatDate", valDate, valFormat).fFormatDate(valDate, valFormat, result);
}
void RecordingDate::fDefaultDateText(Date valDate, Text& result) {
  record("clsUtilDate.fDefaultDateText", valDate).fDefaultDateText(valDate, result);
}
std::int16_t RecordingDate::fYear(Date valDate) {
  return record("clsUtilDate.fYear", valDate).fYear(valDate);
}

Currency RecordingMath::fRound(Currency valValue, std::int16_t valDecimals) {
  recordCall(log_, fault, "clsUtilMathOperations.fRound", valValue, valDecimals);
  return next_->fRound(valValue, valDecimals);
}

template <class... Arguments>
void RecordingMessage::record(const char* operation, const Arguments&... arguments) {
  recordCall(log_, fault, operation, arguments...);
}

void RecordingMessage::sShowMessage(Text& refText) {
  record("clsMessage.sShowMessage", TextView(refText));
}
void RecordingMessage::sShowMessageWithTitle(TextView valText, TextView valTitle) {
  record("clsMessage.sShowMessageWithTitle", valText, valTitle);
}
void RecordingMessage::sWarning(Text& refText) { record("clsMessage.sWarning", TextView(refText)); }
void RecordingMessage::sWarningWithTitle(TextView valText, TextView valTitle) {
  record("clsMessage.sWarningWithTitle", valText, valTitle);
}
bool RecordingMessage::fAskAcceptCancel(TextView valText, TextView valTitle) {
  record("clsMessage.fAskAcceptCancel", valText, valTitle);
  return accepts;
}
bool RecordingMessage::fWarnLocation(TextView valProjectTitle, std::int16_t valLocationCode) {
  record("clsMessage.fWarnLocation", valProjectTitle, valLocationCode);
  return accepts;
}

std::string RecordingError::trail() const {
  std::string all;
  for (const Report& report : reports) {
    all += (all.empty() ? "" : " ") + toUtf8(report.procedure);
  }
  return all;
}

void RecordingError::fDescribeError(TextView valDescription, TextView valClassName,
                                    TextView valProcedureName, TextView valModuleDescription,
                                    std::int16_t valKind, std::int32_t valHelpContext,
                                    TextView valHelpFile, std::int32_t valLastDllError,
                                    std::int32_t valReserved, Text& result) {
  reports.push_back({Text(valDescription), Text(valClassName), Text(valProcedureName),
                     Text(valModuleDescription), valKind, valHelpContext, Text(valHelpFile),
                     valLastDllError, valReserved});
  recordCall(log_, fault, "clsError.fDescribeError", valDescription, valClassName, valProcedureName,
             valModuleDescription, valKind, valHelpContext, valHelpFile, valLastDllError,
             valReserved);
  result.assign(valDescription).append(u" < ").append(valProcedureName);
}

}  // namespace tarvo::test
