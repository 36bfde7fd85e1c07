// A special variable as one line of text that a person can read: what differs from the defaults.
//
//   dumpOf({FACTURA.monto,15,DERECHA}): record='FACTURA' field='MONTO' right length=15 decimals=2
//   placeOf(the same):                  8-33 size=24 reads 'FACTURA.monto,15,DERECHA'
#pragma once

#include <string>

#include "frame/text.h"
#include "template/clsObSpecialVar.h"

namespace tarvo::test {

namespace detail {

inline std::string inTicks(TextView text) { return "'" + toUtf8(text) + "'"; }

// Words with a blank between them.
class Words {
 public:
  void add(const std::string& word) { all_ += (all_.empty() ? "" : " ") + word; }
  void addIf(bool isSo, const char* word) {
    if (isSo) add(word);
  }
  void addText(const char* name, TextView text) {
    if (!text.empty()) add(name + ("=" + inTicks(text)));
  }
  void addNumber(const char* name, int number, int usual = 0) {
    if (number != usual) add(name + ("=" + std::to_string(number)));
  }
  const std::string& all() const { return all_; }

 private:
  std::string all_;
};

inline std::string listOf(const ValueArray& values) {
  std::string all;
  for (const Value& value : values) {
    const auto* text = value.tryGet<Text>();
    all += (all.empty() ? "" : ",") + (text != nullptr ? inTicks(*text) : "(no text)");
  }
  return "[" + all + "]";
}

inline void addValues(Words& words, const Value& values) {
  if (const auto* list = values.tryGet<ValueArray>()) {
    words.add("values=" + listOf(*list));
  } else if (const auto* text = values.tryGet<Text>()) {
    words.add("values=" + inTicks(*text));
  } else if (values != Value()) {
    words.add("values=(something else)");
  }
}

inline void addAlignment(Words& words, const clsObSpecialVar& variable) {
  static constexpr const char* kNames[] = {"right", "left", "center", "justify"};
  const eAlignmentType alignment = variable.GetAlignmentType();
  if (variable.GetAlignmentWasRead()) {
    words.add(kNames[alignment]);
  } else if (alignment != eAT_Left) {
    words.add(std::string("unread:") + kNames[alignment]);
  }
}

// What no property shows.  It is known when the text is one that can be kept (nothing was reported
// and nothing failed).
inline void addPrivateParts(Words& words, const clsObSpecialVar& variable) {
  const Ref<const ParsedVariable> parsed = variable.lastParsed();
  if (!parsed) return;
  words.addNumber("index", parsed->attributes.indexOfValueInArray, -1);
  words.addText("condition", parsed->names->iifCondition);
  words.addIf(parsed->attributes.dateFormatWasRead, "dated");
  words.addText("dateFormat", parsed->names->dateFormat);
  words.addIf(parsed->attributes.conditionalValuesHaveSpaces, "qlr");
}

}  // namespace detail

namespace detail {

inline void addProperties(Words& words, const clsObSpecialVar& variable) {
  words.addText("record", variable.GetRecordName());
  words.addText("field", variable.GetFieldName());
  if (variable.GetIsFieldOfArray()) {
    words.addNumber("element", variable.GetArrayPosition(), -1);
  } else {
    words.addNumber("element?", variable.GetArrayPosition());
  }
  addAlignment(words, variable);
  words.addNumber("length", variable.GetLength());
  words.addNumber("decimals", variable.GetDecimalPlaces());
  words.addIf(!variable.GetPrintComa(), "noComa");
  words.addIf(!variable.GetPrintZero(), "noZero");
  words.addIf(variable.GetNotSpacesToTheSides(), "noSpaces");
  words.addIf(variable.GetFillWithZero(), "zeros");
  words.addIf(variable.GetSeparatorOfCommasAndDot(), "commasAndDot");
  words.addIf(variable.GetRepeatCharsUntilFill(), "fill");
  words.addIf(variable.GetVariableToWriteEmpty(), "writeEmpty");
  words.addIf(variable.GetVariableToApplyCondition(), "conditional");
  words.addIf(variable.GetValueComesInAttrib(), "iif");
  addValues(words, variable.GetIifPossibleValues());
  words.addIf(variable.GetFieldOfArrayHasPositionInsideTheArray(), "place");
  words.addIf(!variable.GetPrintLine(), "noLine");
  words.addIf(variable.GetLineOfRepeatToPrint(), "repeats");
  words.addIf(!variable.GetEndOfRepeatPrintLine(), "repeatGoesOn");
  if (variable.GetUsingSpecialSeparationString()) {
    words.add("pattern=" + inTicks(variable.GetSpecialSeparationString()));
  } else {
    words.addText("pattern?", variable.GetSpecialSeparationString());
  }
}

}  // namespace detail

// The properties that names and attributes set; no content, no place.
inline std::string propertiesOf(const clsObSpecialVar& variable) {
  detail::Words words;
  detail::addProperties(words, variable);
  return words.all();
}

// The same, and what no property shows of the text that was read last.
inline std::string dumpOf(const clsObSpecialVar& variable) {
  detail::Words words;
  detail::addProperties(words, variable);
  detail::addPrivateParts(words, variable);
  return words.all();
}

// Where it stands in its line, and the text between the braces.
inline std::string placeOf(const clsObSpecialVar& variable) {
  return std::to_string(variable.GetPosBegin()) + "-" + std::to_string(variable.GetPosEnd()) +
         " size=" + std::to_string(variable.GetSize()) + " reads " +
         detail::inTicks(variable.GetReadText());
}

}  // namespace tarvo::test
