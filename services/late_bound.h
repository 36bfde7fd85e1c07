// Driving an object that is known only by the names of its members.
#pragma once

#include "frame/late_object.h"
#include "services/fail.h"

namespace LibTarvoCI {

// The object behind the reference.
// Raises: 91 when the reference is empty, 438 when the object cannot be reached by name.
tarvo::LateObject& lateObject(const Ref<Object>& reference, TextView about);

// What a member gave back, as a whole number (a double is rounded half to even), as a boolean (a
// number is true when it is not 0), as a text (Empty and Null are the empty one).
// Raises: 13 for any other kind of value, 6 for a number that does not fit.
std::int32_t integerOf(const Value& value, TextView about);
bool booleanOf(const Value& value, TextView about);
Text textOf(const Value& value, TextView about);

}  // namespace LibTarvoCI
