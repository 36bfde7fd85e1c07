#include "tarvordp/view/text_form.h"

#include <ostream>
#include <string>

#include "frame/text.h"
#include "tarvordp/view/composed_line.h"

namespace tarvordp {
namespace {

std::string textOf(const CellRow& row) {
  std::string text;
  tarvo::Text characters;
  for (const Cell& cell : row) {
    if (cell.unknown.empty()) {
      if (cell.printed != 0) characters += cell.printed;
      continue;
    }
    text += tarvo::toUtf8(characters) + cell.unknown;
    characters.clear();
  }
  return text + tarvo::toUtf8(characters);
}

void writeLine(std::ostream& out, const Line& line) {
  bool isFirst = true;
  for (const CellRow& row : composed(line)) {
    if (!isFirst) out << '\n';
    out << textOf(row);
    isFirst = false;
  }
  if (!line.goesOn) out << '\n';
}

}  // namespace

bool isSmallSkip(const Line& line) noexcept {
  return line.runs.empty() && line.advance < kPointsPerLine;
}

void writeText(std::ostream& out, const Page& page) {
  for (const Line& line : page.lines) {
    if (!isSmallSkip(line)) writeLine(out, line);
  }
  if (page.ejected) out << '\f';
}

}  // namespace tarvordp
