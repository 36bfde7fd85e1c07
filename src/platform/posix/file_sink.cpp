#include "platform/file/file_sink.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

namespace tarvo::platform {
namespace {

// A name with character 0 would be cut there, and name another file.
bool isUsable(const std::string& name) noexcept {
  if (!name.empty() && name.find('\0') == std::string::npos) return true;
  errno = ENOENT;
  return false;
}

bool isFolder(const std::string& name) noexcept {
  struct stat status {};
  if (stat(name.c_str(), &status) != 0) return false;
  if (S_ISDIR(status.st_mode)) return true;
  errno = ENOTDIR;
  return false;
}

// With the separator at its end, which also makes the root a folder like any other.
std::string folderOf(const std::string& name) {
  const std::size_t separator = name.rfind('/');
  return separator == std::string::npos ? "./" : name.substr(0, separator + 1);
}

bool mayTryAgain(FileDescriptor file) noexcept {
  if (errno == EINTR) return true;
  if (errno != EAGAIN) return false;
  pollfd waited{file, POLLOUT, 0};
  return poll(&waited, 1, -1) > 0 || errno == EINTR;
}

}  // namespace

bool canHoldFile(TextView path) {
  const std::string name = toUtf8(path);
  if (!isUsable(name) || !isFolder(folderOf(name))) return false;
  if (!isFolder(name)) return true;
  errno = EISDIR;
  return false;
}

FileDescriptor openForWriting(TextView path) {
  const std::string name = toUtf8(path);
  if (!isUsable(name)) return kNoFile;
  return open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOCTTY, 0666);
}

FileDescriptor openStandardOutput() noexcept {
  std::fflush(stdout);
  return fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
}

bool isOrdinaryFile(FileDescriptor file) noexcept {
  struct stat status {};
  return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

bool writeFully(FileDescriptor file, std::string_view bytes) noexcept {
  while (!bytes.empty()) {
    const ssize_t taken = write(file, bytes.data(), bytes.size());
    if (taken >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(taken));
    } else if (!mayTryAgain(file)) {
      return false;
    }
  }
  return true;
}

bool closeFile(FileDescriptor file) noexcept { return close(file) == 0; }

}  // namespace tarvo::platform
