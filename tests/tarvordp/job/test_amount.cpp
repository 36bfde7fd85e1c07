#include "tarvordp/job/amount.h"

#include <gmock/gmock.h>

#include <string>

#include "job_testing.h"

namespace tarvordp {
namespace {

using test::mistakeOf;
using testing::HasSubstr;

struct AmountCase {
  const char* written;
  const char* amount;
};

constexpr AmountCase kAmounts[] = {
    {"0", "0"},
    {"-0", "0"},
    {"0.0000", "0"},
    {"12.5", "12.5"},
    {"12,5", "12.5"},
    {"+3", "3"},
    {"-0.05", "-0.05"},
    {"007.50", "7.5"},
    {"1250.5000", "1250.5"},
    {"0.1", "0.1"},
    {"0.12345", "0.1234"},  // half to even: down
    {"0.12355", "0.1236"},  // half to even: up
    {"0.123450001", "0.1235"},
    {"-0.12345", "-0.1234"},
    {"0.00005", "0"},
    {"0.00015", "0.0002"},
    {"2.675", "2.675"},  // its binary neighbour is less
    {"1.00005", "1"},
    {"1e3", "1000"},
    {"1.5E3", "1500"},
    {"1.5e+3", "1500"},
    {"15e-1", "1.5"},
    {"12345e-8", "0.0001"},
    {"5e-5", "0"},
    {"15e-5", "0.0002"},
    {"1e-999999999999", "0"},
    {"0e999999999999", "0"},
    {"0.000000000000000000001e21", "1"},
    {"922337203685477.5807", "922337203685477.5807"},
    {"-922337203685477.5808", "-922337203685477.5808"},
    {"9223372036854775807e-4", "922337203685477.5807"},
};

TEST(Amount, IsTheWrittenDecimalAndNotItsBinaryNeighbour) {
  for (const AmountCase& row : kAmounts) {
    EXPECT_EQ(amountText(readAmount(row.written)), row.amount) << row.written;
  }
}

TEST(Amount, WhatIsNoNumberIsTold) {
  for (const char* written : {"", " ", "x", "1.", ".5", "1.2.3", "1 2", "--1", "1e", "1e+", "0x10",
                              "1.000,50", "12 ", "NaN", "Infinity"}) {
    EXPECT_EQ(mistakeOf([&] { readAmount(written); }),
              "\"" + std::string(written) + "\" is no number");
  }
}

TEST(Amount, WhatNoAmountCanHoldIsTold) {
  for (const char* written :
       {"922337203685477.5808", "-922337203685477.5809", "1e15", "1e999999999",
        "1e99999999999999999999", "123456789012345678901234567890"}) {
    EXPECT_THAT(mistakeOf([&] { readAmount(written); }), HasSubstr(" is no amount: ")) << written;
  }
}

TEST(Date, IsADayOrADayAndATime) {
  EXPECT_EQ(readDate("2026-03-15").serial, 46096.0);
  EXPECT_EQ(readDate("2026-03-15T12:00:00").serial, 46096.5);
  EXPECT_EQ(readDate("2024-02-29").serial, 45351.0);
  EXPECT_EQ(readDate("2026-03-15 06:00:00", "T ").serial, 46096.25);
}

TEST(Date, WhatHasAnotherFormIsTold) {
  for (const char* written :
       {"", "15/03/2026", "2026-3-15", "2026-03-15T", "2026-03-15T12:00", "2026-03-15T12:00:00Z",
        "2026-03-15 12:00:00", "2026-03-1x", "20260315", "-2026-03-15"}) {
    EXPECT_THAT(mistakeOf([&] { readDate(written); }), HasSubstr("is no date: write YYYY-MM-DD"))
        << written;
  }
}

TEST(Date, ADayThatTheCalendarLacksIsTold) {
  for (const char* written : {"2026-02-29", "2026-13-01", "2026-00-10", "2026-04-31", "0099-01-01",
                              "2026-01-01T24:00:00", "2026-01-01T00:60:00"}) {
    EXPECT_EQ(mistakeOf([&] { readDate(written); }),
              "\"" + std::string(written) + "\" is no day of the calendar");
  }
}

}  // namespace
}  // namespace tarvordp
