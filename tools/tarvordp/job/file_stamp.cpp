#include "tarvordp/job/file_stamp.h"

#include <chrono>
#include <system_error>
#include <thread>

namespace tarvordp {
namespace {

namespace fs = std::filesystem;

constexpr auto kClockTick = std::chrono::milliseconds(20);

}  // namespace

FileStamp FileStamp::of(const std::string& path) {
  std::error_code error;
  FileStamp stamp;
  stamp.size_ = fs::file_size(path, error);
  if (error) return {};
  stamp.time_ = fs::last_write_time(path, error);
  return error ? FileStamp() : stamp;
}

FileStamp FileStamp::settled(const std::string& path) {
  const FileStamp stamp = of(path);
  const auto age = fs::file_time_type::clock::now() - stamp.time_;
  if (age < -kClockTick || age > kClockTick) return stamp;
  std::this_thread::sleep_for(2 * kClockTick);
  return of(path);
}

}  // namespace tarvordp
