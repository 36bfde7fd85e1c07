#include "platform/file/new_file.h"

#include <fcntl.h>

tarvo::platform::FileDescriptor tarvo::platform::openNewFile(TextView path) {
  return open(toUtf8(path).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
}
