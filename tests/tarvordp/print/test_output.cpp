// Output that does not arrive whole.
#include <signal.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "equipment/without_privileges.h"
#include "print_testing.h"
#include "tarvordp/print/output_spooler.h"
#include "tarvordp/print/print_job.h"

namespace tarvordp {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class OutputTest : public test::PrintTest {
 protected:
  void writeLongReport() {
    std::string details;
    for (int i = 0; i < 3000; ++i) details += R"(,{"A": ")" + std::string(60, 'x') + "\"}";
    writeMasterDetail("{CUERPO=40}\n{A}\n{FINCUERPO}\n",
                      ", \"details\": [" + details.substr(1) + "]");
  }
};

TEST_F(OutputTest, AFullDiskIsToldAtTheEndOfAShortReport) {
  writeMasterDetail("x\n{CUERPO=1}\n{FINCUERPO}\n");
  const test::Outcome outcome = print({"--printer", "file:/dev/full"});
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_EQ(outcome.err,
            "tarvordp: file:/dev/full: the report did not arrive whole: No space left on device\n"
            "tarvordp: /dev/full is not whole\n");
}

TEST_F(OutputTest, AFullDiskEndsALongReportAtOnce) {
  writeLongReport();
  const test::Outcome outcome =
      print({"--printer", "file:/dev/full", "--trace", pathOf("t.jsonl")});
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_EQ(outcome.err,
            "tarvordp: file:/dev/full: the report did not arrive whole: No space left on device\n"
            "tarvordp: /dev/full is not whole\n");
  const std::string trace = contentOf("t.jsonl");
  EXPECT_THAT(trace, HasSubstr(R"("answer":false,"code":28})"));
  EXPECT_LT(std::ranges::count(trace, '\n'), 9'000) << "three records in four were left out";
}

// Takes so many bytes, then none any more; or gets a signal then, and takes all others.
class SmallDisk final : public tarvo::Spooler {
 public:
  explicit SmallDisk(std::size_t room, int signalThen = 0) : room_(room), signalThen_(signalThen) {}

  bool openPrinter(tarvo::TextView name, tarvo::PrinterHandle& handle) override {
    return files_->openPrinter(name, handle);
  }
  bool startDocument(tarvo::PrinterHandle handle,
                     const tarvo::DocumentDescription& document) override {
    return files_->startDocument(handle, document);
  }
  bool startPage(tarvo::PrinterHandle handle) override { return files_->startPage(handle); }
  bool write(tarvo::PrinterHandle handle, std::string_view bytes) override {
    const std::size_t taken = std::min(room_, bytes.size());
    room_ -= taken;
    const bool isNews = !isFull_ && taken < bytes.size();
    if (isNews && signalThen_ != 0) {
      room_ = kPlenty;
      raise(std::exchange(signalThen_, 0));
      return files_->write(handle, bytes);
    }
    isFull_ = isFull_ || isNews;
    return files_->write(handle, bytes.substr(0, taken)) && !isFull_;
  }
  bool endPage(tarvo::PrinterHandle handle) override { return files_->endPage(handle); }
  bool endDocument(tarvo::PrinterHandle handle) override {
    return files_->endDocument(handle) && !isFull_;
  }
  bool closePrinter(tarvo::PrinterHandle handle) override { return files_->closePrinter(handle); }
  std::int32_t lastError() const noexcept override { return isFull_ ? 28 : files_->lastError(); }

 private:
  static constexpr std::size_t kPlenty = 1'000'000'000;

  tarvo::Ref<tarvo::Spooler> files_ = tarvo::makeSpooler();
  std::size_t room_;
  int signalThen_;
  bool isFull_ = false;
};

class SmallDiskTest : public OutputTest {
 protected:
  test::Outcome printOn(std::size_t room, int signalThen = 0) {
    std::ostringstream out;
    std::ostringstream err;
    Console console{out, err};
    PrintOptions options;
    options.job = pathOf("j.json");
    const int status = printJob(options, console, {tarvo::make<SmallDisk>(room, signalThen)});
    return {status, out.str(), withoutFolder(err.str())};
  }
};

TEST_F(SmallDiskTest, AFileThatIsNotWholeIsRemoved) {
  writeLongReport();
  for (const std::size_t room : {0U, 1U, 1000U, 100'000U}) {
    const test::Outcome outcome = printOn(room);
    EXPECT_EQ(outcome.status, kRunTimeError) << room;
    EXPECT_EQ(outcome.err,
              "tarvordp: file:out.prn: the report did not arrive whole: No space left on device\n"
              "tarvordp: out.prn was not whole and was removed\n")
        << room;
    EXPECT_FALSE(has("out.prn")) << room;
  }
  EXPECT_EQ(printOn(1'000'000).status, kDone);
  EXPECT_TRUE(has("out.prn"));
}

TEST_F(SmallDiskTest, AnInterruptedReportLeavesNoHalfFile) {
  writeLongReport();
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const test::Outcome outcome = printOn(5'000, signal);
    EXPECT_EQ(outcome.status, kRunTimeError) << signal;
    EXPECT_EQ(outcome.err,
              "tarvordp: interrupted\ntarvordp: out.prn was not whole and was removed\n")
        << signal;
    EXPECT_FALSE(has("out.prn")) << signal;
  }
  EXPECT_EQ(printOn(1'000'000).status, kDone) << "it is forgotten afterwards";
}

TEST_F(SmallDiskTest, AfterASheetThatFailedNoOtherIsBegun) {
  writeForm();
  const test::Outcome outcome = printOn(3);
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_THAT(outcome.err, HasSubstr("the report did not arrive whole: No space left on device"));
  EXPECT_FALSE(has("out.prn"));
  EXPECT_FALSE(has("out.prn.2"));
}

TEST_F(SmallDiskTest, ASheetThatArrivedWholeStays) {
  writeForm();
  const test::Outcome outcome = printOn(12);
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_THAT(outcome.err, HasSubstr("tarvordp: out.prn.2 was not whole and was removed\n"));
  EXPECT_EQ(printed(), "uno a<0D><0A>\n<0C>");
  EXPECT_FALSE(has("out.prn.2"));
}

TEST_F(OutputTest, AFileThatMayNotBeWrittenIsTold) {
  writeMasterDetail("x\n{CUERPO=1}\n{FINCUERPO}\n");
  std::filesystem::create_directory(pathOf("d"));
  std::filesystem::create_symlink(pathOf("d/none/x"), pathOf("link"));
  const test::Outcome outcome = print({"--printer", "file:" + pathOf("link")});
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_THAT(outcome.err,
              StartsWith("tarvordp: file:link: the report did not arrive whole: No such file or "
                         "directory\n"));
}

TEST_F(OutputTest, WhatWasWrittenBeforeARunTimeErrorIsNotLeft) {
  write("out.prn", "an older report");
  writeForm(R"(, "sheets": "first")");
  write("UNO.ID", "uno\n{A[x]}\n");
  const test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_THAT(outcome.err, StartsWith("tarvordp: run-time error 13: Type mismatch"));
  EXPECT_THAT(outcome.err, HasSubstr("\ntarvordp: out.prn was not whole and was removed\n"));
  EXPECT_FALSE(has("out.prn"));
}

TEST_F(OutputTest, AFileBehindALinkIsOnlySaidToBeIncomplete) {
  writeForm(R"(, "sheets": "first")");
  write("UNO.ID", "uno\n{A[x]}\n");
  write("behind", "");
  std::filesystem::create_symlink(pathOf("behind"), pathOf("link"));
  const test::Outcome outcome = print({"--printer", "file:" + pathOf("link")});
  EXPECT_THAT(outcome.err, HasSubstr("\ntarvordp: link is not whole\n"));
  EXPECT_TRUE(has("link"));
}

TEST_F(OutputTest, SomebodysPdfThatCouldNotBeOpenedStays) {
  namespace fs = std::filesystem;
  writeForm(R"(, "output": "draft")");
  write("keep.pdf", "somebody's");
  fs::permissions(folder_.path(), fs::perms::all);
  fs::permissions(pathOf("keep.pdf"), fs::perms::owner_read);
  const tarvo::test::WithoutPrivileges nobody;
  if (!nobody.areThey()) GTEST_SKIP() << "needs another user than the administrator";
  const test::Outcome outcome = print({"--save", pathOf("keep.pdf")});
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_THAT(outcome.err, StartsWith("tarvordp: run-time error 70: Permission denied"));
  EXPECT_THAT(outcome.err, Not(HasSubstr("removed")));
  EXPECT_TRUE(has("keep.pdf"));
}

TEST_F(OutputTest, ControlCharactersOfAJobDoNotReachTheTerminal) {
  write("j.json", R"({"report": "master-detail", "title": "Factura", "directory": ".",
      "template": "NO\u001b[31m\u009b\u0007PE", "profile": {"CanPrintInTextMode": true,
      "MaxLinPage": 60, "PrinterName": "file:)" +
                      pathOf("out.prn") + "\"}}");
  const test::Outcome outcome = print({"--trace", pathOf("t.jsonl")});
  EXPECT_THAT(outcome.err, HasSubstr("NO\\x1B[31m\\x9B\\x07PE"));
  EXPECT_THAT(contentOf("t.jsonl"), HasSubstr(R"(NO\u001b[31m)"))
      << "the trace has the text itself";
}

}  // namespace
}  // namespace tarvordp
