// The operations of the core services, in interface order: the interfaces of the core library's
// objects, and the names under which any other object is called as a service.
#pragma once

#include "frame/enums_members.h"
#include "frame/libraries.h"
#include "frame/member_table.h"
#include "frame/services.h"

namespace tarvo {

template <>
struct Members<clsError> {
  static constexpr const LibraryInfo& library = kCoreLibrary;
  static constexpr std::uint16_t number = 1;
  static constexpr const char* name = "clsError";
  static constexpr const char* help = "The error service";
  static constexpr auto table = memberTable(method<&clsError::fDescribeError>(
      "fDescribeError", "gives the new description of a run-time error", "valDescription",
      "valClassName", "valProcedureName", "valModuleDescription", "valKind", "valHelpContext",
      "valHelpFile", "valLastDllError", "valReserved"));
};

template <>
struct Members<clsMessage> {
  static constexpr const LibraryInfo& library = kCoreLibrary;
  static constexpr std::uint16_t number = 2;
  static constexpr const char* name = "clsMessage";
  static constexpr const char* help = "The message service";
  static constexpr auto table = memberTable(
      method<&clsMessage::sShowMessage>("sShowMessage", "shows a message", "refText"),
      method<&clsMessage::sShowMessageWithTitle>(
          "sShowMessageWithTitle", "shows a message with a caption", "valText", "valTitle"),
      method<&clsMessage::sWarning>("sWarning", "shows a warning", "refText"),
      method<&clsMessage::sWarningWithTitle>("sWarningWithTitle", "shows a warning with a caption",
                                             "valText", "valTitle"),
      method<&clsMessage::fAskAcceptCancel>("fAskAcceptCancel", "asks; true when the user accepts",
                                            "valText", "valTitle"),
      method<&clsMessage::fWarnLocation>("fWarnLocation",
                                         "warns of the folder that a library runs from",
                                         "valProjectTitle", "valLocationCode"));
};

template <>
struct Members<clsTexto> {
  static constexpr const LibraryInfo& library = kCoreLibrary;
  static constexpr std::uint16_t number = 3;
  static constexpr const char* name = "clsTexto";
  static constexpr const char* help = "The text service";
  static constexpr auto table = memberTable(
      method<&clsTexto::fPosition>("fPosition", "the position of a text in another, 0 when absent",
                                   "valText", "valSearched", "valStart"),
      method<&clsTexto::fPart>("fPart", "a part of a text; a count of 0 means to the end",
                               "valText", "valStart", "valCount"),
      method<&clsTexto::fLength>("fLength", "the number of characters", "valText"),
      method<&clsTexto::fTrim>("fTrim", "the text without blanks at its ends", "valText"),
      method<&clsTexto::fReplaceAll>("fReplaceAll", "the text with every occurrence replaced",
                                     "valText", "valOld", "valNew"),
      method<&clsTexto::fSplit>("fSplit", "the array of texts between separators", "valText",
                                "valSeparator"),
      method<&clsTexto::fDelete>(
          "fDelete", "the text without the characters from start through start + distance",
          "valText", "valStart", "valDistance"),
      method<&clsTexto::fInsert>("fInsert", "the text with another one at a position", "valText",
                                 "valInserted", "valPosition"),
      method<&clsTexto::fStrip>("fStrip", "the text without a character", "valText",
                                "valCharacter"),
      method<&clsTexto::fRepeat>("fRepeat", "a character, repeated", "valCharacter", "valCount"),
      method<&clsTexto::fAlignLeft>("fAlignLeft", "the text at the left of a width", "valText",
                                    "valWidth"),
      method<&clsTexto::fAlignRight>("fAlignRight", "the text at the right of a width", "valText",
                                     "valWidth"),
      method<&clsTexto::fAlignCenter>("fAlignCenter", "the text in the middle of a width",
                                      "valText", "valWidth"),
      method<&clsTexto::fPadOrCut>("fPadOrCut", "the text, exactly as long as the width", "valText",
                                   "valWidth", "valFill"),
      method<&clsTexto::fLeftMargin>("fLeftMargin", "the text after a margin of blanks", "valText",
                                     "valMargin"),
      method<&clsTexto::fFitToWidth>("fFitToWidth", "the text right-aligned, cut to a width",
                                     "valText", "valWidth"),
      method<&clsTexto::fHolds>("fHolds", "whether the text contains a marker", "valText",
                                "valMarker"));
};

template <>
struct Members<clsConvert> {
  static constexpr const LibraryInfo& library = kCoreLibrary;
  static constexpr std::uint16_t number = 4;
  static constexpr const char* name = "clsConvert";
  static constexpr const char* help = "The conversion service";
  static constexpr auto table = memberTable(
      method<&clsConvert::fFormatNumberDotComma>("fFormatNumberDotComma",
                                                 "a number field such as 1.234,50", "valValue",
                                                 "valWidth", "valDecimals", "valParenthesis"),
      method<&clsConvert::fFormatNumberCommaDot>("fFormatNumberCommaDot",
                                                 "a number field such as 1,234.50", "valValue",
                                                 "valWidth", "valDecimals", "valParenthesis"),
      method<&clsConvert::fNumberToText>("fNumberToText", "a number as plain decimal text",
                                         "valNumber"),
      method<&clsConvert::fTextToNumber>("fTextToNumber", "the number that a text begins with",
                                         "valText"),
      method<&clsConvert::fIsNumeric>("fIsNumeric", "whether a text is a number", "valText"),
      method<&clsConvert::fTextToByte>("fTextToByte", "a text as an unsigned 8-bit number",
                                       "valText"),
      method<&clsConvert::fTextToInteger>("fTextToInteger", "a text as a 16-bit number", "valText"),
      method<&clsConvert::fBooleanToText>("fBooleanToText", "S or N", "valValue"),
      method<&clsConvert::fDateToText>("fDateToText", "a date as dd/mm/yyyy", "valDate"),
      method<&clsConvert::fReportWidth>("fReportWidth", "the width of a report", "valLength",
                                        "valCode"));
};

template <>
struct Members<clsUtilDate> {
  static constexpr const LibraryInfo& library = kCoreLibrary;
  static constexpr std::uint16_t number = 5;
  static constexpr const char* name = "clsUtilDate";
  static constexpr const char* help = "The date service";
  static constexpr auto table = memberTable(
      method<&clsUtilDate::fToday>("fToday", "today's date"),
      method<&clsUtilDate::fTimeText>("fTimeText", "the time as HH:MM:SS"),
      method<&clsUtilDate::fFormatDate>("fFormatDate", "a date by a format", "valDate",
                                        "valFormat"),
      method<&clsUtilDate::fDefaultDateText>("fDefaultDateText", "a date as dd/mm/yyyy", "valDate"),
      method<&clsUtilDate::fYear>("fYear", "the year of a date", "valDate"));
};

template <>
struct Members<clsUtilMathOperations> {
  static constexpr const LibraryInfo& library = kCoreLibrary;
  static constexpr std::uint16_t number = 6;
  static constexpr const char* name = "clsUtilMathOperations";
  static constexpr const char* help = "The math service";
  static constexpr auto table = memberTable(method<&clsUtilMathOperations::fRound>(
      "fRound", "an amount rounded half away from zero", "valValue", "valDecimals"));
};

template <>
struct Members<clsUtilFile> {
  static constexpr const LibraryInfo& library = kCoreLibrary;
  static constexpr std::uint16_t number = 7;
  static constexpr const char* name = "clsUtilFile";
  static constexpr const char* help = "The file service";
  static constexpr auto table = memberTable(
      method<&clsUtilFile::fFileExists>("fFileExists", "whether a file exists", "valPath"));
};

template <>
struct Members<clsApi> {
  static constexpr const LibraryInfo& library = kCoreLibrary;
  static constexpr std::uint16_t number = 8;
  static constexpr const char* name = "clsApi";
  static constexpr const char* help = "The platform-call service";
  static constexpr auto table = memberTable(
      method<&clsApi::fFormKey>("fFormKey", "whether the key of a form was handled", "refForm",
                                "valKeyCode", "valShift"),
      method<&clsApi::sPressButton>("sPressButton", "raises a button's click", "refButton"),
      method<&clsApi::fWidthForItems>("fWidthForItems", "the width that a control's items need",
                                      "refControl"),
      method<&clsApi::sAdjustDropDown>("sAdjustDropDown", "adjusts a control's list",
                                       "refControl"));
};

template <>
struct Members<clsUtReport> {
  static constexpr const LibraryInfo& library = kCoreLibrary;
  static constexpr std::uint16_t number = 9;
  static constexpr const char* name = "clsUtReport";
  static constexpr const char* help = "The report utility";
  static constexpr auto table = memberTable(
      method<&clsUtReport::fLoadLayout>("fLoadLayout",
                                        "loads a report layout; a text that identifies it",
                                        "valLayoutName", "valReportTitle"),
      method<&clsUtReport::fApplyLayout>("fApplyLayout", "applies a layout to a report",
                                         "refReport", "valLayout"),
      method<&clsUtReport::sBindText>("sBindText", "binds a text box to a column", "refReport",
                                      "valControlName", "valColumnName", "valWidth"),
      method<&clsUtReport::sSetFont>("sSetFont", "sets the font of a control", "refReport",
                                     "valControlName", "valFontName", "valSize", "valBold",
                                     "valItalic"),
      method<&clsUtReport::sRunReport>("sRunReport", "shows, prints or saves a report", "refReport",
                                       "valToPrinter", "valReportTitle", "valModal",
                                       "valPrinterName", "valDevice", "valOption1", "valOption2"));
};

template <>
struct Members<clsVersionRegistry> {
  static constexpr const LibraryInfo& library = kCoreLibrary;
  static constexpr std::uint16_t number = 10;
  static constexpr const char* name = "clsVersionRegistry";
  static constexpr const char* help = "The version registry";
  static constexpr auto table = memberTable(method<&clsVersionRegistry::sRegisterVersion>(
      "sRegisterVersion", "keeps the version text of a library", "refVersion"));
};

template <>
struct Members<clsDefGen> {
  static constexpr const LibraryInfo& library = kCoreLibrary;
  static constexpr std::uint16_t number = 11;
  static constexpr const char* name = "clsDefGen";
  static constexpr const char* help = "Kept for the client";
  static constexpr auto table = memberTable();
};

template <>
struct Members<clsErrorCodesIG> {
  static constexpr const LibraryInfo& library = kCoreLibrary;
  static constexpr std::uint16_t number = 12;
  static constexpr const char* name = "clsErrorCodesIG";
  static constexpr const char* help = "Kept for the client";
  static constexpr auto table = memberTable();
};

using CoreServiceClasses =
    ClassList<clsError, clsMessage, clsTexto, clsConvert, clsUtilDate, clsUtilMathOperations,
              clsUtilFile, clsApi, clsUtReport, clsVersionRegistry, clsDefGen, clsErrorCodesIG>;

}  // namespace tarvo
