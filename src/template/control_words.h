// The words that a template writes in a variable's place to steer the printer, in the order in
// which they are tried.  See clsObLineCharacts::fSpecialVarIsAnyControlChar for what each does.
//
// A word is compared in capitals, without blanks at its ends.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "frame/text.h"

namespace tarvo {

// A line whose first characters but blanks are these is a comment.
inline constexpr TextView kCommentMark = u"...";

// A comment that says this alone asks for a pause.
inline constexpr TextView kPauseWord = u"PAUSA";

// A variable whose name begins with it is a constant, or free: it has no record part.
inline constexpr char16_t kFreeMark = u'@';

enum class Control : std::uint8_t {
  kNone,
  kSkipPoints,
  kSkipLines,
  kCondensed,
  kInitExpanded,
  kEndExpanded,
  kNormal,
  kBold,
  kLight,
  kBlanks,
  kSkipPage,
  kTab,
  kRepeat,
  kInitUnderline,
  kEndUnderline,
};
inline constexpr std::size_t kControls = static_cast<std::size_t>(Control::kEndUnderline) + 1;

struct ControlWord {
  Control control;
  TextView word;
  TextView otherWord;  // empty: it has none
};

inline constexpr std::array<ControlWord, 14> kControlWords{
    {{Control::kSkipPoints, u"SNP", u"SALTANPUNTOS"},
     {Control::kSkipLines, u"SNL", u"SALTANLINEAS"},
     {Control::kCondensed, u"COMP", u"COMPRIMIDO"},
     {Control::kInitExpanded, u"EXPANDIDO", u""},
     {Control::kEndExpanded, u"FINEXPANDIDO", u""},
     {Control::kNormal, u"NORM", u"NORMAL"},
     {Control::kBold, u"NEGRA", u"BOLD"},
     {Control::kLight, u"BLANCA", u"LIGHT"},
     {Control::kBlanks, u"NB", u"NBLANCOS"},
     {Control::kSkipPage, u"SALTAPAGINA", u""},
     {Control::kTab, u"TAB", u""},
     {Control::kRepeat, u"REPEAT", u""},
     {Control::kInitUnderline, u"SUBRAYADO", u""},
     {Control::kEndUnderline, u"FINSUBRAYADO", u""}}};

// `word` in capitals, without blanks at its ends.
constexpr Control controlOf(TextView word) noexcept {
  if (word.empty()) return Control::kNone;
  for (const ControlWord& known : kControlWords) {
    if (word == known.word || word == known.otherWord) return known.control;
  }
  return Control::kNone;
}

}  // namespace tarvo
