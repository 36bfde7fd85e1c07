#include "template/template_line.h"

#include "frame/decimal.h"

namespace tarvo {

TemplateLine::TemplateLine(TextView text, const ServicesSeen& services)
    : text_(text), services_(services), isComment_(trimBlanks(text).starts_with(kCommentMark)) {
  findVariables();
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
  variable.value.isKnown = false;
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

}  // namespace tarvo
