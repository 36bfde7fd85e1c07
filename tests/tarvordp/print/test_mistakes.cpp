// Wrong arguments and wrong jobs: what is told, the exit status, and that nothing is printed.
#include "print_testing.h"

namespace tarvordp {
namespace {

using testing::HasSubstr;

class MistakesTest : public test::PrintTest {
 protected:
  MistakesTest() { writeMasterDetail("x\n{CUERPO=1}\n{FINCUERPO}\n"); }

  std::string mistakeOf(const std::vector<std::string>& arguments = {}) {
    const test::Outcome outcome = print(arguments);
    EXPECT_EQ(outcome.status, kWrongInput) << outcome.err;
    EXPECT_FALSE(has("out.prn"));
    return outcome.err;
  }
};

TEST_F(MistakesTest, OfTheJobNameItsFileAndPlace) {
  writeMasterDetail("", R"(, "copes": 2)");
  EXPECT_EQ(mistakeOf(), "tarvordp: j.json: /copes: unknown key \"copes\"\n");
  writeMasterDetail("", R"(, "record": {"A": {"date": "mañana"}})");
  EXPECT_EQ(mistakeOf(),
            "tarvordp: j.json: /record/A/date: \"mañana\" is no date: write YYYY-MM-DD or "
            "YYYY-MM-DDTHH:MM:SS\n");
  write("j.json", "{");
  EXPECT_THAT(mistakeOf(), HasSubstr("tarvordp: j.json: this is not JSON: "));
  std::filesystem::remove(pathOf("j.json"));
  EXPECT_EQ(mistakeOf(), "tarvordp: j.json: cannot be read: No such file or directory\n");
}

TEST_F(MistakesTest, ATemplateIsNoJob) {
  write("factura.id", "x {A}\n");
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err};
  const std::string path = pathOf("factura.id");
  const char* arguments[] = {"tarvordp", "print", path.c_str()};
  EXPECT_EQ(run(3, arguments, console), kWrongInput);
  EXPECT_EQ(withoutFolder(err.str()),
            "tarvordp: factura.id: this is no job file, and is named like a template: print takes "
            "a job file (JSON) that names the template\n");
}

TEST_F(MistakesTest, OfTheDataNameTheJobsPlaceAndTheDatas) {
  write("d.csv", "A,B\n1\n");
  writeMasterDetail("", R"(, "details": {"csv": "d.csv"})");
  EXPECT_EQ(mistakeOf(),
            "tarvordp: j.json: /details/csv: d.csv: line 2: the row has 1 cell, and there are 2 "
            "columns\n");
  writeMasterDetail("", R"(, "details": {"sqlite": "d.db", "query": "SELECT 1"})");
  EXPECT_EQ(mistakeOf(), "tarvordp: j.json: /details/sqlite: d.db: there is no such database\n");
  writeMasterDetail("", R"(, "subtotal": "M", "details": [{"M": "12"}])");
  EXPECT_EQ(mistakeOf(), "tarvordp: j.json: /details/0: M: the subtotal needs a number here\n");
}

TEST_F(MistakesTest, OfArgumentsSayWhatIsExpected) {
  EXPECT_EQ(mistakeOf({"--set", "NAME"}),
            "tarvordp: --set: \"NAME\" is not of the form NAME=VALUE; see \"tarvordp print "
            "--help\"\n");
  EXPECT_THAT(mistakeOf({"--set", "=x"}), HasSubstr("--set: \"=x\" is not of the form"));
  EXPECT_THAT(mistakeOf({"--copies", "0"}), HasSubstr("--copies"));
  EXPECT_THAT(mistakeOf({"--copies", "256"}), HasSubstr("--copies"));
  EXPECT_THAT(mistakeOf({"--copies", "two"}), HasSubstr("--copies"));
  EXPECT_THAT(mistakeOf({"--colour"}), HasSubstr("--colour"));
  EXPECT_THAT(mistakeOf({"second.json"}), HasSubstr("second.json"));
  EXPECT_EQ(mistakeOf({"--save", pathOf("none/x.pdf")}),
            "tarvordp: --save: none/x.pdf: a file cannot be made there\n");
}

TEST_F(MistakesTest, AFormHasNoCopies) {
  writeForm();
  const test::Outcome outcome = print({"--copies", "2"});
  EXPECT_EQ(outcome.status, kWrongInput);
  EXPECT_EQ(outcome.err, "tarvordp: --copies: j.json is a form report, which has no copies\n");
}

TEST_F(MistakesTest, AnUnknownProfileIsTold) {
  write("j.json", R"({"report": "form", "title": "t", "directory": ".", "profile": "epson-99"})");
  EXPECT_THAT(mistakeOf(), HasSubstr("epson-99"));
}

TEST_F(MistakesTest, HelpTellsTheOptionsAndTheExitStatus) {
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err};
  const char* arguments[] = {"tarvordp", "print", "--help"};
  EXPECT_EQ(run(3, arguments, console), kDone);
  for (const char* word :
       {"--printer", "--save", "--set", "--copies", "--trace", "--yes", "Exit status"}) {
    EXPECT_THAT(out.str(), HasSubstr(word));
  }
  EXPECT_EQ(err.str(), "");
}

}  // namespace
}  // namespace tarvordp
