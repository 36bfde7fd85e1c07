#include "services/character_map.h"

#include <algorithm>
#include <cstring>

namespace LibTarvoCI {
namespace {

// All characters of the text, or-ed: no character is greater than that.  Four at a time, because
// this looks at every character that is printed.
std::uint32_t combined(TextView text) noexcept {
  constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(char16_t);
  std::uint64_t bits = 0;
  for (; text.size() >= kStep; text.remove_prefix(kStep)) {
    std::uint64_t four = 0;
    std::memcpy(&four, text.data(), sizeof four);
    bits |= four;
  }
  for (const char16_t c : text) bits |= c;
  bits |= bits >> 32;
  bits |= bits >> 16;
  return static_cast<std::uint32_t>(bits & 0xFFFF);
}

}  // namespace

bool CharacterMap::take(std::span<const tarvo::clsTexto::Replacement> replacements) noexcept {
  if (replacements.size() > kCapacity) return false;
  for (const tarvo::clsTexto::Replacement& replacement : replacements) {
    if (replacement.oldText.size() != 1 || replacement.newText.size() != 1) return false;
    const Pair pair{replacement.oldText[0], replacement.newText[0]};
    pairs_[count_++] = pair;
    smallest_ = std::min<std::uint32_t>(smallest_, pair.from);
  }
  return true;
}

void CharacterMap::applyTo(Text& text) const noexcept {
  if (combined(text) < smallest_) return;
  for (char16_t& c : text) {
    if (c >= smallest_) c = mapped(c);
  }
}

char16_t CharacterMap::mapped(char16_t character) const noexcept {
  for (std::size_t i = 0; i < count_; ++i) {
    if (character == pairs_[i].from) character = pairs_[i].to;
  }
  return character;
}

}  // namespace LibTarvoCI
