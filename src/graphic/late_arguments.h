// What an object that is reached by name is handed: values of any kind, as callers have them.
//
// Raises, in all of them: 13 for a value of another kind; `about` names it in the description.
#pragma once

#include <cstdint>
#include <span>

#include "frame/text.h"
#include "frame/value.h"

namespace tarvo {

// A number of any kind, rounded half to even.  Raises: 6 when it does not fit.
std::int32_t integerArgument(const Value& value, TextView about);

// A boolean, or a number, which is true when it is not 0.
bool booleanArgument(const Value& value, TextView about);

// A text, or nothing at all (Empty, Null), which is the empty one.
TextView textArgument(const Value& value, TextView about);

// Raises: 450 for any other number of arguments.
void requireCount(std::span<const Value> arguments, std::size_t count);

}  // namespace tarvo
