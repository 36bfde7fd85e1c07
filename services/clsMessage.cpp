#include "services/clsMessage.h"

#include <string>
#include <utility>

#include "services/location_warning.h"
#include "services/terminal.h"

namespace LibTarvoCI {
namespace {

enum class Answer { kAccept, kCancel, kNotUnderstood };

Answer answerOf(int letter) {
  switch (letter) {
    case 'A':
    case 'a':
    case 'S':
    case 's':
    case '\n':
      return Answer::kAccept;
    case 'C':
    case 'c':
    case 'N':
    case 'n':
    case EOF:
      return Answer::kCancel;
    default:
      return Answer::kNotUnderstood;
  }
}

// The first character of the next line, or what ends it; the whole line is taken off the input.
int firstOfLine(std::FILE* input) {
  const int first = std::fgetc(input);
  for (int c = first; c != '\n' && c != EOF;) c = std::fgetc(input);
  return first;
}

void dropReturnsBeforeLineEnds(std::string& text) {
  for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at)) {
    text.erase(at, 1);
  }
}

}  // namespace

clsMessage::clsMessage()
    : clsMessage(Console{stderr, standardInputIsTerminal() ? stdin : nullptr}) {}

void clsMessage::setAnswerPolicy(AnswerPolicy policy) { answerPolicy_ = std::move(policy); }

void clsMessage::sShowMessage(Text& refText) { writeLine(refText, {}); }

void clsMessage::sShowMessageWithTitle(TextView valText, TextView valTitle) {
  writeLine(valText, valTitle);
}

void clsMessage::sWarning(Text& refText) { writeLine(refText, {}); }

void clsMessage::sWarningWithTitle(TextView valText, TextView valTitle) {
  writeLine(valText, valTitle);
}

bool clsMessage::fAskAcceptCancel(TextView valText, TextView valTitle) {
  writeLine(valText, valTitle);
  if (answerPolicy_) return answerPolicy_(valText, valTitle);
  return console_.input == nullptr || askOperator();
}

bool clsMessage::fWarnLocation(TextView valProjectTitle, std::int16_t valLocationCode) {
  return fAskAcceptCancel(locationWarning(valProjectTitle, valLocationCode), valProjectTitle);
}

void clsMessage::writeLine(TextView text, TextView title) const {
  std::string line;
  if (!title.empty()) line = "[" + tarvo::toUtf8(title) + "] ";
  line += tarvo::toUtf8(text);
  dropReturnsBeforeLineEnds(line);
  line += '\n';
  write(line);
}

void clsMessage::write(std::string_view utf8) const {
  // A stream that takes nothing must not stop the report.
  static_cast<void>(std::fwrite(utf8.data(), 1, utf8.size(), console_.output));
  static_cast<void>(std::fflush(console_.output));
}

bool clsMessage::askOperator() const {
  for (;;) {
    write("Aceptar (A) o cancelar (C): ");
    const Answer answer = answerOf(firstOfLine(console_.input));
    if (answer != Answer::kNotUnderstood) return answer == Answer::kAccept;
  }
}

}  // namespace LibTarvoCI
