// A SQLite database that is read and never changed: no byte of it, and no file beside it, but for
// two that belong to those who are at work at it.  Where it has a write-ahead log, its index (-shm)
// says who reads; and when the last one leaves between the look at these files and the opening,
// SQLite makes both anew, empty, and they stay.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <optional>
#include <string>

#include "tarvordp/job/database_access.h"
#include "tarvordp/json/json_value.h"

namespace tarvordp {

// What is read from one object of this class is one state of the database, the last committed one.
// What others write meanwhile is not seen.  In a database without a write-ahead log others cannot
// write meanwhile.  One with a log at which nobody was working is not locked; when somebody begins
// to write it nevertheless, that is told (database_access.h says why).
//
// One that somebody else is writing is waited for, a moment long.
class Database {
 public:
  // Raises: Mistake at `where`, for a file that is missing, that is no database, that is locked,
  // that must not be read, or that an interrupted writer left to be rolled back.
  Database(const std::string& path, const JsonValue& where);

  sqlite3* handle() const noexcept { return handle_.get(); }
  const std::string& path() const noexcept { return path_; }

  // Raises: Mistake at `where`, with the database's reason for its last failure.
  [[noreturn]] void fail(const JsonValue& where) const;

  // Raises: Mistake at `where`, when what was read up to now may be no one state.
  void requireUnchanged(const JsonValue& where) const;

 private:
  struct Closer {
    void operator()(sqlite3* handle) const noexcept { sqlite3_close_v2(handle); }
  };

  void requireWhole(const JsonValue& where) const;
  void run(const char* statement, const JsonValue& where);
  std::string advice() const;

  std::string path_;
  std::optional<DatabaseAccess> access_;
  std::unique_ptr<sqlite3, Closer> handle_;
};

struct StatementCloser {
  void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, StatementCloser>;

// The one statement of `query`, a text in the job file, with the values of `parameters`, an object
// there or null, bound to the names that the statement gives them (":NAME", "@NAME", "$NAME").
// Raises: Mistake for what is no statement or more than one, for one that gives no rows or changes
// something, and for parameters that are missing, too many, or of another kind than text, number,
// boolean or null.
Statement prepare(const Database& database, const JsonValue& query, const JsonValue* parameters);

}  // namespace tarvordp
