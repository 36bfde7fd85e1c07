#include "platform/file/output_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>

namespace tarvo {
namespace {

constexpr std::size_t kBufferSize = 64 * 1024;

}  // namespace

OutputFile::~OutputFile() {
  if (isOpen()) finish();
}

bool OutputFile::start(platform::FileDescriptor file) {
  const int reason = errno;
  if (isOpen()) finish();
  used_ = 0;
  error_ = 0;
  if (file == platform::kNoFile) {
    errno = reason;
    return fail();
  }
  if (!buffer_) buffer_.reset(new (std::nothrow) char[kBufferSize]);
  if (!buffer_) {
    platform::closeFile(file);
    throw std::bad_alloc();
  }
  file_ = file;
  return true;
}

bool OutputFile::write(std::string_view bytes) noexcept {
  while (error_ == 0 && bytes.size() > kBufferSize - used_) {
    const std::size_t room = kBufferSize - used_;
    std::memcpy(buffer_.get() + used_, bytes.data(), room);
    used_ = kBufferSize;
    bytes.remove_prefix(room);
    flush();
  }
  if (error_ != 0) return false;
  std::copy(bytes.begin(), bytes.end(), buffer_.get() + used_);
  used_ += bytes.size();
  return true;
}

bool OutputFile::flush() noexcept {
  if (error_ != 0) return false;
  const std::string_view waiting(buffer_.get(), used_);
  used_ = 0;
  return platform::writeFully(file_, waiting) || fail();
}

bool OutputFile::finish() noexcept {
  flush();
  const bool closed = platform::closeFile(file_);
  file_ = platform::kNoFile;
  if (error_ != 0) return false;
  return closed || fail();
}

void OutputFile::abandon() noexcept {
  if (isOpen()) platform::closeFile(file_);
  file_ = platform::kNoFile;
  used_ = 0;
}

bool OutputFile::fail() noexcept {
  error_ = errno;
  return false;
}

}  // namespace tarvo
