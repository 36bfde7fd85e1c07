#include "tarvordp/job/inline_records.h"

#include <algorithm>
#include <utility>

#include "tarvordp/job/amount.h"

namespace tarvordp {
namespace {

std::shared_ptr<const RecordNames> namesOf(const JsonValue& object) {
  auto names = std::make_shared<RecordNames>();
  for (const JsonValue::Member& member : object.members()) {
    try {
      names->add(tarvo::fromUtf8(member.name));
    } catch (const BadValue& wrong) {
      member.value.mistake(wrong.what());
    }
  }
  return names;
}

bool haveTheSameNames(const JsonValue& a, const JsonValue& b) {
  return std::ranges::equal(a.members(), b.members(), {}, &JsonValue::Member::name,
                            &JsonValue::Member::name);
}

class InlineRecords final : public RecordSource {
 public:
  explicit InlineRecords(const JsonValue& records) : records_(records.asArray()) {}

  void restart() override { next_ = 0; }

  bool next(Record& record) override {
    if (next_ == records_.elements().size()) return false;
    const JsonValue& object = records_.elements()[next_].asObject();
    ++next_;
    // Most records have the names of the one before them.
    if (named_ == nullptr || !haveTheSameNames(*named_, object)) {
      names_ = namesOf(object);
      named_ = &object;
    }
    record.names = names_;
    record.values.clear();
    for (const JsonValue::Member& member : object.members()) {
      record.values.push_back(readJobValue(member.value));
    }
    return true;
  }

  [[noreturn]] void mistake(const std::string& whatIsWrong) const override {
    records_.elements()[next_ - 1].mistake(whatIsWrong);
  }

 private:
  const JsonValue& records_;
  std::size_t next_ = 0;
  const JsonValue* named_ = nullptr;  // whose names they are
  std::shared_ptr<const RecordNames> names_;
};

}  // namespace

void readNamedValues(const JsonValue& object, NamedValues& values) {
  namesOf(object.asObject());  // checks them
  for (const JsonValue::Member& member : object.members()) {
    values.put(nameKey(tarvo::fromUtf8(member.name)), readJobValue(member.value));
  }
}

std::unique_ptr<RecordSource> makeInlineRecords(const JsonValue& records) {
  return std::make_unique<InlineRecords>(records);
}

}  // namespace tarvordp
