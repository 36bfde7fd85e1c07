// The operations of the master-detail report, in interface order.
#pragma once

#include "frame/clsImplementIDMD_members.h"
#include "frame/libraries.h"
#include "frame/member_table.h"
#include "reports/clsObRepMasterDetail.h"

namespace tarvo {

template <>
struct Members<clsObRepMasterDetail> {
  static constexpr const LibraryInfo& library = kPrintLibrary;
  static constexpr std::uint16_t number = 10;
  static constexpr const char* name = "clsObRepMasterDetail";
  static constexpr const char* help =
      "The master-detail report: header, a body for each record, insert body and footer";
  static constexpr auto table = memberTable(
      readOnlyProperty<&clsObRepMasterDetail::GetLineToWrite>("LineToWrite",
                                                              "the line that is being worked on"),
      method<&clsObRepMasterDetail::sInit>(
          "sInit", "starts a report", "initTraducSpecialVar", "initReportTitle", "initFileNameTxt",
          "valUserName", "initReaderFileName", "initDirPlanilla", "initNumberOfCopies"),
      method<&clsObRepMasterDetail::sPrintReport>("sPrintReport", "prints the report"),
      method<&clsObRepMasterDetail::sSearchSpecialVarAndTranslate>(
          "sSearchSpecialVarAndTranslate", "resolves a template line into the line object",
          "valLine"),
      property<&clsObRepMasterDetail::GetEndOfDetailRecords,
               &clsObRepMasterDetail::SetEndOfDetailRecords>(
          "EndOfDetailRecords", "whether the client has no further record"),
      property<&clsObRepMasterDetail::GetMontoSubTotalVan,
               &clsObRepMasterDetail::SetMontoSubTotalVan>(
          "MontoSubTotalVan", "the subtotal that is carried from page to page"),
      property<&clsObRepMasterDetail::GetInsertBodyWasPrinted,
               &clsObRepMasterDetail::SetInsertBodyWasPrinted>(
          "InsertBodyWasPrinted", "whether the insert body was printed"),
      property<&clsObRepMasterDetail::GetIsHalfLetterPaper,
               &clsObRepMasterDetail::SetIsHalfLetterPaper>(
          "IsHalfLetterPaper", "whether pages end with empty lines instead of a form feed"),
      property<&clsObRepMasterDetail::GetNumberOfLinesForHalfLetter,
               &clsObRepMasterDetail::SetNumberOfLinesForHalfLetter>("NumberOfLinesForHalfLetter",
                                                                     "lines of a half-letter page"),
      property<&clsObRepMasterDetail::GetTopMarginLines, &clsObRepMasterDetail::SetTopMarginLines>(
          "TopMarginLines", "empty lines before each page header"),
      property<&clsObRepMasterDetail::GetTopMarginPoints,
               &clsObRepMasterDetail::SetTopMarginPoints>("TopMarginPoints",
                                                          "points before each page header"),
      method<&clsObRepMasterDetail::fReadFileUntilLineFrom>(
          "fReadFileUntilLineFrom", "reads the section forward to a line that holds the text",
          "lineaDesde", "lineaLeida"));
};

}  // namespace tarvo
