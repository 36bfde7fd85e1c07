// A file that is being written, with a buffer of its own: small writes cost a copy, and the system
// is called when the buffer is full and at the end.
//
// A failure stays: after the first one nothing more is written, so a file has no holes, and every
// later answer is false with the same reason.
//
// Threads: one.  Errors: the answer false, and errno's code in error().
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/file/file_sink.h"

namespace tarvo {

class OutputFile {
 public:
  OutputFile() = default;
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile();

  // Takes the descriptor over and starts an empty file on it; kNoFile makes this call the one that
  // fails, with errno as its reason.  A file that is still open is finished before.
  // Raises: memory alone; `file` is then closed.
  bool start(platform::FileDescriptor file);

  bool isOpen() const noexcept { return file_ != platform::kNoFile; }

  // REQUIRES: isOpen().
  bool write(std::string_view bytes) noexcept;

  // Hands everything to the system.  The file stays open.  REQUIRES: isOpen().
  bool flush() noexcept;

  // Flushes and closes.  True when every byte since start() has arrived.  REQUIRES: isOpen().
  bool finish() noexcept;

  // Closes, if it is open; what is still in the buffer is dropped.
  void abandon() noexcept;

  // REQUIRES: isOpen().
  platform::FileDescriptor descriptor() const noexcept { return file_; }

  // Why the latest call answered false, 0 when it did not.
  std::int32_t error() const noexcept { return error_; }

 private:
  bool fail() noexcept;

  platform::FileDescriptor file_ = platform::kNoFile;
  std::unique_ptr<char[]> buffer_;  // made for the first file, kept for the next
  std::size_t used_ = 0;
  std::int32_t error_ = 0;
};

}  // namespace tarvo
