// Who signs the errors of a master-detail report: one row for each procedure, in which something
// below it fails.
#include <sstream>

#include "equipment/forwarding_services.h"
#include "master_detail_report.h"

namespace tarvo::test {
namespace {

struct Scene {
  ReportWorld& world;
  MasterDetailClient& client;
  clsObRepMasterDetail& report;

  void write(const std::string& typed) const {
    world.files->write(u"F/FACTURA.ID", templateBytes(typed));
  }

  // The client raises error 13 in its nth call that starts so.
  void failInCall(const std::string& start, int nth = 1) const {
    client.beforeCall = [start, left = nth](const std::string& call) mutable {
      if (call.starts_with(start) && --left == 0) throw RunTimeError(kTypeMismatch);
    };
  }

  // It takes the printer's profile away there.
  void loseProfileInCall(const std::string& start) const {
    client.beforeCall = [start](const std::string& call) {
      if (call.starts_with(start)) modRDPGlobalValues::ofThisThread().refInsImp = nullptr;
    };
  }

  // The spooler fails at the next line, text or code that the report writes after that call.
  void failToWriteAfterCall(const std::string& start, int nth = 1) const {
    client.beforeCall = [this_ = *this, start, nth](const std::string& call) {
      if (call.starts_with(start)) this_.world.spooler->fault.raiseAt(nth, kOutOfMemory);
    };
  }
};

class TextoWithoutStripping final : public ForwardingTexto {
 public:
  void fStrip(TextView, TextView, Text&) override { throw RunTimeError(kTypeMismatch); }
};

// In a trail, "written" is what the printer channel signs, "*" the way from a copy to the client.
constexpr const char* kWritten = "fSendStringToPrinter sWriteToFileHandle";
constexpr const char* kCopy = "sWriteReport sWriteNCopiesOfReport sPrintReport";

std::string spelledOut(const char* trail) {
  std::istringstream words(trail);
  std::string all;
  for (std::string word; words >> word;) {
    if (word == "written") word = kWritten;
    if (word == "*") word = kCopy;
    all += (all.empty() ? "" : " ") + word;
  }
  return all;
}

struct Trail {
  const char* shows;
  void (*disturb)(const Scene&);
  std::int32_t number;
  const char* trail;
};

void PrintTo(const Trail& row, std::ostream* out) { *out << row.shows; }

const Trail kTrails[] = {
    // --- Before the first copy.
    {"NoProfile", [](const Scene&) { modRDPGlobalValues::ofThisThread().refInsImp = nullptr; },
     kObjectNotSet, "fCurrentPrinterAlreadySelected sPrintReport"},
    {"MessageOfTheMissingPrinter",
     [](const Scene& s) {
       s.world.printer->SetPrinterName({});
       s.world.message->fault.raiseAt(1, kTypeMismatch);
     },
     kTypeMismatch, "fCurrentPrinterAlreadySelected sPrintReport"},
    {"FileService", [](const Scene& s) { s.world.fileService->fault.raiseAt(1, kTypeMismatch); },
     kTypeMismatch, "sPrintReport"},
    {"MessageOfTheMissingTemplate",
     [](const Scene& s) {
       s.world.files->remove(u"F/FACTURA.ID");
       s.world.message->fault.raiseAt(1, kTypeMismatch);
     },
     kTypeMismatch, "sSendAlertIDNotFound sPrintReport"},
    {"OpeningTheJob", [](const Scene& s) { s.world.spooler->fault.raiseAt(1, kOutOfMemory); },
     kOutOfMemory, "sSendJobAndStartNewOne sInitializePrinterFileHandle sPrintReport"},
    {"Reset", [](const Scene& s) { s.world.spooler->fault.raiseAt(4, kOutOfMemory); }, kOutOfMemory,
     "written sWrite sOBWriteNoSkipPage sResetPrinter sPrintReport"},
    {"NormalPrint", [](const Scene& s) { s.world.spooler->fault.raiseAt(5, kOutOfMemory); },
     kOutOfMemory, "written sWrite sOBWriteNoSkipPage sWriteNormal sPrintReport"},
    {"Permission", [](const Scene& s) { s.failInCall("fCanExecuteWriteReport"); }, kTypeMismatch,
     "sWriteNCopiesOfReport sPrintReport"},
    {"MessageOfARefusal",
     [](const Scene& s) {
       s.client.canPrint = false;
       s.client.showsRefusal = true;
       s.client.refusal = u"no";
       s.world.message->fault.raiseAt(1, kTypeMismatch);
     },
     kTypeMismatch, "sWriteNCopiesOfReport sPrintReport"},
    {"MessageOfAnEmptyReport",
     [](const Scene& s) {
       s.client.canPrint = false;
       s.world.message->fault.raiseAt(1, kTypeMismatch);
     },
     kTypeMismatch, "sPrintReport"},

    // --- Constants.
    {"FileServiceOfTheConstants",
     [](const Scene& s) { s.world.fileService->fault.raiseAt(2, kTypeMismatch); }, kTypeMismatch,
     "sReadAllFileTranslateConstantsAndAssignsItsValues *"},
    {"OpeningTheConstants", [](const Scene& s) { s.world.files->fault.raiseAt(1, kDeviceError); },
     kDeviceError, "sReadAllFileTranslateConstantsAndAssignsItsValues *"},
    {"ConstantAboveAByte", [](const Scene& s) { s.write("...NMAXLINPAGINA=256\n"); }, kOverflow,
     "sTranslateConstantAndAssingItsValue sReadAllFileTranslateConstantsAndAssignsItsValues *"},
    {"CleaningAConstant",
     [](const Scene&) {
       modRDPGlobalValues::ofThisThread().refInsTexto = make<TextoWithoutStripping>();
     },
     kTypeMismatch,
     "sCleanAndExtractVariableAndContent sTranslateConstantAndAssingItsValue "
     "sReadAllFileTranslateConstantsAndAssignsItsValues *"},

    // --- The page header.
    {"TopMarginLine",
     [](const Scene& s) {
       s.report.SetTopMarginLines(1);
       s.failToWriteAfterCall("fCanExecuteWriteReport");
     },
     kOutOfMemory,
     "written sWriteLn sWriteLineNoSkipPage sWriteLine sSkipNLines sPrintPageHeader *"},
    {"TopMarginPoint",
     [](const Scene& s) {
       s.report.SetTopMarginPoints(1);
       s.failToWriteAfterCall("fCanExecuteWriteReport");
     },
     kOutOfMemory, "written sWrite sSkipNPoints sSkipNPoints sPrintPageHeader *"},
    {"FileServiceOfTheHeader",
     [](const Scene& s) { s.world.fileService->fault.raiseAt(3, kTypeMismatch); }, kTypeMismatch,
     "sReadFileFromLineFromToLineUntilAndPrint sPrintPageHeader *"},
    {"VariableOfTheHeader", [](const Scene& s) { s.failInCall("fTranslateSpecialVarMD CAB"); },
     kTypeMismatch,
     "sSearchSpecialVarAndTranslate sProcessLineToWriteAndPrint "
     "sReadFileFromLineFromToLineUntilAndPrint sPrintPageHeader *"},
    {"LineOfTheHeader",
     [](const Scene& s) { s.failToWriteAfterCall("fTranslateSpecialVarMD CAB"); }, kOutOfMemory,
     "written sWriteLn sWriteLineNoSkipPage sPrintLine sProcessLineToWriteAndPrint "
     "sReadFileFromLineFromToLineUntilAndPrint sPrintPageHeader *"},
    {"PauseInTheHeader",
     [](const Scene& s) {
       s.write("...pausa\n");
       s.failInCall("sDisplayPauseDialog");
     },
     kTypeMismatch,
     "sPrintLine sProcessLineToWriteAndPrint sReadFileFromLineFromToLineUntilAndPrint "
     "sPrintPageHeader *"},

    // --- The body.
    {"FileServiceOfTheBody",
     [](const Scene& s) { s.world.fileService->fault.raiseAt(4, kTypeMismatch); }, kTypeMismatch,
     "sPrintBody *"},
    {"MessageOfTheMissingMarker",
     [](const Scene& s) {
       s.write("cab\n");
       s.world.message->fault.raiseAt(1, kTypeMismatch);
     },
     kTypeMismatch, "fReadFileUntilLineFrom sPrintBody *"},
    {"BodyNumberOf17Bits", [](const Scene& s) { s.write("{CUERPO=32768}\n"); }, kOverflow,
     "fExtractNumberOfLinesToReadFromLine sPrintBody *"},
    {"BodyOf52Lines", [](const Scene& s) { s.write("{CUERPO=1}\n" + repeated(52, "x\n")); },
     kSubscriptOutOfRange, "sReadAllBodyAndFillLinesArray sPrintBody *"},
    {"InsertBodyOf52Lines",
     [](const Scene& s) { s.write("{CUERPO=1}\n{UNINSERTOCUERPO}\n" + repeated(52, "x\n")); },
     kSubscriptOutOfRange, "sReadInsertBody sReadAllBodyAndFillLinesArray sPrintBody *"},
    {"CountOfRecords",
     [](const Scene& s) {
       s.write("{CUERPO=0}\n");
       s.failInCall("fDetailRecordCount");
     },
     kTypeMismatch, "sAdjustMaxLinPageAndBodyMaxNumLinesIfItsZero sPrintBody *"},
    {"CountOfRecordsOf17Bits",
     [](const Scene& s) {
       s.write("{CUERPO=0}\n");
       s.client.records.resize(32768);
     },
     kOverflow, "sAdjustMaxLinPageAndBodyMaxNumLinesIfItsZero sPrintBody *"},
    {"FirstRecord", [](const Scene& s) { s.failInCall("fReadFirstRecord"); }, kTypeMismatch,
     "sPrintBody *"},
    {"ProfileOfTheFitTest", [](const Scene& s) { s.loseProfileInCall("fReadFirstRecord"); },
     kObjectNotSet, "fRecordToPrintFitsInPage sPrintBody *"},
    {"VariableThatIsMeasured",
     [](const Scene& s) { s.failInCall("fTranslateSpecialVarMD CODIGO"); }, kTypeMismatch,
     "sSearchSpecialVarAndTranslate fCalculateNumberOfLinesToPrintOfBody fRecordToPrintFitsInPage "
     "sPrintBody *"},
    {"VariableThatIsPrinted",
     [](const Scene& s) { s.failInCall("fTranslateSpecialVarMD CODIGO", 2); }, kTypeMismatch,
     "sSearchSpecialVarAndTranslate sProcessLineToWriteAndPrint sProcessBodyLinesArrayAndPrint "
     "sPrintBody *"},
    {"Subtotal", [](const Scene& s) { s.failInCall("sAccumSubTotal"); }, kTypeMismatch,
     "sPrintBody *"},
    {"NextRecord", [](const Scene& s) { s.failInCall("fReadNextRecord"); }, kTypeMismatch,
     "sPrintBody *"},
    {"FooterOfABreak",
     [](const Scene& s) {
       s.client.records.resize(3);
       s.failInCall("fTranslateSpecialVarMD PIE");
     },
     kTypeMismatch,
     "sSearchSpecialVarAndTranslate sProcessLineToWriteAndPrint "
     "sReadFileFromLineFromToLineUntilAndPrint sPrintPageFooter sPrintBody *"},
    {"FormFeedOfABreak",
     [](const Scene& s) {
       s.client.records.resize(3);
       s.failToWriteAfterCall("fTranslateSpecialVarMD PIE", 2);
     },
     kOutOfMemory,
     "written sWrite sWriteFormFeed sSkipPage sSkipPageAndPrintPageHeader sPrintBody *"},
    {"HeaderOfABreak",
     [](const Scene& s) {
       s.client.records.resize(3);
       s.failInCall("fTranslateSpecialVarMD CAB", 2);
     },
     kTypeMismatch,
     "sSearchSpecialVarAndTranslate sProcessLineToWriteAndPrint "
     "sReadFileFromLineFromToLineUntilAndPrint sPrintPageHeader sSkipPageAndPrintPageHeader "
     "sPrintBody *"},
    {"HeaderOfABreakInsideALine",
     [](const Scene& s) {
       s.write("{CAB}\n{CUERPO=2}\n{SALTAPAGINA}x\n");
       s.failInCall("fTranslateSpecialVarMD CAB", 2);
     },
     kTypeMismatch,
     "sSearchSpecialVarAndTranslate sProcessLineToWriteAndPrint "
     "sReadFileFromLineFromToLineUntilAndPrint sPrintPageHeader sWriteLine sPrintLine "
     "sProcessLineToWriteAndPrint sProcessBodyLinesArrayAndPrint sPrintBody *"},
    {"HeaderOfABreakInsideOpenText",
     [](const Scene& s) {
       s.write("{CAB}\n{CUERPO=2}\n{SALTAPAGINA}{SNP,3}x\n");
       s.failInCall("fTranslateSpecialVarMD CAB", 2);
     },
     kTypeMismatch,
     "sSearchSpecialVarAndTranslate sProcessLineToWriteAndPrint "
     "sReadFileFromLineFromToLineUntilAndPrint sPrintPageHeader sOBWrite sPrintLine "
     "sProcessLineToWriteAndPrint sProcessBodyLinesArrayAndPrint sPrintBody *"},
    {"HalfLetterLineOfABreak",
     [](const Scene& s) {
       s.write("...MEDIACARTA\n{CUERPO=1}\n{CODIGO}\n{FINCUERPO}\n");
       s.client.records.resize(2);
       s.failToWriteAfterCall("fReadNextRecord");
     },
     kOutOfMemory,
     "written sWriteLn sWriteLineNoSkipPage sSkipPage sSkipPageAndPrintPageHeader sPrintBody *"},

    // --- The insert body.
    {"InsertBodyThatIsMeasured", [](const Scene& s) { s.failInCall("fTranslateSpecialVarMD INS"); },
     kTypeMismatch,
     "sSearchSpecialVarAndTranslate fCalculateNumberOfLinesToPrintOfBody fRecordToPrintFitsInPage "
     "sPrintInsertBody *"},
    {"InsertBodyThatIsPlaced",
     [](const Scene& s) { s.failInCall("fTranslateSpecialVarMD INS", 2); }, kTypeMismatch,
     "sSearchSpecialVarAndTranslate fCalculateNumberOfLinesToPrintOfBody "
     "sPrintRequiredsEmptyLinesBeforeInsertBody sPrintInsertBody *"},
    {"EmptyLineBeforeTheInsertBody",
     [](const Scene& s) {
       s.client.records.clear();
       s.failToWriteAfterCall("fReadFirstRecord");
     },
     kOutOfMemory,
     "written sWriteLn sWriteLineNoSkipPage sWriteLine sPrintRequiredsEmptyLinesBeforeInsertBody "
     "sPrintInsertBody *"},
    {"InsertBodyThatIsPrinted",
     [](const Scene& s) { s.failInCall("fTranslateSpecialVarMD INS", 3); }, kTypeMismatch,
     "sSearchSpecialVarAndTranslate sProcessLineToWriteAndPrintInsertBody sPrintInsertBody *"},
    {"FooterOfABreakInsideTheInsertBody",
     [](const Scene& s) {
       s.write("{CUERPO=1}\n{UNINSERTOCUERPO}\na\nb\nc\n{FINCUERPO}\n{PIE}\n");
       s.client.records.clear();
       s.failInCall("fTranslateSpecialVarMD PIE", 2);
     },
     kTypeMismatch,
     "sSearchSpecialVarAndTranslate sProcessLineToWriteAndPrint "
     "sReadFileFromLineFromToLineUntilAndPrint sPrintPageFooter "
     "sProcessLineToWriteAndPrintInsertBody sPrintInsertBody *"},

    // --- The page footer.
    {"FileServiceOfTheFooter",
     [](const Scene& s) { s.world.fileService->fault.raiseAt(5, kTypeMismatch); }, kTypeMismatch,
     "sReadFileFromLineFromToLineUntilAndPrint sPrintPageFooter *"},
    {"LineThatFillsTheBody",
     [](const Scene& s) {
       s.write("{CUERPO=2}\n{FINCUERPO}\n");
       s.failToWriteAfterCall("fReadNextRecord");
     },
     kOutOfMemory,
     "written sWriteLn sWriteLineNoSkipPage sWriteLine "
     "sPrintEmptyLinesToFillFreeSpaceFromBodyUntilPageFooter sPrintPageFooter *"},
    {"ProfileOfALineThatFillsTheBody",
     [](const Scene& s) {
       s.write("{CUERPO=2}\n{FINCUERPO}\n");
       s.loseProfileInCall("fReadNextRecord");
     },
     kObjectNotSet,
     "fHasToSkipPage sWriteLine sPrintEmptyLinesToFillFreeSpaceFromBodyUntilPageFooter "
     "sPrintPageFooter *"},
    {"MessageOfTheMissingFooter",
     [](const Scene& s) {
       s.write("{CUERPO=2}\n");
       s.world.message->fault.raiseAt(1, kTypeMismatch);
     },
     kTypeMismatch,
     "fReadFileUntilLineFrom sReadFileFromLineFromToLineUntilAndPrint sPrintPageFooter *"},
    {"VariableOfTheFooter", [](const Scene& s) { s.failInCall("fTranslateSpecialVarMD PIE"); },
     kTypeMismatch,
     "sSearchSpecialVarAndTranslate sProcessLineToWriteAndPrint "
     "sReadFileFromLineFromToLineUntilAndPrint sPrintPageFooter *"},

    // --- Between copies, and the end.
    {"FormFeedBetweenCopies",
     [](const Scene& s) { s.failToWriteAfterCall("fTranslateSpecialVarMD PIE", 2); }, kOutOfMemory,
     "written sWrite sWriteFormFeed sSkipPage sWriteNCopiesOfReport sPrintReport"},
    {"FiveLinesBetweenCopies",
     [](const Scene& s) {
       s.write("{CUERPO=0}\n{FINCUERPO}\n{PIE}\n");
       s.failToWriteAfterCall("fTranslateSpecialVarMD PIE", 2);
     },
     kOutOfMemory,
     "written sWriteLn sWriteLineNoSkipPage sWriteLine sSkipNLines sSkipPage sWriteNCopiesOfReport "
     "sPrintReport"},
    {"PauseBetweenCopies", [](const Scene& s) { s.failInCall("sDisplayPauseDialog"); },
     kTypeMismatch, "sWriteNCopiesOfReport sPrintReport"},
    {"FiveLinesAtTheEnd",
     [](const Scene& s) {
       s.write("{CUERPO=0}\n{FINCUERPO}\n{PIE}\n");
       s.client.beforeCall = [s, copies = 0](const std::string& call) mutable {
         if (!call.starts_with("fTranslateSpecialVarMD PIE") || ++copies < 2) return;
         s.world.spooler->fault.raiseAt(3, kOutOfMemory);
       };
     },
     kOutOfMemory, "written sWriteLn sWriteLineNoSkipPage sWriteLine sSkipNLines sPrintReport"},
    {"ClosingTheJob",
     [](const Scene& s) {
       s.client.beforeCall = [s, copies = 0](const std::string& call) mutable {
         if (!call.starts_with("fTranslateSpecialVarMD PIE") || ++copies < 2) return;
         s.world.spooler->fault.raiseAt(5, kOutOfMemory);
       };
     },
     kOutOfMemory, "sEndJobAndPageAndClosePrinter sClosePrinterFileHandle sPrintReport"},
};

// Two copies of a page with everything; a body line and an insert line fill it.
constexpr const char* kTemplate =
    "cab {CAB}\n{CUERPO=2}\n{CODIGO}\n{UNINSERTOCUERPO}\n{INS}\n{FINCUERPO}\npie {PIE}\n";

class MasterDetailTrails : public MasterDetailReport,
                           public ::testing::WithParamInterface<Trail> {};

TEST_P(MasterDetailTrails, NameEveryProcedureFromTheInnermost) {
  write(kTemplate);
  addRecord("A");
  init(2);
  GetParam().disturb(Scene{world, *client, *report});
  const auto error = errorOf([&] { report->sPrintReport(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), GetParam().number);
  EXPECT_EQ(world.error->trail(), spelledOut(GetParam().trail));
  EXPECT_EQ(world.error->reports.back().className, u"clsObRepMasterDetail");
  EXPECT_EQ(world.error->reports.back().module, u"Lib. Impresión Texto - Ob Rep");
  EXPECT_EQ(world.error->reports.back().kind, 2);
  EXPECT_EQ(world.files->openStreams(), 0);
}

INSTANTIATE_TEST_SUITE_P(All, MasterDetailTrails, ::testing::ValuesIn(kTrails),
                         [](const auto& row) { return std::string(row.param.shows); });

// Two are left out: fFileName fails for lack of memory alone, and nothing below
// fCalculateTheNumberOfPrintedLinesOfBody can fail, for both numbers are lines of a page.
TEST(MasterDetailTrailRows, LeaveNoProcedureOut) {
  for (const char* procedure : {"fCalculateNumberOfLinesToPrintOfBody",
                                "fCurrentPrinterAlreadySelected",
                                "fExtractNumberOfLinesToReadFromLine",
                                "fHasToSkipPage",
                                "fReadFileUntilLineFrom",
                                "fRecordToPrintFitsInPage",
                                "sAdjustMaxLinPageAndBodyMaxNumLinesIfItsZero",
                                "sCleanAndExtractVariableAndContent",
                                "sOBWrite",
                                "sPrintBody",
                                "sPrintEmptyLinesToFillFreeSpaceFromBodyUntilPageFooter",
                                "sPrintInsertBody",
                                "sPrintLine",
                                "sPrintPageFooter",
                                "sPrintPageHeader",
                                "sPrintReport",
                                "sPrintRequiredsEmptyLinesBeforeInsertBody",
                                "sProcessBodyLinesArrayAndPrint",
                                "sProcessLineToWriteAndPrint",
                                "sProcessLineToWriteAndPrintInsertBody",
                                "sReadAllBodyAndFillLinesArray",
                                "sReadAllFileTranslateConstantsAndAssignsItsValues",
                                "sReadFileFromLineFromToLineUntilAndPrint",
                                "sReadInsertBody",
                                "sSearchSpecialVarAndTranslate",
                                "sSendAlertIDNotFound",
                                "sSkipNLines",
                                "sSkipPage",
                                "sSkipPageAndPrintPageHeader",
                                "sTranslateConstantAndAssingItsValue",
                                "sWriteFormFeed",
                                "sWriteLine",
                                "sWriteLineNoSkipPage",
                                "sWriteNCopiesOfReport",
                                "sWriteReport"}) {
    bool isThere = false;
    for (const Trail& row : kTrails) {
      isThere |= (" " + spelledOut(row.trail) + " ").find(" " + std::string(procedure) + " ") !=
                 std::string::npos;
    }
    EXPECT_TRUE(isThere) << procedure;
  }
}

// --- What needs more than a row.

TEST_F(MasterDetailReport, InitSignsItsErrors) {
  world.clock->fault.raiseAt(1, kTypeMismatch);
  EXPECT_EQ(errorNumberOf([&] { init(); }), kTypeMismatch);
  EXPECT_EQ(world.error->trail(), "sInit");
  modRDPGlobalValues::ofThisThread().refInsConvert = nullptr;
  EXPECT_EQ(errorNumberOf([&] { init(); }), kObjectNotSet);
  EXPECT_EQ(world.error->trail(), "sInit fReportWidthAccordingToTitleColumns sInit");
}

// A text service that takes the line's variable away in its nth call.
class ThievingTexto final : public ForwardingTexto {
 public:
  std::function<void()> atEachCall;

 private:
  clsTexto& next() override {
    if (atEachCall) atEachCall();
    return ForwardingTexto::next();
  }
};

TEST_F(MasterDetailReport, TheReportsOwnVariablesSignTheirErrors) {
  write("{NUMERAR}\n{CUERPO=0}\n{FINCUERPO}\n");
  const auto texto = make<ThievingTexto>();
  modRDPGlobalValues::ofThisThread().refInsTexto = texto;
  bool wasSigned = false;
  for (int nth = 1; nth < 100 && !wasSigned; ++nth) {
    init();
    world.error->reports.clear();
    int calls = 0;
    texto->atEachCall = [&] {
      if (!report->GetLineToWrite() || ++calls != nth) return;
      report->GetLineToWrite()->SetSpecialVar(nullptr);
    };
    const std::int32_t number = errorOfPrinting();
    wasSigned = world.error->trail() ==
                "fTranslateSpecialVarLibrary sSearchSpecialVarAndTranslate "
                "sProcessLineToWriteAndPrint sReadFileFromLineFromToLineUntilAndPrint "
                "sPrintPageHeader sWriteReport sWriteNCopiesOfReport sPrintReport";
    EXPECT_TRUE(!wasSigned || number == kObjectNotSet);
  }
  EXPECT_TRUE(wasSigned);
}

}  // namespace
}  // namespace tarvo::test
