// What a file is like at one moment, to notice that somebody changes it while it is read.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace tarvordp {

class FileStamp {
 public:
  // Of no file.
  FileStamp() = default;

  // The file as it is now.  One that cannot be looked at, and what is no ordinary file, is as none.
  static FileStamp of(const std::string& path);

  // One from which every later change differs: a change within the same tick of the file system's
  // clock, 20 ms at most, has the same time, so the end of that tick is waited for.
  static FileStamp settled(const std::string& path);

  bool operator==(const FileStamp&) const = default;

 private:
  std::filesystem::file_time_type time_;
  std::uintmax_t size_ = 0;
};

}  // namespace tarvordp
