#include "on_paper.h"

#include <array>
#include <cstdio>
#include <utility>
#include <vector>

#include "tarvordp/profile/profile.h"

namespace tarvo::test {
namespace {

using tarvordp::ControlCode;

struct Code {
  std::string bytes;
  std::string word;
};

struct Letter {
  unsigned char byte;
  const char* utf8;
};

// The letters of the PC character set that the library knows.
constexpr std::array<Letter, 8> kLetters{{{0xA0, "á"},
                                          {0x82, "é"},
                                          {0xA1, "í"},
                                          {0xA2, "ó"},
                                          {0xA3, "ú"},
                                          {0xA4, "ñ"},
                                          {0xA5, "Ñ"},
                                          {0xA7, "º"}}};

constexpr std::array<std::pair<ControlCode, const char*>, 12> kWords{
    {{ControlCode::formFeed, "<FF>"},
     {ControlCode::condensed, "<COMPRIMIDO>"},
     {ControlCode::normal, "<NORMAL>"},
     {ControlCode::initExpanded, "<EXPANDIDO>"},
     {ControlCode::endExpanded, "<FINEXPANDIDO>"},
     {ControlCode::bold, "<NEGRA>"},
     {ControlCode::light, "<BLANCA>"},
     {ControlCode::reset, "<RESET>"},
     {ControlCode::initUnderlying, "<SUBRAYADO>"},
     {ControlCode::endUnderlying, "<FINSUBRAYADO>"},
     {ControlCode::highLine1Point, "<1PT>"},
     {ControlCode::highLine12Points, "<12PT>"}}};

std::vector<Code> codesOf(const tarvordp::Profile& profile) {
  std::vector<Code> codes;
  for (const auto& [code, word] : kWords) {
    std::string bytes;
    for (const char16_t character : profile.code(code)) bytes += static_cast<char>(character);
    if (!bytes.empty()) codes.push_back({bytes, word});
  }
  return codes;
}

// The longest code at the front; null when none is there.
const Code* codeAt(std::string_view bytes) {
  static const std::vector<Code> kCodes = codesOf(tarvordp::findProfile(kGuideProfile, ""));
  const Code* longest = nullptr;
  for (const Code& each : kCodes) {
    const bool isLonger = longest == nullptr || each.bytes.size() > longest->bytes.size();
    if (isLonger && bytes.starts_with(each.bytes)) longest = &each;
  }
  return longest;
}

std::string shown(unsigned char byte) {
  for (const Letter& each : kLetters) {
    if (each.byte == byte) return each.utf8;
  }
  if (byte >= ' ' && byte < 0x7F && byte != '<') return {static_cast<char>(byte)};
  std::array<char, 8> number{};
  std::snprintf(number.data(), number.size(), "<%02X>", byte);
  return number.data();
}

// Shows the blanks at the end, and ends the line.
void endLine(std::string& text) {
  std::size_t blanks = 0;
  for (; !text.empty() && text.back() == ' '; text.pop_back()) ++blanks;
  while (blanks-- > 0) text += "·";
  text += '\n';
}

std::string words(std::string_view bytes) {
  std::string text;
  std::string line;
  while (!bytes.empty()) {
    if (bytes.starts_with("\r\n")) {
      endLine(line);
      text += std::exchange(line, {});
      bytes.remove_prefix(2);
    } else if (const Code* code = codeAt(bytes)) {
      line += code->word;
      bytes.remove_prefix(code->bytes.size());
    } else {
      line += shown(static_cast<unsigned char>(bytes.front()));
      bytes.remove_prefix(1);
    }
  }
  if (!line.empty()) text += line + "<OPEN>\n";
  return text;
}

std::string takeEnds(std::string text, const std::string& begin, const std::string& end) {
  const bool hasBoth =
      text.size() >= begin.size() + end.size() && text.starts_with(begin) && text.ends_with(end);
  if (!hasBoth) return "not a whole report:\n" + text;
  return text.substr(begin.size(), text.size() - begin.size() - end.size());
}

}  // namespace

std::string onPaper(std::string_view bytes, ReportEnd end) {
  const std::string begin = "<RESET><NORMAL>";
  switch (end) {
    case ReportEnd::kOfForm:
      return takeEnds(words(bytes), begin, "<NORMAL><FF><OPEN>\n");
    case ReportEnd::kOfPages:
      return takeEnds(words(bytes), begin, "<NORMAL><FF><RESET><OPEN>\n");
    case ReportEnd::kOfUnlimitedPage:
      return takeEnds(words(bytes), begin, "<NORMAL>\n\n\n\n\n<RESET><OPEN>\n");
  }
  return "";
}

}  // namespace tarvo::test
