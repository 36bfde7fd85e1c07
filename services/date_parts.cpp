#include "services/date_parts.h"

#include <array>

#include "frame/run_time_error.h"

namespace LibTarvoCI {

tarvo::CivilTime timeOf(Date date) try {
  return tarvo::civilTimeOf(date);
} catch (const tarvo::RunTimeError& error) {
  fail(error.number(), u"valDate");
}

void dayMonthYear(Date date, Text& result) { dayMonthYear(timeOf(date), result); }

void dayMonthYear(const tarvo::CivilTime& time, Text& result) {
  std::array<char16_t, 10> text{u'0', u'0', u'/', u'0', u'0', u'/', u'0', u'0', u'0', u'0'};
  const auto put = [&text](std::size_t at, int number) {  // of two digits
    text[at] = static_cast<char16_t>(u'0' + number / 10);
    text[at + 1] = static_cast<char16_t>(u'0' + number % 10);
  };
  put(0, time.day);
  put(3, time.month);
  put(6, time.year / 100);
  put(8, time.year % 100);
  result.clear();
  result.append(text.data(), text.size());
}

}  // namespace LibTarvoCI
