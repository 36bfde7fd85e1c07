#include "ui/clsEnumPrint.h"

#include <array>

#include "frame/late_object.h"
#include "frame/modRDPGlobalValues.h"
#include "frame/upper_case.h"

namespace tarvo {
namespace {

LateObject& controlIn(const Ref<Object>& reference) {
  auto* control = dynamic_cast<LateObject*>(&*reference);
  if (control == nullptr) throw RunTimeError(kNoSuchMember, u"refComboBox");
  return *control;
}

// Case counts.  False as well when the object does not say.
bool fIsObjectOfType(const Ref<Object>& object, TextView typeName) {
  try {
    return controlIn(object).typeName() == typeName;
  } catch (...) {
    return false;
  }
}

void addItem(const Ref<Object>& comboBox, TextView text) {
  const std::array<Value, 1> arguments{Value(text)};
  controlIn(comboBox).call(u"AddItem", arguments);
}

void setListEntry(const Ref<Object>& comboBox, std::int16_t index, TextView text) {
  const std::array<Value, 1> indexes{Value(index)};
  controlIn(comboBox).put(u"List", indexes, text);
}

Ref<clsApi> platformCalls() { return modRDPGlobalValues::ofThisThread().refInsApi; }

void fitToItems(Ref<Object>& comboBox) {
  const std::int32_t width = platformCalls()->fWidthForItems(comboBox);
  controlIn(comboBox).put(u"Width", {}, width);
}

// The value (0 or 1) with that display text; 0 after a warning, if one is wanted.
std::int16_t numberOf(TextView text, const std::array<Text, 2>& displayTexts, bool isWarningWanted,
                      TextView enumeration) {
  const Text wanted = upperCase(text);
  for (std::int16_t value = 0; value < 2; ++value) {
    if (upperCase(displayTexts[static_cast<std::size_t>(value)]) == wanted) return value;
  }
  if (isWarningWanted) {
    Text warning(u"Valor ");
    warning.append(text).append(u" no existe en tipo enumerativo ").append(enumeration);
    const Ref<clsMessage> messages = modRDPGlobalValues::ofThisThread().refInsMessage;
    messages->sWarning(warning);
  }
  return 0;
}

}  // namespace

Text clsEnumPrint::fEnumPruebaODefinitivaToString(ePruebaODefinitiva valPruebaODefinitiva) {
  return valPruebaODefinitiva == ePOD_Borrador ? u"Borrador" : u"Imprimir Planilla";
}

Text clsEnumPrint::fEnumPrintingModeToString(ePrintingMode valPrintingMode) {
  return valPrintingMode == ePM_Graphic ? u"Impresión Gráfica" : u"Impresión Texto (DOS)";
}

std::int16_t clsEnumPrint::fStrPruebaODefinitivaToNum(TextView valPruebaODefinitiva,
                                                      bool valShowMessage) {
  return numberOf(valPruebaODefinitiva,
                  {fEnumPruebaODefinitivaToString(ePOD_Definitiva),
                   fEnumPruebaODefinitivaToString(ePOD_Borrador)},
                  valShowMessage, u"pruebaODefinitiva");
}

std::int16_t clsEnumPrint::fStrPrintingModeToNum(TextView PrintingMode, bool valShowMessage) {
  return numberOf(PrintingMode,
                  {fEnumPrintingModeToString(ePM_Text), fEnumPrintingModeToString(ePM_Graphic)},
                  valShowMessage, u"PrintingMode");
}

void clsEnumPrint::sFillComboBoxWithPruebaODefinitiva(Ref<Object>& refComboBox) {
  if (!fIsObjectOfType(refComboBox, u"ComboBox")) return;
  controlIn(refComboBox).call(u"Clear", {});
  addItem(refComboBox, fEnumPruebaODefinitivaToString(ePOD_Definitiva));
  addItem(refComboBox, fEnumPruebaODefinitivaToString(ePOD_Borrador));
  fitToItems(refComboBox);
  platformCalls()->sAdjustDropDown(refComboBox);
}

void clsEnumPrint::sFillComboBoxWithPrintingMode(Ref<Object>& refComboBox) {
  controlIn(refComboBox).call(u"Clear", {});
  const Text graphic = fEnumPrintingModeToString(ePM_Graphic);
  controlIn(refComboBox).put(u"Text", {}, graphic);
  setListEntry(refComboBox, 0, graphic);
  setListEntry(refComboBox, 1, fEnumPrintingModeToString(ePM_Text));
  controlIn(refComboBox).put(u"ListIndex", {}, std::int16_t{0});
  fitToItems(refComboBox);
}

}  // namespace tarvo
