#include "tarvordp/job/database.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <new>
#include <system_error>
#include <vector>

namespace tarvordp {
namespace {

constexpr int kPatience = 2'000;  // milliseconds, for a database that is locked

void requireFile(const std::string& path, const JsonValue& where) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (!std::filesystem::exists(status)) {
    where.mistake(path + ": there is no such database");
  }
  if (std::filesystem::is_directory(status)) where.mistake(path + ": is a folder, no database");
}

}  // namespace

// A first read takes the state that all later ones see.
Database::Database(const std::string& path, const JsonValue& where) : path_(path) {
  requireFile(path, where);
  access_.emplace(path);
  sqlite3* handle = nullptr;
  const int opened = sqlite3_open_v2(access_->uri().c_str(), &handle,
                                     SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
  handle_.reset(handle);
  if (handle == nullptr) throw std::bad_alloc();
  if (opened != SQLITE_OK) fail(where);
  sqlite3_extended_result_codes(handle, 1);
  sqlite3_busy_timeout(handle, kPatience);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  run(access_->preparation().c_str(), where);
  run("BEGIN", where);
  run("SELECT count(*) FROM sqlite_master", where);
  requireWhole(where);
}

void Database::requireUnchanged(const JsonValue& where) const {
  if (!access_->isUnchanged()) {
    where.mistake(path_ + ": somebody changed the database while it was read: print again");
  }
}

namespace {

std::int64_t numberOf(sqlite3* database, const char* question) {
  sqlite3_stmt* made = nullptr;
  sqlite3_prepare_v2(database, question, -1, &made, nullptr);
  const std::int64_t number = sqlite3_step(made) == SQLITE_ROW ? sqlite3_column_int64(made, 0) : 0;
  sqlite3_finalize(made);
  return number;
}

}  // namespace

// What the database's last page lacks would be read as zeros, without a word.
void Database::requireWhole(const JsonValue& where) const {
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(path_, error);
  const std::int64_t page = numberOf(handle_.get(), "PRAGMA page_size");
  if (!error && page > 0 && size % static_cast<std::uintmax_t>(page) != 0) {
    where.mistake(path_ + ": the database is not whole: its last page is torn");
  }
}

void Database::run(const char* statement, const JsonValue& where) {
  const int result = sqlite3_exec(handle_.get(), statement, nullptr, nullptr, nullptr);
  if (result != SQLITE_OK) fail(where);
}

void Database::fail(const JsonValue& where) const {
  requireUnchanged(where);
  where.mistake(path_ + ": " + sqlite3_errmsg(handle_.get()) + advice());
}

// For failures whose reason SQLite's words do not tell.
std::string Database::advice() const {
  const int code = sqlite3_extended_errcode(handle_.get());
  constexpr int kPrimary = 0xFF;
  if (code == SQLITE_READONLY_ROLLBACK || code == SQLITE_READONLY_RECOVERY) {
    return ": a writer was interrupted; what it left beside the database has to be taken in or "
           "back by a program that may write: open it with one, and print then";
  }
  if ((code & kPrimary) == SQLITE_CANTOPEN) {
    return ": it, or what belongs to it beside it (-wal, -shm, -journal), cannot be read";
  }
  return "";
}

namespace {

// The number as the database has it: whole ones exactly, others as the nearest binary number.
int bindNumber(sqlite3_stmt* statement, int index, const std::string& written) {
  const char* const end = written.data() + written.size();
  std::int64_t whole = 0;
  if (const auto read = std::from_chars(written.data(), end, whole);
      read.ec == std::errc() && read.ptr == end) {
    return sqlite3_bind_int64(statement, index, whole);
  }
  double number = 0;  // as it stays when the written one is too near to it
  std::from_chars(written.data(), end, number);
  return sqlite3_bind_double(statement, index, number);
}

int bind(sqlite3_stmt* statement, int index, const JsonValue& value) {
  switch (value.kind()) {
    case JsonValue::Kind::null:
      return sqlite3_bind_null(statement, index);
    case JsonValue::Kind::boolean:
      return sqlite3_bind_int(statement, index, value.boolean() ? 1 : 0);
    case JsonValue::Kind::number:
      return bindNumber(statement, index, value.numberText());
    case JsonValue::Kind::text:
      return sqlite3_bind_text64(statement, index, value.text().data(), value.text().size(),
                                 SQLITE_TRANSIENT, SQLITE_UTF8);
    case JsonValue::Kind::array:
    case JsonValue::Kind::object:
      break;
  }
  value.mistake("a parameter must be a text, a number, true, false or null, not " +
                std::string(value.kindName()));
}

// The statement's name for a parameter, without the character before it.
std::string_view parameterName(const Database& database, sqlite3_stmt* statement, int index,
                               const JsonValue& query) {
  const char* name = sqlite3_bind_parameter_name(statement, index);
  if (name == nullptr) {
    query.mistake(database.path() + ": a parameter has no name: write :NAME in place of \"?\"");
  }
  return std::string_view(name).substr(1);
}

void bindParameters(const Database& database, sqlite3_stmt* statement, const JsonValue& query,
                    const JsonValue* parameters) {
  std::vector<std::string_view> names;
  for (int index = 1; index <= sqlite3_bind_parameter_count(statement); ++index) {
    const std::string_view name = parameterName(database, statement, index, query);
    names.push_back(name);
    const JsonValue* value = parameters != nullptr ? parameters->find(name) : nullptr;
    if (value == nullptr) {
      query.mistake("the parameter \"" + std::string(name) + "\" has no value in \"parameters\"");
    }
    if (bind(statement, index, *value) != SQLITE_OK) database.fail(*value);
  }
  if (parameters == nullptr) return;
  for (const JsonValue::Member& member : parameters->members()) {
    if (std::ranges::find(names, member.name) == names.end()) {
      member.value.mistake("the query has no parameter \"" + member.name + "\"");
    }
  }
}

Statement prepareFirst(const Database& database, const char* sql, const char** rest,
                       const JsonValue& query) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database.handle(), sql, -1, &statement, rest) != SQLITE_OK) {
    database.fail(query);
  }
  return Statement(statement);
}

}  // namespace

Statement prepare(const Database& database, const JsonValue& query, const JsonValue* parameters) {
  const std::string& sql = query.asText();
  if (sql.find('\0') != std::string::npos) query.mistake("a query cannot hold character 0");
  const char* rest = nullptr;
  Statement statement = prepareFirst(database, sql.c_str(), &rest, query);
  if (!statement) query.mistake("there is no query");
  if (prepareFirst(database, rest, &rest, query)) query.mistake("must be one statement only");
  if (sqlite3_column_count(statement.get()) == 0) query.mistake("must be a query that gives rows");
  if (sqlite3_stmt_readonly(statement.get()) == 0)
    query.mistake("must be a query that changes nothing");
  if (parameters != nullptr) parameters->asObject();
  bindParameters(database, statement.get(), query, parameters);
  return statement;
}

}  // namespace tarvordp
