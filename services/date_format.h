// Dates by a format text.
//
//   d dd        day of the month              h hh      hour
//   ddd dddd    day of the week (lun, lunes)  n nn      minute
//   m mm        month                         s ss      second
//   mmm mmmm    its name (ene, enero)         AM/PM     half of the day; makes every hour one of 12
//   yy yyyy     year                          \x        x as it is
//                                             "text"    the text as it is
//
// Letters count in either case; names are Spanish in lower case, AM and PM are capitals.  Doubled
// letters show two digits, yyyy four.  m and mm directly after an hour, or with no letter between,
// are minutes.  A run of a letter longer than its longest form is that form and then the rest; a y
// that is left over stands for itself, as does a backslash at the end.  A quote that is not closed
// takes the rest.  Every other character stands for itself.
#pragma once

#include "frame/date.h"
#include "services/fail.h"

namespace LibTarvoCI {

// Replaces `result` by the time in that format.
void formatTime(const tarvo::CivilTime& time, TextView format, Text& result);

}  // namespace LibTarvoCI
