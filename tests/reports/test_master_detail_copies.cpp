// What one copy of a master-detail report, or one printing of it, leaves behind for the next.
#include "master_detail_report.h"

namespace tarvo::test {
namespace {

class MasterDetailCopies : public MasterDetailReport {
 protected:
  // Does that in every pause between two copies.
  void inThePause(const std::function<void()>& action) {
    client->beforeCall = [action](const std::string& call) {
      if (call == "sDisplayPauseDialog") action();
    };
  }

  // Every copy reads its records once.
  std::size_t copiesPrinted() const {
    return world.calls.linesOf("client.fReadFirstRecord").size();
  }
};

// --- The end of the records, which each body forgets.

TEST_F(MasterDetailCopies, TheRecordsHaveNotEndedWhenTheBodyOfALaterCopyBegins) {
  write("{CUERPO=2}\n{CODIGO} {FINRENGLONESDOCUMENTOS,1,0}\n{FINCUERPO}\n");
  addRecord("A");
  addRecord("B");
  init(2);
  EXPECT_EQ(printed(), "A 0\r\nB 0\r\n\fA 0\r\nB 0\r\n");
}

TEST_F(MasterDetailCopies, ACopyWithoutRecordsAfterOneWithThemHasNotSeenTheirEnd) {
  write("{CUERPO=1}\n{CODIGO}\n{FINCUERPO}\n{FINRENGLONESDOCUMENTOS,1,0} {VAN,5}\n");
  addRecord("A", "5");
  inThePause([this] { client->records.clear(); });
  init(2);
  EXPECT_EQ(printed(), "A\r\n1  0,00\r\n\f\r\n0  0,00\r\n");
  EXPECT_FALSE(report->GetEndOfDetailRecords());
}

TEST_F(MasterDetailCopies, TheCarriedSubtotalStandsInTheBodyOfALaterCopyToo) {
  write("{CUERPO=4}\n{CODIGO} {VAN,5}\n{UNINSERTOCUERPO}\ninserto\n{FINCUERPO}\n");
  addRecord("A", "3");
  addRecord("B", "4");
  init(2);
  const std::string copy = "A  0,00\r\nB  3,00\r\n\r\ninserto\r\n";
  EXPECT_EQ(printed(), copy + "\f" + copy);
}

// --- How many there are, which is asked before each.

TEST_F(MasterDetailCopies, AreAsManyAsThePauseMakesThem) {
  write("cab\n{CUERPO=1}\n{FINCUERPO}\n");
  int pauses = 0;
  inThePause([&] {
    if (++pauses == 1) init(4);
  });
  init(2);
  report->sPrintReport();
  EXPECT_EQ(copiesPrinted(), 4u);
  EXPECT_EQ(pauses, 3);
}

TEST_F(MasterDetailCopies, AreAsFewAsThePauseMakesThem) {
  write("cab\n{CUERPO=1}\n{FINCUERPO}\n");
  inThePause([this] { init(2); });
  init(9);
  report->sPrintReport();
  EXPECT_EQ(copiesPrinted(), 2u);
}

// --- The insert body, which each body looks for.

TEST_F(MasterDetailCopies, AnInsertBodyThatTheTemplateHasNoMoreIsNotPrintedAgain) {
  write("{CUERPO=2}\n{CODIGO}\n{UNINSERTOCUERPO}\ninserto\n{FINCUERPO}\npie\n");
  addRecord("A");
  inThePause([this] { write("{CUERPO=2}\n{CODIGO}\n{FINCUERPO}\npie\n"); });
  init(2);
  EXPECT_EQ(printed(), "A\r\ninserto\r\npie\r\n\fA\r\n\r\npie\r\n");
}

TEST_F(MasterDetailCopies, AnInsertBodyThatTheTemplateGotIsPrinted) {
  write("{CUERPO=2}\n{CODIGO}\n{FINCUERPO}\npie\n");
  addRecord("A");
  inThePause(
      [this] { write("{CUERPO=2}\n{CODIGO}\n{UNINSERTOCUERPO}\ninserto\n{FINCUERPO}\npie\n"); });
  init(2);
  EXPECT_EQ(printed(), "A\r\n\r\npie\r\n\fA\r\ninserto\r\npie\r\n");
}

TEST_F(MasterDetailCopies, AnInsertBodyIsNotPrintedAgainWhenTheTemplateLostItsBody) {
  write("{CUERPO=2}\n{CODIGO}\n{UNINSERTOCUERPO}\ninserto\n{FINCUERPO}\npie\n");
  addRecord("A");
  inThePause([this] { write("{FINCUERPO}\nultimo\n"); });
  client->values.add("FINCUERPO=text fin");
  init(2);
  // Everything is header now, and the filling is that of the body before.
  EXPECT_EQ(printed(), "A\r\ninserto\r\npie\r\n\ffin\r\nultimo\r\n\r\n\r\nultimo\r\n");
}

// --- A report that is printed or begun again.

TEST_F(MasterDetailCopies, TheLineOfAReportThatFailedIsClearedByTheNextOne) {
  write("cab\n{CUERPO=1}\n{SALTAPAGINA}{CODIGO}\n{FINCUERPO}\n");
  addRecord("A");
  init();
  report->SetTopMarginLines(1);
  client->beforeCall = [](const std::string& call) {
    if (call.starts_with("fTranslateSpecialVarMD CODIGO")) throw RunTimeError(kTypeMismatch);
  };
  EXPECT_EQ(errorOfPrinting(), kTypeMismatch);
  ASSERT_TRUE(report->GetLineToWrite()->GetSkipPageWasRead()) << "the failed line asks for a page";
  client->beforeCall = nullptr;
  client->records.clear();
  EXPECT_EQ(printed(), "\r\ncab\r\n\r\n") << "which the margin does not get";
}

TEST_F(MasterDetailCopies, AnInitThatRefusesTheirNumberHasTakenTheClientAlready) {
  write("{A}\n{CUERPO=1}\n{FINCUERPO}\n");
  init();
  CallLog callsOfOther;
  const auto other = make<MasterDetailClient>(callsOfOther);
  Ref<clsImplementIDMD> otherCallbacks = other;
  EXPECT_EQ(errorNumberOf([&] {
              report->sInit(otherCallbacks, u"", u"", u"", u"FACTURA", u"F/", std::int16_t{256});
            }),
            kOverflow);
  report->sPrintReport();
  EXPECT_EQ(callsOfOther.linesOf("client.fTranslateSpecialVarMD").size(), 1u);
  EXPECT_TRUE(world.calls.linesOf("client.").empty());
}

}  // namespace
}  // namespace tarvo::test
