// Records that stand in the job file itself.
#pragma once

#include <memory>

#include "tarvordp/job/record_source.h"

namespace tarvordp {

// The values of a JSON object by their names in capitals.
// Raises: Mistake with its place, for a name that stands twice in different cases too.
void readNamedValues(const JsonValue& object, NamedValues& values);

// The objects of an array.  REQUIRES: `records` outlives the source.
// Raises: Mistake when it is no array.
std::unique_ptr<RecordSource> makeInlineRecords(const JsonValue& records);

}  // namespace tarvordp
