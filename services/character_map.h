// Several one-to-one replacements of characters, done in one pass over a text.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "frame/services.h"
#include "services/fail.h"

namespace LibTarvoCI {

class CharacterMap {
 public:
  // The most replacements that it takes.
  static constexpr std::size_t kCapacity = 16;

  // Takes the replacements in their order.  False, and then unusable, when one of them is not one
  // character by one, or there are too many.
  bool take(std::span<const tarvo::clsTexto::Replacement> replacements) noexcept;

  // Replaces in the text.  A character goes through all replacements in their order, which is what
  // one pass per replacement would come to.
  void applyTo(Text& text) const noexcept;

 private:
  struct Pair {
    char16_t from;
    char16_t to;
  };

  char16_t mapped(char16_t character) const noexcept;

  std::array<Pair, kCapacity> pairs_;
  std::size_t count_ = 0;
  // No character below it is replaced: in most texts that is all there is to know.
  std::uint32_t smallest_ = 0x10000;
};

}  // namespace LibTarvoCI
