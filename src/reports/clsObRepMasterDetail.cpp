#include "reports/clsObRepMasterDetail.h"

#include <utility>

#include "frame/checked.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "reports/library_variables.h"
#include "reports/section_markers.h"

namespace tarvo {
namespace {

// The module is the form report's.
constexpr ErrorIdentity kIdentity{u"clsObRepMasterDetail", u"Lib. Impresión Texto - Ob Rep"};

constexpr std::int16_t kMostPagesWithinPages = 200;
constexpr std::uint8_t kLinesAfterUnlimitedPage = 5;

modRDPGlobalValues& services() { return modRDPGlobalValues::ofThisThread(); }

std::uint8_t pageLength() { return services().refInsImp->GetMaxLinPage(); }

// Counts the headers that are being printed because of one another, and the reports that a client
// prints while it is asked something, so that what leads to itself ends before the stack does.
class Nesting {
 public:
  explicit Nesting(std::int16_t& depth) : depth_(depth) {
    if (depth_ > kMostPagesWithinPages) throw RunTimeError(kOutOfStackSpace);
    ++depth_;
  }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;
  ~Nesting() { --depth_; }

 private:
  std::int16_t& depth_;
};

}  // namespace

clsObRepMasterDetail::clsObRepMasterDetail() : clsObRepMasterDetail(ReportPorts::ofPlatform()) {}
clsObRepMasterDetail::clsObRepMasterDetail(ReportPorts ports)
    : ReportEngine(std::move(ports)), writer_(kIdentity, *this, paper_) {}
clsObRepMasterDetail::~clsObRepMasterDetail() = default;

const ErrorIdentity& clsObRepMasterDetail::errorIdentity() const noexcept { return kIdentity; }

void clsObRepMasterDetail::sInit(Ref<clsImplementIDMD>& initTraducSpecialVar,
                                 TextView initReportTitle, TextView initFileNameTxt,
                                 TextView valUserName, TextView initReaderFileName,
                                 TextView initDirPlanilla, std::int16_t initNumberOfCopies) try {
  client_ = initTraducSpecialVar;
  names_ = {Text(initReportTitle), Text(initReaderFileName), Text(initDirPlanilla),
            fileNameTxtOf(initFileNameTxt), userPrefixOf(valUserName)};
  numberOfCopies_ =
      initNumberOfCopies == 0 ? std::uint8_t{1} : narrow<std::uint8_t>(initNumberOfCopies);
  line_ = nullptr;
  writer_.initialize();
  writer_.setDevice(ePD_Printer);
  paper_ = {};
  topMarginLines_ = 0;
  topMarginPoints_ = 0;
  endOfDetailRecords_ = false;
  insertBodyWasPrinted_ = false;
  subTotal_ = {};
  body_ = make<clsBody>();
  insertBody_ = make<clsBody>();
  body_->SetUseNumberWithCharacterToTheLeftSide(false);
  body_->SetCharacterToTheLeftSide(u"-");
  body_->SetRecordNumberToPrint(1);
  writer_.setReportWidth(writer_.fReportWidthAccordingToTitleColumns({}));
  issueDate_ = Ref(services().refInsUtilDate)->fToday();
} catch (...) {
  trap("sInit");
}

void clsObRepMasterDetail::sPrintReport() try {
  const Nesting nesting(pagesWithinPages_);
  if (!fCurrentPrinterAlreadySelected(true)) return;
  if (!templateExists()) return sSendAlertIDNotFound();
  openOutput();
  writer_.setReportWidth(writer_.fReportWidthAccordingToTitleColumns({}));
  writer_.sResetPrinter();
  writer_.sWriteNormal();
  sWriteNCopiesOfReport();
  writer_.sWriteNormal();
  if (writer_.linePrinted()) {
    if (pageLength() != 0) {
      writer_.sWriteFormFeed();
    } else {
      writer_.sSkipNLines(kLinesAfterUnlimitedPage);
    }
    writer_.sResetPrinter();
  } else {
    const Ref<clsMessage> messages = services().refInsMessage;
    messages->sShowMessageWithTitle(u"No se encontró información para imprimir.",
                                    u"Impresión de Informe");
  }
  closeOutput();
} catch (...) {
  trap("sPrintReport");
}

void clsObRepMasterDetail::sSearchSpecialVarAndTranslate(TextView valLine) try {
  translate(valLine);
} catch (...) {
  trap("sSearchSpecialVarAndTranslate");
}

// --- The client.

// What is missing is missed by who needs it.
inline bool clsObRepMasterDetail::variableMayBeLibrarys() const noexcept {
  const clsObSpecialVar* variable = line_ ? line_->GetSpecialVar().get() : nullptr;
  return variable == nullptr || libraryVariable(variable->GetFieldName()) != LibraryVariable::kNone;
}

bool clsObRepMasterDetail::answer(Ref<clsObLineCharacts>& line) {
  if (variableMayBeLibrarys() && fTranslateSpecialVarLibrary()) return true;
  return Ref(client_)->fTranslateSpecialVarMD(line, subTotal_);
}

// Nobody would end the repetition.
void clsObRepMasterDetail::notFound(clsObLineCharacts& line) {
  line.GetSpecialVar()->SetEndOfRepeatPrintLine(true);
}

void clsObRepMasterDetail::displayPause() { Ref(client_)->sDisplayPauseDialog(); }

// --- Copies and pages.

void clsObRepMasterDetail::sWriteNCopiesOfReport() try {
  if (!mayPrint()) return;
  for (int copy = 1; copy <= numberOfCopies_; ++copy) {
    sWriteReport();
    if (copy < numberOfCopies_) {
      writer_.sSkipPage(pageLength() != 0);
      displayPause();
    }
    writer_.setPage(1);
    subTotal_ = {};
  }
} catch (...) {
  trap("sWriteNCopiesOfReport");
}

bool clsObRepMasterDetail::mayPrint() {
  bool mustShowMessage = false;
  Text message;
  if (Ref(client_)->fCanExecuteWriteReport(mustShowMessage, message)) return true;
  if (mustShowMessage && !message.empty()) {
    const Ref<clsMessage> messages = services().refInsMessage;
    messages->sWarningWithTitle(message, Text(u"Impresión de ").append(names_.reportTitle));
  }
  return false;
}

// A line object that the report did not make is the client's to keep.
void clsObRepMasterDetail::sWriteReport() try {
  const bool makesLine = !line_;
  if (makesLine) line_ = make<clsObLineCharacts>();
  sReadAllFileTranslateConstantsAndAssignsItsValues();
  sPrintPageHeader();
  sPrintBody();
  sPrintInsertBody();
  sPrintPageFooter();
  if (makesLine) line_ = nullptr;
} catch (...) {
  trap("sWriteReport");
}

void clsObRepMasterDetail::sPrintPageHeader() try {
  const Nesting nesting(pagesWithinPages_);
  if (topMarginLines_ > 0) writer_.sSkipNLines(topMarginLines_);
  if (topMarginPoints_ > 0) writer_.sSkipNPoints(topMarginPoints_);
  sReadFileFromLineFromToLineUntilAndPrint({}, kBodyMarker);
} catch (...) {
  trap("sPrintPageHeader");
}

void clsObRepMasterDetail::sPrintPageFooter() try {
  sPrintEmptyLinesToFillFreeSpaceFromBodyUntilPageFooter();
  sReadFileFromLineFromToLineUntilAndPrint(kEndOfBodyMarker, {});
} catch (...) {
  trap("sPrintPageFooter");
}

void clsObRepMasterDetail::sPrintEmptyLinesToFillFreeSpaceFromBodyUntilPageFooter() try {
  writeEmptyLines(fCalculateTheNumberOfPrintedLinesOfBody() + 1,
                  body_->GetMaxNumberOfLinesToPrint());
} catch (...) {
  trap("sPrintEmptyLinesToFillFreeSpaceFromBodyUntilPageFooter");
}

void clsObRepMasterDetail::writeEmptyLines(std::int32_t first, std::int32_t last) {
  for (std::int32_t number = first; number <= last; ++number) writer_.sWriteLine({});
}

void clsObRepMasterDetail::breakPage() {
  sPrintPageFooter();
  writer_.sSkipPageAndPrintPageHeader();
}

// --- Body and insert body.

void clsObRepMasterDetail::sPrintBody() try {
  endOfDetailRecords_ = false;
  body_->SetHasInsertBody(0);
  body_->SetNumberOfFirstLineOfBody(writer_.line());
  if (!templateExists()) return sSendAlertIDNotFound();
  if (readBody()) printRecords();
} catch (...) {
  trap("sPrintBody");
}

void clsObRepMasterDetail::printRecords() {
  body_->SetRecordNumberToPrint(0);
  const Ref<clsImplementIDMD> client = client_;
  if (!client->fReadFirstRecord()) return;
  do {
    if (!fRecordToPrintFitsInPage(*body_)) breakPage();
    body_->SetRecordNumberToPrint(checkedAdd(body_->GetRecordNumberToPrint(), std::int16_t{1}));
    sProcessBodyLinesArrayAndPrint();
    client->sAccumSubTotal(subTotal_);
    endOfDetailRecords_ = !client->fReadNextRecord();
  } while (!endOfDetailRecords_);
}

void clsObRepMasterDetail::sPrintInsertBody() try {
  if (body_->GetHasInsertBody() != 0) {
    if (!fRecordToPrintFitsInPage(*insertBody_)) breakPage();
    insertBodyWasPrinted_ = true;
    sPrintRequiredsEmptyLinesBeforeInsertBody();
    const Ref<clsBody> insertBody = insertBody_;
    for (std::int16_t i = 0; i < insertBody->GetNumberOfLinesWithInformation(); ++i) {
      sProcessLineToWriteAndPrintInsertBody(insertBody->line(static_cast<std::size_t>(i)));
    }
  }
  if (endOfDetailRecords_) subTotal_ = {};
} catch (...) {
  trap("sPrintInsertBody");
}

// The insert body stands at the bottom of the body's area.
void clsObRepMasterDetail::sPrintRequiredsEmptyLinesBeforeInsertBody() try {
  const std::int16_t need = fCalculateNumberOfLinesToPrintOfBody(*insertBody_);
  const std::int16_t used = fCalculateTheNumberOfPrintedLinesOfBody();
  const std::int16_t most = body_->GetMaxNumberOfLinesToPrint();
  if (most > need && used >= 0) writeEmptyLines(used + 1, most - need);
} catch (...) {
  trap("sPrintRequiredsEmptyLinesBeforeInsertBody");
}

// A body without limit makes the page one without limit; each record counts as one line.
void clsObRepMasterDetail::sAdjustMaxLinPageAndBodyMaxNumLinesIfItsZero() try {
  if (body_->GetMaxNumberOfLinesToPrint() != 0) return;
  Ref(services().refInsImp)->SetMaxLinPage(0);
  const std::int32_t insertLines =
      body_->GetHasInsertBody() != 0 ? insertBody_->GetNumberOfLinesWithInformation() : 0;
  body_->SetMaxNumberOfLinesToPrint(
      narrow<std::int16_t>(checkedAdd(insertLines, Ref(client_)->fDetailRecordCount())));
} catch (...) {
  trap("sAdjustMaxLinPageAndBodyMaxNumLinesIfItsZero");
}

std::int16_t clsObRepMasterDetail::fCalculateNumberOfLinesToPrintOfBody(const clsBody& body) try {
  const Ref<const clsBody> held(&body);
  std::int16_t total = 0;
  for (std::int16_t i = 0; i < body.GetNumberOfLinesWithInformation(); ++i) {
    forEachPass(body.line(static_cast<std::size_t>(i)), [&] {
      const std::int16_t lines = line_->fNumberOfPrintedLinesThatWillFill();
      total = checkedAdd(total, lines);
    });
  }
  return total;
} catch (...) {
  trap("fCalculateNumberOfLinesToPrintOfBody");
}

std::int16_t clsObRepMasterDetail::fCalculateTheNumberOfPrintedLinesOfBody() const try {
  return checkedSubtract(writer_.line(), body_->GetNumberOfFirstLineOfBody());
} catch (...) {
  trap("fCalculateTheNumberOfPrintedLinesOfBody");
}

bool clsObRepMasterDetail::fRecordToPrintFitsInPage(const clsBody& body) try {
  if (pageLength() == 0) return true;
  const std::int16_t need = fCalculateNumberOfLinesToPrintOfBody(body);
  const std::int16_t used = fCalculateTheNumberOfPrintedLinesOfBody();
  return checkedAdd(used, need) <= body_->GetMaxNumberOfLinesToPrint();
} catch (...) {
  trap("fRecordToPrintFitsInPage");
}

// --- Lines.

// Translates the line again and again until its variable says that it was the last time.
template <class Pass>
void clsObRepMasterDetail::forEachPass(TextView templateLine, Pass pass) {
  line_->GetSpecialVar()->SetLineOfRepeatToPrint(false);
  for (std::int16_t count = 0;; count = checkedAdd(count, std::int16_t{1})) {
    line_->sClrRecord();
    sSearchSpecialVarAndTranslate(templateLine);
    pass();
    if (line_->GetSpecialVar()->GetEndOfRepeatPrintLine()) return;
  }
}

void clsObRepMasterDetail::sProcessBodyLinesArrayAndPrint() try {
  const Ref<clsBody> body = body_;
  for (std::int16_t i = 0; i < body->GetNumberOfLinesWithInformation(); ++i) {
    sProcessLineToWriteAndPrint(body->line(static_cast<std::size_t>(i)));
  }
} catch (...) {
  trap("sProcessBodyLinesArrayAndPrint");
}

void clsObRepMasterDetail::sProcessLineToWriteAndPrint(TextView templateLine) try {
  forEachPass(templateLine, [this] { sPrintLine(); });
} catch (...) {
  trap("sProcessLineToWriteAndPrint");
}

void clsObRepMasterDetail::sProcessLineToWriteAndPrintInsertBody(TextView templateLine) try {
  forEachPass(templateLine, [this] {
    breakPageBeforeInsertLine();
    sPrintLine();
  });
} catch (...) {
  trap("sProcessLineToWriteAndPrintInsertBody");
}

// Footer and header work on a line object of their own: the translated line waits in the present
// one.
void clsObRepMasterDetail::breakPageBeforeInsertLine() {
  if (pageLength() == 0) return;
  if (fCalculateTheNumberOfPrintedLinesOfBody() <= body_->GetMaxNumberOfLinesToPrint()) return;
  const Ref<clsObLineCharacts> waiting = std::exchange(line_, make<clsObLineCharacts>());
  breakPage();
  line_ = waiting;
}

}  // namespace tarvo
