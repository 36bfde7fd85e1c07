// The services of the core library, by role.
//
// The core library is a separate component; this library calls its services through these contracts
// and never makes one itself (but for the version registry).  The program hands them over once per
// thread, see clsInitLibTarvoRpd.h.  A stand-in for each ships beside the library (services/).
//
// Rules for all: texts are counted and never cut at character 0; positions count from 1, 0 means
// "not found"; an operation that gives a text replaces `result` by it, and `result` must not be the
// storage that an argument looks into.  `ref` arguments may come back changed.
//
// Threads: the client's.  Raises: whatever the implementation raises; it travels to the client.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "frame/currency.h"
#include "frame/date.h"
#include "frame/enums.h"
#include "frame/object.h"
#include "frame/text.h"
#include "frame/value.h"

namespace tarvo {

// The error service: asked for a new description by every procedure that an error passes.
class clsError : public Object {
 public:
  // `valModuleDescription`: of the class.  `valKind`: 1 form, 2 class.  `valReserved`: always 0.
  virtual void fDescribeError(TextView valDescription, TextView valClassName,
                              TextView valProcedureName, TextView valModuleDescription,
                              std::int16_t valKind, std::int32_t valHelpContext,
                              TextView valHelpFile, std::int32_t valLastDllError,
                              std::int32_t valReserved, Text& result) = 0;
};

// The message service: what the operator sees.
class clsMessage : public Object {
 public:
  virtual void sShowMessage(Text& refText) = 0;
  virtual void sShowMessageWithTitle(TextView valText, TextView valTitle) = 0;
  virtual void sWarning(Text& refText) = 0;
  virtual void sWarningWithTitle(TextView valText, TextView valTitle) = 0;
  // True when the operator accepted.
  virtual bool fAskAcceptCancel(TextView valText, TextView valTitle) = 0;
  // `valLocationCode`: 2 a backup folder, 1 a test folder.
  virtual bool fWarnLocation(TextView valProjectTitle, std::int16_t valLocationCode) = 0;
};

// The text service.
class clsTexto : public Object {
 public:
  virtual std::int32_t fPosition(TextView valText, TextView valSearched, std::int32_t valStart) = 0;
  // A count of 0 means to the end.
  virtual void fPart(TextView valText, std::int32_t valStart, std::int32_t valCount,
                     Text& result) = 0;
  virtual std::int32_t fLength(TextView valText) = 0;
  virtual void fTrim(TextView valText, Text& result) = 0;
  virtual void fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) = 0;
  virtual void fSplit(TextView valText, TextView valSeparator, TextList& result) = 0;
  // The characters from valStart through valStart + valDistance, both included, go.
  virtual void fDelete(TextView valText, std::int32_t valStart, std::int32_t valDistance,
                       Text& result) = 0;
  virtual void fInsert(TextView valText, TextView valInserted, std::int32_t valPosition,
                       Text& result) = 0;
  virtual void fStrip(TextView valText, TextView valCharacter, Text& result) = 0;
  virtual void fRepeat(TextView valCharacter, std::int32_t valCount, Text& result) = 0;
  virtual void fAlignLeft(TextView valText, std::int32_t valWidth, Text& result) = 0;
  virtual void fAlignRight(TextView valText, std::int32_t valWidth, Text& result) = 0;
  virtual void fAlignCenter(TextView valText, std::int32_t valWidth, Text& result) = 0;
  virtual void fPadOrCut(TextView valText, std::int32_t valWidth, TextView valFill,
                         Text& result) = 0;
  virtual void fLeftMargin(TextView valText, std::uint8_t valMargin, Text& result) = 0;
  virtual void fFitToWidth(TextView valText, std::uint8_t valWidth, Text& result) = 0;
  virtual bool fHolds(TextView valText, TextView valMarker) = 0;

  // One replacement of a list.
  struct Replacement {
    TextView oldText;
    TextView newText;
  };

  // The replacements of the list, one after the other, each as fReplaceAll does it.  Not an
  // operation of the core library: this default calls fReplaceAll for each, so whoever supplies or
  // watches the service sees every one; a service in the same program may do the work in one pass.
  virtual void replaceEach(TextView text, std::span<const Replacement> replacements, Text& result);
};

// The conversion service.
class clsConvert : public Object {
 public:
  // "." between thousands and "," before decimals, right-aligned in the width; 0 means no width.
  virtual void fFormatNumberDotComma(Currency valValue, std::int16_t valWidth,
                                     std::int16_t valDecimals, bool valParenthesis,
                                     Text& result) = 0;
  // The same with the marks exchanged.
  virtual void fFormatNumberCommaDot(Currency valValue, std::int16_t valWidth,
                                     std::int16_t valDecimals, bool valParenthesis,
                                     Text& result) = 0;
  virtual void fNumberToText(const Value& valNumber, Text& result) = 0;
  virtual double fTextToNumber(TextView valText) = 0;
  virtual bool fIsNumeric(TextView valText) = 0;
  // Raises (the stand-in): 13 for a text that is no number, 6 for one that does not fit.
  virtual std::uint8_t fTextToByte(TextView valText) = 0;
  virtual std::int16_t fTextToInteger(TextView valText) = 0;
  virtual void fBooleanToText(bool valValue, Text& result) = 0;
  virtual void fDateToText(Date valDate, Text& result) = 0;
  virtual std::int32_t fReportWidth(std::int32_t valLength, std::int16_t valCode) = 0;
};

// The date service.
class clsUtilDate : public Object {
 public:
  virtual Date fToday() = 0;
  virtual void fTimeText(Text& result) = 0;
  virtual void fFormatDate(Date valDate, TextView valFormat, Text& result) = 0;
  virtual void fDefaultDateText(Date valDate, Text& result) = 0;
  virtual std::int16_t fYear(Date valDate) = 0;
};

// The math service.
class clsUtilMathOperations : public Object {
 public:
  virtual Currency fRound(Currency valValue, std::int16_t valDecimals) = 0;
};

// The file service.
class clsUtilFile : public Object {
 public:
  virtual bool fFileExists(TextView valPath) = 0;
};

// The platform-call service: keys of a form, list controls.
class clsApi : public Object {
 public:
  // True when the service handled the key.
  virtual bool fFormKey(Ref<Object>& refForm, std::int16_t valKeyCode, std::int16_t valShift) = 0;
  virtual void sPressButton(Ref<Object>& refButton) = 0;
  // In the control's own units, from its longest item.
  virtual std::int32_t fWidthForItems(Ref<Object>& refControl) = 0;
  virtual void sAdjustDropDown(Ref<Object>& refControl) = 0;
};

// The report utility: how a page report gets its layout and leaves.
class clsUtReport : public Object {
 public:
  // A text that identifies the loaded layout.
  virtual void fLoadLayout(TextView valLayoutName, TextView valReportTitle, Text& result) = 0;
  virtual bool fApplyLayout(Ref<Object>& refReport, TextView valLayout) = 0;
  // `valWidth` in twips; 0 leaves the width.
  virtual void sBindText(Ref<Object>& refReport, TextView valControlName, TextView valColumnName,
                         std::int32_t valWidth) = 0;
  // `valSize` in points.
  virtual void sSetFont(Ref<Object>& refReport, TextView valControlName, TextView valFontName,
                        std::int16_t valSize, bool valBold, bool valItalic) = 0;
  virtual void sRunReport(Ref<Object>& refReport, bool valToPrinter, TextView valReportTitle,
                          bool valModal, TextView valPrinterName, ePrintingDevice valDevice,
                          TextView valOption1, TextView valOption2) = 0;
};

// The version registry: where each library of the family announces its version.
class clsVersionRegistry : public Object {
 public:
  virtual void sRegisterVersion(Text& refVersion) = 0;
};

// Kept for the client; no part of this library calls them.
class clsDefGen : public Object {};
class clsErrorCodesIG : public Object {};

}  // namespace tarvo
