// The commands as a person calls them: arguments, files, exit statuses.
#include <CLI/CLI.hpp>

#include "check_test.h"
#include "equipment/temporary_folder.h"
#include "tarvordp/command_line.h"
#include "tarvordp/mistake.h"

namespace tarvordp::test {
namespace {

class CheckCommands : public ::testing::Test {
 protected:
  // The arguments behind the program's name; gives the exit status.
  int run(const std::vector<std::string>& arguments) {
    std::vector<const char*> words{"tarvordp"};
    for (const std::string& each : arguments) words.push_back(each.c_str());
    return tarvordp::run(static_cast<int>(words.size()), words.data(), console_);
  }

  std::string file(const char* name, const std::string& bytes) {
    const std::filesystem::path path = folder_.path() / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path.string();
  }

  bool& errIsTerminal() { return console_.errIsTerminal; }

  std::ostringstream out_;
  std::ostringstream err_;

 private:
  Console console_{out_, err_};
  tarvo::test::TemporaryFolder folder_;
};

TEST_F(CheckCommands, GiveStatus0WithoutErrors) {
  const std::string good = file("BUENA.ID", "Total {MONTO,15}\n");
  EXPECT_EQ(run({"check", good}), 0);
  EXPECT_EQ(out_.str(), "");
  const std::string warned = file("AVISO.ID", "a }\n");
  EXPECT_EQ(run({"check", warned}), 0);
  EXPECT_EQ(out_.str(), warned + ":1:3: warning: a '}' without its '{' is printed as it stands\n");
  EXPECT_EQ(err_.str(), "");
}

TEST_F(CheckCommands, GiveStatus1WithErrorsAndLookAtEveryTemplate) {
  const std::string first = file("UNO.ID", "{A,QX}\n");
  const std::string second = file("DOS.ID", "{B\n");
  const std::string third = file("TRES.ID", "bien\n");
  EXPECT_EQ(run({"check", first, second, third}), 1);
  EXPECT_EQ(out_.str(),
            first + ":1:4: error: unknown attribute 'QX'\n" + second +
                ":1:1: error: a '{' without its '}' ends the report (run-time error 5)\n");
}

TEST_F(CheckCommands, GiveStatus2WhenATemplateCannotBeReadAndLookAtTheOthers) {
  const std::string bad = file("UNO.ID", "{A,QX}\n");
  EXPECT_EQ(run({"check", "/nowhere/NADA.ID", bad}), 2);
  EXPECT_EQ(out_.str(), bad + ":1:4: error: unknown attribute 'QX'\n");
  EXPECT_EQ(err_.str(), "tarvordp: /nowhere/NADA.ID: cannot be read: No such file or directory\n");
}

TEST_F(CheckCommands, GiveStatus2ForWrongArguments) {
  EXPECT_EQ(run({"check"}), 2);
  EXPECT_EQ(run({"check", "--kind", "letter", "X.ID"}), 2);
  EXPECT_EQ(run({"check", "--profil", "plain", "X.ID"}), 2);
  EXPECT_EQ(run({"fields"}), 2);
}

TEST_F(CheckCommands, GiveStatus2ForAProfileThatIsNone) {
  EXPECT_EQ(run({"check", "--profile", "/nowhere/none.json", file("A.ID", "a\n")}), 2);
  EXPECT_THAT(err_.str(), ::testing::HasSubstr("/nowhere/none.json"));
  EXPECT_EQ(out_.str(), "");
}

TEST_F(CheckCommands, TakeTheKind) {
  const std::string path = file("A.ID", "{SALTAPAGINA}a\n");
  EXPECT_EQ(run({"check", path}), 0);
  EXPECT_EQ(run({"check", "--kind", "form", path}), 0);
  EXPECT_EQ(out_.str(), "");
  EXPECT_EQ(run({"check", "--kind", "master-detail", path}), 1);
  EXPECT_THAT(out_.str(), ::testing::HasSubstr("no line holds {CUERPO=n}"));
}

TEST_F(CheckCommands, TakeAShippedProfile) {
  const std::string path = file("A.ID", "{NEGRA}a{BLANCA}\n");
  EXPECT_EQ(run({"check", path, "--profile", "plain"}), 0);
  EXPECT_EQ(out_.str(), path + ":1:1: note: the profile has no ChrBold: NEGRA sends nothing\n" +
                            path +
                            ":1:9: note: the profile has no ChrLight: BLANCA sends "
                            "nothing\n");
}

TEST_F(CheckCommands, AJobFileIsNoTemplate) {
  const std::string job = file("j.json", "\n{\"report\": \"form\"}\n");
  const std::string good = file("BUENA.ID", "{}\n");
  for (const char* command : {"check", "fields"}) {
    EXPECT_EQ(run({command, job, good}), 2);
    EXPECT_EQ(err_.str(), "tarvordp: " + job +
                              ": this is JSON, like a job file, and no template: give the .ID "
                              "files\n");
    EXPECT_THAT(out_.str(), ::testing::HasSubstr("BUENA.ID:"));
    out_.str({});
    err_.str({});
  }
}

TEST_F(CheckCommands, APersonIsToldOfATemplateWithoutFindings) {
  const std::string form = file("UNO.ID", "{A}\n");
  const std::string report = file("DOS.ID", "a\n{CUERPO=1}\n{A}\n{FINCUERPO}\n");
  const std::string warned = file("TRES.ID", "a }\n");
  errIsTerminal() = true;
  EXPECT_EQ(run({"check", form, report, warned}), 0);
  EXPECT_EQ(err_.str(), "tarvordp: " + form + ": no findings, as a template of a form\n" +
                            "tarvordp: " + report +
                            ": no findings, as a template of a master-detail report\n");
  err_.str({});
  errIsTerminal() = false;
  EXPECT_EQ(run({"check", form}), 0);
  EXPECT_EQ(err_.str(), "");
}

TEST_F(CheckCommands, ExplainTheirExitStatus) {
  EXPECT_EQ(run({"check", "--help"}), 0);
  EXPECT_THAT(out_.str(), ::testing::HasSubstr("Exit status:\n  0  no errors"));
}

TEST_F(CheckCommands, ListNoFieldsOfAnotherEncodingSilently) {
  const std::string path = file("UTF16.ID", std::string("\xFF\xFE{\0A\0}\0", 8));
  EXPECT_EQ(run({"fields", path}), 0);
  EXPECT_EQ(out_.str(), path + ": form\nno fields\n");
  EXPECT_EQ(err_.str(), "tarvordp: " + path +
                            ": has errors, so fields may be missing: tarvordp check tells them\n");
}

TEST_F(CheckCommands, ListFieldsOfSeveralTemplates) {
  const std::string first = file("UNO.ID", "{A,5,0}\n");
  const std::string second = file("DOS.ID", "{B\n");
  EXPECT_EQ(run({"fields", first, second}), 0);
  EXPECT_EQ(out_.str(), first +
                            ": form\nsheet\n"
                            "  RECORD  FIELD  WIDTH  DECIMALS  LINES  HINTS\n"
                            "  -       A      5      0         1\n" +
                            second + ": form\nno fields\n");
  EXPECT_EQ(err_.str(), "tarvordp: " + second +
                            ": has errors, so fields may be missing: tarvordp check tells them\n");
  EXPECT_EQ(run({"fields", "/nowhere/NADA.ID"}), 2);
}

}  // namespace
}  // namespace tarvordp::test
