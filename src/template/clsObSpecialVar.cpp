#include "template/clsObSpecialVar.h"

#include "frame/checked.h"
#include "frame/modRDPGlobalValues.h"
#include "frame/upper_case.h"
#include "template/text_parts.h"

namespace tarvo {
namespace {

constexpr Date kFirstOfJanuary1900{2.0};
constexpr std::int32_t kLongestFreeAttributes = 255;

}  // namespace

clsObSpecialVar::clsObSpecialVar()
    : names_(make<VariableNames>()), iif_(make<IifValues>()), noNames_(make<VariableNames>()) {
  clear();
}
clsObSpecialVar::~clsObSpecialVar() = default;

const ErrorIdentity& clsObSpecialVar::errorIdentity() const noexcept {
  static constexpr ErrorIdentity kIdentity{u"clsObSpecialVar", u"Lib. Impresión Texto - Ob Var"};
  return kIdentity;
}

void clsObSpecialVar::SetIifPossibleValues(const Value& valNewValue) { setIifValues(valNewValue); }

void clsObSpecialVar::setIifValues(Value values) {
  Ref<IifValues> list = make<IifValues>();
  list->values = std::move(values);
  iif_ = list;
}

VariableNames& clsObSpecialVar::ownNames() {
  if (namesAreShared_) {
    names_ = make<VariableNames>(*names_);
    namesAreShared_ = false;
  }
  return *names_;
}

void clsObSpecialVar::sClrObject() try { clear(); } catch (...) {
  trap("sClrObject");
}

void clsObSpecialVar::clear() {
  names_ = noNames_;
  namesAreShared_ = true;
  a_ = {};
  clearContent();
}

// All but what was written between the braces.
void clsObSpecialVar::clearContent() noexcept {
  contentString_.clear();
  contentNumeric_ = {};
  contentDate_ = kFirstOfJanuary1900;
  contentBool_ = false;
  contentEnum_.clear();
  typeField_ = TFR_String;
  posEnd_ = 0;
  size_ = 0;
  posBegin_ = 0;
  textToWrite_.clear();
  parenthesisIfNegative_ = false;
  lineOfRepeatToPrint_ = false;
  endOfRepeatPrintLine_ = true;
  printLine_ = true;
}

void clsObSpecialVar::sExtract(TextView valText) try {
  const TextParts texto;
  const Text line(valText);  // it may be a text of this object's
  sClrObject();
  ownNames().readText = line;
  posBegin_ = narrow<std::int16_t>(texto.position(line, u"{"));
  posEnd_ = narrow<std::int16_t>(texto.position(line, u"}"));
  size_ = narrow<std::int16_t>(posEnd_ - posBegin_ - 1);
  if (posBegin_ == 0) {
    ownNames().readText.clear();
  } else {
    texto.part(line, posBegin_ + 1, size_, ownNames().readText);
  }
  readOrTakeParsed();
} catch (...) {
  trap("sExtract");
}

// The text between the braces stands in ReadText.
void clsObSpecialVar::readOrTakeParsed() {
  if (const ParsedVariable* parsed = parsed_.find(names().readText); parsed != nullptr) {
    lastParsed_ = Ref<const ParsedVariable>(parsed);
    take(*parsed);
    return;
  }
  const Text written = names().readText;
  const Ref<IifValues> listBefore = iif_;
  lastParsed_ = {};
  isRepeatable_ = true;
  raiseAttributesOfFreeVariable();
  sExtractFieldAndCharacteristics();
  if (!isRepeatable_) return;
  lastParsed_ = parsedNow(iif_ == listBefore ? Ref<IifValues>() : iif_);
  parsed_.keep(written, lastParsed_);
}

// A free variable's attributes count in capitals, their arguments too.
void clsObSpecialVar::raiseAttributesOfFreeVariable() {
  const TextParts texto;
  const Text text = names().readText;
  if (!text.starts_with(u'@')) return;
  const std::int32_t comma = texto.position(text, u",");
  if (comma < 1) return;
  Text attributes;
  texto.part(text, 1, comma - 1, ownNames().readText);
  texto.part(text, comma, kLongestFreeAttributes, attributes);
  ownNames().readText += upperCase(attributes);
}

Ref<const ParsedVariable> clsObSpecialVar::parsedNow(const Ref<IifValues>& list) {
  const Ref<ParsedVariable> parsed = make<ParsedVariable>();
  parsed->attributes = a_;
  parsed->names = names_;
  parsed->iif = list;
  parsed->size = size_;
  namesAreShared_ = true;
  return parsed;
}

void clsObSpecialVar::take(const ParsedVariable& parsed) {
  a_ = parsed.attributes;
  names_ = parsed.names;
  namesAreShared_ = true;
  if (parsed.iif) iif_ = parsed.iif;
}

void clsObSpecialVar::takeParsed(const ParsedVariable& parsed, std::int16_t posBegin) {
  clearContent();
  take(parsed);
  size_ = parsed.size;
  standAt(posBegin);
}

void clsObSpecialVar::standAt(std::int16_t posBegin) noexcept {
  posBegin_ = posBegin;
  posEnd_ = static_cast<std::int16_t>(posBegin + size_ + 1);
}

}  // namespace tarvo
