// What is written between the braces: names, then attributes.
#include "frame/checked.h"
#include "frame/upper_case.h"
#include "template/attribute_words.h"
#include "template/clsObSpecialVar.h"
#include "template/control_words.h"
#include "template/text_parts.h"

namespace tarvo {
namespace {

// A width of four and more has decimals, whatever kind of value it is for.
constexpr std::uint8_t kWidthWithDecimals = 4;
constexpr std::uint8_t kDecimalsOfAWidth = 2;

// The two ends of a bracketed text.
struct Brackets {
  std::int32_t open = 0;
  std::int32_t close = 0;

  Brackets(const TextParts& texto, TextView text, TextView opening, TextView closing)
      : open(texto.position(text, opening)), close(open > 0 ? texto.position(text, closing) : 0) {}

  bool areThere() const noexcept { return open > 0 && close > open; }

  // What stands between them; empty when the closing one is missing.
  void inside(const TextParts& texto, TextView text, Text& result) const {
    texto.part(text, open + 1, areThere() ? close - open - 1 : 0, result);
  }

  // Takes them off the text with what is between them.
  void removeFrom(const TextParts& texto, Text& text) const {
    Text result;
    texto->fDelete(text, open, close - open, result);
    text.swap(result);
  }
};

void addBlanks(const TextParts& texto, std::int16_t count, Text& text) {
  if (count == 0) return;
  Text blanks;
  texto->fRepeat(u" ", count, blanks);
  text += blanks;
}

}  // namespace

void clsObSpecialVar::sExtractFieldAndCharacteristics() try {
  const TextParts texto;
  Text rest = names().readText;
  readRecordName(rest);
  std::int32_t comma = readFieldName(rest);
  Text attribute;
  while (comma >= 1) {
    texto.keepAfter(rest, comma);
    comma = texto.position(rest, u",");
    const std::int32_t open = texto.position(rest, u"(");
    if (open < 2 || (comma >= 1 && comma < open)) {
      if (comma < 1) {
        attribute = rest;
      } else {
        texto.part(rest, 1, comma - 1, attribute);
      }
      sReadAttribute(attribute);
    } else {
      texto.part(rest, 1, open - 1, attribute);
      sReadAttribute(attribute);
      // An IIF that was read takes the argument of a DATEFORMAT after it too.
      if (a_->valueComesInAttrib) {
        sExtractIfHasFunction(rest);
      } else if (a_->dateFormatWasRead) {
        sExtractIfHasDateFormat(rest);
      }
      comma = texto.position(rest, u",");
    }
  }
} catch (...) {
  trap("sExtractFieldAndCharacteristics");
}

// Leaves what follows the record part.
void clsObSpecialVar::readRecordName(Text& rest) {
  const TextParts texto;
  const std::int32_t dot = texto.position(rest, u".");
  if (dot < 1 || rest.starts_with(kFreeMark)) return;
  Text name;
  texto.part(rest, 1, dot - 1, name);
  texto.keepAfter(rest, dot);
  texto.trim(name);
  ownNames().recordName = name;
  sExtractIfHasNumberArrayElement(name);
  ownNames().recordName = name;
}

// Gives the position of the comma that ends the field part; 0: there is none.
std::int32_t clsObSpecialVar::readFieldName(const Text& rest) {
  const TextParts texto;
  const std::int32_t comma = texto.position(rest, u",");
  Text name = rest;
  if (comma >= 1) texto.part(rest, 1, comma - 1, name);
  texto.trim(name);
  if (!rest.starts_with(kFreeMark)) {
    name = upperCase(name);
    ownNames().fieldName = name;
    sExtractIfHasNumberArrayElement(name);
  }
  ownNames().fieldName = name;
  return comma;
}

void clsObSpecialVar::sExtractIfHasNumberArrayElement(Text& refName) try {
  const TextParts texto;
  const Brackets brackets(texto, refName, u"[", u"]");
  if (brackets.open < 1) return;
  ownAttributes().isFieldOfArray = true;
  Text element;
  brackets.inside(texto, refName, element);
  Text number;
  convert()->fNumberToText(Value(element), number);
  ownAttributes().arrayPosition = convert()->fTextToByte(number);
  texto.after(refName, brackets.close, element);
  sExtractIfHasIndexOfValueInArrayElement(element);
  texto.part(refName, 1, brackets.open - 1);
} catch (...) {
  trap("sExtractIfHasNumberArrayElement");
}

void clsObSpecialVar::sExtractIfHasIndexOfValueInArrayElement(Text& refName) try {
  const TextParts texto;
  const Brackets brackets(texto, refName, u"[", u"]");
  if (brackets.open < 1) return;
  ownAttributes().fieldOfArrayHasPositionInsideTheArray = true;
  Text index;
  brackets.inside(texto, refName, index);
  ownAttributes().indexOfValueInArray = convert()->fTextToInteger(index);
} catch (...) {
  trap("sExtractIfHasIndexOfValueInArrayElement");
}

void clsObSpecialVar::sExtractIfHasFunction(Text& refFieldCharacteristic) try {
  const TextParts texto;
  const Brackets brackets(texto, refFieldCharacteristic, u"(", u")");
  ownNames().iifCondition.clear();
  setIifValues(Text());
  Text inner;
  if (brackets.areThere()) brackets.inside(texto, refFieldCharacteristic, inner);
  const std::int32_t comma = texto.position(inner, u",");
  if (comma < 1) {
    ownNames().iifCondition = inner;
    setIifValues(ValueArray());
  } else {
    Text condition;
    texto.part(inner, 1, comma, condition);
    ownNames().iifCondition = condition;
    texto.keepAfter(inner, comma);
    readIifValues(inner);
  }
  if (!brackets.areThere()) return;
  brackets.removeFrom(texto, refFieldCharacteristic);
  Text withoutWord;
  texto->fReplaceAll(refFieldCharacteristic, u"IIF", {}, withoutWord);
  texto->fTrim(withoutWord, refFieldCharacteristic);
} catch (...) {
  trap("sExtractIfHasFunction");
}

// The values as they were written, from the text after the condition's comma.
void clsObSpecialVar::readIifValues(TextView written) {
  const TextParts texto;
  Text values;
  fAssignSpacesBeforeAndAfterInConditionalValues(written, values);
  TextList items;
  texto->fSplit(values, u",", items);
  // Each value came with its own comma and was set off by another: every second item is the empty
  // one between the two.  A last item that follows a value's own comma is a value again.
  ValueArray list;
  for (std::size_t i = 0; i < items.size(); i += 2) list.emplace_back(items[i]);
  if (!items.empty() && items.size() % 2 == 0) list.emplace_back(items.back());
  setIifValues(std::move(list));
}

void clsObSpecialVar::fAssignSpacesBeforeAndAfterInConditionalValues(TextView values,
                                                                     Text& result) try {
  const TextParts texto;
  Text rest(values);
  result.clear();
  std::int16_t silentTurns = 0;
  while (!rest.empty()) {
    const std::int32_t comma = texto.position(rest, u",");
    const std::int32_t bracket = texto.position(rest, u"[");
    if (bracket > 0 && comma > bracket) {
      Text untilBracket;
      texto.part(rest, 1, bracket, untilBracket);
      const std::uint32_t before = readings_;
      sReadAttribute(untilBracket);
      if (!a_->conditionalValuesHaveSpaces) {  // for ever, see sExtractIfHasFunction
        if (readings_ == before) silentTurns = checkedAdd(silentTurns, std::int16_t{1});
        continue;
      }
      texto.keepAfter(rest, bracket - 1);
      sExtractSpacesToLeftAndRigth(rest);
    } else {
      ownAttributes().leftSpaces = 0;
      ownAttributes().rightSpaces = 0;
    }
    sConcatNextValueWithLeftAndRigthSpacesToDestiny(result, rest);
  }
} catch (...) {
  trap("fAssignSpacesBeforeAndAfterInConditionalValues");
}

void clsObSpecialVar::sExtractSpacesToLeftAndRigth(Text& refText) try {
  const TextParts texto;
  ownAttributes().leftSpaces = 0;
  ownAttributes().rightSpaces = 0;
  const Brackets brackets(texto, refText, u"[", u"]");
  if (brackets.open < 1) return;
  Text written;
  brackets.inside(texto, refText, written);
  Text withoutBlanks;
  texto->fStrip(written, u" ", withoutBlanks);
  Text inner;
  texto->fStrip(withoutBlanks, u"-", inner);
  const std::int32_t comma = texto.position(inner, u",");
  if (comma < 1) {
    ownAttributes().leftSpaces = convert()->fTextToInteger(inner);
  } else {
    Text count;
    texto.part(inner, 1, comma - 1, count);
    ownAttributes().leftSpaces = convert()->fTextToInteger(count);
    texto.after(inner, comma, count);
    ownAttributes().rightSpaces = convert()->fTextToInteger(count);
  }
  brackets.removeFrom(texto, refText);
} catch (...) {
  trap("sExtractSpacesToLeftAndRigth");
}

void clsObSpecialVar::sConcatNextValueWithLeftAndRigthSpacesToDestiny(Text& refDestiny,
                                                                      Text& refValues) try {
  const TextParts texto;
  const std::int32_t comma = texto.position(refValues, u",");
  Text value;
  if (comma < 1) {
    value.swap(refValues);
  } else {
    texto.part(refValues, 1, comma - 1, value);
    texto.keepAfter(refValues, comma);
  }
  if (!refDestiny.empty()) refDestiny += u',';
  addBlanks(texto, a_->leftSpaces, refDestiny);
  refDestiny += value;
  addBlanks(texto, a_->rightSpaces, refDestiny);
  if (comma >= 1) refDestiny += u',';
} catch (...) {
  trap("sConcatNextValueWithLeftAndRigthSpacesToDestiny");
}

void clsObSpecialVar::sExtractIfHasDateFormat(Text& refFieldCharacteristic) try {
  const TextParts texto;
  const Brackets brackets(texto, refFieldCharacteristic, u"(", u")");
  ownNames().dateFormat.clear();
  if (!brackets.areThere()) return;
  Text format;
  brackets.inside(texto, refFieldCharacteristic, format);
  ownNames().dateFormat = format;
  brackets.removeFrom(texto, refFieldCharacteristic);
} catch (...) {
  trap("sExtractIfHasDateFormat");
}

void clsObSpecialVar::sReadAttribute(TextView valText) try {
  const TextParts texto;
  Text trimmed;
  texto->fTrim(valText, trimmed);
  const Text attribute = upperCase(trimmed);
  if (readWord(attribute)) return;
  if (convert()->fIsNumeric(attribute)) {
    readNumber(attribute);
  } else if (attribute.starts_with(kSeparatorPatternStart)) {
    ownAttributes().usingSpecialSeparationString = true;
    Text pattern;
    texto.after(attribute, static_cast<std::int32_t>(kSeparatorPatternStart.size()), pattern);
    ownNames().specialSeparationString = pattern;
  } else {
    reportUnknownAttribute(attribute);
  }
} catch (...) {
  trap("sReadAttribute");
}

bool clsObSpecialVar::readWord(TextView word) {
  if (word.empty()) return false;
  for (const AttributeWord& known : kAttributeWords) {
    if (word != known.word && word != known.shortWord) continue;
    known.apply(ownAttributes());
    return true;
  }
  return false;
}

void clsObSpecialVar::readNumber(TextView number) {
  if (a_->length != 0) {
    ownAttributes().decimalPlaces = convert()->fTextToByte(number);
    return;
  }
  ownAttributes().length = convert()->fTextToByte(number);
  if (a_->length >= kWidthWithDecimals) ownAttributes().decimalPlaces = kDecimalsOfAWidth;
}

void clsObSpecialVar::reportUnknownAttribute(TextView attribute) {
  const Ref<clsMessage> messages = services_.refInsMessage;
  messages->sShowMessageWithTitle(u"No se encontró el tipo de atributo " + Text(attribute) +
                                      u" en la línea " + names().readText,
                                  u"Impresión de Plantilla");
  ++readings_;  // the operator is told each time
}

}  // namespace tarvo
