#include "services/date_parts.h"

#include <array>

#include "frame/run_time_error.h"

namespace LibTarvoCI {

tarvo::CivilTime timeOf(Date date) try {
  return tarvo::civilTimeOf(date);
} catch (const tarvo::RunTimeError& error) {
  fail(error.number(), u"valDate");
}

void dayMonthYear(Date date, Text& result) {
  const tarvo::CivilTime time = timeOf(date);
  const auto digit = [](int number) { return static_cast<char16_t>(u'0' + number % 10); };
  const std::array<char16_t, 10> text{
      digit(time.day / 10),    digit(time.day),        u'/',
      digit(time.month / 10),  digit(time.month),      u'/',
      digit(time.year / 1000), digit(time.year / 100), digit(time.year / 10),
      digit(time.year)};
  result.assign(text.data(), text.size());
}

}  // namespace LibTarvoCI
