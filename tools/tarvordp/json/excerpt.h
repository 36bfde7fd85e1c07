// What somebody wrote, as a message repeats it.
#pragma once

#include <string>
#include <string_view>

namespace tarvordp {

// The text itself; of one of more than 60 bytes the first 40 or so, never part of a character, and
// its size.
inline std::string excerpt(std::string_view text) {
  constexpr std::size_t kLongest = 60;
  constexpr std::size_t kKept = 40;
  if (text.size() <= kLongest) return std::string(text);
  const auto continuesCharacter = [](char c) { return (static_cast<unsigned char>(c) >> 6) == 2; };
  std::size_t kept = kKept;
  while (kept > 0 && continuesCharacter(text[kept])) --kept;
  return std::string(text.substr(0, kept)) + "... (" + std::to_string(text.size()) + " bytes)";
}

// The same in quotation marks.
inline std::string quotedExcerpt(std::string_view text) { return '"' + excerpt(text) + '"'; }

}  // namespace tarvordp
