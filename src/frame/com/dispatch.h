// Late binding: calls by name and number, with arguments of any kind.
//
// Kinder than the platform's own: by-reference arguments of scripts, which arrive as references to
// values of any kind, are coerced to the parameter's type and come back changed; named arguments
// work; an argument of the wrong kind is error 13 (6 when it does not fit) and names its parameter.
// The call itself goes through the same table of functions as an early-bound one.
//
// Member numbers are the places in the member table, from 1.  Every operation is a method.
#pragma once

#include "frame/com/face.h"

namespace tarvo::com {

// More parameters than any operation has.
inline constexpr std::size_t kMaxParameters = 16;

// The VARIANT kind of a described type; VT_EMPTY for none.
VARTYPE varTypeOf(const TypeInfo& type) noexcept;

}  // namespace tarvo::com
