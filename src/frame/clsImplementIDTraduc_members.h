// The operations of the form report's callback contract, in interface order.
#pragma once

#include "frame/clsImplementIDTraduc.h"
#include "frame/libraries.h"
#include "frame/member_table.h"
#include "template/clsObLineCharacts_members.h"

namespace tarvo {

template <>
struct Members<clsImplementIDTraduc> {
  static constexpr const LibraryInfo& library = kPrintLibrary;
  static constexpr std::uint16_t number = 5;
  static constexpr const char* name = "clsImplementIDTraduc";
  static constexpr const char* help = "What a client of the form report implements";
  static constexpr auto table = memberTable(
      method<&clsImplementIDTraduc::fTranslateSpecialVar>(
          "fTranslateSpecialVar", "gives the line's variable its value; true when it is known",
          "refLineToWrite"),
      method<&clsImplementIDTraduc::sDisplayPauseDialog>("sDisplayPauseDialog",
                                                         "returns when the report may go on"));
};

}  // namespace tarvo
