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
    specialVar_ = std::move(valNewValue);
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

  // How many printed lines the line takes: none when it is not printed or ends without line feed,
  // else at least one.
  std::uint8_t fNumberOfPrintedLinesThatWillFill();

 private:
  // --- For the translation of a whole line.  While it runs without anybody looking at the text,
  // --- the line keeps what is settled and what is left apart, and nothing is moved.
  friend class LineTranslator;

  // As SetTextToWrite with the line's text, which has been looked through before.
  // REQUIRES: a regular line, and a text service that may be bypassed.
  void beginTranslation(Ref<TemplateLine> line);

  // Whether the text holds a "{".
  bool holdsVariable() const {
    return isTranslating() ? next_ != template_->variablesEnd() : findsVariable();
  }

  // As sExtractSpecialVar with the present text.
  void extractNextVariable();

  // Whether the variable is known to be neither a control word nor a constant.
  bool isKnownToBeClients() const noexcept {
    return isTranslating() && next_->control == Control::kNone && !next_->isConstant;
  }

  // As fSpecialVarIsAnyControlChar with the field's name.  Gives what goes to the printer, either
  // `content` or a text of the printer's; null when the name is no control word.
  const Text* applyControlWord(Text& content);

  const ErrorIdentity& errorIdentity() const noexcept override;

  bool isTranslating() const noexcept { return static_cast<bool>(template_); }
  bool isTranslatingStill() const;
  void takeText(Text& text) noexcept;
  void joinText() const;
  bool findsVariable() const;
  bool beginsTheRest(const clsObSpecialVar& variable) const noexcept;
  void removeVariable(const clsObSpecialVar& variable);
  bool suppressesLine(clsObSpecialVar& variable);
  void removeThroughService(const clsObSpecialVar& variable);
  void insertAtVariable(const clsObSpecialVar& variable);
  void insertThroughService(const clsObSpecialVar& variable);
  void readNextVariable();
  const Text* applyKnownControl(Control control, Text& content);
  const Text& applyControl(Control control, Text& content);
  void repeatLine();

  // The whole text; while translating, what stands before the rest of the template line.
  mutable Text textToWrite_;
  mutable Ref<TemplateLine> template_;
  std::size_t restBegin_ = 0;               // from where the template line's text is left
  TemplateLine::Variable* next_ = nullptr;  // the first variable of the rest, while translating

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

}  // namespace tarvo
