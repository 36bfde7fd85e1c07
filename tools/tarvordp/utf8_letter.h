// Letters of UTF-8, byte by byte.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace tarvordp {

// How many bytes the letter at the front takes; 0 when it is none.  REQUIRES: `bytes` is not empty.
inline std::size_t sizeOfLetter(std::string_view bytes) {
  const auto first = static_cast<unsigned char>(bytes[0]);
  if (first < 0x80) return 1;
  const std::size_t size = first >= 0xC2 && first <= 0xDF   ? 2
                           : first >= 0xE0 && first <= 0xEF ? 3
                           : first >= 0xF0 && first <= 0xF4 ? 4
                                                            : 0;
  if (size == 0 || size > bytes.size()) return 0;
  const std::string_view rest = bytes.substr(1, size - 1);
  const bool goesOn = std::ranges::all_of(
      rest, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80; });
  return goesOn ? size : 0;
}

}  // namespace tarvordp
