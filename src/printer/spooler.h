// The spooler port: the seven calls by which raw bytes reach a named printer as jobs.
//
// A back-end answers for the printers of one kind; makeSpooler() chooses it by the printer's name.
// Names are texts, each back-end turns them into what its system wants; data are bytes and leave
// exactly as they are.
//
//   name                 back-end
//   file:PATH            platform/file/file_spooler.h: one file per job, PATH, PATH.2, PATH.3 …
//   any other            the platform's spooler: Windows print spooler, elsewhere CUPS
//
// Calling order for one document: openPrinter, startDocument, startPage, write…, endPage,
// endDocument, closePrinter; startDocument to endDocument may repeat on one handle.  Calls out of
// order, or on a handle that is 0 or closed, answer false and do nothing.  The printer channel
// looks at no answer but openPrinter's.
//
// Threads: one.  Raises: 7 alone (memory); every other failure is the answer false and the system's
// code in lastError().
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "frame/object.h"
#include "frame/text.h"

namespace tarvo {

// What a job is, as the spooler is told.  An empty output file or data type is handed over as
// absent.
struct DocumentDescription {
  Text documentName;  // the name in the print queue
  Text outputFile;    // empty: no redirection
  Text dataType;      // empty: the printer's default
};

// 0 is no printer.
using PrinterHandle = std::uintptr_t;

class Spooler : public Object {
 public:
  // False when there is no such printer; `handle` is then 0, so that nothing can be written to a
  // job that was open before.
  virtual bool openPrinter(TextView name, PrinterHandle& handle) = 0;
  virtual bool startDocument(PrinterHandle handle, const DocumentDescription& document) = 0;
  virtual bool startPage(PrinterHandle handle) = 0;
  // One write, an empty one too.  False when not all bytes were taken.
  virtual bool write(PrinterHandle handle, std::string_view bytes) = 0;
  virtual bool endPage(PrinterHandle handle) = 0;
  virtual bool endDocument(PrinterHandle handle) = 0;
  virtual bool closePrinter(PrinterHandle handle) = 0;

  // The system's code of the latest call on this object, 0 after one that succeeded.
  virtual std::int32_t lastError() const noexcept = 0;
};

// A spooler that chooses the back-end by the printer's name at each openPrinter, and keeps to it
// until the next.
Ref<Spooler> makeSpooler();

namespace platform {
// The spooler of the operating system.
Ref<Spooler> makeSystemSpooler();
}  // namespace platform

}  // namespace tarvo
