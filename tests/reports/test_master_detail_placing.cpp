// Where the insert body of a master-detail report stands, and what is known while it is placed.
#include "master_detail_report.h"

namespace tarvo::test {
namespace {

using ::testing::ElementsAre;

class MasterDetailPlacing : public MasterDetailReport {
 protected:
  std::string printOf(const std::string& typed) {
    write(typed);
    init();
    return printed();
  }

  std::vector<std::string> answered() const {
    return world.calls.linesOf("client.fTranslateSpecialVarMD");
  }
};

// --- Before its place is looked for, the insert body counts as printed.

TEST_F(MasterDetailPlacing, ACarriedSubtotalInTheInsertBodyIsEmptiedWhileItIsPlaced) {
  addRecord("A", "5");
  client->values.add("X=text x");
  client->values.add("PIE=text p");
  printOf("{CUERPO=5}\nrenglon\n{UNINSERTOCUERPO}\n{X}{VAN,5}{X}\n{FINCUERPO}\n{PIE}\n");
  // Measured, placed, printed; a subtotal behind VAN is that of its own pass.
  EXPECT_THAT(answered(), ElementsAre("client.fTranslateSpecialVarMD X, 50000/10000",
                                      "client.fTranslateSpecialVarMD X, 50000/10000",
                                      "client.fTranslateSpecialVarMD X, 50000/10000",
                                      "client.fTranslateSpecialVarMD X, 0/10000",
                                      "client.fTranslateSpecialVarMD X, 0/10000",
                                      "client.fTranslateSpecialVarMD X, 0/10000",
                                      "client.fTranslateSpecialVarMD PIE, 0/10000"));
}

TEST_F(MasterDetailPlacing, TheReportSaysSoToAClientThatIsAskedWhileItIsPlaced) {
  addRecord("A");
  std::string wasPrinted;
  client->values.add("X=text x");
  client->beforeCall = [&](const std::string& call) {
    if (call.starts_with("fTranslateSpecialVarMD X")) {
      wasPrinted += report->GetInsertBodyWasPrinted() ? "yes " : "no ";
    }
  };
  printOf("{CUERPO=5}\nrenglon\n{UNINSERTOCUERPO}\n{X}\n{FINCUERPO}\n");
  EXPECT_EQ(wasPrinted, "no yes yes ") << "measured, placed, printed";
}

// --- A header that is shorter on a later page.

TEST_F(MasterDetailPlacing, UnderAShorterHeaderTheInsertBodyStandsAtTheTop) {
  addRecord("A");
  addRecord("B");
  addRecord("C");
  int asked = 0;  // the word prints an empty line, or none
  client->beforeCall = [&](const std::string& call) {
    if (!call.starts_with("fTranslateSpecialVarMD P,")) return;
    client->values.add(++asked <= 2 ? "P=text x" : "P=text");
  };
  EXPECT_EQ(printOf("{P,VACIO}\n{P,VACIO}\ncab\n{CUERPO=3}\n{CODIGO}\n"
                    "{UNINSERTOCUERPO}\ninserto\n{FINCUERPO}\npie\n"),
            "\r\n\r\ncab\r\nA\r\nB\r\nC\r\npie\r\n"
            "\fcab\r\ninserto\r\n" +
                repeated(4, "\r\n") + "pie\r\n");
}

TEST_F(MasterDetailPlacing, UnderAHeaderShorterByOneLineItStandsThereToo) {
  addRecord("A");
  addRecord("B");
  int asked = 0;  // the word prints an empty line, or none
  client->beforeCall = [&](const std::string& call) {
    if (!call.starts_with("fTranslateSpecialVarMD P,")) return;
    client->values.add(++asked == 1 ? "P=text x" : "P=text");
  };
  EXPECT_EQ(printOf("{P,VACIO}\ncab\n{CUERPO=2}\n{CODIGO}\n"
                    "{UNINSERTOCUERPO}\ninserto\n{FINCUERPO}\npie\n"),
            "\r\ncab\r\nA\r\nB\r\npie\r\n\fcab\r\ninserto\r\n\r\n\r\npie\r\n");
}

// --- A header that is longer than its page.  Its own lines never break the page, and what stands
// --- behind it does with every filling line.

constexpr const char* kLongHeader = "...NMAXLINPAGINA=3\na\nb\nc\nd\n";
constexpr const char* kLongHeaderPrinted = "a\r\nb\r\nc\r\nd\r\n";

TEST_F(MasterDetailPlacing, UnderAHeaderLongerThanItsPageTheRecordsAreOnThatPage) {
  addRecord("A");
  addRecord("B");
  const std::string header = kLongHeaderPrinted;
  EXPECT_EQ(printOf(std::string(kLongHeader) + "{CUERPO=2}\n{CODIGO}\n{FINCUERPO}\npie\n"),
            header + "A\r\nB\r\npie\r\n");
}

TEST_F(MasterDetailPlacing, UnderAHeaderLongerThanItsPageEveryEmptyLineIsOnAPageOfItsOwn) {
  addRecord("A");
  const std::string header = kLongHeaderPrinted;
  EXPECT_EQ(printOf(std::string(kLongHeader) + "{CUERPO=3}\n{CODIGO}\n{FINCUERPO}\npie\n"),
            header + "A\r\n\f" + header + "\r\n\f" + header + "\r\npie\r\n");
}

TEST_F(MasterDetailPlacing, AMarginThatFitsOverAHeaderLongerThanItsPageBreaksNothing) {
  addRecord("A");
  write(std::string(kLongHeader) + "{CUERPO=1}\n{CODIGO}\n{FINCUERPO}\npie\n");
  init();
  report->SetTopMarginLines(2);
  EXPECT_EQ(printed(), "\r\n\r\n" + std::string(kLongHeaderPrinted) + "A\r\npie\r\n");
}

}  // namespace
}  // namespace tarvo::test
