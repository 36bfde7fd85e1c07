// A person at the terminal: questions, pauses, progress and the summary.
#include <iostream>

#include "print_testing.h"
#include "tarvordp/print/progress.h"

namespace tarvordp {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

class TerminalTest : public test::PrintTest {
 protected:
  TerminalTest() { inIsTerminal_ = true; }

  // Runs with these lines on the standard input; gives what was left of them.
  std::string printAnswering(const std::string& lines,
                             const std::vector<std::string>& arguments = {}) {
    std::istringstream input(lines);
    std::streambuf* const before = std::cin.rdbuf(input.rdbuf());
    std::cin.clear();
    outcome_ = print(arguments);
    std::cin.rdbuf(before);
    std::cin.clear();
    std::string rest;
    std::getline(input, rest, '\0');
    return rest;
  }

  void writeCopies(const std::string& more = "") {
    writeMasterDetail("{CUERPO=1}\n{N}\n{FINCUERPO}\n",
                      R"(, "copies": 3, "details": [{"N": "a"}])" + more);
  }

  test::Outcome outcome_;
};

TEST_F(TerminalTest, EveryPauseWaitsForEnter) {
  writeCopies();
  EXPECT_EQ(printAnswering("\nyes\nrest"), "rest") << "two pauses between three copies";
  EXPECT_EQ(outcome_.status, kDone);
  EXPECT_EQ(outcome_.err, "Pause: press Enter to go on. Pause: press Enter to go on. ");
  EXPECT_EQ(printed(), "a<0D><0A>\n<0C>a<0D><0A>\n<0C>a<0D><0A>\n<0C>");
}

TEST_F(TerminalTest, TheEndOfTheInputEndsAPause) {
  writeCopies();
  printAnswering("");
  EXPECT_EQ(outcome_.status, kDone);
}

TEST_F(TerminalTest, YesAsksNothing) {
  writeCopies();
  EXPECT_EQ(printAnswering("rest", {"--yes"}), "rest");
  EXPECT_EQ(outcome_.err, "");
}

TEST_F(TerminalTest, TheJobMayAnswerItsPauses) {
  writeCopies(R"(, "answers": {"pause": true})");
  EXPECT_EQ(printAnswering("rest"), "rest");
  EXPECT_EQ(outcome_.status, kDone);
  EXPECT_EQ(outcome_.err, "");
}

TEST_F(TerminalTest, AReportThatIsGivenUpAtAPauseLeavesNothing) {
  writeCopies(R"(, "answers": {"pause": false})");
  printAnswering("");
  EXPECT_EQ(outcome_.status, kNotPrinted);
  EXPECT_EQ(outcome_.err,
            "tarvordp: the report was given up at a pause\n"
            "tarvordp: out.prn was not whole and was removed\n");
  EXPECT_FALSE(has("out.prn"));
}

TEST_F(TerminalTest, AQuestionIsAskedUntilItIsAnswered) {
  writeForm();
  EXPECT_EQ(printAnswering("what?\n\nrest"), "rest");
  EXPECT_EQ(outcome_.status, kDone);
  EXPECT_THAT(outcome_.err, EndsWith("\nAceptar (A) o cancelar (C): Aceptar (A) o cancelar (C): "));
  EXPECT_TRUE(has("out.prn.2"));
}

TEST_F(TerminalTest, AnAnswerMayCancel) {
  for (const char* answer : {"c\n", "N\n", ""}) {
    writeForm();
    printAnswering(answer);
    EXPECT_EQ(outcome_.status, kNotPrinted) << answer;
    EXPECT_FALSE(has("out.prn.2")) << answer;
  }
  for (const char* answer : {"A\n", "s\n", "yes\n"}) {
    writeForm();
    printAnswering(answer);
    EXPECT_EQ(outcome_.status, kDone) << answer;
  }
}

TEST_F(TerminalTest, TheJobsAnswerIsNotAsked) {
  writeForm(R"(, "answers": {"turnSheet": true})");
  EXPECT_EQ(printAnswering("rest"), "rest");
  EXPECT_EQ(outcome_.status, kDone);
  EXPECT_THAT(outcome_.err, testing::Not(HasSubstr("Aceptar (A)")));
}

TEST_F(TerminalTest, APersonIsToldWhatWasPrinted) {
  errIsTerminal_ = true;
  inIsTerminal_ = false;
  writeCopies();
  EXPECT_EQ(print().err, "printed 3 pages, 3 records, 12 bytes to file:out.prn\n");
  writeForm(R"(, "output": "draft")");
  EXPECT_THAT(print({"--save", pathOf("d.pdf")}).err, EndsWith("printed 1 page\n"));
}

TEST(Progress, WritesOneLineAgainAndAgainAndTakesItAway) {
  std::ostringstream stream;
  {
    Progress progress(stream, true);
    progress.printing(1, 2000, 0);
    EXPECT_EQ(stream.str(), "") << "not in the first moment";
    const auto start = std::chrono::steady_clock::now();
    std::int64_t record = 0;
    while (std::chrono::steady_clock::now() - start < std::chrono::milliseconds(1000)) {
      progress.printing(1500 + record++ % 2, 2000, 12);
    }
  }
  const std::string shown = stream.str();
  EXPECT_THAT(shown, HasSubstr("\rprinting: record 1,50"));
  EXPECT_THAT(shown, HasSubstr(" of 2,000, 12 pages\x1b[K"));
  EXPECT_THAT(shown, EndsWith("\r\x1b[K"));
  EXPECT_LE(std::ranges::count(shown, '\r'), 10) << "not more often than the eye can follow";
}

TEST(Progress, IsNotShownToAFile) {
  std::ostringstream stream;
  {
    Progress progress(stream, false);
    const auto start = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - start < std::chrono::milliseconds(700)) {
      progress.reading(1);
    }
  }
  EXPECT_EQ(stream.str(), "");
}

TEST(Numbers, AreGroupedForPeople) {
  EXPECT_EQ(grouped(0), "0");
  EXPECT_EQ(grouped(999), "999");
  EXPECT_EQ(grouped(1000), "1,000");
  EXPECT_EQ(grouped(18432), "18,432");
  EXPECT_EQ(grouped(1234567890), "1,234,567,890");
  EXPECT_EQ(withUnit(1, "page"), "1 page");
  EXPECT_EQ(withUnit(1200, "page"), "1,200 pages");
}

}  // namespace
}  // namespace tarvordp
