// The separator pattern: blanks between the characters of a value, as pre-printed boxes need them.
//
// PATRONSEPARADOR=2C3B-B has two elements, separated by "-".  They are used in turn, the first one
// between the first two characters of the value.  An element is one code or several; a code is a
// count (1 when it is not written) and a letter: B for blanks, C for blanks in condensed print.  It
// is kept in capitals, in whichever case it was written.
#include "frame/checked.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "template/clsObSpecialVar.h"

namespace tarvo {
namespace {

constexpr TextView kCodeEnd = u".";

// With kCodeEnd between its codes.
Text withCodesApart(clsTexto& texto, TextView element) {
  Text condensedEnded;
  texto.fReplaceAll(element, u"C", u"C.", condensedEnded);
  Text ended;
  texto.fReplaceAll(condensedEnded, u"B", u"B.", ended);
  if (ended.ends_with(kCodeEnd)) ended.pop_back();
  return ended;
}

}  // namespace

void clsObSpecialVar::fDoSpecialSeparationString(TextView text, Text& result) try {
  Text spread(text.substr(0, 1));
  Text separation;
  const auto gaps = narrow<std::int16_t>(text.empty() ? 0 : text.size() - 1);
  countedLoop(std::int16_t{1}, gaps, [&](std::int16_t gap) {
    fGetCharsFromSpecialSeparationString(gap, separation);
    spread.append(separation).push_back(text[static_cast<std::size_t>(gap)]);
  });
  result.swap(spread);
} catch (...) {
  trap("fDoSpecialSeparationString");
}

void clsObSpecialVar::fGetCharsFromSpecialSeparationString(std::int16_t gap, Text& result) try {
  const Ref<clsTexto> texto = modRDPGlobalValues::ofThisThread().refInsTexto;
  TextList elements;
  const Ref<VariableNames> held = names_;
  texto->fSplit(held->specialSeparationString, u"-", elements);
  if (elements.empty()) throw RunTimeError(kSubscriptOutOfRange);
  const Text& element = elements[static_cast<std::size_t>(gap - 1) % elements.size()];
  if (element.size() <= 1) {
    fConvierteBCEnImprimible(element, result);
    return;
  }
  TextList codes;
  texto->fSplit(withCodesApart(*texto, element), kCodeEnd, codes);
  result.clear();
  Text printable;
  for (const Text& code : codes) {
    fConvierteBCEnImprimible(code, printable);
    result += printable;
  }
} catch (...) {
  trap("fGetCharsFromSpecialSeparationString");
}

// An empty code is no blank.
void clsObSpecialVar::fConvierteBCEnImprimible(TextView code, Text& result) try {
  const modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
  result.clear();
  if (code.empty()) return;
  std::int16_t count = 1;
  if (code.size() > 1) {
    const Ref<clsConvert> convert = services.refInsConvert;
    count = convert->fTextToInteger(code.substr(0, code.size() - 1));
  }
  const Ref<clsTexto> texto = services.refInsTexto;
  texto->fRepeat(u" ", count, result);
  if (code.back() != u'C') return;
  const Ref<clsUtilImp> printer = services.refInsImp;
  result.insert(0, printer->GetChrCondensed());
  result += printer->GetChrNormal();
} catch (...) {
  trap("fConvierteBCEnImprimible");
}

}  // namespace tarvo
