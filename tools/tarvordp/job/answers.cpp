#include "tarvordp/job/answers.h"

#include <variant>

#include "frame/upper_case.h"

namespace tarvordp {
namespace {

using tarvo::clsObSpecialVar;
using tarvo::Ref;

void set(clsObSpecialVar& variable, const TextValue& value) {
  variable.SetContentString(value.text);
}

void set(clsObSpecialVar& variable, const NumberValue& value) {
  variable.SetContentNumeric(value.amount, value.parenthesisIfNegative);
}

void set(clsObSpecialVar& variable, const BooleanValue& value) {
  variable.SetContentBoolean(value.value);
}

void set(clsObSpecialVar& variable, const DateValue& value) { variable.SetContentDate(value.date); }

void set(clsObSpecialVar& variable, const EnumValue& value) { variable.SetContentEnum(value.text); }

void set(clsObSpecialVar& variable, const ArrayValue& value) {
  variable.SetContentArray(value.text, value.maxWidth, value.index, value.fill, value.usePosition,
                           value.position);
}

// Puts the name's two parts together in capitals.
void writeKey(const clsObSpecialVar& variable, tarvo::Text& key) {
  key.clear();
  const auto append = [&key](tarvo::TextView part) {
    for (const char16_t c : part) key += tarvo::upperCase(c);
  };
  if (!variable.GetRecordName().empty()) {
    append(variable.GetRecordName());
    key += u'.';
  }
  append(variable.GetFieldName());
}

}  // namespace

Answers::Answers(const NamedValues& values)
    : values_(values), helper_(tarvo::make<tarvo::clsLibTarvoRdp>()) {}

bool Answers::answer(Ref<clsObSpecialVar>& variable, const Record* detail) {
  writeKey(*variable, name_);
  const JobValue* value = find(detail);
  if (value == nullptr) return false;
  return std::visit([&](const auto& kind) { return store(variable, kind); }, *value);
}

const JobValue* Answers::find(const Record* detail) const {
  const JobValue* value = detail != nullptr ? detail->find(name_) : nullptr;
  return value != nullptr ? value : values_.find(name_);
}

template <class Value>
bool Answers::store(Ref<clsObSpecialVar>& variable, const Value& value) {
  set(*variable, value);
  return true;
}

// A value that is answered False ends the repetition.
bool Answers::store(Ref<clsObSpecialVar>& variable, const RepeatValue& repeat) {
  std::size_t& place = places_[name_].value;
  if (place >= repeat.values.size()) place = 0;  // another record's repetition was longer
  const SingleValue& value = repeat.values[place];
  const bool isStored = std::visit([&](const auto& kind) { return store(variable, kind); }, value);
  const bool isLast = !isStored || place + 1 == repeat.values.size();
  place = isLast ? 0 : place + 1;
  if (isStored) variable->SetEndOfRepeatPrintLine(isLast);
  return isStored;
}

// The segment that the template asks for, or the one that is next.
bool Answers::store(Ref<clsObSpecialVar>& variable, const LinesValue& lines) {
  const bool isRepeated = !variable->GetIsFieldOfArray();
  std::uint8_t& segment = places_[name_].segment;
  if (isRepeated) {
    variable->SetArrayPosition(segment);
    variable->SetEndOfRepeatPrintLine(false);
  }
  const tarvo::Text text = helper_->fExtractShortText(variable, lines.lines, true);
  variable->SetContentString(text);
  if (!isRepeated) return true;
  // The helper raises an error before the last number is passed.
  segment = variable->GetEndOfRepeatPrintLine() ? std::uint8_t{1}
                                                : static_cast<std::uint8_t>(segment + 1);
  return true;
}

tarvo::Text nameOf(const clsObSpecialVar& variable) {
  tarvo::Text name = variable.GetRecordName();
  if (!name.empty()) name += u'.';
  return name.append(variable.GetFieldName());
}

}  // namespace tarvordp
