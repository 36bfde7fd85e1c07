// What is written between the braces of a special variable, read once and kept.
//
// It depends on the text and the services alone, so variables with the same text share it.  Nobody
// changes one that is shared: a variable that is changed takes a copy of its own first.
#pragma once

#include <cstdint>

#include "frame/enums.h"
#include "frame/object.h"
#include "frame/text.h"
#include "frame/value.h"

namespace tarvo {

// The attributes; the defaults are those of a variable without any.
struct ParsedAttributes {
  eAlignmentType alignmentType = eAT_Left;
  std::int16_t leftSpaces = 0;            // blanks before the IIF value that is being read
  std::int16_t rightSpaces = 0;           // and after it
  std::int16_t indexOfValueInArray = -1;  // -1: no second number in brackets
  std::uint8_t arrayPosition = 0;
  std::uint8_t length = 0;
  std::uint8_t decimalPlaces = 0;
  bool isFieldOfArray = false;
  bool fieldOfArrayHasPositionInsideTheArray = false;
  bool alignmentWasRead = false;
  bool printComa = true;
  bool printZero = true;
  bool notSpacesToTheSides = false;
  bool fillWithZero = false;
  bool separatorOfCommasAndDot = false;
  bool repeatCharsUntilFill = false;
  bool variableToWriteEmpty = false;
  bool variableToApplyCondition = false;
  bool valueComesInAttrib = false;
  bool dateFormatWasRead = false;
  bool conditionalValuesHaveSpaces = false;
  bool usingSpecialSeparationString = false;
};

// The texts.
struct VariableNames final : Object {
  VariableNames() = default;
  explicit VariableNames(const VariableNames& other)
      : Object(),
        readText(other.readText),
        recordName(other.recordName),
        fieldName(other.fieldName),
        iifCondition(other.iifCondition),
        dateFormat(other.dateFormat),
        specialSeparationString(other.specialSeparationString) {}

  Text readText;
  Text recordName;
  Text fieldName;
  Text iifCondition;  // with the comma that ends it
  Text dateFormat;
  Text specialSeparationString;
};

// The values of an IIF.
struct IifValues final : Object {
  Value values;  // an array of texts, or whatever a client has put here
};

// What one text between braces says.  Any number of variables look at it at the same time.
struct ParsedVariable final : Object {
  // Of a variable without anything.
  ParsedVariable() : ParsedVariable({}, make<VariableNames>()) {}

  ParsedVariable(const ParsedAttributes& read, Ref<const VariableNames> theNames)
      : attributes(read),
        ofText(aligned(read, eAT_Left)),
        ofNumber(aligned(read, eAT_Right)),
        isTextField(isField(ofText) && ofText.alignmentType == eAT_Left &&
                    !ofText.repeatCharsUntilFill),
        isNumberField(isField(ofNumber) && ofNumber.alignmentType == eAT_Right &&
                      ofNumber.printComa && !ofNumber.fillWithZero),
        names(std::move(theNames)) {}

  const ParsedAttributes attributes;

  // Once the value is a text or a number, which stand left and right unless an alignment is read.
  const ParsedAttributes ofText;
  const ParsedAttributes ofNumber;

  // Whether such a value takes exactly the length, whatever it is: a text cut or filled with
  // blanks, a number as the conversion service makes its field.
  const bool isTextField;
  const bool isNumberField;

  const Ref<const VariableNames> names;
  Ref<IifValues> iif;     // empty: none was read, the variable keeps the list that it has
  std::int16_t size = 0;  // characters between the braces

 private:
  static ParsedAttributes aligned(ParsedAttributes attributes, eAlignmentType usual) noexcept {
    if (!attributes.alignmentWasRead) attributes.alignmentType = usual;
    return attributes;
  }
  static bool isField(const ParsedAttributes& attributes) noexcept {
    return attributes.length != 0 && !attributes.notSpacesToTheSides &&
           !attributes.usingSpecialSeparationString && !attributes.variableToWriteEmpty &&
           !attributes.variableToApplyCondition;
  }
};

}  // namespace tarvo
