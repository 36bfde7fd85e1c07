// Files to write into, as the operating system has them: what the file back-end and the temporary
// files of other back-ends stand on.  One file per platform answers (platform/win32,
// platform/posix); buffering and order are not theirs, see output_file.h.
//
// Errors: a call that fails leaves its reason in errno.  Raises: memory alone.
#pragma once

#include <string_view>

#include "frame/text.h"

namespace tarvo::platform {

// A descriptor of the C runtime.
using FileDescriptor = int;
inline constexpr FileDescriptor kNoFile = -1;

// Whether a file of this path can be made or replaced: its folder exists, and the path names no
// folder itself.
bool canHoldFile(TextView path);

// Makes the file anew, or opens the device of that name.  Bytes pass unchanged.
FileDescriptor openForWriting(TextView path);

// The standard output, behind what the program has printed there.  Bytes pass unchanged.  The
// descriptor is one of its own: closing it leaves the standard output open.
FileDescriptor openStandardOutput() noexcept;

// A file on a disk; not a device, a pipe or a terminal.
bool isOrdinaryFile(FileDescriptor file) noexcept;

// False when not all bytes were taken.
bool writeFully(FileDescriptor file, std::string_view bytes) noexcept;

// The descriptor is gone whatever the answer is.
bool closeFile(FileDescriptor file) noexcept;

}  // namespace tarvo::platform
