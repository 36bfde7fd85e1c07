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

// As SetTextToWrite; the text is used up.
void clsObLineCharacts::takeText(Text& text) noexcept {
  textToWrite_.swap(text);
  template_ = {};
}

const Text& clsObLineCharacts::GetTextToPrint() const {
  static const Text kEmpty;
  return lineToWriteEmpty_ ? kEmpty : GetTextToWrite();
}

void clsObLineCharacts::sClrRecord() try {
  textToWrite_.clear();
  template_ = {};
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

// Whether the variable is still the one with which the rest of the template line begins.
inline bool clsObLineCharacts::beginsTheRest(const clsObSpecialVar& variable) const noexcept {
  return next_ != template_->variablesEnd() && restBegin_ == next_->open &&
         static_cast<std::size_t>(variable.GetPosBegin()) == textToWrite_.size() + 1 &&
         static_cast<std::size_t>(variable.GetSize()) == next_->size;
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
  takeText(without);
}

// A date's year is asked for even where it does not matter.
inline bool clsObLineCharacts::suppressesLine(clsObSpecialVar& variable) {
  if (!variable.GetVariableToApplyCondition() && variable.GetTypeField() != TFR_Date) return false;
  const bool isEmpty = variable.fIsEmpty();
  return variable.GetVariableToApplyCondition() && isEmpty;
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

void clsObLineCharacts::sReplaceVarInTextToWrite() try {
  const Ref<clsObSpecialVar> variable = specialVar_;
  removeVariable(*variable);
  if (suppressesLine(*variable)) {
    printLine_ = false;
  } else if (!variable->GetVariableToWriteEmpty()) {
    insertAtVariable(*variable);
  }
  if (!variable->GetPrintLine()) printLine_ = false;
} catch (...) {
  trap("sReplaceVarInTextToWrite");
}

void clsObLineCharacts::insertThroughService(const clsObSpecialVar& variable) {
  Text with;
  TextParts()->fInsert(textToWrite_, variable.GetTextToWrite(), variable.GetPosBegin(), with);
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

void clsObLineCharacts::beginTranslation(Ref<TemplateLine> line) {
  textToWrite_.clear();
  restBegin_ = 0;
  next_ = line->variables();
  template_ = std::move(line);
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
