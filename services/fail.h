// What every stand-in starts from: its component's name, the frame's words, and how it fails.
//
// A stand-in behaves like an object of another component: an error that it raises names that
// component, not the library that called it.  Errors of objects that a stand-in drives for its
// caller (a button, a report) pass as they are.
#pragma once

#include <cstdint>

#include "frame/currency.h"
#include "frame/date.h"
#include "frame/object.h"
#include "frame/text.h"
#include "frame/value.h"

namespace LibTarvoCI {

using tarvo::Currency;
using tarvo::Date;
using tarvo::Object;
using tarvo::Ref;
using tarvo::Text;
using tarvo::TextList;
using tarvo::TextView;
using tarvo::Value;

// The source of every error that a stand-in raises.
inline constexpr TextView kProjectTitle = u"LibTarvoCI";

// Raises the run-time error of that number; `about` is what it is about, as a rule the argument's
// name, and may be empty.
[[noreturn]] void fail(std::int32_t number, TextView about);

}  // namespace LibTarvoCI
