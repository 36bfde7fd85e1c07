// How a SQLite database is opened so that it is read whole, and nothing is left beside it.
//
// A database "x.db" with a write-ahead log is up to three files: what was committed last may stand
// in "x.db-wal" alone, and those who are at work share that log's index, "x.db-shm".  SQLite's
// plain read-only mode makes both where they are missing and does not take them away again, and in
// a folder where nothing can be made it fails.  So the files say how it is opened:
//
//   -wal  -shm
//   no    any   The database is complete and nobody is at work: "immutable=1" reads the one file.
//   yes   no    Who wrote is gone, or the files are copies: the exclusive locking mode keeps the
//               index in memory, and "vfs=unix-none" gives readers the lock that it wants.  The log
//               is read and stays as it is.
//   yes   yes   Others may be at work: plain "mode=ro", which takes part in what they agree on.
//               Both files are there already; without write permission SQLite reads them all the
//               same.
//
// The first two lock nobody out.  Others who begin to write meanwhile are noticed afterwards: ask
// isUnchanged() before anything that was read is believed.
//
// A database with a rollback journal makes no files for readers and locks writers out: "mode=ro".
// The journal of an interrupted writer has to be rolled back first, which a reader cannot do:
// SQLite refuses.
#pragma once

#include <cstdint>
#include <string>

#include "tarvordp/job/file_stamp.h"

namespace tarvordp {

class DatabaseAccess {
 public:
  // REQUIRES: a file with that path.  Looks at it; one that cannot be looked at, or that somebody
  // has locked, is opened in the plain way, which tells why or waits.
  explicit DatabaseAccess(const std::string& path);

  // For sqlite3_open_v2 with SQLITE_OPEN_READONLY and SQLITE_OPEN_URI.
  std::string uri() const;

  // What must be run before anything is read; empty: nothing.
  std::string preparation() const;

  // False when the files that are read without locks are no longer what they were at first.  A
  // change within the file system's clock tick, 20 ms at most, is waited for at first.
  bool isUnchanged() const;

 private:
  enum class Way : std::uint8_t { plain, complete, ownIndex };

  Way wayByFiles() const;

  std::string path_;
  std::string journal_;  // the names that SQLite gives, which follow links
  std::string log_;
  Way way_ = Way::plain;
  FileStamp database_;
  FileStamp writeAheadLog_;
};

}  // namespace tarvordp
