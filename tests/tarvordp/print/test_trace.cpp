// The trace of a run, line for line.
#include <fstream>
#include <nlohmann/json.hpp>

#include "print_testing.h"

namespace tarvordp {
namespace {

class TraceTest : public test::PrintTest {
 protected:
  std::string traceOf(const std::vector<std::string>& arguments = {}) {
    std::vector<std::string> all{"--trace", pathOf("t.jsonl")};
    all.insert(all.end(), arguments.begin(), arguments.end());
    outcome_ = print(all);
    return withoutFolder(contentOf("t.jsonl"));
  }

  test::Outcome outcome_;
};

TEST_F(TraceTest, OfAMasterDetailReportHasEveryCallInItsOrder) {
  writeMasterDetail("{A}\n{CUERPO=1}\n{renglon.monto,6}\n{FINCUERPO}\n",
                    R"(, "copies": 2, "record": {"A": "é"}, "subtotal": "renglon.monto",
                         "details": [{"RENGLON.MONTO": 1.25}])");
  EXPECT_EQ(traceOf(), R"({"event":"spooler","call":"OpenPrinter","name":"file:out.prn"}
{"event":"spooler","call":"StartDocPrinter","document":"Factura"}
{"event":"spooler","call":"StartPagePrinter"}
{"event":"spooler","call":"WritePrinter","bytes":""}
{"event":"spooler","call":"WritePrinter","bytes":""}
{"event":"callback","name":"fCanExecuteWriteReport","answer":true}
{"event":"callback","name":"fTranslateSpecialVarMD","variable":"A","subtotal":"0","answer":true}
{"event":"spooler","call":"WritePrinter","bytes":"820d0a"}
{"event":"callback","name":"fReadFirstRecord","answer":true}
{"event":"callback","name":"fTranslateSpecialVarMD","variable":"renglon.MONTO","subtotal":"0","answer":true}
{"event":"callback","name":"fTranslateSpecialVarMD","variable":"renglon.MONTO","subtotal":"0","answer":true}
{"event":"spooler","call":"WritePrinter","bytes":"2020312c32350d0a"}
{"event":"callback","name":"sAccumSubTotal","subtotal":"0","answer":"1.25"}
{"event":"callback","name":"fReadNextRecord","answer":false}
{"event":"spooler","call":"WritePrinter","bytes":"0c"}
{"event":"callback","name":"sDisplayPauseDialog","answer":null}
{"event":"callback","name":"fTranslateSpecialVarMD","variable":"A","subtotal":"0","answer":true}
{"event":"spooler","call":"WritePrinter","bytes":"820d0a"}
{"event":"callback","name":"fReadFirstRecord","answer":true}
{"event":"callback","name":"fTranslateSpecialVarMD","variable":"renglon.MONTO","subtotal":"0","answer":true}
{"event":"callback","name":"fTranslateSpecialVarMD","variable":"renglon.MONTO","subtotal":"0","answer":true}
{"event":"spooler","call":"WritePrinter","bytes":"2020312c32350d0a"}
{"event":"callback","name":"sAccumSubTotal","subtotal":"0","answer":"1.25"}
{"event":"callback","name":"fReadNextRecord","answer":false}
{"event":"spooler","call":"WritePrinter","bytes":""}
{"event":"spooler","call":"WritePrinter","bytes":"0c"}
{"event":"spooler","call":"WritePrinter","bytes":""}
{"event":"spooler","call":"EndPagePrinter"}
{"event":"spooler","call":"EndDocPrinter"}
{"event":"spooler","call":"ClosePrinter"}
)");
  EXPECT_EQ(outcome_.status, kDone);
}

TEST_F(TraceTest, OfARefusedReportHasItsMessage) {
  writeMasterDetail("{CUERPO=1}\n{FINCUERPO}\n",
                    R"(, "canPrint": {"refuse": "Falta el \"RIF\"."})");
  const std::string trace = traceOf();
  EXPECT_THAT(
      trace,
      testing::HasSubstr(
          R"({"event":"callback","name":"fCanExecuteWriteReport","text":"Falta el \"RIF\".","answer":false})"
          "\n"
          R"({"event":"message","operation":"sWarningWithTitle","text":"Falta el \"RIF\".","title":"Impresión de Factura","answer":null})"
          "\n"));
  EXPECT_THAT(
      trace,
      testing::HasSubstr(
          R"({"event":"message","operation":"sShowMessageWithTitle","text":"No se encontró información para imprimir.","title":"Impresión de Informe","answer":null})"
          "\n"));
  EXPECT_EQ(outcome_.status, kNotPrinted);
}

TEST_F(TraceTest, OfAFormHasItsQuestion) {
  writeForm(R"(, "answers": {"turnSheet": false})");
  const std::string trace = traceOf();
  EXPECT_THAT(
      trace,
      testing::HasSubstr(
          R"({"event":"callback","name":"fTranslateSpecialVar","variable":"A","answer":true})"
          "\n"));
  EXPECT_THAT(
      trace,
      testing::HasSubstr(
          R"({"event":"question","operation":"fAskAcceptCancel","text":"Coloque la segunda hoja de la planilla Planilla en su impresora. Cuando esté listo  presione <Aceptar>.\rSi no desea continuar con la impresión de la planilla, presione <Cancelar>.","title":"Voltear Planilla","answer":false})"
          "\n"));
}

TEST_F(TraceTest, OfAnUnknownPrinterHasTheCallThatFailed) {
  writeMasterDetail("{CUERPO=1}\n{FINCUERPO}\n");
  EXPECT_THAT(
      traceOf({"--printer", "file:/nowhere/out.prn"}),
      testing::HasSubstr(
          R"({"event":"spooler","call":"OpenPrinter","name":"file:/nowhere/out.prn","answer":false,"code":2})"
          "\n"
          R"({"event":"message","operation":"sShowMessage","text":"No se reconoce el nombre de la impresora: file:/nowhere/out.prn","title":"","answer":null})"
          "\n"));
}

TEST_F(TraceTest, OfAnErrorHasOneEventPerLevelInnermostFirst) {
  writeMasterDetail("{CUERPO=40000}\n{FINCUERPO}\n");
  std::string events;
  std::string description = "Overflow";
  for (const std::string procedure : {"fExtractNumberOfLinesToReadFromLine", "sPrintBody",
                                      "sWriteReport", "sWriteNCopiesOfReport", "sPrintReport"}) {
    description +=
        R"(\r\n   en clsObRepMasterDetail.)" + procedure + " (Lib. Impresión Texto - Ob Rep)";
    events += R"({"event":"error","class":"clsObRepMasterDetail","procedure":")" + procedure +
              R"(","module":"Lib. Impresión Texto - Ob Rep","number":6,"description":")" +
              description + "\"}\n";
  }
  EXPECT_THAT(traceOf(),
              testing::EndsWith(events + "{\"event\":\"spooler\",\"call\":\"ClosePrinter\"}\n"));
  EXPECT_EQ(outcome_.status, kRunTimeError);
}

TEST_F(TraceTest, EveryLineIsJson) {
  writeMasterDetail("{A}\n{CUERPO=0}\n{FINCUERPO}\n", R"(, "record": {"A": "\u0000\u0007\u20ac"})");
  std::istringstream lines(traceOf());
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    EXPECT_TRUE(nlohmann::json::accept(line)) << line;
  }
  EXPECT_GT(count, 10);
  EXPECT_THAT(contentOf("t.jsonl"),
              testing::HasSubstr(R"({"event":"callback","name":"fDetailRecordCount","answer":0})"));
}

TEST_F(TraceTest, AFileThatCannotBeWrittenIsTold) {
  writeMasterDetail("{CUERPO=1}\n{FINCUERPO}\n");
  const test::Outcome outcome = print({"--trace", pathOf("none/t.jsonl")});
  EXPECT_EQ(outcome.status, kWrongInput);
  EXPECT_EQ(outcome.err, "tarvordp: none/t.jsonl: cannot be written: No such file or directory\n");
  EXPECT_FALSE(has("out.prn")) << "nothing was printed";
}

TEST_F(TraceTest, AFullDiskIsToldAfterTheReportWasPrinted) {
  writeMasterDetail("x\n{CUERPO=1}\n{FINCUERPO}\n");
  const test::Outcome outcome = print({"--trace", "/dev/full"});
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_EQ(outcome.err, "tarvordp: /dev/full: the trace is not whole\n");
  EXPECT_EQ(printed(), "x<0D><0A>\n<0D><0A>\n<0C>");
}

TEST_F(TraceTest, OfAWrongJobIsNotBegun) {
  writeMasterDetail("{CUERPO=1}\n{FINCUERPO}\n", ", \"x\": 1");
  write("t.jsonl", "the trace of an earlier run");
  traceOf();
  EXPECT_EQ(contentOf("t.jsonl"), "the trace of an earlier run");
}

}  // namespace
}  // namespace tarvordp
