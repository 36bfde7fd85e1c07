// What the portable code asks of the operating system.  One file per platform answers
// (platform/win32, platform/posix); which one is the build's choice.
//
// The spooler is a port of its own: printer/spooler.h.
#pragma once

#include "frame/codepage.h"
#include "frame/date.h"
#include "frame/text.h"

namespace tarvo::platform {

// Fills the characters of the system's code page.  False when the system has no single-byte one;
// `characters` is then undefined.
bool systemCodePage(CodePage::Characters& characters);

// The folder that holds this library's file, parts separated by "\", none at the end.
Text libraryFolder();

// Now, local time, to the second.
Date localTime();

// Whether `path` names an existing file that is not a folder.  Never raises.
bool fileExists(TextView path);

}  // namespace tarvo::platform
