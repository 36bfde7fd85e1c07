// The character sets in which line printers read the bytes that are no control codes.
//
// Bytes 20 to 7E are ASCII in each of them; 80 to FF differ.  Which set is in force is a matter of
// the printer's selection codes, of which only those of the supported sets are known here.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvordp {

enum class CharacterSet : std::uint8_t { pc437, pc850, pc858 };

// "PC437"
const char* nameOf(CharacterSet set) noexcept;

// Whether the byte prints a character: all but 00 to 1F and 7F.
constexpr bool isPrintable(unsigned char byte) noexcept { return byte >= 0x20 && byte != 0x7F; }

// REQUIRES: isPrintable(byte).
char16_t characterOf(CharacterSet set, unsigned char byte) noexcept;

// Whether a byte of the set prints the character.
bool hasCharacter(CharacterSet set, char16_t character) noexcept;

// What a control string does to the character set.
struct SetSelection {
  CharacterSet set = CharacterSet::pc437;  // where printers start
  std::string unknown;  // the selection code of a set that is not known here; `set` is a guess then
};

// The last selection in the control string counts.
SetSelection selectedBy(std::string_view controlString);

}  // namespace tarvordp
