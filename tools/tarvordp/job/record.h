// Records of a job: values by name.  Names are compared without case.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "tarvordp/job/job_value.h"
#include "template/text_key.h"

namespace tarvordp {

// A name as records keep it: in capitals.
tarvo::Text nameKey(tarvo::TextView name);

// The names of the values of a table's records, in their order.
class RecordNames {
 public:
  RecordNames() = default;

  // Raises: BadValue for an empty name, and for one that is there already.
  void add(tarvo::TextView name);

  std::size_t size() const noexcept { return indexes_.size(); }

  // The place of the value; empty when there is no such name.
  std::optional<std::size_t> find(tarvo::TextView key) const;

 private:
  tarvo::TextMap<std::size_t> indexes_;
};

// One record of a table.
struct Record {
  std::shared_ptr<const RecordNames> names;  // shared with the other records; empty: no values
  std::vector<JobValue> values;

  // Null when the record does not have the name.
  const JobValue* find(tarvo::TextView key) const;
};

// The values that hold for the whole report, put together from several places.
class NamedValues {
 public:
  // The value replaces the one of the same name.
  void put(tarvo::Text key, JobValue value);

  // Null when there is no such name.
  const JobValue* find(tarvo::TextView key) const;

 private:
  tarvo::TextMap<JobValue> values_;
};

}  // namespace tarvordp
