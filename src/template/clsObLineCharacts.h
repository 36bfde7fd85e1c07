// One line of a template while a report engine works on it.
//
// Holds the text that will be printed, the one special variable that is being resolved, and what
// the line's control words asked for.  It knows nothing of files, pages or printers: an engine
// feeds it (line_translator.h), and reads its flags to decide how to write it.
//
// For each template line: sClrRecord, SetTextToWrite; then, while the text holds a "{",
// sExtractSpecialVar, the variable's value, sFormatSpecialVar, sReplaceVarInTextToWrite.
//
// Positions count from 1.  The accessors keep what they are given; nothing is checked.
//
// Errors: every operation but the accessors, GetField and GetTextToPrint follows the convention of
// trapped.h.
//
// Threads: the client's.
#pragma once

#include <cstdint>
#include <limits>

#include "frame/enums.h"
#include "frame/text.h"
#include "frame/trapped.h"
#include "template/clsObSpecialVar.h"
#include "template/control_words.h"
#include "template/template_line.h"

namespace tarvo {

class clsObLineCharacts final : public TrappedObject {
 public:
  // Makes the variable.  Everything else is false, 0 or empty until sClrRecord runs.
  clsObLineCharacts();
  ~clsObLineCharacts() override;

  // The line as it will be printed: the template line, with a value in the place of each variable
  // that was resolved so far.
  const Text& GetTextToWrite() const;
  void SetTextToWrite(TextView valNewValue);

  // The variable that is being resolved; the library never replaces it.
  const Ref<clsObSpecialVar>& GetSpecialVar() const noexcept { return specialVar_; }
  void SetSpecialVar(Ref<clsObSpecialVar> valNewValue) noexcept {
    leaveTextInVariable();
    specialVar_ = std::move(valNewValue);
    isAtTaken_ = false;
  }

  // Kept for the engines, like HasTab and TabPos.
  eAlignmentType GetAlignment() const noexcept { return alignment_; }
  void SetAlignment(eAlignmentType valNewValue) noexcept { alignment_ = valNewValue; }
  bool GetHasTab() const noexcept { return hasTab_; }
  void SetHasTab(bool valNewValue) noexcept { hasTab_ = valNewValue; }
  std::uint8_t GetTabPos() const noexcept { return tabPos_; }
  void SetTabPos(std::uint8_t valNewValue) noexcept { tabPos_ = valNewValue; }

  // Whether the line ends with line feeds, or stays open; and whether the paper then advances by
  // points.
  bool GetSkipLine() const noexcept { return skipLine_; }
  void SetSkipLine(bool valNewValue) noexcept { skipLine_ = valNewValue; }
  bool GetSkipNPoints() const noexcept { return skipNPoints_; }
  void SetSkipNPoints(bool valNewValue) noexcept { skipNPoints_ = valNewValue; }
  // How many line feeds, or how many points.
  std::uint8_t GetNumberOfSkips() const noexcept { return numberOfSkips_; }
  void SetNumberOfSkips(std::uint8_t valNewValue) noexcept { numberOfSkips_ = valNewValue; }

  // False: nothing of the line is printed.
  bool GetPrintLine() const noexcept { return printLine_; }
  void SetPrintLine(bool valNewValue) noexcept { printLine_ = valNewValue; }

  // Whether the line breaks the page; whether it is a comment that asks for a pause.
  bool GetSkipPageWasRead() const noexcept { return skipPageWasRead_; }
  void SetSkipPageWasRead(bool valNewValue) noexcept { skipPageWasRead_ = valNewValue; }
  bool GetPauseWasRead() const noexcept { return pauseWasRead_; }
  void SetPauseWasRead(bool valNewValue) noexcept { pauseWasRead_ = valNewValue; }

  // Whether the line is printed as an empty one, whatever its text.
  bool GetLineToWriteEmpty() const noexcept { return lineToWriteEmpty_; }
  void SetLineToWriteEmpty(bool valNewValue) noexcept { lineToWriteEmpty_ = valNewValue; }

  // An empty line that is printed and ends with one line feed; the variable cleared.
  void sClrRecord();

  // Has the variable read the first variable of the line.
  void sExtractSpecialVar(TextView valLine);

  // Takes a comment's text: the line without its full stops.
  void sExtractComment(Text& valLine);

  // Has the variable format its value.
  void sFormatSpecialVar();

  // Puts the variable's formatted text where the variable stands in the line, or suppresses the
  // line when the variable is empty and conditional, or says so.  A line once suppressed stays so.
  // REQUIRES: the variable was extracted from the present text; otherwise what stands at its
  // position is taken out.
  void sReplaceVarInTextToWrite();

  // Whether the text is a control word (control_words.h), in either case and with blanks around it.
  // If so, sets what the word asks for, and `refContent` is what goes to the printer in its place:
  //   SNP, SALTANPUNTOS        no line feed; Length points instead.  The blanks of its width go.
  //   SNL, SALTANLINEAS        Length line feeds
  //   COMP, EXPANDIDO, ...     the printer's code
  //   NB, NBLANCOS             Length blanks
  //   SALTAPAGINA, TAB         the flag
  //   REPEAT                   the line is printed again, if this is its last variable; the
  //                            variable's LineOfRepeatToPrint is turned round
  // If not, `refContent` is empty.
  bool fSpecialVarIsAnyControlChar(TextView valText, Text& refContent);

  // Whether a comment's text is the pause word, in either case and with blanks around it; if so,
  // sets PauseWasRead.
  bool fCheckAnyPrintingControlVarInCommentary(TextView valText);

  // The variable's field name.  Raises: 91 without a variable.
  const Text& GetField() const { return specialVar_->GetFieldName(); }

  // What is printed.
  const Text& GetTextToPrint() const;

  // The same for the engines, without a copy where the text stands together already.  Valid until
  // the line is used for anything.
  TextView textToPrint() const;

  // How many printed lines the line takes: none when it is not printed or ends without line feed,
  // else at least one.
  std::uint8_t fNumberOfPrintedLinesThatWillFill();

 private:
  // --- For the translation of a whole line.  While it runs without anybody looking at the text,
  // --- the line keeps what is settled and what is left apart, and nothing is moved.
  friend class LineTranslator;

  // As SetTextToWrite with the line's text, which has been looked through before.
  // REQUIRES: a regular line, and a text service that may be bypassed.
  void beginTranslation(TemplateLine& line);

  // Whether the text holds a "{".
  bool holdsVariable() const {
    return isTranslating() ? next_ != template_.get()->variablesEnd() : findsVariable();
  }

  // As sExtractSpecialVar with the present text.  Whether the variable is known to be neither a
  // control word nor a constant.
  bool extractNextVariable() {
    if (takesNextVariable()) return !next_->isLibrarys;
    lookForNextVariable();
    return isTranslating() && !next_->isLibrarys;
  }

  // As fSpecialVarIsAnyControlChar with the field's name.  Gives what goes to the printer, either
  // `content` or a text of the printer's; null when the name is no control word.
  const Text* applyControlWord(Text& content);

  // The same and the giving of the text, for a variable whose text stands in the image: a word that
  // only sends a code, or a constant.  False: it is not known; nothing has happened.
  bool givesKnownText();

  // As sFormatSpecialVar and then sReplaceVarInTextToWrite.
  void settleVariable();

  const ErrorIdentity& errorIdentity() const noexcept override;

  bool isTranslating() const noexcept { return static_cast<bool>(template_); }
  bool isTranslatingStill() const;
  void takeText(Text& text) noexcept;
  void joinText() const;
  void joinText(TextView between) const;
  void leaveTemplate() const noexcept {
    if (isTranslating()) endTranslation();
  }
  void endTranslation() const noexcept;
  bool findsVariable() const;
  bool beginsTheRest(const clsObSpecialVar& variable) const noexcept;
  void removeVariable(const clsObSpecialVar& variable);
  bool suppressesLine(clsObSpecialVar& variable);
  void removeThroughService(const clsObSpecialVar& variable);
  void insertAtVariable(const clsObSpecialVar& variable);
  void passKnownWords();
  bool hasKnownText(const TemplateLine::Variable& word) const;
  bool isAtKeptValue() const noexcept;
  bool takesValue(const clsObSpecialVar& variable);
  void passValue();
  void leaveTextInVariable() const noexcept;
  void settleStepByStep();
  void settlePlainValue();
  void putValue(TextView value);
  void insertThroughService(const clsObSpecialVar& variable);
  bool takesNextVariable();
  void lookForNextVariable();
  void readNextVariable();
  const Text* applyKnownControl(Control control, Text& content);
  const Text& applyControl(Control control, Text& content);
  void repeatLine();

  static constexpr auto kLastPlace =
      static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max());

  mutable Text textToWrite_;

  // While translating the text is what is settled so far, which is the beginning of the template
  // line's image, and then the rest of the template line.
  mutable Ref<TemplateLine> template_;
  std::size_t settled_ = 0;                    // characters of the image
  std::size_t restBegin_ = 0;                  // from where the template line's text is left
  TemplateLine::Variable* next_ = nullptr;     // the first variable of the rest
  TemplateLine::Variable* removed_ = nullptr;  // the one before it, until its value is put there

  // The variable was taken from next_, and nothing of all this has changed since.
  mutable bool isAtTaken_ = false;

  Ref<clsObSpecialVar> specialVar_;
  eAlignmentType alignment_ = eAT_Right;
  std::uint8_t tabPos_ = 0;
  std::uint8_t numberOfSkips_ = 0;
  bool hasTab_ = false;
  bool skipLine_ = false;
  bool skipNPoints_ = false;
  bool printLine_ = false;
  bool skipPageWasRead_ = false;
  bool pauseWasRead_ = false;
  bool lineToWriteEmpty_ = false;
};

// Whether the variable is still the one with which the rest of the template line begins.
inline bool clsObLineCharacts::beginsTheRest(const clsObSpecialVar& variable) const noexcept {
  return next_ != template_.get()->variablesEnd() && restBegin_ == next_->open &&
         variable.standsAt(settled_ + 1, next_->size);
}

// The way of nearly every variable: it was read before, and nothing has happened since the one
// before it.
inline bool clsObLineCharacts::takesNextVariable() {
  clsObSpecialVar* const variable = specialVar_.get();
  if (!isTranslating() || !template_.get()->hasKeptValues() || variable == nullptr) return false;
  if (next_->isLibrarys) passKnownWords();
  const TemplateLine::Variable& next = *next_;
  const ParsedVariable* const parsed = next.parsed.get();
  if (parsed == nullptr) return false;
  const std::size_t place = settled_ + (next.open - restBegin_) + 1;
  if (place + next.size >= kLastPlace) return false;
  settled_ = place - 1;
  restBegin_ = next.open;
  variable->takeParsed(*parsed, static_cast<std::int16_t>(place), this);
  isAtTaken_ = true;
  return true;
}

// Whether nothing but the variable's value and attributes can have changed since then.
inline bool clsObLineCharacts::isAtKeptValue() const noexcept {
  return isAtTaken_ && template_.get()->isOfPresentServices() &&
         specialVar_.get()->isStillTakenBy(this);
}

// Whether the image has the present value, or has taken it.
[[gnu::always_inline]] inline bool clsObLineCharacts::takesValue(const clsObSpecialVar& variable) {
  const ParsedVariable& parsed = *next_->parsed.get();
  if (variable.isNumberField(parsed)) {
    return template_.get()->takesNumberField(*next_, variable.GetContentNumeric(),
                                             variable.parenthesisIfNegative());
  }
  if (variable.isTextField(parsed)) {
    return template_.get()->takesTextField(*next_, settled_, variable.contentText());
  }
  return variable.hasStill(next_->value, parsed);
}

// What formatting leaves in the variable is seen only when no other variable follows, which clears
// it.
inline void clsObLineCharacts::passValue() {
  isAtTaken_ = false;
  settled_ += next_->valueSize;
  restBegin_ = next_->end();
  ++next_;
  TemplateLine& line = *template_.get();
  if (next_ != line.variablesEnd()) return;
  const std::size_t size = next_[-1].valueSize;
  specialVar_.get()->oweText(line, settled_ - size, size);
}

[[gnu::always_inline]] inline void clsObLineCharacts::settleVariable() {
  if (!isAtKeptValue()) return settleStepByStep();
  const clsObSpecialVar& variable = *specialVar_.get();
  if (!variable.GetPrintLine()) return settleStepByStep();
  if (takesValue(variable)) {
    passValue();
  } else if (variable.isPlain()) {
    settlePlainValue();
  } else {
    settleStepByStep();
  }
}

}  // namespace tarvo
