#include "tarvordp/profile/printer_language.h"

#include <algorithm>
#include <vector>

namespace tarvordp {
namespace {

// A language, and the shipped profiles of printers that speak it.
struct Family {
  PrinterLanguage language;
  std::vector<Profile> profiles;
};

const std::vector<Family>& families() {
  static const std::vector<Family> kFamilies{
      {PrinterLanguage::epson, {findProfile("epson-9pin", {}), findProfile("epson-24pin", {})}},
      {PrinterLanguage::proprinter, {findProfile("ibm-proprinter", {})}},
      {PrinterLanguage::microline, {findProfile("oki-microline", {})}}};
  return kFamilies;
}

bool speaks(const Family& family, ControlCode code, const tarvo::Text& bytes) {
  return std::ranges::any_of(family.profiles,
                             [&](const Profile& profile) { return profile.code(code) == bytes; });
}

}  // namespace

std::string_view nameOf(PrinterLanguage language) noexcept {
  switch (language) {
    case PrinterLanguage::epson:
      return "Epson";
    case PrinterLanguage::proprinter:
      return "IBM Proprinter";
    case PrinterLanguage::microline:
      return "OKI Microline";
    case PrinterLanguage::unknown:
      break;
  }
  return "";
}

PrinterLanguage languageOfCode(ControlCode code, const tarvo::Text& bytes) {
  PrinterLanguage found = PrinterLanguage::unknown;
  for (const Family& family : families()) {
    if (bytes.empty() || !speaks(family, code, bytes)) continue;
    if (found != PrinterLanguage::unknown) return PrinterLanguage::unknown;
    found = family.language;
  }
  return found;
}

LanguageEvidence languageEvidenceIn(const Profile& profile) {
  LanguageEvidence seen;
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    const auto code = static_cast<ControlCode>(i);
    const PrinterLanguage said = languageOfCode(code, profile.codes[i]);
    if (said == PrinterLanguage::unknown) continue;
    if (seen.language != PrinterLanguage::unknown && said != seen.language) {
      seen.otherLanguage = said;
      seen.otherCode = code;
      return seen;
    }
    seen.language = said;
    seen.code = code;
  }
  return seen;
}

PrinterLanguage languageOf(const Profile& profile) {
  const LanguageEvidence seen = languageEvidenceIn(profile);
  return seen.otherLanguage == PrinterLanguage::unknown ? seen.language : PrinterLanguage::unknown;
}

}  // namespace tarvordp
