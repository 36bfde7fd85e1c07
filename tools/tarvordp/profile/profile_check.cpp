#include "tarvordp/profile/profile_check.h"

#include <algorithm>

#include "tarvordp/profile/code_text.h"

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
  std::string names;
  for (std::size_t i = 0; i < group.size(); ++i) {
    if (i > 0) names += i + 1 == group.size() ? " and " : ", ";
    names += name(group[i]);
  }
  return names;
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

// Printers that share their language.
struct Family {
  std::string_view language;
  std::vector<Profile> profiles;
};

const std::vector<Family>& families() {
  static const std::vector<Family> kFamilies{
      {"Epson", {findProfile("epson-9pin", {}), findProfile("epson-24pin", {})}},
      {"IBM Proprinter", {findProfile("ibm-proprinter", {})}},
      {"OKI Microline", {findProfile("oki-microline", {})}}};
  return kFamilies;
}

bool speaks(const Family& family, ControlCode code, const tarvo::Text& bytes) {
  return std::ranges::any_of(family.profiles,
                             [&](const Profile& profile) { return profile.code(code) == bytes; });
}

// The one family that has this code; nullptr when there is none or more than one.
const Family* onlySpeaker(ControlCode code, const tarvo::Text& bytes) {
  const Family* found = nullptr;
  for (const Family& family : families()) {
    if (!speaks(family, code, bytes)) continue;
    if (found != nullptr) return nullptr;
    found = &family;
  }
  return found;
}

void checkLanguages(const Profile& profile, Remarks& remarks) {
  const Family* seen = nullptr;
  ControlCode where{};
  for (std::size_t i = 0; i < kControlCodes; ++i) {
    const Family* family =
        profile.codes[i].empty() ? nullptr : onlySpeaker(codeAt(i), profile.codes[i]);
    if (family == nullptr) continue;
    if (seen != nullptr && family != seen) {
      remarks.push_back({Kind::warning, name(where) + " is a code of " +
                                            std::string(seen->language) + " printers, " +
                                            name(codeAt(i)) + " one of " +
                                            std::string(family->language) +
                                            " printers: no printer speaks both at once."});
      return;
    }
    seen = family;
    where = codeAt(i);
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
  std::stable_partition(remarks.begin(), remarks.end(),
                        [](const ProfileRemark& remark) { return remark.kind == Kind::warning; });
  return remarks;
}

}  // namespace tarvordp
