#include "reports/text_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <vector>

#include "frame/codepage.h"
#include "frame/run_time_error.h"

namespace tarvo::platform {
namespace {

constexpr std::size_t kBlockSize = 16384;

[[noreturn]] void fail(TextView path) {
  const int reason = errno;
  setLastSystemError(reason);
  switch (reason) {
    case EACCES:
    case EPERM:
    case EISDIR:
      throw RunTimeError(kPermissionDenied, path);
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
      throw RunTimeError(kFileNotFound, path);
    default:
      throw RunTimeError(kDeviceError, path);
  }
}

// Bytes of the file wait in a block: as long as there are any, the file is not at its end.
class FileStream final : public TextStream {
 public:
  ~FileStream() override { close(); }

  bool isOpen() const noexcept { return file_ >= 0; }

  void open(TextView path) {
    if (path != path_ || name_.empty()) {
      name_.clear();
      path_ = path;
      toUtf8(path, name_);
    }
    if (name_.find('\0') != std::string::npos) throw RunTimeError(kFileNotFound, path);
    file_ = ::open(name_.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (file_ < 0) fail(path);
    refill();
  }

  bool AtEndOfStream() override { return begin_ == end_; }

  void ReadLine(Text& line) override {
    if (AtEndOfStream()) throw RunTimeError(kInputPastEndOfFile, path_);
    if (const char* lineEnd = findLineEnd(); lineEnd != nullptr) {
      decode({block_.data() + begin_, lineEnd}, line);
      goBehind(lineEnd);
    } else {
      readLongLine(line);
    }
    if (begin_ == end_) refill();
  }

  void Close() override { close(); }

 private:
  void close() noexcept {
    if (isOpen()) ::close(file_);
    file_ = -1;
    begin_ = end_ = 0;
  }

  // The line end in the block, or null.
  const char* findLineEnd() const noexcept {
    return static_cast<const char*>(std::memchr(block_.data() + begin_, '\n', end_ - begin_));
  }

  void goBehind(const char* lineEnd) noexcept {
    begin_ = static_cast<std::size_t>(lineEnd - block_.data()) + 1;
  }

  // A line that goes on behind the block, or is the file's last and has no end.
  void readLongLine(Text& line) {
    std::string& bytes = longLine_;
    bytes.clear();
    for (;;) {
      const char* lineEnd = findLineEnd();
      const char* partBegin = block_.data() + begin_;
      const char* partEnd = lineEnd != nullptr ? lineEnd : block_.data() + end_;
      bytes.append(partBegin, partEnd);
      if (lineEnd != nullptr) {
        goBehind(lineEnd);
        return decode(bytes, line);
      }
      refill();
      if (begin_ == end_) return CodePage::ofSystem().decode(bytes, line);
    }
  }

  // A line that has an end: a CR before it belongs to it.
  static void decode(std::string_view bytes, Text& line) {
    if (bytes.ends_with('\r')) bytes.remove_suffix(1);
    CodePage::ofSystem().decode(bytes, line);
  }

  void refill() {
    ssize_t taken = -1;
    do {
      taken = ::read(file_, block_.data(), block_.size());
    } while (taken < 0 && errno == EINTR);
    begin_ = end_ = 0;
    if (taken < 0) {
      const int reason = errno;
      close();
      errno = reason;
      fail(path_);
    }
    end_ = static_cast<std::size_t>(taken);
  }

  int file_ = -1;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  Text path_;
  std::string name_;  // of the path, for the system
  std::string longLine_;
  std::array<char, kBlockSize> block_;
};

// Closed streams serve again: a report opens its template for every section of every page.
class PosixTextFiles final : public TextFiles {
 public:
  Ref<TextStream> OpenTextFile(TextView path) override {
    const auto closed = std::find_if(streams_.begin(), streams_.end(),
                                     [](const auto& stream) { return !stream->isOpen(); });
    const Ref<FileStream> stream = closed != streams_.end() ? *closed : make<FileStream>();
    stream->open(path);
    if (closed == streams_.end() && streams_.size() < kMostKept) streams_.push_back(stream);
    return stream;
  }

 private:
  static constexpr std::size_t kMostKept = 8;

  std::vector<Ref<FileStream>> streams_;
};

}  // namespace

Ref<TextFiles> makeTextFiles() { return make<PosixTextFiles>(); }

}  // namespace tarvo::platform
