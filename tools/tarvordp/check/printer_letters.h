// The letters of line printers: what a byte prints as in the two character sets that the shipped
// profiles choose.
#pragma once

#include <cstdint>

#include "frame/text.h"

namespace tarvordp {

enum class PrinterSet : std::uint8_t { kPc437, kPc850 };

char16_t printedCharacter(PrinterSet set, std::uint8_t byte);
bool hasCharacter(PrinterSet set, char16_t character);
const char* nameOf(PrinterSet set);

// The set that a profile's ChrInternationalChars chooses: PC850 when it asks for it, else PC437.
PrinterSet setChosenBy(tarvo::TextView internationalChars);

}  // namespace tarvordp
