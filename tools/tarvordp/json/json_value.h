// A JSON document as the program's files need it: numbers as they were written, members in their
// order, and every value able to say where it stands.
//
// Read with a JSON library; kept here because amounts must not pass through binary floating point,
// and because a mistake is told with its place.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvordp {

class JsonValue {
 public:
  enum class Kind { null, boolean, number, text, array, object };

  struct Member;

  Kind kind() const noexcept { return kind_; }
  bool is(Kind kind) const noexcept { return kind_ == kind; }

  // "null", "true or false", "a number", "a text", "an array", "an object".
  std::string_view kindName() const noexcept;

  // REQUIRES: the kind that the name says.
  bool boolean() const noexcept { return boolean_; }
  const std::string& text() const noexcept { return text_; }        // UTF-8, may hold character 0
  const std::string& numberText() const noexcept { return text_; }  // as written: "-12.50", "1e3"
  const std::vector<JsonValue>& elements() const noexcept { return elements_; }
  const std::vector<Member>& members() const noexcept { return members_; }

  // The member of that name; nullptr when there is none.  REQUIRES: an object.
  const JsonValue* find(std::string_view name) const noexcept;

  // The file that it was read from, as given, and its place there as a JSON pointer ("" the root).
  const std::string& file() const noexcept { return *file_; }
  const std::string& pointer() const noexcept { return pointer_; }

  // Raises: always Mistake, "FILE: POINTER: what is wrong"; the root is told as "the document".
  [[noreturn]] void mistake(const std::string& whatIsWrong) const;

  // --- Reading with the kind checked.  Raises: Mistake.
  bool asBoolean() const;
  const std::string& asText() const;
  const JsonValue& asArray() const;   // itself
  const JsonValue& asObject() const;  // itself
  // A whole number in the range.
  std::int64_t asWholeNumber(std::int64_t least, std::int64_t greatest) const;

 private:
  friend class JsonReader;

  Kind kind_ = Kind::null;
  bool boolean_ = false;
  std::string text_;
  std::vector<JsonValue> elements_;
  std::vector<Member> members_;
  std::shared_ptr<const std::string> file_;
  std::string pointer_;
};

struct JsonValue::Member {
  std::string name;
  JsonValue value;
};

// Reads a file, or a text that is told as that file.  Numbers may have any number of digits; one
// beyond a binary number's range is a mistake.
// Raises: Mistake for a file that cannot be read, text that is no JSON (with line and column),
// a name that stands twice in one object, and more than 100 levels of nesting.
JsonValue readJsonFile(const std::string& path);
JsonValue readJsonText(std::string_view text, const std::string& file);

// An object whose keys are known: what is asked for is taken, and what nobody asked for is a
// mistake.
class KnownKeys {
 public:
  // Raises: Mistake when it is no object.  The value must live as long as this.
  explicit KnownKeys(const JsonValue& object);

  // The member of that name; nullptr when it is not there.
  const JsonValue* optional(std::string_view name);
  // Raises: Mistake when it is not there.
  const JsonValue& required(std::string_view name);

  // Raises: Mistake at the first member that neither was asked for.
  void nothingElse() const;

 private:
  const JsonValue& object_;
  std::vector<std::string_view> asked_;
};

}  // namespace tarvordp
