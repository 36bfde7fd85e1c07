// Records of a database query.  Columns are named as in column.h; without a kind a column's values
// are what the database says: INTEGER and REAL numbers, TEXT texts, NULL no value.
//
// With a kind: a text is read as a cell of that kind (an empty one of a date, a number or a boolean
// is no value), a number as a number, a boolean or the text that the database makes of it.
//
// The query runs once more after every restart(); its rows are not kept.
#pragma once

#include <memory>

#include "tarvordp/job/database.h"
#include "tarvordp/job/record_source.h"

namespace tarvordp {

// `query` and `parameters` as for prepare(); they outlive the source.
// Raises: Mistake.
std::unique_ptr<RecordSource> makeQueryRecords(std::shared_ptr<const Database> database,
                                               const JsonValue& query, const JsonValue* parameters);

// The values of the query's first row.  Raises: Mistake when it gives none.
void readFirstRow(const std::shared_ptr<const Database>& database, const JsonValue& query,
                  const JsonValue* parameters, NamedValues& values);

}  // namespace tarvordp
