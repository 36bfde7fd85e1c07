#include "template/template_line.h"

#include <algorithm>

#include "frame/decimal.h"
#include "frame/upper_case.h"
#include "template/braces.h"

namespace tarvo {

TemplateLine::TemplateLine(TextView text, const ServicesSeen& services)
    : text_(text), services_(services), isComment_(trimBlanks(text).starts_with(kCommentMark)) {
  if (isComment_) readComment();
  findVariables();
  variablesEnd_ = variables_.data() + variables_.size();
}

void TemplateLine::readComment() {
  comment_ = text_;
  std::erase(comment_, kCommentMark[0]);
  asksForPause_ = upperCase(trimBlanks(comment_)) == kPauseWord;
}

void TemplateLine::findVariables() {
  constexpr std::size_t kNone = Text::npos;
  std::size_t open = kNone;
  for (std::size_t i = text_.find_first_of(u"{}"); i != kNone && isRegular_;
       i = text_.find_first_of(u"{}", i + 1)) {
    const bool opens = text_[i] == u'{';
    isRegular_ = opens == (open == kNone);
    if (isRegular_ && !opens) variables_.push_back({open, i - open - 1, {}});
    open = opens ? i : kNone;
  }
  if (open != kNone) isRegular_ = false;
}

void TemplateLine::beginReading(const clsObLineCharacts* reader) noexcept {
  reader_ = reader;
  if (!imageIsWhole_) image_.clear();
}

void TemplateLine::putText(std::size_t at, std::size_t begin, std::size_t end) {
  if (!imageIsWhole_) image_.replace(at, Text::npos, text_, begin, end - begin);
}

void TemplateLine::putValue(Variable& variable, std::size_t at, TextView value) {
  variable.value.form = SettledValue::Form::kUnknown;
  if (!imageIsWhole_) {
    image_.replace(at, Text::npos, value);
  } else if (value.size() == variable.valueSize) {
    value.copy(image_.data() + at, value.size());
  } else {
    image_.replace(at, variable.valueSize, value);
  }
  variable.valueSize = value.size();
  if (imageIsWhole_ || &variable != &variables_.back()) return;
  image_.append(text_, variable.end());
  imageIsWhole_ = true;
  hasKeptValues_ = mayKeepValues();
}

// A text that fills its length and begins with blanks changes places with them, and one with a
// brace is read again.
bool TemplateLine::putTextField(Variable& variable, std::size_t at, TextView text) {
  const bool isFull = text.size() == variable.valueSize;
  if (isFull && text.front() == u' ' && text.back() != u' ') return false;
  if (holdsBrace(text)) return false;
  variable.value.form = SettledValue::Form::kTextField;
  variable.value.fieldSize = static_cast<std::uint8_t>(text.size());
  char16_t* const place = image_.data() + at;
  std::fill_n(std::copy_n(text.data(), text.size(), place), variable.valueSize - text.size(), u' ');
  return true;
}

void TemplateLine::writeDueFields(const Variable* end) {
  std::size_t at = 0;
  std::size_t from = 0;
  for (Variable* variable = variables(); variable != end; ++variable) {
    at += variable->open - from;
    from = variable->end();
    SettledValue& value = variable->value;
    if (value.form == SettledValue::Form::kDueNumberField) {
      const ParsedAttributes& attributes = variable->parsed->ofNumber;
      services_.numbers().putField(value.number,
                                   {.decimals = attributes.decimalPlaces,
                                    .parenthesis = value.parenthesisIfNegative,
                                    .hasCommaDot = attributes.separatorOfCommasAndDot},
                                   {image_.data() + at, variable->valueSize});
      value.form = SettledValue::Form::kNumberField;
    }
    at += variable->valueSize;
  }
  if (end == variablesEnd()) hasDueFields_ = false;
}

}  // namespace tarvo
