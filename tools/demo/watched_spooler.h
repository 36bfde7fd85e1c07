// A spooler that hands everything on to another one and remembers how it went.  The library looks
// at no answer of its spooler; a program that wants to know stands in between.
#pragma once

#include <cstdint>
#include <string>
#include <system_error>
#include <utility>

#include "printer/spooler.h"

namespace tarvo {

class WatchedSpooler final : public Spooler {
 public:
  explicit WatchedSpooler(Ref<Spooler> next) : next_(std::move(next)) {}

  int jobs = 0;
  std::uintmax_t bytes = 0;
  std::string failure;  // the first one

  bool openPrinter(TextView name, PrinterHandle& handle) override {
    return watched("open", next_->openPrinter(name, handle));
  }
  bool startDocument(PrinterHandle handle, const DocumentDescription& document) override {
    return watched("start", next_->startDocument(handle, document));
  }
  bool startPage(PrinterHandle handle) override { return next_->startPage(handle); }
  bool write(PrinterHandle handle, std::string_view data) override {
    bytes += data.size();
    return watched("write", next_->write(handle, data));
  }
  bool endPage(PrinterHandle handle) override { return next_->endPage(handle); }
  bool endDocument(PrinterHandle handle) override {
    ++jobs;
    return watched("finish", next_->endDocument(handle));
  }
  bool closePrinter(PrinterHandle handle) override { return next_->closePrinter(handle); }
  std::int32_t lastError() const noexcept override { return next_->lastError(); }

 private:
  bool watched(const char* step, bool succeeded) {
    if (!succeeded && failure.empty()) {
      failure = std::string("cannot ") + step +
                " the file: " + std::generic_category().message(lastError());
    }
    return succeeded;
  }

  Ref<Spooler> next_;
};

}  // namespace tarvo
