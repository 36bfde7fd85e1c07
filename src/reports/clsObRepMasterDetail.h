// The master-detail report: a page header, a body that repeats once for each detail record, an
// insert body after the last one, and a page footer; in several copies.
//
// The client reads the records and answers the variables (frame/clsImplementIDMD.h).  A record
// never splits across pages: its lines are counted before they are printed, by translating them
// once more.  How lines become pages: master_detail_page_writer.h.
//
// The template is one file, directory, name and ".ID" joined with nothing between.  Its sections:
//
//   lines that begin with "."      constants: MEDIACARTA, NMAXLINPAGINA=lines
//   to the line with {CUERPO=n}    page header; n body lines on every page, 0 for no limit
//   to the line with {FINCUERPO}   body, at most 51 lines
//   or a line {UNINSERTOCUERPO}    ends the body; the insert body follows, to {FINCUERPO}
//   to the end                     page footer
//
// The report itself answers four variables: VAN (the subtotal carried forward), VIENEN (brought
// forward), NUMERAR (the record's number), FINRENGLONESDOCUMENTOS (1 when the records have ended).
//
// Calling order: sInit, the top margins if there are any, sPrintReport.
//
// Errors: every operation but the properties follows the convention of trapped.h.  What the
// operator has to know (no printer, no template, refused, nothing found) is a message and no error.
// An error in the middle leaves the job open.  A page break that leads to itself, such as the word
// SALTAPAGINA in the header, is error 28 after 200 pages within one another.  So is a top margin
// longer than its page, and that word anywhere together with top margin lines: the lines of the
// margin still belong to the line with the word.  A header longer than its page is printed whole.
//
// Threads: the client's.  One report at a time.
#pragma once

#include "frame/borrowed.h"
#include "frame/clsImplementIDMD.h"
#include "frame/currency.h"
#include "reports/clsBody.h"
#include "reports/master_detail_page_writer.h"
#include "reports/report_engine.h"

namespace tarvo {

class clsObRepMasterDetail final : public ReportEngine {
 public:
  // Default: the platform's ports.
  clsObRepMasterDetail();
  explicit clsObRepMasterDetail(ReportPorts ports);
  ~clsObRepMasterDetail() override;

  // Starts a report: every property gets its default, page 1, no line object.
  //   initReportTitle               the job's name, and part of captions
  //   initFileNameTxt, valUserName  kept (report_names.h)
  //   initDirPlanilla               where the template is, with its separator at the end
  //   initNumberOfCopies            0 means 1.  Raises: 6 outside 0 to 255
  void sInit(Ref<clsImplementIDMD>& initTraducSpecialVar, TextView initReportTitle,
             TextView initFileNameTxt, TextView valUserName, TextView initReaderFileName,
             TextView initDirPlanilla, std::int16_t initNumberOfCopies);

  // Prints the report.
  void sPrintReport();

  // Resolves a template line into the line object.  Prints nothing.
  // Raises: 91 without a line object; as LineTranslator::translate.
  void sSearchSpecialVarAndTranslate(TextView valLine);

  // Whether the client has no further record.  Default: false.
  bool GetEndOfDetailRecords() const noexcept { return endOfDetailRecords_; }
  void SetEndOfDetailRecords(bool valNewValue) noexcept { endOfDetailRecords_ = valNewValue; }

  // The running subtotal.  Default: 0.
  Currency GetMontoSubTotalVan() const noexcept { return subTotal_; }
  void SetMontoSubTotalVan(Currency valNewValue) noexcept { subTotal_ = valNewValue; }

  // Whether the insert body was printed, on any copy.  Default: false.
  bool GetInsertBodyWasPrinted() const noexcept { return insertBodyWasPrinted_; }
  void SetInsertBodyWasPrinted(bool valNewValue) noexcept { insertBodyWasPrinted_ = valNewValue; }

  // Whether pages end with empty lines instead of a form feed, and at which line.  The template's
  // constants set them too.  Default: false, 29.
  bool GetIsHalfLetterPaper() const noexcept { return paper_.isUsed; }
  void SetIsHalfLetterPaper(bool valNewValue) noexcept { paper_.isUsed = valNewValue; }
  std::uint8_t GetNumberOfLinesForHalfLetter() const noexcept { return paper_.lines; }
  void SetNumberOfLinesForHalfLetter(std::uint8_t valNewValue) noexcept {
    paper_.lines = valNewValue;
  }

  // Empty lines, and then points, before each page header.  Default: 0.
  std::uint8_t GetTopMarginLines() const noexcept { return topMarginLines_; }
  void SetTopMarginLines(std::uint8_t valNewValue) noexcept { topMarginLines_ = valNewValue; }
  std::uint8_t GetTopMarginPoints() const noexcept { return topMarginPoints_; }
  void SetTopMarginPoints(std::uint8_t valNewValue) noexcept { topMarginPoints_ = valNewValue; }

  // Reads the section that is being read forward to a line that holds `lineaDesde`, in either case,
  // and gives that line.  An empty `lineaDesde` reads nothing.  False, after a message, when the
  // template ends before.
  // Raises: 91 while no section is being read.
  bool fReadFileUntilLineFrom(TextView lineaDesde, Text& lineaLeida);

 private:
  const ErrorIdentity& errorIdentity() const noexcept override;

  // --- What the shared pieces ask (report_engine.h).
  bool answer(Ref<clsObLineCharacts>& line) override;
  void notFound(clsObLineCharacts& line) override;
  PageWriter& writer() noexcept override { return writer_; }
  void printPageHeader() override { sPrintPageHeader(); }
  void displayPause() override;

  // --- Copies and pages.
  void sWriteNCopiesOfReport();
  bool mayPrint();
  void sWriteReport();
  void writeSections();
  void sPrintPageHeader();
  void sPrintPageFooter();
  void sPrintEmptyLinesToFillFreeSpaceFromBodyUntilPageFooter();
  void writeEmptyLines(std::int32_t first, std::int32_t last);
  void breakPage();

  // --- Body and insert body.
  void sPrintBody();
  bool readBody();
  void printRecords();
  void sPrintInsertBody();
  void sPrintRequiredsEmptyLinesBeforeInsertBody();
  void sAdjustMaxLinPageAndBodyMaxNumLinesIfItsZero();
  std::int16_t fCalculateNumberOfLinesToPrintOfBody(const clsBody& body);
  std::int16_t fCalculateTheNumberOfPrintedLinesOfBody() const;
  bool fRecordToPrintFitsInPage(const clsBody& body);

  // --- Lines.
  void sProcessBodyLinesArrayAndPrint();
  void sProcessLineToWriteAndPrint(TextView templateLine);
  void sProcessLineToWriteAndPrintInsertBody(TextView templateLine);
  void breakPageBeforeInsertLine();
  template <class Pass>
  void forEachPass(TextView templateLine, Pass pass);

  // --- The template's sections (clsObRepMasterDetail_template.cpp).
  class Section;
  bool variableMayBeLibrarys() const noexcept;
  bool fTranslateSpecialVarLibrary();
  void sReadAllFileTranslateConstantsAndAssignsItsValues();
  void sTranslateConstantAndAssingItsValue(TextView line);
  void sCleanAndExtractVariableAndContent(Text& line, Text& name, Text& content);
  void sReadFileFromLineFromToLineUntilAndPrint(TextView from, TextView until);
  bool fExtractNumberOfLinesToReadFromLine(TextView line);
  void sReadAllBodyAndFillLinesArray(TextView until);
  void sReadInsertBody(TextView until);
  std::int16_t readLines(clsBody& into, TextView until, bool mayEndInInsertBody);

  HalfLetterPaper paper_;
  MasterDetailPageWriter writer_;
  Ref<clsImplementIDMD> client_;
  Ref<clsBody> body_;
  Ref<clsBody> insertBody_;
  Section* section_ = nullptr;  // the one that is being read
  Kept<Text> lineStorage_;      // borrowed by each section
  Kept<Text> searchStorage_;    // and by those that look for a marker
  Kept<Text> markerStorage_;
  Currency subTotal_;
  std::int16_t pagesWithinPages_ = 0;
  std::uint8_t numberOfCopies_ = 1;
  std::uint8_t topMarginLines_ = 0;
  std::uint8_t topMarginPoints_ = 0;
  bool endOfDetailRecords_ = false;
  bool insertBodyWasPrinted_ = false;
};

}  // namespace tarvo
