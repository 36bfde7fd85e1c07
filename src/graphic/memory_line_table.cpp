#include "graphic/memory_line_table.h"

#include <vector>

namespace tarvo {
namespace {

class MemoryLineTable final : public LineTable {
 public:
  void addRow(TextView text) override {
    requireOpen();
    if (text.size() > kLongestLine) refuseLongLine();
    // Also drops what a call that found no memory has left.
    characters_.resize(rowEnds_.empty() ? 0 : rowEnds_.back());
    characters_.append(text);
    rowEnds_.push_back(characters_.size());
    present_ = rowEnds_.size() - 1;
  }

  void moveFirst() override {
    requireOpen();
    present_ = 0;
  }

  bool atEnd() override {
    requireOpen();
    return present_ >= rowEnds_.size();
  }

  void text(Text& result) override {
    requireRow();
    const std::size_t begin = present_ == 0 ? 0 : rowEnds_[present_ - 1];
    result.assign(characters_, begin, rowEnds_[present_] - begin);
  }

  void moveNext() override {
    requireRow();
    ++present_;
  }

  bool isOpen() noexcept override { return isOpen_; }

  void close() override {
    requireOpen();
    isOpen_ = false;
    characters_ = Text();
    rowEnds_ = {};
  }

 private:
  void requireOpen() const {
    if (!isOpen_) refuseClosedTable();
  }
  void requireRow() {
    if (atEnd()) refuseWithoutRow();
  }

  bool isOpen_ = true;
  Text characters_;  // of all rows, one behind the other
  std::vector<std::size_t> rowEnds_;
  std::size_t present_ = 0;
};

}  // namespace

Ref<LineTable> makeMemoryLineTable() { return make<MemoryLineTable>(); }

}  // namespace tarvo
