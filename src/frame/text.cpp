#include "frame/text.h"

#include <algorithm>
#include <cstdint>

namespace tarvo {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void appendUtf8(std::string& out, char32_t point) {
  const auto tail = [&out, point](int shift) {
    out.push_back(static_cast<char>(0x80 | ((point >> shift) & 0x3F)));
  };
  if (point < 0x80) {
    out.push_back(static_cast<char>(point));
  } else if (point < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (point >> 6)));
    tail(0);
  } else if (point < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (point >> 12)));
    tail(6);
    tail(0);
  } else {
    out.push_back(static_cast<char>(0xF0 | (point >> 18)));
    tail(12);
    tail(6);
    tail(0);
  }
}

void appendUtf16(Text& out, char32_t point) {
  if (point < 0x10000) {
    out.push_back(static_cast<char16_t>(point));
    return;
  }
  point -= 0x10000;
  out.push_back(static_cast<char16_t>(0xD800 + (point >> 10)));
  out.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
}

struct Utf8Shape {
  int tailBytes;
  char32_t leadBits;
  char32_t smallest;  // anything below was written longer than it needs
};

// A lead byte that starts no sequence has -1 tail bytes.
Utf8Shape shapeOf(std::uint8_t lead) {
  if (lead < 0x80) return {0, lead, 0};
  if (lead >= 0xC0 && lead < 0xE0) return {1, lead & 0x1Fu, 0x80};
  if (lead >= 0xE0 && lead < 0xF0) return {2, lead & 0x0Fu, 0x800};
  if (lead >= 0xF0 && lead < 0xF8) return {3, lead & 0x07u, 0x10000};
  return {-1, 0, 0};
}

// Reads one code point at the front of `utf8`; `used` is how many bytes it took (at least 1).
char32_t readUtf8(std::string_view utf8, std::size_t& used) {
  used = 1;
  const Utf8Shape shape = shapeOf(static_cast<std::uint8_t>(utf8[0]));
  if (shape.tailBytes < 0 || utf8.size() <= static_cast<std::size_t>(shape.tailBytes)) {
    return kReplacement;
  }
  char32_t point = shape.leadBits;
  for (int i = 1; i <= shape.tailBytes; ++i) {
    const auto byte = static_cast<std::uint8_t>(utf8[static_cast<std::size_t>(i)]);
    if ((byte & 0xC0) != 0x80) return kReplacement;
    point = (point << 6) | (byte & 0x3Fu);
  }
  const bool isSurrogate = point >= 0xD800 && point <= 0xDFFF;
  if (point < shape.smallest || point > 0x10FFFF || isSurrogate) return kReplacement;
  used = 1 + static_cast<std::size_t>(shape.tailBytes);
  return point;
}

char32_t lowerAscii(char32_t c) { return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c; }

}  // namespace

std::string toUtf8(TextView text) {
  std::string result;
  toUtf8(text, result);
  return result;
}

void toUtf8(TextView text, std::string& out) {
  // Names and messages are plain ASCII mostly.
  const auto plain = std::find_if(text.begin(), text.end(), [](char16_t c) { return c >= 0x80; });
  out.resize(static_cast<std::size_t>(plain - text.begin()));
  std::transform(text.begin(), plain, out.begin(), [](char16_t c) { return static_cast<char>(c); });
  for (auto i = static_cast<std::size_t>(plain - text.begin()); i < text.size(); ++i) {
    char32_t point = text[i];
    if (isHighSurrogate(point) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
      point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00u);
    } else if (isHighSurrogate(point) || isLowSurrogate(point)) {
      point = kReplacement;
    }
    appendUtf8(out, point);
  }
}

Text fromUtf8(std::string_view utf8) {
  Text out;
  out.reserve(utf8.size());
  while (!utf8.empty()) {
    std::size_t used = 0;
    appendUtf16(out, readUtf8(utf8, used));
    utf8.remove_prefix(used);
  }
  return out;
}

Text fromAscii(std::string_view ascii) { return Text(ascii.begin(), ascii.end()); }

bool equalIgnoringAsciiCase(TextView a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (lowerAscii(a[i]) != lowerAscii(static_cast<unsigned char>(b[i]))) return false;
  }
  return true;
}

}  // namespace tarvo
