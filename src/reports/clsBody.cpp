#include "reports/clsBody.h"

namespace tarvo {

clsBody::clsBody() = default;
clsBody::~clsBody() = default;

Value clsBody::GetLinesArray() const { return ValueArray(lines_.begin(), lines_.end()); }

void clsBody::SetLinesArray(std::int16_t valIndex, TextView valNewValue) {
  const auto index = static_cast<std::size_t>(valIndex);
  if (valIndex < 0 || index >= kMostLines) throw RunTimeError(kSubscriptOutOfRange);
  lines_[index] = Text(valNewValue);
}

const Text& clsBody::line(std::size_t index) const {
  static const Text kNever;
  if (index >= kMostLines) throw RunTimeError(kSubscriptOutOfRange);
  const Text* text = lines_[index].tryGet<Text>();
  return text != nullptr ? *text : kNever;
}

void clsBody::SetCharacterToTheLeftSide(TextView valNewValue) { character_ = valNewValue; }

}  // namespace tarvo
