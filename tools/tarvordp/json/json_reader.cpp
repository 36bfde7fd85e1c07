// The JSON library's events as a tree of values.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "tarvordp/json/excerpt.h"
#include "tarvordp/json/json_mistake.h"
#include "tarvordp/json/json_value.h"
#include "tarvordp/mistake.h"
#include "tarvordp/whole_file.h"

namespace tarvordp {
namespace {

constexpr std::size_t kDeepest = 100;

// A name as a part of a JSON pointer.
std::string escaped(const std::string& name) {
  std::string text;
  for (const char letter : name) {
    if (letter == '~') {
      text += "~0";
    } else if (letter == '/') {
      text += "~1";
    } else {
      text += letter;
    }
  }
  return text;
}

}  // namespace

class JsonReader {
 public:
  JsonReader(std::string_view text, const std::string& file)
      : text_(text), file_(std::make_shared<std::string>(file)) {}

  JsonValue take() { return std::move(root_); }

  // --- The library's events; each says whether to go on.
  bool null() {
    add(JsonValue::Kind::null);
    return true;
  }
  bool boolean(bool value) {
    add(JsonValue::Kind::boolean).boolean_ = value;
    return true;
  }
  bool number_integer(std::int64_t value) { return number(std::to_string(value)); }
  bool number_unsigned(std::uint64_t value) { return number(std::to_string(value)); }
  bool number_float(double, const std::string& written) { return number(written); }
  bool string(std::string& value) {
    add(JsonValue::Kind::text).text_ = std::move(value);
    return true;
  }
  bool binary(nlohmann::json::binary_t&) { return false; }  // never in text
  bool start_object(std::size_t) { return open(JsonValue::Kind::object); }
  bool start_array(std::size_t) { return open(JsonValue::Kind::array); }
  bool end_object() { return close(); }
  bool end_array() { return close(); }
  bool key(std::string& name) {
    const bool isNew = names_.back().insert(name).second;
    if (!isNew) open_.back()->mistake("the key \"" + name + "\" stands twice");
    key_ = std::move(name);
    return true;
  }
  [[noreturn]] bool parse_error(std::size_t position, const std::string& token,
                                const nlohmann::json::exception& failure) {
    if (failure.id == kNumberOverflow) {
      add(JsonValue::Kind::number)
          .mistake(excerpt(token) + " is beyond the numbers that can be read");
    }
    const bool isBehindElement = !open_.empty() && open_.back()->is(JsonValue::Kind::array) &&
                                 !open_.back()->elements_.empty();
    throw Mistake(*file_ + ": " + describe({text_, position, failure.what(), isBehindElement}));
  }

 private:
  static constexpr int kNumberOverflow = 406;

  bool number(std::string written) {
    add(JsonValue::Kind::number).text_ = std::move(written);
    return true;
  }

  JsonValue& add(JsonValue::Kind kind) {
    JsonValue& value = place();
    value.kind_ = kind;
    value.file_ = file_;
    return value;
  }

  // The place of the next value: the root, or behind what its parent has.
  JsonValue& place() {
    if (open_.empty()) return root_;
    JsonValue& parent = *open_.back();
    if (parent.is(JsonValue::Kind::array)) {
      const std::string index = std::to_string(parent.elements_.size());
      JsonValue& value = parent.elements_.emplace_back();
      value.pointer_ = parent.pointer_ + "/" + index;
      return value;
    }
    JsonValue& value = parent.members_.emplace_back().value;
    parent.members_.back().name = key_;
    value.pointer_ = parent.pointer_ + "/" + escaped(key_);
    return value;
  }

  // The open values are the last ones of their parents, which do not grow while they are open.
  bool open(JsonValue::Kind kind) {
    JsonValue& value = add(kind);
    if (open_.size() == kDeepest) value.mistake("too many levels of nesting");
    open_.push_back(&value);
    names_.emplace_back();
    return true;
  }
  bool close() {
    open_.pop_back();
    names_.pop_back();
    return true;
  }

  std::string_view text_;
  std::shared_ptr<const std::string> file_;
  JsonValue root_;
  std::vector<JsonValue*> open_;
  std::vector<std::unordered_set<std::string>> names_;  // that each of them has so far
  std::string key_;
};

JsonValue readJsonText(std::string_view text, const std::string& file) {
  if (text.empty()) throw Mistake(file + ": is empty");
  // For the library that would be the end.
  if (text.find('\0') != std::string_view::npos) throw Mistake(file + ": holds a byte 00");
  JsonReader reader(text, file);
  nlohmann::json::sax_parse(text.begin(), text.end(), &reader);
  return reader.take();
}

JsonValue readJsonFile(const std::string& path) { return readJsonText(readWholeFile(path), path); }

}  // namespace tarvordp
