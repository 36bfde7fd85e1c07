#include "template/clsObLineCharacts.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "frame/decimal.h"
#include "frame/modRDPGlobalValues.h"
#include "frame/upper_case.h"
#include "printer/clsUtilImp.h"
#include "template/braces.h"
#include "template/text_parts.h"

namespace tarvo {
namespace {

// In capitals, without blanks at its ends.
Text wordOf(TextView text) {
  Text trimmed;
  TextParts()->fTrim(text, trimmed);
  return upperCase(trimmed);
}

// Where the printer's profile keeps what a word sends.
using PrinterCode = const Text& (clsUtilImp::*)() const noexcept;

struct CodeWord {
  Control control;
  PrinterCode code;
};

constexpr std::array<CodeWord, 8> kCodeWords{
    {{Control::kCondensed, &clsUtilImp::GetChrCondensed},
     {Control::kInitExpanded, &clsUtilImp::GetChrInitExpanded},
     {Control::kEndExpanded, &clsUtilImp::GetChrEndExpanded},
     {Control::kNormal, &clsUtilImp::GetChrNormal},
     {Control::kBold, &clsUtilImp::GetChrBold},
     {Control::kLight, &clsUtilImp::GetChrLight},
     {Control::kInitUnderline, &clsUtilImp::GetChrInitUnderlying},
     {Control::kEndUnderline, &clsUtilImp::GetChrEndUnderlying}}};

// By the control's number; null for a word that sends no code of the profile's.
constexpr auto kCodes = [] {
  std::array<PrinterCode, kControls> codes{};
  for (const CodeWord& word : kCodeWords) codes[static_cast<std::size_t>(word.control)] = word.code;
  return codes;
}();

PrinterCode codeOf(Control control) noexcept { return kCodes[static_cast<std::size_t>(control)]; }

}  // namespace

clsObLineCharacts::clsObLineCharacts() : specialVar_(make<clsObSpecialVar>()) {}
clsObLineCharacts::~clsObLineCharacts() { leaveTemplate(); }

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
  leaveTemplate();
}

// As SetTextToWrite; the text is used up.
void clsObLineCharacts::takeText(Text& text) noexcept {
  textToWrite_.swap(text);
  leaveTemplate();
}

const Text& clsObLineCharacts::GetTextToPrint() const {
  static const Text kEmpty;
  return lineToWriteEmpty_ ? kEmpty : GetTextToWrite();
}

TextView clsObLineCharacts::textToPrint() const {
  const bool isWhole =
      isTranslating() && next_ == template_.get()->variablesEnd() && removed_ == nullptr;
  return isWhole && !lineToWriteEmpty_ ? TextView(template_.get()->whole()) : GetTextToPrint();
}

void clsObLineCharacts::sClrRecord() try {
  textToWrite_.clear();
  const Ref<clsObSpecialVar> variable = specialVar_;
  if (variable) variable->forgetOwedText();
  leaveTemplate();
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
  takeText(comment);
} catch (...) {
  trap("sExtractComment");
}

void clsObLineCharacts::sFormatSpecialVar() try {
  const Ref<clsObSpecialVar> variable = specialVar_;
  variable->sFormatSpecialVar();
} catch (...) {
  trap("sFormatSpecialVar");
}

// Other services are asked about every step from here on.
inline bool clsObLineCharacts::isTranslatingStill() const {
  if (!isTranslating()) return false;
  if (template_->isOfPresentServices()) return true;
  joinText();
  return false;
}

inline void clsObLineCharacts::removeVariable(const clsObSpecialVar& variable) {
  isAtTaken_ = false;
  if (isTranslatingStill() && beginsTheRest(variable)) {
    restBegin_ = next_->end();
    removed_ = next_;
    ++next_;
  } else {
    removeThroughService(variable);
  }
}

void clsObLineCharacts::removeThroughService(const clsObSpecialVar& variable) {
  Text without;
  TextParts()->fDelete(GetTextToWrite(), variable.GetPosBegin(), variable.GetSize() + 1, without);
  takeText(without);
}

// A date's year is asked for even where it does not matter.
inline bool clsObLineCharacts::suppressesLine(clsObSpecialVar& variable) {
  if (!variable.GetVariableToApplyCondition() && variable.GetTypeField() != TFR_Date) return false;
  const bool isEmpty = variable.fIsEmpty();
  return variable.GetVariableToApplyCondition() && isEmpty;
}

void clsObLineCharacts::insertAtVariable(const clsObSpecialVar& variable) {
  const Text& value = variable.GetTextToWrite();
  if (!isTranslatingStill() || removed_ == nullptr) {
    insertThroughService(variable);
  } else if (holdsBrace(value)) {
    // What comes in with a brace is read like the template itself.
    joinText(value);
  } else {
    putValue(value);
  }
}

// In place of the variable that was removed.
inline void clsObLineCharacts::putValue(TextView value) {
  template_->putValue(*std::exchange(removed_, nullptr), settled_, value);
  settled_ += value.size();
}

void clsObLineCharacts::sReplaceVarInTextToWrite() try {
  const Ref<clsObSpecialVar> variable = specialVar_;
  removeVariable(*variable);
  const bool suppresses = suppressesLine(*variable);
  if (suppresses) printLine_ = false;
  if (!suppresses && !variable->GetVariableToWriteEmpty()) {
    insertAtVariable(*variable);
  } else if (isTranslating() && removed_ != nullptr) {
    putValue({});
  }
  if (!variable->GetPrintLine()) printLine_ = false;
} catch (...) {
  trap("sReplaceVarInTextToWrite");
}

void clsObLineCharacts::insertThroughService(const clsObSpecialVar& variable) {
  Text with;
  TextParts()->fInsert(GetTextToWrite(), variable.GetTextToWrite(), variable.GetPosBegin(), with);
  takeText(with);
}

bool clsObLineCharacts::fSpecialVarIsAnyControlChar(TextView valText, Text& refContent) try {
  const Text text(valText);  // it may be the content
  refContent.clear();
  const Control control = controlOf(wordOf(text));
  if (control == Control::kNone) return false;
  if (const Text& content = applyControl(control, refContent); &content != &refContent) {
    refContent = content;
  }
  return true;
} catch (...) {
  trap("fSpecialVarIsAnyControlChar");
}

// Sets what the word asks for, and gives what goes to the printer: the printer's own text, or
// `content`, which is empty before.
const Text& clsObLineCharacts::applyControl(Control control, Text& content) {
  if (const PrinterCode code = codeOf(control); code != nullptr) {
    const Ref<clsUtilImp>& printer = modRDPGlobalValues::ofThisThread().refInsImp;
    return ((*printer).*code)();
  }
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
    case Control::kBlanks:
      TextParts()->fRepeat(u" ", specialVar_->GetLength(), content);
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
    default:
      break;
  }
  return content;
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

void clsObLineCharacts::beginTranslation(TemplateLine& line) {
  leaveTemplate();
  if (const clsObLineCharacts* reader = line.reader(); reader != nullptr) reader->joinText();
  line.beginReading(this);
  textToWrite_.clear();
  settled_ = 0;
  restBegin_ = 0;
  next_ = line.variables();
  removed_ = nullptr;
  isAtTaken_ = false;
  template_ = Ref<TemplateLine>(&line);
}

bool clsObLineCharacts::findsVariable() const {
  return !textToWrite_.empty() && TextParts().position(textToWrite_, u"{") > 0;
}

// Somebody looks at the text: from here on it is one.
void clsObLineCharacts::joinText() const {
  if (isTranslating()) joinText({});
}

// The same with a text at the place of the variable that was removed.
void clsObLineCharacts::joinText(TextView between) const {
  textToWrite_.clear();
  textToWrite_.append(template_->imageUpTo(next_).data(), settled_);
  if (!between.empty()) textToWrite_.append(between);
  const TextView rest = TextView(template_->text()).substr(restBegin_);
  if (!rest.empty()) textToWrite_.append(rest);
  leaveTemplate();
}

void clsObLineCharacts::endTranslation() const noexcept {
  isAtTaken_ = false;
  leaveTextInVariable();
  template_->endReading();
  template_ = {};
}

void clsObLineCharacts::lookForNextVariable() {
  isAtTaken_ = false;
  if (!isTranslatingStill()) {
    sExtractSpecialVar(textToWrite_);
    joinText();  // a message may have led back to this line, and to another translation
    return;
  }
  template_->putText(settled_, restBegin_, next_->open);
  settled_ += next_->open - restBegin_;
  restBegin_ = next_->open;
  const std::size_t place = settled_ + 1;
  if (next_->parsed && specialVar_ && place + next_->size < kLastPlace) {
    specialVar_->takeParsed(*next_->parsed, static_cast<std::int16_t>(place), this);
  } else {
    readNextVariable();
  }
}

void clsObLineCharacts::readNextVariable() {
  const Ref<TemplateLine> held = template_;
  const Ref<clsObSpecialVar> variable = specialVar_;
  TemplateLine::Variable& next = *next_;
  Text rest(held->imageUpTo(&next), 0, settled_);
  rest.append(held->text(), restBegin_);
  sExtractSpecialVar(rest);
  // A message may have led back to this line, and have done anything to it.
  if (template_ != held || next_ != &next || specialVar_ != variable) {
    joinText();
    return;
  }
  next.value.form = SettledValue::Form::kUnknown;
  next.parsed = variable->lastParsed();
  next.control = controlOf(upperCase(trimBlanks(variable->GetFieldName())));
  next.isConstant = variable->GetFieldName().starts_with(kFreeMark);
  next.isLibrarys = next.isConstant || next.control != Control::kNone;
}

// Whether the word is a constant, or sends the code that stands in the image.
inline bool clsObLineCharacts::hasKnownText(const TemplateLine::Variable& word) const {
  if (!word.value.isKnownText()) return false;
  if (word.isConstant) return true;
  const PrinterCode code = codeOf(word.control);
  const clsUtilImp* const printer = template_.get()->printer();
  return code != nullptr && printer != nullptr && TextEqual()((printer->*code)(), word.value.text);
}

// Words that only send a code, and constants, whose value stands in the image: the variable need
// not say so, for the one behind them takes its place.
void clsObLineCharacts::passKnownWords() {
  for (; next_ + 1 != template_->variablesEnd(); ++next_) {
    // An IIF's list stays behind in the variable.
    if (!hasKnownText(*next_) || next_->parsed->iif) return;
    settled_ += next_->open - restBegin_ + next_->valueSize;
    restBegin_ = next_->end();
  }
}

bool clsObLineCharacts::givesKnownText() {
  if (!isAtKeptValue() || !hasKnownText(*next_)) return false;
  specialVar_->SetContentString(next_->value.text);
  return true;
}

void clsObLineCharacts::settleStepByStep() {
  sFormatSpecialVar();
  sReplaceVarInTextToWrite();
}

// What the variable has not fetched yet, while it is there.
void clsObLineCharacts::leaveTextInVariable() const noexcept {
  const clsObSpecialVar* const variable = specialVar_.get();
  if (variable != nullptr && isTranslating() && variable->isOwedTextOf(*template_.get())) {
    variable->takeOwedText();
  }
}

// Where nobody watches the services and nothing but the text matters, it goes to its place at once,
// and is kept.
void clsObLineCharacts::settlePlainValue() {
  isAtTaken_ = false;
  sFormatSpecialVar();
  const clsObSpecialVar& variable = *specialVar_;
  const Text& value = variable.GetTextToWrite();
  TemplateLine::Variable& place = *next_++;
  restBegin_ = place.end();
  // An amount has none.
  if (variable.GetTypeField() != TFR_Numeric && holdsBrace(value)) {
    joinText(value);
    return;
  }
  template_->putValue(place, settled_, value);
  settled_ += value.size();
  variable.keepIn(place.value);
}

const Text* clsObLineCharacts::applyControlWord(Text& content) {
  if (isTranslating()) return applyKnownControl(next_->control, content);
  return fSpecialVarIsAnyControlChar(GetField(), content) ? &content : nullptr;
}

const Text* clsObLineCharacts::applyKnownControl(Control control, Text& content) try {
  if (control == Control::kNone) return nullptr;
  content.clear();
  return &applyControl(control, content);
} catch (...) {
  trap("fSpecialVarIsAnyControlChar");
}

}  // namespace tarvo
