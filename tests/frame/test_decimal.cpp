// Written numbers: what counts as one, its parts, and rounding half to even without a double.
#include "frame/decimal.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "equipment/errors.h"

namespace tarvo {
namespace {

using test::errorNumberOf;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

struct NumberCase {
  Text text;
  bool negative;
  Text units;
  Text decimals;
};

const NumberCase kNumbers[] = {
    {u"0", false, u"0", u""},        {u"7", false, u"7", u""},
    {u"007", false, u"007", u""},    {u"1250", false, u"1250", u""},
    {u"12,50", false, u"12", u"50"}, {u"12.50", false, u"12", u"50"},
    {u"-12,5", true, u"12", u"5"},   {u"+12,5", false, u"12", u"5"},
    {u"-0", true, u"0", u""},        {u"  12  ", false, u"12", u""},
    {u" -3,25 ", true, u"3", u"25"}, {u"0123456789", false, u"0123456789", u""},
};

const Text kNoNumbers[] = {
    u"",    u" ",     u"-",     u"+",           u",",   u".",   u",5",  u".5",  u"5,",
    u"5.",  u"1,2,3", u"1.2.3", u"1.234,5",     u"--1", u"+-1", u"- 1", u"1-",  u"1 2",
    u"1e5", u"0x10",  u"abc",   u"1a",          u"a1",  u"\t1", u"1\t", u"1\n", u"１",
    u"$5",  u"1,-5",  u"1, 5",  Text(1, u'\0'), u"/1",  u"1:",  u"-,5",
};

TEST(Decimal, IsRecognised) {
  for (const NumberCase& row : kNumbers) EXPECT_TRUE(isDecimal(row.text)) << toUtf8(row.text);
}

TEST(Decimal, AnythingElseIsNone) {
  for (const Text& text : kNoNumbers) EXPECT_FALSE(isDecimal(text)) << toUtf8(text);
}

TEST(Decimal, IsReadInItsParts) {
  for (const NumberCase& row : kNumbers) {
    SCOPED_TRACE(toUtf8(row.text));
    const Decimal number = parseDecimal(row.text);
    EXPECT_EQ(number.negative, row.negative);
    EXPECT_EQ(number.units, row.units);
    EXPECT_EQ(number.decimals, row.decimals);
  }
}

TEST(Decimal, ReadingAnythingElseIsATypeMismatch) {
  for (const Text& text : kNoNumbers) {
    EXPECT_EQ(errorNumberOf([&] { parseDecimal(text); }), 13) << toUtf8(text);
  }
}

TEST(Decimal, TheLongestNumberAtTheFrontIsTaken) {
  const NumberCase rows[] = {
      {u"12", false, u"12", u""},        {u"12 cajas", false, u"12", u""},
      {u"12,5kg", false, u"12", u"5"},   {u"-3.25%", true, u"3", u"25"},
      {u"  7 ", false, u"7", u""},       {u"5,", false, u"5", u""},
      {u"5,x", false, u"5", u""},        {u"1,2,3", false, u"1", u"2"},
      {u"1.234,5", false, u"1", u"234"}, {u"+4+5", false, u"4", u""},
  };
  for (const NumberCase& row : rows) {
    SCOPED_TRACE(toUtf8(row.text));
    const Decimal number = leadingDecimal(row.text);
    EXPECT_EQ(number.negative, row.negative);
    EXPECT_EQ(number.units, row.units);
    EXPECT_EQ(number.decimals, row.decimals);
  }
}

TEST(Decimal, ATextWithoutANumberAtTheFrontGivesNone) {
  for (const Text& text : {Text(u""), Text(u"  "), Text(u"abc 5"), Text(u"-"), Text(u"- 5"),
                           Text(u",5"), Text(u"-,5"), Text(u"\t5")}) {
    const Decimal number = leadingDecimal(text);
    EXPECT_EQ(number.units, u"") << toUtf8(text);
    EXPECT_EQ(number.decimals, u"") << toUtf8(text);
    EXPECT_EQ(roundedHalfToEven(number, 4), 0) << toUtf8(text);
  }
}

TEST(Decimal, OnlyBlanksAreTrimmed) {
  EXPECT_EQ(trimBlanks(u""), u"");
  EXPECT_EQ(trimBlanks(u"   "), u"");
  EXPECT_EQ(trimBlanks(u"a"), u"a");
  EXPECT_EQ(trimBlanks(u"  a b "), u"a b");
  EXPECT_EQ(trimBlanks(u"\ta\n"), u"\ta\n");
  EXPECT_EQ(trimBlanks(u" \u00A0 "), u"\u00A0");
}

std::int64_t rounded(const std::string& number, int decimals) {
  const Text text = fromAscii(number);
  return roundedHalfToEven(parseDecimal(text), decimals);
}

TEST(DecimalRounding, GoesHalfToEven) {
  const struct {
    const char* number;
    int decimals;
    std::int64_t expected;
  } rows[] = {
      {"0", 0, 0},
      {"-0", 4, 0},
      {"7", 0, 7},
      {"7", 2, 700},
      {"7,1", 2, 710},
      {"0,5", 0, 0},
      {"1,5", 0, 2},
      {"2,5", 0, 2},
      {"-0,5", 0, 0},
      {"-1,5", 0, -2},
      {"-2,5", 0, -2},
      {"2,49", 0, 2},
      {"2,51", 0, 3},
      {"3,4999999999999999999999999999999999", 0, 3},
      {"2,5000000000000000000000000000000000", 0, 2},
      {"2,5000000000000000000000000000000001", 0, 3},
      {"-2,5000000000000000000000000000000001", 0, -3},
      {"1,005", 2, 100},
      {"1,015", 2, 102},
      {"9,995", 2, 1000},
      {"9,985", 2, 998},
      {"99,95", 1, 1000},
      {"0,6", 0, 1},
      {"00000000000000000000000000000000012", 0, 12},
      {"0,000000000000000001", 18, 1},
      {"0,0000000000000000005", 18, 0},
      {"9,223372036854775807", 18, kMost},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.number);
    EXPECT_EQ(rounded(row.number, row.decimals), row.expected);
  }
}

TEST(DecimalRounding, AgreesWithTheRuleForEveryThousandthAroundZero) {
  constexpr std::int64_t kDivisors[] = {1'000, 100, 10, 1};
  for (std::int64_t thousandths = 0; thousandths < 12'000; ++thousandths) {
    const std::string fraction = std::to_string(1'000 + thousandths % 1'000).substr(1);
    const std::string number = std::to_string(thousandths / 1'000) + "," + fraction;
    for (int decimals = 0; decimals <= 3; ++decimals) {
      const std::int64_t divisor = kDivisors[decimals];
      std::int64_t expected = thousandths / divisor;
      const std::int64_t twice = thousandths % divisor * 2;
      if (twice > divisor || (twice == divisor && expected % 2 == 1)) ++expected;
      ASSERT_EQ(rounded(number, decimals), expected) << number << ", " << decimals;
      ASSERT_EQ(rounded("-" + number, decimals), -expected) << "-" << number << ", " << decimals;
    }
  }
}

TEST(DecimalRounding, ReachesTheEndsOfTheRange) {
  EXPECT_EQ(rounded("9223372036854775807", 0), kMost);
  EXPECT_EQ(rounded("9223372036854775807,4", 0), kMost);
  EXPECT_EQ(rounded("-9223372036854775808", 0), kLeast);
  EXPECT_EQ(rounded("-9223372036854775808,5", 0), kLeast);
  EXPECT_EQ(rounded("922337203685477,5807", 4), kMost);
  EXPECT_EQ(rounded("-922337203685477,5808", 4), kLeast);
}

TEST(DecimalRounding, OutsideTheRangeIsAnOverflow) {
  const struct {
    const char* number;
    int decimals;
  } rows[] = {
      {"9223372036854775808", 0},
      {"9223372036854775807,5", 0},
      {"-9223372036854775809", 0},
      {"-9223372036854775808,51", 0},
      {"922337203685477,5808", 4},
      {"92233720368547758070", 0},
      {"10", 18},
      {"99999999999999999999999999999999999999999", 0},
      {"-99999999999999999999", 0},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(errorNumberOf([&] { rounded(row.number, row.decimals); }), 6) << row.number;
  }
}

}  // namespace
}  // namespace tarvo
