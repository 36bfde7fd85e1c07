#include "tarvordp/job/query_records.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

#include "tarvordp/job/amount.h"
#include "tarvordp/job/column.h"

namespace tarvordp {
namespace {

// The shortest number that is the same one in binary: what was written when it was stored.
std::string shortest(double number) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  return {text.data(), end};
}

// One row of a statement that has just given it.
class Row {
 public:
  explicit Row(sqlite3_stmt* statement) : statement_(statement) {}

  // Raises: BadValue.
  JobValue value(int index, ColumnKind kind) const {
    switch (sqlite3_column_type(statement_, index)) {
      case SQLITE_NULL:
        return NoValue{};
      case SQLITE_BLOB:
        throw BadValue("a BLOB cannot be printed");
      case SQLITE_TEXT:
        return valueOfText(text(index), kind);
      default:
        return valueOfNumber(index, kind);
    }
  }

 private:
  std::string_view text(int index) const {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_, index));
    if (bytes == nullptr) throw std::bad_alloc();
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, index))};
  }

  static JobValue valueOfText(std::string_view text, ColumnKind kind) {
    const bool mayBeEmpty =
        kind == ColumnKind::unsaid || kind == ColumnKind::text || kind == ColumnKind::enumeration;
    if (text.empty() && !mayBeEmpty) return NoValue{};
    return cellValue(text, kind);
  }

  JobValue valueOfNumber(int index, ColumnKind kind) const {
    const bool isNumber = kind == ColumnKind::unsaid || kind == ColumnKind::number;
    return isNumber ? NumberValue{amount(index)} : cellValue(text(index), kind);
  }

  tarvo::Currency amount(int index) const {
    if (sqlite3_column_type(statement_, index) == SQLITE_INTEGER) {
      return readAmount(std::to_string(sqlite3_column_int64(statement_, index)));
    }
    return readAmount(shortest(sqlite3_column_double(statement_, index)));
  }

  sqlite3_stmt* statement_;
};

class QueryRecords final : public RecordSource {
 public:
  QueryRecords(std::shared_ptr<const Database> database, const JsonValue& query,
               const JsonValue* parameters)
      : database_(std::move(database)),
        query_(query),
        statement_(prepare(*database_, query, parameters)) {
    auto names = std::make_shared<RecordNames>();
    try {
      readColumns(*names);
    } catch (const BadValue& wrong) {
      query_.mistake(wrong.what());
    }
    names_ = std::move(names);
  }

  void restart() override {
    sqlite3_reset(statement_.get());
    row_ = 0;
    isEnded_ = false;
  }

  bool next(Record& record) override {
    if (isEnded_) return false;  // the database would begin anew
    const int result = sqlite3_step(statement_.get());
    database_->requireUnchanged(query_);
    if (result != SQLITE_ROW && result != SQLITE_DONE) database_->fail(query_);
    isEnded_ = result == SQLITE_DONE;
    if (isEnded_) return false;
    ++row_;
    record.names = names_;
    record.values.clear();
    for (std::size_t i = 0; i < columns_.size(); ++i) record.values.push_back(valueOf(i));
    return true;
  }

  [[noreturn]] void mistake(const std::string& whatIsWrong) const override {
    query_.mistake(database_->path() + ": row " + std::to_string(row_) + ": " + whatIsWrong);
  }

  const std::vector<Column>& columns() const noexcept { return columns_; }

 private:
  void readColumns(RecordNames& names) {
    for (int i = 0; i < sqlite3_column_count(statement_.get()); ++i) {
      columns_.push_back(readColumn(sqlite3_column_name(statement_.get(), i)));
      names.add(columns_.back().name);
    }
  }

  JobValue valueOf(std::size_t column) const {
    try {
      return Row(statement_.get()).value(static_cast<int>(column), columns_[column].kind);
    } catch (const BadValue& wrong) {
      mistake(tarvo::toUtf8(columns_[column].name) + ": " + wrong.what());
    }
  }

  std::shared_ptr<const Database> database_;
  const JsonValue& query_;
  Statement statement_;
  std::vector<Column> columns_;
  std::shared_ptr<const RecordNames> names_;
  std::uint64_t row_ = 0;
  bool isEnded_ = false;
};

}  // namespace

std::unique_ptr<RecordSource> makeQueryRecords(std::shared_ptr<const Database> database,
                                               const JsonValue& query,
                                               const JsonValue* parameters) {
  return std::make_unique<QueryRecords>(std::move(database), query, parameters);
}

void readFirstRow(const std::shared_ptr<const Database>& database, const JsonValue& query,
                  const JsonValue* parameters, NamedValues& values) {
  QueryRecords rows(database, query, parameters);
  rows.restart();
  Record first;
  if (!rows.next(first)) query.mistake("the query found no row");
  for (std::size_t i = 0; i < first.values.size(); ++i) {
    values.put(nameKey(rows.columns()[i].name), std::move(first.values[i]));
  }
}

}  // namespace tarvordp
