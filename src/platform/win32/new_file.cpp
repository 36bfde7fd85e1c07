#include "platform/file/new_file.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <string>

tarvo::platform::FileDescriptor tarvo::platform::openNewFile(TextView path) {
  return _wopen(std::wstring(path.begin(), path.end()).c_str(),
                _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
}
