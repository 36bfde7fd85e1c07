#include "services/date_parts.h"

#include "frame/run_time_error.h"
#include "services/digits.h"

namespace LibTarvoCI {

tarvo::CivilTime timeOf(Date date) try {
  return tarvo::civilTimeOf(date);
} catch (const tarvo::RunTimeError& error) {
  fail(error.number(), u"valDate");
}

void dayMonthYear(Date date, Text& result) {
  const tarvo::CivilTime time = timeOf(date);
  result.clear();
  appendDigits(result, static_cast<std::uint64_t>(time.day), 2);
  result.push_back(u'/');
  appendDigits(result, static_cast<std::uint64_t>(time.month), 2);
  result.push_back(u'/');
  appendDigits(result, static_cast<std::uint64_t>(time.year), 4);
}

}  // namespace LibTarvoCI
