#include "template/clsObLineCharacts.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "frame/decimal.h"
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
constexpr Eight kOpening{u'{', u'{', u'{', u'{', u'{', u'{', u'{', u'{'};
constexpr Eight kClosing{u'}', u'}', u'}', u'}', u'}', u'}', u'}', u'}'};

// Marks what it finds.
void findBraces(const char16_t* text, Eight& found) noexcept {
  Eight characters;
  std::memcpy(&characters, text, sizeof characters);
  found |= Eight((characters == kOpening) | (characters == kClosing));
}

bool holdsBrace(TextView text) noexcept {
  constexpr std::size_t kAtOnce = 8;
  if (text.size() < kAtOnce) {
    return std::any_of(text.begin(), text.end(), [](char16_t c) { return c == u'{' || c == u'}'; });
  }
  const std::size_t last = text.size() - kAtOnce;
  Eight found{};
  findBraces(text.data() + last, found);
  for (std::size_t i = 0; i < last; i += kAtOnce) findBraces(text.data() + i, found);
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

inline void clsObLineCharacts::removeVariable(const clsObSpecialVar& variable) {
  if (isTranslatingStill() && beginsTheRest(variable)) {
    restBegin_ = next_->end();
    ++next_;
  } else {
    removeThroughService(variable);
  }
}

void clsObLineCharacts::removeThroughService(const clsObSpecialVar& variable) {
  Text without;
  TextParts()->fDelete(GetTextToWrite(), variable.GetPosBegin(), variable.GetSize() + 1, without);
  SetTextToWrite(without);
}

// Whether the variable is still the one with which the rest of the template line begins.
inline bool clsObLineCharacts::beginsTheRest(const clsObSpecialVar& variable) const noexcept {
  return next_ != template_->variablesEnd() && restBegin_ == next_->open &&
         static_cast<std::size_t>(variable.GetPosBegin()) == textToWrite_.size() + 1 &&
         static_cast<std::size_t>(variable.GetSize()) == next_->size;
}

inline void clsObLineCharacts::insertAtVariable(const clsObSpecialVar& variable) {
  if (!isTranslatingStill()) {
    insertThroughService(variable);
    return;
  }
  const Text& value = variable.GetTextToWrite();
  textToWrite_ += value;
  // What comes in with a brace is read like the template itself.
  if (holdsBrace(value)) joinText();
}

void clsObLineCharacts::insertThroughService(const clsObSpecialVar& variable) {
  Text with;
  TextParts()->fInsert(textToWrite_, variable.GetTextToWrite(), variable.GetPosBegin(), with);
  SetTextToWrite(with);
}

bool clsObLineCharacts::fSpecialVarIsAnyControlChar(TextView valText, Text& refContent) try {
  const Text text(valText);  // it may be the content
  refContent.clear();
  return applyControl(controlOf(wordOf(text)), refContent);
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

// Other services are asked about every step from here on.
inline bool clsObLineCharacts::isTranslatingStill() const {
  if (!isTranslating()) return false;
  if (template_->isOfPresentServices()) return true;
  joinText();
  return false;
}

bool clsObLineCharacts::findsVariable() const {
  return !textToWrite_.empty() && TextParts().position(textToWrite_, u"{") > 0;
}

// Somebody looks at the text: from here on it is one.
void clsObLineCharacts::joinText() const {
  if (!isTranslating()) return;
  textToWrite_.append(template_->text(), restBegin_);
  template_ = {};
}

void clsObLineCharacts::extractNextVariable() {
  if (!isTranslatingStill()) {
    sExtractSpecialVar(textToWrite_);
    joinText();  // a message may have led back to this line, and to another translation
    return;
  }
  if (const std::size_t before = next_->open - restBegin_; before != 0) {
    textToWrite_.append(template_->text(), restBegin_, before);
    restBegin_ = next_->open;
  }
  constexpr auto kLastPlace = static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max());
  const std::size_t place = textToWrite_.size() + 1;
  if (next_->parsed && specialVar_ && place + next_->size < kLastPlace) {
    specialVar_->takeParsed(*next_->parsed, static_cast<std::int16_t>(place));
  } else {
    readNextVariable();
  }
}

void clsObLineCharacts::readNextVariable() {
  const Ref<TemplateLine> held = template_;
  const Ref<clsObSpecialVar> variable = specialVar_;
  TemplateLine::Variable& next = *next_;
  sExtractSpecialVar(textToWrite_ + held->text().substr(restBegin_));
  // A message may have led back to this line, and have done anything to it.
  if (template_ != held || next_ != &next || specialVar_ != variable) {
    joinText();
    return;
  }
  next.parsed = variable->lastParsed();
  next.control = controlOf(upperCase(trimBlanks(variable->GetFieldName())));
  next.isConstant = variable->GetFieldName().starts_with(kFreeMark);
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
