// Spoolers for tests: one that keeps what it is told, and one that fails at its nth call.
//
//   auto spooler = make<RecordingSpooler>(log);
//   auto channel = make<clsUtilImp>(spooler);
//   ...
//   EXPECT_EQ(log.text(), "openPrinter \"Epson\"\nstartDocument 1 \"Ventas\"\n...");
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "equipment/call_log.h"
#include "printer/spooler.h"

namespace tarvo::test {

// Knows every printer but those that a test takes away, gives each opening a handle of its own (1,
// 2 ...), and answers false for handle 0 alone.  When it is given another spooler it hands its
// calls on, and the answers, the handles and the codes are that one's.
//
// In the log: the operation, the handle, the arguments ("write 1 <1B>E Total<0D><0A>"); output file
// and data type only when they are not empty.
class RecordingSpooler final : public Spooler {
 public:
  explicit RecordingSpooler(CallLog& log, Ref<Spooler> next = nullptr)
      : log_(log), next_(std::move(next)) {}

  // The error takes the call's place: nothing is kept or handed on.  A spooler raises 7 alone.
  Fault fault;

  struct Job {
    Text documentName;
    std::string bytes;
    bool isEnded = false;
  };

  // What was written between startDocument and endDocument, as jobs, and all together.
  const std::vector<Job>& jobs() const { return jobs_; }
  std::string bytes() const;

  // openPrinter answers false for this name from now on.
  void forgetPrinter(TextView name) { unknown_.emplace(name); }

  // From now on each call leaves its own number (first, first + 1 ...) as the system's code.
  void numberErrorsFrom(std::int32_t first) { nextError_ = first; }

  bool openPrinter(TextView name, PrinterHandle& handle) override;
  bool startDocument(PrinterHandle handle, const DocumentDescription& document) override;
  bool startPage(PrinterHandle handle) override;
  bool write(PrinterHandle handle, std::string_view bytes) override;
  bool endPage(PrinterHandle handle) override;
  bool endDocument(PrinterHandle handle) override;
  bool closePrinter(PrinterHandle handle) override;
  std::int32_t lastError() const noexcept override { return lastError_; }

 private:
  static constexpr std::int32_t kPlain = -1;

  void record(std::string line);
  void record(const char* operation, PrinterHandle handle, std::string_view arguments = {});
  bool answer(bool ownAnswer);
  bool hasOpenJob() const { return !jobs_.empty() && !jobs_.back().isEnded; }

  CallLog& log_;
  Ref<Spooler> next_;
  std::set<Text, std::less<>> unknown_;
  std::vector<Job> jobs_;
  PrinterHandle lastHandle_ = 0;
  std::int32_t nextError_ = kPlain;
  std::int32_t lastError_ = 0;
};

// Answers false at its nth call, without handing it on; every other call goes to the spooler behind
// it, or is answered with true when there is none.
class FailingSpooler final : public Spooler {
 public:
  static constexpr std::int32_t kError = 4242;  // what lastError() then says

  explicit FailingSpooler(int nth, Ref<Spooler> next = nullptr)
      : callsLeft_(nth), next_(std::move(next)) {}

  bool hasFailed() const { return callsLeft_ <= 0; }

  bool openPrinter(TextView name, PrinterHandle& handle) override;
  bool startDocument(PrinterHandle handle, const DocumentDescription& document) override;
  bool startPage(PrinterHandle handle) override;
  bool write(PrinterHandle handle, std::string_view bytes) override;
  bool endPage(PrinterHandle handle) override;
  bool endDocument(PrinterHandle handle) override;
  bool closePrinter(PrinterHandle handle) override;
  std::int32_t lastError() const noexcept override { return lastError_; }

 private:
  template <class Call>
  bool unlessItFails(Call call) {
    if (--callsLeft_ == 0) {
      lastError_ = kError;
      return false;
    }
    const bool answer = !next_ || call(*next_);
    lastError_ = next_ ? next_->lastError() : 0;
    return answer;
  }

  int callsLeft_;
  Ref<Spooler> next_;
  std::int32_t lastError_ = 0;
};

}  // namespace tarvo::test
