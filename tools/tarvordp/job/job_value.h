// The values that a job answers its report's variables with, one struct for each kind.
#pragma once

#include <cstdint>
#include <variant>
#include <vector>

#include "frame/currency.h"
#include "frame/date.h"
#include "frame/text.h"
#include "frame/value.h"
#include "tarvordp/json/json_value.h"

namespace tarvordp {

struct NoValue {};  // the variable is answered False

struct TextValue {
  tarvo::Text text;
};

struct NumberValue {
  tarvo::Currency amount;
  bool parenthesisIfNegative = false;
};

struct BooleanValue {
  bool value = false;
};

struct DateValue {
  tarvo::Date date;
};

struct EnumValue {
  tarvo::Text text;
};

// The arguments of clsObSpecialVar::SetContentArray.
struct ArrayValue {
  tarvo::Text text;
  std::uint8_t maxWidth = 0;
  std::int16_t index = -1;
  bool fill = false;
  bool usePosition = false;
  std::int16_t position = -1;
};

// A long text that is printed segment by segment: an array of its lines, and an empty last element,
// for the helper that cuts the segments never reads the last one.
struct LinesValue {
  tarvo::Value lines;
};

using SingleValue = std::variant<NoValue, TextValue, NumberValue, BooleanValue, DateValue,
                                 EnumValue, ArrayValue, LinesValue>;

// One value for each pass of a line that is repeated; at least one.
struct RepeatValue {
  std::vector<SingleValue> values;
};

using JobValue = std::variant<NoValue, TextValue, NumberValue, BooleanValue, DateValue, EnumValue,
                              ArrayValue, LinesValue, RepeatValue>;

// The value that a JSON value writes: a text, a number, true or false, null, or an object with one
// of the keys "number", "date", "enum", "array", "lines", "repeat".
// Raises: Mistake with its place.
JobValue readJobValue(const JsonValue& written);

}  // namespace tarvordp
