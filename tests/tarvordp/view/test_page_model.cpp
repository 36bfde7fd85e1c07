#include "tarvordp/view/page_model.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "page_dump.h"

namespace tarvordp {
namespace {

using namespace std::string_view_literals;

Profile shipped(const char* name) { return findProfile(name, ""); }

std::string repeated(int count, std::string_view text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

// What one open line of ten-inch paper looks like.
struct LineCase {
  const char* shows;
  const char* profile;
  std::string_view bytes;
  const char* runs;
};

constexpr LineCase kLineCases[] = {
    {"plain text", "plain", "Total"sv, R"( @0 w72 "Total")"},
    {"bold", "epson-9pin",
     "a\x1B"
     "Eb\x1B"
     "Fc"sv,
     R"( @0 w72 "a" @72 w72 bold "b" @144 w72 "c")"},
    {"underlined, OKI", "oki-microline",
     "\x1B"
     "Ca \x1B"
     "Db"sv,
     R"( @0 w72 underlined "a " @144 w72 "b")"},
    {"italic", "epson-24pin",
     "\x1B"
     "4a\x1B"
     "5b"sv,
     R"( @0 w72 italic "a" @72 w72 "b")"},
    {"italic, OKI", "oki-microline", "\x1B!/a\x1B!*b"sv, R"( @0 w72 italic "a" @72 w72 "b")"},
    {"condensed is 17.1 an inch", "epson-9pin",
     "\x0F"
     "ab\x12\x1BPc"sv,
     R"( @0 w42 "ab" @84 w72 "c")"},
    {"12 an inch, and condensed 20", "epson-9pin",
     "\x1BMab\x0F"
     "c"sv,
     R"( @0 w60 "ab" @120 w36 "c")"},
    {"10 an inch leaves it condensed", "epson-9pin", "\x0F\x1BMa\x1BPb"sv,
     R"( @0 w36 "a" @36 w42 "b")"},
    {"one pitch at a time: condensed replaces 12", "ibm-proprinter",
     "\x1B:a\x0F"
     "b\x12"
     "c"sv,
     R"( @0 w60 "a" @60 w42 "b" @102 w72 "c")"},
    {"one pitch at a time: 12 replaces condensed", "ibm-proprinter",
     "\x0F"
     "a\x1B:b"sv,
     R"( @0 w42 "a" @42 w60 "b")"},
    {"expanded doubles every pitch", "epson-9pin",
     "\x1BW\x01"
     "a\x0F"
     "b\x1BW\x00"
     "c"sv,
     R"( @0 w144 expanded "a" @144 w84 expanded "b" @228 w42 "c")"},
    {"OKI's 10 an inch ends expanded and condensed", "oki-microline",
     "\x1D\x1F"
     "a\x1E"
     "b"sv,
     R"( @0 w84 expanded "a" @84 w72 "b")"},
    {"reset ends all", "epson-9pin",
     "\x0F\x1B"
     "E\x1B-\x01\x1B"
     "4\x1BM\x1BW\x01"
     "a\x1B@b"sv,
     R"( @0 w72 expanded bold underlined italic "a" @72 w72 "b")"},
    {"a code that changes nothing starts no run", "epson-9pin",
     "a\x1B"
     "Fb"sv,
     R"( @0 w72 "ab")"},
    {"unknown bytes take no room", "epson-9pin", "a\x1BkQb"sv,
     R"( @0 w72 "a" @72 <1B 6B 51> @72 w72 "b")"},
    {"unknown codes whose end is unknown", "plain", "a\x1BkQb"sv,
     R"( @0 w72 "a" @72 <1B 6B ?> @72 w72 "Qb")"},
    {"graphics take their room", "epson-9pin",
     "a\x1BK\x0C\x00"
     "123456789012b"sv,
     R"( @0 w72 "a" @72 <1B 4B 0C 00: 12 bytes of graphics> w144 @216 w72 "b")"},
    {"graphics of 24 pins are finer", "epson-24pin",
     "\x1B*\x27\x02\x00"
     "123456b"sv,
     R"( @0 <1B 2A 27 02 00: 6 bytes of graphics> w8 @8 w72 "b")"},
    {"graphics that are cut off", "ibm-proprinter",
     "\x1BL\x00\x01"
     "12"sv,
     R"( @0 <1B 4C 00 01: 2 of 256 bytes of graphics> w1536)"},
    {"much data is counted", "ibm-proprinter",
     "\x1B=\x09\x00"
     "123456789b"sv,
     R"( @0 <1B 3D 09 00: 9 bytes> @0 w72 "b")"},
    {"printing over the line", "plain", "ab\r__"sv, R"( @0 w72 "ab" @0 pass1 w72 "__")"},
    {"carriage returns of an empty line", "plain", "\r\rab"sv, R"( @0 w72 "ab")"},
    {"tabs go to every eighth column", "plain", "ab\tc\t"sv,
     R"( @0 w72 "ab" @144 w72 tab "      " @576 w72 "c" @648 w72 tab "       ")"},
    {"letters of the usual set", "plain", "\xA4\xA0\x82\xA1\xA2\xA3\xA5\xA7\xC4\xC1"sv,
     R"( @0 w72 "ñáéíóúÑº─┴")"},
};

TEST(PageModel, LooksOfALine) {
  for (const LineCase& each : kLineCases) {
    EXPECT_EQ(dumpOf(each.bytes, shipped(each.profile)),
              std::string("0+0") + each.runs + "\nend of 792\n")
        << each.shows;
  }
}

struct PageCase {
  const char* shows;
  const char* profile;
  std::string_view bytes;
  const char* pages;
};

constexpr PageCase kPageCases[] = {
    {"nothing", "plain", ""sv, ""},
    {"codes alone", "epson-9pin", "\x1B@\x12\x1BP"sv, ""},
    {"lines of twelve points", "plain", "a\r\n\r\nb\r\n"sv,
     "0+12 @0 w72 \"a\"\n12+12\n24+12 @0 w72 \"b\"\nend of 792\n"},
    {"a line feed alone begins a line", "plain", "a\nb"sv,
     "0+12 @0 w72 \"a\"\n12+0 @0 w72 \"b\"\nend of 792\n"},
    {"a form feed", "plain", "a\r\nb\fc"sv,
     "0+12 @0 w72 \"a\"\n12+0 @0 w72 \"b\"\nejected of 792\n0+0 @0 w72 \"c\"\nend of 792\n"},
    {"a form feed at a page's top is a page", "plain", "\f\fa\f"sv,
     "ejected of 792\nejected of 792\n0+0 @0 w72 \"a\"\nejected of 792\n"},
    {"skips of points", "epson-9pin",
     "a\r\n\x1B"
     "A\x01\r\n\r\n\x1B"
     "2b\r\n"sv,
     "0+12 @0 w72 \"a\"\n12+1\n13+1\n14+12 @0 w72 \"b\"\nend of 792\n"},
    {"skips of points, 24 pins", "epson-24pin",
     "\x1B+\x05\r\n\x1B"
     "2b\r\n"sv,
     "0+1\n1+12 @0 w72 \"b\"\nend of 792\n"},
    {"skips of points, IBM", "ibm-proprinter",
     "\x1B"
     "A\x01\x1B"
     "2\r\n\x1B"
     "A\x0C\x1B"
     "2b\r\n"sv,
     "0+1\n1+12 @0 w72 \"b\"\nend of 792\n"},
    {"skips of points, OKI", "oki-microline",
     "\x1B%9\x02\r\n\x1B"
     "6b\r\n"sv,
     "0+1\n1+12 @0 w72 \"b\"\nend of 792\n"},
    {"modes outlive a line", "epson-9pin",
     "\x1B-\x01"
     "a\r\nb\fc\x1B-\x00"
     "d"sv,
     "0+12 @0 w72 underlined \"a\"\n12+0 @0 w72 underlined \"b\"\nejected of 792\n"
     "0+0 @0 w72 underlined \"c\" @72 w72 \"d\"\nend of 792\n"},
    {"an unknown code at the end", "plain", "a\f\x1Bk"sv,
     "0+0 @0 w72 \"a\"\nejected of 792\n0+0 @0 <1B 6B ?>\nend of 792\n"},
};

TEST(PageModel, PagesOfAJob) {
  for (const PageCase& each : kPageCases) {
    EXPECT_EQ(dumpOf(each.bytes, shipped(each.profile)), each.pages) << each.shows;
  }
}

TEST(PageModel, PaperEndsAfterThePageLengthWithoutAFormFeed) {
  const auto pages = pagesOf(repeated(67, "x\r\n"), shipped("plain"));
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(pages[0].lines.size(), 66U);
  EXPECT_EQ(pages[0].lines.back().top, 65 * 12);
  EXPECT_FALSE(pages[0].ejected);
  EXPECT_EQ(dump(pages[1]), "0+12 @0 w72 \"x\"\nend of 792\n");
}

TEST(PageModel, AFullPageLeavesNoPageBehind) {
  EXPECT_EQ(pagesOf(repeated(66, "x\r\n"), shipped("plain")).size(), 1U);
  EXPECT_EQ(pagesOf(repeated(65, "x\r\n") + "\f", shipped("plain")).size(), 1U);
}

TEST(PageModel, PointsGoOnAcrossTheFold) {
  const std::string bytes =
      "\x1B"
      "A\x01" +
      repeated(5, "\r\n") +
      "\x1B"
      "2" +
      repeated(66, "x\r\n") + "y";
  const auto pages = pagesOf(bytes, shipped("epson-9pin"));
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(pages[0].lines.back().top, 5 + 65 * 12);
  EXPECT_EQ(dump(pages[1]), "5+0 @0 w72 \"y\"\nend of 792\n");
}

TEST(PageModel, HalfLetterPagesHaveThirtyThreeLines) {
  const Profile profile = profileFrom(R"({"MaxLinPage": 33})");
  const auto pages = pagesOf(repeated(34, "x\r\n"), profile);
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(pages[0].height, 396);
  EXPECT_EQ(pages[0].lines.size(), 33U);
}

TEST(PageModel, APageLengthOfNoneIsThatOfLetterPaper) {
  EXPECT_EQ(dumpOf("a", Profile{}), "0+0 @0 w72 \"a\"\nend of 792\n");
}

TEST(PageModel, ALineThatIsTooLongGoesOnInTheNext) {
  const std::string bytes = repeated(137, "x") + "\r\ny";
  const auto pages = pagesOf(bytes, shipped("plain"));
  ASSERT_EQ(pages.size(), 1U);
  const auto& lines = pages[0].lines;
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_TRUE(lines[0].goesOn);
  EXPECT_EQ(lines[0].runs[0].text.size(), 136U);
  EXPECT_EQ(widthOf(lines[0]), kWidestLine);
  EXPECT_EQ(lines[1].top, 12);
  EXPECT_EQ(lines[1].runs[0].text, u"x");
  EXPECT_FALSE(lines[1].goesOn);
  EXPECT_EQ(lines[2].top, 24);
}

TEST(PageModel, BlanksAtTheEndMakeALineNoWider) {
  const auto widthOfLine = [](std::string_view bytes) {
    return widthOf(pagesOf(bytes, shipped("epson-9pin")).at(0).lines.at(0));
  };
  EXPECT_EQ(widthOfLine("ab   \r\n"), 144);
  EXPECT_EQ(widthOfLine("   \r\n"), 0);
  EXPECT_EQ(widthOfLine("\r\n"), 0);
  EXPECT_EQ(widthOfLine("a\x1B-\x01  \x1B-\x00   \r\n"sv), 216);
  EXPECT_EQ(widthOfLine("abc\ra\r\n"), 216);
}

TEST(PageModel, GraphicsEndAtThePapersEdge) {
  const std::string bytes = "\x1BK\xFF\x03" + std::string(0x3FF, 'x') + "a\r\nb";
  const auto pages = pagesOf(bytes, shipped("epson-9pin"));
  ASSERT_EQ(pages.size(), 1U);
  const auto& lines = pages[0].lines;
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(widthOf(lines[0]), kWidestLine);
  EXPECT_EQ(lines[1].runs.at(0).text, u"a");
  EXPECT_EQ(lines[2].runs.at(0).text, u"b");
}

TEST(PageModel, ExpandedPrintBySoEndsWithTheLine) {
  const Profile profile =
      profileFrom(R"({"ChrInitExpanded": "\u000e", "ChrEndExpanded": "\u0014"})");
  EXPECT_EQ(dumpOf("\x0E"
                   "a\r\nb",
                   profile),
            "0+12 @0 w144 expanded \"a\"\n12+0 @0 w72 \"b\"\nend of 792\n");
}

TEST(PageModel, NormalAloneEndsCondensedAndNotTheFont) {
  const Profile profile = profileFrom(
      R"({"ChrCondensed": "\u000f", "ChrNormal": "\u0012", "ChrFont10Points": "\u001bP",
          "ChrFont12Points": "\u001bM"})");
  EXPECT_EQ(dumpOf("\x1BM\x0F"
                   "a\x12"
                   "b",
                   profile),
            "0+0 @0 w36 \"a\" @36 w60 \"b\"\nend of 792\n");
}

TEST(PageModel, OneCodeForOnAndOffSwitchesInTurn) {
  const Profile profile = profileFrom(R"({"ChrBold": "\u0001", "ChrLight": "\u0001"})");
  EXPECT_EQ(dumpOf("a\x01"
                   "b\x01"
                   "c",
                   profile),
            "0+0 @0 w72 \"a\" @72 w72 bold \"b\" @144 w72 \"c\"\nend of 792\n");
}

TEST(PageModel, InitialStringsDoWhatTheirCodesDo) {
  const Profile profile = profileFrom(
      R"({"ChrInitialString1": "\u001b@\u000f\u001bC!", "ChrReset": "\u001b@",
          "ChrCondensed": "\u000f", "ChrBold": "\u001bE", "ChrInitialString2": "\u001bE\r\n"})");
  EXPECT_EQ(dumpOf("\x1B@\x0F\x1B"
                   "C!a\x1B"
                   "E\r\nb",
                   profile),
            "0+12 @0 w42 \"a\"\n12+0 @0 w42 bold \"b\"\nend of 792\n");
}

TEST(PageModel, TheCharacterSetIsTheOneThatTheJobSelects) {
  const Profile profile = profileFrom(
      R"({"ChrReset": "\u001b@", "ChrInternationalChars":
          "\u001b(t\u0003\u0000\u0001\u0003\u0000\u001bt\u0001\u001b6"})");
  EXPECT_EQ(dumpOf("\xB5\x1B(t\x03\x00\x01\x03\x00\x1Bt\x01\x1B\x36\xB5\x1B@\xB5"sv, profile),
            "0+0 @0 w72 \"╡Á╡\"\nend of 792\n");
}

TEST(PageModel, TheEuroSignIsThatOfPc858) {
  const Profile profile = profileFrom(
      R"({"ChrInternationalChars": "\u001b[T\u0005\u0000\u0000\u0000\u0003\u005a\u0000"})");
  EXPECT_EQ(dumpOf("\xD5\x1B[T\x05\x00\x00\x00\x03Z\x00\xD5\xB5\xA4"sv, profile),
            "0+0 @0 w72 \"╒€Áñ\"\nend of 792\n");
}

TEST(PageModel, EveryByteIsSeenOrObeyed) {
  for (const std::string& name : shippedProfileNames()) {
    const Profile profile = findProfile(name, "");
    for (int byte = 0; byte <= 0xFF; ++byte) {
      const std::string one(1, static_cast<char>(byte));
      const bool isKnown = std::string("\r\n\f\t").find(one) != std::string::npos || [&] {
        for (std::size_t i = 0; i < kControlCodes; ++i) {
          if (bytesSent(profile, static_cast<ControlCode>(i)) == one) return true;
        }
        return false;
      }();
      const auto pages = pagesOf(one, profile);
      const bool isSeen =
          pages.size() == 1 && pages[0].lines.size() == 1 && pages[0].lines[0].runs.size() == 1;
      EXPECT_TRUE(isKnown || isSeen) << name << " " << byte;
    }
  }
}

}  // namespace
}  // namespace tarvordp
