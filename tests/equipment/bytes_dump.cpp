#include "equipment/bytes_dump.h"

#include <algorithm>

namespace tarvo::test {
namespace {

void appendNumber(std::string& out, unsigned number) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  out += '<';
  for (int shift = number > 0xFF ? 12 : 4; shift >= 0; shift -= 4) {
    out += kDigits[(number >> shift) & 0xF];
  }
  out += '>';
}

bool isVisible(char16_t character) {
  const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
  const bool looksEmpty = character == 0xA0 || character == 0xAD;
  const bool isMark = character == u'<' || character == u'"';
  return !isControl && !looksEmpty && !isMark;
}

bool isSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }
bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

}  // namespace

std::string bytesDump(std::string_view bytes) {
  std::string dump;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    const bool isLastBlank = byte == ' ' && i + 1 == bytes.size();
    if (byte >= ' ' && byte < 0x7F && byte != '<' && !isLastBlank) {
      dump += bytes[i];
    } else {
      appendNumber(dump, byte);
    }
    if (byte == '\n') dump += '\n';
  }
  if (!dump.empty() && dump.back() != '\n') dump += '\n';
  return dump;
}

std::string inQuotes(TextView text) {
  std::string out = "\"";
  while (!text.empty()) {
    const bool isPair = isHighSurrogate(text[0]) && text.size() > 1 && isSurrogate(text[1]) &&
                        !isHighSurrogate(text[1]);
    if (isPair || (isVisible(text[0]) && !isSurrogate(text[0]))) {
      out += toUtf8(text.substr(0, isPair ? 2 : 1));
    } else {
      appendNumber(out, text[0]);
    }
    text.remove_prefix(isPair ? 2 : 1);
  }
  return out + '"';
}

}  // namespace tarvo::test
