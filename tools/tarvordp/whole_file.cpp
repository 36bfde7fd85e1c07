#include "tarvordp/whole_file.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include "tarvordp/mistake.h"

namespace tarvordp {
namespace {

struct Closer {
  void operator()(std::FILE* file) const {
    if (file != stdin) std::fclose(file);
  }
};
using File = std::unique_ptr<std::FILE, Closer>;

[[noreturn]] void fail(const std::string& path) {
  throw Mistake(path + ": cannot be read: " + std::generic_category().message(errno));
}

}  // namespace

std::string readWholeFile(const std::string& path) {
  const File file(path == "-" ? stdin : std::fopen(path.c_str(), "rb"));
  if (file == nullptr) fail(path);
  std::string bytes;
  char block[65536];
  while (const std::size_t size = std::fread(block, 1, sizeof block, file.get())) {
    bytes.append(block, size);
  }
  if (std::ferror(file.get()) != 0) fail(path);
  return bytes;
}

}  // namespace tarvordp
