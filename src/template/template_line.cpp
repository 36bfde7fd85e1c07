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
    if (isRegular_ && !opens) variables_.push_back({open, i - open - 1, {}, Control::kNone});
    open = opens ? i : kNone;
  }
  if (open != kNone) isRegular_ = false;
}

}  // namespace tarvo
