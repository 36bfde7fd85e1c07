// The file back-end of the spooler port: every job is a file.
//
// It prints without a printer, and shows what the port's seven calls mean: a printer is a path, a
// document is a file that is made anew at its start and complete at its end, pages leave no trace,
// and bytes go through as they are.
//
// The printer's name is "file:" and a path (in the program's own way of writing paths; relative
// ones count from the current folder).  "file:-" is the standard output.  The first job of one
// spooler object on a path is written to the path itself, the following ones to PATH.2, PATH.3 and
// so on, so no job covers up another; a file that was there before is replaced.  A device
// (/dev/null, NUL, a named pipe) takes every job itself.
//
// One printer is open at a time.  A job that is left without endDocument, by closePrinter, by a new
// openPrinter or with the spooler itself, is complete up to what was written.
//
// openPrinter answers false for an empty path, for one whose folder does not exist, and for a
// folder. Bytes are kept in a buffer of 64 KB, so a disk that fills up shows in a later write's
// answer or in endDocument's; after the first failure a job takes no more bytes.  lastError() is
// errno's code.
#pragma once

#include "printer/spooler.h"

namespace tarvo {

inline constexpr TextView kFilePrinterPrefix = u"file:";

Ref<Spooler> makeFileSpooler();

}  // namespace tarvo
