// Capital letters, character by character.
//
// A letter without a single capital (ß), a capital, and what is no letter stay as they are; so do
// letters beyond the first 65,536 characters.  The same on every system, whatever its language.
#pragma once

#include "frame/text.h"

namespace tarvo {

char16_t upperCase(char16_t c) noexcept;
Text upperCase(TextView text);

}  // namespace tarvo
