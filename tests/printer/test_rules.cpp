// The calibration output: underscores, the two rules and the test page.
#include "equipment/golden.h"
#include "printer_test.h"

namespace tarvo::test {
namespace {

constexpr std::int16_t kMost = 32767;
constexpr std::int16_t kLeast = -32768;

class Rules : public PrinterTest {
 protected:
  Rules() { openJob(); }

  std::string underscores(std::int16_t count, bool skipLine) {
    return printed([=, this] { channel->sPrintUnderscore(count, skipLine); });
  }
  std::string vertical(std::int16_t length, bool formFeed) {
    return printed([=, this] { channel->sPrintVerticalRule(length, formFeed); });
  }
  std::string horizontal(bool formFeed, std::int16_t normal, std::int16_t condensed) {
    return printed([=, this] { channel->sPrintHorizontalRule(formFeed, normal, condensed); });
  }
};

TEST_F(Rules, NoUnderscoreIsTheLineEndAlone) {
  EXPECT_EQ(underscores(0, true), "<0D><0A>\n");
  EXPECT_EQ(underscores(-1, true), "<0D><0A>\n");
  EXPECT_EQ(underscores(kLeast, true), "<0D><0A>\n");
  EXPECT_EQ(underscores(0, false), "");
}

TEST_F(Rules, EachUnderscoreIsAWrite) {
  EXPECT_EQ(callsOf([this] { channel->sPrintUnderscore(1, true); }),
            "write 1 _\nwrite 1 <0D><0A>\n");
  EXPECT_EQ(callsOf([this] { channel->sPrintUnderscore(3, false); }),
            "write 1 _\nwrite 1 _\nwrite 1 _\n");
}

TEST_F(Rules, UnderscoresOverflowAfterTheGreatestNumberOfThem) {
  useUnwatchedServices();
  channel->sPrintUnderscore(kMost - 1, false);
  EXPECT_EQ(spooler->bytes(), std::string(32766, '_'));
  const std::size_t before = spooler->bytes().size();
  EXPECT_EQ(errorNumberOf([this] { channel->sPrintUnderscore(kMost, true); }), kOverflow);
  EXPECT_EQ(spooler->bytes().substr(before), std::string(32767, '_'));
  EXPECT_EQ(error->trail(), "sPrintUnderscore");
}

TEST_F(Rules, AVerticalRuleOfOneUnit) {
  fillProfile(*channel);
  EXPECT_TRUE(matchesGolden("printer/golden/vertical_rule_1.txt", vertical(1, true)));
}

TEST_F(Rules, AVerticalRuleEjectsThePageOnlyWhenAsked) {
  channel->SetChrFormFeed(u"(eject)");
  EXPECT_EQ(vertical(0, false), "----<0D><0A>\n");
  EXPECT_EQ(vertical(0, true), "----<0D><0A>\n(eject)\n");
}

TEST_F(Rules, AVerticalRuleOfNegativeLengthIsTheZeroMark) {
  fillProfile(*channel);
  const std::string zeroMark = "<1B>@<12><0F><1B>A<01>----<0D><0A>\n<1B>2\n";
  EXPECT_EQ(vertical(-1, false), zeroMark);
  EXPECT_EQ(vertical(-5461, false), zeroMark);
}

TEST_F(Rules, AVerticalRuleTooLongOverflowsAfterTheReset) {
  fillProfile(*channel);
  for (const std::int16_t length : {std::int16_t{5462}, kMost, std::int16_t{-5462}, kLeast}) {
    calls.clear();
    error->reports.clear();
    EXPECT_EQ(errorNumberOf([&] { channel->sPrintVerticalRule(length, true); }), kOverflow);
    EXPECT_EQ(calls.linesOf("write"), std::vector<std::string>{"write 1 <1B>@"}) << length;
    EXPECT_EQ(error->trail(), "sPrintVerticalRule");
  }
}

TEST_F(Rules, TheLongestVerticalRuleEndsWithItsLastUnit) {
  useUnwatchedServices();
  const std::string rule = vertical(5461, false);
  EXPECT_TRUE(rule.ends_with("<0D><0A>\n5461---- <0D><0A>\n"));
  EXPECT_EQ(std::count(rule.begin(), rule.end(), '\n'), 1 + 2 * 32766);
}

TEST_F(Rules, AHorizontalRule) {
  fillProfile(*channel);
  EXPECT_TRUE(matchesGolden("printer/golden/horizontal_rule_3_12.txt", horizontal(true, 3, 12)));
}

TEST_F(Rules, AHorizontalRuleOfOneGroupHasABlankForItsTens) {
  fillProfile(*channel);
  EXPECT_EQ(horizontal(false, 1, 1),
            "<1B>@<12>0123456789<0D><0A>\n"
            " <0D><0A>\n"
            "<0D><0A>\n"
            "<0F>0123456789<0D><0A>\n"
            " <12>\n");
}

TEST_F(Rules, AHorizontalRuleWithoutGroupsKeepsItsLines) {
  const std::string lines =
      "<0D><0A>\n"
      " <0D><0A>\n"
      "<0D><0A>\n"
      "<0D><0A>\n"
      "<20>\n";
  EXPECT_EQ(horizontal(false, 0, 0), lines);
  EXPECT_EQ(horizontal(false, -1, -32767), lines);
}

TEST_F(Rules, AHorizontalRuleIsWrittenDigitByDigit) {
  EXPECT_EQ(callsOf([this] { channel->sPrintHorizontalRule(true, 0, 2); }),
            "write 1\n"           // reset
            "write 1\n"           // normal
            "write 1 <0D><0A>\n"  // no units
            "write 1 <20>\n"      // the blank before the tens
            "write 1 <0D><0A>\n"
            "write 1 <0D><0A>\n"
            "write 1\n"  // condensed
            "write 1 0\nwrite 1 1\nwrite 1 2\nwrite 1 3\nwrite 1 4\n"
            "write 1 5\nwrite 1 6\nwrite 1 7\nwrite 1 8\nwrite 1 9\n"
            "write 1 0\nwrite 1 1\nwrite 1 2\nwrite 1 3\nwrite 1 4\n"
            "write 1 5\nwrite 1 6\nwrite 1 7\nwrite 1 8\nwrite 1 9\n"
            "write 1 <0D><0A>\n"
            "write 1 <20>\n"
            "write 1 1        <20>\n"
            "write 1\n"    // normal
            "write 1\n");  // form feed
}

// The bytes that a rule has written when it overflows.
std::string groups(int count) {
  std::string digits;
  for (int i = 0; i < count; ++i) digits += "0123456789";
  return digits;
}

TEST_F(Rules, AHorizontalRuleOverflowsAfterTheGreatestNumberOfGroups) {
  useUnwatchedServices();
  EXPECT_EQ(errorNumberOf([this] { channel->sPrintHorizontalRule(true, kMost, 1); }), kOverflow);
  EXPECT_EQ(spooler->bytes(), groups(32767));
  EXPECT_EQ(error->trail(), "sPrintHorizontalRule");
}

TEST_F(Rules, AHorizontalRuleOverflowsInItsCondensedPartToo) {
  useUnwatchedServices();
  EXPECT_EQ(errorNumberOf([this] { channel->sPrintHorizontalRule(true, 1, kMost); }), kOverflow);
  EXPECT_EQ(spooler->bytes(), "0123456789\r\n \r\n\r\n" + groups(32767));
}

TEST_F(Rules, AHorizontalRuleOfTheLeastLengthOverflowsBeforeItsFirstTen) {
  EXPECT_EQ(errorNumberOf([this] { channel->sPrintHorizontalRule(true, kLeast, 1); }), kOverflow);
  EXPECT_EQ(spooler->bytes(), "\r\n ");
  EXPECT_EQ(error->trail(), "sPrintHorizontalRule");
}

TEST_F(Rules, AskForTheirNumbersByKind) {
  channel->sPrintHorizontalRule(false, 1, 3);
  std::string expected;
  for (int group = 0; group < 4; ++group) {
    for (int digit = 0; digit < 10; ++digit) {
      expected += "clsConvert.fNumberToText int16 " + std::to_string(digit) + "\n";
    }
  }
  expected += "clsConvert.fNumberToText int16 1\n";
  expected += "clsConvert.fNumberToText int16 2\n";
  std::string asked;
  for (const std::string& line : serviceCalls.linesOf("clsConvert")) asked += line + "\n";
  EXPECT_EQ(asked, expected);

  serviceCalls.clear();
  channel->sPrintVerticalRule(2, false);
  EXPECT_EQ(serviceCalls.linesOf("clsConvert"),
            (std::vector<std::string>{"clsConvert.fNumberToText double 1",
                                      "clsConvert.fNumberToText double 2"}));
}

TEST_F(Rules, ATestPageWithAnEmptyProfile) {
  EXPECT_TRUE(matchesGolden("printer/golden/test_page_empty_profile.txt",
                            printed([this] { channel->sPrintTestPage(); })));
}

TEST_F(Rules, ATestPageWithAFullProfile) {
  fillProfile(*channel);
  EXPECT_TRUE(matchesGolden("printer/golden/test_page.txt",
                            printed([this] { channel->sPrintTestPage(); })));
}

TEST_F(Rules, ATestPageLineIsOneWrite) {
  fillProfile(*channel);
  const std::string made = callsOf([this] { channel->sPrintTestPage(); });
  // 16 steps, of which the vertical rule is 6 writes and 18 steps of two.
  EXPECT_EQ(std::count(made.begin(), made.end(), '\n'), 15 + 6 + 18 * 2);
  EXPECT_TRUE(
      made.starts_with("write 1 <1B>@\n"
                       "write 1 <12>  PAGINA DE PRUEBA IMPRESION MODO TEXTO<0D><0A>\n"));
}

TEST_F(Rules, NeitherOpenNorCloseTheJob) {
  for (const std::string& line : {callsOf([this] { channel->sPrintTestPage(); }),
                                  callsOf([this] { channel->sPrintHorizontalRule(true, 1, 1); })}) {
    EXPECT_EQ(line.find("Document"), std::string::npos);
    EXPECT_EQ(line.find("Printer"), std::string::npos);
    EXPECT_EQ(line.find("Page"), std::string::npos);
  }
}

}  // namespace
}  // namespace tarvo::test
