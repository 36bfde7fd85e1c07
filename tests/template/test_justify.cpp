// Justified texts: where the blanks go, which texts come out too wide, and which never get there.
#include <optional>

#include "template/template_test.h"

namespace tarvo::test {
namespace {

class Justified : public TemplateTest {
 protected:
  std::string justified(TextView text, std::uint8_t width) {
    variable->SetAlignmentType(eAT_Justify);
    variable->SetLength(width);
    variable->SetTextToWrite(text);
    return writtenBy([this] { variable->sAlignTextToWrite(); });
  }
};

struct Row {
  const char16_t* text;
  std::uint8_t width;
  const char* justified;
};

constexpr Row kRows[] = {
    // As wide as it is, or wider; the blanks at its ends go in any case.
    {u"ab cd", 5, "ab cd"},
    {u"ab cd ef", 5, "ab cd ef"},
    {u"  ab  cd  ", 5, "ab  cd"},
    {u"abcdefgh", 1, "abcdefgh"},

    // One gap: at most two blanks more, one for each pass.
    {u"ab cd", 6, "ab  cd"},
    {u"ab cd", 7, "ab   cd"},
    {u"ab cd", 8, "error 6"},
    {u"ab cd", 255, "error 6"},
    {u" ab cd   ", 7, "ab   cd"},
    {u"a b", 4, "a  b"},
    {u"a b", 5, "a   b"},
    {u"a b", 6, "error 6"},

    // Several gaps: a pass widens all of them, so the text may come out longer.
    {u"a b c", 6, "a  b  c"},
    {u"a b c", 7, "a  b  c"},
    {u"a b c", 8, "a   b   c"},
    {u"a b c", 9, "error 6"},
    {u"a b c d", 8, "a  b  c  d"},
    {u"a b c d", 9, "a  b  c  d"},
    {u"a b c d", 10, "a  b  c  d"},
    {u"a b c d", 11, "a   b   c   d"},
    {u"a b c d", 12, "error 6"},
    {u"uno dos tres cuatro", 20, "uno  dos  tres  cuatro"},
    {u"uno dos tres cuatro", 22, "uno  dos  tres  cuatro"},
    {u"uno dos tres cuatro", 23, "uno   dos   tres   cuatro"},
    {u"uno dos tres cuatro", 24, "error 6"},

    // A gap of several blanks counts once.
    {u"a   b c", 8, "a    b  c"},
    {u"a   b c", 9, "a    b  c"},
    {u"a   b c", 10, "a     b   c"},
    {u"a   b c", 11, "error 6"},
    {u"   a    b   ", 7, "a     b"},

    // One word: one character short it stays so, shorter ones never get there.
    {u"abc", 3, "abc"},
    {u"abc", 4, "abc"},
    {u"abc", 5, "error 6"},
    {u"  abc ", 4, "abc"},
    {u"a", 1, "a"},
    {u"a", 2, "a"},
    {u"a", 3, "error 6"},
    {u"a b", 1, "a b"},
    {u"a b", 2, "a b"},
    {u"a b", 3, "a b"},

    // Nothing stays nothing, in any width.
    {u"", 1, ""},
    {u"", 2, ""},
    {u"", 255, ""},
    {u"    ", 2, ""},
    {u"    ", 10, ""},

    // Only blanks are gaps.
    {u"a\u00A0b", 5, "error 6"},
    {u"a\tb c", 6, "a\tb  c"},
};

TEST_F(Justified, FillsItsWidthBetweenTheWords) {
  for (const Row& row : kRows) {
    EXPECT_EQ(justified(row.text, row.width), row.justified)
        << inQuotes(row.text) << " in " << int{row.width};
  }
}

TEST_F(Justified, AsksForOneBlankAfterTheOther) {
  EXPECT_EQ(justified(u" a bc d ", 9), "a   bc   d");
  EXPECT_EQ(callsMade(),
            R"(fTrim " a bc d "; fInsert "a bc d", " ", 2; fInsert "a  bc d", " ", 6; )"
            R"(fInsert "a  bc  d", " ", 3; fInsert "a   bc  d", " ", 8)");

  EXPECT_EQ(justified(u"a   b", 6), "a    b");
  EXPECT_EQ(callsMade(), R"(fTrim "a   b"; fInsert "a   b", " ", 4)");
}

TEST_F(Justified, AsksForNothingInAWidthOfZero) {
  EXPECT_EQ(justified(u" a b ", 0), " a b ");
  EXPECT_EQ(callsMade(), "");
}

Text joined(std::size_t words, std::size_t blanks) {
  Text text = u"x";
  for (std::size_t i = 1; i < words; ++i) text.append(blanks, u' ').append(u"x");
  return text;
}

// The first pass must come to the width, or within one of it: then there is a second one.
TEST_F(Justified, WidensEveryGapInEveryPass) {
  useUnwatchedTexto();
  for (std::size_t words = 1; words <= 40; ++words) {
    const Text text = joined(words, 1);
    const std::size_t afterOnePass = joined(words, 2).size();
    for (std::size_t width = 1; width <= 130; ++width) {
      std::string expected = "error 6";
      if (width <= text.size()) {
        expected = toUtf8(text);
      } else if (width <= afterOnePass) {
        expected = toUtf8(joined(words, 2));
      } else if (width == afterOnePass + 1) {
        expected = toUtf8(joined(words, 3));
      }
      ASSERT_EQ(justified(text, static_cast<std::uint8_t>(width)), expected)
          << words << " words in " << width;
    }
  }
}

TEST_F(Justified, ReachesTheGreatestWidth) {
  const Text text = joined(85, 2);
  ASSERT_EQ(text.size(), 253u);
  EXPECT_EQ(justified(text, 255), toUtf8(joined(85, 3)));
  EXPECT_EQ(justified(joined(128, 1), 255), toUtf8(joined(128, 1)));
}

// --- The overflow.

class Unjustified : public Justified {};

TEST_F(Unjustified, TellsTheErrorServiceWhoCountedTooFar) {
  for (const char16_t* text : {u"word", u"too few"}) {
    variable->sExtract(u"{F,10,QJ}");
    variable->SetContentString(text);
    error->reports.clear();
    const std::optional<RunTimeError> raised = errorOf([this] { variable->sFormatSpecialVar(); });
    ASSERT_TRUE(raised.has_value());
    EXPECT_EQ(raised->number(), kOverflow);
    EXPECT_EQ(toUtf8(raised->source()), "LibTarvoRdpCI");
    EXPECT_EQ(toUtf8(raised->description()),
              "Overflow < fJustifyStr < sAlignTextToWrite < sFormatSpecialVar");
    EXPECT_EQ(error->trail(), "fJustifyStr sAlignTextToWrite sFormatSpecialVar");
  }
}

TEST_F(Unjustified, HasOneBlankMoreInEachGapWhenThePassEnds) {
  EXPECT_EQ(justified(u"a b c d", 100), "error 6");
  EXPECT_EQ(callsMade(),
            R"(fTrim "a b c d"; fInsert "a b c d", " ", 2; fInsert "a  b c d", " ", 5; )"
            R"(fInsert "a  b  c d", " ", 8)");
}

TEST_F(Unjustified, LeavesTheTextAsItWas) {
  for (const char16_t* text : {u"word", u" too few "}) {
    EXPECT_EQ(justified(text, 100), "error 6");
    EXPECT_EQ(variable->GetTextToWrite(), text);
  }
  EXPECT_EQ(justified(u"too few", 8), "too  few");
}

// Every kind comes here, see Format.AlignsEveryKindInItsWidth; a number's blanks go like any
// text's.
TEST_F(Unjustified, ANumberIsLikeAnyText) {
  variable->sExtract(u"{F,12,QJ}");
  variable->SetContentNumeric(Currency{15'000}, false);
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "error 6");
  variable->sExtract(u"{F,5,QJ}");
  variable->SetContentNumeric(Currency{15'000}, false);
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "1,50");
}

// The blanks that a text was filled with go before it is justified, and NOBLANCOS finds none.
TEST_F(Justified, ComesAfterTheTextWasBroughtToItsWidth) {
  variable->sExtract(u"{F,10,QJ,NB}");
  variable->SetContentString(u"uno dos y tres");
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "uno  dos  y");
  EXPECT_EQ(callsMade(),
            R"(fPadOrCut "uno dos y tres", 10, " "; fTrim "uno dos y "; )"
            R"(fInsert "uno dos y", " ", 4; fInsert "uno  dos y", " ", 9; fTrim "uno  dos  y")");
}

}  // namespace
}  // namespace tarvo::test
