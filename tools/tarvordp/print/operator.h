// The person who prints: told things, and asked when there is somebody to ask.
#pragma once

#include <string>
#include <string_view>

#include "tarvordp/console.h"
#include "tarvordp/print/progress.h"

namespace tarvordp {

class Operator {
 public:
  // `yes`: nobody is to be asked.  REQUIRES: both outlive this.
  Operator(Console& console, Progress& progress, bool yes);

  // Writes lines on the standard error stream.  Every kind of line end in the text is one; other
  // control characters are shown by their number, \x1B: they are for terminals, and come from data.
  void tell(std::string_view text);

  // Whether questions reach a person.
  bool canBeAsked() const noexcept { return canBeAsked_; }

  // Waits for Enter; false: the input ended, as a terminal's does that was closed, or there was the
  // signal to end the program.  REQUIRES: canBeAsked().
  bool waitForEnter(std::string_view prompt);

  // Whether the answer is yes; the end of the input is no, and so is that signal.
  // REQUIRES: canBeAsked().
  bool accepts(std::string_view prompt);

 private:
  bool readAnswer(std::string_view prompt, std::string& answer);

  Console& console_;
  Progress& progress_;
  bool canBeAsked_;
};

}  // namespace tarvordp
