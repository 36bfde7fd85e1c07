// A template line that has been looked through: where its variables stand, what each of them says
// once it was read, and how the line came out the last time.
//
// Only a regular line, one whose braces come in pairs, and no comment, is translated by it; any
// other line is taken as it comes.  It depends on the text and the services alone.
//
// Its image is the line with the values of the last translation.  The next one goes through it from
// left to right and puts in the values that differ: what stands before the variable that is being
// resolved is this translation's, the rest still the last one's.  So there is one reader at a time.
#pragma once

#include <vector>

#include "frame/object.h"
#include "frame/text.h"
#include "template/control_words.h"
#include "template/parsed_variable.h"
#include "template/services_seen.h"
#include "template/settled_value.h"
#include "template/text_key.h"

namespace tarvo {

class clsObLineCharacts;

class TemplateLine final : public Object {
 public:
  struct Variable {
    std::size_t open;  // index of its "{" in the line
    std::size_t size;  // characters between its braces

    // Once it was read; empty as long as reading it must be done again.
    Ref<const ParsedVariable> parsed;
    Control control = Control::kNone;
    bool isConstant = false;  // its name begins with "@"

    // What stands in the image for it: how many characters, and for which value, if that is known.
    std::size_t valueSize = 0;
    SettledValue value{};

    // Whether the library has its value itself.
    bool isLibrarys = false;

    std::size_t end() const noexcept { return open + size + 2; }
  };

  // `services`: those with which its variables are read.
  TemplateLine(TextView text, const ServicesSeen& services);

  const Text& text() const noexcept { return text_; }

  // Whether the present services are those with which it is read.
  bool isOfPresentServices() const { return services_.arePresent(); }

  // The present printer channel; null when there is none.
  const clsUtilImp* printer() const noexcept { return services_.printer(); }

  // Whether a value that is known need not be formatted again.
  bool mayKeepValues() const noexcept { return services_.mayBypassAll(); }
  // And whether such values stand in the image.
  bool hasKeptValues() const noexcept { return hasKeptValues_; }

  // Whether its first characters but blanks are "...".
  bool isComment() const noexcept { return isComment_; }

  // What a comment says: the text without its full stops; and whether that is the pause word.
  const Text& comment() const noexcept { return comment_; }
  bool asksForPause() const noexcept { return asksForPause_; }

  // Whether every "{" has its "}" before the next one, and no "}" stands alone.
  bool isRegular() const noexcept { return isRegular_; }

  // In their order.  REQUIRES: a regular line.
  Variable* variables() noexcept { return variables_.data(); }
  const Variable* variablesEnd() const noexcept { return variablesEnd_; }

  // The line that is translated by it now; null when there is none.
  const clsObLineCharacts* reader() const noexcept { return reader_; }

  // A translation begins; the present reader has taken out what it needs.
  void beginReading(const clsObLineCharacts* reader) noexcept;
  void endReading() noexcept { reader_ = nullptr; }

  // Valid up to that variable, which is the first one that is not settled.
  const Text& imageUpTo(const Variable* variable) {
    if (hasDueFields_) writeDueFields(variable);
    return image_;
  }

  // --- Once every variable is settled.

  // The line as it comes out.
  const Text& whole() { return variables_.empty() ? text_ : imageUpTo(variablesEnd_); }

  // The last variable's value, which stands at `at`, and its characters.
  TextView lastValue(std::size_t at) { return TextView(whole()).substr(at, lastSize()); }
  std::size_t lastSize() const noexcept { return variables_.back().valueSize; }

  // Between the values: the line's own text from `begin` to `end` stands at `at`.
  void putText(std::size_t at, std::size_t begin, std::size_t end);

  // A variable's value stands at `at`, in place of the one of last time.
  void putValue(Variable& variable, std::size_t at, TextView value);

  // --- The same for a value that takes exactly its variable's length.  False: its place in the
  // --- image is another one, or the value is more than a field; nothing has happened.
  // --- REQUIRES: kept values, and a variable that was read.

  // A text to the left.
  bool takesTextField(Variable& variable, std::size_t at, TextView text);

  // A number; it is written when somebody looks at the image.
  bool takesNumberField(Variable& variable, Currency number, bool parenthesisIfNegative);

 private:
  void findVariables();
  void readComment();
  void writeDueFields(const Variable* end);
  bool putTextField(Variable& variable, std::size_t at, TextView text);

  Text text_;
  ServicesSeen services_;
  std::vector<Variable> variables_;
  const Variable* variablesEnd_ = nullptr;
  Text image_;
  bool imageIsWhole_ = false;  // every variable has a value in it
  bool hasKeptValues_ = false;
  bool hasDueFields_ = false;
  const clsObLineCharacts* reader_ = nullptr;
  Text comment_;
  bool isComment_;
  bool asksForPause_ = false;
  bool isRegular_ = true;
};

inline bool TemplateLine::takesNumberField(Variable& variable, Currency number,
                                           bool parenthesisIfNegative) {
  using Form = SettledValue::Form;
  if (variable.valueSize != variable.parsed->ofNumber.length || !services_.putsFields()) {
    return false;
  }
  SettledValue& value = variable.value;
  const bool isField = value.form == Form::kNumberField || value.form == Form::kDueNumberField;
  if (isField && value.number == number && value.parenthesisIfNegative == parenthesisIfNegative) {
    return true;
  }
  value.form = Form::kDueNumberField;
  value.number = number;
  value.parenthesisIfNegative = parenthesisIfNegative;
  hasDueFields_ = true;
  return true;
}

inline bool TemplateLine::takesTextField(Variable& variable, std::size_t at, TextView text) {
  const std::size_t length = variable.parsed->ofText.length;
  if (variable.valueSize != length) return false;
  if (text.size() > length) text = text.substr(0, length);
  const SettledValue& value = variable.value;
  if (value.form == SettledValue::Form::kTextField && value.fieldSize == text.size() &&
      TextEqual()(text, {image_.data() + at, text.size()})) {
    return true;
  }
  return putTextField(variable, at, text);
}

}  // namespace tarvo
