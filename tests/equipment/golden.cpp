#include "equipment/golden.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarvo::test {
namespace {

constexpr std::string_view kEnd = "(end)";

// Takes the first line off, without its line end; "(end)" when nothing is left.
std::string_view takeLine(std::string_view& text) {
  if (text.empty()) return kEnd;
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

bool isUpdating() {
  const char* const asked = std::getenv("TARVO_UPDATE_GOLDENS");
  return asked != nullptr && std::string_view(asked) == "1";
}

::testing::AssertionResult update(const std::filesystem::path& path, std::string_view actual) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << actual;
  file.close();
  return ::testing::AssertionFailure()
         << path.string()
         << (file ? ": written; look at it, then run again" : ": cannot be written");
}

}  // namespace

::testing::AssertionResult sameLines(std::string_view where, std::string_view expected,
                                     std::string_view actual) {
  if (expected == actual) return ::testing::AssertionSuccess();
  int number = 1;
  std::string_view wanted = takeLine(expected);
  std::string_view found = takeLine(actual);
  while (wanted == found && !(expected.empty() && actual.empty())) {
    wanted = takeLine(expected);
    found = takeLine(actual);
    ++number;
  }
  return ::testing::AssertionFailure() << where << ":" << number << ": the first line that differs"
                                       << (wanted == found ? " (in its end)" : "")
                                       << "\n  expected: " << wanted << "\n  actual:   " << found;
}

::testing::AssertionResult matchesGolden(std::string_view name, std::string_view actual) {
  const std::filesystem::path path = std::filesystem::path(TARVO_TESTS_DIR) / name;
  std::ifstream file(path, std::ios::binary);
  const bool exists = file.is_open();
  const std::string expected((std::istreambuf_iterator<char>(file)),
                             std::istreambuf_iterator<char>());
  if (exists && expected == actual) return ::testing::AssertionSuccess();
  if (isUpdating()) return update(path, actual);
  if (!exists) {
    return ::testing::AssertionFailure()
           << path.string() << ": no such golden file; TARVO_UPDATE_GOLDENS=1 writes it";
  }
  return sameLines(path.string(), expected, actual);
}

}  // namespace tarvo::test
