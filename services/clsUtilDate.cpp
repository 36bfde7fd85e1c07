#include "services/clsUtilDate.h"

#include <utility>

#include "frame/platform.h"
#include "services/date_format.h"
#include "services/date_parts.h"

namespace LibTarvoCI {

clsUtilDate::clsUtilDate() : clsUtilDate(tarvo::platform::localTime) {}
clsUtilDate::clsUtilDate(Clock clock) : clock_(std::move(clock)) {}

Date clsUtilDate::fToday() {
  tarvo::CivilTime now = timeOf(clock_());
  now.hour = now.minute = now.second = 0;
  return tarvo::dateOf(now);
}

void clsUtilDate::fTimeText(Text& result) { formatTime(timeOf(clock_()), u"hh:nn:ss", result); }

void clsUtilDate::fFormatDate(Date valDate, TextView valFormat, Text& result) {
  formatTime(partsOf(valDate), valFormat, result);
}

void clsUtilDate::fDefaultDateText(Date valDate, Text& result) {
  dayMonthYear(partsOf(valDate), result);
}

std::int16_t clsUtilDate::fYear(Date valDate) {
  return static_cast<std::int16_t>(partsOf(valDate).year);
}

const tarvo::CivilTime& clsUtilDate::partsOf(Date date) {
  if (date != lastDate_) {
    partsOfLastDate_ = timeOf(date);
    lastDate_ = date;
  }
  return partsOfLastDate_;
}

}  // namespace LibTarvoCI
