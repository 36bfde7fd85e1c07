// Bytes as people read them.
#pragma once

#include <string>
#include <string_view>

namespace tarvordp {

// Two digits, in capitals: "1B".
inline std::string hexOfByte(unsigned char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return {kDigits[byte >> 4U], kDigits[byte & 0xFU]};
}

}  // namespace tarvordp
