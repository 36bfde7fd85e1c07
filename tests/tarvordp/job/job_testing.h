// What the tests of jobs have in common: mistakes as texts, values and records as texts.
#pragma once

#include <sqlite3.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tarvordp/job/amount.h"
#include "tarvordp/job/record_source.h"
#include "tarvordp/mistake.h"

namespace tarvordp::test {

// What the mistake says; "no mistake" when there is none.
inline std::string mistakeOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Mistake& mistake) {
    return mistake.what();
  } catch (const BadValue& wrong) {
    return wrong.what();
  }
  return "no mistake";
}

// A value as a word for its kind and what it holds.
struct ValueText {
  std::string operator()(const NoValue&) const { return "none"; }
  std::string operator()(const TextValue& value) const {
    return "text " + tarvo::toUtf8(value.text);
  }
  std::string operator()(const NumberValue& value) const {
    return "number " + amountText(value.amount) +
           (value.parenthesisIfNegative ? " with parentheses" : "");
  }
  std::string operator()(const BooleanValue& value) const { return value.value ? "true" : "false"; }
  std::string operator()(const DateValue& value) const {
    return "date " + std::to_string(value.date.serial);
  }
  std::string operator()(const EnumValue& value) const {
    return "enum " + tarvo::toUtf8(value.text);
  }
  std::string operator()(const ArrayValue& value) const {
    return "array " + tarvo::toUtf8(value.text) + " width " + std::to_string(value.maxWidth) +
           " index " + std::to_string(value.index) + (value.fill ? " filled" : "") +
           (value.usePosition ? " by position" : "") + " position " +
           std::to_string(value.position);
  }
  std::string operator()(const LinesValue& value) const {
    std::string text = "lines";
    for (const tarvo::Value& line : *value.lines.tryGet<tarvo::ValueArray>()) {
      text += " [" + tarvo::toUtf8(*line.tryGet<tarvo::Text>()) + "]";
    }
    return text;
  }
  std::string operator()(const RepeatValue& value) const {
    std::string text = "repeat";
    for (const SingleValue& each : value.values) text += " [" + std::visit(*this, each) + "]";
    return text;
  }
};

inline std::string valueText(const JobValue& value) { return std::visit(ValueText(), value); }

// The values of a record, in their order.
inline std::string recordText(const Record& record) {
  std::string text;
  for (const JobValue& value : record.values) {
    text.append(text.empty() ? "" : " | ").append(valueText(value));
  }
  return text;
}

// All records of a source, from the first on.
inline std::vector<std::string> recordsOf(RecordSource& source) {
  std::vector<std::string> records;
  source.restart();
  for (Record record; source.next(record);) records.push_back(recordText(record));
  return records;
}

// Runs SQL on a database file, which is made when it is not there.
inline void runSql(const std::string& path, const std::string& sql) {
  sqlite3* database = nullptr;
  sqlite3_open(path.c_str(), &database);
  char* reason = nullptr;
  const int result = sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &reason);
  const std::string told = reason != nullptr ? reason : "";
  sqlite3_free(reason);
  sqlite3_close(database);
  if (result != SQLITE_OK) throw std::runtime_error(told);
}

}  // namespace tarvordp::test
