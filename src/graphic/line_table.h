// The line table: the lines of one report, in the order in which they were written.
//
// A port: on Windows the table is a record set without a connection, which a report component of
// any kind can read; elsewhere it is memory_line_table.h, which also shows what is meant here.  The
// table has one text column, "ObData", and a present row from which it is read.
//
// Threads: the client's.
#pragma once

#include "frame/object.h"
#include "frame/text.h"

namespace tarvo {

inline constexpr TextView kLineColumn = u"ObData";
inline constexpr std::string_view kLineColumnName = "ObData";
inline constexpr std::size_t kLongestLine = 7000;  // characters

// The numbers under which a record set refuses.
inline constexpr std::int32_t kNoPresentRow = 3021;
inline constexpr std::int32_t kTableIsClosed = 3704;
inline constexpr std::int32_t kLineIsTooLong =
    -2147217887;  // 0x80040E21, an error of the data store

class LineTable : public Object {
 public:
  // All operations but isOpen(), on a table that was closed: Raises: 3704.

  // Adds a row behind all others and makes it the present one.
  // Raises: 0x80040E21 for a text of more than 7000 characters; the table is then as before.
  virtual void addRow(TextView text) = 0;

  // Makes the first row the present one; an empty table is at its end then.
  virtual void moveFirst() = 0;

  // Whether there is no present row: the table is empty, or the last row was left behind.
  virtual bool atEnd() = 0;

  // Puts the present row's text into `result`.  Raises: 3021 at the end.
  virtual void text(Text& result) = 0;

  // Goes on to the next row, or to the end.  Raises: 3021 at the end.
  virtual void moveNext() = 0;

  virtual bool isOpen() noexcept = 0;

  // The rows are gone.
  virtual void close() = 0;
};

// The refusals, with their texts, so that every table refuses alike.
[[noreturn]] void refuseClosedTable();
[[noreturn]] void refuseWithoutRow();
[[noreturn]] void refuseLongLine();

namespace platform {
// A new table, open and empty.  Raises: 429 when the system has no such tables.
Ref<LineTable> makeLineTable();
}  // namespace platform

}  // namespace tarvo
