// A template's lines, and the sections into which a master-detail report cuts them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "tarvordp/check/written_line.h"

namespace tarvordp {

enum class TemplateKind : std::uint8_t { kForm, kMasterDetail };

enum class Section : std::uint8_t {
  kSheet,  // every line of a form
  kHeader,
  kBodyMarker,
  kBody,
  kInsertBodyMarker,
  kInsertBody,
  kEndOfBodyMarker,
  kFooter
};

// Whether its lines are printed; a marker's are not.
bool isPrinted(Section section);

// The lines as the reports read them: in code page 1252, ended by LF or CR LF; what follows the
// last line end is a line unless it is empty.
std::vector<tarvo::Text> templateLines(std::string_view bytes);

// A master-detail report's, when it has one of its markers or constants.
TemplateKind guessedKind(const std::vector<tarvo::Text>& lines);

struct TemplateLine {
  Section section;
  WrittenLine line;  // of a marker, the text alone
};

// What stands in the leading constant lines.
struct PageConstants {
  bool isHalfLetter = false;
  std::optional<int> maxLinPage;
};

struct Template {
  TemplateKind kind = TemplateKind::kForm;
  std::vector<TemplateLine> lines;
  PageConstants constants;
  std::optional<int> bodyLines;  // none: no marker, or its number cannot be read
};

// Tells what is wrong with markers and constants, and with each line's braces and variables.
Template readTemplate(const std::vector<tarvo::Text>& lines, TemplateKind kind,
                      ParserServices& services, Findings& findings);

}  // namespace tarvordp
