// The file back-end with what is a file on POSIX systems without being one on a disk.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

#include "equipment/temporary_folder.h"
#include "platform/file/file_spooler.h"

namespace tarvo::test {
namespace {

// One job; whether every answer was true.
bool print(Spooler& spooler, PrinterHandle handle, std::string_view bytes) {
  return spooler.startDocument(handle, {}) && spooler.startPage(handle) &&
         spooler.write(handle, bytes) && spooler.endPage(handle) && spooler.endDocument(handle);
}

TEST(FileSpoolerDevices, ADeviceTakesEveryJobItself) {
  TemporaryFolder folder;
  std::filesystem::create_symlink("/dev/null", folder.path() / "null");
  const Ref<Spooler> spooler = makeFileSpooler();
  PrinterHandle handle = 0;
  ASSERT_TRUE(spooler->openPrinter(u"file:" + folder.pathOf(u"null"), handle));
  EXPECT_TRUE(print(*spooler, handle, "one"));
  EXPECT_TRUE(print(*spooler, handle, std::string(200'000, 'x')));
  EXPECT_TRUE(spooler->closePrinter(handle));
  EXPECT_FALSE(folder.has(u"null.2"));
}

class FullDisk : public ::testing::Test {
 protected:
  FullDisk() {
    EXPECT_TRUE(spooler->openPrinter(u"file:/dev/full", handle));
    EXPECT_TRUE(spooler->startDocument(handle, {}));
    EXPECT_TRUE(spooler->startPage(handle));
  }

  Ref<Spooler> spooler = makeFileSpooler();
  PrinterHandle handle = 0;
};

TEST_F(FullDisk, ShowsAtTheEndOfASmallJob) {
  EXPECT_TRUE(spooler->write(handle, "x"));
  EXPECT_TRUE(spooler->endPage(handle));
  EXPECT_FALSE(spooler->endDocument(handle));
  EXPECT_EQ(spooler->lastError(), ENOSPC);
}

TEST_F(FullDisk, ShowsInTheWriteThatFillsTheBufferAndInEveryLaterOne) {
  const std::string line(80, 'x');
  int taken = 0;
  while (taken < 2000 && spooler->write(handle, line)) ++taken;
  EXPECT_EQ(taken, 64 * 1024 / 80);
  EXPECT_EQ(spooler->lastError(), ENOSPC);
  EXPECT_FALSE(spooler->write(handle, "x"));
  EXPECT_EQ(spooler->lastError(), ENOSPC);
  EXPECT_FALSE(spooler->endDocument(handle));
  EXPECT_EQ(spooler->lastError(), ENOSPC);
}

TEST_F(FullDisk, ShowsWhenAnAbandonedJobIsClosed) {
  EXPECT_TRUE(spooler->write(handle, "x"));
  EXPECT_FALSE(spooler->closePrinter(handle));
  EXPECT_EQ(spooler->lastError(), ENOSPC);
}

TEST_F(FullDisk, DoesNotTouchTheNextJob) {
  EXPECT_TRUE(spooler->write(handle, "x"));
  EXPECT_FALSE(spooler->endDocument(handle));
  TemporaryFolder folder;
  ASSERT_TRUE(spooler->openPrinter(u"file:" + folder.pathOf(u"job"), handle));
  EXPECT_TRUE(print(*spooler, handle, "whole"));
  EXPECT_EQ(spooler->lastError(), 0);
  EXPECT_EQ(folder.contentOf(u"job"), "whole");
}

// A disk that has room for the first pieces only: what follows the gap must not be written.
TEST(FileSpoolerLimits, AFailedJobHasNoHoles) {
  TemporaryFolder folder;
  const Ref<Spooler> spooler = makeFileSpooler();
  PrinterHandle handle = 0;
  ASSERT_TRUE(spooler->openPrinter(u"file:" + folder.pathOf(u"job"), handle));
  spooler->startDocument(handle, {});
  spooler->startPage(handle);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{100'000, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_TRUE(spooler->write(handle, std::string(65'536, 'a')));
  EXPECT_FALSE(spooler->write(handle, std::string(140'000, 'b')));
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(spooler->lastError(), EFBIG);
  EXPECT_FALSE(spooler->write(handle, std::string(140'000, 'c'))) << "there is room again";
  EXPECT_FALSE(spooler->endDocument(handle));
  std::signal(SIGXFSZ, handler);
  EXPECT_TRUE(folder.contentOf(u"job") == std::string(65'536, 'a') + std::string(34'464, 'b'));
}

// The standard output of the test program, led into a file for a while.
class StandardOutput : public ::testing::Test {
 protected:
  StandardOutput() {
    std::fflush(stdout);
    saved_ = dup(STDOUT_FILENO);
    const int file = open((folder.path() / "out").c_str(), O_WRONLY | O_CREAT, 0600);
    dup2(file, STDOUT_FILENO);
    close(file);
  }
  ~StandardOutput() override { restore(); }

  void restore() {
    if (saved_ < 0) return;
    std::fflush(stdout);
    dup2(saved_, STDOUT_FILENO);
    close(saved_);
    saved_ = -1;
  }

  TemporaryFolder folder;
  Ref<Spooler> spooler = makeFileSpooler();
  PrinterHandle handle = 0;

 private:
  int saved_ = -1;
};

TEST_F(StandardOutput, TakesEveryJobAndStaysOpen) {
  std::fputs("before ", stdout);
  const bool printed = spooler->openPrinter(u"file:-", handle) &&
                       print(*spooler, handle, "one\r\n") && print(*spooler, handle, "two\n\x1A");
  const bool closed = spooler->closePrinter(handle);
  std::fputs(" after", stdout);
  restore();
  EXPECT_TRUE(printed);
  EXPECT_TRUE(closed);
  EXPECT_EQ(folder.contentOf(u"out"), "before one\r\ntwo\n\x1A after");
}

TEST_F(StandardOutput, IsNoFileNamedLikeThat) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  const bool printed = spooler->openPrinter(u"file:-", handle) && print(*spooler, handle, "x");
  std::filesystem::current_path(before);
  restore();
  EXPECT_TRUE(printed);
  EXPECT_FALSE(folder.has(u"-"));
}

TEST_F(StandardOutput, ThatIsClosedCannotStartAJob) {
  const int kept = dup(STDOUT_FILENO);
  close(STDOUT_FILENO);
  const bool opened = spooler->openPrinter(u"file:-", handle);
  const bool started = spooler->startDocument(handle, {});
  const std::int32_t error = spooler->lastError();
  dup2(kept, STDOUT_FILENO);
  close(kept);
  restore();
  EXPECT_TRUE(opened);
  EXPECT_FALSE(started);
  EXPECT_EQ(error, EBADF);
}

TEST(FileSpoolerPipes, ANamedPipeTakesEveryJobItself) {
  TemporaryFolder folder;
  const std::string pipe = (folder.path() / "pipe").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  const Ref<Spooler> spooler = makeFileSpooler();
  PrinterHandle handle = 0;
  ASSERT_TRUE(spooler->openPrinter(u"file:" + folder.pathOf(u"pipe"), handle));
  EXPECT_TRUE(print(*spooler, handle, "one "));
  EXPECT_TRUE(print(*spooler, handle, "two"));
  char bytes[16] = {};
  EXPECT_EQ(read(reader, bytes, sizeof bytes), 7);
  close(reader);
  EXPECT_STREQ(bytes, "one two");
  EXPECT_FALSE(folder.has(u"pipe.2"));
}

}  // namespace
}  // namespace tarvo::test
