// What a person is told after a report was printed, so that a misspelt name does not stay unseen.
#include "print_testing.h"

namespace tarvordp {
namespace {

using testing::HasSubstr;

class HintsTest : public test::PrintTest {
 protected:
  std::string hintsFor(const std::string& lines, const std::string& more,
                       const std::vector<std::string>& arguments = {}) {
    writeMasterDetail(lines, more);
    const test::Outcome outcome = print(arguments);
    EXPECT_EQ(outcome.status, kDone);
    EXPECT_EQ(outcome.out, "");
    return outcome.err;
  }
};

constexpr const char* kNowhere =
    "tarvordp: hint: these names of the template were not answered, at least once: ";

TEST_F(HintsTest, NamesThatAreNowhereAreToldOnce) {
  EXPECT_EQ(hintsFor("{CLIENTE.NOMBRE} {Cliente.Nombre} {TOTAL}\n{CUERPO=2}\n"
                     "{N} {Renglon.MNTO}\n{FINCUERPO}\n",
                     R"(, "record": {"TOTAL": 1}, "details": [{"N": "a"}, {"N": "b"}])"),
            std::string(kNowhere) + "CLIENTE.NOMBRE, Renglon.MNTO\n");
}

TEST_F(HintsTest, OfManyNamesTheFirstOnesAreTold) {
  const std::string body = "\n{CUERPO=1}\n{FINCUERPO}\n";
  EXPECT_EQ(hintsFor("{A}{B}{C}{D}{E}" + body, ""), std::string(kNowhere) + "A, B, C, D, E\n");
  EXPECT_EQ(hintsFor("{A}{B}{C}{D}{E}{F}{G}" + body, ""),
            std::string(kNowhere) + "A, B, C, D, E and 2 more\n");
}

TEST_F(HintsTest, ANullIsAnAnswer) {
  write("d.csv", "N:number\n\"\"\n");
  EXPECT_EQ(hintsFor("{A}\n{CUERPO=1}\n{N}\n{FINCUERPO}\n",
                     R"(, "record": {"A": null}, "details": {"csv": "d.csv"})"),
            "");
}

TEST_F(HintsTest, OfAFormTheyAreToldAsWell) {
  writeForm(R"(, "sheets": "first")");
  write("UNO.ID", "{A} {B}\n");
  EXPECT_EQ(print().err, std::string(kNowhere) + "B\n");
}

TEST_F(HintsTest, ASetNameThatNoTemplateAskedForIsTold) {
  const std::string lines = "{Factura.Numero}\n{CUERPO=1}\n{FINCUERPO}\n";
  EXPECT_EQ(hintsFor(lines, "",
                     {"--set", "factura.numro=1", "--set", "FACTURA.NUMERO=2", "--set", "x=3",
                      "--set", "x=4"}),
            "tarvordp: hint: --set gives what no template asked for: factura.numro, x\n");
  EXPECT_EQ(hintsFor(lines, "", {"--set", "FACTURA.numero=2"}), "");
}

TEST_F(HintsTest, AReportThatNeverAskedHasNoHintOnSet) {
  writeMasterDetail("{A}\n{CUERPO=1}\n{FINCUERPO}\n", R"(, "canPrint": false)");
  EXPECT_THAT(print({"--set", "B=1"}).err, testing::Not(HasSubstr("hint")));
}

TEST_F(HintsTest, ACsvFileWithAnotherSeparatorIsTold) {
  const std::string lines = "{CUERPO=1}\n{R.CODIGO}\n{FINCUERPO}\n";
  const std::string details = R"(, "details": {"csv": "d.csv"})";
  write("d.csv", "\xEF\xBB\xBFR.CODIGO;R.MONTO\r\nA-1;12\r\n");
  EXPECT_EQ(
      withoutFolder(hintsFor(lines, details)),
      "tarvordp: hint: d.csv: columns are separated by commas, and those of this file seem to "
      "be by \";\"\n" +
          std::string(kNowhere) + "R.CODIGO\n");
  write("d.csv", "R.CODIGO\tR.MONTO\nA-1\t12\n");
  EXPECT_THAT(hintsFor(lines, details), HasSubstr("those of this file seem to be by tabs\n"));
  write("d.csv", "R.CODIGO,a;b\nA-1,12\n");
  EXPECT_EQ(hintsFor(lines, details), "") << "more than one column";
}

TEST_F(HintsTest, ASubtotalNameThatNoRecordHasIsTold) {
  const std::string lines = "{CUERPO=1}\n{N}\n{FINCUERPO}\n";
  EXPECT_EQ(
      hintsFor(lines, R"(, "subtotal": "Nope", "details": [{"N": 1}, {"N": 2}])"),
      "tarvordp: hint: no record has the name \"Nope\" of the job's \"subtotal\": nothing was "
      "added up\n");
  EXPECT_EQ(
      hintsFor(lines, R"(, "subtotal": "Monto", "details": [{"N": 1}, {"N": 1, "MONTO": 2}])"), "");
  EXPECT_EQ(hintsFor(lines, R"(, "details": [{"N": 1}])"), "");
}

TEST_F(HintsTest, WhereNothingWasPrintedThereIsNone) {
  writeForm(R"(, "sheets": "first")");
  write("UNO.ID", "{A} {B}\n");
  EXPECT_EQ(print({"--printer", "file:/nowhere/x", "--set", "C=1"}).err,
            "No se reconoce el nombre de la impresora: file:/nowhere/x\n"
            "tarvordp: file:/nowhere/x: cannot be written: No such file or directory\n");
}

TEST_F(HintsTest, AfterARunTimeErrorTheTemplateAndItsLastNameAreTold) {
  writeMasterDetail("{A} {B}\n{CUERPO=1}\n{N}\n{FINCUERPO}\n",
                    R"(, "record": {"A": "a", "B": {"enum": "X"}})");
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_THAT(outcome.err,
              HasSubstr("\ntarvordp: hint: it happened while T.ID was printed, which asked for B "
                        "last; \"tarvordp check --kind master-detail T.ID\" may tell why\n"));
}

TEST_F(HintsTest, OfAFormTheSheetThatWasPrintedIsTold) {
  writeForm();
  write("DOS.ID", "dos {A[x]}\n");
  EXPECT_THAT(print({"--yes"}).err,
              HasSubstr("hint: it happened while DOS.ID was printed, before it asked for a value; "
                        "\"tarvordp check --kind form DOS.ID\" may tell why\n"));
}

TEST_F(HintsTest, AReportThatTheDataOrAPersonEndedBlamesNoTemplate) {
  writeMasterDetail("{A}\n{CUERPO=1}\n{N}\n{FINCUERPO}\n",
                    R"(, "copies": 2, "details": [{"N": "a"}], "answers": {"pause": false})");
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kNotPrinted);
  EXPECT_THAT(outcome.err, HasSubstr("the report was given up at a pause\n"));
  EXPECT_THAT(outcome.err, testing::Not(HasSubstr("hint: it happened")));
}

TEST_F(HintsTest, ATemplateNamedWithItsEndingIsTold) {
  writeMasterDetail("x\n{CUERPO=1}\n{FINCUERPO}\n");
  constexpr const char* kHint =
      "tarvordp: hint: the job names a template without \".ID\" at its end\n";
  EXPECT_THAT(print().err, testing::Not(HasSubstr(kHint)));
  std::string job = contentOf("j.json");
  write("j.json", job.replace(job.find("\"T\""), 3, "\"T.id\""));
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kNotPrinted);
  EXPECT_THAT(outcome.err, HasSubstr(kHint));
  std::filesystem::rename(pathOf("T.ID"), pathOf("U.ID"));
  write("j.json", job.replace(job.find("\"T.id\""), 6, "\"T\""));
  EXPECT_THAT(print().err, testing::Not(HasSubstr(kHint))) << "missing for another reason";
}

TEST_F(HintsTest, ASeparatorThatMakesTheRowsWrongIsToldWithTheMistake) {
  writeMasterDetail("{CUERPO=1}\n{R.CODIGO}\n{FINCUERPO}\n", R"(, "details": {"csv": "d.csv"})");
  for (const char* content :
       {"R.CODIGO;R.MONTO\nA-1;1250,50\n", "R.MONTO:number;R.CODIGO\n12;A-1\n"}) {
    write("d.csv", content);
    const test::Outcome outcome = print();
    EXPECT_EQ(outcome.status, kWrongInput) << content;
    EXPECT_EQ(outcome.err,
              "tarvordp: j.json: /details/csv: d.csv: line 1: columns are separated by commas, and "
              "those of this file seem to be by \";\"\n");
    EXPECT_FALSE(has("out.prn"));
  }
}

}  // namespace
}  // namespace tarvordp
