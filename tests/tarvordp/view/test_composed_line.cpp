#include "tarvordp/view/composed_line.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>

#include "equipment/processor_time.h"
#include "page_dump.h"
#include "tarvordp/view/terminal_form.h"
#include "tarvordp/view/text_form.h"

namespace tarvordp {
namespace {

using namespace std::string_view_literals;

std::string textOf(std::string_view bytes, const Profile& profile) {
  std::ostringstream out;
  for (const Page& page : pagesOf(bytes, profile)) writeText(out, page);
  return out.str();
}

std::string onTerminal(std::string_view bytes, const Profile& profile, bool ansi) {
  std::ostringstream out;
  const auto pages = pagesOf(bytes, profile);
  std::size_t number = 0;
  for (const Page& page : pages) writeForTerminal(out, page, ++number, pages.size(), ansi);
  return out.str();
}

struct TextCase {
  const char* shows;
  const char* profile;
  std::string_view bytes;
  const char* text;
};

constexpr TextCase kCases[] = {
    {"lines, with the blanks at their ends", "plain", " a \r\n\r\nb\r\n"sv, " a \n\nb\n"},
    {"an open line", "plain", "a\r\nb"sv, "a\nb\n"},
    {"form feeds", "plain", "a\r\n\fb\f\f"sv, "a\n\fb\n\f\f"},
    {"no codes", "epson-9pin",
     "\x1B@a\x1B"
     "Eb\x1B"
     "F\x0F"
     "c\r\n"sv,
     "abc\n"},
    {"expanded letters are not spaced", "epson-9pin",
     "\x1BW\x01"
     "ab\r\n"sv,
     "ab\n"},
    {"unknown codes", "epson-9pin", "a\x1Bk b\x07\r\n\x1Bv\r\n"sv, "a<1B 6B 20>b<07>\n<1B 76 ?>\n"},
    {"skips of points are no lines", "epson-9pin",
     "a\r\n\x1B"
     "A\x01\r\n\r\n-\r\n\x1B"
     "2\r\nb\r\n"sv,
     "a\n-\n\nb\n"},
    {"tabs", "plain", "a\tb\t\t\r\n"sv, "a\tb\t\t\n"},
    {"underlining by underscores", "plain", "Total\r_____\r\n"sv, "Total\n"},
    {"underlining before the text", "plain", "__\rab\r\n"sv, "ab\n"},
    {"printing twice", "plain", "Total\rTotal\r\n"sv, "Total\n"},
    {"printing behind and in between", "plain", "a   d\r b c  e\r\n"sv, "ab cd e\n"},
    {"printing over other characters", "plain", "abc\r=x\r\n"sv, "abc\n=x\n"},
    {"printing over three times", "plain", "ab\rcd\rcd\ref\r\n"sv, "ab\ncd\nef\n"},
    {"an unknown code over the line", "plain", "ab\r \x07\r\n"sv, "a<07>b\n"},
};

TEST(TextForm, IsTheLinesThatWerePrinted) {
  for (const TextCase& each : kCases) {
    EXPECT_EQ(textOf(each.bytes, findProfile(each.profile, "")), each.text) << each.shows;
  }
}

TEST(TextForm, PrintingOverInAnotherPitchStandsBelow) {
  EXPECT_EQ(textOf("abc\r\x0F"
                   "xyz\r\n"sv,
                   findProfile("epson-9pin", "")),
            "abc\nxyz\n");
}

TEST(TextForm, ALineThatIsTooLongForThePaperIsOneLine) {
  const std::string line(300, 'x');
  EXPECT_EQ(textOf(line + "\r\ny\r\n", findProfile("plain", "")), line + "\ny\n");
}

TEST(TextForm, ALineOverTheFoldIsOneLine) {
  std::string bytes;
  for (int i = 0; i < 65; ++i) bytes += "\r\n";
  const std::string line(200, 'x');
  EXPECT_EQ(textOf(bytes + line + "\r\n", findProfile("plain", "")),
            std::string(65, '\n') + line + "\n");
}

TEST(ComposedLine, TwiceTheSameIsBoldAndUnderscoresUnderline) {
  const auto pages = pagesOf("aab\ra_ \r\n", Profile{});
  const auto rows = composed(pages.at(0).lines.at(0));
  ASSERT_EQ(rows.size(), 1U);
  ASSERT_EQ(rows[0].size(), 3U);
  EXPECT_EQ(dump(rows[0][0].look), "w72 bold");
  EXPECT_EQ(dump(rows[0][1].look), "w72 underlined");
  EXPECT_EQ(dump(rows[0][2].look), "w72");
}

std::string rulerOf(const std::string& title) {
  std::string text = "────" + title;
  for (std::size_t columns = 4 + title.size(); columns < 80; ++columns) text += "─";
  return text;
}

TEST(TerminalForm, NamesThePages) {
  EXPECT_EQ(onTerminal("a\fb", findProfile("plain", ""), false),
            rulerOf(" page 1 of 2 ") + "\na\n" + rulerOf(" page 2 of 2 ") + "\nb\n");
}

TEST(TerminalForm, ShowsLooks) {
  const std::string shown = onTerminal(
      "a\x1B"
      "Eb\x1B-\x01"
      "c\x1B"
      "4d\x1B@e\x1Bk\x01"
      "F\x1BW\x01gh\r\n"sv,
      findProfile("epson-9pin", ""), true);
  EXPECT_EQ(shown, "\033[0;2m" + rulerOf(" page 1 of 1 ") +
                       "\033[0m\n"
                       "a\033[0;1mb\033[0;1;4mc\033[0;1;3;4md\033[0me\033[0;2m<1B 6B 01>\033[0mF"
                       "g h \n");
}

TEST(TerminalForm, EndsALooksLineInPlain) {
  EXPECT_EQ(
      onTerminal("\x1B"
                 "Ea\r\nb\r\n",
                 findProfile("epson-9pin", ""), true),
      "\033[0;2m" + rulerOf(" page 1 of 1 ") + "\033[0m\n\033[0;1ma\033[0m\n\033[0;1mb\033[0m\n");
}

TEST(TerminalForm, IsPlainWithoutATerminal) {
  EXPECT_EQ(onTerminal("\x1B"
                       "Ea\x1B-\x01"
                       "b\x1Bv\r\n",
                       findProfile("epson-9pin", ""), false),
            rulerOf(" page 1 of 1 ") + "\nab<1B 76 ?>\n");
}

// Nothing that a printed byte could say reaches the terminal as a code.
TEST(TerminalForm, LetsNoControlByteThrough) {
  std::string every;
  for (int byte = 0; byte <= 0xFF; ++byte) every += static_cast<char>(byte);
  for (const char c : onTerminal(every, Profile{}, false)) {
    EXPECT_TRUE(static_cast<unsigned char>(c) >= 0x20 || c == '\n');
  }
}

TEST(ComposedLine, CodesAtOnePlaceStandInTheirOrderBeforeItsCharacter) {
  EXPECT_EQ(textOf("a\x01\x02"
                   "b\r \x03\x04\r\n"sv,
                   findProfile("plain", "")),
            "a<01 02><03 04>b\n");
}

TEST(ComposedLine, ManyCodesAtOnePlaceAndManyPassesTakeNoLongerThanOthers) {
  Line line;
  constexpr int kMany = 60'000;
  const auto code = pagesOf("\x01", Profile{}).at(0).lines.at(0).runs.at(0);
  auto letter = code;
  letter.unknown = {};
  letter.text = u"a";
  const auto add = [&](int pass, auto run) {
    run.pass = pass;
    line.runs.push_back(std::move(run));
  };
  for (int i = 0; i < kMany; ++i) add(0, code);
  for (int i = 1; i <= kMany; ++i) {
    add(i, letter);
    add(i, code);
  }
  std::vector<CellRow> rows;
  const double seconds = tarvo::test::processorSecondsOf([&] { rows = composed(line); });
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].size(), 2U * kMany + 1U);
  EXPECT_EQ(rows[0].back().character, u'a');
  EXPECT_LT(seconds, 4);
}

}  // namespace
}  // namespace tarvordp
