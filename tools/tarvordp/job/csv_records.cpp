#include "tarvordp/job/csv_records.h"

#include <cstdint>
#include <utility>

#include "tarvordp/job/amount.h"
#include "tarvordp/job/column.h"
#include "tarvordp/job/csv_rows.h"
#include "tarvordp/job/file_stamp.h"

namespace tarvordp {
namespace {

std::string counted(std::size_t count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

class CsvRecords final : public RecordSource {
 public:
  CsvRecords(const std::string& path, const JsonValue& where)
      : path_(path), where_(where), stamp_(FileStamp::settled(path)) {
    told([&] { rows_ = std::make_unique<CsvRows>(path); });
    told([&] { readNames(); });
  }

  void restart() override {
    told([&] {
      rows_->restart();
      rows_->next(row_);
    });
  }

  bool next(Record& record) override {
    return told([&] {
      const bool isThere = rows_->next(row_);
      if (!isThere || ++rowsRead_ % kLookEvery == 0) requireUnchanged();
      if (isThere) readRow(record);
      return isThere;
    });
  }

  [[noreturn]] void mistake(const std::string& whatIsWrong) const override {
    mistakeAt(row_.line, whatIsWrong);
  }

  std::string doubt() const override {
    return otherSeparator_.empty() ? "" : path_ + ": " + notByCommas();
  }

 private:
  // Looking at a file takes longer than reading a row of it; at the end it is always done.
  static constexpr std::uint64_t kLookEvery = 256;

  // What is wrong is told with the file and the line.
  template <class Action>
  auto told(Action&& action) -> decltype(action()) {
    try {
      return action();
    } catch (const CsvError& wrong) {
      requireUnchanged();
      mistakeAt(wrong.line(), wrong.what());
    } catch (const BadValue& wrong) {
      requireUnchanged();
      if (otherSeparator_.empty()) mistake(wrong.what());
      mistakeAt(1, notByCommas());
    }
  }

  // Rows of two states of the file are no table.
  void requireUnchanged() const {
    if (FileStamp::of(path_) == stamp_) return;
    where_.mistake(path_ + ": somebody changed the file while it was read: print again");
  }

  [[noreturn]] void mistakeAt(std::uint64_t line, const std::string& whatIsWrong) const {
    if (line == 0) where_.mistake(whatIsWrong);
    where_.mistake(path_ + ": line " + std::to_string(line) + ": " + whatIsWrong);
  }

  void readNames() {
    if (!rows_->next(row_)) where_.mistake(path_ + ": there is no row of column names");
    otherSeparator_ = otherSeparatorIn(row_.cells);
    auto names = std::make_shared<RecordNames>();
    for (const std::string& cell : row_.cells) {
      columns_.push_back(readColumn(cell));
      names->add(columns_.back().name);
    }
    names_ = std::move(names);
  }

  void readRow(Record& record) const {
    if (row_.cells.size() != columns_.size()) throw BadValue(wrongSize());
    record.names = names_;
    record.values.clear();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      record.values.push_back(valueOf(row_.cells[i], columns_[i]));
    }
  }

  std::string notByCommas() const {
    return "columns are separated by commas, and those of this file seem to be by " +
           otherSeparator_;
  }

  std::string wrongSize() const {
    return "the row has " + counted(row_.cells.size(), "cell") +
           (columns_.size() == 1 ? ", and there is " : ", and there are ") +
           counted(columns_.size(), "column");
  }

  // Many programs write ";" or a tabulator where they should write ",".
  static std::string otherSeparatorIn(const std::vector<std::string>& names) {
    if (names.size() != 1) return {};
    if (names[0].find(';') != std::string::npos) return "\";\"";
    return names[0].find('\t') != std::string::npos ? "tabs" : "";
  }

  static JobValue valueOf(const std::string& cell, const Column& column) {
    if (cell.empty() && column.kind != ColumnKind::unsaid) return NoValue{};
    try {
      return cellValue(cell, column.kind);
    } catch (const BadValue& wrong) {
      throw BadValue(tarvo::toUtf8(column.name) + ": " + wrong.what());
    }
  }

  std::string path_;
  const JsonValue& where_;
  const FileStamp stamp_;  // at first
  std::unique_ptr<CsvRows> rows_;
  CsvRow row_;
  std::uint64_t rowsRead_ = 0;
  std::string otherSeparator_;  // that the row of names seems to have; empty: none
  std::vector<Column> columns_;
  std::shared_ptr<const RecordNames> names_;
};

}  // namespace

std::unique_ptr<RecordSource> makeCsvRecords(const std::string& path, const JsonValue& where) {
  return std::make_unique<CsvRecords>(path, where);
}

}  // namespace tarvordp
