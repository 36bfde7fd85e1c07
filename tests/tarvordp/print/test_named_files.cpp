// Files that a print names twice: nothing that is read is overwritten, and nothing that is written
// is lost.
#include "print_testing.h"

namespace tarvordp {
namespace {

class NamedFilesTest : public test::PrintTest {
 protected:
  NamedFilesTest() {
    write("d.csv", "N\na\n");
    writeMasterDetail("x\n{CUERPO=1}\n{N}\n{FINCUERPO}\n", R"(, "details": {"csv": "d.csv"})");
  }

  // Expects that nothing is printed, and nothing changed.
  void expectMistake(const std::vector<std::string>& arguments, const std::string& told) {
    const std::string job = contentOf("j.json");
    const test::Outcome outcome = print(arguments);
    EXPECT_EQ(outcome.status, kWrongInput);
    EXPECT_EQ(outcome.err, "tarvordp: " + told + "\n");
    EXPECT_EQ(contentOf("j.json"), job);
    EXPECT_EQ(contentOf("d.csv"), "N\na\n");
    EXPECT_FALSE(has("out.prn"));
    EXPECT_FALSE(has("x"));
  }
};

TEST_F(NamedFilesTest, TwoOutputsAreTwoFiles) {
  expectMistake({"--trace", pathOf("out.prn")},
                "the printer and --trace name the same file, out.prn");
  expectMistake({"--save", pathOf("x"), "--trace", pathOf("x")},
                "--save and --trace name the same file, x");
  expectMistake({"--printer", "file:" + pathOf("x"), "--save", pathOf("./x")},
                "the printer and --save name the same file, ./x");
}

TEST_F(NamedFilesTest, WhatIsReadIsNotOverwritten) {
  expectMistake({"--printer", "file:" + pathOf("d.csv")},
                "the printer would overwrite the data, d.csv");
  expectMistake({"--trace", pathOf("j.json")}, "--trace would overwrite the job file, j.json");
  expectMistake({"--save", pathOf("./j.json")}, "--save would overwrite the job file, j.json");
}

TEST_F(NamedFilesTest, ADatabaseIsNotOverwritten) {
  write("d.db", "");
  writeMasterDetail("{CUERPO=1}\n{FINCUERPO}\n",
                    R"(, "recordQuery": {"sqlite": "d.db", "query": "SELECT 1 AS a"})");
  EXPECT_EQ(print({"--trace", pathOf("d.db")}).err,
            "tarvordp: --trace would overwrite the data, d.db\n");
}

TEST_F(NamedFilesTest, WhatIsNoOrdinaryFileMayBeNamedTwice) {
  EXPECT_EQ(print({"--printer", "file:/dev/null", "--trace", "/dev/null"}).status, kDone);
}

}  // namespace
}  // namespace tarvordp
