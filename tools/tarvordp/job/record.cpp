#include "tarvordp/job/record.h"

#include <utility>

#include "frame/upper_case.h"
#include "tarvordp/job/amount.h"

namespace tarvordp {

tarvo::Text nameKey(tarvo::TextView name) { return tarvo::upperCase(name); }

void RecordNames::add(tarvo::TextView name) {
  if (name.empty()) throw BadValue("a name is empty");
  const bool isNew = indexes_.emplace(nameKey(name), indexes_.size()).second;
  if (!isNew) throw BadValue("the name \"" + tarvo::toUtf8(name) + "\" stands twice");
}

std::optional<std::size_t> RecordNames::find(tarvo::TextView key) const {
  const auto found = indexes_.find(key);
  if (found == indexes_.end()) return std::nullopt;
  return found->second;
}

const JobValue* Record::find(tarvo::TextView key) const {
  if (!names) return nullptr;
  const std::optional<std::size_t> index = names->find(key);
  return index ? &values[*index] : nullptr;
}

void NamedValues::put(tarvo::Text key, JobValue value) {
  values_.insert_or_assign(std::move(key), std::move(value));
}

const JobValue* NamedValues::find(tarvo::TextView key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? nullptr : &found->second;
}

}  // namespace tarvordp
