// Which language of control codes a profile's printer speaks.
//
// A profile has no word for it, so it is known from the profile's own codes: one that only a single
// language has says which.
#pragma once

#include <cstdint>
#include <string_view>

#include "tarvordp/profile/profile.h"

namespace tarvordp {

enum class PrinterLanguage : std::uint8_t { unknown, epson, proprinter, microline };

// "Epson", "IBM Proprinter", "OKI Microline"; "" for unknown.
std::string_view nameOf(PrinterLanguage language) noexcept;

// The one language that has this code for the property; unknown when none has it, or several.
PrinterLanguage languageOfCode(ControlCode code, const tarvo::Text& bytes);

// What the codes of a profile say, in their order.
struct LanguageEvidence {
  PrinterLanguage language = PrinterLanguage::unknown;  // that the first ones agree on
  ControlCode code{};                                   // the last one of those
  PrinterLanguage otherLanguage = PrinterLanguage::unknown;
  ControlCode otherCode{};  // the first one that contradicts them, if otherLanguage is not unknown
};
LanguageEvidence languageEvidenceIn(const Profile& profile);

// Unknown when no code says, and when two contradict each other.
PrinterLanguage languageOf(const Profile& profile);

}  // namespace tarvordp
