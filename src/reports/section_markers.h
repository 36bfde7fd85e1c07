// The markers that cut a master-detail template into its sections, in capitals.
#pragma once

#include "frame/text.h"

namespace tarvo {

inline constexpr TextView kBodyMarker = u"{CUERPO=";  // a number and "}" follow
inline constexpr TextView kEndOfBodyMarker = u"{FINCUERPO}";
inline constexpr TextView kInsertBodyMarker = u"{UNINSERTOCUERPO}";  // the whole line

}  // namespace tarvo
