#include <cairo.h>
#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "command_run.h"
#include "equipment/golden.h"
#include "equipment/temporary_folder.h"
#include "tarvordp/command_line.h"
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
  print("\x1BW\x01N\xA7 1\x1BW" + std::string(1, '\0') + "\r\nx\x1BkA\f");
  EXPECT_EQ(view({"--profile", "epson-9pin", "--text"}).out, "Nº 1\nx<1B 6B 41>\n\f");
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

// The first row of pixels with ink on the printed part of the paper.
int firstInk(const std::string& picture) {
  cairo_surface_t* surface = cairo_image_surface_create_from_png(picture.c_str());
  const unsigned char* data = cairo_image_surface_get_data(surface);
  const int stride = cairo_image_surface_get_stride(surface);
  int row = 0;
  const auto isInk = [&](int column) {
    const unsigned char* pixel = data + row * stride + column * 4;
    return pixel[0] + pixel[1] + pixel[2] < 300;
  };
  const int height = cairo_image_surface_get_height(surface);
  while (row < height && !isInk(112)) ++row;
  cairo_surface_destroy(surface);
  return row;
}

TEST_F(ViewCommand, DrawsTheFirstLineBelowTheFoldUnlessThePageIsFull) {
  const auto firstInkOf = [&](int lines) {
    std::string bytes;
    for (int i = 0; i < lines; ++i) bytes += "\xDB\r\n";
    print(bytes + "  \f");  // blanks need no room
    EXPECT_EQ(view({"--profile", "plain", "--png", path("page")}).status, kDone);
    return firstInk(path("page-1.png"));
  };
  EXPECT_EQ(firstInkOf(66), 0);
  EXPECT_EQ(firstInkOf(65), 12);
  EXPECT_EQ(firstInkOf(1), 12);
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
  EXPECT_EQ(view({"--profile", "epson-9pin", "--text"}).out, "uno\ndos<1B ?>\n");
}

TEST_F(ViewCommand, ManyPagesAreShown) {
  std::string bytes;
  for (int i = 0; i < 100'000; ++i) bytes += "line " + std::to_string(i) + "\r\n";
  print(bytes);
  const CommandRun run = view({"--profile", "plain"});
  EXPECT_THAT(run.out, HasSubstr("──── page 1516 of 1516 ────"));
  EXPECT_THAT(run.out, EndsWith("line 99999\n"));
}

TEST_F(ViewCommand, ACharacterSetThatIsNotKnownIsTold) {
  print(
      "Pe\xA4"
      "a\r\n");
  folder.write(u"p.json", R"({"ChrInternationalChars": "\u001b(t\u0003\u0000\u0001\u0007\u0000"})");
  const CommandRun run = view({"--profile", path("p.json"), "--text"});
  EXPECT_EQ(run.status, kDone);
  EXPECT_EQ(run.out, "Peña\n");
  EXPECT_EQ(
      run.err,
      "tarvordp: the profile's character set (ChrInternationalChars, 1B 28 74 03 00 01 07 00) "
      "is not known here: letters beyond ASCII are shown as those of PC437\n");
  EXPECT_EQ(view({"--profile", "epson-24pin", "--text"}).err, "");
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
  const std::string file = path("job.prn");
  const char* const words[] = {"tarvordp", "view", file.c_str(), "--profile", "plain", "--text"};
  EXPECT_EQ(run(static_cast<int>(std::size(words)), words, console), kRunTimeError);
  EXPECT_EQ(err.str(), "tarvordp: the standard output was not written whole\n");
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
