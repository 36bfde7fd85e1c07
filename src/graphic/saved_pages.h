// Pages saved as a file, the same on every platform.
#pragma once

#include <string_view>

#include "frame/text.h"
#include "graphic/paged_text.h"
#include "platform/file/file_sink.h"

namespace tarvo {

// Whether the printer of this name is a file: "file:PATH".
bool isFilePrinter(TextView printerName);

// The file in which pages of that title are saved: PATH for a printer named "file:PATH" ("-" is the
// standard output), else "TITLE.pdf" in the current folder.  Characters that some system does not
// bear in a file's name are "_" there, a name that is a device on Windows has "_" before it, what
// is too long is cut, and an empty title is "Informe".
Text pathForPages(TextView title, TextView printerName);

// Writes the pages as a PDF into pathForPages(title, printerName).  A file that was there is
// replaced.
// Raises: 76 when the folder does not exist or the path is empty, 70 when the path is a folder or
// may not be written, 61 when the disk is full, 57 for any other failure; the description ends with
// the path.  What was written of the file by then stays.
void savePages(const PagedText& pages, TextView title, TextView printerName);

// Writes pages that could not be shown, for which nobody named a file: as savePages(pages, title,
// {}), but no file is replaced.  When there is a "TITLE.pdf" it is "TITLE.2.pdf", then
// "TITLE.3.pdf" and so on.  Raises: as savePages.
void saveUnshownPages(const PagedText& pages, TextView title);

// Writes the bytes into a file that was opened for them, and closes it in any case; kNoFile makes
// this call fail with errno as its reason.  `path` is for the description.  Raises: as savePages.
void writeAndClose(platform::FileDescriptor file, std::string_view bytes, TextView path);

}  // namespace tarvo
