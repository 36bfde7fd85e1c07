// Numbers as plain text, for programs and for texts in which nothing is aligned: no blanks, no
// marks between thousands, "," before decimals, no zeros at the end of the decimals, no exponent.
#pragma once

#include "services/fail.h"

namespace LibTarvoCI {

// Replaces `result` by the number's plain text.
//   whole numbers, amounts   exactly
//   double                   rounded to the fewest digits that read back as it; -0 is "0"
//   numeric text             its digits without what does not count: "+", zeros at either end
//   Empty                    "0"
// Raises: 6 for a double that is no number or infinite; 13 for any other kind of value, booleans,
// dates and Null among them, and for a text that is not numeric.
void plainNumber(const Value& number, Text& result);

}  // namespace LibTarvoCI
