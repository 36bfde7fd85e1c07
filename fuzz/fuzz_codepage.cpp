// The two doors between texts and bytes: the code page and UTF-8, on arbitrary input.
#include <set>
#include <string>

#include "frame/codepage.h"
#include "frame/text.h"
#include "fuzzing.h"

namespace tarvo::fuzz {
namespace {

constexpr std::uint8_t kUnknown = '?';
constexpr char16_t kReplacement = 0xFFFD;

bool isSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }
bool isHigh(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLow(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// The input as units of two bytes.
Text unitsOf(std::string_view bytes) {
  Text units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    units.push_back(static_cast<char16_t>(static_cast<std::uint8_t>(bytes[i]) << 8 |
                                          static_cast<std::uint8_t>(bytes[i + 1])));
  }
  return units;
}

void checkBytesSurvive(const CodePage& page, std::string_view bytes) {
  Text text;
  page.decode(bytes, text);
  require(text.size() == bytes.size(), "each byte is one character");
  std::string back;
  page.encode(text, back);
  require(back == bytes, "bytes survive the way in and out again");
}

void checkTextKeepsItsLength(const CodePage& page, TextView text) {
  std::string bytes = "what was there before";
  page.encode(text, bytes);
  require(bytes.size() == text.size(), "each unit is one byte");
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<std::uint8_t>(bytes[i]);
    require(byte == page.encode(text[i]), "a text is encoded unit by unit");
    require(byte == kUnknown || page.decode(byte) == text[i],
            "a byte stands for its character or is unknown");
  }
}

// A table of 256 different characters: the input's, as far as they differ, and others after them.
CodePage::Characters tableOf(TextView units) {
  CodePage::Characters characters{};
  std::set<char16_t> used;
  char16_t spare = 0;
  for (std::size_t i = 0; i < characters.size(); ++i) {
    char16_t character = i < units.size() ? units[i] : spare;
    while (!used.insert(character).second) character = ++spare;
    characters[i] = character;
  }
  return characters;
}

void checkTable(const CodePage::Characters& characters, TextView text) {
  const CodePage page(characters);
  std::string everyByte;
  for (int byte = 0; byte < 256; ++byte) everyByte.push_back(static_cast<char>(byte));
  checkBytesSurvive(page, everyByte);
  checkTextKeepsItsLength(page, text);
  const std::set<char16_t> known(characters.begin(), characters.end());
  for (const char16_t unit : text) {
    require(known.contains(unit) || page.encode(unit) == kUnknown,
            "a character that the table lacks is unknown");
  }
}

// With characters that stand twice, the first one counts.
void checkTableWithTwins(TextView units) {
  CodePage::Characters characters{};
  for (std::size_t i = 0; i < characters.size(); ++i) {
    characters[i] = units.empty() ? u'x' : units[i % units.size()];
  }
  const CodePage page(characters);
  for (std::size_t i = 0; i < characters.size(); ++i) {
    std::size_t first = 0;
    while (characters[first] != characters[i]) ++first;
    require(page.encode(characters[i]) == first, "of two bytes for a character the first counts");
  }
}

// The well-formed byte sequences of UTF-8 by their ranges, taken off the front; 0 for none.
std::size_t wellFormedLength(std::string_view bytes) {
  struct Row {
    std::uint8_t leadFrom, leadTo, secondFrom, secondTo;
    std::size_t length;
  };
  constexpr Row kRows[] = {
      {0x00, 0x7F, 0x00, 0xFF, 1}, {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
      {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
      {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4}};
  const auto at = [bytes](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
  for (const Row& row : kRows) {
    if (at(0) < row.leadFrom || at(0) > row.leadTo) continue;
    if (row.length > bytes.size()) return 0;
    if (row.length > 1 && (at(1) < row.secondFrom || at(1) > row.secondTo)) return 0;
    for (std::size_t i = 2; i < row.length; ++i) {
      if (at(i) < 0x80 || at(i) > 0xBF) return 0;
    }
    return row.length;
  }
  return 0;
}

void checkFromUtf8(std::string_view bytes) {
  // Every byte that is in no well-formed sequence becomes one replacement.
  std::string expected;
  for (std::string_view rest = bytes; !rest.empty();) {
    const std::size_t length = wellFormedLength(rest);
    expected += length == 0 ? "\xEF\xBF\xBD" : std::string(rest.substr(0, length));
    rest.remove_prefix(length == 0 ? 1 : length);
  }
  const Text text = fromUtf8(bytes);
  require(toUtf8(text) == expected, "good sequences survive, each bad byte is replaced");
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!isSurrogate(text[i])) continue;
    require(isHigh(text[i]) && i + 1 < text.size() && isLow(text[i + 1]),
            "reading UTF-8 makes whole pairs");
    ++i;
  }
}

void checkToUtf8(TextView text) {
  Text expected;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isPair = isHigh(text[i]) && i + 1 < text.size() && isLow(text[i + 1]);
    if (isPair) {
      expected.append(text.substr(i++, 2));
    } else {
      expected.push_back(isSurrogate(text[i]) ? kReplacement : text[i]);
    }
  }
  const std::string utf8 = toUtf8(text);
  for (std::string_view rest = utf8; !rest.empty(); rest.remove_prefix(wellFormedLength(rest))) {
    require(wellFormedLength(rest) > 0, "what is written is UTF-8");
  }
  require(fromUtf8(utf8) == expected, "a text survives, half pairs are replaced");
}

}  // namespace
}  // namespace tarvo::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvo::fuzz;
  const std::string bytes(data, data + size);
  const tarvo::Text units = unitsOf(bytes);
  checkBytesSurvive(tarvo::CodePage::windows1252(), bytes);
  checkTextKeepsItsLength(tarvo::CodePage::windows1252(), units);
  checkTable(tableOf(units), units);
  checkTableWithTwins(units);
  checkFromUtf8(bytes);
  checkToUtf8(units);
  return 0;
}
