#include "graphic/paged_text.h"

#include <algorithm>
#include <utility>

namespace tarvo {
namespace {

// How many pieces of that length there is room for; one at least.
std::size_t piecesIn(std::int32_t room, std::int32_t piece) noexcept {
  return static_cast<std::size_t>(std::max(1, room / std::max(1, piece)));
}

}  // namespace

std::int32_t PageFormat::baseline() const noexcept {
  const std::int32_t fontHeight = fontSize * kTwipsPerPoint;
  return (rowHeight - fontHeight) / 2 + fontHeight * 4 / 5;
}

std::int32_t PageFormat::printableWidth() const noexcept {
  return std::max(0, width - leftMargin - rightMargin);
}

std::int32_t PageFormat::printableHeight() const noexcept {
  return std::max(0, height - topMargin - bottomMargin);
}

PagedText::PagedText(PageFormat format, std::int32_t boxWidth)
    : format_(std::move(format)),
      columns_(piecesIn(std::min(boxWidth, format_.printableWidth()), format_.columnWidth())),
      rowsPerPage_(piecesIn(format_.printableHeight(), format_.rowHeight)) {}

PagedText::PagedText(const PageFormat& format) : PagedText(format, format.printableWidth()) {}

void PagedText::addRow(TextView text) {
  do {
    const TextView part = text.substr(0, columns_);
    characters_.append(part);
    rowEnds_.push_back(characters_.size());
    text.remove_prefix(part.size());
  } while (!text.empty());
}

std::size_t PagedText::pageCount() const noexcept {
  return std::max<std::size_t>(1, (rowCount() + rowsPerPage_ - 1) / rowsPerPage_);
}

std::size_t PagedText::rowsOnPage(std::size_t page) const noexcept {
  return std::min(rowsPerPage_, rowCount() - page * rowsPerPage_);
}

TextView PagedText::row(std::size_t page, std::size_t row) const noexcept {
  const std::size_t index = page * rowsPerPage_ + row;
  const std::size_t begin = index == 0 ? 0 : rowEnds_[index - 1];
  return TextView(characters_).substr(begin, rowEnds_[index] - begin);
}

}  // namespace tarvo
