// The line table in memory: what the port means, and the table of every platform without record
// sets.
#pragma once

#include "graphic/line_table.h"

namespace tarvo {

// A new table, open and empty.
Ref<LineTable> makeMemoryLineTable();

}  // namespace tarvo
