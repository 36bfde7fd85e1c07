// The public enumerations.  Their values are stored and travel as 32-bit integers; a property that
// holds one does not check it.
#pragma once

#include <cstdint>

namespace tarvo {

enum eAlignmentType : std::int32_t {
  eAT_Right = 0,
  eAT_Left = 1,
  eAT_Center = 2,
  eAT_Justify = 3,
};

enum ePaperWidth : std::int32_t {
  ePW_a80 = 0,
  ePW_a132 = 1,
  ePW_a227 = 2,
};

enum eTypeTitleColumn : std::int32_t {
  TTC_Ninguno = 0,
  TTC_ComienzoDePagina = 1,
  TTC_Programador = 2,
  TTC_Ambos = 3,
};

enum eTypeFieldRecord : std::int32_t {
  TFR_String = 0,
  TFR_Numeric = 1,
  TFR_Enum = 2,
  TFR_Table = 3,
  TFR_Date = 4,
  TFR_Boolean = 5,
  TFR_ShortText = 6,
  TFR_LongText = 7,
  TFR_Array = 8,
  TFR_Hour = 9,
  TFR_Calculated = 10,
};

enum eHojaDeLaPlanilla : std::int32_t {
  eHP_PrimeraHoja = 0,
  eHP_SegundaHoja = 1,
  eHP_AmbasHojas = 2,
};

enum ePruebaODefinitiva : std::int32_t {
  ePOD_Definitiva = 0,
  ePOD_Borrador = 1,
};

enum ePrintingDevice : std::int32_t {
  ePD_Screen = 0,
  ePD_Printer = 1,
  ePD_Disk = 2,
};

enum ePrintingMode : std::int32_t {
  ePM_Text = 0,
  ePM_Graphic = 1,
};

}  // namespace tarvo
