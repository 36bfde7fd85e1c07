// Helpers for clients: the operator's choice of the printing mode, and long texts on lines of a
// fixed width.
//
// A short text is an array of the text's lines.  A template prints it on a repeated line, one
// segment of words per pass; the client calls fExtractShortText for it.  The reports clear the
// special variable before every pass, so the client itself keeps the segment's number: it sets
// ArrayPosition, sets EndOfRepeatPrintLine to False, calls fExtractShortText, and begins with 1
// again when GetEndOfRepeatPrintLine has become True.
//
// Counts are 16-bit: leaving them is error 6.
//
// Errors: the operations follow the convention of trapped.h; fChoosePrintingMode reports itself as
// "fChoosePrintinMode", as clients know it.
//
// Threads: the client's.
#pragma once

#include <cstdint>

#include "frame/enums.h"
#include "frame/text.h"
#include "frame/trapped.h"
#include "frame/value.h"
#include "template/clsObSpecialVar.h"
#include "ui/printing_mode_window.h"

namespace tarvo {

class clsLibTarvoRdp final : public TrappedObject {
 public:
  clsLibTarvoRdp();
  // With windows of the program's own in place of the platform's.
  explicit clsLibTarvoRdp(PrintingModeWindowMaker makeWindow);
  ~clsLibTarvoRdp() override;

  // Lets the operator choose between graphic and text printing, in a modal form
  // (frmChoosePrintingMode.h).  False when the form was cancelled or closed.
  //   refPrintingMode  ePM_Graphic unless text printing was chosen, an error notwithstanding
  // Raises: what the form's event procedures raise; what the window raises.
  bool fChoosePrintingMode(ePrintingMode& refPrintingMode);

  // Where the operator chooses the printer: a line end, and the sentence.  It has no error handler:
  // what it raises, for want of memory, has no trail.
  Text fMsgForLocateOptionChoosePrinter();

  // The text cut into rows of a fixed length, words or not: an array of that many texts, empty ones
  // past the text's end, and one element more that has no value.  A row of length 0 is empty.
  // Raises: 9 for a negative number of rows, 5 for a negative length, 6 for a row that begins past
  // character 32,767.
  Value fToStringArray(TextView valText, std::int16_t valRowCount, std::int16_t valRowLength);

  // The segment that the variable's ArrayPosition (counted from 1) asks for, at most Length
  // characters of the short text; cut before a blank or a hyphen where there is one.  Empty when
  // there are no more.
  //   valShortText  the lines; they are joined as they are, each when fewer than 180 characters
  //                 wait.  Of those after the first eleven, and of the last one of several, nothing
  //                 is used.  A line without a value is an empty one.
  // Sets in the variable: EndOfRepeatPrintLine, when nothing follows; PrintLine to false, when the
  // segment is empty and the repetition goes on.
  //   valIfResultIsEmptySetPrintLineFalse  also: for a segment, ArrayPosition goes on to the next;
  //                                        for an empty one, PrintLine to false in any case
  // Raises: 91 without a variable; 13 for what is no array, or a line that is no text; 9 for an
  // array without lines; 6 for an ArrayPosition above 255.
  Text fExtractShortText(Ref<clsObSpecialVar>& refVarEspecial, const Value& valShortText,
                         bool valIfResultIsEmptySetPrintLineFalse);

 private:
  const ErrorIdentity& errorIdentity() const noexcept override;

  void fExtractSegment(Text& text, std::uint8_t width, Text& segment);
  std::int16_t fSearchWhereToCutOnlyText(const Text& text, std::uint8_t width);
  std::int16_t fMinInt(std::int16_t a, std::int16_t b);
  void sAddTextIfPossible(const ValueArray& lines, Text& text, std::int16_t& index,
                          std::int16_t limit);

  PrintingModeWindowMaker makeWindow_;
};

}  // namespace tarvo
