// From the value to the text that is printed.
#include <array>
#include <limits>

#include "frame/borrowed.h"
#include "frame/checked.h"
#include "template/clsObSpecialVar.h"

namespace tarvo {
namespace {

constexpr TextView kBlank = u" ";
constexpr TextView kQuote = u"\"";

// As many as the greatest length.
constexpr auto kBlanks = [] {
  std::array<char16_t, std::numeric_limits<std::uint8_t>::max()> blanks{};
  blanks.fill(u' ');
  return blanks;
}();

// Whether the condition names the content, between double quotes.
bool holdsQuoted(TextView condition, TextView content) noexcept {
  const std::size_t size = content.size() + 2;
  for (std::size_t at = 0; at + size <= condition.size(); ++at) {
    if (condition[at] == kQuote[0] && condition[at + size - 1] == kQuote[0] &&
        condition.substr(at + 1, content.size()) == content) {
      return true;
    }
  }
  return false;
}

// Raises: 9 when the list has no such item; 13 when it is no list, or the item no text.
const Text& itemOf(const Value& list, std::size_t index) {
  const auto* items = list.tryGet<ValueArray>();
  if (items == nullptr) throw RunTimeError(kTypeMismatch);
  if (index >= items->size()) throw RunTimeError(kSubscriptOutOfRange);
  const auto* item = (*items)[index].tryGet<Text>();
  if (item == nullptr) throw RunTimeError(kTypeMismatch);
  return *item;
}

}  // namespace

// Whether the number formatting has made the right-aligned field already.
inline bool clsObSpecialVar::isPrintedNumber() const noexcept {
  return typeField_ == TFR_Numeric && (a_->printZero || contentNumeric_ != Currency{});
}

inline bool clsObSpecialVar::mustBeAligned() const noexcept {
  return a_->length != 0 && !(a_->alignmentType == eAT_Right && isPrintedNumber());
}

void clsObSpecialVar::sFormatSpecialVar() try {
  takeOwedText();
  holdsMore_ = true;
  switch (typeField_) {
    case TFR_Numeric:
      sFormatNumber();
      break;
    case TFR_Enum:
      sFormatEnum();
      break;
    case TFR_Date:
      sFormatDate();
      break;
    case TFR_Boolean:
      sFormatBool();
      break;
    default:
      sFormatString();
  }
  if (mustBeAligned()) sAlignTextToWrite();
  if (a_->notSpacesToTheSides || a_->fillWithZero || a_->usingSpecialSeparationString) {
    finishTextToWrite();
  }
} catch (...) {
  trap("sFormatSpecialVar");
}

void clsObSpecialVar::finishTextToWrite() {
  Borrowed<Text> before(scratch_);
  if (a_->notSpacesToTheSides) {
    before->assign(textToWrite_);
    texto()->fTrim(*before, textToWrite_);
  }
  if (a_->fillWithZero && typeField_ == TFR_Numeric) {
    before->assign(textToWrite_);
    texto()->fReplaceAll(*before, kBlank, u"0", textToWrite_);
  }
  if (a_->usingSpecialSeparationString) {
    before->assign(textToWrite_);
    fDoSpecialSeparationString(*before, textToWrite_);
  }
}

void clsObSpecialVar::sFormatNumber() try {
  textToWrite_.clear();
  if (!isPrintedNumber()) return;
  const Ref<clsConvert> numbers = convert();
  if (!a_->printComa) {
    writePlainNumber(*numbers);
  } else if (a_->separatorOfCommasAndDot) {
    numbers->fFormatNumberCommaDot(contentNumeric_, a_->length, a_->decimalPlaces,
                                   parenthesisIfNegative_, textToWrite_);
  } else {
    numbers->fFormatNumberDotComma(contentNumeric_, a_->length, a_->decimalPlaces,
                                   parenthesisIfNegative_, textToWrite_);
  }
} catch (...) {
  trap("sFormatNumber");
}

// Without marks between thousands the decimals are the value's own, or none.
void clsObSpecialVar::writePlainNumber(clsConvert& numbers) {
  Currency value = contentNumeric_;
  if (a_->decimalPlaces == 0) {
    const Ref<clsUtilMathOperations> math = services_.refInsUtilMathOperations;
    value = math->fRound(value, 0);
  }
  Borrowed<Text> number(scratch_);
  numbers.fNumberToText(Value(value), *number);
  texto()->fAlignRight(*number, a_->length, textToWrite_);
}

void clsObSpecialVar::sFormatDate() try {
  const Ref<clsUtilDate> service = dates();
  if (a_->dateFormatWasRead) {
    const Ref<const VariableNames> held(names_);
    service->fFormatDate(contentDate_, held->dateFormat, textToWrite_);
  } else {
    service->fDefaultDateText(contentDate_, textToWrite_);
  }
} catch (...) {
  trap("sFormatDate");
}

void clsObSpecialVar::sFormatString() try {
  const TextView text = contentText();
  if (a_->length == 0) {
    textToWrite_ = text;
  } else if (a_->repeatCharsUntilFill && text.size() == 1) {
    texto()->fRepeat(text, a_->length, textToWrite_);
  } else if (mayBypassTexto()) {
    textToWrite_.clear();
    textToWrite_.append(text.substr(0, a_->length));
    fillUpToLength();
  } else {
    texto()->fPadOrCut(text, a_->length, kBlank, textToWrite_);
  }
} catch (...) {
  trap("sFormatString");
}

// Writes the first of the IIF's values when its condition names the content, else the second.
void clsObSpecialVar::writePossibleValue(TextView content) {
  const Ref<IifValues> list = iif_;
  const std::size_t index = holdsQuoted(names().iifCondition, content) ? 0 : 1;
  const Text& item = itemOf(list->values, index);
  if (mayBypassTexto()) {
    textToWrite_ = item;
    std::erase(textToWrite_, kQuote[0]);
  } else {
    texto()->fReplaceAll(item, kQuote, {}, textToWrite_);
  }
}

void clsObSpecialVar::sFormatEnum() try {
  // A list that an earlier variable left behind is not this one's.
  if (!hasIifOfItsOwn_) throw RunTimeError(kTypeMismatch);
  writePossibleValue(contentEnum_);
} catch (...) {
  trap("sFormatEnum");
}

void clsObSpecialVar::sFormatBool() try {
  const Ref<clsConvert> booleans = convert();
  if (names().iifCondition.empty()) {
    booleans->fBooleanToText(contentBool_, textToWrite_);
    return;
  }
  Borrowed<Text> text(scratch_);
  booleans->fBooleanToText(contentBool_, *text);
  writePossibleValue(*text);
} catch (...) {
  trap("sFormatBool");
}

// Aligns a text that needs no more than blanks behind it, or nothing at all, as most do.  By what
// the text service promises, so only in place of one that may be bypassed.
bool clsObSpecialVar::alignInPlace() {
  Text& text = textToWrite_;
  const bool isLeft = a_->alignmentType == eAT_Left;
  if (text.size() == a_->length) {
    const bool startsBlank = text.front() == kBlank[0];
    const bool endsBlank = text.back() == kBlank[0];
    return isLeft ? endsBlank || !startsBlank : !endsBlank && !startsBlank;
  }
  if (text.size() > a_->length || !isLeft) return false;
  fillUpToLength();
  return true;
}

// REQUIRES: the text is no longer.
void clsObSpecialVar::fillUpToLength() {
  textToWrite_.append(kBlanks.data(), a_->length - textToWrite_.size());
}

void clsObSpecialVar::sAlignTextToWrite() try {
  takeOwedText();
  holdsMore_ = true;
  if (!mustBeAligned()) return;
  if (mayBypassTexto() && alignInPlace()) return;
  alignThroughService();
} catch (...) {
  trap("sAlignTextToWrite");
}

void clsObSpecialVar::alignThroughService() {
  Borrowed<Text> before(scratch_);
  before->assign(textToWrite_);
  switch (a_->alignmentType) {
    case eAT_Right:
      texto()->fAlignRight(*before, a_->length, textToWrite_);
      break;
    case eAT_Left:
      texto()->fAlignLeft(*before, a_->length, textToWrite_);
      break;
    case eAT_Center:
      texto()->fAlignCenter(*before, a_->length, textToWrite_);
      break;
    case eAT_Justify:
      fJustifyStr(*before, a_->length, textToWrite_);
      break;
    default:  // a number that a client has set, and that is no alignment
      break;
  }
}

// Widens the gaps between the words, each by one blank and then again, until the text is as long as
// the width.  A pass that has begun is finished, so the text may come out longer.  A text that does
// not come to the width in the pass (one word, too few gaps) makes the place run out of its type.
void clsObSpecialVar::fJustifyStr(TextView text, std::int16_t width, Text& result) try {
  const Ref<clsTexto> texts = texto();
  Text justified;
  Text widened;
  texts->fTrim(text, justified);
  const auto length = [&justified] { return static_cast<std::ptrdiff_t>(justified.size()); };
  const auto isBlank = [&](std::ptrdiff_t place) {
    return place <= length() && justified[static_cast<std::size_t>(place - 1)] == kBlank[0];
  };
  std::ptrdiff_t before = 0;
  while (length() < width && before < length()) {
    before = length();
    std::int16_t i = 1;
    while (isBlank(i)) i = checkedAdd(i, std::int16_t{1});
    while (length() < width - 1 || i < length()) {
      if (isBlank(i) && !isBlank(i + 1)) {
        texts->fInsert(justified, kBlank, i, widened);
        justified.swap(widened);
        i = checkedAdd(i, std::int16_t{1});
      }
      i = checkedAdd(i, std::int16_t{1});
    }
  }
  result.swap(justified);
} catch (...) {
  trap("fJustifyStr");
}

}  // namespace tarvo
