// A file that covers up no other: made in one step with the look whether there is one of its name.
#pragma once

#include "platform/file/file_sink.h"

namespace tarvo::platform {

// Makes the file and opens it for writing; bytes pass unchanged.  kNoFile, with EEXIST in errno,
// when there is anything of that name; with another code when the file cannot be made.
FileDescriptor openNewFile(TextView path);

}  // namespace tarvo::platform
