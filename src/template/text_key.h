// Texts as keys of a table that is asked for every line and every variable.
#pragma once

#include <cstdint>
#include <cstring>
#include <unordered_map>

#include "frame/text.h"

namespace tarvo {

// Looks at the size and at some characters only: template texts are long and differ early enough.
struct TextHash {
  using is_transparent = void;

  std::size_t operator()(TextView text) const noexcept {
    constexpr std::size_t kPerWord = sizeof(std::uint64_t) / sizeof(char16_t);
    constexpr std::uint64_t kMixer = 0x9E37'79B9'7F4A'7C15;
    std::uint64_t hash = text.size() * kMixer;
    if (text.size() < kPerWord) {
      for (const char16_t c : text) hash = (hash ^ c) * kMixer;
      return static_cast<std::size_t>(hash ^ (hash >> 32));
    }
    const std::size_t last = text.size() - kPerWord;
    for (std::size_t i = 0; i <= 4; ++i) {
      std::uint64_t word = 0;
      std::memcpy(&word, text.data() + last * i / 4, sizeof word);
      hash = (hash ^ word) * kMixer;
      hash ^= hash >> 29;
    }
    return static_cast<std::size_t>(hash ^ (hash >> 32));
  }
};

struct TextEqual {
  using is_transparent = void;

  bool operator()(TextView a, TextView b) const noexcept {
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0);
  }
};

template <class T>
using TextMap = std::unordered_map<Text, T, TextHash, TextEqual>;

}  // namespace tarvo
