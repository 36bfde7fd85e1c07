// The conversion service, but for its number fields (test_number_fields.cpp).
#include "services/clsConvert.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <random>

#include "services/call_case.h"
#include "services/failure.h"

namespace LibTarvoCI {
namespace {

using namespace std::string_literals;
using test::CallCase;
using test::expectEach;
using test::failureOf;
using test::invalidCall;
using test::mismatch;
using test::overflow;

class ConvertTest : public ::testing::Test {
 protected:
  Text textOf(const Value& number) {
    return test::resultOf(*convert_, &clsConvert::fNumberToText, number);
  }

  template <class Operation>
  void expectNumbers(Operation operation, std::initializer_list<std::pair<TextView, int>> rows) {
    for (const auto& [text, number] : rows) {
      EXPECT_EQ(std::invoke(operation, *convert_, text), number) << tarvo::toUtf8(text);
    }
  }
  template <class Operation>
  void expectFailures(Operation operation, const std::string& failure,
                      std::initializer_list<TextView> texts) {
    for (const TextView text : texts) {
      EXPECT_EQ(failureOf([&] { std::invoke(operation, *convert_, text); }), failure)
          << tarvo::toUtf8(text);
    }
  }

  Ref<clsConvert> convert_ = tarvo::make<clsConvert>();
};

const CallCase<Text, Value> kNumbers[] = {
    {"byte 0", {std::uint8_t{0}}, u"0"},
    {"the greatest byte", {std::uint8_t{255}}, u"255"},
    {"16 bits", {std::int16_t{-32768}}, u"-32768"},
    {"16 bits, no thousands marks", {std::int16_t{32767}}, u"32767"},
    {"32 bits", {std::int32_t{2147483647}}, u"2147483647"},
    {"32 bits, the least", {std::numeric_limits<std::int32_t>::min()}, u"-2147483648"},

    {"double 1", {1.0}, u"1"},
    {"double 0.5", {0.5}, u"0,5"},
    {"double negative", {-12.25}, u"-12,25"},
    {"double 0", {0.0}, u"0"},
    {"double -0", {-0.0}, u"0"},
    {"double, no zeros at the end", {1250.5}, u"1250,5"},
    {"double, zeros before the mark stay", {1000.0}, u"1000"},
    {"double, the shortest decimals", {0.1}, u"0,1"},
    {"double, as many as it takes", {0.1 + 0.2}, u"0,30000000000000004"},
    {"double, great without an exponent", {1e21}, u"1000000000000000000000"},
    {"double, small without an exponent", {1e-7}, u"0,0000001"},
    {"double, the smallest",
     {std::numeric_limits<double>::denorm_min()},
     u"0," + Text(323, u'0') + u"5"},
    {"double, the smallest below zero",
     {-std::numeric_limits<double>::denorm_min()},
     u"-0," + Text(323, u'0') + u"5"},

    {"amount", {Currency{1234567'8901}}, u"1234567,8901"},
    {"amount, no zeros at the end", {Currency{12'5000}}, u"12,5"},
    {"amount, zeros inside stay", {Currency{12'0500}}, u"12,05"},
    {"amount, zeros before the mark stay", {Currency{1200'0000}}, u"1200"},
    {"amount, a fraction", {Currency{1}}, u"0,0001"},
    {"amount, negative", {Currency{-5000}}, u"-0,5"},
    {"amount 0", {Currency{0}}, u"0"},
    {"the greatest amount",
     {Currency{std::numeric_limits<std::int64_t>::max()}},
     u"922337203685477,5807"},
    {"the least amount",
     {Currency{std::numeric_limits<std::int64_t>::min()}},
     u"-922337203685477,5808"},

    {"text", {Text(u"12")}, u"12"},
    {"text with a comma", {Text(u"12,50")}, u"12,5"},
    {"text with a dot", {Text(u"12.50")}, u"12,5"},
    {"text with zeros before", {Text(u"0012,5")}, u"12,5"},
    {"text with only zeros after", {Text(u"12,000")}, u"12"},
    {"text with zeros before the mark", {Text(u"1200")}, u"1200"},
    {"text with a plus", {Text(u"+7")}, u"7"},
    {"text with a minus", {Text(u"-7,25")}, u"-7,25"},
    {"text with blanks around", {Text(u"  7 ")}, u"7"},
    {"text of zeros", {Text(u"000")}, u"0"},
    {"text of zeros and a minus", {Text(u"-0,00")}, u"0"},
    {"text of a fraction", {Text(u"-000,10")}, u"-0,1"},
    {"text longer than any number",
     {Text(60, u'9') + u"," + Text(60, u'9')},
     Text(60, u'9') + u"," + Text(60, u'9')},

    {"empty", {tarvo::Empty()}, u"0"},
};

TEST_F(ConvertTest, NumbersOfEveryKindArePlainText) {
  expectEach(*convert_, &clsConvert::fNumberToText, kNumbers);
}

TEST_F(ConvertTest, AGreatDoubleIsShownWithAllItsDigits) {
  const Text text = textOf(std::numeric_limits<double>::max());
  EXPECT_EQ(text.size(), 309u);
  EXPECT_EQ(text.substr(0, 17), u"17976931348623157");
  EXPECT_EQ(text.find_first_not_of(u"0123456789"), Text::npos);
  EXPECT_EQ(textOf(-std::numeric_limits<double>::max()), u"-" + text);
}

TEST_F(ConvertTest, DoublesReadBackAsThemselves) {
  std::mt19937_64 random(7);
  for (int round = 0; round < 20000; ++round) {
    const double number = std::bit_cast<double>(random());
    if (!std::isfinite(number)) continue;
    const Text text = textOf(number);
    ASSERT_EQ(convert_->fTextToNumber(text), number) << tarvo::toUtf8(text);
    const bool hasMark = text.find(u',') != Text::npos;
    ASSERT_TRUE(!hasMark || (text.back() != u'0' && text.back() != u',')) << tarvo::toUtf8(text);
  }
}

TEST_F(ConvertTest, WhatIsNoNumberIsATypeMismatch) {
  const struct {
    const char* shows;
    Value value;
  } rows[] = {
      {"true", true},
      {"false", false},
      {"null", tarvo::Null()},
      {"date", Date{45000}},
      {"no object", Ref<Object>()},
      {"an object", Ref<Object>(convert_)},
      {"array", tarvo::ValueArray{Value(std::int16_t{1})}},
      {"empty text", Text()},
      {"blanks", Text(u"  ")},
      {"words", Text(u"doce")},
      {"thousands marks", Text(u"1.234,50")},
      {"something behind", Text(u"12x")},
      {"a character 0 behind", Text(u"12\0"s)},
      {"an exponent", Text(u"1e5")},
      {"a sign alone", Text(u"-")},
      {"no digits before the mark", Text(u",5")},
      {"no digits after the mark", Text(u"5,")},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(failureOf([&] { textOf(row.value); }), mismatch("valNumber"));
  }
}

TEST_F(ConvertTest, InfiniteDoublesOverflow) {
  using Limits = std::numeric_limits<double>;
  for (const double number : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
    EXPECT_EQ(failureOf([&] { textOf(number); }), overflow("valNumber"));
  }
}

TEST_F(ConvertTest, TextToNumberTakesTheLeadingNumber) {
  const CallCase<double, Text> rows[] = {
      {"whole", {u"12"}, 12},
      {"comma", {u"12,5"}, 12.5},
      {"dot", {u"12.5"}, 12.5},
      {"negative", {u"-3,25"}, -3.25},
      {"plus", {u"+3"}, 3},
      {"blanks around", {u"  7  "}, 7},
      {"zeros before", {u"007"}, 7},
      {"something behind", {u"12 lineas"}, 12},
      {"a letter behind", {u"12x"}, 12},
      {"a mark without digits behind", {u"12,"}, 12},
      {"only the first mark counts", {u"1,2,3"}, 1.2},
      {"thousands marks are decimal marks", {u"1.234,5"}, 1.234},
      {"an exponent is not read", {u"1e5"}, 1},
      {"a character 0 ends it",
       {u"1\0"
        u"2"s},
       1},
      {"the shortest double", {u"0,30000000000000004"}, 0.1 + 0.2},
      {"as exact as a double is", {u"0.1"}, 0.1},
      {"more digits than a double has", {Text(u"0,1") + Text(400, u'0') + u"1"}, 0.1},
      {"no number", {u"doce"}, 0},
      {"a number that does not lead", {u"x12"}, 0},
      {"no digits before the mark", {u",5"}, 0},
      {"a sign alone", {u"-"}, 0},
      {"a blank after the sign", {u"- 5"}, 0},
      {"empty", {u""}, 0},
      {"blanks", {u"   "}, 0},
      {"too near to zero", {Text(u"0,") + Text(400, u'0') + u"1"}, 0},
      {"too near to zero, zeros before", {Text(u"00,") + Text(400, u'0') + u"1"}, 0},
      {"the greatest",
       {Text(u"17976931348623157") + Text(292, u'0')},
       std::numeric_limits<double>::max()},
  };
  expectEach(*convert_, &clsConvert::fTextToNumber, rows);
}

TEST_F(ConvertTest, TextToNumberGivesAZeroWithoutSign) {
  for (const Text& text : {Text(u"-0"), Text(u"-0,00"), u"-0," + Text(400, u'0') + u"1"}) {
    EXPECT_FALSE(std::signbit(convert_->fTextToNumber(text))) << tarvo::toUtf8(text);
  }
}

TEST_F(ConvertTest, TextToNumberOverflows) {
  const Text tooGreat = Text(u"1") + Text(309, u'0');
  expectFailures(&clsConvert::fTextToNumber, overflow("valText"), {tooGreat, u"-" + tooGreat});
  EXPECT_EQ(convert_->fTextToNumber(Text(u"1") + Text(308, u'0')), 1e308);
}

TEST_F(ConvertTest, NumericTextsAreRecognised) {
  for (const TextView text : {u"0", u"12", u"-12", u"+12", u"12,5", u"12.5", u" 12 ", u"-0,50",
                              u"00012", u"99999999999999999999999999999999"}) {
    EXPECT_TRUE(convert_->fIsNumeric(text)) << tarvo::toUtf8(text);
  }
  for (const TextView text : {u"", u" ", u"-", u",", u"12,", u",5", u"1.234,5", u"1 2", u"- 1",
                              u"--1", u"1-", u"1e5", u"12x", u"x", u"\t1"}) {
    EXPECT_FALSE(convert_->fIsNumeric(text)) << tarvo::toUtf8(text);
  }
  EXPECT_FALSE(convert_->fIsNumeric(u"12\0"s));
}

TEST_F(ConvertTest, TextsBecomeBytes) {
  expectNumbers(&clsConvert::fTextToByte, {{u"0", 0},
                                           {u"12", 12},
                                           {u" 12 ", 12},
                                           {u"+12", 12},
                                           {u"255", 255},
                                           {u"12,4", 12},
                                           {u"12,6", 13},
                                           {u"12,5", 12},
                                           {u"13,5", 14},
                                           {u"12.50001", 13},
                                           {u"0,5", 0},
                                           {u"1,5", 2},
                                           {u"-0", 0},
                                           {u"-0,5", 0},
                                           {u"255,4999", 255},
                                           {u"254,5", 254},
                                           {u"000255", 255}});
  expectFailures(&clsConvert::fTextToByte, overflow("valText"),
                 {u"256", u"255,5", u"-1", u"-0,6", u"-0,50001", u"65536", u"4294967296",
                  u"99999999999999999999"});
}

TEST_F(ConvertTest, TextsBecomeIntegers) {
  expectNumbers(&clsConvert::fTextToInteger, {{u"0", 0},
                                              {u"-12", -12},
                                              {u"32767", 32767},
                                              {u"-32768", -32768},
                                              {u"2,5", 2},
                                              {u"3,5", 4},
                                              {u"-2,5", -2},
                                              {u"-3,5", -4},
                                              {u"-2,50001", -3},
                                              {u"32767,4999", 32767},
                                              {u"-32768,5", -32768},
                                              {u"32766,5", 32766}});
  expectFailures(&clsConvert::fTextToInteger, overflow("valText"),
                 {u"32768", u"32767,5", u"-32769", u"-32768,6", u"65536", u"99999999999999999999",
                  u"-99999999999999999999"});
}

TEST_F(ConvertTest, TextsThatAreNoNumbersDoNotBecomeBytesOrIntegers) {
  const std::initializer_list<TextView> texts = {
      u"", u" ", u"doce", u"12x", u"x12", u",5", u"5,", u"1.234,5", u"999999999999999999999x"};
  expectFailures(&clsConvert::fTextToByte, mismatch("valText"), texts);
  expectFailures(&clsConvert::fTextToInteger, mismatch("valText"), texts);
}

TEST_F(ConvertTest, BooleansAreTheFirstLettersOfYesAndNo) {
  Text result = u"left";
  convert_->fBooleanToText(true, result);
  EXPECT_EQ(result, u"S");
  convert_->fBooleanToText(false, result);
  EXPECT_EQ(result, u"N");
}

TEST_F(ConvertTest, DatesAreDayMonthYear) {
  const CallCase<Text, Date> rows[] = {
      {"at any time of the day", {tarvo::dateOf({2024, 2, 9, 23, 59, 59})}, u"09/02/2024"},
      {"the first", {tarvo::dateOf({100, 1, 1, 12})}, u"01/01/0100"},
      {"the last", {tarvo::dateOf({9999, 12, 31})}, u"31/12/9999"},
  };
  expectEach(*convert_, &clsConvert::fDateToText, rows);
  Text result;
  EXPECT_EQ(failureOf([&] { convert_->fDateToText({2958466}, result); }), overflow("valDate"));
}

TEST_F(ConvertTest, TheReportWidthIsTheLength) {
  for (const std::int16_t code : std::initializer_list<std::int16_t>{0, 3, -1}) {
    EXPECT_EQ(convert_->fReportWidth(0, code), 0);
    EXPECT_EQ(convert_->fReportWidth(132, code), 132);
    EXPECT_EQ(convert_->fReportWidth(2147483647, code), 2147483647);
  }
  EXPECT_EQ(failureOf([&] { convert_->fReportWidth(-1, 3); }), invalidCall("valLength"));
}

}  // namespace
}  // namespace LibTarvoCI
