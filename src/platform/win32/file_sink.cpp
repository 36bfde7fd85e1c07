#include "platform/file/file_sink.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string>

namespace tarvo::platform {
namespace {

constexpr int kStandardOutput = 1;

std::wstring wide(TextView path) { return std::wstring(path.begin(), path.end()); }

// A name with character 0 would be cut there, and name another file.
bool isUsable(TextView path) noexcept {
  if (!path.empty() && path.find(u'\0') == TextView::npos) return true;
  errno = ENOENT;
  return false;
}

bool isFolder(TextView path) {
  const DWORD attributes = GetFileAttributesW(wide(path).c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    return true;
  }
  errno = attributes == INVALID_FILE_ATTRIBUTES ? ENOENT : ENOTDIR;
  return false;
}

// With the separator at its end: "C:\" is the root, where "C:" would be the drive's current folder.
Text folderOf(TextView path) {
  const std::size_t separator = path.find_last_of(u"\\/:");
  return separator == TextView::npos ? Text(u".") : Text(path.substr(0, separator + 1));
}

}  // namespace

bool canHoldFile(TextView path) {
  if (!isUsable(path) || !isFolder(folderOf(path))) return false;
  if (!isFolder(path)) return true;
  errno = EISDIR;
  return false;
}

FileDescriptor openForWriting(TextView path) {
  if (!isUsable(path)) return kNoFile;
  return _wopen(wide(path).c_str(), _O_WRONLY | _O_CREAT | _O_TRUNC | _O_BINARY | _O_NOINHERIT,
                _S_IREAD | _S_IWRITE);
}

FileDescriptor openStandardOutput() noexcept {
  std::fflush(stdout);
  // The mode belongs to the descriptor, so the program's own one keeps its.
  const FileDescriptor file = _dup(kStandardOutput);
  if (file != kNoFile) _setmode(file, _O_BINARY);
  return file;
}

bool isOrdinaryFile(FileDescriptor file) noexcept {
  return GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(file))) == FILE_TYPE_DISK;
}

bool writeFully(FileDescriptor file, std::string_view bytes) noexcept {
  // A console takes no more than this in one call.
  constexpr std::size_t kMost = 32 * 1024;
  while (!bytes.empty()) {
    const auto count = static_cast<unsigned>(std::min(bytes.size(), kMost));
    const int taken = _write(file, bytes.data(), count);
    if (taken <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(taken));
  }
  return true;
}

bool closeFile(FileDescriptor file) noexcept { return _close(file) == 0; }

}  // namespace tarvo::platform
