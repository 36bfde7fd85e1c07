// The file back-end: every job is a file.
#include "platform/file/file_spooler.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <optional>

#include "equipment/temporary_folder.h"

namespace tarvo::test {
namespace {

class FileSpooler : public ::testing::Test {
 protected:
  // Opens a printer, expecting it to be one.
  PrinterHandle open(TextView path) {
    PrinterHandle handle = 0;
    EXPECT_TRUE(spooler->openPrinter(u"file:" + Text(path), handle));
    EXPECT_NE(handle, 0u);
    return handle;
  }
  void start(PrinterHandle handle) {
    EXPECT_TRUE(spooler->startDocument(handle, {u"Ventas", {}, {}}));
    EXPECT_TRUE(spooler->startPage(handle));
  }
  void end(PrinterHandle handle) {
    EXPECT_TRUE(spooler->endPage(handle));
    EXPECT_TRUE(spooler->endDocument(handle));
  }
  void print(PrinterHandle handle, std::string_view bytes) {
    start(handle);
    EXPECT_TRUE(spooler->write(handle, bytes));
    end(handle);
  }
  // The answer and the code of an opening that is expected to fail.
  std::optional<std::int32_t> errorOfOpening(TextView name) {
    PrinterHandle handle = 99;
    if (spooler->openPrinter(name, handle)) return std::nullopt;
    EXPECT_EQ(handle, 0u);
    return spooler->lastError();
  }

  TemporaryFolder folder;
  Ref<Spooler> spooler = makeFileSpooler();
};

TEST_F(FileSpooler, WritesEveryByteAsItIs) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const PrinterHandle handle = open(folder.pathOf(u"job"));
  print(handle, bytes);
  EXPECT_EQ(folder.contentOf(u"job"), bytes);
}

TEST_F(FileSpooler, NumbersTheJobsOfOnePath) {
  const PrinterHandle handle = open(folder.pathOf(u"job.prn"));
  for (const char* content : {"one", "two", "three"}) print(handle, content);
  EXPECT_TRUE(spooler->closePrinter(handle));
  EXPECT_EQ(folder.contentOf(u"job.prn"), "one");
  EXPECT_EQ(folder.contentOf(u"job.prn.2"), "two");
  EXPECT_EQ(folder.contentOf(u"job.prn.3"), "three");
  EXPECT_FALSE(folder.has(u"job.prn.4"));
}

TEST_F(FileSpooler, GoesOnNumberingWhenThePrinterIsOpenedAgain) {
  const Text path = folder.pathOf(u"a");
  print(open(path), "one");
  print(open(folder.pathOf(u"b")), "other");
  print(open(path), "two");
  EXPECT_EQ(folder.contentOf(u"a"), "one");
  EXPECT_EQ(folder.contentOf(u"a.2"), "two");
  EXPECT_EQ(folder.contentOf(u"b"), "other");
  EXPECT_FALSE(folder.has(u"b.2"));
}

TEST_F(FileSpooler, AnotherSpoolerCountsFromOneAgainAndReplaces) {
  folder.write(u"job", "from yesterday, and longer");
  print(open(folder.pathOf(u"job")), "today");
  EXPECT_EQ(folder.contentOf(u"job"), "today");
  spooler = makeFileSpooler();
  print(open(folder.pathOf(u"job")), "later");
  EXPECT_EQ(folder.contentOf(u"job"), "later");
  EXPECT_FALSE(folder.has(u"job.2"));
}

TEST_F(FileSpooler, AJobThatCannotStartTakesNoNumber) {
  const PrinterHandle handle = open(folder.pathOf(u"job"));
  std::filesystem::create_directory(folder.path() / "job");
  EXPECT_FALSE(spooler->startDocument(handle, {}));
  EXPECT_NE(spooler->lastError(), 0);
  EXPECT_FALSE(spooler->startPage(handle)) << "there is no document";
  std::filesystem::remove(folder.path() / "job");
  print(handle, "one");
  EXPECT_EQ(folder.contentOf(u"job"), "one");
}

TEST_F(FileSpooler, TheFileIsThereFromTheStartAndWholeAtTheEnd) {
  const PrinterHandle handle = open(folder.pathOf(u"job"));
  EXPECT_FALSE(folder.has(u"job"));
  start(handle);
  EXPECT_TRUE(folder.has(u"job"));
  EXPECT_TRUE(spooler->write(handle, "abc"));
  end(handle);
  EXPECT_EQ(folder.contentOf(u"job"), "abc");
}

TEST_F(FileSpooler, AnEmptyJobIsAnEmptyFile) {
  const PrinterHandle handle = open(folder.pathOf(u"job"));
  start(handle);
  end(handle);
  EXPECT_EQ(folder.contentOf(u"job"), "");
}

TEST_F(FileSpooler, AnEmptyWriteIsOne) {
  const PrinterHandle handle = open(folder.pathOf(u"job"));
  start(handle);
  EXPECT_TRUE(spooler->write(handle, {}));
  end(handle);
  EXPECT_EQ(folder.contentOf(u"job"), "");
}

// A pattern in which every misplaced or repeated piece shows.
std::string pattern(std::size_t length) {
  std::string bytes(length, '\0');
  std::uint32_t state = 1;
  for (char& byte : bytes) {
    state = state * 1664525u + 1013904223u;
    byte = static_cast<char>(state >> 24);
  }
  return bytes;
}

TEST_F(FileSpooler, WritesTheSameWhateverTheSizeOfTheWrites) {
  constexpr std::size_t kBuffer = 64 * 1024;
  const std::string bytes = pattern(5 * kBuffer + 17);
  for (const std::size_t size : {std::size_t{1}, std::size_t{82}, std::size_t{4096}, kBuffer - 1,
                                 kBuffer, kBuffer + 1, 3 * kBuffer, bytes.size()}) {
    spooler = makeFileSpooler();
    const PrinterHandle handle = open(folder.pathOf(u"job"));
    start(handle);
    for (std::size_t at = 0; at < bytes.size(); at += size) {
      ASSERT_TRUE(spooler->write(handle, std::string_view(bytes).substr(at, size)));
    }
    end(handle);
    EXPECT_TRUE(folder.contentOf(u"job") == bytes) << "writes of " << size;
  }
}

TEST_F(FileSpooler, SmallWritesStayInTheBuffer) {
  const PrinterHandle handle = open(folder.pathOf(u"job"));
  start(handle);
  EXPECT_TRUE(spooler->write(handle, pattern(60'000)));
  EXPECT_EQ(folder.contentOf(u"job").size(), 0u);
  EXPECT_TRUE(spooler->write(handle, pattern(60'000)));
  EXPECT_EQ(folder.contentOf(u"job").size(), 65'536u);
}

TEST_F(FileSpooler, ClosingAnAbandonedJobCompletesIt) {
  const PrinterHandle handle = open(folder.pathOf(u"job"));
  start(handle);
  EXPECT_TRUE(spooler->write(handle, "written"));
  EXPECT_TRUE(spooler->closePrinter(handle));
  EXPECT_EQ(folder.contentOf(u"job"), "written");
}

TEST_F(FileSpooler, OpeningAgainCompletesTheOpenJob) {
  const PrinterHandle old = open(folder.pathOf(u"job"));
  start(old);
  EXPECT_TRUE(spooler->write(old, "written"));
  const PrinterHandle handle = open(folder.pathOf(u"job"));
  EXPECT_EQ(folder.contentOf(u"job"), "written");
  EXPECT_NE(handle, old);
  EXPECT_FALSE(spooler->write(old, "too late"));
  print(handle, "next");
  EXPECT_EQ(folder.contentOf(u"job"), "written");
  EXPECT_EQ(folder.contentOf(u"job.2"), "next");
}

TEST_F(FileSpooler, AFailingOpeningCompletesTheOpenJobToo) {
  const PrinterHandle old = open(folder.pathOf(u"job"));
  start(old);
  EXPECT_TRUE(spooler->write(old, "written"));
  EXPECT_TRUE(errorOfOpening(u"file:").has_value());
  EXPECT_EQ(folder.contentOf(u"job"), "written");
}

TEST_F(FileSpooler, GoingAwayCompletesTheOpenJob) {
  const PrinterHandle handle = open(folder.pathOf(u"job"));
  start(handle);
  EXPECT_TRUE(spooler->write(handle, "written"));
  spooler = nullptr;
  EXPECT_EQ(folder.contentOf(u"job"), "written");
}

TEST_F(FileSpooler, IsNoPrinterWithoutAPlaceForItsFiles) {
  EXPECT_EQ(errorOfOpening(u"file:"), ENOENT);
  EXPECT_EQ(errorOfOpening(u"file:" + folder.pathOf(u"missing/job")), ENOENT);
  EXPECT_EQ(errorOfOpening(u"file:" + folder.path().u16string()), EISDIR);
  EXPECT_EQ(errorOfOpening(u"file:" + folder.pathOf(u"")), EISDIR);
  EXPECT_EQ(errorOfOpening(u"file:" + folder.pathOf(u"job") + Text(u"\0x", 2)), ENOENT);
  EXPECT_EQ(errorOfOpening(u"LX-300"), ENOENT);
  EXPECT_EQ(errorOfOpening(u""), ENOENT);
  folder.write(u"file", "");
  EXPECT_TRUE(errorOfOpening(u"file:" + folder.pathOf(u"file/job")).has_value());
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1)
      << "opening makes nothing";
}

TEST_F(FileSpooler, ARelativePathCountsFromTheCurrentFolder) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  print(open(u"job"), "here");
  std::filesystem::current_path(before);
  EXPECT_EQ(folder.contentOf(u"job"), "here");
}

TEST_F(FileSpooler, NamesMayHoldAnyLetters) {
  print(open(folder.pathOf(u"A\u00F1o \u4E2D\u6587.prn")), "x");
  EXPECT_EQ(folder.contentOf(u"A\u00F1o \u4E2D\u6587.prn"), "x");
}

TEST_F(FileSpooler, TheDocumentIsNotRedirected) {
  const PrinterHandle handle = open(folder.pathOf(u"job"));
  EXPECT_TRUE(spooler->startDocument(handle, {u"Ventas", folder.pathOf(u"elsewhere"), u"TEXT"}));
  EXPECT_TRUE(spooler->startPage(handle));
  EXPECT_TRUE(spooler->write(handle, "x"));
  end(handle);
  EXPECT_EQ(folder.contentOf(u"job"), "x");
  EXPECT_FALSE(folder.has(u"elsewhere"));
}

TEST_F(FileSpooler, LastErrorIsZeroAfterASuccess) {
  EXPECT_TRUE(errorOfOpening(u"file:").has_value());
  open(folder.pathOf(u"job"));
  EXPECT_EQ(spooler->lastError(), 0);
}

// A back-end's calls by their first letters, so that an order is a word.
class CallWord : public FileSpooler {
 protected:
  // Makes the calls of the word; answers which succeeded, as the same word with "-" for those that
  // did not.
  std::string make(std::string_view word) {
    std::string answers;
    for (const char call : word) answers += makeOne(call) ? call : '-';
    return answers;
  }

 private:
  bool makeOne(char call) {
    switch (call) {
      case 'O':
        return spooler->openPrinter(u"file:" + folder.pathOf(u"job"), handle_);
      case 'D':
        return spooler->startDocument(handle_, {});
      case 'P':
        return spooler->startPage(handle_);
      case 'w':
        return spooler->write(handle_, "x");
      case 'p':
        return spooler->endPage(handle_);
      case 'd':
        return spooler->endDocument(handle_);
      case 'c':
        return spooler->closePrinter(handle_);
      default:
        ADD_FAILURE() << call;
        return false;
    }
  }

  PrinterHandle handle_ = 0;
};

TEST_F(CallWord, OutOfOrderIsFalseAndDoesNothing) {
  struct Row {
    const char* calls;
    const char* answers;
  };
  constexpr Row kRows[] = {
      {"ODPwwpdc", "ODPwwpdc"},
      {"ODPwpPwpdc", "ODPwpPwpdc"},      // two pages
      {"ODPwpdDPwpdc", "ODPwpdDPwpdc"},  // two documents
      {"DPwpdc", "------"},              // nothing is open
      {"OPwpdc", "O----c"},              // no document
      {"ODwpdc", "OD--dc"},              // no page
      {"ODDPwpdc", "OD-Pwpdc"},          // a second document at once
      {"ODPPwpdc", "ODP-wpdc"},          // a second page at once
      {"ODPwdwpc", "ODPwd--c"},          // the end of the document ends its page
      {"ODPwpdwc", "ODPwpd-c"},          // after the end
      {"ODPwpdcDPwpdc", "ODPwpdc------"},
      {"OOc", "OOc"},
      {"Occ", "Oc-"},
  };
  for (const Row& row : kRows) {
    spooler = makeFileSpooler();
    EXPECT_EQ(make(row.calls), row.answers);
  }
}

TEST_F(CallWord, OutOfOrderLeavesACode) {
  EXPECT_EQ(make("OP"), "O-");
  EXPECT_EQ(spooler->lastError(), EBADF);
  EXPECT_EQ(make("DPw"), "DPw");
  EXPECT_EQ(spooler->lastError(), 0);
}

TEST_F(CallWord, AHandleThatIsNotTheOpenOneIsNone) {
  make("ODP");
  for (const PrinterHandle other : {PrinterHandle{0}, PrinterHandle{2}, PrinterHandle{77}}) {
    EXPECT_FALSE(spooler->write(other, "x"));
    EXPECT_FALSE(spooler->endPage(other));
    EXPECT_FALSE(spooler->endDocument(other));
    EXPECT_FALSE(spooler->closePrinter(other));
  }
  EXPECT_EQ(make("wpdc"), "wpdc");
}

}  // namespace
}  // namespace tarvo::test
