// The calibration output of the printer channel.  Everything is written through sWrite and sWriteLn
// with the profile's codes.
#include "frame/checked.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"

namespace tarvo {
namespace {

constexpr std::int16_t kStepsPerUnit = 6;
constexpr std::int16_t kStepsPerHalfUnit = 3;
constexpr TextView kNineBlanks = u"         ";

}  // namespace

void clsUtilImp::sPrintUnderscore(std::int16_t valNumberOfUnderscore, bool valSkipLine) try {
  countedLoop<std::int16_t>(1, valNumberOfUnderscore, [this](std::int16_t) { sWrite(u"_", 0); });
  if (valSkipLine) sWriteLn({}, 0);
} catch (...) {
  trap("sPrintUnderscore");
}

void clsUtilImp::sPrintVerticalRule(std::int16_t valLength, bool valEndWitFormFeed) try {
  sWrite(chrReset_, 0);
  const std::int16_t steps = checkedMultiply(valLength, kStepsPerUnit);
  sWrite(chrNormal_, 0);
  sWrite(chrCondensed_, 0);
  sWrite(chrHighLine1Point_, 0);
  sWriteLn(u"----", 0);
  countedLoop<std::int16_t>(1, steps, [this](std::int16_t step) { writeVerticalStep(step); });
  sWrite(chrHighLine12Points_, 0);
  if (valEndWitFormFeed) sWrite(chrFormFeed_, 0);
} catch (...) {
  trap("sPrintVerticalRule");
}

void clsUtilImp::writeVerticalStep(std::int16_t step) {
  sWriteLn({}, 0);
  if (step % kStepsPerUnit == 0) {
    sWriteLn(numberText(static_cast<double>(step) / kStepsPerUnit) + u"---- ", 0);
  } else if (step % kStepsPerHalfUnit == 0) {
    sWriteLn(u"--", 0);
  } else {
    sWriteLn(u"-", 0);
  }
}

void clsUtilImp::sPrintHorizontalRule(bool valDoFormFeed, std::int16_t valLengthNormalRule,
                                      std::int16_t valLengthCondensedRule) try {
  sWrite(chrReset_, 0);
  sWrite(chrNormal_, 0);
  writeUnitsLine(valLengthNormalRule);
  writeTensLine(valLengthNormalRule);
  sWriteLn({}, 0);
  sWriteLn({}, 0);
  sWrite(chrCondensed_, 0);
  writeUnitsLine(valLengthCondensedRule);
  writeTensLine(valLengthCondensedRule);
  sWrite(chrNormal_, 0);
  if (valDoFormFeed) sWrite(chrFormFeed_, 0);
} catch (...) {
  trap("sPrintHorizontalRule");
}

void clsUtilImp::writeUnitsLine(std::int16_t groups) {
  countedLoop<std::int16_t>(1, groups, [this](std::int16_t) {
    countedLoop<std::int16_t>(0, 9, [this](std::int16_t digit) { sWrite(numberText(digit), 0); });
  });
  sWriteLn({}, 0);
}

void clsUtilImp::writeTensLine(std::int16_t groups) {
  sWrite(u" ", 0);
  const std::int16_t last = checkedSubtract(groups, std::int16_t{1});
  countedLoop<std::int16_t>(
      1, last, [this](std::int16_t group) { sWrite(numberText(group).append(kNineBlanks), 0); });
}

void clsUtilImp::sPrintTestPage() try {
  sWrite(chrReset_, 0);
  sWriteLn(chrNormal_ + u"  PAGINA DE PRUEBA IMPRESION MODO TEXTO", 0);
  sWriteLn({}, 0);
  sWriteLn(chrNormal_ + u"     Texto Normal      : PRUEBA", 0);
  sWriteLn(chrNormal_ + u"     Texto Comprimido  : " + chrCondensed_ + u"PRUEBA" + chrNormal_, 0);
  sWriteLn(chrNormal_ + u"     Texto en Negrillas: " + chrBold_ + u"PRUEBA" + chrLight_, 0);
  sWriteLn(chrNormal_ + u"     Texto Subrayado   : " + chrInitUnderlying_ + u"PRUEBA" +
               chrEndUnderlying_,
           0);
  sWriteLn({}, 0);
  sWriteLn(
      chrNormal_ + u"     Texto Expandido   : " + chrInitExpanded_ + u"PRUEBA" + chrEndExpanded_,
      0);
  sWriteLn(chrNormal_ + u"     Saltos de Puntos (Mini Regla Vertical): ", 0);
  sPrintVerticalRule(3, false);
  sWriteLn({}, 0);
  sWriteLn(chrNormal_ +
               u"     Nota: para verificar los saltos de puntos, tome una regla normal y chequee",
           0);
  sWriteLn(chrNormal_ + u"           que la mini regla mida 1.3 centimetros", 0);
  sWriteLn(chrNormal_ + u"  FIN PAGINA DE PRUEBA", 0);
  sWrite(chrFormFeed_, 0);
} catch (...) {
  trap("sPrintTestPage");
}

Text clsUtilImp::numberText(const Value& number) const {
  Text text;
  const Ref<clsConvert> convert = modRDPGlobalValues::ofThisThread().refInsConvert;
  convert->fNumberToText(number, text);
  return text;
}

}  // namespace tarvo
