// A person at the terminal: questions, pauses, progress and the summary.
#include <iostream>
#include <utility>

#include "print_testing.h"
#include "tarvordp/print/print_job.h"
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
  EXPECT_EQ(outcome_.err,
            "Pause: press Enter to go on, Ctrl-C to give up. "
            "Pause: press Enter to go on, Ctrl-C to give up. ");
  EXPECT_EQ(printed(), "a<0D><0A>\n<0C>a<0D><0A>\n<0C>a<0D><0A>\n<0C>");
}

TEST_F(TerminalTest, TheEndOfTheInputAtAPauseEndsTheReport) {
  writeCopies();
  printAnswering("\n");
  EXPECT_EQ(outcome_.status, kNotPrinted);
  EXPECT_THAT(outcome_.err, HasSubstr("tarvordp: the report was given up at a pause\n"
                                      "tarvordp: out.prn was not whole and was removed\n"));
  EXPECT_FALSE(has("out.prn"));
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

TEST_F(TerminalTest, APersonIsToldWhatWasPrintedWithoutTheSecondSheet) {
  errIsTerminal_ = true;
  writeForm();
  printAnswering("c\n");
  EXPECT_EQ(outcome_.status, kNotPrinted);
  EXPECT_THAT(outcome_.err, EndsWith("tarvordp: the second sheet was left out\n"
                                     "printed 1 page, 8 bytes to file:out.prn\n"));
}

TEST_F(TerminalTest, AScriptIsToldThatTheSecondSheetWasLeftOut) {
  inIsTerminal_ = false;
  writeForm(R"(, "answers": {"turnSheet": false})");
  EXPECT_THAT(print().err, EndsWith("tarvordp: the second sheet was left out\n"));
  EXPECT_EQ(print().status, kNotPrinted);
  writeForm(R"(, "answers": {"turnSheet": true})");
  EXPECT_THAT(print().err, testing::Not(HasSubstr("left out")));
}

TEST(Progress, WritesOneLineAgainAndAgainAndTakesItAway) {
  std::ostringstream stream;
  {
    Progress progress(stream, true);
    progress.printing({.record = 1, .records = 2000});
    EXPECT_EQ(stream.str(), "") << "not in the first moment";
    const auto start = std::chrono::steady_clock::now();
    std::int64_t record = 0;
    while (std::chrono::steady_clock::now() - start < std::chrono::milliseconds(1000)) {
      progress.printing({.record = 1500 + record++ % 2, .records = 2000, .pages = 12});
    }
  }
  const std::string shown = stream.str();
  EXPECT_THAT(shown, HasSubstr("\rprinting: record 1,50"));
  EXPECT_THAT(shown, HasSubstr(" of 2,000, 12 pages\x1b[K"));
  EXPECT_THAT(shown, EndsWith("\r\x1b[K"));
  EXPECT_LE(std::ranges::count(shown, '\r'), 10) << "not more often than the eye can follow";
}

constexpr Progress::Pace kAtOnce{Progress::Time(0), Progress::Time(0)};

TEST(Progress, TellsTheCopyAndTheSheet) {
  std::ostringstream stream;
  Progress progress(stream, true, kAtOnce);
  const auto shown = [&] { return std::exchange(stream, std::ostringstream()).str(); };
  progress.reading(1200);
  EXPECT_EQ(shown(), "\rreading the data: 1,200 records\x1b[K");
  progress.printing({.copy = 2, .copies = 3, .record = 423, .records = 30000, .pages = 20208});
  EXPECT_EQ(shown(), "\rprinting: copy 2 of 3, record 423 of 30,000, 20,208 pages\x1b[K");
  progress.printingForm({.sheet = 1, .sheets = 2, .values = 1300, .pages = 1});
  EXPECT_EQ(shown(), "\rprinting: sheet 1 of 2, 1,300 values, 1 page\x1b[K");
  progress.printingForm({.values = 1});
  EXPECT_EQ(shown(), "\rprinting: draft, 1 value\x1b[K");
}

// The program shows it in the same way, only later and less often.
class ShownProgressTest : public test::PrintTest {
 protected:
  std::string shownBy(const std::string& save = "") {
    std::ostringstream out;
    std::ostringstream err;
    Console console{out, err};
    console.errIsTerminal = true;
    PrintOptions options;
    options.job = pathOf("j.json");
    if (!save.empty()) options.save = save;
    EXPECT_EQ(printJob(options, console, {.pace = kAtOnce}), kDone);
    return err.str();
  }
};

TEST_F(ShownProgressTest, OfAMasterDetailReportItsDataThenItsRecordsCopyByCopy) {
  write("d.csv", "N\na\nb\n");
  writeMasterDetail("{CUERPO=1}\n{N}\n{FINCUERPO}\n",
                    R"(, "copies": 2, "details": {"csv": "d.csv"})");
  const std::string shown = shownBy();
  std::size_t at = 0;
  for (const char* step :
       {"reading the data: 1 record\x1b", "reading the data: 2 records\x1b",
        "printing: copy 1 of 2, record 1 of 2\x1b", "printing: copy 1 of 2, record 2 of 2\x1b",
        "printing: copy 2 of 2, record 1 of 2, 2 pages\x1b",
        "printing: copy 2 of 2, record 2 of 2, 2 pages\x1b", "\r\x1b[Kprinted 4 pages"}) {
    const std::size_t found = shown.find(step, at);
    ASSERT_NE(found, std::string::npos) << step << "\nin " << shown;
    at = found;
  }
}

TEST_F(ShownProgressTest, OfAFormItsSheets) {
  writeForm();
  const std::string shown = shownBy();
  EXPECT_THAT(shown, HasSubstr("\rprinting: sheet 1 of 2, 1 value\x1b[K"));
  EXPECT_THAT(shown, HasSubstr("\rprinting: sheet 2 of 2, 2 values, 1 page\x1b[K"));
  writeForm(R"(, "output": "draft")");
  EXPECT_THAT(shownBy(pathOf("d.pdf")), HasSubstr("\rprinting: draft, 1 value\x1b[K"));
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
