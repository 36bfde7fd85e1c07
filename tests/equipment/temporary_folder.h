// A folder of a test's own, which goes with everything in it.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "frame/text.h"

namespace tarvo::test {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("tarvo-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& path() const { return path_; }

  // The path of a file in it, as the library takes it.
  Text pathOf(TextView name) const { return (path_ / name).u16string(); }

  bool has(TextView name) const { return std::filesystem::exists(path_ / name); }

  // Everything in the file; "(missing)" when there is none.
  std::string contentOf(TextView name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    if (!file) return "(missing)";
    return std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  }

  void write(TextView name, const std::string& content) const {
    std::ofstream(path_ / name, std::ios::binary) << content;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tarvo::test
