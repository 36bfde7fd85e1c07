// Dates in the parts that people read, for the services that show dates.
#pragma once

#include "frame/date.h"
#include "services/fail.h"

namespace LibTarvoCI {

// Raises: 6 for a date outside 1 January 100 to 31 December 9999.
tarvo::CivilTime timeOf(Date date);

// Replaces `result` by the date as dd/mm/yyyy.  Raises: 6 as above.
void dayMonthYear(Date date, Text& result);

// The same of a time of which civilTimeOf gave the parts.
void dayMonthYear(const tarvo::CivilTime& time, Text& result);

}  // namespace LibTarvoCI
