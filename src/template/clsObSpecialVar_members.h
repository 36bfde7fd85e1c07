// The operations of the special variable, in interface order.
#pragma once

#include "frame/enums_members.h"
#include "frame/libraries.h"
#include "frame/member_table.h"
#include "template/clsObSpecialVar.h"

namespace tarvo {

template <>
struct Members<clsObSpecialVar> {
  static constexpr const LibraryInfo& library = kPrintLibrary;
  static constexpr std::uint16_t number = 3;
  static constexpr const char* name = "clsObSpecialVar";
  static constexpr const char* help =
      "A special variable of a template line: what is written, its value, the text to print";
  static constexpr auto table = memberTable(
      property<&clsObSpecialVar::GetReadText, &clsObSpecialVar::SetReadText>(
          "ReadText", "the text between the braces; before sExtract the text to read"),
      property<&clsObSpecialVar::GetTextToWrite, &clsObSpecialVar::SetTextToWrite>(
          "TextToWrite", "the formatted value"),
      property<&clsObSpecialVar::GetRecordName, &clsObSpecialVar::SetRecordName>(
          "RecordName", "the part before the first full stop, in its own case"),
      property<&clsObSpecialVar::GetFieldName, &clsObSpecialVar::SetFieldName>(
          "FieldName", "the field, in capitals but for a name with @"),
      property<&clsObSpecialVar::GetIsFieldOfArray, &clsObSpecialVar::SetIsFieldOfArray>(
          "IsFieldOfArray", "whether an element number in brackets was written"),
      property<&clsObSpecialVar::GetArrayPosition, &clsObSpecialVar::SetArrayPosition>(
          "ArrayPosition", "the element number, 0 to 255"),
      readOnlyProperty<&clsObSpecialVar::GetContentString>("ContentString", "the value, if a text"),
      readOnlyProperty<&clsObSpecialVar::GetContentNumeric>("ContentNumeric",
                                                            "the value, if a number"),
      readOnlyProperty<&clsObSpecialVar::GetContentDate>("ContentDate", "the value, if a date"),
      readOnlyProperty<&clsObSpecialVar::GetContentBool>("ContentBool", "the value, if a boolean"),
      readOnlyProperty<&clsObSpecialVar::GetContentEnum>("ContentEnum",
                                                         "the value, if an enumeration's"),
      property<&clsObSpecialVar::GetAlignmentWasRead, &clsObSpecialVar::SetAlignmentWasRead>(
          "AlignmentWasRead", "whether an alignment was written"),
      property<&clsObSpecialVar::GetAlignmentType, &clsObSpecialVar::SetAlignmentType>(
          "AlignmentType", "how the value stands in its width"),
      readOnlyProperty<&clsObSpecialVar::GetTypeField>("TypeField",
                                                       "the kind of the value given last"),
      property<&clsObSpecialVar::GetLength, &clsObSpecialVar::SetLength>(
          "Length", "the width in characters; 0 means as many as the value has"),
      property<&clsObSpecialVar::GetDecimalPlaces, &clsObSpecialVar::SetDecimalPlaces>(
          "DecimalPlaces", "decimals of a number"),
      property<&clsObSpecialVar::GetPrintComa, &clsObSpecialVar::SetPrintComa>(
          "PrintComa", "whether marks stand between a number's thousands"),
      property<&clsObSpecialVar::GetPrintZero, &clsObSpecialVar::SetPrintZero>(
          "PrintZero", "whether a number 0 is printed"),
      property<&clsObSpecialVar::GetNotSpacesToTheSides, &clsObSpecialVar::SetNotSpacesToTheSides>(
          "NotSpacesToTheSides", "whether the blanks around the value are left out"),
      property<&clsObSpecialVar::GetFillWithZero, &clsObSpecialVar::SetFillWithZero>(
          "FillWithZero", "whether a number's blanks become zeros"),
      property<&clsObSpecialVar::GetSeparatorOfCommasAndDot,
               &clsObSpecialVar::SetSeparatorOfCommasAndDot>(
          "SeparatorOfCommasAndDot", "whether commas separate thousands, and a dot decimals"),
      property<&clsObSpecialVar::GetRepeatCharsUntilFill,
               &clsObSpecialVar::SetRepeatCharsUntilFill>(
          "RepeatCharsUntilFill", "whether a text of one character is repeated over its width"),
      property<&clsObSpecialVar::GetVariableToWriteEmpty,
               &clsObSpecialVar::SetVariableToWriteEmpty>(
          "VariableToWriteEmpty", "whether the value itself is not printed"),
      property<&clsObSpecialVar::GetVariableToApplyCondition,
               &clsObSpecialVar::SetVariableToApplyCondition>(
          "VariableToApplyCondition", "whether an empty value suppresses the line"),
      property<&clsObSpecialVar::GetPosEnd, &clsObSpecialVar::SetPosEnd>(
          "PosEnd", "the position of the closing brace; 0 for none"),
      property<&clsObSpecialVar::GetPosBegin, &clsObSpecialVar::SetPosBegin>(
          "PosBegin", "the position of the opening brace; 0 for none"),
      property<&clsObSpecialVar::GetSize, &clsObSpecialVar::SetSize>(
          "Size", "the number of characters between the braces"),
      property<&clsObSpecialVar::GetValueComesInAttrib, &clsObSpecialVar::SetValueComesInAttrib>(
          "ValueComesInAttrib", "whether the text to print comes from an IIF"),
      property<&clsObSpecialVar::GetIifPossibleValues, &clsObSpecialVar::SetIifPossibleValues>(
          "IifPossibleValues", "the array of the values that an IIF lists"),
      property<&clsObSpecialVar::GetFieldOfArrayHasPositionInsideTheArray,
               &clsObSpecialVar::SetFieldOfArrayHasPositionInsideTheArray>(
          "FieldOfArrayHasPositionInsideTheArray",
          "whether a second number in brackets was written"),
      property<&clsObSpecialVar::GetPrintLine, &clsObSpecialVar::SetPrintLine>(
          "PrintLine", "whether the line that holds the variable is printed"),
      property<&clsObSpecialVar::GetLineOfRepeatToPrint, &clsObSpecialVar::SetLineOfRepeatToPrint>(
          "LineOfRepeatToPrint", "on a repeated line, whether this is a later pass"),
      property<&clsObSpecialVar::GetEndOfRepeatPrintLine,
               &clsObSpecialVar::SetEndOfRepeatPrintLine>(
          "EndOfRepeatPrintLine", "on a repeated line, whether this is the last pass"),
      readOnlyProperty<&clsObSpecialVar::GetUsingSpecialSeparationString>(
          "UsingSpecialSeparationString", "whether a separator pattern was written"),
      readOnlyProperty<&clsObSpecialVar::GetSpecialSeparationString>("SpecialSeparationString",
                                                                     "the separator pattern"),
      method<&clsObSpecialVar::sClrObject>("sClrObject",
                                           "back to the defaults, all but IifPossibleValues"),
      method<&clsObSpecialVar::sExtract>("sExtract", "reads the first variable of a line",
                                         "valText"),
      method<&clsObSpecialVar::sExtractFieldAndCharacteristics>(
          "sExtractFieldAndCharacteristics", "reads ReadText: the names, then the attributes"),
      method<&clsObSpecialVar::sExtractIfHasNumberArrayElement>(
          "sExtractIfHasNumberArrayElement", "takes the numbers in brackets off the end of a name",
          "refName"),
      method<&clsObSpecialVar::sExtractIfHasIndexOfValueInArrayElement>(
          "sExtractIfHasIndexOfValueInArrayElement", "reads the second number in brackets",
          "refName"),
      method<&clsObSpecialVar::sExtractIfHasFunction>(
          "sExtractIfHasFunction", "reads the argument of an IIF and takes it off the text",
          "refFieldCharacteristic"),
      method<&clsObSpecialVar::sExtractIfHasDateFormat>(
          "sExtractIfHasDateFormat", "reads the argument of a DATEFORMAT and takes it off the text",
          "refFieldCharacteristic"),
      method<&clsObSpecialVar::sReadAttribute>("sReadAttribute", "applies one attribute",
                                               "valText"),
      method<&clsObSpecialVar::SetContentString>("SetContentString", "gives a text as the value",
                                                 "valValue"),
      method<&clsObSpecialVar::SetContentNumeric>("SetContentNumeric",
                                                  "gives a number as the value", "valValue",
                                                  "valParenthesisIfNegative"),
      method<&clsObSpecialVar::SetContentDate>("SetContentDate", "gives a date as the value",
                                               "valValue"),
      method<&clsObSpecialVar::SetContentEnum>(
          "SetContentEnum", "gives an enumeration's text as the value; an IIF says what is printed",
          "valValue"),
      method<&clsObSpecialVar::SetContentBoolean>("SetContentBoolean",
                                                  "gives a boolean as the value", "valValue"),
      method<&clsObSpecialVar::SetContentArray>(
          "SetContentArray", "gives one character of a text as the value", "valValue",
          "valMaxWidth", "valIndexPosition", "valDoFillWithSpace",
          "valPropertyArrayPositionIsValidForSet", "valArrayPosition"),
      method<&clsObSpecialVar::sFormatSpecialVar>("sFormatSpecialVar",
                                                  "makes TextToWrite of the value"),
      method<&clsObSpecialVar::sAlignTextToWrite>("sAlignTextToWrite",
                                                  "aligns TextToWrite in Length characters"),
      method<&clsObSpecialVar::fIsEmpty>("fIsEmpty", "whether the value counts as none"));
};

}  // namespace tarvo
