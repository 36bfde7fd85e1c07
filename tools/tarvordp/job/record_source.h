// Where records come from: an array in the job file, a CSV file, a database query.
#pragma once

#include <string>

#include "tarvordp/job/record.h"

namespace tarvordp {

class RecordSource {
 public:
  RecordSource() = default;
  RecordSource(const RecordSource&) = delete;
  RecordSource& operator=(const RecordSource&) = delete;
  virtual ~RecordSource() = default;

  // Goes before the first record.  Raises: Mistake.
  virtual void restart() = 0;

  // Replaces `record` by the next one; false, and nothing changed, when there is none.
  // REQUIRES: restart() was called.  Raises: Mistake.
  virtual bool next(Record& record) = 0;

  // Raises: Mistake, at the place of the record that was read last.
  [[noreturn]] virtual void mistake(const std::string& whatIsWrong) const = 0;

  // What makes the whole source look wrong though its records can be read, a sentence; empty:
  // nothing.
  virtual std::string doubt() const { return {}; }
};

}  // namespace tarvordp
