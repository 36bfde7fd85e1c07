// Whether a text holds a brace, which every value is asked before it is printed.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "frame/text.h"

namespace tarvo {

namespace detail {

// Eight characters that are looked at in one step.
using Eight = std::uint16_t __attribute__((vector_size(16)));
inline constexpr Eight kOpening{u'{', u'{', u'{', u'{', u'{', u'{', u'{', u'{'};
inline constexpr Eight kClosing{u'}', u'}', u'}', u'}', u'}', u'}', u'}', u'}'};

// Marks what it finds.
inline void findBraces(const char16_t* text, Eight& found) noexcept {
  Eight characters;
  std::memcpy(&characters, text, sizeof characters);
  found |= Eight((characters == kOpening) | (characters == kClosing));
}

}  // namespace detail

inline bool holdsBrace(TextView text) noexcept {
  constexpr std::size_t kAtOnce = 8;
  if (text.size() < kAtOnce) {
    return std::any_of(text.begin(), text.end(), [](char16_t c) { return c == u'{' || c == u'}'; });
  }
  const std::size_t last = text.size() - kAtOnce;
  detail::Eight found{};
  detail::findBraces(text.data() + last, found);
  for (std::size_t i = 0; i < last; i += kAtOnce) detail::findBraces(text.data() + i, found);
  std::array<std::uint64_t, 2> halves;
  std::memcpy(&halves, &found, sizeof halves);
  return (halves[0] | halves[1]) != 0;
}

}  // namespace tarvo
