#include "template/clsObSpecialVar.h"

#include <utility>

#include "frame/checked.h"
#include "frame/modRDPGlobalValues.h"
#include "frame/upper_case.h"
#include "template/control_words.h"
#include "template/template_line.h"
#include "template/text_parts.h"

namespace tarvo {
namespace {

constexpr std::int32_t kLongestFreeAttributes = 255;

}  // namespace

clsObSpecialVar::clsObSpecialVar() : nothing_(make<ParsedVariable>()), iif_(make<IifValues>()) {
  clear();
}
clsObSpecialVar::~clsObSpecialVar() = default;

const ErrorIdentity& clsObSpecialVar::errorIdentity() const noexcept {
  static constexpr ErrorIdentity kIdentity{u"clsObSpecialVar",
                                           u"Lib. Impresión Texto - Ob Special Var"};
  return kIdentity;
}

void clsObSpecialVar::SetIifPossibleValues(const Value& valNewValue) { setIifValues(valNewValue); }

void clsObSpecialVar::setIifValues(Value values) {
  Ref<IifValues> list = make<IifValues>();
  list->values = std::move(values);
  iif_ = list;
  hasIifOfItsOwn_ = true;
}

VariableNames& clsObSpecialVar::ownNames() {
  if (names_ != ownNames_.get()) {
    ownNames_ = make<VariableNames>(*names_);
    names_ = ownNames_.get();
  }
  return *ownNames_;
}

void clsObSpecialVar::sClrObject() try { clear(); } catch (...) {
  trap("sClrObject");
}

void clsObSpecialVar::clear() {
  share(*nothing_);
  hasIifOfItsOwn_ = false;
  takenBy_ = nullptr;
  posEnd_ = 0;
  size_ = 0;
  posBegin_ = 0;
  clearContent();
}

void clsObSpecialVar::fetchText() const noexcept {
  textToWrite_.clear();
  textToWrite_.append(std::exchange(textLine_, nullptr)->lastValue(textAt_));
}

void clsObSpecialVar::sExtract(TextView valText) try {
  const TextParts texto;
  Text text(valText);  // it may be a text of this object's
  lastParsed_ = {};
  sClrObject();
  ownNames().readText = text;
  posBegin_ = narrow<std::int16_t>(texto.position(text, u"{"));
  posEnd_ = narrow<std::int16_t>(texto.position(text, u"}"));
  size_ = narrow<std::int16_t>(posEnd_ - posBegin_ - 1);
  if (posBegin_ == 0) {
    text.clear();
  } else {
    texto.part(text, posBegin_ + 1, size_);
  }
  ownNames().readText = text;
  readOrTakeParsed(text);
} catch (...) {
  trap("sExtract");
}

void clsObSpecialVar::readOrTakeParsed(const Text& written) {
  if (const ParsedVariable* parsed = parsed_.find(written); parsed != nullptr) {
    lastParsed_ = Ref<const ParsedVariable>(parsed);
    take(*parsed);
    return;
  }
  const std::uint32_t reading = ++readings_;
  raiseAttributesOfFreeVariable(written);
  sExtractFieldAndCharacteristics();
  if (readings_ != reading) {
    lastParsed_ = {};  // it may be that of a reading within this one
    return;
  }
  lastParsed_ = parsedNow(written.size());
  if (!parsed_.keep(written, lastParsed_)) lastParsed_ = {};
}

// A free variable's attributes count in capitals, their arguments too.
void clsObSpecialVar::raiseAttributesOfFreeVariable(const Text& written) {
  const TextParts texto;
  if (!written.starts_with(kFreeMark)) return;
  const std::int32_t comma = texto.position(written, u",");
  if (comma < 1) return;
  Text name;
  texto.part(written, 1, comma - 1, name);
  Text attributes;
  texto.part(written, comma, kLongestFreeAttributes, attributes);
  ownNames().readText = name + upperCase(attributes);
}

Ref<const ParsedVariable> clsObSpecialVar::parsedNow(std::size_t size) {
  const Ref<ParsedVariable> parsed = make<ParsedVariable>(*a_, Ref<const VariableNames>(names_));
  if (hasIifOfItsOwn_) parsed->iif = iif_;
  parsed->size = narrow<std::int16_t>(size);
  share(*parsed);
  ownNames_ = nullptr;
  return parsed;
}

}  // namespace tarvo
