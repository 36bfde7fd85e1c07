// The operations of the client's helpers, in interface order.
#pragma once

#include "frame/enums_members.h"
#include "frame/libraries.h"
#include "frame/member_table.h"
#include "template/clsObSpecialVar_members.h"
#include "ui/clsLibTarvoRdp.h"

namespace tarvo {

template <>
struct Members<clsLibTarvoRdp> {
  static constexpr const LibraryInfo& library = kPrintLibrary;
  static constexpr std::uint16_t number = 8;
  static constexpr const char* name = "clsLibTarvoRdp";
  static constexpr const char* help =
      "Helpers for clients: the printing mode, and long texts on lines of a fixed width";
  static constexpr auto table = memberTable(
      method<&clsLibTarvoRdp::fChoosePrintingMode>(
          "fChoosePrintingMode", "lets the operator choose the printing mode, false when cancelled",
          "refPrintingMode"),
      method<&clsLibTarvoRdp::fMsgForLocateOptionChoosePrinter>(
          "fMsgForLocateOptionChoosePrinter", "where the operator finds the choice of the printer"),
      method<&clsLibTarvoRdp::fToStringArray>(
          "fToStringArray",
          "the text in rows of a fixed length, and one element more without value", "valText",
          "valRowCount", "valRowLength"),
      method<&clsLibTarvoRdp::fExtractShortText>(
          "fExtractShortText",
          "the segment of a text of several lines that a repeated line prints now",
          "refVarEspecial", "valShortText", "valIfResultIsEmptySetPrintLineFalse"));
};

}  // namespace tarvo
