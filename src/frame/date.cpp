#include "frame/date.h"

#include <chrono>
#include <cmath>

#include "frame/run_time_error.h"

namespace tarvo {
namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kDayZero = std::chrono::year(1899) / std::chrono::December / 30;
constexpr double kFirstDay = -657434;     // 1 January 100
constexpr double kPastLastDay = 2958466;  // 1 January 10000
constexpr int kSecondsPerDay = 86'400;

struct DayAndSeconds {
  int day;
  int seconds;
};

DayAndSeconds split(Date date) {
  // Also false for "not a number".  The first day's own times lie below its serial.
  if (!(date.serial > kFirstDay - 1 && date.serial < kPastLastDay)) throw RunTimeError(kOverflow);
  const double whole = std::trunc(date.serial);
  if (whole == date.serial) return {static_cast<int>(whole), 0};  // most dates have no time
  const double fraction = std::fabs(date.serial - whole);
  DayAndSeconds parts{static_cast<int>(whole),
                      static_cast<int>(std::lround(fraction * kSecondsPerDay))};
  if (parts.seconds == kSecondsPerDay) parts = {parts.day + 1, 0};
  if (parts.day >= kPastLastDay) throw RunTimeError(kOverflow);
  return parts;
}

bool isWithin(int value, int least, int most) { return value >= least && value <= most; }

}  // namespace

CivilTime civilTimeOf(Date date) {
  const DayAndSeconds parts = split(date);
  const sys_days day = kDayZero + std::chrono::days(parts.day);
  const year_month_day civil(day);
  CivilTime time;
  time.year = static_cast<int>(civil.year());
  time.month = static_cast<int>(static_cast<unsigned>(civil.month()));
  time.day = static_cast<int>(static_cast<unsigned>(civil.day()));
  time.hour = parts.seconds / 3600;
  time.minute = parts.seconds / 60 % 60;
  time.second = parts.seconds % 60;
  time.weekday = static_cast<int>(std::chrono::weekday(day).c_encoding());
  return time;
}

Date dateOf(const CivilTime& time) {
  const year_month_day civil(std::chrono::year(time.year),
                             std::chrono::month(static_cast<unsigned>(time.month)),
                             std::chrono::day(static_cast<unsigned>(time.day)));
  // The calendar keeps months and days in bytes: what does not fit would come back as another one.
  const bool inRange = isWithin(time.year, 100, 9999) && isWithin(time.month, 1, 12) &&
                       isWithin(time.day, 1, 31) && civil.ok() && isWithin(time.hour, 0, 23) &&
                       isWithin(time.minute, 0, 59) && isWithin(time.second, 0, 59);
  if (!inRange) throw RunTimeError(kInvalidProcedureCall);
  const auto day = static_cast<double>((sys_days(civil) - kDayZero).count());
  const int seconds = (time.hour * 60 + time.minute) * 60 + time.second;
  const double fraction = static_cast<double>(seconds) / kSecondsPerDay;
  return {day < 0 ? day - fraction : day + fraction};
}

Date datePart(Date date) { return {static_cast<double>(split(date).day)}; }

}  // namespace tarvo
