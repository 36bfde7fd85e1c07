#include "tarvordp/profile/code_text.h"

#include <array>

#include "tarvordp/hex_byte.h"

namespace tarvordp {
namespace {

constexpr std::array<std::string_view, 33> kControlNames{
    "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "HT",  "LF",
    "VT",  "FF",  "CR",  "SO",  "SI",  "DLE", "DC1", "DC2", "DC3", "DC4", "NAK",
    "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US",  "SP"};
constexpr unsigned char kDelete = 0x7F;

template <class Name>
std::string joined(std::string_view bytes, Name name) {
  std::string text;
  for (const char byte : bytes) {
    if (!text.empty()) text += ' ';
    text += name(static_cast<unsigned char>(byte));
  }
  return text;
}

}  // namespace

std::string hexOf(std::string_view bytes) { return joined(bytes, hexOfByte); }

std::string nameOfByte(unsigned char byte) {
  if (byte < kControlNames.size()) return std::string(kControlNames[byte]);
  if (byte == kDelete) return "DEL";
  return byte < kDelete ? std::string(1, static_cast<char>(byte)) : hexOfByte(byte);
}

std::string readableOf(std::string_view bytes) { return joined(bytes, nameOfByte); }

}  // namespace tarvordp
