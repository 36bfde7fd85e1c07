#include "tarvordp/print/operator.h"

#include <poll.h>
#include <unistd.h>

#include <iostream>

#include "tarvordp/print/interruption.h"

namespace tarvordp {
namespace {

const std::streambuf* const kProcessInput = std::cin.rdbuf();

// Waits until a line can be read, or the program is to end; false: it is.  Reading alone would miss
// a signal that comes just before it.
bool waitForLine() {
  constexpr int kLookAgainMilliseconds = 100;
  if (std::cin.rdbuf() != kProcessInput) return true;
  pollfd input{STDIN_FILENO, POLLIN, 0};
  while (!Interruption::isAskedFor()) {
    if (poll(&input, 1, kLookAgainMilliseconds) > 0) return true;
  }
  return false;
}

std::string withPlainLineEnds(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isReturn = text[i] == '\r';
    if (isReturn && i + 1 < text.size() && text[i + 1] == '\n') continue;
    plain += isReturn ? '\n' : text[i];
  }
  return plain;
}

enum class Answer { accept, cancel, neither };

Answer answerIn(const std::string& line) {
  constexpr std::string_view kAccepting = "aAsSyY";
  constexpr std::string_view kCancelling = "cCnN";
  if (line.empty() || kAccepting.find(line[0]) != std::string_view::npos) return Answer::accept;
  return kCancelling.find(line[0]) != std::string_view::npos ? Answer::cancel : Answer::neither;
}

}  // namespace

Operator::Operator(Console& console, Progress& progress, bool yes)
    : console_(console), progress_(progress), canBeAsked_(console.inIsTerminal && !yes) {}

void Operator::tell(std::string_view text) {
  progress_.erase();
  console_.err << withPlainLineEnds(text) << std::endl;
}

bool Operator::readAnswer(std::string_view prompt, std::string& answer) {
  progress_.erase();
  console_.err << prompt << std::flush;
  return waitForLine() && std::getline(std::cin, answer);
}

void Operator::waitForEnter(std::string_view prompt) {
  std::string ignored;
  readAnswer(prompt, ignored);
}

bool Operator::accepts(std::string_view prompt) {
  std::string line;
  while (readAnswer(prompt, line)) {
    const Answer answer = answerIn(line);
    if (answer != Answer::neither) return answer == Answer::accept;
  }
  return false;
}

}  // namespace tarvordp
