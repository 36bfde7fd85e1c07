#include "frame/codepage.h"

#include <algorithm>
#include <cstring>

#include "frame/platform.h"

namespace tarvo {
namespace {

constexpr std::uint8_t kUnknown = '?';

constexpr CodePage::Characters make1252() {
  CodePage::Characters characters{};
  for (unsigned byte = 0; byte < 256; ++byte) characters[byte] = static_cast<char16_t>(byte);
  // 81, 8D, 8F, 90 and 9D are undefined and stay the control characters of the same number.
  constexpr char16_t upper[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                  0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
  for (unsigned i = 0; i < 32; ++i) characters[0x80 + i] = upper[i];
  return characters;
}

std::size_t countBlocks(const CodePage::Characters& characters) {
  std::array<bool, 256> used{};
  for (const char16_t character : characters) used[character >> 8] = true;
  return 1 + static_cast<std::size_t>(std::count(used.begin(), used.end(), true));
}

bool keepsAscii(const CodePage::Characters& characters) {
  for (unsigned byte = 0; byte < 0x80; ++byte) {
    if (characters[byte] != byte) return false;
  }
  return true;
}

// Small enough for a line of print to have several, large enough for one machine instruction or
// two.
constexpr std::size_t kPiece = 16;

bool isAscii(const char16_t* piece) {
  char16_t all = 0;
  for (std::size_t i = 0; i < kPiece; ++i) all = static_cast<char16_t>(all | piece[i]);
  return all < 0x80;
}

using PieceOfBytes = unsigned char __attribute__((vector_size(kPiece)));
using PieceOfText = char16_t __attribute__((vector_size(kPiece * sizeof(char16_t))));

// False: not the whole piece is ASCII.
bool decodeAscii(const char* piece, char16_t* text) {
  std::array<std::uint64_t, kPiece / sizeof(std::uint64_t)> words;
  std::memcpy(&words, piece, sizeof words);
  if (((words[0] | words[1]) & 0x8080'8080'8080'8080) != 0) return false;
  PieceOfBytes bytes;
  std::memcpy(&bytes, piece, sizeof bytes);
  const auto characters = __builtin_convertvector(bytes, PieceOfText);
  std::memcpy(text, &characters, sizeof characters);
  return true;
}

}  // namespace

CodePage::CodePage(const Characters& characters)
    : characters_(characters),
      keepsAscii_(keepsAscii(characters)),
      blocks_(new Block[countBlocks(characters)]) {
  blocks_[0].fill(kUnknown);
  for (unsigned byte = 256; byte-- > 0;) {
    const char16_t character = characters_[byte];
    blockFor(character)[character & 0xFF] = static_cast<std::uint8_t>(byte);
  }
}

CodePage::Block& CodePage::blockFor(char16_t character) {
  std::uint16_t& index = blockOf_[character >> 8];
  if (index == 0) {
    index = static_cast<std::uint16_t>(blockCount_++);
    blocks_[index].fill(kUnknown);
  }
  return blocks_[index];
}

const CodePage& CodePage::windows1252() {
  static constexpr Characters kCharacters = make1252();
  static const CodePage page(kCharacters);
  return page;
}

const CodePage& CodePage::ofSystem() {
  static const CodePage& page = []() -> const CodePage& {
    Characters characters{};
    if (!platform::systemCodePage(characters)) return windows1252();
    static const CodePage system(characters);
    return system;
  }();
  return page;
}

void CodePage::encode(TextView text, std::string& bytes) const {
  bytes.resize(text.size());
  const char16_t* in = text.data();
  char* out = bytes.data();
  std::size_t left = text.size();
  // Most of what is printed is plain ASCII: whole pieces of it go without the table.
  for (; left >= kPiece; left -= kPiece, in += kPiece, out += kPiece) {
    if (keepsAscii_ && isAscii(in)) {
      for (std::size_t i = 0; i < kPiece; ++i) out[i] = static_cast<char>(in[i]);
    } else {
      for (std::size_t i = 0; i < kPiece; ++i) out[i] = static_cast<char>(encode(in[i]));
    }
  }
  for (std::size_t i = 0; i < left; ++i) out[i] = static_cast<char>(encode(in[i]));
}

void CodePage::decode(std::string_view bytes, Text& text) const {
  text.resize(bytes.size());
  const char* const in = bytes.data();
  char16_t* const out = text.data();
  const auto decodeEach = [&](std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) out[i] = decode(static_cast<std::uint8_t>(in[i]));
  };
  const auto decodePiece = [&](std::size_t at) {
    if (!keepsAscii_ || !decodeAscii(in + at, out + at)) decodeEach(at, at + kPiece);
  };
  if (bytes.size() < kPiece) return decodeEach(0, bytes.size());
  const std::size_t last = bytes.size() - kPiece;
  for (std::size_t at = 0; at < last; at += kPiece) decodePiece(at);
  decodePiece(last);  // some of it for the second time
}

}  // namespace tarvo
