// The form report: a pre-printed sheet, or a pair of sheets, that is filled from template files.
//
// The client answers the templates' variables (frame/clsImplementIDTraduc.h).  A definitive form
// goes to the printer, each sheet as one job; a draft always goes to the graphic channel, on the
// screen.  How lines become pages: form_page_writer.h.
//
// Calling order: sInit, then the names of the sheets' templates, then sPrintReport.  Or, to resolve
// lines without printing: sInitForUserReport, then sSearchSpecialVarAndTranslate for each line,
// whose result is in the line object.
//
// Template files are the directory, the name and ".ID", joined with nothing between them.
//
// Errors: every operation but the properties follows the convention of trapped.h.  What the
// operator has to know (no printer, no text mode, no template) is a message and no error: nothing,
// or one sheet less, is printed.  An error in the middle of a sheet leaves its job open, for the
// client to give up (clsUtilImp::sCancelPrintProcess) or to forget; of a draft, what was collected
// goes with the next sheet.
//
// Threads: the client's.  One report at a time.
#pragma once

#include "frame/clsImplementIDTraduc.h"
#include "frame/enums.h"
#include "reports/form_page_writer.h"
#include "reports/report_engine.h"

namespace tarvo {

class clsObRepPlanilla final : public ReportEngine {
 public:
  // Default: the platform's ports.
  clsObRepPlanilla();
  explicit clsObRepPlanilla(ReportPorts ports);
  ~clsObRepPlanilla() override;

  // GetLineToWrite: empty after sInit until the first line of a template is read.

  // The templates of the sheets and of the draft, without directory and ".ID"; empty: that sheet is
  // not printed.  sInit empties them.
  const Text& GetFileNameIDFirstSheet() const noexcept { return firstSheet_; }
  void SetFileNameIDFirstSheet(TextView valNewValue) { firstSheet_ = valNewValue; }
  const Text& GetFileNameIDSecondSheet() const noexcept { return secondSheet_; }
  void SetFileNameIDSecondSheet(TextView valNewValue) { secondSheet_ = valNewValue; }
  const Text& GetFileNameIDDraft() const noexcept { return draft_; }
  void SetFileNameIDDraft(TextView valNewValue) { draft_ = valNewValue; }

  // Starts a report: page 1, no line object, today as its date.
  //   initReportTitle            the job's name, and part of captions
  //   initFileNameTxt, valUserName  kept (report_names.h)
  //   initDirPlanilla            where the templates are, with its separator at the end
  //   initHojaDeLaPlanilla       the sheets of a definitive form
  void sInit(Ref<clsImplementIDTraduc>& initTraducSpecialVar, TextView initReportTitle,
             TextView initFileNameTxt, TextView valUserName, TextView initReaderFileName,
             TextView initDirPlanilla, ePruebaODefinitiva initPruebaODefinitiva,
             eHojaDeLaPlanilla initHojaDeLaPlanilla);

  // For resolving lines alone: a new, cleared line object.
  void sInitForUserReport(Ref<clsImplementIDTraduc>& initTraducSpecialVar);

  // Resolves a template line into the line object.  Prints nothing.
  // Raises: 91 without a line object; as LineTranslator::translate.
  void sSearchSpecialVarAndTranslate(TextView valLine);

  // Prints the form.
  void sPrintReport();

 private:
  const ErrorIdentity& errorIdentity() const noexcept override;

  bool answer(Ref<clsObLineCharacts>& line) override;
  PageWriter& writer() noexcept override { return writer_; }
  void printPageHeader() override {}  // a form has none
  void displayPause() override;

  bool fCanSendReportToCurrentPrinter(bool showMessages) const;
  bool fHasToShowMessageTurnPage() const;
  bool fFollowingSheetWasPlaced() const;
  void sWritePlanillaDefinitiva();
  void sWritePlanillaDraft();
  void sWriteFirstSheet();
  void sWriteSecondSheet();
  void writeSheet();
  void sWriteReport();
  void sReadTextFileAndPrint();

  FormPageWriter writer_;
  Ref<clsImplementIDTraduc> client_;
  ePruebaODefinitiva draftOrDefinitive_ = ePOD_Definitiva;
  eHojaDeLaPlanilla sheets_ = eHP_PrimeraHoja;
  std::int32_t currentSheet_ = 0;  // 1 while the second one is written
  Text firstSheet_;
  Text secondSheet_;
  Text draft_;
};

}  // namespace tarvo
