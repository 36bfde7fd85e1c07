// The CUPS back-end of the spooler port: every document is a raw job in a CUPS queue.
//
// Printers' names are those of cups_queue.h, and the document's name is the job's title, as is said
// there.  An output file and a data type are not looked at: data are always sent as raw.
//
// A document is collected in a temporary file ($TMPDIR, else /tmp) and submitted when it ends, all
// at once: a pause of the operator cannot time a connection out, and memory stays the same whatever
// the size.  endDocument answers true when the job is in the queue, which does not say that it is
// printed.  A document that was not collected whole (a full disk) or not submitted whole is not
// printed at all, and endDocument answers false.  A document that has not ended is submitted by an
// openPrinter and given up by closePrinter; one without bytes is no job.
//
// openPrinter answers false for an unknown queue and when the server is away.
//
// lastError(): errno's code (below 1024) for the temporary file and for calls out of order, else
// the status of the print protocol: 1030 for an unknown queue, 1282 for a server that is away, or
// what the server answered.
#pragma once

#include "printer/spooler.h"

namespace tarvo {

Ref<Spooler> makeCupsSpooler();

}  // namespace tarvo
