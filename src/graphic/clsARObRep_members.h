// The operations of the graphic channel, in interface order.
#pragma once

#include "frame/enums_members.h"
#include "frame/libraries.h"
#include "frame/member_table.h"
#include "graphic/clsARObRep.h"

namespace tarvo {

template <>
struct Members<clsARObRep> {
  static constexpr const LibraryInfo& library = kPrintLibrary;
  static constexpr std::uint16_t number = 11;
  static constexpr const char* name = "clsARObRep";
  static constexpr const char* help =
      "The graphic channel: a report's lines on pages that are shown, printed or saved";
  static constexpr auto table = memberTable(
      method<&clsARObRep::sPrintReport>("sPrintReport", "produces the report from the lines so far",
                                        "valShowMsg", "valShowModeless"),
      method<&clsARObRep::sInit>("sInit", "begins a report", "initPhysicalPrinterName",
                                 "initReportTitle", "initPrintingDevice"),
      method<&clsARObRep::sInitializeGraphicHandle>(
          "sInitializeGraphicHandle", "starts a new, empty line table", "valDocumentName"),
      method<&clsARObRep::sCloseGraphicHandle>("sCloseGraphicHandle",
                                               "produces the report and closes the line table"),
      method<&clsARObRep::sWriteLn>("sWriteLn", "adds a line", "valText", "valLeftMargin"),
      method<&clsARObRep::sWrite>("sWrite", "adds a line, as sWriteLn does", "valText",
                                  "valLeftMargin"),
      method<&clsARObRep::sSkipNPoints>("sSkipNPoints",
                                        "adds an empty line for each 12 points, at least one",
                                        "valNumberOfPoints"),
      method<&clsARObRep::sCancelGraphicPrintProcess>(
          "sCancelGraphicPrintProcess", "gives the report up; nothing is shown or printed"));
};

}  // namespace tarvo
