// A column of a table of data, and what its cells are: "NAME" or "NAME:KIND".
#pragma once

#include <cstdint>
#include <string_view>

#include "tarvordp/job/job_value.h"

namespace tarvordp {

enum class ColumnKind : std::uint8_t { unsaid, date, enumeration, boolean, number, text };

struct Column {
  tarvo::Text name;  // without the kind
  ColumnKind kind = ColumnKind::unsaid;
};

// Takes the kind off a column's written name: ":date", ":enum", ":bool", ":number" or ":text".
// Raises: BadValue when what stands behind the last ":" is no kind, and for a name that is not
// UTF-8.
Column readColumn(std::string_view written);

// The value of a cell that is a text; a column without a kind holds texts.
//   :bool    true/false, 1/0, S/N, sí/no, in either case; sí also without its accent
//   :number  as readCellAmount
//   :date    as readDate, and with a blank between date and time
// Raises: BadValue for a text that is none of its kind, and for one that is not UTF-8.
JobValue cellValue(std::string_view text, ColumnKind kind);

}  // namespace tarvordp
