// Texts and UTF-8, and the name compare of late binding.
#include "frame/text.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace tarvo {
namespace {

using namespace std::literals;

constexpr char16_t kReplacement = 0xFFFD;

Text textOf(char32_t point) {
  if (point < 0x10000) return Text(1, static_cast<char16_t>(point));
  return {static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)),
          static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF))};
}

struct WellFormedCase {
  const char* shows;
  Text text;
  std::string utf8;
};

const WellFormedCase kWellFormed[] = {
    {"empty", u"", ""},
    {"plain", u"Total 12,50", "Total 12,50"},
    {"Spanish letters", u"Impresión ñ Ñ º", "Impresi\xC3\xB3n \xC3\xB1 \xC3\x91 \xC2\xBA"},
    {"character 0 inside", u"a\0b"s, "a\0b"s},
    {"character 0 alone", u"\0"s, "\0"s},
    {"last of one byte", u"\x7F", "\x7F"},
    {"first of two bytes", u"\x80", "\xC2\x80"},
    {"last of two bytes", u"\x7FF", "\xDF\xBF"},
    {"first of three bytes", u"\x800", "\xE0\xA0\x80"},
    {"last before the surrogates", u"\xD7FF", "\xED\x9F\xBF"},
    {"first after the surrogates", u"\xE000", "\xEE\x80\x80"},
    {"last of three bytes", u"\xFFFF", "\xEF\xBF\xBF"},
    {"first of four bytes", u"\xD800\xDC00", "\xF0\x90\x80\x80"},
    {"last of all", u"\xDBFF\xDFFF", "\xF4\x8F\xBF\xBF"},
    {"a pair between letters", u"x\xD83D\xDE00y", "x\xF0\x9F\x98\x80y"},
};

TEST(Text, BecomesUtf8) {
  for (const auto& row : kWellFormed) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(toUtf8(row.text), row.utf8);
  }
}

TEST(Text, ComesFromUtf8) {
  for (const auto& row : kWellFormed) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(fromUtf8(row.utf8), row.text);
  }
}

TEST(Text, EveryCodePointSurvivesUtf8) {
  for (char32_t point = 0; point <= 0x10FFFF; ++point) {
    if (point >= 0xD800 && point <= 0xDFFF) continue;
    const Text text = textOf(point);
    const std::string utf8 = toUtf8(text);
    const std::size_t length = point < 0x80 ? 1 : point < 0x800 ? 2 : point < 0x10000 ? 3 : 4;
    ASSERT_EQ(utf8.size(), length) << std::hex << static_cast<std::uint32_t>(point);
    ASSERT_EQ(fromUtf8(utf8), text) << std::hex << static_cast<std::uint32_t>(point);
  }
}

TEST(Text, LoneSurrogateIsReplacedInUtf8) {
  const struct {
    const char* shows;
    Text text;
    std::string utf8;
  } rows[] = {
      {"high at the end", u"a\xD83D", "a\xEF\xBF\xBD"},
      {"low alone", u"\xDE00", "\xEF\xBF\xBD"},
      {"high before a letter", u"\xD83Dz", "\xEF\xBF\xBDz"},
      {"a pair the wrong way round", u"\xDE00\xD83D", "\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"high before a pair", u"\xD83D\xD83D\xDE00", "\xEF\xBF\xBD\xF0\x9F\x98\x80"},
      {"low after a pair", u"\xD83D\xDE00\xDE00", "\xF0\x9F\x98\x80\xEF\xBF\xBD"},
      {"first high", u"\xD800", "\xEF\xBF\xBD"},
      {"last low", u"\xDFFF", "\xEF\xBF\xBD"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(toUtf8(row.text), row.utf8);
  }
}

TEST(Text, EachBadByteOfUtf8IsReplacedByItself) {
  const struct {
    const char* shows;
    std::string utf8;
    Text text;
  } rows[] = {
      {"tail byte alone", "\x80", u"\xFFFD"},
      {"last tail byte alone", "\xBF", u"\xFFFD"},
      {"two tail bytes", "\x80\xBF", u"\xFFFD\xFFFD"},
      {"tail byte after a letter", "a\x80z", u"a\xFFFDz"},
      {"two bytes, cut short", "\xC3", u"\xFFFD"},
      {"two bytes, cut by a letter", "\xC3z", u"\xFFFDz"},
      {"three bytes, cut after one", "\xE2z", u"\xFFFDz"},
      {"three bytes, cut after two", "\xE2\x82z", u"\xFFFD\xFFFDz"},
      {"four bytes, cut after three", "\xF0\x9F\x98z", u"\xFFFD\xFFFD\xFFFDz"},
      {"lead byte cut by another lead byte", "\xC3\xC3\xB1", u"\xFFFDñ"},
      {"character 0 written in two bytes", "\xC0\x80", u"\xFFFD\xFFFD"},
      {"a letter written in two bytes", "\xC1\xBF", u"\xFFFD\xFFFD"},
      {"two-byte character written in three", "\xE0\x9F\xBF", u"\xFFFD\xFFFD\xFFFD"},
      {"three-byte character written in four", "\xF0\x8F\xBF\xBF", u"\xFFFD\xFFFD\xFFFD\xFFFD"},
      {"first surrogate", "\xED\xA0\x80", u"\xFFFD\xFFFD\xFFFD"},
      {"last surrogate", "\xED\xBF\xBF", u"\xFFFD\xFFFD\xFFFD"},
      {"past the last character", "\xF4\x90\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"},
      {"far past the last character", "\xF7\xBF\xBF\xBF", u"\xFFFD\xFFFD\xFFFD\xFFFD"},
      {"lead byte of five", "\xF8\x88\x80\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD"},
      {"lead byte of five before three tails", "\xF9\x88\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"},
      {"lead byte of six before three tails", "\xFC\x80\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"},
      {"byte FE", "\xFE", u"\xFFFD"},
      {"byte FF", "\xFF", u"\xFFFD"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(fromUtf8(row.utf8), row.text);
  }
}

TEST(Text, EveryCutOfAnUtf8SequenceIsReplacedWhateverStandsBehindTheCut) {
  for (const std::string_view whole : {"\xC3\xB1", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"}) {
    for (std::size_t kept = 1; kept < whole.size(); ++kept) {
      EXPECT_EQ(fromUtf8(whole.substr(0, kept)), Text(kept, kReplacement)) << kept;
    }
  }
}

TEST(Text, ComesFromPlainCharacters) {
  EXPECT_EQ(fromAscii(""), u"");
  EXPECT_EQ(fromAscii("sWriteLn"), u"sWriteLn");
  EXPECT_EQ(fromAscii("a\0b\x7F"s), u"a\0b\x7F"s);
}

TEST(Text, NamesAreEqualWithoutRegardToPlainCase) {
  const struct {
    const char* shows;
    Text a;
    std::string_view b;
    bool equal;
  } rows[] = {
      {"the same", u"sWrite", "sWrite", true},
      {"either case", u"SWRITE", "swrite", true},
      {"the ends of the alphabet", u"azAZ", "AZaz", true},
      {"empty", u"", "", true},
      {"digits and marks", u"_1", "_1", true},
      {"another letter", u"sWrite", "sWritf", false},
      {"shorter", u"sWrit", "sWrite", false},
      {"longer", u"sWriteLn", "sWrite", false},
      {"longer, as far as the storage goes", u"sWriteLn", "sWriteLn"sv.substr(0, 6), false},
      {"the marks before the letters", u"@", "`", false},
      {"the marks after the letters", u"[", "{", false},
      {"a letter beyond the plain ones that ends like one", u"\x0141", "A", false},
      {"a sign that is a capital K elsewhere", u"\x212A", "k", false},
      {"character 0 counts", u"a\0b"s, "a\0c"sv, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(equalIgnoringAsciiCase(row.a, row.b), row.equal);
  }
}

}  // namespace
}  // namespace tarvo
