#include <gmock/gmock.h>

#include <fstream>
#include <sstream>
#include <string>

#include "command_run.h"
#include "equipment/golden.h"
#include "equipment/temporary_folder.h"
#include "tarvordp/profile/profile.h"

namespace tarvordp {
namespace {

using tarvo::test::matchesGolden;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class ViewCommand : public testing::Test {
 protected:
  CommandRun view(std::vector<std::string> options, bool outIsTerminal = false) {
    options.insert(options.begin(), {"view", path("job.prn")});
    return runCommand(&addViewCommand, options, outIsTerminal);
  }
  void print(const std::string& bytes) { folder.write(u"job.prn", bytes); }
  std::string path(const std::string& name) const { return (folder.path() / name).string(); }

  tarvo::test::TemporaryFolder folder;
};

TEST_F(ViewCommand, ShowsPagesOnTheTerminal) {
  print(
      "\x1B@\x1B"
      "EUno\x1B"
      "F\r\n\fDos\r\n");
  const CommandRun run = view({"--profile", "epson-9pin"}, true);
  EXPECT_EQ(run.status, kDone);
  EXPECT_THAT(run.out, HasSubstr("──── page 1 of 2 ────"));
  EXPECT_THAT(run.out, HasSubstr("\033[0;1mUno\033[0m\n"));
  EXPECT_THAT(run.out, EndsWith("\nDos\n"));
  EXPECT_THAT(view({"--profile", "epson-9pin"}).out, HasSubstr("─\nUno\n"));
}

TEST_F(ViewCommand, ShowsTheTestPageOfEveryProfileAlike) {
  for (const std::string& name : shippedProfileNames()) {
    if (name == "plain") continue;  // it has no modes
    const CommandRun printed = runCommand(
        &addTestPageCommand,
        {"testpage", "--profile", name, "--printer", "file:" + path("job.prn"), "--rules"});
    ASSERT_EQ(printed.status, kDone) << printed.err;
    EXPECT_TRUE(
        matchesGolden("tarvordp/view/golden/terminal.txt", view({"--profile", name}, true).out))
        << name;
  }
}

TEST_F(ViewCommand, GivesPlainText) {
  print("\x1BW\x01N\xA7 1\x1BW" + std::string(1, '\0') + "\r\nx\x1Bk\f");
  EXPECT_EQ(view({"--profile", "epson-9pin", "--text"}).out, "Nº 1\nx<1B 6B>\n\f");
}

TEST_F(ViewCommand, DrawsPicturesAndAPdf) {
  print("uno\fdos\f");
  const CommandRun run =
      view({"--profile", "plain", "--png", path("page"), "--pdf", path("all.pdf")});
  EXPECT_EQ(run.status, kDone);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, path("page-1.png") + " to " + path("page-2.png") + " written\n" +
                         path("all.pdf") + " written, 2 pages\n");
  EXPECT_THAT(folder.contentOf(u"page-2.png"), StartsWith("\x89PNG"));
  EXPECT_THAT(folder.contentOf(u"all.pdf"), StartsWith("%PDF-"));
}

TEST_F(ViewCommand, DrawsAndGivesTextAtOnce) {
  print("uno\r\n");
  const CommandRun run = view({"--profile", "plain", "--png", path("page"), "--text"});
  EXPECT_EQ(run.out, "uno\n");
  EXPECT_EQ(run.err, path("page-1.png") + " written\n");
}

TEST_F(ViewCommand, ThePageLengthMayBeAnother) {
  std::string bytes;
  for (int i = 0; i < 40; ++i) bytes += "x\r\n";
  print(bytes);
  EXPECT_THAT(view({"--profile", "plain"}).out, HasSubstr("page 1 of 1"));
  EXPECT_THAT(view({"--profile", "plain", "--lines", "33"}).out, HasSubstr("page 2 of 2"));
  EXPECT_EQ(view({"--profile", "plain", "--lines", "0"}).status, kWrongInput);
  EXPECT_EQ(view({"--profile", "plain", "--lines", "256"}).status, kWrongInput);
}

TEST_F(ViewCommand, AnEmptyFileHasNoPages) {
  print("");
  const CommandRun shown = view({"--profile", "plain"});
  EXPECT_EQ(shown.status, kDone);
  EXPECT_EQ(shown.out, "");
  EXPECT_THAT(shown.err, HasSubstr("job.prn: nothing was printed, so there is no page"));
  EXPECT_EQ(view({"--profile", "plain", "--text"}).out, "");
  EXPECT_EQ(view({"--profile", "plain", "--pdf", path("p.pdf")}).status, kNotPrinted);
  EXPECT_FALSE(folder.has(u"p.pdf"));
}

TEST_F(ViewCommand, AFileThatEndsInTheMiddleIsShownUpToThere) {
  print("uno\r\ndos\x1B");
  EXPECT_EQ(view({"--profile", "epson-9pin", "--text"}).out, "uno\ndos<1B>\n");
}

TEST_F(ViewCommand, ManyPagesAreShown) {
  std::string bytes;
  for (int i = 0; i < 100'000; ++i) bytes += "line " + std::to_string(i) + "\r\n";
  print(bytes);
  const CommandRun run = view({"--profile", "plain"});
  EXPECT_THAT(run.out, HasSubstr("──── page 1516 of 1516 ────"));
  EXPECT_THAT(run.out, EndsWith("line 99999\n"));
}

TEST_F(ViewCommand, MistakesAreTold) {
  EXPECT_EQ(view({"--profile", "plain"}).status, kWrongInput);
  EXPECT_EQ(view({"--profile", "plain"}).err,
            path("job.prn") + ": cannot be read: No such file or directory\n");
  print("x");
  EXPECT_EQ(view({}).status, kWrongInput);
  EXPECT_THAT(view({"--profile", "nope"}).err, HasSubstr("neither a file nor a shipped"));
  EXPECT_EQ(view({"--profile", "plain", "--jpg", "x"}).status, kWrongInput);
}

TEST_F(ViewCommand, AnOutputStreamThatFailsIsTold) {
  print("x");
  std::ofstream full("/dev/full");
  std::ostringstream err;
  Console console{full, err, false, false, false};
  CLI::App program("", "tarvordp");
  int status = kDone;
  addViewCommand(program, console, status);
  program.parse(std::vector<std::string>{"--text", "plain", "--profile", path("job.prn"), "view"});
  EXPECT_EQ(status, kNotPrinted);
  EXPECT_EQ(err.str(), "tarvordp: the pages cannot be written to the output\n");
}

TEST_F(ViewCommand, AnOutputThatCannotBeWrittenIsTold) {
  print("x");
  const CommandRun full = view({"--profile", "plain", "--pdf", "/dev/full"});
  EXPECT_EQ(full.status, kNotPrinted);
  EXPECT_EQ(full.err, "tarvordp: /dev/full: cannot be written: No space left on device\n");
  const CommandRun nowhere = view({"--profile", "plain", "--png", "/nowhere/page"});
  EXPECT_EQ(nowhere.status, kNotPrinted);
  EXPECT_THAT(nowhere.err, HasSubstr("/nowhere/page-1.png: cannot be written: No such file"));
}

}  // namespace
}  // namespace tarvordp
