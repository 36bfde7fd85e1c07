#include "frame/platform.h"

#include <dlfcn.h>
#include <sys/stat.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <system_error>

namespace tarvo::platform {
namespace {

// The file that this very code was loaded from: a shared library, or the program itself.
std::filesystem::path ownFile() {
  Dl_info info{};
  const bool found = dladdr(reinterpret_cast<const void*>(&libraryFolder), &info) != 0;
  if (!found || info.dli_fname == nullptr) return {};
  std::error_code failed;
  std::filesystem::path resolved = std::filesystem::canonical(info.dli_fname, failed);
  if (!failed) return resolved;
  // A program found along the search path is known by its bare name only.
  const std::filesystem::path running = std::filesystem::read_symlink("/proc/self/exe", failed);
  return failed ? std::filesystem::path(info.dli_fname) : running;
}

}  // namespace

bool systemCodePage(CodePage::Characters&) { return false; }

Text libraryFolder() {
  Text folder = fromUtf8(ownFile().parent_path().string());
  std::replace(folder.begin(), folder.end(), u'/', u'\\');
  return folder;
}

Date localTime() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  // A leap second is the minute's last one.
  return dateOf({parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min,
                 std::min(parts.tm_sec, 59)});
}

bool fileExists(TextView path) {
  thread_local std::string name;  // kept: a report asks for its template again and again
  toUtf8(path, name);
  if (name.find('\0') != std::string::npos) return false;
  struct stat status {};
  return stat(name.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

}  // namespace tarvo::platform
