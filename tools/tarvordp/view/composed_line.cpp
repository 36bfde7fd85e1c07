#include "tarvordp/view/composed_line.h"

#include <algorithm>
#include <utility>

namespace tarvordp {
namespace {

constexpr char16_t kBlank = u' ';
constexpr char16_t kUnderscore = u'_';
constexpr char16_t kNothing = 0;

void append(CellRow& row, const Run& run) {
  if (!run.unknown.empty()) {
    row.push_back({run.x, run.look, kBlank, kNothing, shownBetweenBrackets(run.unknown)});
    return;
  }
  int x = run.x;
  char16_t tab = u'\t';
  for (const char16_t character : run.text) {
    const char16_t printed = run.isTab ? std::exchange(tab, kNothing) : character;
    row.push_back({x, run.look, character, printed, {}});
    x += run.look.width;
  }
}

bool isUnseen(const Cell& cell) {
  return cell.unknown.empty() && cell.character == kBlank && !cell.look.underlined;
}

CellRow::iterator placeOf(const Cell& cell, CellRow& row) {
  return std::ranges::lower_bound(row, cell.x, {}, &Cell::x);
}

// Where the row's last character ends.
int endOf(const CellRow& row) {
  for (auto cell = row.rbegin(); cell != row.rend(); ++cell) {
    if (cell->unknown.empty()) return cell->x + cell->look.width;
  }
  return 0;
}

// The character cell that begins at the same place; the end when there is none.
CellRow::iterator sameCell(const Cell& cell, CellRow& row) {
  auto at = placeOf(cell, row);
  while (at != row.end() && at->x == cell.x && !at->unknown.empty()) ++at;
  return at != row.end() && at->x == cell.x ? at : row.end();
}

bool makeOne(const Cell& under, const Cell& over) {
  if (under.look.width != over.look.width) return isUnseen(under);
  const auto givesWay = [](char16_t c) { return c == kBlank || c == kUnderscore; };
  return under.character == over.character || givesWay(under.character) || givesWay(over.character);
}

bool joins(const Cell& cell, CellRow& row) {
  if (!cell.unknown.empty() || isUnseen(cell)) return true;
  const auto under = sameCell(cell, row);
  return under != row.end() ? makeOne(*under, cell) : cell.x >= endOf(row);
}

void joinCharacter(Cell& under, const Cell& over) {
  if (isUnseen(over)) return;
  if (isUnseen(under)) {
    under = over;
    return;
  }
  const bool isSame = under.character == over.character;
  const bool isLine = under.character == kUnderscore || over.character == kUnderscore;
  under.look.bold = under.look.bold || over.look.bold || isSame;
  under.look.underlined = under.look.underlined || over.look.underlined || (isLine && !isSame);
  under.look.italic = under.look.italic || over.look.italic;
  const bool isCovered = under.character == kUnderscore || under.character == kBlank;
  if (isCovered && over.character != kBlank) under.character = under.printed = over.character;
}

void join(const Cell& cell, CellRow& row) {
  if (!cell.unknown.empty()) {
    row.insert(placeOf(cell, row), cell);
    return;
  }
  const auto under = sameCell(cell, row);
  if (under != row.end()) return joinCharacter(*under, cell);
  if (cell.x >= endOf(row)) row.push_back(cell);
}

}  // namespace

std::vector<CellRow> composed(const Line& line) {
  std::vector<CellRow> rows(1);
  for (auto run = line.runs.begin(); run != line.runs.end();) {
    const int pass = run->pass;
    CellRow cells;
    for (; run != line.runs.end() && run->pass == pass; ++run) append(cells, *run);
    CellRow& row = rows.back();
    if (row.empty()) {
      row = std::move(cells);
    } else if (std::ranges::all_of(cells, [&](const Cell& cell) { return joins(cell, row); })) {
      for (const Cell& cell : cells) join(cell, row);
    } else {
      rows.push_back(std::move(cells));
    }
  }
  return rows;
}

}  // namespace tarvordp
