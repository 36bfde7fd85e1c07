// What the page output of this platform does with pages: a viewer, a file, no printer.
#include "graphic/page_output.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <thread>

#include "equipment/errors.h"
#include "equipment/temporary_folder.h"
#include "graphic/pdf_writer.h"

namespace tarvo::test {
namespace {

// Sets a variable of the environment for as long as it lives; none takes it away.
class Variable {
 public:
  Variable(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    set(value);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { set(before_); }

 private:
  void set(const std::optional<std::string>& value) const {
    if (value) {
      setenv(name_, value->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }

  const char* name_;
  std::optional<std::string> before_;
};

class Output : public ::testing::Test {
 protected:
  Output() {
    pages_->addRow(u"Hola");
    std::filesystem::create_directory(folder.path() / "bin");
    std::filesystem::create_directory(folder.path() / "tmp");
    std::filesystem::create_directory(folder.path() / "current");
    std::filesystem::current_path(folder.path() / "current");
  }
  ~Output() override { std::filesystem::current_path(before_); }

  // A viewer of the test's own: writes its arguments and a copy of the file that it is to open.
  void installViewer(const std::string& end) const {
    folder.write(u"bin/xdg-open", "#!/bin/sh\necho \"$#:$1\" >\"" + folder.path().string() +
                                      "/arguments\"\ncp \"$1\" \"" + folder.path().string() +
                                      "/shown\"\n" + end + "\n");
    chmod((folder.path() / "bin/xdg-open").c_str(), 0755);
  }

  std::string pathVariable() const { return (folder.path() / "bin").string() + ":/usr/bin:/bin"; }
  std::string temporaryPath() const { return (folder.path() / "tmp").string(); }

  std::size_t temporaryFiles() const {
    const std::filesystem::directory_iterator files(folder.path() / "tmp");
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

  void show(bool modal) { platform::makePageOutput()->show(pages(), u"Ventas 1/2", modal); }
  Ref<const PagedText> pages() const { return pages_; }
  std::string pdf() const { return pdfOf(*pages_, u"Ventas 1/2"); }
  std::string saved() const { return folder.contentOf(u"current/Ventas 1_2.pdf"); }

  bool appears(TextView name) const {
    using namespace std::chrono_literals;
    for (int i = 0; i < 500 && !folder.has(name); ++i) std::this_thread::sleep_for(10ms);
    return folder.has(name);
  }

  TemporaryFolder folder;
  std::filesystem::path before_ = std::filesystem::current_path();
  Ref<PagedText> pages_ = make<PagedText>(PageFormat());
  Variable display{"DISPLAY", ":99"};
  Variable wayland{"WAYLAND_DISPLAY", std::nullopt};
  Variable temporary{"TMPDIR", temporaryPath()};
  Variable path{"PATH", pathVariable()};
};

TEST_F(Output, IsShownInTheUsersViewer) {
  installViewer("exit 0");
  show(true);
  EXPECT_EQ(folder.contentOf(u"shown"), pdf());
  const std::string arguments = folder.contentOf(u"arguments");
  EXPECT_TRUE(arguments.starts_with("1:" + temporaryPath() + "/tarvo-")) << arguments;
  EXPECT_TRUE(arguments.ends_with(".pdf\n")) << arguments;
  EXPECT_EQ(saved(), "(missing)");
  EXPECT_EQ(temporaryFiles(), 1u) << "the viewer may still need it";
}

TEST_F(Output, ATemporaryFileIsForTheUserAlone) {
  installViewer("exit 0");
  show(true);
  for (const auto& file : std::filesystem::directory_iterator(folder.path() / "tmp")) {
    EXPECT_EQ(file.status().permissions(), std::filesystem::perms(0600));
  }
}

TEST_F(Output, WaitsForTheViewerWhenItIsModal) {
  installViewer("sleep 0.3; echo done >\"" + folder.path().string() + "/done\"");
  show(true);
  EXPECT_TRUE(folder.has(u"done"));
}

TEST_F(Output, IsShownByAProgramThatIgnoresItsChildrenToo) {
  installViewer("sleep 0.2; exit 0");
  const auto before = std::signal(SIGCHLD, SIG_IGN);
  show(true);
  std::signal(SIGCHLD, before);
  EXPECT_EQ(folder.contentOf(u"shown"), pdf());
  EXPECT_EQ(saved(), "(missing)");
}

TEST_F(Output, DoesNotWaitWhenItIsModeless) {
  installViewer("while [ ! -e \"" + folder.path().string() +
                "/go\" ]; do sleep 0.02; done; echo x >\"" + folder.path().string() + "/done\"");
  show(false);
  EXPECT_FALSE(folder.has(u"done"));
  folder.write(u"go", "");
  EXPECT_TRUE(appears(u"done"));
  EXPECT_EQ(folder.contentOf(u"shown"), pdf());
}

TEST_F(Output, IsSavedWhenTheViewerCannotShowIt) {
  installViewer("exit 3");
  show(true);
  EXPECT_EQ(saved(), pdf());
  EXPECT_EQ(temporaryFiles(), 0u);
}

TEST_F(Output, IsSavedWhenThereIsNoViewer) {
  const Variable noViewer("PATH", folder.path().string());
  for (const bool modal : {true, false}) {
    std::filesystem::remove(folder.path() / "current/Ventas 1_2.pdf");
    show(modal);
    EXPECT_EQ(saved(), pdf());
    EXPECT_EQ(temporaryFiles(), 0u);
  }
}

TEST_F(Output, IsSavedWhenThereIsNoDisplay) {
  installViewer("exit 0");
  for (const std::optional<std::string>& none : {std::optional<std::string>(), {""}}) {
    const Variable noDisplay("DISPLAY", none);
    std::filesystem::remove(folder.path() / "current/Ventas 1_2.pdf");
    show(true);
    EXPECT_EQ(saved(), pdf());
    EXPECT_FALSE(folder.has(u"shown"));
  }
}

TEST_F(Output, ReplacesNoFileWhenItCannotBeShown) {
  folder.write(u"current/Ventas 1_2.pdf", "the client's");
  installViewer("exit 3");
  show(true);
  const Variable noDisplay("DISPLAY", std::nullopt);
  show(false);
  EXPECT_EQ(saved(), "the client's");
  EXPECT_EQ(folder.contentOf(u"current/Ventas 1_2.2.pdf"), pdf());
  EXPECT_EQ(folder.contentOf(u"current/Ventas 1_2.3.pdf"), pdf());
}

TEST_F(Output, IsShownOnEitherKindOfDisplay) {
  installViewer("exit 0");
  const Variable noDisplay("DISPLAY", std::nullopt);
  const Variable onWayland("WAYLAND_DISPLAY", "wayland-0");
  show(true);
  EXPECT_EQ(folder.contentOf(u"shown"), pdf());
}

TEST_F(Output, ThatCannotBeWrittenIsAnErrorWithThePath) {
  installViewer("exit 0");
  const Variable elsewhere("TMPDIR", folder.path().string() + "/missing");
  const auto error = errorOf([this] { show(true); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->number(), kPathNotFound);
  EXPECT_NE(error->description().find(u"/missing/tarvo-"), Text::npos) << error->what();
}

TEST_F(Output, IsSavedUnderItsTitleOrOnTheFileThatThePrinterIs) {
  const Ref<PageOutput> output = platform::makePageOutput();
  folder.write(u"current/Ventas 1_2.pdf", "replaced");
  output->save(pages(), u"Ventas 1/2", u"EPSON");
  EXPECT_EQ(saved(), pdf());
  output->save(pages(), u"Ventas 1/2", u"file:" + folder.pathOf(u"other"));
  EXPECT_EQ(folder.contentOf(u"other"), pdf());
  EXPECT_EQ(errorNumberOf([&] { output->save(pages(), u"x", u"file:/dev/full"); }), kDiskFull);
}

TEST_F(Output, IsPrintedIntoTheFileThatThePrinterIs) {
  const Ref<PageOutput> output = platform::makePageOutput();
  output->print(pages(), u"Ventas 1/2", u"file:" + folder.pathOf(u"printed"));
  EXPECT_EQ(folder.contentOf(u"printed"), pdf());
  EXPECT_EQ(errorNumberOf([&] { output->print(pages(), u"x", u"file:/dev/full"); }), kDiskFull);
}

TEST_F(Output, CannotBePrintedWithoutAServer) {
  const Variable noServer("CUPS_SERVER", folder.path().string() + "/no.sock");
  for (const TextView printer : {u"EPSON", u"", u"/x"}) {
    const auto error =
        errorOf([&] { platform::makePageOutput()->print(pages(), u"Ventas", printer); });
    ASSERT_TRUE(error.has_value()) << toUtf8(printer);
    EXPECT_EQ(error->number(), kPrinterError);
    EXPECT_TRUE(error->description().starts_with(u"Printer error: " + Text(printer)))
        << error->what();
  }
}

TEST(FailToPrint, NamesThePrinterAndTheReason) {
  EXPECT_EQ(errorOf([] { failToPrint(u"EPSON", u"no paper"); })->description(),
            u"Printer error: EPSON (no paper)");
  EXPECT_EQ(errorOf([] { failToPrint(u"EPSON", u""); })->description(), u"Printer error: EPSON");
}

}  // namespace
}  // namespace tarvo::test
