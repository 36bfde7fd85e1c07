// Dates: known serials, the ends of the range, rounding to seconds, and every single day.
#include "frame/date.h"

#include <gtest/gtest.h>

#include <compare>
#include <concepts>
#include <limits>

#include "equipment/errors.h"

namespace tarvo {

// How a failed comparison shows one.
void PrintTo(const CivilTime& time, std::ostream* out) {
  *out << time.year << '-' << time.month << '-' << time.day << ' ' << time.hour << ':'
       << time.minute << ':' << time.second << " weekday " << time.weekday;
}

namespace {

using test::errorNumberOf;

// Serials below zero are no order of time, so nobody may compare dates by them unawares.
template <class T>
concept HasOrder = requires(T a, T b) {
  a < b;
};
static_assert(std::equality_comparable<Date>);
static_assert(!std::three_way_comparable<Date> && !HasOrder<Date>);
static_assert(std::three_way_comparable<CivilTime> && HasOrder<CivilTime>);

constexpr int kFirstDay = -657'434;
constexpr int kLastDay = 2'958'465;

struct DateCase {
  double serial;
  CivilTime time;
};

const DateCase kKnownDates[] = {
    {0, {1899, 12, 30, 0, 0, 0, 6}},
    {1, {1899, 12, 31, 0, 0, 0, 0}},
    {2, {1900, 1, 1, 0, 0, 0, 1}},
    {0.5, {1899, 12, 30, 12, 0, 0, 6}},
    {60, {1900, 2, 28, 0, 0, 0, 3}},
    {61, {1900, 3, 1, 0, 0, 0, 4}},
    {25'569, {1970, 1, 1, 0, 0, 0, 4}},
    {36'526, {2000, 1, 1, 0, 0, 0, 6}},
    {36'585, {2000, 2, 29, 0, 0, 0, 2}},
    {45'351, {2024, 2, 29, 0, 0, 0, 4}},
    {45'351.75, {2024, 2, 29, 18, 0, 0, 4}},
    {-1, {1899, 12, 29, 0, 0, 0, 5}},
    {-1.25, {1899, 12, 29, 6, 0, 0, 5}},
    {-1.75, {1899, 12, 29, 18, 0, 0, 5}},
    {-115'869.5, {1582, 10, 4, 12, 0, 0, 1}},
    {-657'434, {100, 1, 1, 0, 0, 0, 5}},
    {-657'434.25, {100, 1, 1, 6, 0, 0, 5}},
    {2'958'465, {9999, 12, 31, 0, 0, 0, 5}},
    {2'958'465.75, {9999, 12, 31, 18, 0, 0, 5}},
};

TEST(Date, IsReadInItsParts) {
  for (const DateCase& row : kKnownDates) {
    EXPECT_EQ(civilTimeOf({row.serial}), row.time) << row.serial;
  }
}

TEST(Date, IsMadeOfItsParts) {
  for (const DateCase& row : kKnownDates) {
    EXPECT_EQ(dateOf(row.time).serial, row.serial) << row.serial;
  }
}

TEST(Date, BelowZeroOfOneDayTheFractionStillRunsForwards) {
  // Minus zero and a half is the same noon as zero and a half.
  EXPECT_EQ(civilTimeOf({-0.5}), civilTimeOf({0.5}));
}

TEST(Date, SerialsAreEqualOrNot) {
  EXPECT_EQ(Date{-1.25}, Date{-1.25});
  EXPECT_EQ(Date{0.0}, Date{-0.0});
  EXPECT_NE(Date{-1.25}, Date{-1.5});
  EXPECT_NE(Date{-1.25}, Date{1.25});
  // Two serials of one noon.
  EXPECT_NE(Date{-0.5}, Date{0.5});
}

TEST(Date, TheOrderOfItsPartsIsTheOrderOfTime) {
  const double inOrder[] = {-657'434, -657'434.25, -657'433, -2.75,     -1,     -1.25,
                            -1.75,    0,           -0.25,    0.5,       -0.75,  1,
                            1.5,      2,           36'525,   36'525.75, 36'526, 2'958'465.75};
  for (std::size_t later = 1; later < std::size(inOrder); ++later) {
    for (std::size_t earlier = 0; earlier < later; ++earlier) {
      EXPECT_TRUE(civilTimeOf({inOrder[earlier]}) < civilTimeOf({inOrder[later]}))
          << inOrder[earlier] << " before " << inOrder[later];
    }
  }
  EXPECT_TRUE(std::is_eq(civilTimeOf({-0.5}) <=> civilTimeOf({0.5})));
}

TEST(Date, TheWeekdayIsNotReadWhenADateIsMade) {
  EXPECT_EQ(dateOf({2000, 1, 1, 0, 0, 0, 99}).serial, 36'526);
}

TEST(Date, TimesAreRoundedToTheNearestSecond) {
  constexpr double kSecond = 1.0 / 86'400;
  const DateCase rows[] = {
      {10 + 0.49 * kSecond, {1900, 1, 9, 0, 0, 0, 2}},
      {10 + 0.51 * kSecond, {1900, 1, 9, 0, 0, 1, 2}},
      {10 + 59.6 * kSecond, {1900, 1, 9, 0, 1, 0, 2}},
      {10 + 3'599.6 * kSecond, {1900, 1, 9, 1, 0, 0, 2}},
      {10 + 86'399.4 * kSecond, {1900, 1, 9, 23, 59, 59, 2}},
      {10 + 86'399.6 * kSecond, {1900, 1, 10, 0, 0, 0, 3}},
      {-1 - 86'399.4 * kSecond, {1899, 12, 29, 23, 59, 59, 5}},
      {-1 - 86'399.6 * kSecond, {1899, 12, 30, 0, 0, 0, 6}},
      {-2 - 86'399.6 * kSecond, {1899, 12, 29, 0, 0, 0, 5}},
      {kFirstDay - 86'399.4 * kSecond, {100, 1, 1, 23, 59, 59, 5}},
      {kFirstDay - 86'399.6 * kSecond, {100, 1, 2, 0, 0, 0, 6}},
      {kLastDay + 86'399.4 * kSecond, {9999, 12, 31, 23, 59, 59, 5}},
  };
  for (const DateCase& row : rows) {
    EXPECT_EQ(civilTimeOf({row.serial}), row.time) << std::fixed << row.serial;
  }
}

TEST(Date, OutsideTheRangeIsAnOverflow) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const double outside[] = {kFirstDay - 1.0,
                            kFirstDay - 1.5,
                            kLastDay + 1.0,
                            kLastDay + 86'399.6 / 86'400,  // rounds into the year 10000
                            1e10,
                            -1e10,
                            1e300,
                            -1e300,
                            kInfinity,
                            -kInfinity,
                            std::numeric_limits<double>::quiet_NaN()};
  for (const double serial : outside) {
    EXPECT_EQ(errorNumberOf([&] { civilTimeOf({serial}); }), 6) << serial;
    EXPECT_EQ(errorNumberOf([&] { datePart({serial}); }), 6) << serial;
  }
}

TEST(Date, APartOutOfItsRangeIsAnInvalidCall) {
  const struct {
    const char* shows;
    CivilTime time;
  } rows[] = {
      {"year 99", {99, 12, 31}},
      {"year 10000", {10'000, 1, 1}},
      {"year 0", {0, 1, 1}},
      {"negative year", {-2000, 1, 1}},
      {"a year that fits 16 bits only by wrapping", {65'536 + 2000, 1, 1}},
      {"month 0", {2000, 0, 1}},
      {"month 13", {2000, 13, 1}},
      {"negative month", {2000, -1, 1}},
      {"a month that fits 8 bits only by wrapping", {2000, 256 + 1, 1}},
      {"day 0", {2000, 1, 0}},
      {"day 32", {2000, 1, 32}},
      {"negative day", {2000, 1, -1}},
      {"a day that fits 8 bits only by wrapping", {2000, 1, 256 + 1}},
      {"31 April", {2000, 4, 31}},
      {"30 February", {2000, 2, 30}},
      {"29 February 1900", {1900, 2, 29}},
      {"29 February 2001", {2001, 2, 29}},
      {"hour -1", {2000, 1, 1, -1}},
      {"hour 24", {2000, 1, 1, 24}},
      {"minute -1", {2000, 1, 1, 0, -1}},
      {"minute 60", {2000, 1, 1, 0, 60}},
      {"second -1", {2000, 1, 1, 0, 0, -1}},
      {"second 60", {2000, 1, 1, 0, 0, 60}},
      {"all of it", {std::numeric_limits<int>::max(), std::numeric_limits<int>::min(), 0}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(errorNumberOf([&] { dateOf(row.time); }), 5) << row.shows;
  }
}

TEST(Date, TheLastMomentsOfItsPartsAreGood) {
  EXPECT_EQ(civilTimeOf(dateOf({100, 1, 1, 23, 59, 59})), (CivilTime{100, 1, 1, 23, 59, 59, 5}));
  EXPECT_EQ(civilTimeOf(dateOf({9999, 12, 31, 23, 59, 59})),
            (CivilTime{9999, 12, 31, 23, 59, 59, 5}));
}

TEST(Date, ItsDayIsTheSameDayAtMidnight) {
  const struct {
    double serial;
    double day;
  } rows[] = {
      {0, 0},
      {0.75, 0},
      {-0.75, 0},
      {1.25, 1},
      {-1.25, -1},
      {36'526.999, 36'526},
      {1.9999999, 2},
      {-1.9999999, 0},
      {-657'434.5, -657'434},
      {2'958'465.5, 2'958'465},
  };
  for (const auto& row : rows) EXPECT_EQ(datePart({row.serial}).serial, row.day) << row.serial;
}

bool isLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int daysInMonth(int year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return kDays[month - 1] + (month == 2 && isLeapYear(year) ? 1 : 0);
}

// The next day by counting on, as on a wall calendar.
void countOn(CivilTime& time) {
  time.weekday = (time.weekday + 1) % 7;
  if (++time.day <= daysInMonth(time.year, time.month)) return;
  time.day = 1;
  if (++time.month <= 12) return;
  time.month = 1;
  ++time.year;
}

TEST(Date, EveryDayOfTheRangeIsTheNextOneOnTheCalendar) {
  CivilTime expected{100, 1, 1, 0, 0, 0, 5};
  for (int day = kFirstDay; day <= kLastDay; ++day, countOn(expected)) {
    const Date date{static_cast<double>(day)};
    ASSERT_EQ(civilTimeOf(date), expected) << day;
    ASSERT_EQ(dateOf(expected), date) << day;
  }
  EXPECT_EQ(expected.year, 10'000);
}

TEST(Date, EverySecondOfADaySurvivesTheRoundTrip) {
  const CivilTime days[] = {{100, 1, 1, 0, 0, 0, 5},    {1899, 12, 29, 0, 0, 0, 5},
                            {1899, 12, 30, 0, 0, 0, 6}, {1899, 12, 31, 0, 0, 0, 0},
                            {2024, 2, 29, 0, 0, 0, 4},  {9999, 12, 31, 0, 0, 0, 5}};
  for (CivilTime time : days) {
    for (int second = 0; second < 86'400; ++second) {
      time.hour = second / 3'600;
      time.minute = second % 3'600 / 60;
      time.second = second % 60;
      ASSERT_EQ(civilTimeOf(dateOf(time)), time);
    }
  }
}

}  // namespace
}  // namespace tarvo
