// Faults as loops: a report with everything in it is printed again and again, and each time another
// call of what stands below it fails.  The error comes out, no template stays open, and the next
// report prints the bytes of one that nothing disturbed.
#include "fault_loop.h"

namespace tarvo::test {
namespace {

using ::testing::Contains;

class MasterDetailFaults : public FaultLoop<MasterDetailReport> {
 protected:
  MasterDetailFaults() {
    // Two pages and a copy of them; a page break inside the body, a repeated line, a pause, points,
    // and a line that is too long.
    write(
        "...NMAXLINPAGINA=16\n"
        "cab {CODIGO} {VIENEN,8}\n"
        "...pausa\n"
        "{CUERPO=6}\n"
        "{NUMERAR,3,0} {CODIGO} {MONTO,8}\n"
        "{REPEAT}  {TEXTO}\n"
        "{PRUEBA,VACIO}{SALTAPAGINA}\n"
        "...\n"
        "{UNINSERTOCUERPO}\n"
        "{SNP,2}{NEGRA}ins {CODIGO}\n"
        "fin\n"
        "{FINCUERPO}\n" +
        std::string(255, '-') + "\npie {VAN,8}\n");
    addRecord("A", "1");
    addRecord("B", "2.5");
    addRecord("C", "40");
    client->records[1].add("PRUEBA=text x");
    client->values.add("PRUEBA=text");
    client->repeats["TEXTO"] = {"uno", "dos"};
    begin();
    undisturbed = printed();
  }

  std::string print() override { return printed(); }
};

TEST_F(MasterDetailFaults, StandOnAReportThatHasEverything) {
  EXPECT_EQ(countOf(undisturbed, "cab "), 4) << "three pages, twice; page 1 has nothing to bring";
  EXPECT_EQ(countOf(undisturbed, "\f"), 5);
  EXPECT_EQ(countOf(undisturbed, "----\r\n"), 4) << "a break inside the body has no footer";
  EXPECT_EQ(countOf(undisturbed, "pie "), 2) << "nor has the last page anything to carry";
  EXPECT_EQ(countOf(undisturbed, "  uno\r\n  dos\r\n"), 6);
  EXPECT_EQ(countOf(undisturbed,
                    "\x1B"
                    "Eins"),
            2);
  EXPECT_EQ(world.calls.linesOf("client.sDisplayPauseDialog").size(), 7u);
  EXPECT_EQ(world.calls.linesOf("clsMessage.sWarning").size(), 4u);
}

TEST_F(MasterDetailFaults, OfTheSpooler) {
  EXPECT_GT(atEveryCall(world.spooler->fault, kOutOfMemory), 60);
}

TEST_F(MasterDetailFaults, OfTheClient) { EXPECT_GT(atEveryCall(client->fault, -2147220991), 60); }

TEST_F(MasterDetailFaults, OfTheFiles) {
  EXPECT_GT(atEveryCall(world.files->fault, kDeviceError), 100);
}

TEST_F(MasterDetailFaults, OfTheFileService) {
  // Once for the report; each copy: constants, body, three headers and two footers.
  EXPECT_EQ(atEveryCall(world.fileService->fault, kTypeMismatch), 1 + 2 * 7);
}

TEST_F(MasterDetailFaults, OfTheMessages) {
  EXPECT_EQ(atEveryCall(world.message->fault, kTypeMismatch), 4);
}

TEST_F(MasterDetailFaults, OfTheSpoolersAnswersAreNone) {
  constexpr int kMostCalls = 1000;
  for (int nth = 1; nth < kMostCalls; ++nth) {
    const auto failing = make<FailingSpooler>(nth, world.spooler);
    const auto channel = make<clsUtilImp>(failing);
    fillReportProfile(*channel);
    modRDPGlobalValues::ofThisThread().refInsImp = channel;
    begin();
    EXPECT_EQ(errorOfPrinting(), 0) << "call " << nth;
    if (!failing->hasFailed()) return;
  }
  FAIL() << "no end of calls";
}

TEST_F(MasterDetailFaults, OfTheErrorServiceGoOnInsteadOfTheError) {
  int faults = 0;
  for (int nth = 1; nth < 100; ++nth) {
    begin();
    client->fault.raiseAt(10, kTypeMismatch);
    world.error->fault.raiseAt(nth, kPermissionDenied);
    const std::int32_t raised = errorOfPrinting();
    EXPECT_EQ(world.files->openStreams(), 0);
    const bool wasReached = !world.error->fault.isPending();
    world.error->fault.never();
    EXPECT_EQ(raised, wasReached ? kPermissionDenied : kTypeMismatch) << "level " << nth;
    begin();
    EXPECT_EQ(printed(), undisturbed) << "after level " << nth;
    if (!wasReached) break;
    ++faults;
  }
  EXPECT_GT(faults, 4);
}

TEST_F(MasterDetailFaults, LeaveTheJobOpenAndTheNextOneIsWhole) {
  begin();
  client->fault.raiseAt(20, kTypeMismatch);
  EXPECT_EQ(errorOfPrinting(), kTypeMismatch);
  EXPECT_FALSE(world.spooler->jobs().back().isEnded);
  begin();
  report->sPrintReport();
  EXPECT_TRUE(world.spooler->jobs().back().isEnded);
}

TEST_F(MasterDetailFaults, WithoutTheProfileInTheMiddleAreError91) {
  for (const char* call : {"fTranslateSpecialVarMD CODIGO", "fReadFirstRecord", "sAccumSubTotal",
                           "fReadNextRecord", "sDisplayPauseDialog", "fCanExecuteWriteReport"}) {
    begin();
    const Ref<clsUtilImp> kept = modRDPGlobalValues::ofThisThread().refInsImp;
    client->beforeCall = [call](const std::string& made) {
      if (made.starts_with(call)) modRDPGlobalValues::ofThisThread().refInsImp = nullptr;
    };
    EXPECT_EQ(errorOfPrinting(), kObjectNotSet) << call;
    EXPECT_EQ(world.files->openStreams(), 0) << call;
    client->beforeCall = nullptr;
    modRDPGlobalValues::ofThisThread().refInsImp = kept;
    begin();
    EXPECT_EQ(printed(), undisturbed) << call;
  }
}

}  // namespace
}  // namespace tarvo::test
