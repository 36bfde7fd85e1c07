// The operations of the form report, in interface order.
#pragma once

#include "frame/clsImplementIDTraduc_members.h"
#include "frame/enums_members.h"
#include "frame/libraries.h"
#include "frame/member_table.h"
#include "reports/clsObRepPlanilla.h"

namespace tarvo {

template <>
struct Members<clsObRepPlanilla> {
  static constexpr const LibraryInfo& library = kPrintLibrary;
  static constexpr std::uint16_t number = 9;
  static constexpr const char* name = "clsObRepPlanilla";
  static constexpr const char* help = "The form report: one or two sheets filled from templates";
  static constexpr auto table = memberTable(
      readOnlyProperty<&clsObRepPlanilla::GetLineToWrite>("LineToWrite",
                                                          "the line that is being worked on"),
      property<&clsObRepPlanilla::GetFileNameIDFirstSheet,
               &clsObRepPlanilla::SetFileNameIDFirstSheet>(
          "FileNameIDFirstSheet", "the template of the first sheet, without directory and .ID"),
      property<&clsObRepPlanilla::GetFileNameIDSecondSheet,
               &clsObRepPlanilla::SetFileNameIDSecondSheet>(
          "FileNameIDSecondSheet", "the template of the second sheet, without directory and .ID"),
      property<&clsObRepPlanilla::GetFileNameIDDraft, &clsObRepPlanilla::SetFileNameIDDraft>(
          "FileNameIDDraft", "the template of the draft, without directory and .ID"),
      method<&clsObRepPlanilla::sInit>("sInit", "starts a report", "initTraducSpecialVar",
                                       "initReportTitle", "initFileNameTxt", "valUserName",
                                       "initReaderFileName", "initDirPlanilla",
                                       "initPruebaODefinitiva", "initHojaDeLaPlanilla"),
      method<&clsObRepPlanilla::sInitForUserReport>(
          "sInitForUserReport", "starts the translation of lines, without printing",
          "initTraducSpecialVar"),
      method<&clsObRepPlanilla::sSearchSpecialVarAndTranslate>(
          "sSearchSpecialVarAndTranslate", "resolves a template line into the line object",
          "valLine"),
      method<&clsObRepPlanilla::sPrintReport>("sPrintReport", "prints the form"));
};

}  // namespace tarvo
