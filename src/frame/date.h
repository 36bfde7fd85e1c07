// Dates as automation counts them: days since 30 December 1899, the time of day as the fraction.
//
// The range is 1 January 100 to 31 December 9999.  Below zero the day part counts backwards but the
// fraction still runs forwards: -1.25 is 29 December 1899, six in the morning.  So serials are no
// order of time: there the later time of a day has the lesser serial.
#pragma once

#include <compare>
#include <cstdint>

namespace tarvo {

// Dates are equal when their serials are; they have no order of their own, see CivilTime.  The day
// zero alone has two serials for a time after midnight, 0.5 and -0.5 for noon, which are not equal.
struct Date {
  double serial = 0;

  friend constexpr bool operator==(Date, Date) = default;
};

// A date in the parts that people read, by the proleptic Gregorian calendar.  The order of those
// that civilTimeOf gives is the order of time.
struct CivilTime {
  int year = 1899;
  int month = 12;  // 1 to 12
  int day = 30;    // 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;
  int weekday = 6;  // 0 is Sunday; not read by dateOf

  friend constexpr auto operator<=>(const CivilTime&, const CivilTime&) = default;
};

// To the nearest second.  Raises: 6 for a date outside the range.
CivilTime civilTimeOf(Date date);

// Raises: 5 when a part is out of its range, or the day is not in its month.
Date dateOf(const CivilTime& time);

// The same day at midnight.  Raises: 6.
Date datePart(Date date);

}  // namespace tarvo
