// The spooler of a printed job: hands every call on, traces it, counts what was printed, and keeps
// an eye on what the library does not look at, whether the bytes arrive.
//
// Output that did not arrive whole is not left to be taken for whole: see abandon().
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "printer/spooler.h"
#include "tarvordp/print/trace.h"

namespace tarvordp {

class OutputSpooler final : public tarvo::Spooler {
 public:
  // `formFeed`: the bytes that end a page, for counting; empty: pages are not counted.
  // REQUIRES: `trace` outlives the calls.
  OutputSpooler(tarvo::Ref<tarvo::Spooler> spooler, Trace& trace, std::string formFeed);

  bool openPrinter(tarvo::TextView name, tarvo::PrinterHandle& handle) override;
  bool startDocument(tarvo::PrinterHandle handle,
                     const tarvo::DocumentDescription& document) override;
  bool startPage(tarvo::PrinterHandle handle) override;
  bool write(tarvo::PrinterHandle handle, std::string_view bytes) override;
  bool endPage(tarvo::PrinterHandle handle) override;
  bool endDocument(tarvo::PrinterHandle handle) override;
  bool closePrinter(tarvo::PrinterHandle handle) override;
  std::int32_t lastError() const noexcept override { return spooler_->lastError(); }

  // Why a job did not arrive whole; empty as long as all do.  After that one no other is begun.
  const std::optional<std::string>& failure() const noexcept { return failure_; }

  // Why the printer of the latest openPrinter could not be opened, and what to do then, a sentence;
  // empty when it could.
  const std::string& unopened() const noexcept { return unopened_; }

  // Gives up the job that is open, or that failed: an ordinary file is removed, a job of the
  // system's spooler is not submitted.  What became of it, a sentence; empty when there is none.
  std::string abandon();

  std::uint64_t jobs() const noexcept { return jobs_; }
  std::uint64_t pages() const noexcept { return pages_; }
  std::uint64_t bytes() const noexcept { return bytes_; }
  std::uint64_t calls() const noexcept { return calls_; }

 private:
  bool traced(const char* call, bool answer, const Trace::Json& event);
  bool watched(bool answer);
  void noteFile();

  tarvo::Ref<tarvo::Spooler> spooler_;
  Trace& trace_;
  const std::string formFeed_;
  std::string printerName_;
  std::string file_;                    // of the present job; empty: it is none
  std::map<std::string, int> filesOf_;  // jobs so far of each file printer
  std::optional<std::string> failure_;
  std::string unopened_;
  tarvo::PrinterHandle handle_ = 0;
  bool isOpen_ = false;  // a printer
  bool isJob_ = false;   // a job began and has not ended, or failed
  std::uint64_t jobs_ = 0;
  std::uint64_t pages_ = 0;
  std::uint64_t bytes_ = 0;
  std::uint64_t calls_ = 0;
};

}  // namespace tarvordp
