#include "tarvordp/print/operator.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>

#include "tarvordp/hex_byte.h"
#include "tarvordp/interruption.h"

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

// How many bytes the control character at the front takes in UTF-8; 0 when it is none.
std::size_t sizeOfControl(std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  if (first < 0x20 || first == 0x7F) return 1;
  constexpr unsigned char kHeadOfControls = 0xC2;
  const bool mayBe = first == kHeadOfControls && text.size() > 1;
  return mayBe && static_cast<unsigned char>(text[1]) < 0xA0 ? 2 : 0;
}

std::string numberOf(char control) {
  return "\\x" + hexOfByte(static_cast<unsigned char>(control));
}

std::string forTerminal(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    if (text.starts_with("\r\n")) text.remove_prefix(1);
    const bool isPlain = text[0] == '\n' || text[0] == '\t';
    const std::size_t control = isPlain ? 0 : sizeOfControl(text);
    if (text[0] == '\r') {
      plain += '\n';
    } else if (control > 0) {
      plain += numberOf(text[control - 1]);
    } else {
      plain += text[0];
    }
    text.remove_prefix(std::max<std::size_t>(1, control));
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
  console_.err << forTerminal(text) << std::endl;
}

bool Operator::readAnswer(std::string_view prompt, std::string& answer) {
  progress_.erase();
  console_.err << prompt << std::flush;
  return waitForLine() && std::getline(std::cin, answer);
}

bool Operator::waitForEnter(std::string_view prompt) {
  std::string ignored;
  return readAnswer(prompt, ignored);
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
