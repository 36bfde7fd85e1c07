// The current folder, until this goes.
#pragma once

#include <filesystem>
#include <system_error>

namespace tarvo::test {

class WorkingFolder {
 public:
  explicit WorkingFolder(const std::filesystem::path& folder) {
    std::filesystem::current_path(folder);
  }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;
  ~WorkingFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

}  // namespace tarvo::test
