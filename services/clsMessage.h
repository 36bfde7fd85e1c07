// Stand-in of the message service for programs without windows: messages are lines of text.
//
// A message is one line on the standard error stream, "[title] text" or "text", in UTF-8; line ends
// inside a message become the stream's own.  A question is such a line as well.  Who answers it:
//   1. the answer policy, when the program has set one;
//   2. else the operator, when the standard input is a terminal;
//   3. else nobody: the answer is "accepted", so that an unattended run goes on.
//
// The operator answers with a line: A or S, or an empty line, accepts; C or N cancels; anything
// else is asked again, and the end of the input cancels.
#pragma once

#include <cstdio>
#include <functional>
#include <string_view>

#include "frame/services.h"
#include "services/fail.h"

namespace LibTarvoCI {

class clsMessage final : public tarvo::clsMessage {
 public:
  // Where lines go and where answers come from.  Not owned, and needed as long as the service.
  struct Console {
    std::FILE* output = stderr;
    std::FILE* input = nullptr;  // nullptr: there is nobody to ask
  };

  // Answers a question in the operator's place: true accepts.
  using AnswerPolicy = std::function<bool(TextView text, TextView title)>;

  // Standard error, and the standard input when it is a terminal.
  clsMessage();
  explicit clsMessage(Console console) : console_(console) {}

  // An empty policy takes the last one back.  Default: none.
  void setAnswerPolicy(AnswerPolicy policy);

  // None of the texts given by reference is changed.
  void sShowMessage(Text& refText) override;
  void sShowMessageWithTitle(TextView valText, TextView valTitle) override;
  void sWarning(Text& refText) override;
  void sWarningWithTitle(TextView valText, TextView valTitle) override;
  bool fAskAcceptCancel(TextView valText, TextView valTitle) override;

  // Asks whether to go on, in the words of location_warning.h.
  bool fWarnLocation(TextView valProjectTitle, std::int16_t valLocationCode) override;

 private:
  void writeLine(TextView text, TextView title) const;
  void write(std::string_view utf8) const;
  bool askOperator() const;

  Console console_;
  AnswerPolicy answerPolicy_;
};

}  // namespace LibTarvoCI
