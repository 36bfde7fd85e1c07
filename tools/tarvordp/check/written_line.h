// A template line as the library goes through it: a comment, or text and variables from left to
// right; and what its control words make of it.
#pragma once

#include <vector>

#include "tarvordp/check/written_variable.h"
#include "template/control_words.h"

namespace tarvordp {

struct WrittenLine {
  tarvo::Text text;
  std::size_t number = 0;  // from 1
  bool isComment = false;
  std::vector<WrittenVariable> variables;

  Place place(std::size_t index) const { return {number, index + 1}; }
};

// Tells braces that do not pair, and what the variables' own reading tells.
WrittenLine readLine(tarvo::TextView text, std::size_t number, ParserServices& services,
                     Findings& findings);

// kNone for a constant and for a field.
tarvo::Control controlOf(const WrittenVariable& variable);

// What the control words ask for, as clsObLineCharacts takes it.
struct LineFlags {
  std::size_t lines = 0;       // printed ones, where no condition suppresses it
  bool isConditional = false;  // a variable may suppress it
  bool breaksPage = false;
  bool staysOpen = false;
  bool isBlank = false;  // it has no text, nor a variable that may have one

  // Whether an open line without text is not even written.
  bool isWritten() const { return lines > 0 || !isBlank; }
};

LineFlags flagsOf(const WrittenLine& line);

}  // namespace tarvordp
