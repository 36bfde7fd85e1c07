#include "tarvordp/view/composed_line.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarvordp {
namespace {

constexpr char16_t kBlank = u' ';
constexpr char16_t kUnderscore = u'_';
constexpr char16_t kNothing = 0;

// A row, or what one pass of the print head leaves.  Unknown codes take no room, so they are no
// matter of where characters stand.
struct Layer {
  CellRow characters;  // from left to right
  CellRow unknown;     // as they were printed
};

void append(Layer& layer, const Run& run) {
  if (!run.unknown.empty()) {
    layer.unknown.push_back({run.x, run.look, kBlank, kNothing, shownBetweenBrackets(run.unknown)});
    return;
  }
  int x = run.x;
  char16_t tab = u'\t';
  for (const char16_t character : run.text) {
    const char16_t printed = run.isTab ? std::exchange(tab, kNothing) : character;
    layer.characters.push_back({x, run.look, character, printed, {}});
    x += run.look.width;
  }
}

bool isUnseen(const Cell& cell) { return cell.character == kBlank && !cell.look.underlined; }

int endOf(const CellRow& row) { return row.empty() ? 0 : row.back().x + row.back().look.width; }

// The cell that begins at the same place; the end when there is none.
CellRow::iterator sameCell(const Cell& cell, CellRow& row) {
  const auto at = std::ranges::lower_bound(row, cell.x, {}, &Cell::x);
  return at != row.end() && at->x == cell.x ? at : row.end();
}

bool makeOne(const Cell& under, const Cell& over) {
  if (under.look.width != over.look.width) return isUnseen(under);
  const auto givesWay = [](char16_t c) { return c == kBlank || c == kUnderscore; };
  return under.character == over.character || givesWay(under.character) || givesWay(over.character);
}

bool joins(const Cell& cell, CellRow& row) {
  if (isUnseen(cell)) return true;
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
  const auto under = sameCell(cell, row);
  if (under != row.end()) return joinCharacter(*under, cell);
  if (cell.x >= endOf(row)) row.push_back(cell);
}

// False, and nothing is done: it would cover what is there.
bool joinPass(Layer& row, Layer& pass) {
  const bool joinsAll = std::ranges::all_of(
      pass.characters, [&](const Cell& cell) { return joins(cell, row.characters); });
  if (!joinsAll) return false;
  if (row.characters.empty()) {
    row.characters = std::move(pass.characters);
  } else {
    for (const Cell& cell : pass.characters) join(cell, row.characters);
  }
  std::ranges::move(pass.unknown, std::back_inserter(row.unknown));
  return true;
}

// A code stands before the character at its place.
CellRow cellsOf(Layer& layer) {
  std::ranges::stable_sort(layer.unknown, {}, &Cell::x);
  CellRow cells;
  cells.reserve(layer.unknown.size() + layer.characters.size());
  std::ranges::merge(std::make_move_iterator(layer.unknown.begin()),
                     std::make_move_iterator(layer.unknown.end()),
                     std::make_move_iterator(layer.characters.begin()),
                     std::make_move_iterator(layer.characters.end()), std::back_inserter(cells), {},
                     &Cell::x, &Cell::x);
  return cells;
}

}  // namespace

std::vector<CellRow> composed(const Line& line) {
  std::vector<Layer> layers(1);
  for (auto run = line.runs.begin(); run != line.runs.end();) {
    const int number = run->pass;
    Layer pass;
    for (; run != line.runs.end() && run->pass == number; ++run) append(pass, *run);
    if (!joinPass(layers.back(), pass)) layers.push_back(std::move(pass));
  }
  std::vector<CellRow> rows;
  rows.reserve(layers.size());
  for (Layer& layer : layers) rows.push_back(cellsOf(layer));
  return rows;
}

}  // namespace tarvordp
