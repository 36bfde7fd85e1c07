// What tests of check share: templates typed in UTF-8, and findings as the lines that are shown.
#pragma once

#include <gmock/gmock.h>

#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include "frame/codepage.h"
#include "tarvordp/check/check_template.h"
#include "tarvordp/profile/profile.h"

namespace tarvordp::test {

// In the templates' code page.
inline std::string bytesOf(std::string_view utf8) {
  std::string bytes;
  tarvo::CodePage::windows1252().encode(tarvo::fromUtf8(utf8), bytes);
  return bytes;
}

// Each finding with a line end; the file is named "T".
inline std::string findingsIn(const std::string& bytes, std::optional<TemplateKind> kind = {},
                              const Profile* profile = nullptr) {
  std::ostringstream shown;
  checkTemplate(bytes, kind, profile).write(shown, "T");
  return shown.str();
}

struct CheckCase {
  const char* shows;
  const char* text;      // the template
  const char* findings;  // all of them
};

inline void PrintTo(const CheckCase& each, std::ostream* out) { *out << each.shows; }

}  // namespace tarvordp::test
