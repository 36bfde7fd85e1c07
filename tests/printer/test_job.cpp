// The raw print job: which calls the spooler gets, in which order, with which bytes.
#include "printer_test.h"

namespace tarvo::test {
namespace {

class PrintJob : public PrinterTest {};

TEST_F(PrintJob, IsOpenedWrittenAndClosedInThisOrder) {
  EXPECT_EQ(callsOf([this] {
              channel->sInitializePrinterFileHandle(u"Epson LX-300", u"Libro Diario");
              channel->sWriteLn(u"Total", 0);
              channel->sWrite(u"Fin", 0);
              channel->sClosePrinterFileHandle();
            }),
            "openPrinter \"Epson LX-300\"\n"
            "startDocument 1 \"Libro Diario\"\n"
            "startPage 1\n"
            "write 1 Total<0D><0A>\n"
            "write 1 Fin\n"
            "endPage 1\n"
            "endDocument 1\n"
            "closePrinter 1\n");
}

TEST_F(PrintJob, GivesNeitherOutputFileNorDataType) {
  openJob();
  channel->sSendJobAndStartNewOne();
  EXPECT_EQ(calls.linesOf("startDocument"),
            (std::vector<std::string>{"startDocument 1 \"Ventas\"", "startDocument 1 \"Ventas\""}));
}

TEST_F(PrintJob, OpeningAndClosingSendNoBytes) {
  openJob();
  channel->sSendJobAndStartNewOne();
  channel->sClosePrinterFileHandle();
  EXPECT_EQ(spooler->bytes(), "");
  EXPECT_TRUE(calls.linesOf("write").empty());
}

TEST_F(PrintJob, IsSentAndGoesOnInANewOneOfTheSameName) {
  openJob();
  EXPECT_EQ(callsOf([this] { channel->sSendJobAndStartNewOne(); }),
            "endPage 1\n"
            "endDocument 1\n"
            "startDocument 1 \"Ventas\"\n"
            "startPage 1\n");
}

TEST_F(PrintJob, TwoDocumentsAreTwoJobs) {
  channel->sInitializePrinterFileHandle(u"LX-300", u"Primero");
  channel->sWrite(u"uno", 0);
  channel->sClosePrinterFileHandle();
  channel->sInitializePrinterFileHandle(u"LX-300", u"Segundo");
  channel->sWrite(u"dos", 0);
  channel->sSendJobAndStartNewOne();
  channel->sWrite(u"tres", 0);
  channel->sClosePrinterFileHandle();
  std::string shown;
  for (const RecordingSpooler::Job& job : spooler->jobs()) {
    shown += toUtf8(job.documentName) + ": " + job.bytes + (job.isEnded ? "" : " (open)") + "\n";
  }
  EXPECT_EQ(shown, "Primero: uno\nSegundo: dos\nSegundo: tres\n");
}

TEST_F(PrintJob, AnEmptyTextIsStillOneWrite) {
  openJob();
  EXPECT_EQ(callsOf([this] { channel->sWrite({}, 0); }), "write 1\n");
  EXPECT_EQ(callsOf([this] { channel->sWriteLn({}, 0); }), "write 1 <0D><0A>\n");
}

TEST_F(PrintJob, EveryWriteIsOneWriteWhateverItsLength) {
  openJob();
  const Text text(100'000, u'x');
  channel->sWriteLn(text, 255);
  EXPECT_EQ(calls.linesOf("write").size(), 1u);
  EXPECT_EQ(spooler->bytes(), std::string(255, ' ') + std::string(100'000, 'x') + "\r\n");
}

TEST_F(PrintJob, ResetWritesTheResetCode) {
  openJob();
  channel->SetChrReset(u"\x1B@");
  EXPECT_EQ(callsOf([this] { channel->sResetPrinter(); }), "write 1 <1B>@\n");
}

TEST_F(PrintJob, AProfileChangeCountsFromTheNextWriteOn) {
  openJob();
  channel->sResetPrinter();
  channel->SetChrReset(u"\x1B@");
  channel->sResetPrinter();
  EXPECT_EQ(spooler->bytes(), "\x1B@");
}

TEST_F(PrintJob, ASecondCloseCallsTheSpoolerAgainWithTheOldHandle) {
  openJob();
  channel->sClosePrinterFileHandle();
  EXPECT_EQ(callsOf([this] { channel->sClosePrinterFileHandle(); }),
            "endPage 1\n"
            "endDocument 1\n"
            "closePrinter 1\n");
}

TEST_F(PrintJob, OpeningAgainLeavesTheOldOneOpen) {
  openJob();
  EXPECT_EQ(callsOf([this] {
              channel->sInitializePrinterFileHandle(u"Otra", u"Compras");
              channel->sWrite(u"x", 0);
            }),
            "openPrinter \"Otra\"\n"
            "startDocument 2 \"Compras\"\n"
            "startPage 2\n"
            "write 2 x\n");
}

TEST_F(PrintJob, NothingIsOpenBeforeTheFirstOne) {
  EXPECT_EQ(callsOf([this] {
              channel->sWrite(u"x", 0);
              channel->sClosePrinterFileHandle();
            }),
            "write 0 x\n"
            "endPage 0\n"
            "endDocument 0\n"
            "closePrinter 0\n");
}

class UnknownPrinter : public PrinterTest {
 protected:
  UnknownPrinter() { spooler->forgetPrinter(u" Ñandú\\LX "); }
};

TEST_F(UnknownPrinter, IsToldOnceWithItsNameAsGiven) {
  EXPECT_EQ(callsOf([this] { channel->sInitializePrinterFileHandle(u" Ñandú\\LX ", u"Ventas"); }),
            "openPrinter \" Ñandú\\LX \"\n"
            "clsMessage.sShowMessage \"No se reconoce el nombre de la impresora:  Ñandú\\LX \"\n");
}

TEST_F(UnknownPrinter, SwallowsWhatIsWrittenAfterwards) {
  channel->sInitializePrinterFileHandle(u" Ñandú\\LX ", u"Ventas");
  EXPECT_EQ(callsOf([this] {
              channel->sWriteLn(u"Total", 0);
              channel->sSendJobAndStartNewOne();
              channel->sClosePrinterFileHandle();
            }),
            "write 0 Total<0D><0A>\n"
            "endPage 0\n"
            "endDocument 0\n"
            "startDocument 0 \"\"\n"
            "startPage 0\n"
            "endPage 0\n"
            "endDocument 0\n"
            "closePrinter 0\n");
  EXPECT_TRUE(spooler->jobs().empty());
}

TEST_F(UnknownPrinter, LeavesAnEarlierJobUntouched) {
  openJob();
  channel->sInitializePrinterFileHandle(u" Ñandú\\LX ", u"Otro");
  channel->sWrite(u"x", 0);
  EXPECT_EQ(calls.lines().back(), "write 0 x");
}

TEST_F(UnknownPrinter, KeepsItsNameWhenTheMessageServiceChangesTheText) {
  class Shouting final : public clsMessage {
   public:
    void sShowMessage(Text& refText) override { refText = u"changed"; }
    void sShowMessageWithTitle(TextView, TextView) override {}
    void sWarning(Text&) override {}
    void sWarningWithTitle(TextView, TextView) override {}
    bool fAskAcceptCancel(TextView, TextView) override { return false; }
    bool fWarnLocation(TextView, std::int16_t) override { return false; }
  };
  modRDPGlobalValues::ofThisThread().refInsMessage = make<Shouting>();
  channel->SetPrinterName(u" Ñandú\\LX ");
  channel->sInitializePrinterFileHandle(channel->GetPrinterName(), u"Ventas");
  EXPECT_EQ(toUtf8(channel->GetPrinterName()), " Ñandú\\LX ");
}

class Skip : public PrinterTest {
 protected:
  Skip() {
    openJob();
    channel->SetChrHighLine1Point(u"(1)");
    channel->SetChrHighLine12Points(u"(12)");
  }
  std::string skipped(std::uint8_t points) {
    return printed([=, this] { channel->sSkipNPoints(points); });
  }
};

TEST_F(Skip, OfNoPointsChangesTheHeightAlone) { EXPECT_EQ(skipped(0), "(1)(12)\n"); }

TEST_F(Skip, OfOnePoint) { EXPECT_EQ(skipped(1), "(1)<0D><0A>\n(12)\n"); }

TEST_F(Skip, OfThreePointsIsThreeLineEnds) {
  EXPECT_EQ(callsOf([this] { channel->sSkipNPoints(3); }),
            "write 1 (1)\n"
            "write 1 <0D><0A>\n"
            "write 1 <0D><0A>\n"
            "write 1 <0D><0A>\n"
            "write 1 (12)\n");
}

std::string lineEnds(int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += "\r\n";
  return bytes;
}

TEST_F(Skip, Of254PointsIsTheLongest) {
  channel->sSkipNPoints(254);
  EXPECT_EQ(spooler->bytes(), "(1)" + lineEnds(254) + "(12)");
}

TEST_F(Skip, Of255PointsOverflowsAfterTheLastLineEnd) {
  const std::uint8_t points = 255;
  EXPECT_EQ(errorNumberOf([&] { channel->sSkipNPoints(points); }), kOverflow);
  EXPECT_EQ(spooler->bytes(), "(1)" + lineEnds(255));
  EXPECT_EQ(error->trail(), "sSkipNPoints");
  EXPECT_EQ(points, 255);
}

class Cancel : public PrinterTest {
 protected:
  Cancel() { fillProfile(*channel); }
};

TEST_F(Cancel, EjectsThePageResetsAndCloses) {
  openJob();
  EXPECT_EQ(callsOf([this] { channel->sCancelPrintProcess(); }),
            "write 1 <0C>\n"
            "write 1 <1B>@\n"
            "endPage 1\n"
            "endDocument 1\n"
            "closePrinter 1\n");
}

TEST_F(Cancel, OfAReportThatWasNeverOpenedIsNoError) {
  EXPECT_EQ(callsOf([this] { channel->sCancelPrintProcess(); }),
            "write 0 <0C>\n"
            "write 0 <1B>@\n"
            "endPage 0\n"
            "endDocument 0\n"
            "closePrinter 0\n");
}

TEST_F(Cancel, GoesOnAfterAStepThatFails) {
  struct Row {
    int failingCall;
    const char* spoolerCalls;
  };
  // A step that is made of several calls ends with the one that fails.
  constexpr Row kRows[] = {
      {1, "write write endPage endDocument closePrinter "},
      {2, "write write endPage endDocument closePrinter "},
      {3, "write write endPage "},
      {4, "write write endPage endDocument "},
      {5, "write write endPage endDocument closePrinter "},
  };
  for (const Row& row : kRows) {
    openJob();
    calls.clear();
    spooler->fault.raiseAt(row.failingCall, kOutOfMemory);
    channel->sCancelPrintProcess();
    EXPECT_FALSE(spooler->fault.isPending());
    std::string made;
    for (const std::string& line : calls.lines()) {
      if (!line.starts_with("clsError")) made += line.substr(0, line.find(' ')) + " ";
    }
    EXPECT_EQ(made, row.spoolerCalls) << "failing call " << row.failingCall;
  }
}

TEST_F(Cancel, EndsTheJobEvenWhenNoTextCanBeWritten) {
  openJob();
  for (const std::int32_t replacement : {1, 2}) {
    texto->fault.raiseAt(replacement, kInvalidProcedureCall);
    calls.clear();
    channel->sCancelPrintProcess();
    EXPECT_EQ(calls.linesOf("write").size(), 1u);  // the other one of the two
    EXPECT_EQ(calls.lines().back(), "closePrinter 1");
  }
}

TEST_F(Cancel, NeedsNoServices) {
  openJob();
  forgetServices();
  EXPECT_EQ(callsOf([this] { channel->sCancelPrintProcess(); }),
            "endPage 1\n"
            "endDocument 1\n"
            "closePrinter 1\n");
}

TEST_F(Cancel, SwallowsAFailingErrorServiceToo) {
  openJob();
  texto->fault.raiseAt(1, kInvalidProcedureCall);
  error->fault.raiseAt(1, 1000);
  EXPECT_EQ(errorNumberOf([this] { channel->sCancelPrintProcess(); }), 0);
  EXPECT_FALSE(error->fault.isPending());
}

}  // namespace
}  // namespace tarvo::test
