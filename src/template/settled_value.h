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
  enum class Form : std::uint8_t {
    kUnknown,
    kText,         // what formatting has made of all that stands here
    kTextField,    // a text, cut or filled with blanks to its length: `fieldSize` characters of it
    kNumberField,  // a number in the field that the template asks for
    kDueNumberField,  // the same, but its place in the image has still to be written
  };

  ParsedAttributes attributes;  // as the client left them
  eTypeFieldRecord kind = TFR_String;
  Form form = Form::kUnknown;
  bool parenthesisIfNegative = false;
  std::uint8_t fieldSize = 0;
  Currency number;
  Date date;
  Text text;

  bool isKnownText() const noexcept { return form == Form::kText; }
};

// Compared as bytes.
static_assert(std::has_unique_object_representations_v<ParsedAttributes>);

}  // namespace tarvo
