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
  for (const char* written : {"", " ", "x", "1 2", "--1", "1e", "1e+", "0x10", "12 ", "NaN",
                              "Infinity", "-", "+", "e5", "."}) {
    const std::string told = "\"" + std::string(written) + "\" is no number";
    EXPECT_EQ(mistakeOf([&] { readAmount(written); }), told);
    EXPECT_EQ(mistakeOf([&] { readCellAmount(written); }), told);
  }
}

TEST(Amount, HasOnePointBeforeItsDecimals) {
  for (const char* written : {"12,5", "1.234,56", "1,234.56", "1,234,567", "1.234.567", "1.", ".5",
                              "1.2.3", "1.,5", "1e1.5", "1,5e1"}) {
    EXPECT_EQ(mistakeOf([&] { readAmount(written); }),
              "\"" + std::string(written) +
                  "\" is no number: write \".\" before its decimals, and nothing between its "
                  "thousands");
  }
}

TEST(Amount, OfACellHasOnePointOrCommaBeforeItsDecimals) {
  EXPECT_EQ(amountText(readCellAmount("12,5")), "12.5");
  EXPECT_EQ(amountText(readCellAmount("12.5")), "12.5");
  EXPECT_EQ(amountText(readCellAmount("-1,234")), "-1.234") << "no thousands";
  EXPECT_EQ(amountText(readCellAmount("1.234")), "1.234");
  EXPECT_EQ(amountText(readCellAmount("0,12345")), "0.1234") << "half to even";
  EXPECT_EQ(amountText(readCellAmount("922337203685477,5807")), "922337203685477.5807");
  for (const char* written :
       {"1.234,56", "1,234.56", "1,234,567", "1.234.567", ",5", "5,", "1,,5", "1'234,5"}) {
    EXPECT_EQ(mistakeOf([&] { readCellAmount(written); }),
              "\"" + std::string(written) +
                  "\" is no number: write one \",\" or \".\" before its decimals, and nothing "
                  "between its thousands");
  }
}

TEST(Amount, OneWithoutEndIsToldInPart) {
  EXPECT_EQ(mistakeOf([] { readAmount(std::string(401, '7')); }),
            "\"" + std::string(40, '7') +
                "... (401 bytes)\" is no amount: the greatest one is 922337203685477.5807, and the "
                "least one is -922337203685477.5808");
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

TEST(Date, ReachesFromTheYear100ToTheYear9999) {
  EXPECT_EQ(readDate("0100-01-01").serial, -657434.0);
  EXPECT_EQ(readDate("1899-12-30").serial, 0.0);
  EXPECT_EQ(readDate("1899-12-29T12:00:00").serial, -1.5) << "the time of day counts upwards";
  EXPECT_EQ(readDate("2000-02-29").serial, 36585.0);
  EXPECT_EQ(readDate("9999-12-31").serial, 2958465.0);
  EXPECT_EQ(readDate("9999-12-31T23:59:59"), readDate("9999-12-31 23:59:59", " "));
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
  for (const char* written :
       {"2026-02-29", "1900-02-29", "2100-02-29", "2026-13-01", "2026-00-10", "2026-04-31",
        "0099-01-01", "2026-01-01T24:00:00", "2026-01-01T00:60:00", "2026-01-01T00:00:60",
        "2026-01-00", "2026-01-32", "0000-01-01"}) {
    EXPECT_EQ(mistakeOf([&] { readDate(written); }),
              "\"" + std::string(written) + "\" is no day of the calendar");
  }
}

}  // namespace
}  // namespace tarvordp
