// The value that the client gives.
#include "frame/borrowed.h"
#include "template/clsObSpecialVar.h"

namespace tarvo {
namespace {

// Dates of earlier years stand for no date.
constexpr std::int16_t kFirstYearOfDates = 1998;

// A text that is kept to be compared with.
constexpr std::size_t kLongestKept = 255;

}  // namespace

void clsObSpecialVar::SetContentString(TextView valValue) try {
  // It may be the present content.
  if (valValue.size() <= kShort) {
    Text::traits_type::move(shortContent_.data(), valValue.data(), valValue.size());
    shortSize_ = valValue.size();
  } else {
    contentString_ = valValue;
    shortSize_ = kIsLong;
  }
  typeField_ = TFR_String;
  align(read_->ofText, eAT_Left);
} catch (...) {
  trap("SetContentString");
}

const Text& clsObSpecialVar::GetContentString() const {
  if (shortSize_ != kIsLong) {
    contentString_.assign(contentText());
    shortSize_ = kIsLong;
  }
  return contentString_;
}

void clsObSpecialVar::SetContentDate(Date valValue) try {
  holdsMore_ = true;
  contentDate_ = valValue;
  typeField_ = TFR_Date;
} catch (...) {
  trap("SetContentDate");
}

void clsObSpecialVar::SetContentEnum(TextView valValue) try {
  holdsMore_ = true;
  contentEnum_ = valValue;
  typeField_ = TFR_Enum;
} catch (...) {
  trap("SetContentEnum");
}

void clsObSpecialVar::SetContentBoolean(bool valValue) try {
  holdsMore_ = true;
  contentBool_ = valValue;
  typeField_ = TFR_Boolean;
} catch (...) {
  trap("SetContentBoolean");
}

void clsObSpecialVar::SetContentArray(TextView valValue, std::uint8_t valMaxWidth,
                                      std::int16_t valIndexPosition, bool valDoFillWithSpace,
                                      bool valPropertyArrayPositionIsValidForSet,
                                      std::int16_t valArrayPosition) try {
  const std::int16_t place = elementToTake(valIndexPosition, valDoFillWithSpace,
                                           valPropertyArrayPositionIsValidForSet, valArrayPosition);
  Borrowed<Text> filled(scratch_);
  TextView value = valValue;
  if (valDoFillWithSpace) {
    texto()->fPadOrCut(valValue, valMaxWidth, u" ", *filled);
    value = *filled;
  }
  const auto index = static_cast<std::size_t>(place);
  if (place < 1 || index > value.size()) {
    SetContentString(value);
  } else {
    SetContentString(value.substr(index - 1, 1));
  }
} catch (...) {
  trap("SetContentArray");
}

// -1: none, the whole text.  An index position other than -1 is no position: it says to take none.
std::int16_t clsObSpecialVar::elementToTake(std::int16_t indexPosition, bool doFillWithSpace,
                                            bool arrayPositionIsValid,
                                            std::int16_t arrayPosition) const noexcept {
  if (indexPosition != -1) return -1;
  if (a_->fieldOfArrayHasPositionInsideTheArray) return a_->indexOfValueInArray;
  if (arrayPositionIsValid || (doFillWithSpace && arrayPosition == -1)) {
    arrayPosition = a_->arrayPosition;
  }
  return arrayPosition > 0 ? arrayPosition : std::int16_t{-1};
}

void clsObSpecialVar::keepIn(SettledValue& value) const {
  if (typeField_ == TFR_String) {
    const TextView text = contentText();
    if (text.size() > kLongestKept) return;
    value.text.clear();
    value.text.append(text);
  }
  value.form = SettledValue::Form::kText;
  value.kind = typeField_;
  value.number = contentNumeric_;
  value.parenthesisIfNegative = parenthesisIfNegative_;
  value.date = contentDate_;
  value.attributes = *a_;
}

bool clsObSpecialVar::fIsEmpty() try {
  switch (typeField_) {
    case TFR_String:
      return contentText().empty();
    case TFR_Numeric:
      return contentNumeric_ == Currency{};
    case TFR_Date: {
      const Ref<clsUtilDate> service = dates();
      return service->fYear(contentDate_) < kFirstYearOfDates;
    }
    case TFR_Boolean:
      return !contentBool_;
    default:
      return false;
  }
} catch (...) {
  trap("fIsEmpty");
}

}  // namespace tarvo
