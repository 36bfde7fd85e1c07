// Records of a CSV file: UTF-8, with or without a byte order mark, by RFC 4180, with a row of
// column names (column.h) first.
//
// Blanks belong to their cells.  Blank lines are skipped: lines with nothing, or with nothing but
// blanks and tabulators, outside of a cell in quotation marks.  That is so for one column too:
// there an empty value, or one of blanks alone, is a record when it stands in quotation marks.
//
// A row with fewer or more cells than the first one is a mistake.  An empty cell of a column that
// says its kind is no value.
//
// The file is read row by row, and once more after every restart(); that somebody changed it since
// it was opened is a mistake, told at the end at the latest.
#pragma once

#include <memory>
#include <string>

#include "tarvordp/job/record_source.h"

namespace tarvordp {

// `where` is the place in the job file that names the file, for mistakes.
// Raises: Mistake for a file that cannot be read, and for a wrong row of names.
std::unique_ptr<RecordSource> makeCsvRecords(const std::string& path, const JsonValue& where);

}  // namespace tarvordp
