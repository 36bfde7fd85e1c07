#include "tarvordp/view/terminal_form.h"

#include <ostream>
#include <string>

#include "frame/text.h"
#include "tarvordp/view/composed_line.h"
#include "tarvordp/view/text_form.h"

namespace tarvordp {
namespace {

constexpr std::size_t kRulerWidth = 80;
constexpr std::size_t kRulerBeginning = 4;
constexpr const char* kRulerPiece = "─";
constexpr const char* kPlain = "\033[0m";
constexpr const char* kDim = "\033[0;2m";

std::string ruler(std::size_t columns) {
  std::string text;
  for (std::size_t i = 0; i < columns; ++i) text += kRulerPiece;
  return text;
}

std::string pageRuler(std::size_t number, std::size_t pages) {
  const std::string title =
      " page " + std::to_string(number) + " of " + std::to_string(pages) + " ";
  return ruler(kRulerBeginning) + title + ruler(kRulerWidth - kRulerBeginning - title.size());
}

// What the terminal is told before a cell.
std::string styleOf(const Cell& cell) {
  if (!cell.unknown.empty()) return kDim;
  std::string style;
  if (cell.look.bold) style += ";1";
  if (cell.look.italic) style += ";3";
  if (cell.look.underlined) style += ";4";
  return style.empty() ? kPlain : "\033[0" + style + "m";
}

std::string shown(const Cell& cell) {
  if (!cell.unknown.empty()) return cell.unknown;
  return tarvo::toUtf8({&cell.character, 1}) + (cell.look.expanded ? " " : "");
}

void writeRow(std::ostream& out, const CellRow& row, bool ansi) {
  std::string style = kPlain;
  for (const Cell& cell : row) {
    const std::string wanted = ansi ? styleOf(cell) : kPlain;
    if (wanted != style) out << wanted;
    style = wanted;
    out << shown(cell);
  }
  if (style != kPlain) out << kPlain;
}

}  // namespace

void writeForTerminal(std::ostream& out, const Page& page, std::size_t number, std::size_t pages,
                      bool ansi) {
  const std::string title = pageRuler(number, pages);
  out << (ansi ? kDim + title + kPlain : title) << '\n';
  for (const Line& line : page.lines) {
    if (isSmallSkip(line)) continue;
    for (const CellRow& row : composed(line)) {
      writeRow(out, row, ansi);
      out << '\n';
    }
  }
}

}  // namespace tarvordp
