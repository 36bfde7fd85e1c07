#include "graphic/line_table.h"

#include "graphic/memory_line_table.h"

// There are no record sets here.
tarvo::Ref<tarvo::LineTable> tarvo::platform::makeLineTable() { return makeMemoryLineTable(); }
