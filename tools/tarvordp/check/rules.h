// What is looked for in a template that has been read.  Each adds its findings.
#pragma once

#include "tarvordp/check/sections.h"

namespace tarvordp {

struct Profile;

// What a rule needs.
struct RuleContext {
  const Template& of;
  const Profile* profile;  // null: none was given
  ParserServices& services;
  Findings& findings;
  bool isOtherEncoding = false;  // its letters are not those that the library reads
};

// Attributes of one variable: arguments, values, widths that make no sense.
void checkAttributes(const WrittenLine& line, const WrittenVariable& variable, Findings& findings);

// Values that the library makes without a client: constants, the values of an IIF, patterns.  Gives
// the width that the variable takes at least, whatever its value.
std::size_t checkedMinimumWidth(const WrittenLine& line, const WrittenVariable& variable,
                                TemplateKind kind, Findings& findings);

// Names: control words, library variables, markers, and what nearly is one.
void checkNames(RuleContext& context);

// What control words do to a line: repetition, page breaks, skips; and comments.
void checkControls(RuleContext& context);

// How many lines there are: body lines, records, pages.
void checkPages(RuleContext& context);

// How wide lines are, and what emphasis they leave on.
void checkWidths(RuleContext& context);

// Characters that the printer lacks.
void checkCharacters(RuleContext& context);

}  // namespace tarvordp
