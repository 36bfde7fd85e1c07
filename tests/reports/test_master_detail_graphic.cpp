// Master-detail reports on the graphic channel: the rows that the page output gets, and faults.
#include "fault_loop.h"

namespace tarvo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MasterDetailGraphic : public MasterDetailReport {
 protected:
  MasterDetailGraphic() { world.printer->SetCanPrintInTextMode(false); }

  // The rows, each with a line end; what the printer's codes leave of themselves stands at their
  // ends.
  std::string rows() {
    world.pageCalls.clear();
    report->sPrintReport();
    std::string all;
    for (const std::string& line : world.pageCalls.lines()) all += line + "\n";
    const std::string begin = "print \"Factura\" on \"LX-300\"\n\x1B@\n\n";
    const std::string end = "\n\x1B@\n";
    EXPECT_TRUE(all.starts_with(begin)) << all;
    EXPECT_TRUE(all.ends_with("\n" + end)) << all;
    return all.substr(begin.size(), all.size() - begin.size() - end.size());
  }

  std::string rowsOf(const std::string& typed, int copies = 1) {
    write(typed);
    init(copies);
    return rows();
  }
};

TEST_F(MasterDetailGraphic, CopiesFollowOneAnotherWithAPauseAndWithoutAPageEnd) {
  addRecord("A", "2");
  EXPECT_EQ(rowsOf("cab\n{CUERPO=1}\n{CODIGO}\n{FINCUERPO}\npie {VAN,5}\n", 2),
            "cab\nA\npie  0,00\ncab\nA\npie  0,00\n");
  EXPECT_EQ(world.calls.linesOf("client.sDisplayPauseDialog").size(), 1u);
}

TEST_F(MasterDetailGraphic, CopiesOfAnUnlimitedPageAreFiveRowsApart) {
  addRecord("A");
  write("{CUERPO=0}\n{CODIGO}\n{FINCUERPO}\npie\n");
  init(2);
  report->sPrintReport();
  EXPECT_EQ(
      world.pageCalls.text(),
      "print \"Factura\" on \"LX-300\"\n\x1B@\n\nA\npie\n\n\n\n\n\nA\npie\n\n\n\n\n\n\n\x1B@\n");
}

TEST_F(MasterDetailGraphic, AnInsertBodyStandsAtTheBottomOfTheBody) {
  addRecord("A");
  EXPECT_EQ(
      rowsOf("cab\n{CUERPO=4}\n{CODIGO}\n{UNINSERTOCUERPO}\nins 1\nins 2\n{FINCUERPO}\npie\n"),
      "cab\nA\n\nins 1\nins 2\npie\n");
}

TEST_F(MasterDetailGraphic, AnInsertBodyLargerThanTheBodyBreaksTheLogicalPage) {
  addRecord("A");
  EXPECT_EQ(rowsOf("cab\n{CUERPO=1}\n{CODIGO}\n{UNINSERTOCUERPO}\n1\n2\n3\n{FINCUERPO}\npie\n"),
            "cab\nA\npie\ncab\n1\n2\npie\ncab\n3\npie\n");
}

TEST_F(MasterDetailGraphic, HalfLetterPagesEndWithEmptyRows) {
  addRecord("A");
  addRecord("B");
  EXPECT_EQ(rowsOf("...MEDIACARTA\n...NMAXLINPAGINA=6\ncab\n{CUERPO=1}\n{CODIGO}\n"
                   "{FINCUERPO}\npie\n"),
            "cab\nA\npie\n\n\n\ncab\nB\npie\n");
}

TEST_F(MasterDetailGraphic, TopMarginsAreRows) {
  addRecord("A");
  addRecord("B");
  write("cab\n{CUERPO=1}\n{CODIGO}\n{FINCUERPO}\n");
  init();
  report->SetTopMarginLines(2);
  report->SetTopMarginPoints(24);
  EXPECT_EQ(rows(), "\n\n\n\ncab\nA\n\n\n\n\ncab\nB\n") << "a row is 12 points";
}

TEST_F(MasterDetailGraphic, ThePageWordPrintsAHeaderAndNoFormFeed) {
  addRecord("A");
  EXPECT_EQ(rowsOf("cab\n{CUERPO=2}\n{SALTAPAGINA}{CODIGO}\nfin\n{FINCUERPO}\npie\n"),
            "cab\ncab\nA\nfin\npie\n");
}

// Makes no trail: that of an endless page break has a thousand procedures.
class TracklessError final : public clsError {
 public:
  void fDescribeError(TextView valDescription, TextView, TextView, TextView, std::int16_t,
                      std::int32_t, TextView, std::int32_t, std::int32_t, Text& result) override {
    result = valDescription;
  }
};

TEST_F(MasterDetailGraphic, AHeaderThatBreaksItselfIsError28AndNothingIsProduced) {
  modRDPGlobalValues::ofThisThread().refInsError = make<TracklessError>();
  write("{SALTAPAGINA}cab\n{CUERPO=1}\n{FINCUERPO}\n");
  init();
  EXPECT_EQ(errorOfPrinting(), kOutOfStackSpace);
  EXPECT_THAT(world.pageCalls.lines(), IsEmpty());
}

TEST_F(MasterDetailGraphic, ARefusedReportIsProducedWithTheCodesAlone) {
  client->canPrint = false;
  write("cab\n");
  init();
  report->sPrintReport();
  EXPECT_THAT(world.pageCalls.lines(),
              ElementsAre("print \"Factura\" on \"LX-300\"", "\x1B@", "", ""));
  EXPECT_EQ(world.calls.linesOf("clsMessage").size(), 1u);
}

// --- Faults.

class MasterDetailGraphicFaults : public FaultLoop<MasterDetailGraphic> {
 protected:
  MasterDetailGraphicFaults() {
    write(
        "...NMAXLINPAGINA=12\ncab {CODIGO} {VIENEN,8}\n...pausa\n{CUERPO=3}\n"
        "{NUMERAR,3,0} {CODIGO}\n{REPEAT}  {TEXTO}\n"
        "{UNINSERTOCUERPO}\n{SNP,2}ins {CODIGO}\n{FINCUERPO}\n" +
        std::string(255, '-') + "\npie {VAN,8}\n");
    addRecord("A", "1");
    addRecord("B", "2");
    client->repeats["TEXTO"] = {"uno", "dos"};
    begin();
    undisturbed = rows();
  }

  std::string print() override { return rows(); }
};

TEST_F(MasterDetailGraphicFaults, StandOnAReportThatHasEverything) {
  EXPECT_EQ(countOf(undisturbed, "cab "), 2) << "two pages, twice; page 1 has nothing to bring";
  EXPECT_EQ(countOf(undisturbed, "  uno\n  dos\n"), 4);
  EXPECT_EQ(countOf(undisturbed, "ins A\n"), 0);
  EXPECT_EQ(countOf(undisturbed, "ins B\n"), 2);
  EXPECT_EQ(countOf(undisturbed, "pie "), 2) << "nor has the last page anything to carry";
  EXPECT_THAT(world.spoolerCalls.lines(), IsEmpty());
}

// The output is the last to be asked, once in each report.
TEST_F(MasterDetailGraphicFaults, OfThePageOutput) {
  EXPECT_EQ(atEveryCall(world.pages->fault, kDeviceError), 1);
  begin();
  world.error->reports.clear();
  world.pages->fault.raiseAt(1, kDeviceError);
  EXPECT_EQ(errorOfPrinting(), kDeviceError);
  EXPECT_EQ(world.error->trail(), "sPrintReport sCloseGraphicHandle sPrintReport");
}

TEST_F(MasterDetailGraphicFaults, OfTheClient) {
  EXPECT_GT(atEveryCall(client->fault, kDeviceError), 40);
}

TEST_F(MasterDetailGraphicFaults, OfTheFiles) {
  EXPECT_GT(atEveryCall(world.files->fault, kDeviceError), 100);
}

TEST_F(MasterDetailGraphicFaults, OfTheFileService) {
  EXPECT_GT(atEveryCall(world.fileService->fault, kDeviceError), 10);
}

TEST_F(MasterDetailGraphicFaults, OfTheMessages) {
  EXPECT_GT(atEveryCall(world.message->fault, kDeviceError), 3);
}

}  // namespace
}  // namespace tarvo::test
