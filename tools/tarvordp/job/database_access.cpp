#include "tarvordp/job/database_access.h"

#include <sqlite3.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <new>
#include <string_view>
#include <system_error>

#include "tarvordp/hex_byte.h"

namespace tarvordp {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLogEnd = "-wal";

// A path as a URI's: what has a meaning there is escaped.
std::string escaped(std::string_view path) {
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  std::string text;
  for (const char c : path) {
    if (kPlain.find(c) != std::string_view::npos) {
      text += c;
      continue;
    }
    text.append("%").append(hexOfByte(static_cast<unsigned char>(c)));
  }
  return text;
}

std::string uriOf(const std::string& path, const std::string& parameters) {
  return "file://" + escaped(fs::absolute(path).string()) + "?" + parameters;
}

bool isThere(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error) || error;
}

// SQLite's own access to the file.  Another one would drop, when it is closed, the locks that this
// program has on the file.
class Probe {
 public:
  explicit Probe(const std::string& path) {
    sqlite3* handle = nullptr;
    sqlite3_open_v2(uriOf(path, "mode=ro").c_str(), &handle, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI,
                    nullptr);
    handle_.reset(handle);
    if (handle == nullptr) throw std::bad_alloc();
    sqlite3_file_control(handle, "main", SQLITE_FCNTL_FILE_POINTER, &file_);
    if (file_ != nullptr && file_->pMethods == nullptr) file_ = nullptr;
  }

  // SQLite reads a log that is there, even if the database does not say that it has one.
  // False as well when somebody locks readers out.
  bool hasWriteAheadLog() {
    if (file_ == nullptr || file_->pMethods->xLock(file_, SQLITE_LOCK_SHARED) != SQLITE_OK) {
      return false;
    }
    const bool is = headerSaysSo() || isThere(log());
    file_->pMethods->xUnlock(file_, SQLITE_LOCK_NONE);
    return is;
  }

  // REQUIRES: a file that can be opened.
  std::string journal() const { return sqlite3_filename_journal(name()); }
  std::string log() const { return sqlite3_filename_wal(name()); }

 private:
  // Bytes 18 and 19 of the file are the version that writing and reading need.
  bool headerSaysSo() {
    constexpr std::string_view kMagic("SQLite format 3\0", 16);
    constexpr char kWriteAheadVersion = 2;
    std::array<char, 20> header{};
    return file_->pMethods->xRead(file_, header.data(), header.size(), 0) == SQLITE_OK &&
           std::string_view(header.data(), kMagic.size()) == kMagic &&
           header[19] == kWriteAheadVersion;
  }

  const char* name() const { return sqlite3_db_filename(handle_.get(), "main"); }

  struct Closer {
    void operator()(sqlite3* handle) const noexcept { sqlite3_close_v2(handle); }
  };
  std::unique_ptr<sqlite3, Closer> handle_;
  sqlite3_file* file_ = nullptr;
};

// What is no journal any more is empty or begins with a zero.
bool mayBeJournal(const std::string& path) {
  if (!isThere(path)) return false;
  std::ifstream file(path, std::ios::binary);
  if (!file) return true;
  const int first = file.get();
  return file.bad() || (first != std::ifstream::traits_type::eof() && first != 0);
}

}  // namespace

DatabaseAccess::DatabaseAccess(const std::string& path) : path_(path) {
  Probe probe(path);
  if (!probe.hasWriteAheadLog()) return;
  journal_ = probe.journal();
  log_ = probe.log();
  database_ = FileStamp::settled(path_);
  writeAheadLog_ = FileStamp::settled(log_);
  way_ = wayByFiles();
}

DatabaseAccess::Way DatabaseAccess::wayByFiles() const {
  const std::string index = log_.substr(0, log_.size() - kLogEnd.size()) + "-shm";
  if (isThere(log_)) return isThere(index) ? Way::plain : Way::ownIndex;
  return mayBeJournal(journal_) ? Way::plain : Way::complete;
}

std::string DatabaseAccess::uri() const {
  switch (way_) {
    case Way::complete:
      return uriOf(path_, "mode=ro&immutable=1");
    case Way::ownIndex:
      return uriOf(path_, "mode=ro&vfs=unix-none");
    case Way::plain:
      break;
  }
  return uriOf(path_, "mode=ro");
}

std::string DatabaseAccess::preparation() const {
  return way_ == Way::ownIndex ? "PRAGMA locking_mode=EXCLUSIVE" : "";
}

bool DatabaseAccess::isUnchanged() const {
  switch (way_) {
    case Way::complete:
      return FileStamp::of(path_) == database_;
    case Way::ownIndex:
      return FileStamp::of(path_) == database_ && FileStamp::of(log_) == writeAheadLog_;
    case Way::plain:
      break;
  }
  return true;
}

}  // namespace tarvordp
