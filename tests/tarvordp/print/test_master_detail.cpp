// Master-detail reports: copies, subtotals, refusals, and what is told when nothing is printed.
#include "print_testing.h"

namespace tarvordp {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class MasterDetailTest : public test::PrintTest {
 protected:
  static constexpr const char* kTwoRecords =
      R"(, "details": [{"N": "a", "M": 1.5}, {"N": "b", "M": 2}], "subtotal": "m")";
};

TEST_F(MasterDetailTest, SubtotalsAreCarriedFromPageToPage) {
  writeMasterDetail("{CUERPO=1}\n{N} {M,5}\n{FINCUERPO}\nvan {VAN,6}\n", kTwoRecords);
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(printed(),
            "a  1,50<0D><0A>\nvan   1,50<0D><0A>\n<0C>"
            "b  2,00<0D><0A>\nvan   0,00<0D><0A>\n<0C>");
}

TEST_F(MasterDetailTest, ARecordWithoutTheSubtotalAddsNothing) {
  writeMasterDetail(
      "{CUERPO=1}\n{N}\n{FINCUERPO}\n{VAN,6}\n",
      R"(, "details": [{"N": "a"}, {"N": "b", "M": null}, {"N": "c", "M": 5}, {"N": "d"}],
                         "subtotal": "M")");
  EXPECT_EQ(print().status, kDone);
  EXPECT_EQ(printed(),
            "a<0D><0A>\n  0,00<0D><0A>\n<0C>b<0D><0A>\n  0,00<0D><0A>\n"
            "<0C>c<0D><0A>\n  5,00<0D><0A>\n<0C>d<0D><0A>\n  0,00<0D><0A>\n<0C>");
}

TEST_F(MasterDetailTest, EveryCopyBeginsAtTheFirstRecord) {
  writeMasterDetail("{CUERPO=2}\n{N}\n{FINCUERPO}\n",
                    std::string(kTwoRecords) + R"(, "copies": 3)");
  EXPECT_EQ(print().status, kDone);
  const std::string copy = "a<0D><0A>\nb<0D><0A>\n<0C>";
  EXPECT_EQ(printed(), copy + copy + copy);
  EXPECT_EQ(print({"--copies", "2"}).status, kDone);
  EXPECT_EQ(printed(), copy + copy) << "the command line counts";
}

TEST_F(MasterDetailTest, MarginsStandBeforeTheHeader) {
  writeMasterDetail("header\n{CUERPO=1}\n{FINCUERPO}\n",
                    R"(, "topMarginLines": 2, "topMarginPoints": 3)");
  EXPECT_EQ(print().status, kDone);
  EXPECT_THAT(printed(), StartsWith("<0D><0A>\n<0D><0A>\n<0D><0A>\n<0D><0A>\n<0D><0A>\nheader"));
}

TEST_F(MasterDetailTest, APageWithoutLimitAsksForTheNumberOfRecords) {
  writeMasterDetail("{CUERPO=0}\n{N}\n{FINCUERPO}\nfooter\n", kTwoRecords);
  EXPECT_EQ(print().status, kDone);
  EXPECT_THAT(printed(), StartsWith("a<0D><0A>\nb<0D><0A>\nfooter<0D><0A>\n"));
}

TEST_F(MasterDetailTest, ARefusalIsToldAndNothingIsPrinted) {
  writeMasterDetail("header\n{CUERPO=1}\n{FINCUERPO}\n",
                    R"(, "canPrint": {"refuse": "La factura está anulada."})");
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kNotPrinted);
  EXPECT_EQ(outcome.err,
            "[Impresión de Factura] La factura está anulada.\n"
            "[Impresión de Informe] No se encontró información para imprimir.\n"
            "tarvordp: file:out.prn: the job there holds no report, it is empty\n");
  EXPECT_EQ(printed(), "");
}

TEST_F(MasterDetailTest, ARefusedReportHasAJobThatPreparesThePrinterInPlaceOfAnOlderFile) {
  write("out.prn", "an older report");
  write("T.ID", "header\n{CUERPO=1}\n{FINCUERPO}\n");
  write("j.json", R"({"report": "master-detail", "title": "Factura", "directory": ".",
        "template": "T", "canPrint": false, "profile": "epson-9pin"})");
  const test::Outcome outcome = print({"--printer", "file:" + pathOf("out.prn")});
  EXPECT_EQ(outcome.status, kNotPrinted);
  EXPECT_EQ(printed(), "<1B>@<12><1B>P<12><1B>P\n") << "the dump ends its line";
  EXPECT_THAT(outcome.err, HasSubstr("tarvordp: file:out.prn: the job there holds no report, only "
                                     "8 bytes that prepare the printer\n"));
}

TEST_F(MasterDetailTest, ARefusalWithoutAWordPrintsNothingEither) {
  writeMasterDetail("header\n{CUERPO=1}\n{FINCUERPO}\n", R"(, "canPrint": false)");
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kNotPrinted);
  EXPECT_THAT(outcome.err,
              StartsWith("[Impresión de Informe] No se encontró información para imprimir.\n"));
}

TEST_F(MasterDetailTest, AMissingTemplateIsTold) {
  writeMasterDetail("");
  std::filesystem::remove(pathOf("T.ID"));
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kNotPrinted);
  EXPECT_THAT(outcome.err, StartsWith("[Archivo no encontrado] La plantilla de impresión "));
  EXPECT_THAT(outcome.err, HasSubstr("T.ID no fue encontrada"));
  EXPECT_FALSE(has("out.prn"));
}

TEST_F(MasterDetailTest, AnUnknownPrinterIsTold) {
  writeMasterDetail("x\n{CUERPO=1}\n{FINCUERPO}\n");
  for (const auto& [printer, why] : std::initializer_list<std::pair<std::string, std::string>>{
           {"file:/nowhere/x", "No such file or directory"},
           {"file:", "No such file or directory"},
           {"file:/tmp", "Is a directory"}}) {
    const test::Outcome outcome = print({"--printer", printer});
    EXPECT_EQ(outcome.status, kNotPrinted) << printer;
    EXPECT_EQ(outcome.err, "No se reconoce el nombre de la impresora: " + printer +
                               "\ntarvordp: " + printer + ": cannot be written: " + why + "\n");
  }
}

TEST_F(MasterDetailTest, WithoutTextModeThePagesAreAFile) {
  writeMasterDetail("header {A}\n{CUERPO=1}\n{FINCUERPO}\n", R"(, "record": {"A": "a"})");
  write("j.json", R"({"report": "master-detail", "title": "Factura", "directory": ".",
                      "template": "T", "record": {"A": "a"}})");
  test::Outcome outcome = print({"--printer", "file:" + pathOf("out.pdf")});
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_EQ(outcome.err, "tarvordp: the pages are in out.pdf\n");
  EXPECT_THAT(contentOf("out.pdf"), StartsWith("%PDF-"));
  outcome = print({"--printer", "nobody's printer", "--save", pathOf("saved.pdf")});
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_EQ(outcome.err, "tarvordp: the pages are in saved.pdf\n");
}

TEST_F(MasterDetailTest, AMessageThatNeverEndsIsEnded) {
  writeMasterDetail("{A,IIF(S,[2]x,y)}\n{CUERPO=1}\n{FINCUERPO}\n", R"(, "record": {"A": true})");
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_THAT(outcome.err,
              StartsWith("[Impresión de Plantilla] No se encontró el tipo de atributo"));
  EXPECT_THAT(outcome.err, HasSubstr("run-time error 5: The same message came again and again"));
  EXPECT_LT(std::ranges::count(outcome.err, '\n'), 150);
  EXPECT_FALSE(has("out.prn"));
}

TEST_F(MasterDetailTest, AMessageThatComesForEachRecordDoesNotEndTheReport) {
  std::string details;
  for (int i = 0; i < 300; ++i) details += R"(,{"A": 1})";
  writeMasterDetail("{CUERPO=40}\n{A,WIDE}\n{FINCUERPO}\n",
                    ", \"details\": [" + details.substr(1) + "]");
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_GE(std::ranges::count(outcome.err, '\n'), 300);
}

TEST_F(MasterDetailTest, ARunTimeErrorIsShownWithItsNumberDescriptionAndTrail) {
  writeMasterDetail("header\n{CUERPO=40000}\n{FINCUERPO}\n");
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_EQ(outcome.err,
            "tarvordp: run-time error 6: Overflow\n"
            "   en clsObRepMasterDetail.fExtractNumberOfLinesToReadFromLine (Lib. Impresión Texto "
            "- Ob Rep)\n"
            "   en clsObRepMasterDetail.sPrintBody (Lib. Impresión Texto - Ob Rep)\n"
            "   en clsObRepMasterDetail.sWriteReport (Lib. Impresión Texto - Ob Rep)\n"
            "   en clsObRepMasterDetail.sWriteNCopiesOfReport (Lib. Impresión Texto - Ob Rep)\n"
            "   en clsObRepMasterDetail.sPrintReport (Lib. Impresión Texto - Ob Rep)\n"
            "tarvordp: hint: it happened while T.ID was printed, before it asked for a value; "
            "\"tarvordp check --kind master-detail T.ID\" may tell why\n"
            "tarvordp: out.prn was not whole and was removed\n");
  EXPECT_FALSE(has("out.prn"));
}

}  // namespace
}  // namespace tarvordp
