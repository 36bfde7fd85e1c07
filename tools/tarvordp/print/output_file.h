// Files that output goes into.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace tarvordp {

// The path that is the standard output.
inline constexpr std::string_view kStandardOutput = "-";

// Removes an ordinary file; false when there is none: a device stays, and a link.
inline bool removeOrdinaryFile(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(std::filesystem::symlink_status(path, ignored)) &&
         std::filesystem::remove(path, ignored);
}

}  // namespace tarvordp
