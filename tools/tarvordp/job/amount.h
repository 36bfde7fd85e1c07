// Amounts and dates as files write them, read without binary floating point.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "frame/currency.h"
#include "frame/date.h"

namespace tarvordp {

// What is wrong with a value, without its place: who reads the value knows the place and makes a
// Mistake of it.
class BadValue : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The amount that a decimal number says: an optional sign, digits, optionally "." and digits,
// optionally an exponent ("1.5e3").  More than four decimals round half to even.
// Raises: BadValue for any other text, and for an amount outside the range of amounts.
tarvo::Currency readAmount(std::string_view written);

// The same for a cell of a table of data, where "," may stand in the place of the ".".  Nothing
// stands between thousands: a number with two separators is none, and "1,234" is less than two.
tarvo::Currency readCellAmount(std::string_view written);

// The amount as a plain decimal number: "1250.5", "-0.05", "0".
std::string amountText(tarvo::Currency amount);

// The date that "YYYY-MM-DD" or "YYYY-MM-DDTHH:MM:SS" says; `separators` are the characters that
// may stand in the place of the "T".
// Raises: BadValue for any other text, and for a day that the calendar does not have.
tarvo::Date readDate(std::string_view written, std::string_view separators = "T");

}  // namespace tarvordp
