// The services of the core library, by role.
//
// The core library is a separate component; this library calls its services through these contracts
// and never makes one itself (but for the version registry).  The program hands them over once per
// thread, see clsInitLibTarvoRpd.h.
//
// What is said of an operation holds for every implementation.  "Stand-in:" marks what those that
// ship beside the library do and another may do otherwise; the library does not count on it.  Their
// own headers (services/) say it in full.
//
// Texts are counted in characters of 16 bits, never cut at character 0, and compared exactly.
// Positions count from 1, 0 means "not found".  Counts and widths are characters, 0 and more.
// "Blank" is character 32 alone.
//
// `val` arguments are values; `ref` arguments may come back changed, but the stand-ins change none.
// An operation that gives a text replaces `result` by it, whatever was in it; `result` must not be
// the storage that an argument looks into.
//
// An operation must not change the library's object for which it is called: the texts that it gets
// are that object's own.  What the text and the conversion service have answered about a template's
// text may be kept as long as they are the same objects.
//
// Threads: the client's.  Raises: whatever the implementation raises, which travels to the client;
// 438 at the call of an operation that a service reached by name does not have.
// Stand-in: 5 for a position below 1 and a negative count, width, distance, number of decimals or
// length; 6 for a position or length past 2,147,483,647; 7 for a result that memory cannot hold.
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
  // Gives the new description.  The class, the procedure and the module are those of the procedure,
  // `valKind` is 1 for a form and 2 for a class; description, help and `valLastDllError` (the
  // system's code of the last platform call) are the error's.  `valReserved` is always 0.
  // Stand-in: the description, CR LF, "   en CLASS.PROCEDURE (MODULE)".
  virtual void fDescribeError(TextView valDescription, TextView valClassName,
                              TextView valProcedureName, TextView valModuleDescription,
                              std::int16_t valKind, std::int32_t valHelpContext,
                              TextView valHelpFile, std::int32_t valLastDllError,
                              std::int32_t valReserved, Text& result) = 0;
};

// The message service: what the operator sees.
// Stand-in: message boxes on Windows, lines on the standard error stream elsewhere.
class clsMessage : public Object {
 public:
  virtual void sShowMessage(Text& refText) = 0;
  virtual void sShowMessageWithTitle(TextView valText, TextView valTitle) = 0;
  virtual void sWarning(Text& refText) = 0;
  virtual void sWarningWithTitle(TextView valText, TextView valTitle) = 0;
  // True when the operator accepted.
  // Stand-in: where nobody can be asked the answer is True.
  virtual bool fAskAcceptCancel(TextView valText, TextView valTitle) = 0;
  // Warns that the library runs from a backup folder (`valLocationCode` 2) or a test folder (1).
  // Stand-in: asks whether to go on, for any code; True when the operator accepts.
  virtual bool fWarnLocation(TextView valProjectTitle, std::int16_t valLocationCode) = 0;
};

// The text service.
class clsTexto : public Object {
 public:
  // Where the searched text first stands at or after the start; 0 when it is absent or empty.
  virtual std::int32_t fPosition(TextView valText, TextView valSearched, std::int32_t valStart) = 0;

  // That many characters from the start, or as many as there are; a count of 0 means to the end.
  // A start past the end gives an empty text.
  virtual void fPart(TextView valText, std::int32_t valStart, std::int32_t valCount,
                     Text& result) = 0;

  virtual std::int32_t fLength(TextView valText) = 0;

  // Without the blanks at both ends.
  virtual void fTrim(TextView valText, Text& result) = 0;

  // Every occurrence replaced, left to right, the inserted text not searched again.  An empty old
  // text changes nothing.
  virtual void fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) = 0;

  // The texts between the separators; empty ones are kept, an empty text gives one empty item.
  // Stand-in: an empty separator gives the whole text as the one item.
  virtual void fSplit(TextView valText, TextView valSeparator, TextList& result) = 0;

  // Without the characters from valStart through valStart + valDistance, both included: a distance
  // of 0 takes one out.
  // Stand-in: a start or a distance past the end is no error.
  virtual void fDelete(TextView valText, std::int32_t valStart, std::int32_t valDistance,
                       Text& result) = 0;

  // The inserted text stands at the position, what was there follows it.  A position past the end
  // appends.
  virtual void fInsert(TextView valText, TextView valInserted, std::int32_t valPosition,
                       Text& result) = 0;

  // Without the character, wherever it stands.  REQUIRES: one character.
  // Stand-in: the first of several counts; an empty one removes nothing.
  virtual void fStrip(TextView valText, TextView valCharacter, Text& result) = 0;

  // The character that many times; 0 gives an empty text.  REQUIRES: one character.
  // Stand-in: the first of several counts; 5 for an empty one.
  virtual void fRepeat(TextView valCharacter, std::int32_t valCount, Text& result) = 0;

  // Alignment fills with blanks up to the width and never cuts: a text longer than the width comes
  // back without the blanks that the alignment takes off, but whole.

  // Blanks behind the text; those before it stay.  But a text that fills the width and has blanks
  // before it and none behind, as a number field has, gets them moved behind it.
  // Stand-in: a longer text first loses the blanks behind it or, having none, those before it.
  virtual void fAlignLeft(TextView valText, std::int32_t valWidth, Text& result) = 0;

  // Blanks behind the text are taken off, then blanks put before it; those before it stay.
  virtual void fAlignRight(TextView valText, std::int32_t valWidth, Text& result) = 0;

  // Blanks at both ends are taken off, then put on both sides, the odd one behind.
  virtual void fAlignCenter(TextView valText, std::int32_t valWidth, Text& result) = 0;

  // Exactly the width: filled on the right with valFill, or cut at its right end.  REQUIRES: one
  // character to fill with.
  // Stand-in: several are repeated in their order; 5 when an empty one is needed.
  virtual void fPadOrCut(TextView valText, std::int32_t valWidth, TextView valFill,
                         Text& result) = 0;

  // That many blanks (0 to 255), then the text as it is.
  virtual void fLeftMargin(TextView valText, std::uint8_t valMargin, Text& result) = 0;

  // Exactly the width (0 to 255): right-aligned, as fAlignRight does it, or cut at its right end.
  virtual void fFitToWidth(TextView valText, std::uint8_t valWidth, Text& result) = 0;

  // Whether the text contains the marker; never true for an empty one.
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

  // Whether the library may do this service's work itself where that is faster.  True only for a
  // service that does exactly what stands here and that nobody watches, and the same for as long as
  // the object lives; not an operation of the core library either.
  virtual bool mayBeBypassed() const noexcept { return false; }
};

// The conversion service.
class clsConvert : public Object {
 public:
  // The amount with "." between thousands and "," before its decimals, which are valDecimals (0 and
  // more), right-aligned in the width.  `valParenthesis`: a negative one between "(" and ")".
  // Stand-in: rounds half away from zero; decimals past the fourth are "0"; "-" stands directly
  // before the first digit.  A width of 0 gives the text alone.  What does not fit loses the marks
  // between thousands; if it still does not fit, the field is all "*".
  virtual void fFormatNumberDotComma(Currency valValue, std::int16_t valWidth,
                                     std::int16_t valDecimals, bool valParenthesis,
                                     Text& result) = 0;
  // The same with the marks exchanged.
  virtual void fFormatNumberCommaDot(Currency valValue, std::int16_t valWidth,
                                     std::int16_t valDecimals, bool valParenthesis,
                                     Text& result) = 0;

  // Plain decimal text: no blanks, nothing between thousands, "," before decimals, no zeros at
  // their end; a double 1 gives "1".
  // Stand-in: takes numeric texts too, Empty is "0"; 13 for any other value, booleans and dates
  // among them, 6 for a double that is infinite or no number.
  virtual void fNumberToText(const Value& valNumber, Text& result) = 0;

  // Blanks at the ends do not matter, "," or "." stands before decimals; 0 for a text without
  // digits.
  // Stand-in: reads the number at the front of the text, 0 when there is none; 6 past the greatest
  // double.
  virtual double fTextToNumber(TextView valText) = 0;

  // Whether the text is a number: an optional sign, digits, optionally one "," or "." and digits;
  // blanks at its ends do not matter.
  virtual bool fIsNumeric(TextView valText) = 0;

  // The number that the text is (0 to 255; -32768 to 32767), a fraction rounded half to even.
  // Raises: 13 when the text is not numeric, 6 when the rounded number does not fit.
  virtual std::uint8_t fTextToByte(TextView valText) = 0;
  virtual std::int16_t fTextToInteger(TextView valText) = 0;

  // "S" or "N".
  virtual void fBooleanToText(bool valValue, Text& result) = 0;

  // dd/mm/yyyy.
  // Stand-in: 6 for a date outside the range (date.h).
  virtual void fDateToText(Date valDate, Text& result) = 0;

  // The width in characters, 0 to 255, of a report whose title columns are `valLength` (0 to 254)
  // characters long; 0 leaves it to the library.  `valCode` is always 3.
  // Stand-in: the length itself, whatever the code.
  virtual std::int32_t fReportWidth(std::int32_t valLength, std::int16_t valCode) = 0;

  // How a number's field is made.
  struct FieldForm {
    std::int16_t decimals = 0;
    bool parenthesis = false;
    bool hasCommaDot = false;  // as fFormatNumberCommaDot does it, else as fFormatNumberDotComma
  };

  // Puts what those two operations give for a width into storage of exactly that width.  Not an
  // operation of the core library: for a service in the same program, and only where it says so.
  // Never raises.  REQUIRES: putsFields(), a width of 1 to 255, 0 to 255 decimals.
  virtual void putField(Currency, const FieldForm&, std::span<char16_t>) noexcept {}
  virtual bool putsFields() const noexcept { return false; }

  // As clsTexto::mayBeBypassed: a call whose result is known already may be left out.
  virtual bool mayBeBypassed() const noexcept { return false; }
};

// The date service.  Now is the local time.
// Stand-in: 6 for a date outside the range (date.h).
class clsUtilDate : public Object {
 public:
  // Today at midnight.
  virtual Date fToday() = 0;

  // The time of now, HH:MM:SS, of 24 hours.
  virtual void fTimeText(Text& result) = 0;

  // The date as the format says; the letters of the format are the implementation's.
  // Stand-in: those of services/date_format.h (d m y h n s AM/PM), with Spanish names.
  virtual void fFormatDate(Date valDate, TextView valFormat, Text& result) = 0;

  // dd/mm/yyyy.
  virtual void fDefaultDateText(Date valDate, Text& result) = 0;

  // Of the calendar, 100 to 9999.
  virtual std::int16_t fYear(Date valDate) = 0;

  // As clsTexto::mayBeBypassed: a call whose result is known already may be left out.
  virtual bool mayBeBypassed() const noexcept { return false; }
};

// The math service.
class clsUtilMathOperations : public Object {
 public:
  // Rounded half away from zero to that many decimals (0 and more).
  // Stand-in: four and more leave the value as it is; 6 when rounding leaves an amount's range.
  virtual Currency fRound(Currency valValue, std::int16_t valDecimals) = 0;

  // As clsTexto::mayBeBypassed: a call whose result is known already may be left out.
  virtual bool mayBeBypassed() const noexcept { return false; }
};

// The file service.
class clsUtilFile : public Object {
 public:
  // Stand-in: false for a folder; never raises.
  virtual bool fFileExists(TextView valPath) = 0;
};

// The platform-call service: keys of a form, list controls.
// Stand-in: reaches controls by the names of their members, see services/clsApi.h; where it needs
// one, 91 for an empty reference and 438 for an object without names.
class clsApi : public Object {
 public:
  // True when the service handled the key.  `valKeyCode` (27 is Esc, 117 is F6) and `valShift` are
  // what the form's key event was given.
  // Stand-in: never.
  virtual bool fFormKey(Ref<Object>& refForm, std::int16_t valKeyCode, std::int16_t valShift) = 0;

  // Raises the button's click.
  virtual void sPressButton(Ref<Object>& refButton) = 0;

  // What the control's "Width" must be for its longest item, in the unit of that property.
  // Stand-in: twips; 13 for an item that is no text, 6 for a width that does not fit.
  virtual std::int32_t fWidthForItems(Ref<Object>& refControl) = 0;

  // What else a drop-down list wants once it is filled.
  // Stand-in: nothing.
  virtual void sAdjustDropDown(Ref<Object>& refControl) = 0;
};

// The report utility: how a page report gets its layout and leaves.
// Stand-in: calls the report by the names of services/clsUtReport.h; 91 for an empty reference and
// 438 for an object without names.
class clsUtReport : public Object {
 public:
  // A text that identifies the loaded layout, for fApplyLayout.
  // Stand-in: an empty one for a layout that it does not know.
  virtual void fLoadLayout(TextView valLayoutName, TextView valReportTitle, Text& result) = 0;

  // True when the report has that layout now.
  // Stand-in: False for an empty text, without asking the report; 13 when the report's answer is
  // neither a boolean nor a number.
  virtual bool fApplyLayout(Ref<Object>& refReport, TextView valLayout) = 0;

  // Makes the text box show that column; `valWidth` in twips, 0 leaves the width as it is.
  virtual void sBindText(Ref<Object>& refReport, TextView valControlName, TextView valColumnName,
                         std::int32_t valWidth) = 0;

  // `valSize` in points.
  virtual void sSetFont(Ref<Object>& refReport, TextView valControlName, TextView valFontName,
                        std::int16_t valSize, bool valBold, bool valItalic) = 0;

  // Shows, prints or saves the report.  `valToPrinter`: whether `valDevice` is the printer.
  // `valModal`: whether a report that is shown is modal.  Both options are empty texts.
  virtual void sRunReport(Ref<Object>& refReport, bool valToPrinter, TextView valReportTitle,
                          bool valModal, TextView valPrinterName, ePrintingDevice valDevice,
                          TextView valOption1, TextView valOption2) = 0;
};

// The version registry: where each library of the family announces its version.
class clsVersionRegistry : public Object {
 public:
  // `refVersion` as fDllVersionText gives it.
  // Stand-in: keeps it for the process, readable back; any thread may call.
  virtual void sRegisterVersion(Text& refVersion) = 0;
};

// Kept for the client; no part of this library calls them.
class clsDefGen : public Object {};
class clsErrorCodesIG : public Object {};

}  // namespace tarvo
