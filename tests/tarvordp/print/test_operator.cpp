// Who is asked and told, without a report.
#include "tarvordp/print/operator.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tarvordp/interruption.h"

namespace tarvordp {
namespace {

// While it lives, this line is what the process reads first.
class TypedLine {
 public:
  explicit TypedLine(std::string_view line) : before_(dup(STDIN_FILENO)) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    const bool isTyped = write(ends[1], line.data(), line.size()) == ssize_t(line.size());
    close(ends[1]);
    dup2(ends[0], STDIN_FILENO);
    close(ends[0]);
    if (!isTyped) throw std::runtime_error("a pipe that takes nothing");
  }
  TypedLine(const TypedLine&) = delete;
  TypedLine& operator=(const TypedLine&) = delete;
  ~TypedLine() {
    if (before_ < 0) {
      close(STDIN_FILENO);
    } else {
      dup2(before_, STDIN_FILENO);
      close(before_);
    }
  }

 private:
  int before_;
};

class OperatorTest : public testing::Test {
 protected:
  std::ostringstream out_;
  std::ostringstream err_;
  Console console_{out_, err_, false, false, true};
  Progress progress_{err_, false};
  Operator operator_{console_, progress_, false};
};

TEST_F(OperatorTest, ASignalThatComesJustBeforeAQuestionIsItsAnswer) {
  const Interruption interruption;
  const TypedLine yes("A\n");
  raise(SIGTERM);
  EXPECT_FALSE(operator_.accepts("?"));
  EXPECT_FALSE(operator_.waitForEnter("!"));
  EXPECT_EQ(err_.str(), "?!");
}

TEST_F(OperatorTest, LineEndsAndTabulatorsStayAndOtherControlCharactersAreShown) {
  operator_.tell("a\r\nb\rc\nd\te");
  EXPECT_EQ(err_.str(), "a\nb\nc\nd\te\n");
  err_.str("");
  operator_.tell(std::string_view("\0 \x1B[2J \x7F \xC2\x9B \xC2\xA0 \xC2", 16));
  EXPECT_EQ(err_.str(), "\\x00 \\x1B[2J \\x7F \\x9B \xC2\xA0 \xC2\n");
  err_.str("");
  operator_.tell("Impresi\xC3\xB3n \xE2\x82\xAC");
  EXPECT_EQ(err_.str(), "Impresi\xC3\xB3n \xE2\x82\xAC\n");
}

TEST(InterruptionTest, WhatWasIgnoredStaysIgnoredAndAllIsAsBeforeAfterwards) {
  const auto handlerOf = [](int signal) {
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler;
  };
  const auto before = signal(SIGHUP, SIG_IGN);
  {
    const Interruption interruption;
    raise(SIGHUP);
    EXPECT_FALSE(Interruption::isAskedFor());
    raise(SIGINT);
    EXPECT_TRUE(Interruption::isAskedFor());
    for (const int signal : {SIGINT, SIGTERM}) EXPECT_EQ(handlerOf(signal), SIG_DFL) << signal;
    EXPECT_EQ(handlerOf(SIGHUP), SIG_IGN);
  }
  EXPECT_FALSE(Interruption::isAskedFor());
  EXPECT_EQ(handlerOf(SIGHUP), SIG_IGN);
  for (const int signal : {SIGPIPE, SIGXFSZ}) EXPECT_EQ(handlerOf(signal), SIG_DFL) << signal;
  signal(SIGHUP, before);
}

}  // namespace
}  // namespace tarvordp
