// The operations of the enumerations' texts, in interface order.
#pragma once

#include "frame/enums_members.h"
#include "frame/libraries.h"
#include "frame/member_table.h"
#include "ui/clsEnumPrint.h"

namespace tarvo {

template <>
struct Members<clsEnumPrint> {
  static constexpr const LibraryInfo& library = kPrintLibrary;
  static constexpr std::uint16_t number = 12;
  static constexpr const char* name = "clsEnumPrint";
  static constexpr const char* help = "The enumerations' texts, and combo boxes filled with them";
  static constexpr auto table = memberTable(
      method<&clsEnumPrint::fEnumPruebaODefinitivaToString>("fEnumPruebaODefinitivaToString",
                                                            "the text of final print or draft",
                                                            "valPruebaODefinitiva"),
      method<&clsEnumPrint::fStrPruebaODefinitivaToNum>(
          "fStrPruebaODefinitivaToNum", "final print or draft by its text, 0 for another text",
          "valPruebaODefinitiva", "valShowMessage"),
      method<&clsEnumPrint::sFillComboBoxWithPruebaODefinitiva>(
          "sFillComboBoxWithPruebaODefinitiva",
          "fills a combo box with the texts of final print and draft", "refComboBox"),
      method<&clsEnumPrint::fEnumPrintingModeToString>(
          "fEnumPrintingModeToString", "the text of a printing mode", "valPrintingMode"),
      method<&clsEnumPrint::fStrPrintingModeToNum>(
          "fStrPrintingModeToNum", "a printing mode by its text, 0 for another text",
          "PrintingMode", "valShowMessage"),
      method<&clsEnumPrint::sFillComboBoxWithPrintingMode>(
          "sFillComboBoxWithPrintingMode",
          "fills a combo box with the texts of the printing modes, graphic first", "refComboBox"));
};

}  // namespace tarvo
