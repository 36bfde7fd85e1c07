#include "tarvordp/json/json_mistake.h"

#include <algorithm>
#include <array>

#include "tarvordp/hex_byte.h"
#include "tarvordp/utf8_letter.h"

namespace tarvordp {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

bool holds(std::string_view text, std::string_view part) { return text.find(part) != kNone; }

// The first byte that begins no letter; the text's size when all do.
std::size_t endOfUtf8(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t size = sizeOfLetter(text.substr(at));
    if (size == 0) break;
    at += size;
  }
  return at;
}

// What stands where the library expects that its container goes on or ends; empty: something that
// begins no value.
std::string valueAfterValue(std::string_view reason) {
  struct Token {
    std::string_view name, shown;
  };
  constexpr std::array kTokens = std::to_array<Token>({{"string literal", "text"},
                                                       {"number literal", "number"},
                                                       {"true literal", "true"},
                                                       {"false literal", "false"},
                                                       {"null literal", "null"},
                                                       {"'['", "'['"},
                                                       {"'{'", "'{'"}});
  for (const Token& each : kTokens) {
    if (holds(reason, "- unexpected " + std::string(each.name) + ";")) {
      return std::string(each.shown);
    }
  }
  return {};
}

// Of the kind that word processors and other languages write.
bool isOtherQuotationMark(std::string_view text) {
  return text.starts_with('\'') || text.starts_with("\u2018") || text.starts_with("\u2019") ||
         text.starts_with("\u201C") || text.starts_with("\u201D");
}

// Empty: none of the commonest mistakes.
std::string inOwnWords(const JsonMistake& mistake) {
  const std::string_view reason = mistake.reason;
  if (holds(reason, "parsing object key - unexpected '}'")) return "there is a comma before '}'";
  if (holds(reason, "parsing object key - unexpected number literal")) {
    return "a name in quotation marks must stand here, not a number; decimals are written behind a "
           "full stop: 1250.50";
  }
  if (mistake.isBehindElement && holds(reason, "parsing value - unexpected ']'")) {
    return "there is a comma before ']'";
  }
  for (const char end : {'}', ']'}) {
    const bool isInside = holds(reason, end == '}' ? "parsing object -" : "parsing array -");
    const std::string value = isInside ? valueAfterValue(reason) : "";
    if (value.empty()) continue;
    return std::string("a comma or '").append(1, end).append("' is missing before this ") + value;
  }
  if (mistake.position > 0 && holds(reason, "invalid literal") &&
      isOtherQuotationMark(mistake.text.substr(mistake.position - 1))) {
    return "quotation marks are written \" here";
  }
  return {};
}

std::string withoutOtherBytes(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const std::size_t size = sizeOfLetter(text);
    if (size > 0) {
      plain += text.substr(0, size);
    } else {
      plain.append("\\x").append(hexOfByte(static_cast<unsigned char>(text[0])));
    }
    text.remove_prefix(std::max<std::size_t>(size, 1));
  }
  return plain;
}

}  // namespace

std::string describe(const JsonMistake& mistake) {
  const std::size_t end = endOfUtf8(mistake.text);
  if (end < std::min(mistake.position, mistake.text.size())) {
    const auto line = std::ranges::count(mistake.text.substr(0, end), '\n') + 1;
    return "line " + std::to_string(line) + ": this is not UTF-8: save the file as UTF-8";
  }
  // "[json.exception.parse_error.101] parse error at line 1, column 2: ..."
  std::string_view reason = mistake.reason;
  if (const auto head = reason.find("] "); head != kNone) reason.remove_prefix(head + 2);
  constexpr std::string_view kBegin = "parse error at ";
  const std::string own = inOwnWords(mistake);
  if (own.empty() || !reason.starts_with(kBegin)) {
    return "this is not JSON: " + withoutOtherBytes(reason);
  }
  reason.remove_prefix(kBegin.size());
  return "this is not JSON: " + std::string(reason.substr(0, reason.find(':') + 1)) + " " + own;
}

}  // namespace tarvordp
