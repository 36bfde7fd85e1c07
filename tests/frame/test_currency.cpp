// Amounts: rounding, the ends of the range, and the ways in and out.
#include "frame/currency.h"

#include <gtest/gtest.h>

#include <limits>

#include "equipment/errors.h"

namespace tarvo {
namespace {

using test::errorNumberOf;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

std::int64_t rounded(std::int64_t tenThousandths, int decimals) {
  return roundHalfAwayFromZero({tenThousandths}, decimals).tenThousandths;
}

TEST(Currency, IsZeroAtFirst) { EXPECT_EQ(Currency().tenThousandths, 0); }

TEST(CurrencyRounding, GoesHalfAwayFromZero) {
  const struct {
    const char* shows;
    std::int64_t value;
    int decimals;
    std::int64_t expected;
  } rows[] = {
      {"0 decimals, below half", 14'999, 0, 10'000},
      {"0 decimals, half", 15'000, 0, 20'000},
      {"0 decimals, half of an even number", 25'000, 0, 30'000},
      {"0 decimals, above half", 15'001, 0, 20'000},
      {"1 decimal, below half", 12'499, 1, 12'000},
      {"1 decimal, half", 12'500, 1, 13'000},
      {"2 decimals, below half", 12'349, 2, 12'300},
      {"2 decimals, half", 12'350, 2, 12'400},
      {"3 decimals, below half", 12'344, 3, 12'340},
      {"3 decimals, half", 12'345, 3, 12'350},
      {"4 decimals are all there are", 12'345, 4, 12'345},
      {"5 decimals", 12'345, 5, 12'345},
      {"a great many decimals", 12'345, std::numeric_limits<int>::max(), 12'345},
      {"negative, below half", -14'999, 0, -10'000},
      {"negative half", -15'000, 0, -20'000},
      {"negative, 1 decimal", -12'500, 1, -13'000},
      {"negative, 2 decimals", -12'350, 2, -12'400},
      {"negative, 3 decimals", -12'345, 3, -12'350},
      {"into zero from above", 4'999, 0, 0},
      {"into zero from below", -4'999, 0, 0},
      {"out of zero", 5'000, 0, 10'000},
      {"out of zero, negative", -5'000, 0, -10'000},
      {"a carry through every digit", 99'995'000, 0, 100'000'000},
      {"zero", 0, 0, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(rounded(row.value, row.decimals), row.expected);
  }
}

TEST(CurrencyRounding, AgreesWithTheNearestMultipleForEveryAmountAroundZero) {
  constexpr std::int64_t kSteps[] = {10'000, 1'000, 100, 10};
  for (int decimals = 0; decimals < 4; ++decimals) {
    const std::int64_t step = kSteps[decimals];
    for (std::int64_t magnitude = 0; magnitude <= 31'000; ++magnitude) {
      const std::int64_t nearest = (magnitude + step / 2) / step * step;
      ASSERT_EQ(rounded(magnitude, decimals), nearest) << magnitude << ", " << decimals;
      ASSERT_EQ(rounded(-magnitude, decimals), -nearest) << -magnitude << ", " << decimals;
    }
  }
}

TEST(CurrencyRounding, ReachesTheEndsOfTheRangeAndNotBeyond) {
  // The greatest amount is 922337203685477.5807.
  EXPECT_EQ(rounded(kMost, 2), kMost - 7);
  EXPECT_EQ(rounded(kLeast, 2), kLeast + 8);
  EXPECT_EQ(rounded(kMost, 4), kMost);
  EXPECT_EQ(rounded(kLeast, 4), kLeast);
  for (const int decimals : {0, 1, 3}) {
    EXPECT_EQ(errorNumberOf([&] { rounded(kMost, decimals); }), 6) << decimals;
    EXPECT_EQ(errorNumberOf([&] { rounded(kLeast, decimals); }), 6) << decimals;
  }
  EXPECT_EQ(rounded(kMost - 5'807 + 4'999, 0), kMost - 5'807);
  EXPECT_EQ(rounded(kLeast + 5'808 - 4'999, 0), kLeast + 5'808);
}

TEST(Currency, WholeAmountsEndWhereTheRangeEnds) {
  EXPECT_EQ(Currency::ofUnits(0).tenThousandths, 0);
  EXPECT_EQ(Currency::ofUnits(-3).tenThousandths, -30'000);
  EXPECT_EQ(Currency::ofUnits(922'337'203'685'477).tenThousandths, 9'223'372'036'854'770'000);
  EXPECT_EQ(Currency::ofUnits(-922'337'203'685'477).tenThousandths, -9'223'372'036'854'770'000);
  EXPECT_EQ(errorNumberOf([] { Currency::ofUnits(922'337'203'685'478); }), 6);
  EXPECT_EQ(errorNumberOf([] { Currency::ofUnits(-922'337'203'685'478); }), 6);
}

TEST(Currency, AddsAndSubtractsToTheLastTenThousandth) {
  EXPECT_EQ(Currency{15'000} + Currency{-2'500}, Currency{12'500});
  EXPECT_EQ(Currency{15'000} - Currency{20'000}, Currency{-5'000});
  EXPECT_EQ(Currency{kMost - 1} + Currency{1}, Currency{kMost});
  EXPECT_EQ(Currency{kLeast + 1} - Currency{1}, Currency{kLeast});
  EXPECT_EQ(Currency{kMost} + Currency{kLeast}, Currency{-1});
  Currency sum{7};
  sum += Currency{5};
  EXPECT_EQ(sum, Currency{12});
}

TEST(Currency, ASumOutsideTheRangeIsAnOverflow) {
  EXPECT_EQ(errorNumberOf([] { Currency{kMost} + Currency{1}; }), 6);
  EXPECT_EQ(errorNumberOf([] { Currency{kLeast} + Currency{-1}; }), 6);
  EXPECT_EQ(errorNumberOf([] { Currency{kLeast} - Currency{1}; }), 6);
  EXPECT_EQ(errorNumberOf([] { Currency{0} - Currency{kLeast}; }), 6);
  EXPECT_EQ(errorNumberOf([] { Currency{kMost} - Currency{-1}; }), 6);
}

TEST(Currency, ASumThatOverflowsLeavesTheAmountAsItWas) {
  Currency sum{kMost};
  EXPECT_EQ(errorNumberOf([&] { sum += Currency{1}; }), 6);
  EXPECT_EQ(sum, Currency{kMost});
}

TEST(Currency, IsOrderedByValue) {
  EXPECT_LT(Currency{-1}, Currency{0});
  EXPECT_LT(Currency{kLeast}, Currency{kMost});
  EXPECT_GT(Currency{10'000}, Currency{9'999});
}

TEST(CurrencyDigits, AreTheUnitsAndAlwaysFourDecimals) {
  const struct {
    std::int64_t value;
    Text units;
    Text decimals;
  } rows[] = {
      {0, u"0", u"0000"},
      {1, u"0", u"0001"},
      {-1, u"0", u"0001"},
      {10, u"0", u"0010"},
      {9'999, u"0", u"9999"},
      {10'000, u"1", u"0000"},
      {12'505'000, u"1250", u"5000"},
      {-12'505'000, u"1250", u"5000"},
      {kMost, u"922337203685477", u"5807"},
      {kLeast, u"922337203685477", u"5808"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.value);
    const CurrencyDigits digits = digitsOf({row.value});
    EXPECT_EQ(digits.units, row.units);
    EXPECT_EQ(digits.decimals, row.decimals);
  }
}

TEST(CurrencyFromDouble, RoundsHalfToEven) {
  // Sixty-fourths and the like are exact in binary, so a half is a half.
  const struct {
    const char* shows;
    double value;
    std::int64_t expected;
  } rows[] = {
      {"zero", 0.0, 0},
      {"negative zero", -0.0, 0},
      {"exact", 1.5, 15'000},
      {"a tenth, which is not exact", 0.1, 1'000},
      {"the last decimal", 1234.5678, 12'345'678},
      {"312.5 goes down to even", 0.03125, 312},
      {"937.5 goes up to even", 0.09375, 938},
      {"-312.5 goes up to even", -0.03125, -312},
      {"-937.5 goes down to even", -0.09375, -938},
      {"156.25 is below half", 0.015625, 156},
      {"468.75 is above half", 0.046875, 469},
      {"too small to be seen", 1e-300, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(currencyFromDouble(row.value).tenThousandths, row.expected);
  }
}

TEST(CurrencyFromDouble, OutsideTheRangeIsAnOverflow) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const double outside[] = {922'337'203'685'477.625,
                            -922'337'203'685'477.75,
                            1e15,
                            -1e15,
                            std::numeric_limits<double>::max(),
                            std::numeric_limits<double>::lowest(),
                            kInfinity,
                            -kInfinity,
                            std::numeric_limits<double>::quiet_NaN()};
  for (const double value : outside) {
    EXPECT_EQ(errorNumberOf([&] { currencyFromDouble(value); }), 6) << value;
  }
}

TEST(CurrencyFromDouble, ReachesTheEndsOfTheRange) {
  // The doubles that lie nearest inside.
  EXPECT_NEAR(toDouble(currencyFromDouble(922'337'203'685'477.5)), 922'337'203'685'477.5, 0.1);
  EXPECT_NEAR(toDouble(currencyFromDouble(-922'337'203'685'477.5)), -922'337'203'685'477.5, 0.1);
  EXPECT_EQ(currencyFromDouble(toDouble({kLeast})), Currency{kLeast});
}

TEST(CurrencyToDouble, IsTheNearestNumber) {
  EXPECT_EQ(toDouble({0}), 0.0);
  EXPECT_EQ(toDouble({15'000}), 1.5);
  EXPECT_EQ(toDouble({-1}), -0.0001);
  EXPECT_EQ(toDouble({3}), 0.0003);
  EXPECT_EQ(toDouble({12'345'678}), 1234.5678);
}

TEST(CurrencyFromText, ReadsPlainDecimalNumbers) {
  const struct {
    const char* text;
    std::int64_t expected;
  } rows[] = {
      {"0", 0},
      {"-0", 0},
      {"1250", 12'500'000},
      {"+7", 70'000},
      {"-12,5", -125'000},
      {"12.5", 125'000},
      {"0,0001", 1},
      {"1,23449", 12'345},
      {" 3 ", 30'000},
      {"0,00005", 0},
      {"0,00015", 2},
      {"0,00025", 2},
      {"-0,00015", -2},
      {"0,000050000000000000000000000001", 1},
      {"922337203685477,5807", kMost},
      {"-922337203685477,5808", kLeast},
      {"922337203685477,58074", kMost},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(currencyFromText(fromAscii(row.text)).tenThousandths, row.expected);
  }
}

TEST(CurrencyFromText, AnyOtherTextIsATypeMismatch) {
  for (const char* text : {"", " ", "-", "abc", "12a", "1e5", "1.234,5", "1,", ",5", "1 2", "$5"}) {
    EXPECT_EQ(errorNumberOf([&] { currencyFromText(fromAscii(text)); }), 13) << text;
  }
}

TEST(CurrencyFromText, OutsideTheRangeIsAnOverflow) {
  for (const char* text : {"922337203685477,5808", "922337203685477,58075", "922337203685478",
                           "-922337203685477,5809", "1000000000000000000000000000000"}) {
    EXPECT_EQ(errorNumberOf([&] { currencyFromText(fromAscii(text)); }), 6) << text;
  }
}

}  // namespace
}  // namespace tarvo
