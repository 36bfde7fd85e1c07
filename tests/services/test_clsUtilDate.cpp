// The date service: now, and dates by a format.
#include "services/clsUtilDate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <span>

#include "frame/platform.h"
#include "services/call_case.h"
#include "services/failure.h"

namespace LibTarvoCI {
namespace {

using namespace std::string_literals;
using tarvo::CivilTime;
using tarvo::dateOf;
using test::failureOf;
using test::overflow;
using test::resultOf;

struct FormatCase {
  const char* shows;
  Text format;
  Text text;
};

class UtilDateTest : public ::testing::Test {
 protected:
  Text formatted(const CivilTime& time, TextView format) {
    return resultOf(*dates_, &clsUtilDate::fFormatDate, dateOf(time), format);
  }
  void expectFormats(const CivilTime& time, std::span<const FormatCase> rows) {
    for (const FormatCase& row : rows) {
      SCOPED_TRACE(row.shows);
      EXPECT_EQ(formatted(time, row.format), row.text);
    }
  }
  Text defaultText(const CivilTime& time) {
    return resultOf(*dates_, &clsUtilDate::fDefaultDateText, dateOf(time));
  }

  static Ref<clsUtilDate> at(const CivilTime& now) {
    return tarvo::make<clsUtilDate>([now] { return dateOf(now); });
  }

  Ref<clsUtilDate> dates_ = tarvo::make<clsUtilDate>();
};

// A Tuesday; every part has two different forms.
constexpr CivilTime kMorning{2024, 3, 5, 9, 8, 7};
constexpr CivilTime kEvening{2024, 3, 5, 21, 8, 7};

const FormatCase kFormats[] = {
    {"d", u"d", u"5"},
    {"dd", u"dd", u"05"},
    {"ddd", u"ddd", u"mar"},
    {"dddd", u"dddd", u"martes"},
    {"m", u"m", u"3"},
    {"mm", u"mm", u"03"},
    {"mmm", u"mmm", u"mar"},
    {"mmmm", u"mmmm", u"marzo"},
    {"yy", u"yy", u"24"},
    {"yyyy", u"yyyy", u"2024"},
    {"h", u"h", u"9"},
    {"hh", u"hh", u"09"},
    {"n", u"n", u"8"},
    {"nn", u"nn", u"08"},
    {"s", u"s", u"7"},
    {"ss", u"ss", u"07"},
    {"capital letters", u"DDDD D MMMM YYYY HH:NN:SS", u"martes 5 marzo 2024 09:08:07"},
    {"mixed letters", u"dD/mM/yYyY", u"05/03/2024"},
    {"the usual date", u"dd/mm/yyyy", u"05/03/2024"},
    {"the usual time", u"hh:mm:ss", u"09:08:07"},
    {"nothing between", u"yyyymmdd", u"20240305"},

    {"a fifth d", u"ddddd", u"martes5"},
    {"a sixth d", u"dddddd", u"martes05"},
    {"an eighth d", u"dddddddd", u"martesmartes"},
    {"a fifth m", u"mmmmm", u"marzo3"},
    {"a lone y", u"y", u"y"},
    {"a lone Y", u"Y", u"Y"},
    {"a third y", u"yyy", u"24y"},
    {"a fifth y", u"yyyyy", u"2024y"},
    {"a sixth y", u"yyyyyy", u"202424"},
    {"a third h", u"hhh", u"099"},
    {"a third n", u"nnn", u"088"},
    {"a third s", u"sss", u"077"},

    {"m after h is minutes", u"h:m", u"9:8"},
    {"mm after hh is minutes", u"hh:mm", u"09:08"},
    {"in either case", u"HH:MM", u"09:08"},
    {"directly after", u"hhmm", u"0908"},
    {"after several other characters", u"hh : mm", u"09 : 08"},
    {"after quoted marks", u"hh\" - \"mm", u"09 - 08"},
    {"after an escaped mark", u"hh\\:mm", u"09:08"},
    {"after a mark that is no letter", u"hh\xA0mm",
     u"09\xA0"
     u"08"},
    {"after a letter it is the month", u"hhxmm", u"09x03"},
    {"after an accented letter it is the month", u"hh\x00F1mm", u"09ñ03"},
    {"after a masculine ordinal it is the month", u"hhºmm", u"09º03"},
    {"after a quoted letter it is the month", u"hh\"h\"mm", u"09h03"},
    {"after an escaped letter it is the month", u"hh\\hmm", u"09h03"},
    {"before the hour it is the month", u"mm hh", u"03 09"},
    {"after the minutes it is the month", u"hh:mm/mm", u"09:08/03"},
    {"after another part it is the month", u"hh dd/mm", u"09 05/03"},
    {"after seconds it is the month", u"hh:nn:ss mm", u"09:08:07 03"},
    {"after a half of the day it is the month", u"hh AM/PM mm", u"09 AM 03"},
    {"names of months stay after an hour", u"hh:mmm", u"09:mar"},
    {"long names of months stay after an hour", u"hh:mmmm", u"09:marzo"},
    {"the second hour counts as well", u"mm hh:mm", u"03 09:08"},

    {"an escaped letter", u"\\d d", u"d 5"},
    {"an escaped backslash", u"\\\\d", u"\\5"},
    {"an escaped quote", u"\\\"d\\\"", u"\"5\""},
    {"a backslash at the end", u"d\\", u"5\\"},
    {"a backslash alone", u"\\", u"\\"},
    {"a quoted text", u"d \"de\" mmmm \"de\" yyyy", u"5 de marzo de 2024"},
    {"a backslash in a quoted text", u"\"\\d\"d", u"\\d5"},
    {"an empty quoted text", u"d\"\"d", u"55"},
    {"quoted texts end a run", u"d\"\"dd", u"505"},
    {"an open quote takes the rest", u"d \"de mmmm", u"5 de mmmm"},
    {"a quote at the end", u"d\"", u"5"},

    {"other letters", u"x e d", u"x e 5"},
    {"other marks", u"(d.mm.yy)*", u"(5.03.24)*"},
    {"no letters", u"--/--", u"--/--"},
    {"a character 0", u"d\0m"s, u"5\0003"s},
    {"character 0 lets minutes be minutes", u"h\0m"s, u"9\0008"s},
    {"empty", u"", u""},
};

TEST_F(UtilDateTest, FormatLettersShowTheirPart) { expectFormats(kMorning, kFormats); }

const FormatCase kEveningFormats[] = {
    {"24 hours", u"hh:mm", u"21:08"},
    {"12 hours", u"hh:mm AM/PM", u"09:08 PM"},
    {"12 hours, one digit", u"h AM/PM", u"9 PM"},
    {"in either case, shown in capitals", u"h am/pm", u"9 PM"},
    {"mixed case", u"h Am/pM", u"9 PM"},
    {"the half before the hour", u"AM/PM h", u"PM 9"},
    {"every hour is one of 12", u"h AM/PM h", u"9 PM 9"},
    {"the half alone", u"AM/PM", u"PM"},
    {"directly after the hour", u"hAM/PM", u"9PM"},
    {"a quoted half is text", u"h \"AM/PM\"", u"21 AM/PM"},
    {"an escaped half is text and letters", u"\\AM/PM h", u"A3/P3 21"},
    {"a part of a half is none", u"h A/P", u"21 A/P"},
    {"a half cut short is none", u"h AM/P", u"21 A3/P"},
};

TEST_F(UtilDateTest, HalvesOfTheDayMakeHoursOfTwelve) { expectFormats(kEvening, kEveningFormats); }

TEST_F(UtilDateTest, EveryHourOfTheDay) {
  const Text twelve[] = {u"12", u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"10", u"11"};
  for (int hour = 0; hour < 24; ++hour) {
    const CivilTime time{2024, 3, 5, hour, 0, 0};
    EXPECT_EQ(formatted(time, u"h AM/PM"), twelve[hour % 12] + (hour < 12 ? u" AM" : u" PM"));
    EXPECT_EQ(formatted(time, u"h"), tarvo::fromAscii(std::to_string(hour)));
  }
}

TEST_F(UtilDateTest, EveryDayOfTheWeekHasItsNames) {
  const Text names[] = {u"domingo", u"lunes",   u"martes", u"miércoles",
                        u"jueves",  u"viernes", u"sábado"};
  const Text shortNames[] = {u"dom", u"lun", u"mar", u"mié", u"jue", u"vie", u"sáb"};
  for (int day = 0; day < 7; ++day) {
    const CivilTime time{2024, 9, 1 + day};  // 1 September 2024 was a Sunday
    EXPECT_EQ(formatted(time, u"dddd"), names[day]);
    EXPECT_EQ(formatted(time, u"ddd"), shortNames[day]);
  }
}

TEST_F(UtilDateTest, EveryMonthHasItsNames) {
  const Text names[] = {u"enero",      u"febrero", u"marzo",     u"abril",
                        u"mayo",       u"junio",   u"julio",     u"agosto",
                        u"septiembre", u"octubre", u"noviembre", u"diciembre"};
  const Text shortNames[] = {u"ene", u"feb", u"mar", u"abr", u"may", u"jun",
                             u"jul", u"ago", u"sep", u"oct", u"nov", u"dic"};
  for (int month = 1; month <= 12; ++month) {
    const CivilTime time{2024, month, 15};
    EXPECT_EQ(formatted(time, u"mmmm"), names[month - 1]);
    EXPECT_EQ(formatted(time, u"mmm"), shortNames[month - 1]);
    EXPECT_EQ(formatted(time, u"m"), tarvo::fromAscii(std::to_string(month)));
  }
}

TEST_F(UtilDateTest, TwoDigitNumbersAreNotCut) {
  EXPECT_EQ(formatted({1999, 12, 31, 23, 59, 58}, u"d m h n s"), u"31 12 23 59 58");
  EXPECT_EQ(formatted({1999, 12, 31, 23, 59, 58}, u"dd mm yy hh nn ss"), u"31 12 99 23 59 58");
}

TEST_F(UtilDateTest, EarlyYearsKeepTheirZeros) {
  EXPECT_EQ(formatted({100, 1, 1}, u"yyyy yy"), u"0100 00");
  EXPECT_EQ(formatted({907, 1, 1}, u"yyyy yy"), u"0907 07");
  EXPECT_EQ(formatted({9999, 12, 31}, u"yyyy yy"), u"9999 99");
}

TEST_F(UtilDateTest, DatesBeforeTheDayZeroHaveTheirTimes) {
  EXPECT_EQ(resultOf(*dates_, &clsUtilDate::fFormatDate, Date{-1.25}, u"dddd d/m/yyyy hh:nn"),
            u"viernes 29/12/1899 06:00");
}

TEST_F(UtilDateTest, TheDefaultTextIsDayMonthYear) {
  EXPECT_EQ(defaultText(kEvening), u"05/03/2024");
  EXPECT_EQ(defaultText({123, 11, 30}), u"30/11/0123");
}

TEST_F(UtilDateTest, TheYearIsOfTheCalendar) {
  EXPECT_EQ(dates_->fYear(dateOf({2024, 12, 31, 23, 59, 59})), 2024);
  EXPECT_EQ(dates_->fYear(dateOf({2025, 1, 1})), 2025);
  EXPECT_EQ(dates_->fYear(dateOf({100, 1, 1})), 100);
  EXPECT_EQ(dates_->fYear(dateOf({9999, 12, 31})), 9999);
  EXPECT_EQ(dates_->fYear({0}), 1899);
}

TEST_F(UtilDateTest, TodayIsTheDatePartOfTheClock) {
  EXPECT_EQ(at(kEvening)->fToday(), dateOf({2024, 3, 5}));
  EXPECT_EQ(at({2024, 3, 5, 0, 0, 0})->fToday(), dateOf({2024, 3, 5}));
  EXPECT_EQ(at({2024, 3, 5, 23, 59, 59})->fToday(), dateOf({2024, 3, 5}));
  // Below the day zero the fraction still runs forwards.
  EXPECT_EQ(at({1899, 12, 29, 18, 0, 0})->fToday(), dateOf({1899, 12, 29}));
}

TEST_F(UtilDateTest, TheTimeTextHasTwentyFourHours) {
  const auto timeText = [](const CivilTime& now) {
    return resultOf(*at(now), &clsUtilDate::fTimeText);
  };
  EXPECT_EQ(timeText(kMorning), u"09:08:07");
  EXPECT_EQ(timeText(kEvening), u"21:08:07");
  EXPECT_EQ(timeText({2024, 3, 5, 0, 0, 0}), u"00:00:00");
  EXPECT_EQ(timeText({2024, 3, 5, 23, 59, 59}), u"23:59:59");
}

TEST_F(UtilDateTest, TheClockIsTheSystemsUnlessAnotherIsGiven) {
  // Midnight may pass between the two.
  const Date before = tarvo::datePart(tarvo::platform::localTime());
  const Date today = dates_->fToday();
  const Date after = tarvo::datePart(tarvo::platform::localTime());
  EXPECT_TRUE(today == before || today == after);
}

TEST_F(UtilDateTest, TheClockIsReadAtEveryCall) {
  int calls = 0;
  const auto dates = tarvo::make<clsUtilDate>([&calls] { return Date{45000.0 + calls++}; });
  EXPECT_EQ(dates->fToday(), Date{45000});
  EXPECT_EQ(dates->fToday(), Date{45001});
}

TEST_F(UtilDateTest, DatesOutsideTheRangeOverflow) {
  Text result;
  const double outside[] = {2958466, -657435, 1e300, -std::numeric_limits<double>::infinity(),
                            std::nan("")};
  for (const double serial : outside) {
    SCOPED_TRACE(serial);
    const Date date{serial};
    EXPECT_EQ(failureOf([&] { dates_->fFormatDate(date, u"d", result); }), overflow("valDate"));
    EXPECT_EQ(failureOf([&] { dates_->fFormatDate(date, u"", result); }), overflow("valDate"));
    EXPECT_EQ(failureOf([&] { dates_->fDefaultDateText(date, result); }), overflow("valDate"));
    EXPECT_EQ(failureOf([&] { dates_->fYear(date); }), overflow("valDate"));
  }
  EXPECT_EQ(failureOf([&] { dates_->fYear({2958465}); }), "none");
  EXPECT_EQ(failureOf([&] { dates_->fYear({-657434}); }), "none");
}

}  // namespace
}  // namespace LibTarvoCI
