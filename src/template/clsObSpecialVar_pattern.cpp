// The separator pattern: blanks between the characters of a value, as pre-printed boxes need them.
//
// PATRONSEPARADOR=2C3B-B has two elements, separated by "-".  They are used in turn, the first one
// between the first two characters of the value.  An element is one code or several; a code is a
// count (1 when it is not written) and a letter: B for blanks, C for blanks in condensed print.  It
// is kept in capitals, in whichever case it was written.
#include "frame/borrowed.h"
#include "frame/checked.h"
#include "printer/clsUtilImp.h"
#include "template/clsObSpecialVar.h"

namespace tarvo {
namespace {

constexpr TextView kCodeEnd = u".";

// Puts kCodeEnd between the element's codes.
void setCodesApart(clsTexto& texto, TextView element, Text& condensedApart, Text& result) {
  texto.fReplaceAll(element, u"C", u"C.", condensedApart);
  texto.fReplaceAll(condensedApart, u"B", u"B.", result);
  if (result.ends_with(kCodeEnd)) result.pop_back();
}

}  // namespace

void clsObSpecialVar::fDoSpecialSeparationString(TextView text, Text& result) try {
  Borrowed<PatternTexts> texts(patternTexts_);
  Text& spread = texts->spread;
  spread.assign(text.substr(0, 1));
  const auto gaps = narrow<std::int16_t>(text.empty() ? 0 : text.size() - 1);
  countedLoop(std::int16_t{1}, gaps, [&](std::int16_t gap) {
    fGetCharsFromSpecialSeparationString(gap, *texts);
    spread.append(texts->separation).push_back(text[static_cast<std::size_t>(gap)]);
  });
  result.swap(spread);
} catch (...) {
  trap("fDoSpecialSeparationString");
}

void clsObSpecialVar::fGetCharsFromSpecialSeparationString(std::int16_t gap,
                                                           PatternTexts& texts) try {
  const Ref<clsTexto> service = texto();
  const Ref<const VariableNames> held(names_);
  service->fSplit(held->specialSeparationString, u"-", texts.elements);
  if (texts.elements.empty()) throw RunTimeError(kSubscriptOutOfRange);
  const Text& element = texts.elements[static_cast<std::size_t>(gap - 1) % texts.elements.size()];
  if (element.size() <= 1) {
    fConvierteBCEnImprimible(element, texts.separation);
    return;
  }
  setCodesApart(*service, element, texts.code, texts.element);
  service->fSplit(texts.element, kCodeEnd, texts.codes);
  texts.separation.clear();
  for (const Text& code : texts.codes) {
    fConvierteBCEnImprimible(code, texts.code);
    texts.separation += texts.code;
  }
} catch (...) {
  trap("fGetCharsFromSpecialSeparationString");
}

// An empty code is no blank.
void clsObSpecialVar::fConvierteBCEnImprimible(TextView code, Text& result) try {
  result.clear();
  if (code.empty()) return;
  std::int16_t count = 1;
  if (code.size() > 1) {
    count = convert()->fTextToInteger(code.substr(0, code.size() - 1));
  }
  texto()->fRepeat(u" ", count, result);
  if (code.back() != u'C') return;
  const Ref<clsUtilImp> printer = services_.refInsImp;
  result.insert(0, printer->GetChrCondensed());
  result += printer->GetChrNormal();
} catch (...) {
  trap("fConvierteBCEnImprimible");
}

}  // namespace tarvo
