#include "tarvordp/json/json_value.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "tarvordp/json/excerpt.h"
#include "tarvordp/mistake.h"

namespace tarvordp {

std::string_view JsonValue::kindName() const noexcept {
  switch (kind_) {
    case Kind::null:
      return "null";
    case Kind::boolean:
      return "true or false";
    case Kind::number:
      return "a number";
    case Kind::text:
      return "a text";
    case Kind::array:
      return "an array";
    case Kind::object:
      return "an object";
  }
  return "";
}

const JsonValue* JsonValue::find(std::string_view name) const noexcept {
  const auto found = std::ranges::find(members_, name, &Member::name);
  return found == members_.end() ? nullptr : &found->value;
}

void JsonValue::mistake(const std::string& whatIsWrong) const {
  throw Mistake(file() + ": " + (pointer_.empty() ? "the document" : pointer_) + ": " +
                whatIsWrong);
}

namespace {

[[noreturn]] void wrongKind(const JsonValue& value, std::string_view wanted) {
  value.mistake("must be " + std::string(wanted) + ", not " + std::string(value.kindName()));
}

}  // namespace

bool JsonValue::asBoolean() const {
  if (!is(Kind::boolean)) wrongKind(*this, "true or false");
  return boolean_;
}

const std::string& JsonValue::asText() const {
  if (!is(Kind::text)) wrongKind(*this, "a text");
  return text_;
}

const JsonValue& JsonValue::asArray() const {
  if (!is(Kind::array)) wrongKind(*this, "an array");
  return *this;
}

const JsonValue& JsonValue::asObject() const {
  if (!is(Kind::object)) wrongKind(*this, "an object");
  return *this;
}

std::int64_t JsonValue::asWholeNumber(std::int64_t least, std::int64_t greatest) const {
  if (!is(Kind::number)) wrongKind(*this, "a whole number");
  std::int64_t number = 0;
  const char* end = text_.data() + text_.size();
  const auto read = std::from_chars(text_.data(), end, number);
  const bool isWhole = read.ec == std::errc() && read.ptr == end;
  if (!isWhole || number < least || number > greatest) {
    mistake("must be a whole number from " + std::to_string(least) + " to " +
            std::to_string(greatest) + ", not " + excerpt(text_));
  }
  return number;
}

KnownKeys::KnownKeys(const JsonValue& object) : object_(object.asObject()) {}

const JsonValue* KnownKeys::optional(std::string_view name) {
  asked_.push_back(name);
  return object_.find(name);
}

const JsonValue& KnownKeys::required(std::string_view name) {
  const JsonValue* found = optional(name);
  if (found == nullptr) object_.mistake("the key \"" + std::string(name) + "\" is missing");
  return *found;
}

void KnownKeys::nothingElse() const {
  for (const JsonValue::Member& member : object_.members()) {
    if (std::ranges::find(asked_, member.name) == asked_.end()) {
      member.value.mistake("unknown key \"" + member.name + "\"");
    }
  }
}

}  // namespace tarvordp
