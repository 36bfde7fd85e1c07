// The system's single-byte code page: how texts become printer bytes, and template bytes texts.
//
// One character is one byte, always: what the code page lacks becomes "?", never a similar letter,
// and a character outside the basic plane becomes two "?" (it is two units of the counted text), so
// no byte ever moves.  All 256 bytes survive the way in and out again; bytes that a code page
// leaves undefined stand for the control character of the same number.
//
// Not for UTF-8: diagnostics and file names use text.h.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "frame/text.h"

namespace tarvo {

class CodePage {
 public:
  // The character of each byte.
  using Characters = std::array<char16_t, 256>;

  // REQUIRES: no character stands twice in `characters` (else the first byte wins on the way out,
  // and the other does not survive the round trip).
  explicit CodePage(const Characters& characters);

  // Western European, the code page of the library's own Spanish texts.
  static const CodePage& windows1252();

  // The code page that the system prints in: on Windows the ANSI code page (1252 where that is not
  // a single-byte one), elsewhere 1252.
  static const CodePage& ofSystem();

  char16_t decode(std::uint8_t byte) const noexcept { return characters_[byte]; }

  std::uint8_t encode(char16_t character) const noexcept {
    return blocks_[blockOf_[character >> 8]][character & 0xFF];
  }

  // Replaces `bytes` by the bytes of `text`, exactly one for each of its characters.
  void encode(TextView text, std::string& bytes) const;

  // Replaces `text` by the characters of `bytes`, exactly one for each.
  void decode(std::string_view bytes, Text& text) const;

 private:
  using Block = std::array<std::uint8_t, 256>;

  Block& blockFor(char16_t character);

  Characters characters_;
  bool keepsAscii_;  // the first 128 bytes are the characters of the same numbers
  // Two stages: the upper half of a character names a block, block 0 holds only "?".  A single-byte
  // code page reaches into a handful of blocks.
  std::array<std::uint16_t, 256> blockOf_{};
  std::size_t blockCount_ = 1;
  std::unique_ptr<Block[]> blocks_;
};

}  // namespace tarvo
