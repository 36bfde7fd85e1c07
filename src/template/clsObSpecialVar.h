// One special variable of a template line: {RECORD.FIELD,ATTRIBUTE,ATTRIBUTE,...}
//
// It lives in three steps.  sExtract() finds the first variable of a line and reads what is written
// between its braces; the client looks at the names and gives the value with one of the
// SetContent... operations; sFormatSpecialVar() makes the text to print.  It knows nothing of the
// line around it but the positions of its braces: see clsObLineCharacts.h.
//
// Positions count from 1; 0 means that there is none.  A width, a number of decimals and an element
// number are bytes: one above 255, and any other number that does not fit its type, is error 6.
//
// Messages: an attribute that nobody knows is shown to the operator, and the rest is read.
//
// Errors: every operation but the accessors follows the convention of trapped.h.  What a failing
// operation had set until then stays set.
//
// Threads: the client's.  One object serves one variable at a time, any number one after the other.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "frame/borrowed.h"
#include "frame/currency.h"
#include "frame/date.h"
#include "frame/enums.h"
#include "frame/modRDPGlobalValues.h"
#include "frame/text.h"
#include "frame/trapped.h"
#include "frame/value.h"
#include "template/parsed_variable.h"
#include "template/parsed_variables.h"
#include "template/settled_value.h"
#include "template/text_key.h"

namespace tarvo {

class clsObLineCharacts;
class TemplateLine;

class clsObSpecialVar final : public TrappedObject {
 public:
  // Default: what sClrObject() sets.
  clsObSpecialVar();
  ~clsObSpecialVar() override;

  // --- What stands between the braces.  The setters keep what they are given: nothing is checked
  // --- or converted.

  // Before sExtract the text to read, afterwards the text between the braces.
  const Text& GetReadText() const noexcept { return names().readText; }
  void SetReadText(TextView valNewValue) { ownNames().readText = valNewValue; }

  // The formatted value: what is printed in the variable's place.
  const Text& GetTextToWrite() const noexcept {
    takeOwedText();
    return textToWrite_;
  }
  void SetTextToWrite(TextView valNewValue) {
    takeOwedText();
    holdsMore_ = true;
    textToWrite_ = valNewValue;
  }

  // The part before the first ".", in the case in which it was written; may be empty.
  const Text& GetRecordName() const noexcept { return names().recordName; }
  void SetRecordName(TextView valNewValue) { ownNames().recordName = valNewValue; }

  // In capitals, but for a name that begins with "@".
  const Text& GetFieldName() const noexcept { return names().fieldName; }
  void SetFieldName(TextView valNewValue) { ownNames().fieldName = valNewValue; }

  // Whether an element number in brackets was written, and the number, 0 to 255.
  bool GetIsFieldOfArray() const noexcept { return a_->isFieldOfArray; }
  void SetIsFieldOfArray(bool valNewValue) noexcept {
    ownAttributes().isFieldOfArray = valNewValue;
  }
  std::uint8_t GetArrayPosition() const noexcept { return a_->arrayPosition; }
  void SetArrayPosition(std::uint8_t valNewValue) noexcept {
    ownAttributes().arrayPosition = valNewValue;
  }

  // --- The value, one for each kind; GetTypeField says which counts.

  const Text& GetContentString() const;
  Currency GetContentNumeric() const noexcept { return contentNumeric_; }
  // Default: 1 January 1900.
  Date GetContentDate() const noexcept { return contentDate_; }
  bool GetContentBool() const noexcept { return contentBool_; }
  const Text& GetContentEnum() const noexcept { return contentEnum_; }

  // --- How the value is laid out.

  bool GetAlignmentWasRead() const noexcept { return a_->alignmentWasRead; }
  void SetAlignmentWasRead(bool valNewValue) noexcept {
    ownAttributes().alignmentWasRead = valNewValue;
  }
  // Default: eAT_Left.
  eAlignmentType GetAlignmentType() const noexcept { return a_->alignmentType; }
  void SetAlignmentType(eAlignmentType valNewValue) noexcept {
    ownAttributes().alignmentType = valNewValue;
  }

  // The kind of the value that was given last.  Default: TFR_String.
  eTypeFieldRecord GetTypeField() const noexcept { return typeField_; }

  // Characters that the value takes; 0: as many as it has.
  std::uint8_t GetLength() const noexcept { return a_->length; }
  void SetLength(std::uint8_t valNewValue) noexcept { ownAttributes().length = valNewValue; }
  // Decimals of a number.
  std::uint8_t GetDecimalPlaces() const noexcept { return a_->decimalPlaces; }
  void SetDecimalPlaces(std::uint8_t valNewValue) noexcept {
    ownAttributes().decimalPlaces = valNewValue;
  }

  // Marks between a number's thousands.  Default: true.
  bool GetPrintComa() const noexcept { return a_->printComa; }
  void SetPrintComa(bool valNewValue) noexcept { ownAttributes().printComa = valNewValue; }
  // False: a number 0 prints as blanks.  Default: true.
  bool GetPrintZero() const noexcept { return a_->printZero; }
  void SetPrintZero(bool valNewValue) noexcept { ownAttributes().printZero = valNewValue; }
  // The value without the blanks around it, narrower than its width.
  bool GetNotSpacesToTheSides() const noexcept { return a_->notSpacesToTheSides; }
  void SetNotSpacesToTheSides(bool valNewValue) noexcept {
    ownAttributes().notSpacesToTheSides = valNewValue;
  }
  // Zeros instead of a number's blanks.
  bool GetFillWithZero() const noexcept { return a_->fillWithZero; }
  void SetFillWithZero(bool valNewValue) noexcept { ownAttributes().fillWithZero = valNewValue; }
  // "," between thousands and "." before decimals, instead of the other way round.
  bool GetSeparatorOfCommasAndDot() const noexcept { return a_->separatorOfCommasAndDot; }
  void SetSeparatorOfCommasAndDot(bool valNewValue) noexcept {
    ownAttributes().separatorOfCommasAndDot = valNewValue;
  }
  // A text of one character is repeated over its width.
  bool GetRepeatCharsUntilFill() const noexcept { return a_->repeatCharsUntilFill; }
  void SetRepeatCharsUntilFill(bool valNewValue) noexcept {
    ownAttributes().repeatCharsUntilFill = valNewValue;
  }

  // The value decides about its line but is not printed itself.
  bool GetVariableToWriteEmpty() const noexcept { return a_->variableToWriteEmpty; }
  void SetVariableToWriteEmpty(bool valNewValue) noexcept {
    ownAttributes().variableToWriteEmpty = valNewValue;
  }
  // An empty value suppresses the line.
  bool GetVariableToApplyCondition() const noexcept { return a_->variableToApplyCondition; }
  void SetVariableToApplyCondition(bool valNewValue) noexcept {
    ownAttributes().variableToApplyCondition = valNewValue;
  }

  // --- Where it stands in its line: the two braces, and the number of characters between them.

  std::int16_t GetPosEnd() const noexcept { return posEnd_; }
  void SetPosEnd(std::int16_t valNewValue) noexcept { posEnd_ = valNewValue; }
  std::int16_t GetPosBegin() const noexcept { return posBegin_; }
  void SetPosBegin(std::int16_t valNewValue) noexcept {
    posBegin_ = valNewValue;
    takenBy_ = nullptr;
  }
  std::int16_t GetSize() const noexcept { return size_; }
  void SetSize(std::int16_t valNewValue) noexcept {
    size_ = valNewValue;
    takenBy_ = nullptr;
  }

  // --- IIF(condition,value,value...): what is printed for an enumeration or a boolean.

  bool GetValueComesInAttrib() const noexcept { return a_->valueComesInAttrib; }
  void SetValueComesInAttrib(bool valNewValue) noexcept {
    ownAttributes().valueComesInAttrib = valNewValue;
  }
  // An array of texts once an IIF was read; sClrObject leaves it as it is.  Default: Empty.
  const Value& GetIifPossibleValues() const noexcept { return iifPossibleValues(); }
  void SetIifPossibleValues(const Value& valNewValue);

  // Whether a second number in brackets, the place of a character in the value, was written.
  bool GetFieldOfArrayHasPositionInsideTheArray() const noexcept {
    return a_->fieldOfArrayHasPositionInsideTheArray;
  }
  void SetFieldOfArrayHasPositionInsideTheArray(bool valNewValue) noexcept {
    ownAttributes().fieldOfArrayHasPositionInsideTheArray = valNewValue;
  }

  // --- What the line and the engines keep here.

  // False: the line that holds the variable is not printed.  Default: true.
  bool GetPrintLine() const noexcept { return printLine_; }
  void SetPrintLine(bool valNewValue) noexcept { printLine_ = valNewValue; }
  // A line that is printed once per value: turned round by the word REPEAT, and whether this pass
  // is the last one.  sExtract sets both back.  Default: false, true.
  bool GetLineOfRepeatToPrint() const noexcept { return lineOfRepeatToPrint_; }
  void SetLineOfRepeatToPrint(bool valNewValue) noexcept { lineOfRepeatToPrint_ = valNewValue; }
  bool GetEndOfRepeatPrintLine() const noexcept { return endOfRepeatPrintLine_; }
  void SetEndOfRepeatPrintLine(bool valNewValue) noexcept { endOfRepeatPrintLine_ = valNewValue; }

  // PATRONSEPARADOR=: codes of the blanks between the value's characters, see
  // clsObSpecialVar_pattern.cpp.
  bool GetUsingSpecialSeparationString() const noexcept { return a_->usingSpecialSeparationString; }
  const Text& GetSpecialSeparationString() const noexcept {
    return names().specialSeparationString;
  }

  // --- Reading what is written.

  // Back to the defaults, all but IifPossibleValues.
  void sClrObject();

  // Reads the first variable of the line; without one PosBegin is 0 and nothing is
  // read (PosEnd and Size follow from a "}" all the same).
  // Raises: 5 for a "{" without a "}" after it, or whose line has a "}" before it.
  void sExtract(TextView valText);

  // Reads ReadText: names, then attributes.
  void sExtractFieldAndCharacteristics();

  // Takes "[n]" or "[n][m]" off the end of a name.  Raises: 13 when n or m is no number.
  void sExtractIfHasNumberArrayElement(Text& refName);

  // Reads "[m]".
  void sExtractIfHasIndexOfValueInArrayElement(Text& refName);

  // Reads the argument of an IIF, and takes it off the text.  Without ")" it is empty, and nothing
  // is taken off.
  // Brackets before a value, [l] or [l,r], are the blanks to put around it; those of the last value
  // are plain text.  Each is reported as an unknown attribute, and read only after QLR.  Without
  // QLR this does not end: the message comes again and again, until the message service raises an
  // error. Raises: 6 where no message comes, for a value that begins with PATRONSEPARADOR= and a
  // bracket.
  void sExtractIfHasFunction(Text& refFieldCharacteristic);

  // The same for DATEFORMAT.
  void sExtractIfHasDateFormat(Text& refFieldCharacteristic);

  // Applies one attribute: a word of template/attribute_words.h, a number (the first is the width,
  // a later one the decimals), or PATRONSEPARADOR=.
  void sReadAttribute(TextView valText);

  // --- Giving the value.  The last one counts.  Nothing is formatted yet.

  // Aligned to the left, unless an alignment was read.
  void SetContentString(TextView valValue);
  // Aligned to the right, unless an alignment was read.
  void SetContentNumeric(Currency valValue, bool valParenthesisIfNegative) {
    contentNumeric_ = valValue;
    typeField_ = TFR_Numeric;
    parenthesisIfNegative_ = valParenthesisIfNegative;
    align(read_->ofNumber, eAT_Right);
  }
  void SetContentDate(Date valValue);
  // What is printed for it stands in the variable's IIF.
  void SetContentEnum(TextView valValue);
  void SetContentBoolean(bool valValue);

  // A text of which each character is one element: gives the character at the variable's element
  // number, or the whole text when there is none, as SetContentString does.
  //   valMaxWidth         to which the text is brought first when valDoFillWithSpace is true
  //   valIndexPosition    -1: take the variable's place; any other number: the whole text
  //   valPropertyArrayPositionIsValidForSet, valArrayPosition
  //                       where the element number comes from when the template has no second one:
  //                       true, or -1 together with valDoFillWithSpace: ArrayPosition; otherwise
  //                       valArrayPosition
  void SetContentArray(TextView valValue, std::uint8_t valMaxWidth, std::int16_t valIndexPosition,
                       bool valDoFillWithSpace, bool valPropertyArrayPositionIsValidForSet,
                       std::int16_t valArrayPosition);

  // --- Formatting.

  // Makes TextToWrite of the value.
  // Raises: 13 for an enumeration without an IIF, and for a count in a separator pattern that is no
  // number; 9 for an IIF that lacks the value; 6 for a text that cannot be justified to its width,
  // a pattern's count that does not fit, and a patterned value of more than 32,767 characters.
  void sFormatSpecialVar();

  // Aligns TextToWrite in Length characters.
  void sAlignTextToWrite();

  // Whether the value counts as none: an empty text, a number 0, a date before 1998, false.  Every
  // other kind never does.
  bool fIsEmpty();

  // --- For the line, in place of sExtract (template_line.h).

  // Takes over what was read from the same text before; `posBegin` is where it stands in the line,
  // which is `taker`.  Default: no line's.
  // REQUIRES: the places of both braces are at most 32,767.
  void takeParsed(const ParsedVariable& parsed, std::int16_t posBegin,
                  const clsObLineCharacts* taker = nullptr);

  // Whether that line was the last one to take it over, and nobody has read another text into it or
  // moved it since.
  bool isStillTakenBy(const clsObLineCharacts* taker) const noexcept { return takenBy_ == taker; }

  // What sExtract read last, when reading it again would have no other effect; else null.
  Ref<const ParsedVariable> lastParsed() const noexcept { return lastParsed_; }

  // Whether its opening brace is there, and as many characters between the braces.
  bool standsAt(std::size_t posBegin, std::size_t size) const noexcept {
    return static_cast<std::size_t>(posBegin_) == posBegin &&
           static_cast<std::size_t>(size_) == size;
  }

  // --- For the line, in place of sFormatSpecialVar (template_line.h).

  // Whether formatting gives the text that it gave for that value of a variable that reads so.
  bool hasStill(const SettledValue& value, const ParsedVariable& parsed) const noexcept;

  // The value as a text, without a copy; valid until another one is given.
  TextView contentText() const noexcept {
    if (shortSize_ == kIsLong) return contentString_;
    return {shortContent_.data(), shortSize_};
  }

  // Whether the value is a text or a number of which a variable that reads so makes a field of
  // exactly its length (parsed_variable.h).
  bool isTextField(const ParsedVariable& parsed) const noexcept {
    return typeField_ == TFR_String && a_ == &parsed.ofText && parsed.isTextField;
  }
  bool isNumberField(const ParsedVariable& parsed) const noexcept {
    return typeField_ == TFR_Numeric && a_ == &parsed.ofNumber && parsed.isNumberField &&
           (parsed.ofNumber.printZero || contentNumeric_ != Currency{});
  }
  bool parenthesisIfNegative() const noexcept { return parenthesisIfNegative_; }

  // As SetTextToWrite with the value of the line's last variable, which has `size` characters and
  // stands at `at`.  It is fetched from there when somebody looks.
  // REQUIRES: it stays there until takeOwedText().
  void oweText(TemplateLine& line, std::size_t at, std::size_t size) {
    // Fetching it takes no memory, which may be missing where a line is left.
    if (textToWrite_.capacity() < size) textToWrite_.reserve(size);
    holdsMore_ = true;
    textLine_ = &line;
    textAt_ = at;
  }
  bool isOwedTextOf(const TemplateLine& line) const noexcept { return textLine_ == &line; }
  void takeOwedText() const noexcept {
    if (textLine_ != nullptr) fetchText();
  }
  void forgetOwedText() noexcept { textLine_ = nullptr; }

  // Whether what is formatted depends on nothing else, and takes the variable's place as it is.
  // A date's year need not be asked for.
  bool isPlain() const noexcept;

  // Makes `value` the present one.  REQUIRES: isPlain().
  void keepIn(SettledValue& value) const;

 private:
  static constexpr Date kFirstOfJanuary1900{2.0};

  const ErrorIdentity& errorIdentity() const noexcept override;

  // References of the call's own: a service may replace the services while it works.
  Ref<clsTexto> texto() const { return services_.refInsTexto; }
  Ref<clsConvert> convert() const { return services_.refInsConvert; }
  Ref<clsUtilDate> dates() const { return services_.refInsUtilDate; }
  // A service that is missing is missed where it is asked.
  bool mayBypassTexto() const {
    return services_.refInsTexto && services_.refInsTexto->mayBeBypassed();
  }

  const VariableNames& names() const noexcept { return *names_; }
  VariableNames& ownNames();
  ParsedAttributes& ownAttributes() noexcept;
  void share(const ParsedVariable& parsed) noexcept;
  void align(const ParsedAttributes& ofKind, eAlignmentType usual) noexcept;
  const Value& iifPossibleValues() const noexcept { return iif_->values; }
  void setIifValues(Value values);
  void clear();
  void clearContent() noexcept;
  void clearRest() noexcept;
  void fetchText() const noexcept;

  // Reading the same text again (parsed_variable.h).
  void readOrTakeParsed(const Text& written);
  void raiseAttributesOfFreeVariable(const Text& written);
  Ref<const ParsedVariable> parsedNow(std::size_t size);
  void take(const ParsedVariable& parsed);

  // The steps of the parse (clsObSpecialVar_parse.cpp).
  bool readWord(TextView word);
  void readNumber(TextView number);
  void reportUnknownAttribute(TextView attribute);
  void readIifValues(TextView written);
  void readRecordName(Text& rest);
  std::int32_t readFieldName(const Text& rest);
  void fAssignSpacesBeforeAndAfterInConditionalValues(TextView values, Text& result);
  void sExtractSpacesToLeftAndRigth(Text& refText);
  void sConcatNextValueWithLeftAndRigthSpacesToDestiny(Text& refDestiny, Text& refValues);

  // The steps of the formatting (clsObSpecialVar_format.cpp).
  void finishTextToWrite();
  void sFormatNumber();
  void writePlainNumber(clsConvert& numbers);
  void sFormatDate();
  void sFormatString();
  void sFormatEnum();
  void sFormatBool();
  void fJustifyStr(TextView text, std::int16_t width, Text& result);
  void writePossibleValue(TextView content);
  bool isPrintedNumber() const noexcept;
  bool mustBeAligned() const noexcept;
  bool alignInPlace();
  void fillUpToLength();
  void alignThroughService();
  std::int16_t elementToTake(std::int16_t indexPosition, bool doFillWithSpace,
                             bool arrayPositionIsValid, std::int16_t arrayPosition) const noexcept;
  bool hasContentOf(const SettledValue& value) const noexcept;

  // The separator pattern (clsObSpecialVar_pattern.cpp).
  struct PatternTexts {
    Text spread;
    Text separation;  // of one gap
    TextList elements;
    Text element;  // with its codes apart
    TextList codes;
    Text code;
  };
  void fDoSpecialSeparationString(TextView text, Text& result);
  void fGetCharsFromSpecialSeparationString(std::int16_t gap, PatternTexts& texts);
  void fConvierteBCEnImprimible(TextView code, Text& result);

  // Of the thread to which the object belongs, and there as long as it.
  const modRDPGlobalValues& services_ = modRDPGlobalValues::ofThisThread();

  // What was read last, and what it says; shared until somebody sets a part of it.
  Ref<const ParsedVariable> read_;
  const ParsedAttributes* a_ = nullptr;   // read_'s, or own_
  const VariableNames* names_ = nullptr;  // read_'s, or ownNames_
  ParsedAttributes own_;
  Ref<VariableNames> ownNames_;
  const Ref<const ParsedVariable> nothing_;  // of a cleared variable
  Ref<IifValues> iif_;
  bool hasIifOfItsOwn_ = false;  // the list is not one that an earlier variable left behind

  eTypeFieldRecord typeField_ = TFR_String;
  bool contentBool_ = false;
  bool parenthesisIfNegative_ = false;
  bool printLine_ = true;
  bool lineOfRepeatToPrint_ = false;
  bool endOfRepeatPrintLine_ = true;
  // Readings so far, and messages: what was read while it went up must be read again each time.
  std::uint32_t readings_ = 0;
  bool holdsMore_ = true;  // than a text or a number for content: clearRest() has something to do
  std::int16_t posEnd_ = 0;
  std::int16_t posBegin_ = 0;
  std::int16_t size_ = 0;
  const clsObLineCharacts* takenBy_ = nullptr;  // only compared
  Currency contentNumeric_;
  Date contentDate_;
  mutable Text textToWrite_;
  mutable TemplateLine* textLine_ = nullptr;  // where the text stands instead; null: it is here
  std::size_t textAt_ = 0;

  // The text that was given stands in shortContent_, and once somebody has looked at it, or when it
  // is long, in contentString_.
  static constexpr std::size_t kShort = 64;
  static constexpr std::size_t kIsLong = static_cast<std::size_t>(-1);
  mutable std::size_t shortSize_ = 0;
  std::array<char16_t, kShort> shortContent_;
  mutable Text contentString_;
  Text contentEnum_;

  // Storage that is kept between operations; borrowed (frame/borrowed.h).
  Kept<Text> scratch_;
  Kept<PatternTexts> patternTexts_;

  ParsedVariables parsed_;
  Ref<const ParsedVariable> lastParsed_;
};

// All but what was written between the braces, and where.
inline void clsObSpecialVar::clearContent() noexcept {
  shortSize_ = 0;
  contentNumeric_ = {};
  typeField_ = TFR_String;
  parenthesisIfNegative_ = false;
  lineOfRepeatToPrint_ = false;
  endOfRepeatPrintLine_ = true;
  printLine_ = true;
  if (holdsMore_) clearRest();
}

inline void clsObSpecialVar::clearRest() noexcept {
  contentDate_ = kFirstOfJanuary1900;
  contentBool_ = false;
  contentEnum_.clear();
  textToWrite_.clear();
  textLine_ = nullptr;
  holdsMore_ = false;
}

inline ParsedAttributes& clsObSpecialVar::ownAttributes() noexcept {
  if (a_ != &own_) {
    own_ = *a_;
    a_ = &own_;
  }
  return own_;
}

inline void clsObSpecialVar::share(const ParsedVariable& parsed) noexcept {
  read_ = Ref<const ParsedVariable>(&parsed);
  a_ = &parsed.attributes;
  names_ = parsed.names.get();
}

// The value has become one of that kind.
inline void clsObSpecialVar::align(const ParsedAttributes& ofKind, eAlignmentType usual) noexcept {
  if (a_ != &own_) {
    a_ = &ofKind;
  } else if (!own_.alignmentWasRead) {
    own_.alignmentType = usual;
  }
}

inline void clsObSpecialVar::take(const ParsedVariable& parsed) {
  ++readings_;
  share(parsed);
  hasIifOfItsOwn_ = static_cast<bool>(parsed.iif);
  if (hasIifOfItsOwn_) iif_ = parsed.iif;
}

inline bool clsObSpecialVar::hasStill(const SettledValue& value,
                                      const ParsedVariable& parsed) const noexcept {
  return value.isKnownText() && typeField_ == value.kind && hasContentOf(value) &&
         std::memcmp(a_, &value.attributes, sizeof *a_) == 0 && names_ == parsed.names.get();
}

// An IIF's list, the printer's codes and the line's suppression are more than is kept.
inline bool clsObSpecialVar::isPlain() const noexcept {
  const bool isPlainKind =
      typeField_ == TFR_String || typeField_ == TFR_Numeric || typeField_ == TFR_Date;
  return isPlainKind && !a_->usingSpecialSeparationString && !a_->variableToWriteEmpty &&
         !a_->variableToApplyCondition;
}

inline bool clsObSpecialVar::hasContentOf(const SettledValue& value) const noexcept {
  switch (typeField_) {
    case TFR_Numeric:
      return contentNumeric_ == value.number &&
             parenthesisIfNegative_ == value.parenthesisIfNegative;
    case TFR_Date:
      return contentDate_ == value.date;
    case TFR_String:
      return TextEqual()(contentText(), value.text);
    default:
      return false;
  }
}

inline void clsObSpecialVar::takeParsed(const ParsedVariable& parsed, std::int16_t posBegin,
                                        const clsObLineCharacts* taker) {
  clearContent();
  take(parsed);
  size_ = parsed.size;
  posBegin_ = posBegin;
  posEnd_ = static_cast<std::int16_t>(posBegin + size_ + 1);
  takenBy_ = taker;
}

}  // namespace tarvo
