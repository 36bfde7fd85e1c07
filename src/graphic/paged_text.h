// Rows of fixed-pitch text laid out on pages, ready for any output: a window, a printer, a file.
//
// Every row has the same height and every character the same width, so a page is a grid, and where
// something stands follows from its numbers.  Nothing is drawn here: see page_output.h for who does
// that, and pdf_writer.h for one that does.
//
// Lengths are twips: 1440 to an inch, 20 to a point.  Pages, rows of a page and columns count from
// 0.  Rows hold the report's characters as they are; an output shows visibleCharacter() of each.
#pragma once

#include <cstdint>
#include <vector>

#include "frame/object.h"
#include "frame/text.h"

namespace tarvo {

inline constexpr std::int32_t kTwipsPerPoint = 20;

// A Letter sheet, upright, and the largest grid for which it has room: 66 rows, as 66 lines of 12
// points fill such a sheet on a line printer, of 120 characters.
struct PageFormat {
  std::int32_t width = 12240;   // of the page as it is read
  std::int32_t height = 15840;  // likewise
  bool landscape = false;       // the sheet lies on its long side; says nothing about the numbers

  std::int32_t leftMargin = 360;
  std::int32_t topMargin = 360;
  std::int32_t rightMargin = 360;
  std::int32_t bottomMargin = 360;

  Text fontName = u"Courier New";  // its characters must all be 0.6 em wide
  std::int16_t fontSize = 8;       // points
  bool bold = false;
  bool italic = false;

  std::int32_t rowHeight = 229;

  // What one character takes: 0.6 em.
  std::int32_t columnWidth() const noexcept { return fontSize * kTwipsPerPoint * 6 / 10; }

  // How far below a row's upper edge its letters stand: they fill the middle of the row.
  std::int32_t baseline() const noexcept;

  // Between the margins; never negative.
  std::int32_t printableWidth() const noexcept;
  std::int32_t printableHeight() const noexcept;
};

// What an output shows in a character's place: for control characters (0 to 31, 127 to 159), which
// have no picture of their own, the bullet U+2022, so that what stands behind keeps its column.
constexpr char16_t visibleCharacter(char16_t character) noexcept {
  const bool isControl = character < u' ' || (character >= 0x7F && character < 0xA0);
  return isControl ? u'\u2022' : character;
}

class PagedText final : public Object {
 public:
  // Rows stand in a text box that begins at the left margin and is `boxWidth` wide, but never wider
  // than the page allows.  A row that has more characters than fit goes on in the next row of the
  // page, as often as it takes: nothing is lost.  At least one row and one column fit.
  PagedText(PageFormat format, std::int32_t boxWidth);

  // The whole width between the margins.
  explicit PagedText(const PageFormat& format);

  // Adds a row of the report behind all others.
  void addRow(TextView text);

  const PageFormat& format() const noexcept { return format_; }

  // Characters in a row of a page.
  std::size_t columns() const noexcept { return columns_; }
  std::size_t rowsPerPage() const noexcept { return rowsPerPage_; }

  // 1 and more: a report without rows is one empty page.
  std::size_t pageCount() const noexcept;

  // How many rows a page has; all but the last are full.  REQUIRES: page < pageCount().
  std::size_t rowsOnPage(std::size_t page) const noexcept;

  // A row of a page, at most columns() characters; valid until the next addRow().
  // REQUIRES: page < pageCount(), row < rowsOnPage(page).
  TextView row(std::size_t page, std::size_t row) const noexcept;

 private:
  std::size_t rowCount() const noexcept { return rowEnds_.size(); }

  PageFormat format_;
  std::size_t columns_;
  std::size_t rowsPerPage_;
  Text characters_;                   // of all rows, one behind the other
  std::vector<std::size_t> rowEnds_;  // of the rows of the pages, in characters_
};

}  // namespace tarvo
