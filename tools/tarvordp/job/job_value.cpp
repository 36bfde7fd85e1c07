#include "tarvordp/job/job_value.h"

#include <limits>
#include <utility>

#include "tarvordp/job/amount.h"

namespace tarvordp {
namespace {

constexpr std::int64_t kLeastInteger = std::numeric_limits<std::int16_t>::min();
constexpr std::int64_t kGreatestInteger = std::numeric_limits<std::int16_t>::max();
constexpr std::int64_t kGreatestByte = std::numeric_limits<std::uint8_t>::max();

tarvo::Text textIn(const JsonValue& written) { return tarvo::fromUtf8(written.asText()); }

// What the action gives, with what is wrong told at the value's place.
template <class Action>
auto at(const JsonValue& place, Action&& action) {
  try {
    return action();
  } catch (const BadValue& wrong) {
    place.mistake(wrong.what());
  }
}

tarvo::Currency amountIn(const JsonValue& place, const std::string& written) {
  return at(place, [&] { return readAmount(written); });
}

NumberValue readNumber(const JsonValue& written, KnownKeys& keys) {
  if (!written.is(JsonValue::Kind::text)) {
    written.mistake("must be a text with a number in it, such as \"12.5\", not " +
                    std::string(written.kindName()));
  }
  NumberValue value{amountIn(written, written.text())};
  if (const JsonValue* parenthesis = keys.optional("parenthesis")) {
    value.parenthesisIfNegative = parenthesis->asBoolean();
  }
  return value;
}

DateValue readDateValue(const JsonValue& written) {
  return {at(written, [&] { return readDate(written.asText()); })};
}

void readBoolean(KnownKeys& keys, std::string_view key, bool& value) {
  if (const JsonValue* written = keys.optional(key)) value = written->asBoolean();
}

void readInteger(KnownKeys& keys, std::string_view key, std::int16_t& value) {
  if (const JsonValue* written = keys.optional(key)) {
    value = static_cast<std::int16_t>(written->asWholeNumber(kLeastInteger, kGreatestInteger));
  }
}

ArrayValue readArray(const JsonValue& written, KnownKeys& keys) {
  ArrayValue value;
  value.text = textIn(written);
  if (const JsonValue* maxWidth = keys.optional("maxWidth")) {
    value.maxWidth = static_cast<std::uint8_t>(maxWidth->asWholeNumber(0, kGreatestByte));
  }
  readInteger(keys, "index", value.index);
  readBoolean(keys, "fill", value.fill);
  readBoolean(keys, "usePosition", value.usePosition);
  readInteger(keys, "position", value.position);
  return value;
}

// What the library's helper reads of a long text (ui/clsLibTarvoRdp.h).
constexpr std::size_t kMostLines = 11;

LinesValue readLines(const JsonValue& written) {
  if (written.asArray().elements().size() > kMostLines) {
    written.mistake("must have at most 11 texts: the library reads no more of a long text");
  }
  tarvo::ValueArray lines;
  for (const JsonValue& line : written.asArray().elements()) lines.emplace_back(textIn(line));
  lines.emplace_back(tarvo::Text());
  return {std::move(lines)};
}

SingleValue readSingle(const JsonValue& written);

RepeatValue readRepeat(const JsonValue& written) {
  RepeatValue repeat;
  for (const JsonValue& value : written.asArray().elements()) {
    repeat.values.push_back(readSingle(value));
  }
  if (repeat.values.empty()) written.mistake("must have at least one value");
  return repeat;
}

JobValue asJobValue(SingleValue single) {
  return std::visit([](auto&& value) { return JobValue(std::forward<decltype(value)>(value)); },
                    std::move(single));
}

SingleValue readSingleObject(const JsonValue& object, KnownKeys& keys) {
  if (const JsonValue* number = keys.optional("number")) return readNumber(*number, keys);
  if (const JsonValue* date = keys.optional("date")) return readDateValue(*date);
  if (const JsonValue* enumeration = keys.optional("enum")) return EnumValue{textIn(*enumeration)};
  if (const JsonValue* array = keys.optional("array")) return readArray(*array, keys);
  if (const JsonValue* lines = keys.optional("lines")) return readLines(*lines);
  if (object.find("repeat") != nullptr) object.mistake("a \"repeat\" cannot stand in another one");
  object.mistake(
      "must have one of the keys \"number\", \"date\", \"enum\", \"array\", \"lines\", \"repeat\"");
}

SingleValue readSingle(const JsonValue& written) {
  switch (written.kind()) {
    case JsonValue::Kind::null:
      return NoValue{};
    case JsonValue::Kind::boolean:
      return BooleanValue{written.boolean()};
    case JsonValue::Kind::number:
      return NumberValue{amountIn(written, written.numberText())};
    case JsonValue::Kind::text:
      return TextValue{textIn(written)};
    case JsonValue::Kind::array:
      written.mistake(
          "must be a value, not an array: write {\"repeat\": [...]} or "
          "{\"lines\": [...]}");
    case JsonValue::Kind::object:
      break;
  }
  KnownKeys keys(written);
  SingleValue value = readSingleObject(written, keys);
  keys.nothingElse();
  return value;
}

}  // namespace

JobValue readJobValue(const JsonValue& written) {
  if (written.is(JsonValue::Kind::object)) {
    KnownKeys keys(written);
    if (const JsonValue* values = keys.optional("repeat")) {
      keys.nothingElse();
      return readRepeat(*values);
    }
  }
  return asJobValue(readSingle(written));
}

}  // namespace tarvordp
