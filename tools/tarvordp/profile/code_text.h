// Control codes in forms that people read.
#pragma once

#include <string>
#include <string_view>

namespace tarvordp {

// "1B 45"
std::string hexOf(std::string_view bytes);

// The byte's name or character: "ESC", "E", "SP" for the blank, its number for what has neither.
std::string nameOfByte(unsigned char byte);

// "ESC E"
std::string readableOf(std::string_view bytes);

}  // namespace tarvordp
