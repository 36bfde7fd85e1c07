#include "tarvordp/print/named_files.h"

#include <filesystem>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/file/file_spooler.h"
#include "tarvordp/mistake.h"
#include "tarvordp/print/output_file.h"

namespace tarvordp {
namespace {

namespace fs = std::filesystem;

struct NamedFile {
  std::string what;
  fs::path path;
};

using NamedFiles = std::vector<NamedFile>;

void add(NamedFiles& files, const std::string& what, const std::string& path) {
  if (path != kStandardOutput) files.push_back({what, path});
}

NamedFiles filesWritten(const PrintOptions& options, const Profile& profile) {
  NamedFiles files;
  const std::string printer = tarvo::toUtf8(profile.printerName);
  const std::string prefix = tarvo::toUtf8(tarvo::Text(tarvo::kFilePrinterPrefix));
  if (printer.starts_with(prefix)) add(files, "the printer", printer.substr(prefix.size()));
  if (options.save) add(files, "--save", *options.save);
  if (options.trace) add(files, "--trace", *options.trace);
  return files;
}

void addData(NamedFiles& files, const Job& job, const JsonValue* data) {
  if (data == nullptr) return;
  for (const char* key : {"csv", "sqlite"}) {
    const JsonValue* path = data->find(key);
    if (path == nullptr || !path->is(JsonValue::Kind::text)) continue;
    files.push_back({"the data", fs::path(job.folder) / path->text()});
  }
}

NamedFiles filesRead(const PrintOptions& options, const Job& job) {
  NamedFiles files;
  add(files, "the job file", options.job);
  addData(files, job, job.details);
  addData(files, job, job.recordQuery);
  return files;
}

bool areOne(const fs::path& one, const fs::path& other) {
  std::error_code error;
  if (fs::exists(one, error) && !fs::is_regular_file(one, error)) return false;
  if (fs::equivalent(one, other, error)) return true;
  const fs::path plain = fs::weakly_canonical(fs::absolute(one, error), error);
  return !plain.empty() && plain == fs::weakly_canonical(fs::absolute(other, error), error);
}

}  // namespace

void requireSeparateFiles(const PrintOptions& options, const Profile& profile, const Job& job) {
  const NamedFiles written = filesWritten(options, profile);
  for (std::size_t i = 0; i < written.size(); ++i) {
    for (std::size_t j = i + 1; j < written.size(); ++j) {
      if (!areOne(written[i].path, written[j].path)) continue;
      throw Mistake(written[i].what + " and " + written[j].what + " name the same file, " +
                    written[j].path.string());
    }
    for (const NamedFile& read : filesRead(options, job)) {
      if (!areOne(written[i].path, read.path)) continue;
      throw Mistake(written[i].what + " would overwrite " + read.what + ", " + read.path.string());
    }
  }
}

}  // namespace tarvordp
