// The order of a spooler's calls, for back-ends that keep it themselves.
//
// One printer is open at a time; every opening has a handle of its own, so that a handle that was
// closed, or left behind by a later opening, is known as such.  Each question both checks the call
// and takes the step; the answer false means "out of order" and changes nothing.
#pragma once

#include "printer/spooler.h"

namespace tarvo {

class CallOrder {
 public:
  PrinterHandle open() noexcept {
    stage_ = Stage::kPrinter;
    return ++handle_;
  }

  bool startDocument(PrinterHandle handle) noexcept {
    return step(handle, Stage::kPrinter, Stage::kDocument);
  }
  bool startPage(PrinterHandle handle) noexcept {
    return step(handle, Stage::kDocument, Stage::kPage);
  }
  bool write(PrinterHandle handle) const noexcept { return is(handle, Stage::kPage); }
  bool endPage(PrinterHandle handle) noexcept {
    return step(handle, Stage::kPage, Stage::kDocument);
  }
  // Ends the page with it: nothing more can be said about either.
  bool endDocument(PrinterHandle handle) noexcept {
    return step(handle, Stage::kDocument, Stage::kPrinter) ||
           step(handle, Stage::kPage, Stage::kPrinter);
  }
  bool close(PrinterHandle handle) noexcept {
    if (handle != handle_ || stage_ == Stage::kClosed) return false;
    close();
    return true;
  }
  void close() noexcept { stage_ = Stage::kClosed; }

 private:
  enum class Stage { kClosed, kPrinter, kDocument, kPage };

  bool is(PrinterHandle handle, Stage stage) const noexcept {
    return handle == handle_ && stage_ == stage;
  }
  bool step(PrinterHandle handle, Stage from, Stage to) noexcept {
    if (!is(handle, from)) return false;
    stage_ = to;
    return true;
  }

  Stage stage_ = Stage::kClosed;
  PrinterHandle handle_ = 0;
};

}  // namespace tarvo
