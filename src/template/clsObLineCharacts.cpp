#include "template/clsObLineCharacts.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "frame/checked.h"
#include "frame/modRDPGlobalValues.h"
#include "frame/upper_case.h"
#include "printer/clsUtilImp.h"
#include "template/text_parts.h"

namespace tarvo {
namespace {

constexpr TextView kPauseWord = u"PAUSA";

// In capitals, without blanks at its ends.
Text wordOf(TextView text) {
  Text trimmed;
  TextParts()->fTrim(text, trimmed);
  return upperCase(trimmed);
}

// Eight characters that are looked at in one step.
using Eight = std::uint16_t __attribute__((vector_size(16)));

Eight bracesAmong(const char16_t* text) noexcept {
  Eight characters;
  std::memcpy(&characters, text, sizeof characters);
  return static_cast<Eight>((characters == u'{') | (characters == u'}'));
}

bool holdsBrace(TextView text) noexcept {
  constexpr std::size_t kAtOnce = 8;
  if (text.size() < kAtOnce) {
    return std::any_of(text.begin(), text.end(), [](char16_t c) { return c == u'{' || c == u'}'; });
  }
  const std::size_t last = text.size() - kAtOnce;
  Eight found = bracesAmong(text.data() + last);
  for (std::size_t i = 0; i < last; i += kAtOnce) found |= bracesAmong(text.data() + i);
  std::array<std::uint64_t, 2> halves;
  std::memcpy(&halves, &found, sizeof halves);
  return (halves[0] | halves[1]) != 0;
}

}  // namespace

clsObLineCharacts::clsObLineCharacts() : specialVar_(make<clsObSpecialVar>()) {}
clsObLineCharacts::~clsObLineCharacts() = default;

const ErrorIdentity& clsObLineCharacts::errorIdentity() const noexcept {
  static constexpr ErrorIdentity kIdentity{u"clsObLineCharacteristic",
                                           u"Lib. Impresión Texto - Ob Line"};
  return kIdentity;
}

const Text& clsObLineCharacts::GetTextToWrite() const {
  joinText();
  return textToWrite_;
}

void clsObLineCharacts::SetTextToWrite(TextView valNewValue) {
  textToWrite_ = valNewValue;
  template_ = {};
}

const Text& clsObLineCharacts::GetTextToPrint() const {
  static const Text kEmpty;
  return lineToWriteEmpty_ ? kEmpty : GetTextToWrite();
}

void clsObLineCharacts::sClrRecord() try {
  SetTextToWrite({});
  const Ref<clsObSpecialVar> variable = specialVar_;
  variable->sClrObject();
  alignment_ = eAT_Left;
  hasTab_ = false;
  tabPos_ = 0;
  skipLine_ = true;
  skipNPoints_ = false;
  numberOfSkips_ = 1;
  printLine_ = true;
  skipPageWasRead_ = false;
  pauseWasRead_ = false;
  lineToWriteEmpty_ = false;
  variable->SetEndOfRepeatPrintLine(true);
} catch (...) {
  trap("sClrRecord");
}

void clsObLineCharacts::sExtractSpecialVar(TextView valLine) try {
  const Ref<clsObSpecialVar> variable = specialVar_;
  variable->sExtract(valLine);
} catch (...) {
  trap("sExtractSpecialVar");
}

void clsObLineCharacts::sExtractComment(Text& valLine) try {
  Text comment;
  TextParts()->fStrip(valLine, u".", comment);
  SetTextToWrite(comment);
} catch (...) {
  trap("sExtractComment");
}

void clsObLineCharacts::sFormatSpecialVar() try {
  const Ref<clsObSpecialVar> variable = specialVar_;
  variable->sFormatSpecialVar();
} catch (...) {
  trap("sFormatSpecialVar");
}

void clsObLineCharacts::sReplaceVarInTextToWrite() try {
  const Ref<clsObSpecialVar> variable = specialVar_;
  removeVariable(*variable);
  const bool isEmpty = variable->fIsEmpty();  // asked of every variable, conditional or not
  if (variable->GetVariableToApplyCondition() && isEmpty) {
    printLine_ = false;
  } else if (!variable->GetVariableToWriteEmpty()) {
    insertAtVariable(*variable);
  }
  if (!variable->GetPrintLine()) printLine_ = false;
} catch (...) {
  trap("sReplaceVarInTextToWrite");
}

void clsObLineCharacts::removeVariable(const clsObSpecialVar& variable) {
  if (beginsTheRest(variable)) {
    restBegin_ = next_->end();
    ++next_;
    return;
  }
  Text without;
  TextParts()->fDelete(GetTextToWrite(), variable.GetPosBegin(), variable.GetSize() + 1, without);
  SetTextToWrite(without);
}

// Whether the variable is still the one with which the rest of the template line begins.
bool clsObLineCharacts::beginsTheRest(const clsObSpecialVar& variable) const noexcept {
  return isTranslating() && next_ != template_.get()->variablesEnd() && restBegin_ == next_->open &&
         static_cast<std::size_t>(variable.GetPosBegin()) == textToWrite_.size() + 1 &&
         static_cast<std::size_t>(variable.GetSize()) == next_->size;
}

void clsObLineCharacts::insertAtVariable(const clsObSpecialVar& variable) {
  const Text& value = variable.GetTextToWrite();
  if (isTranslating()) {
    textToWrite_ += value;
    // What comes in with a brace is read like the template itself.
    if (holdsBrace(value)) joinText();
    return;
  }
  Text with;
  TextParts()->fInsert(textToWrite_, value, variable.GetPosBegin(), with);
  SetTextToWrite(with);
}

bool clsObLineCharacts::fSpecialVarIsAnyControlChar(TextView valText, Text& refContent) try {
  const Control control = controlOf(wordOf(valText));
  refContent.clear();
  return applyControl(control, refContent);
} catch (...) {
  trap("fSpecialVarIsAnyControlChar");
}

bool clsObLineCharacts::applyControl(Control control, Text& refContent) {
  if (control == Control::kNone) return false;
  const Ref<clsUtilImp> printer = modRDPGlobalValues::ofThisThread().refInsImp;
  switch (control) {
    case Control::kSkipPoints:
      skipLine_ = false;
      numberOfSkips_ = specialVar_->GetLength();
      skipNPoints_ = true;
      specialVar_->SetNotSpacesToTheSides(true);
      break;
    case Control::kSkipLines:
      skipLine_ = true;
      numberOfSkips_ = specialVar_->GetLength();
      skipNPoints_ = false;
      break;
    case Control::kCondensed:
      refContent = printer->GetChrCondensed();
      break;
    case Control::kInitExpanded:
      refContent = printer->GetChrInitExpanded();
      break;
    case Control::kEndExpanded:
      refContent = printer->GetChrEndExpanded();
      break;
    case Control::kNormal:
      refContent = printer->GetChrNormal();
      break;
    case Control::kBold:
      refContent = printer->GetChrBold();
      break;
    case Control::kLight:
      refContent = printer->GetChrLight();
      break;
    case Control::kBlanks:
      TextParts()->fRepeat(u" ", specialVar_->GetLength(), refContent);
      break;
    case Control::kSkipPage:
      skipPageWasRead_ = true;
      break;
    case Control::kTab:
      hasTab_ = true;
      break;
    case Control::kRepeat:
      repeatLine();
      break;
    case Control::kInitUnderline:
      refContent = printer->GetChrInitUnderlying();
      break;
    case Control::kEndUnderline:
      refContent = printer->GetChrEndUnderlying();
      break;
    case Control::kNone:
      break;
  }
  return true;
}

void clsObLineCharacts::repeatLine() {
  specialVar_->SetEndOfRepeatPrintLine(false);
  specialVar_->SetLineOfRepeatToPrint(!specialVar_->GetLineOfRepeatToPrint());
}

bool clsObLineCharacts::fCheckAnyPrintingControlVarInCommentary(TextView valText) try {
  if (wordOf(valText) != kPauseWord) return false;
  pauseWasRead_ = true;
  return true;
} catch (...) {
  trap("fCheckAnyPrintingControlVarInCommentary");
}

std::uint8_t clsObLineCharacts::fNumberOfPrintedLinesThatWillFill() try {
  if (!printLine_ || !skipLine_) return 0;
  return std::max<std::uint8_t>(numberOfSkips_, 1);
} catch (...) {
  trap("fNumberOfPrintedLinesThatWillFill");
}

void clsObLineCharacts::beginTranslation(Ref<TemplateLine> line) {
  textToWrite_.clear();
  restBegin_ = 0;
  next_ = line->variables();
  template_ = std::move(line);
}

// Somebody looks at the text: from here on it is one.
void clsObLineCharacts::joinText() const {
  if (!isTranslating()) return;
  textToWrite_.append(template_->text(), restBegin_);
  template_ = {};
}

bool clsObLineCharacts::holdsVariable() const {
  if (isTranslating()) return next_ != template_.get()->variablesEnd();
  return !textToWrite_.empty() && TextParts().position(textToWrite_, u"{") > 0;
}

void clsObLineCharacts::extractNextVariable() {
  if (!isTranslating()) {
    sExtractSpecialVar(textToWrite_);
    return;
  }
  const std::size_t before = next_->open - restBegin_;
  const std::size_t place = textToWrite_.size() + before + 1;
  if (place + next_->size >= std::numeric_limits<std::int16_t>::max()) {
    joinText();
    sExtractSpecialVar(textToWrite_);
    return;
  }
  if (before != 0) {
    textToWrite_.append(template_.get()->text(), restBegin_, before);
    restBegin_ = next_->open;
  }
  readNext(static_cast<std::int16_t>(place));
}

void clsObLineCharacts::readNext(std::int16_t place) try {
  const Ref<clsObSpecialVar> variable = specialVar_;
  if (next_->parsed) {
    variable->takeParsed(*next_->parsed.get(), place);
    return;
  }
  // A message may lead back to this line.
  const Ref<TemplateLine> held = template_;
  TemplateLine::Variable& next = *next_;
  variable->sExtract(TextView(held->text()).substr(next.open, next.size + 2));
  next.parsed = variable->lastParsed();
  next.control = controlOf(variable->GetFieldName());
  next.isConstant = variable->GetFieldName().starts_with(u'@');
  variable->standAt(place);
} catch (...) {
  trap("sExtractSpecialVar");
}

bool clsObLineCharacts::isKnownToBeClients() const noexcept {
  return isTranslating() && next_->control == Control::kNone && !next_->isConstant;
}

bool clsObLineCharacts::applyControlWord(Text& refContent) {
  if (!isTranslating()) return fSpecialVarIsAnyControlChar(GetField(), refContent);
  return applyKnownControl(next_->control, refContent);
}

bool clsObLineCharacts::applyKnownControl(Control control, Text& refContent) try {
  refContent.clear();
  return applyControl(control, refContent);
} catch (...) {
  trap("fSpecialVarIsAnyControlChar");
}

}  // namespace tarvo
