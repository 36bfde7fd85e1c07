// The text service, operation by operation.
#include "services/clsTexto.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "services/call_case.h"
#include "services/failure.h"

namespace LibTarvoCI {
namespace {

using namespace std::string_literals;
using test::CallCase;
using test::expectEach;
using test::failureOf;
using test::invalidCall;
using test::resultOf;

constexpr std::int32_t kGreatest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

class TextoTest : public ::testing::Test {
 protected:
  Ref<clsTexto> texto_ = tarvo::make<clsTexto>();
};

TEST_F(TextoTest, PositionIsWhereTheSearchedTextFirstStands) {
  const CallCase<std::int32_t, Text, Text, std::int32_t> rows[] = {
      {"at the front", {u"{F}", u"{", 1}, 1},
      {"inside", {u"Total {F}", u"{F", 1}, 7},
      {"at the end", {u"abc", u"c", 1}, 3},
      {"the start itself counts", {u"a{b{c", u"{", 2}, 2},
      {"before the start does not", {u"a{b{c", u"{", 3}, 4},
      {"only before the start", {u"a{b", u"{", 3}, 0},
      {"absent", {u"abc", u"x", 1}, 0},
      {"the case counts", {u"abc", u"B", 1}, 0},
      {"longer than the text", {u"ab", u"abc", 1}, 0},
      {"only its beginning fits", {u"aab", u"abc", 1}, 0},
      {"nothing searched", {u"abc", u"", 1}, 0},
      {"nothing searched in nothing", {u"", u"", 1}, 0},
      {"an empty text", {u"", u"a", 1}, 0},
      {"a start just past the end", {u"abc", u"c", 4}, 0},
      {"the greatest start", {u"abc", u"c", kGreatest}, 0},
      {"past a character 0", {u"a\0b"s, u"b", 1}, 3},
      {"character 0 itself", {u"ab\0"s, u"\0"s, 1}, 3},
  };
  expectEach(*texto_, &clsTexto::fPosition, rows);
}

TEST_F(TextoTest, PartIsThatManyCharactersFromTheStart) {
  const CallCase<Text, Text, std::int32_t, std::int32_t> rows[] = {
      {"from the front", {u"abcdef", 1, 2}, u"ab"},
      {"from inside", {u"abcdef", 3, 2}, u"cd"},
      {"a count of 0 goes to the end", {u"abcdef", 3, 0}, u"cdef"},
      {"more than there is", {u"abcdef", 5, 9}, u"ef"},
      {"the greatest count", {u"abcdef", 5, kGreatest}, u"ef"},
      {"the last character", {u"abcdef", 6, 1}, u"f"},
      {"just past the end", {u"abcdef", 7, 1}, u""},
      {"just past the end, to the end", {u"abcdef", 7, 0}, u""},
      {"the greatest start", {u"abcdef", kGreatest, 0}, u""},
      {"of nothing", {u"", 1, 0}, u""},
      {"with a character 0", {u"a\0b"s, 1, 3}, u"a\0b"s},
      {"after a character 0", {u"a\0b"s, 3, 1}, u"b"},
  };
  expectEach(*texto_, &clsTexto::fPart, rows);
}

TEST_F(TextoTest, LengthCountsCharactersOfSixteenBits) {
  const CallCase<std::int32_t, Text> rows[] = {
      {"empty", {u""}, 0},
      {"letters beyond the plain ones", {u"año"}, 3},
      {"characters 0", {u"a\0b\0"s}, 4},
      {"a character of two", {u"\xD83D\xDE00"}, 2},
  };
  expectEach(*texto_, &clsTexto::fLength, rows);
}

TEST_F(TextoTest, TrimTakesBlanksOffBothEnds) {
  const CallCase<Text, Text> rows[] = {
      {"both ends", {u"  a  "}, u"a"},
      {"the front only", {u"  a"}, u"a"},
      {"the end only", {u"a  "}, u"a"},
      {"blanks inside stay", {u" a  b "}, u"a  b"},
      {"nothing to take off", {u"a"}, u"a"},
      {"blanks only", {u"   "}, u""},
      {"empty", {u""}, u""},
      {"a tabulator is no blank", {u"\ta\t"}, u"\ta\t"},
      {"line ends and no-break blanks are no blanks", {u" \r\na\xA0 "}, u"\r\na\xA0"},
      {"character 0 is no blank", {u" \0a\0 "s}, u"\0a\0"s},
  };
  expectEach(*texto_, &clsTexto::fTrim, rows);
}

TEST_F(TextoTest, ReplaceAllReplacesEveryOccurrence) {
  const CallCase<Text, Text, Text, Text> rows[] = {
      {"one character by one", {u"a-b-c", u"-", u"+"}, u"a+b+c"},
      {"one by one, at both ends", {u"-a-", u"-", u"+"}, u"+a+"},
      {"one by itself", {u"a-b", u"-", u"-"}, u"a-b"},
      {"one by nothing", {u"a-b-c", u"-", u""}, u"abc"},
      {"one by several", {u"a-b-", u"-", u"--"}, u"a--b--"},
      {"several by one", {u"a<B>b<B>", u"<B>", u"*"}, u"a*b*"},
      {"several by nothing", {u"<B>a<B><B>b", u"<B>", u""}, u"ab"},
      {"several by as many", {u"abab", u"ab", u"ba"}, u"baba"},
      {"several by more", {u"xabx", u"ab", u"aab"}, u"xaabx"},
      {"left to right", {u"aaa", u"aa", u"b"}, u"ba"},
      {"the inserted text is not searched again", {u"aab", u"ab", u"b"}, u"ab"},
      {"the inserted text may hold the old one", {u"aa", u"a", u"aa"}, u"aaaa"},
      {"the whole text", {u"abc", u"abc", u"x"}, u"x"},
      {"absent", {u"abc", u"x", u"y"}, u"abc"},
      {"the case counts", {u"abc", u"B", u"y"}, u"abc"},
      {"an empty old text changes nothing", {u"abc", u"", u"x"}, u"abc"},
      {"in nothing", {u"", u"a", u"b"}, u""},
      {"nothing by something in nothing", {u"", u"", u"b"}, u""},
      {"past a character 0", {u"a\0a"s, u"a", u"b"}, u"b\0b"s},
      {"character 0 by another", {u"a\0b"s, u"\0"s, u" "}, u"a b"},
      {"by character 0", {u"a b", u" ", u"\0"s}, u"a\0b"s},
  };
  expectEach(*texto_, &clsTexto::fReplaceAll, rows);
}

TEST_F(TextoTest, SplitKeepsEveryItem) {
  const struct {
    const char* shows;
    Text text;
    Text separator;
    TextList items;
  } rows[] = {
      {"several", u"a,b,c", u",", {u"a", u"b", u"c"}},
      {"one", u"abc", u",", {u"abc"}},
      {"empty ones inside", u"a,,b", u",", {u"a", u"", u"b"}},
      {"empty ones at the ends", u",a,", u",", {u"", u"a", u""}},
      {"only a separator", u",", u",", {u"", u""}},
      {"an empty text", u"", u",", {u""}},
      {"a separator of several characters", u"a\r\nb\rc\r\n", u"\r\n", {u"a", u"b\rc", u""}},
      {"separators that overlap", u"aaa", u"aa", {u"", u"a"}},
      {"the separator is the text", u"ab", u"ab", {u"", u""}},
      {"an empty separator", u"abc", u"", {u"abc"}},
      {"an empty separator of nothing", u"", u"", {u""}},
      {"blanks stay", u" a , b ", u",", {u" a ", u" b "}},
      {"at a character 0", u"a\0b"s, u"\0"s, {u"a", u"b"}},
      {"past a character 0", u"a\0,b"s, u",", {u"a\0"s, u"b"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shows);
    TextList fresh;
    texto_->fSplit(row.text, row.separator, fresh);
    EXPECT_EQ(fresh, row.items);

    TextList used{u"one", u"two, longer than any item of these rows", u"three", u"four"};
    texto_->fSplit(row.text, row.separator, used);
    EXPECT_EQ(used, row.items);
  }
}

TEST_F(TextoTest, DeleteTakesOutFirstThroughLast) {
  const CallCase<Text, Text, std::int32_t, std::int32_t> rows[] = {
      {"a variable with its braces", {u"A {F,5} B", 3, 4}, u"A  B"},
      {"a distance of 0 takes one", {u"abc", 2, 0}, u"ac"},
      {"from the front", {u"abc", 1, 1}, u"c"},
      {"to the end", {u"abc", 2, 1}, u"a"},
      {"all", {u"abc", 1, 2}, u""},
      {"one less than to the end", {u"abcd", 2, 1}, u"ad"},
      {"past the end", {u"abc", 2, 9}, u"a"},
      {"the greatest distance", {u"abc", 2, kGreatest}, u"a"},
      {"a start just past the end", {u"abc", 4, 0}, u"abc"},
      {"the greatest start and distance", {u"abc", kGreatest, kGreatest}, u"abc"},
      {"of nothing", {u"", 1, 0}, u""},
      {"around a character 0", {u"a\0b\0c"s, 3, 0}, u"a\0\0c"s},
  };
  expectEach(*texto_, &clsTexto::fDelete, rows);
}

TEST_F(TextoTest, InsertPutsTheTextAtThePosition) {
  const CallCase<Text, Text, Text, std::int32_t> rows[] = {
      {"at the front", {u"bc", u"a", 1}, u"abc"},
      {"inside", {u"ac", u"b", 2}, u"abc"},
      {"before the last", {u"ac", u"xx", 2}, u"axxc"},
      {"just past the end", {u"ab", u"c", 3}, u"abc"},
      {"far past the end", {u"ab", u"c", 99}, u"abc"},
      {"the greatest position", {u"ab", u"c", kGreatest}, u"abc"},
      {"nothing", {u"ab", u"", 2}, u"ab"},
      {"into nothing", {u"", u"a", 1}, u"a"},
      {"with characters 0", {u"a\0b"s, u"\0"s, 3}, u"a\0\0b"s},
  };
  expectEach(*texto_, &clsTexto::fInsert, rows);
}

TEST_F(TextoTest, StripRemovesEveryOccurrenceOfACharacter) {
  const CallCase<Text, Text, Text> rows[] = {
      {"at the front", {u"...PAUSA", u"."}, u"PAUSA"},
      {"everywhere", {u".a..b.", u"."}, u"ab"},
      {"all there is", {u"   ", u" "}, u""},
      {"absent", {u"abc", u"."}, u"abc"},
      {"only the first of several characters", {u"a.b-c", u".-"}, u"ab-c"},
      {"no character removes nothing", {u"a.b", u""}, u"a.b"},
      {"of nothing", {u"", u"."}, u""},
      {"character 0", {u"a\0b\0"s, u"\0"s}, u"ab"},
      {"past a character 0", {u".\0."s, u"."}, u"\0"s},
  };
  expectEach(*texto_, &clsTexto::fStrip, rows);
}

TEST_F(TextoTest, RepeatGivesTheCharacterThatManyTimes) {
  const CallCase<Text, Text, std::int32_t> rows[] = {
      {"several times", {u"=", 4}, u"===="},
      {"once", {u"=", 1}, u"="},
      {"not at all", {u"=", 0}, u""},
      {"the first of several", {u"+-", 3}, u"+++"},
      {"character 0", {u"\0"s, 2}, u"\0\0"s},
      {"more than a line is long", {u"x", 32767}, Text(32767, u'x')},
  };
  expectEach(*texto_, &clsTexto::fRepeat, rows);
}

struct AlignCase {
  const char* shows;
  Text text;
  std::int32_t width;
  Text left;
  Text right;
  Text center;
};

const AlignCase kAlignCases[] = {
    {"shorter", u"abc", 6, u"abc   ", u"   abc", u" abc  "},
    {"shorter by an even count", u"ab", 6, u"ab    ", u"    ab", u"  ab  "},
    {"exactly as wide", u"abc", 3, u"abc", u"abc", u"abc"},
    {"longer", u"abcdef", 3, u"abcdef", u"abcdef", u"abcdef"},
    {"blanks before", u"  ab", 6, u"  ab  ", u"    ab", u"  ab  "},
    {"blanks behind", u"ab  ", 6, u"ab    ", u"    ab", u"  ab  "},
    {"blanks behind, as wide", u"ab  ", 4, u"ab  ", u"  ab", u" ab "},
    {"blanks on both sides", u" ab ", 6, u" ab   ", u"    ab", u"  ab  "},
    {"blanks on both sides, as wide", u" ab ", 4, u" ab ", u"  ab", u" ab "},
    {"blanks on both sides, wider", u"  ab  ", 3, u"  ab", u"  ab", u"ab "},
    {"a number field", u"  1,50", 6, u"1,50  ", u"  1,50", u" 1,50 "},
    {"a number field that is too wide", u"  1,50", 5, u"1,50 ", u"  1,50", u"1,50 "},
    {"a number too wide without its blanks", u"  1,50", 3, u"1,50", u"  1,50", u"1,50"},
    {"a number field that is narrower", u" 1,50", 6, u" 1,50 ", u"  1,50", u" 1,50 "},
    {"blanks inside stay", u"a  b", 6, u"a  b  ", u"  a  b", u" a  b "},
    {"blanks only", u"  ", 4, u"    ", u"    ", u"    "},
    {"more blanks than the width", u"     ", 2, u"  ", u"  ", u"  "},
    {"nothing", u"", 3, u"   ", u"   ", u"   "},
    {"nothing in no width", u"", 0, u"", u"", u""},
    {"no width", u"ab", 0, u"ab", u"ab", u"ab"},
    {"no width takes blanks off as well", u" ab", 0, u"ab", u" ab", u"ab"},
    {"a tabulator is no blank", u"\ta\t", 4, u"\ta\t ", u" \ta\t", u"\ta\t "},
    {"character 0 is no blank", u"\0a\0"s, 4, u"\0a\0 "s, u" \0a\0"s, u"\0a\0 "s},
};

TEST_F(TextoTest, AlignmentFillsWithBlanksAndNeverCuts) {
  for (const auto& row : kAlignCases) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(resultOf(*texto_, &clsTexto::fAlignLeft, row.text, row.width), row.left);
    EXPECT_EQ(resultOf(*texto_, &clsTexto::fAlignRight, row.text, row.width), row.right);
    EXPECT_EQ(resultOf(*texto_, &clsTexto::fAlignCenter, row.text, row.width), row.center);
  }
}

TEST_F(TextoTest, PadOrCutGivesExactlyTheWidth) {
  const CallCase<Text, Text, std::int32_t, Text> rows[] = {
      {"filled on the right", {u"ab", 5, u" "}, u"ab   "},
      {"filled with another character", {u"7", 3, u"0"}, u"700"},
      {"cut at its right end", {u"abcdef", 3, u" "}, u"abc"},
      {"as wide", {u"abc", 3, u" "}, u"abc"},
      {"blanks of its own stay", {u" a ", 5, u"."}, u" a .."},
      {"a long fill is repeated and cut", {u"x", 6, u"ab"}, u"xababa"},
      {"a fill longer than the gap", {u"x", 3, u"abcdef"}, u"xab"},
      {"no width", {u"abc", 0, u" "}, u""},
      {"nothing", {u"", 3, u"-"}, u"---"},
      {"nothing in no width", {u"", 0, u""}, u""},
      {"no fill is needed to cut", {u"abc", 2, u""}, u"ab"},
      {"no fill is needed when it fits", {u"abc", 3, u""}, u"abc"},
      {"characters 0", {u"\0"s, 3, u"\0"s}, u"\0\0\0"s},
  };
  expectEach(*texto_, &clsTexto::fPadOrCut, rows);
}

TEST_F(TextoTest, LeftMarginPutsBlanksBefore) {
  const CallCase<Text, Text, std::uint8_t> rows[] = {
      {"none", {u"ab", 0}, u"ab"},
      {"several", {u"ab", 3}, u"   ab"},
      {"blanks of its own stay", {u" ab ", 1}, u"  ab "},
      {"before nothing", {u"", 2}, u"  "},
      {"before a character 0", {u"\0"s, 1}, u" \0"s},
      {"the greatest", {u"x", 255}, Text(255, u' ') + u"x"},
  };
  expectEach(*texto_, &clsTexto::fLeftMargin, rows);
}

TEST_F(TextoTest, FitToWidthAlignsRightAndCuts) {
  const CallCase<Text, Text, std::uint8_t> rows[] = {
      {"shorter", {u"ab", 5}, u"   ab"},
      {"as wide", {u"abc", 3}, u"abc"},
      {"cut at its right end", {u"abcdef", 4}, u"abcd"},
      {"blanks behind are taken off first", {u"ab  ", 3}, u" ab"},
      {"blanks before are kept", {u"  ab", 3}, u"  a"},
      {"nothing", {u"", 2}, u"  "},
      {"no width", {u"ab", 0}, u""},
      {"a character 0", {u"a\0b"s, 4}, u" a\0b"s},
      {"the greatest", {u"x", 255}, Text(254, u' ') + u"x"},
  };
  expectEach(*texto_, &clsTexto::fFitToWidth, rows);
}

TEST_F(TextoTest, HoldsFindsAMarkerAnywhere) {
  const CallCase<bool, Text, Text> rows[] = {
      {"at the front", {u"{CUERPO=12}", u"{CUERPO="}, true},
      {"at the end", {u"  {CUERPO=", u"{CUERPO="}, true},
      {"past a character 0", {u"a\0b"s, u"b"}, true},
      {"the case counts", {u"{cuerpo=", u"{CUERPO="}, false},
      {"only its beginning", {u"{CUERPO", u"{CUERPO="}, false},
      {"an empty text", {u"", u"{"}, false},
      {"an empty marker", {u"abc", u""}, false},
      {"an empty marker in nothing", {u"", u""}, false},
  };
  expectEach(*texto_, &clsTexto::fHolds, rows);
}

TEST_F(TextoTest, PositionsAndCountsOutsideTheirRangeAreErrorsOfTheService) {
  Text result;
  clsTexto& texto = *texto_;
  const struct {
    const char* argument;
    std::int32_t value;
    std::function<void(std::int32_t)> use;
  } rows[] = {
      {"valStart", 0, [&](auto n) { texto.fPosition(u"abc", u"a", n); }},
      {"valStart", 0, [&](auto n) { texto.fPosition(u"abc", u"", n); }},
      {"valStart", 0, [&](auto n) { texto.fPart(u"abc", n, 1, result); }},
      {"valStart", 0, [&](auto n) { texto.fPart(u"", n, 0, result); }},
      {"valCount", -1, [&](auto n) { texto.fPart(u"abc", 1, n, result); }},
      {"valCount", -1, [&](auto n) { texto.fPart(u"abc", 9, n, result); }},
      {"valStart", 0, [&](auto n) { texto.fDelete(u"abc", n, 1, result); }},
      {"valDistance", -1, [&](auto n) { texto.fDelete(u"abc", 1, n, result); }},
      {"valPosition", 0, [&](auto n) { texto.fInsert(u"abc", u"x", n, result); }},
      {"valCount", -1, [&](auto n) { texto.fRepeat(u"x", n, result); }},
      {"valWidth", -1, [&](auto n) { texto.fAlignLeft(u"abc", n, result); }},
      {"valWidth", -1, [&](auto n) { texto.fAlignRight(u"abc", n, result); }},
      {"valWidth", -1, [&](auto n) { texto.fAlignCenter(u"abc", n, result); }},
      {"valWidth", -1, [&](auto n) { texto.fPadOrCut(u"abc", n, u" ", result); }},
  };
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    SCOPED_TRACE(i);
    const auto& row = rows[i];
    EXPECT_EQ(failureOf([&] { row.use(row.value + 1); }), "none");
    EXPECT_EQ(failureOf([&] { row.use(row.value); }), invalidCall(row.argument));
    EXPECT_EQ(failureOf([&] { row.use(kSmallest); }), invalidCall(row.argument));
  }
}

TEST_F(TextoTest, ACharacterThatIsNeededAndMissingIsAnError) {
  Text result;
  EXPECT_EQ(failureOf([&] { texto_->fRepeat(u"", 3, result); }), invalidCall("valCharacter"));
  EXPECT_EQ(failureOf([&] { texto_->fRepeat(u"", 0, result); }), invalidCall("valCharacter"));
  EXPECT_EQ(failureOf([&] { texto_->fPadOrCut(u"ab", 3, u"", result); }), invalidCall("valFill"));
}

// The services write into a line's own storage on every line, so this is what makes printing free
// of allocations.
TEST_F(TextoTest, ResultsThatAreLargeEnoughAreUsedAgain) {
  Text result;
  result.reserve(300);
  const char16_t* const storage = result.data();
  const auto expectInPlace = [&](TextView expected, auto operation, const auto&... arguments) {
    SCOPED_TRACE(tarvo::toUtf8(expected));
    std::invoke(operation, *texto_, arguments..., result);
    EXPECT_TRUE(result.data() == storage && result.capacity() >= 300);
    EXPECT_EQ(result, expected);
  };

  // Shorter texts would be copied into the storage even by a careless assignment.
  expectInPlace(u"2024+02+29", &clsTexto::fReplaceAll, u"2024-02-29", u"-", u"+");
  expectInPlace(u"Subtotal:", &clsTexto::fReplaceAll, u"Sub<B>total:<B>", u"<B>", u"");
  expectInPlace(u"ubtotal: 12", &clsTexto::fPart, u"Subtotal: 12,50", 2, 11);
  expectInPlace(u"Sal: 12,50", &clsTexto::fDelete, u"Subtotal: 12,50", 2, 4);
  expectInPlace(u"Sub-total", &clsTexto::fInsert, u"Subtotal", u"-", 4);
  expectInPlace(u"20240229", &clsTexto::fStrip, u"2024.02.29", u".");
  expectInPlace(Text(200, u'='), &clsTexto::fRepeat, u"=", 200);
  expectInPlace(u"Total     ", &clsTexto::fAlignLeft, u"Total", 10);
  expectInPlace(u"     Total", &clsTexto::fAlignRight, u"Total", 10);
  expectInPlace(u"  Total   ", &clsTexto::fAlignCenter, u"Total", 10);
  expectInPlace(u"Totalxyxyx", &clsTexto::fPadOrCut, u"Total", 10, u"xy");
  expectInPlace(u"          Total", &clsTexto::fLeftMargin, u"Total", std::uint8_t{10});
  expectInPlace(u"     Total", &clsTexto::fFitToWidth, u"Total", std::uint8_t{10});
  expectInPlace(u"Subtotal:", &clsTexto::fTrim, u" Subtotal: ");
  const clsTexto::Replacement replacement{u"-", u"+"};
  expectInPlace(u"2024+02+29", &clsTexto::replaceEach, u"2024-02-29", std::span(&replacement, 1));
}

}  // namespace
}  // namespace LibTarvoCI
