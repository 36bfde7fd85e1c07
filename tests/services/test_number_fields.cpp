// Amounts in fields: both styles, signs, rounding, and what happens when a number does not fit.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "services/call_case.h"
#include "services/clsConvert.h"
#include "services/failure.h"

namespace LibTarvoCI {
namespace {

using test::failureOf;
using test::invalidCall;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

using Style = void (clsConvert::*)(Currency, std::int16_t, std::int16_t, bool, Text&);
constexpr Style kDotComma = &clsConvert::fFormatNumberDotComma;
constexpr Style kCommaDot = &clsConvert::fFormatNumberCommaDot;

class NumberFieldTest : public ::testing::Test {
 protected:
  Text field(Style style, std::int64_t tenThousandths, int width, int decimals, bool parenthesis) {
    return test::resultOf(*convert_, style, Currency{tenThousandths},
                          static_cast<std::int16_t>(width), static_cast<std::int16_t>(decimals),
                          parenthesis);
  }

  Ref<clsConvert> convert_ = tarvo::make<clsConvert>();
};

Text withMarksExchanged(Text field) {
  for (char16_t& c : field) c = c == u'.' ? u',' : c == u',' ? u'.' : c;
  return field;
}

struct FieldCase {
  const char* shows;
  std::int64_t tenThousandths;
  int width;
  int decimals;
  Text plain;             // "-" before a negative number
  Text enclosed = plain;  // parentheses asked for
};

const FieldCase kFields[] = {
    {"decimals shown", 1234567'8900, 15, 2, u"   1.234.567,89"},
    {"negative", -1234567'8900, 15, 2, u"  -1.234.567,89", u" (1.234.567,89)"},
    {"zero", 0, 6, 2, u"  0,00"},
    {"zero without decimals", 0, 3, 0, u"  0"},
    {"a fraction has a zero before it", 5000, 6, 2, u"  0,50"},
    {"zeros after the mark", 1'0100, 6, 2, u"  1,01"},
    {"no decimals, no mark", 1234'0000, 6, 0, u" 1.234"},
    {"one decimal", 12'5000, 6, 1, u"  12,5"},
    {"three decimals", 12'3450, 8, 3, u"  12,345"},
    {"four decimals", 12'3456, 9, 4, u"  12,3456"},
    {"more than four are zeros", 12'3456, 11, 6, u"  12,345600"},
    {"more than four, negative", -12'3456, 12, 6, u"  -12,345600", u" (12,345600)"},

    {"no width: the text alone", 1234567'8900, 0, 2, u"1.234.567,89"},
    {"no width, negative", -1234'5000, 0, 2, u"-1.234,50", u"(1.234,50)"},
    {"no width, zero", 0, 0, 0, u"0"},

    {"999 has no mark", 999'0000, 0, 0, u"999"},
    {"999 in a field", 999'0000, 5, 0, u"  999"},
    {"999999 in a field", -999999'0000, 10, 0, u"  -999.999", u" (999.999)"},
    {"1000 has one", 1000'0000, 0, 0, u"1.000"},
    {"999999 has one", 999999'0000, 0, 0, u"999.999"},
    {"1000000 has two", 1000000'0000, 0, 0, u"1.000.000"},
    {"a thousand by rounding", 999'9950, 0, 2, u"1.000,00"},

    {"half away from zero", 2'5000, 0, 0, u"3"},
    {"half away from zero, negative", -2'5000, 0, 0, u"-3", u"(3)"},
    {"an even half as well", 1'2250, 0, 2, u"1,23"},
    {"below half", 2'4999, 0, 0, u"2"},
    {"below half, negative", -2'4999, 0, 0, u"-2", u"(2)"},
    {"in the last place", 1'2345, 0, 3, u"1,235"},
    {"below half in the last place", 1'2344, 0, 3, u"1,234"},
    {"zero by rounding has no sign", -40, 6, 2, u"  0,00"},
    {"zero by rounding has no sign without a width", -4999, 0, 0, u"0"},
    {"the least that does not round to zero", -50, 6, 2, u" -0,01", u"(0,01)"},

    {"fills the field with marks", 1234'0000, 5, 0, u"1.234"},
    {"one short: the marks go", 1234'0000, 4, 0, u"1234"},
    {"two short: asterisks", 1234'0000, 3, 0, u"***"},
    {"all marks go together", 1234567'0000, 8, 0, u" 1234567"},
    {"fills with marks and decimals", 1234'5600, 8, 2, u"1.234,56"},
    {"marks go, the decimal mark stays", 1234'5600, 7, 2, u"1234,56"},
    {"decimals are not left out to fit", 1234'5600, 6, 2, u"******"},
    {"the sign counts", -1234'0000, 6, 0, u"-1.234", u"(1234)"},
    {"the sign counts without marks", -1234'0000, 5, 0, u"-1234", u"*****"},
    {"the sign is never left out", -1234'0000, 4, 0, u"****"},
    {"a number without marks that does not fit", 123'0000, 2, 0, u"**"},
    {"a width of one", 7'0000, 1, 0, u"7"},
    {"a width of one, too narrow", 17'0000, 1, 0, u"*"},
    {"too narrow by rounding", 9'5000, 1, 0, u"*"},
    {"only zeros do not fit", 1'0000, 6, 5, u"******"},

    {"the greatest amount", kMost, 0, 4, u"922.337.203.685.477,5807"},
    {"the least amount", kLeast, 0, 4, u"-922.337.203.685.477,5808", u"(922.337.203.685.477,5808)"},
    {"the greatest amount rounded", kMost, 0, 0, u"922.337.203.685.478"},
    {"the least amount rounded", kLeast, 0, 0, u"-922.337.203.685.478", u"(922.337.203.685.478)"},
    {"the least amount to three decimals", kLeast, 0, 3, u"-922.337.203.685.477,581",
     u"(922.337.203.685.477,581)"},
    {"the least amount, marks left out", kLeast, 22, 4, u" -922337203685477,5808",
     u"(922337203685477,5808)"},
    {"the least amount, too narrow", kLeast, 20, 4, u"********************"},
};

TEST_F(NumberFieldTest, BothStylesDifferInTheirMarksAlone) {
  for (const auto& row : kFields) {
    SCOPED_TRACE(row.shows);
    for (const bool parenthesis : {false, true}) {
      const Text& expected = parenthesis ? row.enclosed : row.plain;
      const auto shown = [&](Style style) {
        return field(style, row.tenThousandths, row.width, row.decimals, parenthesis);
      };
      EXPECT_EQ(shown(kDotComma), expected);
      EXPECT_EQ(shown(kCommaDot), withMarksExchanged(expected));
    }
  }
  EXPECT_EQ(field(kCommaDot, 1234567'8900, 14, 2, false), u"  1,234,567.89");
}

TEST_F(NumberFieldTest, OfAnyWidthIsExactlyAsWide) {
  for (int width = 1; width <= 300; ++width) {
    EXPECT_EQ(field(kDotComma, -1234567'8900, width, 2, true).size(),
              static_cast<std::size_t>(width));
  }
  EXPECT_EQ(field(kDotComma, 7'0000, 32767, 0, false), Text(32766, u' ') + u"7");
  EXPECT_EQ(field(kDotComma, 7'0000, 3, 32767, false), u"***");
  EXPECT_EQ(field(kDotComma, 7'0000, 0, 32767, false), u"7," + Text(32767, u'0'));
}

TEST_F(NumberFieldTest, NegativeWidthsAndDecimalsAreErrorsOfTheService) {
  for (const int value : {-1, -32768}) {
    for (const Style style : {kDotComma, kCommaDot}) {
      EXPECT_EQ(failureOf([&] { field(style, 1, value, 0, false); }), invalidCall("valWidth"));
      EXPECT_EQ(failureOf([&] { field(style, 1, 0, value, false); }), invalidCall("valDecimals"));
    }
  }
}

// Whatever is shown without asterisks reads back as the amount.
TEST_F(NumberFieldTest, NeverShowsANumberWithDigitsMissing) {
  const std::int64_t amounts[] = {
      0, 1'0000, -1'0000, 1234'5678, -1234'5678, 98765432'1000, -98765432'1000, kMost, kLeast};
  for (const std::int64_t amount : amounts) {
    for (int width = 1; width <= 30; ++width) {
      for (const bool parenthesis : {false, true}) {
        Text shown = field(kDotComma, amount, width, 4, parenthesis);
        if (shown == Text(static_cast<std::size_t>(width), u'*')) continue;
        std::erase(shown, u'.');
        std::erase(shown, u')');
        std::replace(shown.begin(), shown.end(), u'(', u'-');
        EXPECT_EQ(tarvo::currencyFromText(shown).tenThousandths, amount) << width;
      }
    }
  }
}

}  // namespace
}  // namespace LibTarvoCI
