// The character sets in which line printers read the bytes that are no control codes.
//
// Bytes 20 to 7E are ASCII in each of them; 80 to FF differ.  Which set is in force is a matter of
// the printer's selection codes, of which only those of the supported sets are known here.
#pragma once

#include <cstdint>
#include <string_view>

namespace tarvordp {

enum class CharacterSet : std::uint8_t { pc437, pc850 };

// Whether the byte prints a character: all but 00 to 1F and 7F.
constexpr bool isPrintable(unsigned char byte) noexcept { return byte >= 0x20 && byte != 0x7F; }

// REQUIRES: isPrintable(byte).
char16_t characterOf(CharacterSet set, unsigned char byte) noexcept;

// The set that the control string selects: the last known selection in it counts; PC437, which is
// where printers start, when there is none.
CharacterSet selectedBy(std::string_view controlString) noexcept;

}  // namespace tarvordp
