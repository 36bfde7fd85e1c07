// The public enumerations as the type library shows them.
#pragma once

#include <array>

#include "frame/enums.h"
#include "frame/member_table.h"

namespace tarvo {

template <>
struct Enumeration<eAlignmentType> {
  static constexpr std::array<EnumInfo::Constant, 4> constants{{{"eAT_Right", eAT_Right},
                                                                {"eAT_Left", eAT_Left},
                                                                {"eAT_Center", eAT_Center},
                                                                {"eAT_Justify", eAT_Justify}}};
  static constexpr EnumInfo info{"eAlignmentType", "How a value stands in its width", constants};
};

template <>
struct Enumeration<ePaperWidth> {
  static constexpr std::array<EnumInfo::Constant, 3> constants{
      {{"ePW_a80", ePW_a80}, {"ePW_a132", ePW_a132}, {"ePW_a227", ePW_a227}}};
  static constexpr EnumInfo info{"ePaperWidth", "Columns of the paper", constants};
};

template <>
struct Enumeration<eTypeTitleColumn> {
  static constexpr std::array<EnumInfo::Constant, 4> constants{
      {{"TTC_Ninguno", TTC_Ninguno},
       {"TTC_ComienzoDePagina", TTC_ComienzoDePagina},
       {"TTC_Programador", TTC_Programador},
       {"TTC_Ambos", TTC_Ambos}}};
  static constexpr EnumInfo info{"eTypeTitleColumn", "Where column titles are printed", constants};
};

template <>
struct Enumeration<eTypeFieldRecord> {
  static constexpr std::array<EnumInfo::Constant, 11> constants{
      {{"TFR_String", TFR_String},
       {"TFR_Numeric", TFR_Numeric},
       {"TFR_Enum", TFR_Enum},
       {"TFR_Table", TFR_Table},
       {"TFR_Date", TFR_Date},
       {"TFR_Boolean", TFR_Boolean},
       {"TFR_ShortText", TFR_ShortText},
       {"TFR_LongText", TFR_LongText},
       {"TFR_Array", TFR_Array},
       {"TFR_Hour", TFR_Hour},
       {"TFR_Calculated", TFR_Calculated}}};
  static constexpr EnumInfo info{"eTypeFieldRecord", "Kind of a value", constants};
};

template <>
struct Enumeration<eHojaDeLaPlanilla> {
  static constexpr std::array<EnumInfo::Constant, 3> constants{
      {{"eHP_PrimeraHoja", eHP_PrimeraHoja},
       {"eHP_SegundaHoja", eHP_SegundaHoja},
       {"eHP_AmbasHojas", eHP_AmbasHojas}}};
  static constexpr EnumInfo info{"eHojaDeLaPlanilla", "Sheets of a form", constants};
};

template <>
struct Enumeration<ePruebaODefinitiva> {
  static constexpr std::array<EnumInfo::Constant, 2> constants{
      {{"ePOD_Definitiva", ePOD_Definitiva}, {"ePOD_Borrador", ePOD_Borrador}}};
  static constexpr EnumInfo info{"ePruebaODefinitiva", "Final print or draft", constants};
};

template <>
struct Enumeration<ePrintingDevice> {
  static constexpr std::array<EnumInfo::Constant, 3> constants{
      {{"ePD_Screen", ePD_Screen}, {"ePD_Printer", ePD_Printer}, {"ePD_Disk", ePD_Disk}}};
  static constexpr EnumInfo info{"ePrintingDevice", "Where a report goes", constants};
};

template <>
struct Enumeration<ePrintingMode> {
  static constexpr std::array<EnumInfo::Constant, 2> constants{
      {{"ePM_Text", ePM_Text}, {"ePM_Graphic", ePM_Graphic}}};
  static constexpr EnumInfo info{"ePrintingMode", "Text or graphic printing", constants};
};

using PublicEnumerations =
    EnumList<eAlignmentType, ePaperWidth, eTypeTitleColumn, eTypeFieldRecord, eHojaDeLaPlanilla,
             ePruebaODefinitiva, ePrintingDevice, ePrintingMode>;

}  // namespace tarvo
