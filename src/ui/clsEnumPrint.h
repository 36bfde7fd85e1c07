// The display texts of the enumerations that operators see, and combo boxes filled with them.
//
//   ePruebaODefinitiva  ePOD_Definitiva "Imprimir Planilla", ePOD_Borrador "Borrador"
//   ePrintingMode       ePM_Text "Impresión Texto (DOS)", ePM_Graphic "Impresión Gráfica"
//
// A combo box is whatever offers the members that a fill uses, by name: the client's control, or
// any other object.
//
// Errors: no operation has a handler; a run-time error goes to the caller as it is.
//
// Threads: the client's.
#pragma once

#include <cstdint>

#include "frame/enums.h"
#include "frame/object.h"
#include "frame/text.h"

namespace tarvo {

class clsEnumPrint final : public Object {
 public:
  // The value's text; that of value 0 for a value outside the enumeration.
  Text fEnumPruebaODefinitivaToString(ePruebaODefinitiva valPruebaODefinitiva);
  Text fEnumPrintingModeToString(ePrintingMode valPrintingMode);

  // The value with that text, capitals or not; 0 for a text that no value has.
  //   valShowMessage  whether the operator is warned of such a text
  // Raises: what the message service raises; 91 when it is needed and missing.
  std::int16_t fStrPruebaODefinitivaToNum(TextView valPruebaODefinitiva, bool valShowMessage);
  std::int16_t fStrPrintingModeToNum(TextView PrintingMode, bool valShowMessage);

  // Empties the combo box, fills it with both texts in the order of their values, and makes it as
  // wide as its items need.  An object whose type is not "ComboBox" by name, and one that does not
  // say its type, is left alone.
  // Raises: what the control and the platform-call service raise.
  void sFillComboBoxWithPruebaODefinitiva(Ref<Object>& refComboBox);

  // The same for the printing modes, of any object.  Here the list begins with graphic printing,
  // which is chosen then: the list's index is not the enumeration's value.
  // Raises: 91 for an empty reference, 438 for an object without such members; as above.
  void sFillComboBoxWithPrintingMode(Ref<Object>& refComboBox);
};

}  // namespace tarvo
