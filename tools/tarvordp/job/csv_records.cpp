#include "tarvordp/job/csv_records.h"

#include <utility>

#include "tarvordp/job/amount.h"
#include "tarvordp/job/column.h"
#include "tarvordp/job/csv_rows.h"

namespace tarvordp {
namespace {

std::string counted(std::size_t count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

class CsvRecords final : public RecordSource {
 public:
  CsvRecords(const std::string& path, const JsonValue& where) : path_(path), where_(where) {
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
      if (!rows_->next(row_)) return false;
      readRow(record);
      return true;
    });
  }

  [[noreturn]] void mistake(const std::string& whatIsWrong) const override {
    mistakeAt(row_.line, whatIsWrong);
  }

 private:
  // What is wrong is told with the file and the line.
  template <class Action>
  auto told(Action&& action) -> decltype(action()) {
    try {
      return action();
    } catch (const CsvError& wrong) {
      mistakeAt(wrong.line(), wrong.what());
    } catch (const BadValue& wrong) {
      mistake(wrong.what());
    }
  }

  [[noreturn]] void mistakeAt(std::uint64_t line, const std::string& whatIsWrong) const {
    if (line == 0) where_.mistake(whatIsWrong);
    where_.mistake(path_ + ": line " + std::to_string(line) + ": " + whatIsWrong);
  }

  void readNames() {
    if (!rows_->next(row_)) where_.mistake(path_ + ": there is no row of column names");
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

  // Many programs write ";" or a tabulator where they should write ",".
  std::string wrongSize() const {
    std::string wrong = "the row has " + counted(row_.cells.size(), "cell") +
                        (columns_.size() == 1 ? ", and there is " : ", and there are ") +
                        counted(columns_.size(), "column");
    const bool mayBeSeparatedElse =
        columns_.size() == 1 && columns_[0].name.find_first_of(u";\t") != tarvo::Text::npos;
    return mayBeSeparatedElse ? wrong + ": only a comma separates columns" : wrong;
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
  std::unique_ptr<CsvRows> rows_;
  CsvRow row_;
  std::vector<Column> columns_;
  std::shared_ptr<const RecordNames> names_;
};

}  // namespace

std::unique_ptr<RecordSource> makeCsvRecords(const std::string& path, const JsonValue& where) {
  return std::make_unique<CsvRecords>(path, where);
}

}  // namespace tarvordp
