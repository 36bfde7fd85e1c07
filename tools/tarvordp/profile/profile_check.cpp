#include "tarvordp/profile/profile_check.h"

#include <algorithm>

#include "tarvordp/profile/code_text.h"
#include "tarvordp/profile/printer_language.h"

namespace tarvordp {
namespace {

using Kind = ProfileRemark::Kind;
using Remarks = std::vector<ProfileRemark>;

// Two codes that need each other.
struct Pair {
  ControlCode on;
  ControlCode off;
  std::string_view mode;
};
constexpr Pair kPairs[] = {
    {ControlCode::condensed, ControlCode::normal, "condensed print"},
    {ControlCode::initExpanded, ControlCode::endExpanded, "expanded print"},
    {ControlCode::bold, ControlCode::light, "bold print"},
    {ControlCode::initUnderlying, ControlCode::endUnderlying, "underlined print"},
    {ControlCode::initItalic, ControlCode::endItalic, "italic print"},
    {ControlCode::font12Points, ControlCode::font10Points, "the 12-point font"},
    {ControlCode::highLine1Point, ControlCode::highLine12Points, "the line height of one point"},
};

// Codes that may well be one: on some printers the code for 10 characters an inch ends the others.
constexpr ControlCode kBackToUsual[] = {ControlCode::normal, ControlCode::endExpanded,
                                        ControlCode::font10Points};

constexpr std::string_view kReplacedLetters = "the channel replaces á é í ó ú ñ Ñ º in codes too";

std::string name(ControlCode code) { return std::string(propertyName(code)); }

// "a, b and c"
std::string joinedInWords(const std::vector<std::string>& parts) {
  std::string words;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) words += i + 1 == parts.size() ? " and " : ", ";
    words += parts[i];
  }
  return words;
}

ControlCode codeAt(std::size_t index) { return static_cast<ControlCode>(index); }

std::string profileBytes(const Profile& profile, ControlCode code) {
  std::string bytes;
  for (const char16_t character : profile.code(code)) bytes.push_back(static_cast<char>(character));
  return bytes;
}

bool isInitialString(ControlCode code) {
  return code >= ControlCode::initialString1 && code <= ControlCode::initialString4;
}

void checkNumbers(const Profile& profile, Remarks& remarks) {
  if (!profile.canPrintInTextMode) {
    remarks.push_back({Kind::warning,
                       "CanPrintInTextMode is false: reports are drawn as pages, and none of these "
                       "codes is sent."});
  }
  if (profile.maxLinPage == 0) {
    remarks.push_back({Kind::warning, "MaxLinPage is 0: a report's pages never become full."});
  }
}

void checkPairs(const Profile& profile, Remarks& remarks) {
  for (const Pair& pair : kPairs) {
    const bool on = !profile.code(pair.on).empty();
    const bool off = !profile.code(pair.off).empty();
    if (on && !off) {
      remarks.push_back({Kind::warning, name(pair.on) + " switches " + std::string(pair.mode) +
                                            " on, but " + name(pair.off) +
                                            " is empty: nothing switches it off."});
    } else if (off && !on && pair.on != ControlCode::font12Points) {
      remarks.push_back({Kind::note, name(pair.off) + " ends " + std::string(pair.mode) + ", but " +
                                         name(pair.on) + " is empty: nothing begins it."});
    }
  }
}

// What template words ask for.
constexpr Pair kOfTemplates[] = {
    {ControlCode::condensed, ControlCode::normal, "condensed"},
    {ControlCode::initExpanded, ControlCode::endExpanded, "expanded"},
    {ControlCode::bold, ControlCode::light, "bold"},
    {ControlCode::initUnderlying, ControlCode::endUnderlying, "underlined"},
};

void checkMissing(const Profile& profile, Remarks& remarks) {
  std::vector<std::string> modes;
  for (const Pair& pair : kOfTemplates) {
    if (profile.code(pair.on).empty() && profile.code(pair.off).empty()) {
      modes.emplace_back(pair.mode);
    }
  }
  if (!modes.empty()) {
    remarks.push_back({Kind::note, "There are no codes for " + joinedInWords(modes) +
                                       " print: template words that ask for it send nothing."});
  }
  if (profile.code(ControlCode::highLine1Point).empty()) {
    remarks.push_back({Kind::note,
                       "ChrHighLine1Point is empty: a skip of points moves the paper by as many "
                       "whole lines."});
  }
}

bool isBackToUsual(ControlCode code) {
  return std::ranges::find(kBackToUsual, code) != std::end(kBackToUsual);
}

using CodeGroup = std::vector<ControlCode>;

// The codes that are set, each group of equal ones together.
std::vector<CodeGroup> groupsOfEqualCodes(const Profile& profile) {
  std::vector<CodeGroup> groups;
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    const ControlCode code = codeAt(i);
    if (profile.code(code).empty()) continue;
    const auto group = std::ranges::find_if(groups, [&](const CodeGroup& each) {
      return bytesSent(profile, each.front()) == bytesSent(profile, code);
    });
    if (group == groups.end()) {
      groups.push_back({code});
    } else {
      group->push_back(code);
    }
  }
  return groups;
}

std::string namesOf(const CodeGroup& group) {
  std::vector<std::string> names;
  for (const ControlCode code : group) names.push_back(name(code));
  return joinedInWords(names);
}

void checkEqualCodes(const Profile& profile, Remarks& remarks) {
  for (const CodeGroup& group : groupsOfEqualCodes(profile)) {
    if (group.size() < 2) continue;
    const bool isUsual = std::ranges::all_of(group, isBackToUsual);
    remarks.push_back({isUsual ? Kind::note : Kind::warning,
                       namesOf(group) + " are the same code (" +
                           hexOf(bytesSent(profile, group.front())) + "): " +
                           (isUsual ? "whichever is sent, the printer does all of it."
                                    : "the printer cannot tell them apart.")});
  }
}

// Resets and initial strings are made of other codes.
bool mayHoldOthers(ControlCode code) { return code == ControlCode::reset || isInitialString(code); }

void checkBeginnings(const Profile& profile, Remarks& remarks) {
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    const std::string part = bytesSent(profile, codeAt(i));
    for (std::size_t j = 0; j < kControlCodes && !part.empty(); ++j) {
      const std::string whole = bytesSent(profile, codeAt(j));
      if (mayHoldOthers(codeAt(j)) || whole == part || !whole.starts_with(part)) continue;
      remarks.push_back({Kind::warning, name(codeAt(i)) + " (" + hexOf(part) +
                                            ") is the beginning of " + name(codeAt(j)) + " (" +
                                            hexOf(whole) + "): is its last part missing?"});
    }
  }
}

void checkBytes(const Profile& profile, Remarks& remarks) {
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    const ControlCode code = codeAt(i);
    const std::string bytes = profileBytes(profile, code);
    if (bytes.empty()) continue;
    const auto first = static_cast<unsigned char>(bytes.front());
    if (first >= 0x20 && first < 0x7F) {
      remarks.push_back(
          {Kind::warning, name(code) + " begins with the character " + nameOfByte(first) +
                              ", which is printed: is \"\\u001b\" missing before it?"});
    }
    const std::string sent = bytesSent(profile, code);
    const auto differ = std::ranges::mismatch(bytes, sent);
    if (differ.in1 == bytes.end()) continue;
    remarks.push_back({Kind::warning, name(code) + " has the byte " + hexOf({&*differ.in1, 1}) +
                                          ", which leaves as " + hexOf({&*differ.in2, 1}) + ": " +
                                          std::string(kReplacedLetters) + "."});
  }
}

void checkLanguages(const Profile& profile, Remarks& remarks) {
  const LanguageEvidence seen = languageEvidenceIn(profile);
  if (seen.otherLanguage == PrinterLanguage::unknown) return;
  remarks.push_back({Kind::warning, name(seen.code) + " is a code of " +
                                        std::string(nameOf(seen.language)) + " printers, " +
                                        name(seen.otherCode) + " one of " +
                                        std::string(nameOf(seen.otherLanguage)) +
                                        " printers: no printer speaks both at once."});
}

// ESC R chooses one of a dozen nations' letters in the place of brackets and the like.
void checkNationalSets(const Profile& profile, Remarks& remarks) {
  static constexpr std::string_view kChooses = "\x1BR";
  if (languageOf(profile) != PrinterLanguage::epson) return;
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    const std::string bytes = bytesSent(profile, codeAt(i));
    const std::size_t found = bytes.rfind(kChooses);
    const std::size_t number = found + kChooses.size();
    if (found == std::string::npos || number >= bytes.size() || bytes[number] == 0) continue;
    remarks.push_back(
        {Kind::warning, name(codeAt(i)) + " chooses a nation's letters (" +
                            hexOf(bytes.substr(found, kChooses.size() + 1)) +
                            "): some of # $ @ [ \\ ] ^ ` { | } ~ print as others; 1B 52 00 leaves "
                            "them."});
  }
}

}  // namespace

std::vector<ProfileRemark> checkProfile(const Profile& profile) {
  Remarks remarks;
  checkNumbers(profile, remarks);
  checkPairs(profile, remarks);
  checkEqualCodes(profile, remarks);
  checkBeginnings(profile, remarks);
  checkBytes(profile, remarks);
  checkLanguages(profile, remarks);
  checkNationalSets(profile, remarks);
  checkMissing(profile, remarks);
  std::stable_partition(remarks.begin(), remarks.end(),
                        [](const ProfileRemark& remark) { return remark.kind == Kind::warning; });
  return remarks;
}

}  // namespace tarvordp
