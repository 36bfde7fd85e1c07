// The operations of the master-detail report's callback contract, in interface order.
#pragma once

#include "frame/clsImplementIDMD.h"
#include "frame/libraries.h"
#include "frame/member_table.h"
#include "template/clsObLineCharacts_members.h"

namespace tarvo {

template <>
struct Members<clsImplementIDMD> {
  static constexpr const LibraryInfo& library = kPrintLibrary;
  static constexpr std::uint16_t number = 6;
  static constexpr const char* name = "clsImplementIDMD";
  static constexpr const char* help = "What a client of the master-detail report implements";
  static constexpr auto table = memberTable(
      method<&clsImplementIDMD::fTranslateSpecialVarMD>(
          "fTranslateSpecialVarMD", "gives the line's variable its value; true when it is known",
          "refLineToWrite", "valMontoSubTotal"),
      method<&clsImplementIDMD::sDisplayPauseDialog>("sDisplayPauseDialog",
                                                     "returns when the report may go on"),
      method<&clsImplementIDMD::fReadFirstRecord>("fReadFirstRecord",
                                                  "goes to the first detail record"),
      method<&clsImplementIDMD::fReadNextRecord>("fReadNextRecord",
                                                 "goes to the next detail record"),
      method<&clsImplementIDMD::sAccumSubTotal>(
          "sAccumSubTotal", "adds the present record to the subtotal", "refMontoSubTotal"),
      method<&clsImplementIDMD::fCanExecuteWriteReport>(
          "fCanExecuteWriteReport", "whether the report may be printed, and what to tell if not",
          "refMustShowErrorMsg", "refErrorMsgToDisplay"),
      method<&clsImplementIDMD::fDetailRecordCount>("fDetailRecordCount",
                                                    "how many detail records there will be"));
};

}  // namespace tarvo
