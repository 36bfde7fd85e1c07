// A variable's value whose text is known: what the formatting of the text depended on, beside what
// is written between the braces.
#pragma once

#include <type_traits>

#include "frame/currency.h"
#include "frame/date.h"
#include "frame/enums.h"
#include "frame/text.h"
#include "template/parsed_variable.h"

namespace tarvo {

struct SettledValue {
  ParsedAttributes attributes;  // as the client left them
  eTypeFieldRecord kind = TFR_String;
  bool isKnown = false;
  bool parenthesisIfNegative = false;
  Currency number;
  Date date;
  Text text;
};

// Compared as bytes.
static_assert(std::has_unique_object_representations_v<ParsedAttributes>);

}  // namespace tarvo
