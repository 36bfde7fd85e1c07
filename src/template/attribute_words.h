// The words that a special variable's attributes may be, in the order in which they are tried.
//
// A word is compared in capitals, without blanks at its ends.
#pragma once

#include <array>

#include "template/parsed_variable.h"

namespace tarvo {

struct AttributeWord {
  TextView word;
  TextView shortWord;  // empty: it has none
  void (*apply)(ParsedAttributes& attributes);
};

namespace detail {

template <eAlignmentType kAlignment>
void align(ParsedAttributes& attributes) {
  attributes.alignmentWasRead = true;
  attributes.alignmentType = kAlignment;
}

template <bool ParsedAttributes::*kFlag, bool kValue>
void set(ParsedAttributes& attributes) {
  attributes.*kFlag = kValue;
}

inline void applyCondition(ParsedAttributes& attributes) {
  attributes.variableToWriteEmpty = true;
  attributes.variableToApplyCondition = true;
}

}  // namespace detail

inline constexpr std::array<AttributeWord, 15> kAttributeWords{
    {{u"IZQUIERDA", u"QL", &detail::align<eAT_Left>},
     {u"DERECHA", u"QR", &detail::align<eAT_Right>},
     {u"CENTRO", u"QC", &detail::align<eAT_Center>},
     {u"JUSTIFICADO", u"QJ", &detail::align<eAT_Justify>},
     {u"SINCOMAS", u"SC", &detail::set<&ParsedAttributes::printComa, false>},
     {u"NOCERO", u"NC", &detail::set<&ParsedAttributes::printZero, false>},
     {u"NOBLANCOS", u"NB", &detail::set<&ParsedAttributes::notSpacesToTheSides, true>},
     {u"CONCEROS", u"C0", &detail::set<&ParsedAttributes::fillWithZero, true>},
     {u"COMASYPUNTO", u"CP", &detail::set<&ParsedAttributes::separatorOfCommasAndDot, true>},
     {u"FILL", u"REPEAT", &detail::set<&ParsedAttributes::repeatCharsUntilFill, true>},
     // Three words for the same.
     {u"VACIA", u"VACIO", &detail::applyCondition},
     {u"CONDICION", u"", &detail::applyCondition},
     {u"IIF", u"", &detail::set<&ParsedAttributes::valueComesInAttrib, true>},
     {u"DATEFORMAT", u"DF", &detail::set<&ParsedAttributes::dateFormatWasRead, true>},
     {u"QLR", u"", &detail::set<&ParsedAttributes::conditionalValuesHaveSpaces, true>}}};

// An attribute that starts so is a separator pattern, see clsObSpecialVar_pattern.cpp.
inline constexpr TextView kSeparatorPatternStart = u"PATRONSEPARADOR=";

}  // namespace tarvo
