// What a client must answer to print a template.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "tarvordp/check/sections.h"

namespace tarvordp {

// A variable of a section; the same one with other attributes is another one.
struct Field {
  std::string record;  // empty: it has none
  std::string name;
  unsigned width = 0;  // 0: as wide as the value
  unsigned decimals = 0;
  std::vector<std::string> hints;
  std::vector<std::size_t> lines;
};

struct FieldsOfSection {
  Section section;
  std::vector<Field> fields;  // in the order in which they are asked for first
};

struct TemplateFields {
  TemplateKind kind;
  std::vector<FieldsOfSection> sections;  // those that ask for any
};

// Control words and constants are not among them; what the report answers itself is, and its hint
// says so.  `findings` gets what is wrong with the file, and with the template's markers, braces
// and attributes.  The kind is guessed.
TemplateFields fieldsOf(std::string_view bytes, Findings& findings);

// As a table for people.
void write(std::ostream& out, const std::string& name, const TemplateFields& fields);

}  // namespace tarvordp
