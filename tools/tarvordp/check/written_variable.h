// A special variable as it is written in a template line: what the library understands of it, and
// where in the line each part of it stands.
//
// The reading is the library's own, attribute by attribute; what is added is the places, and what
// the library would tell the operator, or fail with, as findings.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "tarvordp/check/findings.h"
#include "tarvordp/check/parser_services.h"
#include "template/clsObSpecialVar.h"

namespace tarvordp {

// Indexes are those of the line, from 0.
struct WrittenArgument {
  std::size_t open = 0;
  std::optional<std::size_t> close;  // none: the ")" is missing
  tarvo::Text text;                  // between the parentheses; empty when one is missing
};

struct WrittenAttribute {
  std::size_t at = 0;
  tarvo::Text word;  // in capitals, without blanks at its ends
  bool isKnown = false;
  std::optional<WrittenArgument> argument;
};

struct WrittenVariable {
  std::size_t open = 0;  // of its braces
  std::size_t close = 0;
  tarvo::Ref<tarvo::clsObSpecialVar> parsed;
  std::vector<WrittenAttribute> attributes;
  bool wasRead = true;  // false: reading it ends in an error, or goes astray

  bool isConstant() const { return parsed->GetFieldName().starts_with(u'@'); }
};

// Reads the variable between the two braces.
// REQUIRES: no brace stands between them.
WrittenVariable readVariable(tarvo::TextView line, std::size_t lineNumber, std::size_t open,
                             std::size_t close, ParserServices& services, Findings& findings);

}  // namespace tarvordp
