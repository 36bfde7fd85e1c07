#include "tarvordp/job/csv_rows.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <system_error>
#include <utility>

namespace tarvordp {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

[[noreturn]] void failToRead(const std::string& path) {
  throw CsvError(0, path + ": cannot be read: " + std::generic_category().message(errno));
}

// Blanks belong to their cells.
int noSpace(unsigned char) { return 0; }

}  // namespace

CsvRows::CsvRows(const std::string& path) : path_(path), file_(path, std::ios::binary) {
  if (!file_) failToRead(path);
  startParser();
}

CsvRows::~CsvRows() { csv_free(&parser_); }

void CsvRows::startParser() {
  csv_free(&parser_);
  csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI);
  csv_set_space_func(&parser_, noSpace);
}

void CsvRows::restart() {
  file_.clear();
  file_.seekg(0);
  if (!file_) failToRead(path_);
  startParser();
  isEnded_ = false;
  chunk_.clear();
  next_ = 0;
  line_ = 0;
  rowLine_ = 0;
  cells_.clear();
  rows_.clear();
}

bool CsvRows::next(CsvRow& row) {
  while (rows_.empty()) {
    if (isEnded_) return false;
    if (!feedLine()) finish();
  }
  row = std::move(rows_.front());
  rows_.pop_front();
  return true;
}

// False at the end of the file.
bool CsvRows::feedLine() {
  if (next_ == chunk_.size() && !readChunk()) return false;
  const std::string_view line = takeLine();
  const bool isInRow = rowLine_ != 0;
  if (!isInRow && line.find_first_not_of(" \t\r\n") == std::string_view::npos) return true;
  if (!isInRow) rowLine_ = line_;
  feed(line);
  return true;
}

bool CsvRows::readChunk() {
  errno = 0;
  chunk_.clear();  // getline leaves it as it is once the end was met
  next_ = 0;
  const bool isRead = static_cast<bool>(std::getline(file_, chunk_));
  if (file_.bad()) failToRead(path_);
  if (!isRead) return false;
  if (!file_.eof()) chunk_ += '\n';
  if (line_ == 0 && chunk_.starts_with(kByteOrderMark)) next_ = kByteOrderMark.size();
  return true;
}

std::string_view CsvRows::takeLine() {
  const std::size_t begin = next_;
  next_ = std::min(chunk_.find_first_of("\r\n", begin), chunk_.size());
  if (std::string_view(chunk_).substr(next_, 2) == "\r\n") ++next_;
  if (next_ < chunk_.size()) ++next_;
  ++line_;
  return std::string_view(chunk_).substr(begin, next_ - begin);
}

namespace {

// What the parser tells, as calls of a function: it cannot carry exceptions.
template <class Action>
void guarded(bool& failed, Action&& action) noexcept {
  try {
    action();
  } catch (...) {
    failed = true;
  }
}

}  // namespace

// The parser's events while it works on a piece of the file.
struct CsvEvents {
  CsvRows& rows;
  bool memoryIsShort = false;

  static void cell(void* bytes, std::size_t size, void* self) noexcept {
    auto& events = *static_cast<CsvEvents*>(self);
    const auto* begin = static_cast<const char*>(bytes);
    guarded(events.memoryIsShort, [&] { events.rows.addCell({begin, size}); });
  }
  static void row(int, void* self) noexcept {
    auto& events = *static_cast<CsvEvents*>(self);
    guarded(events.memoryIsShort, [&] { events.rows.endRow(); });
  }
};

void CsvRows::feed(std::string_view bytes) {
  CsvEvents events{*this};
  const std::size_t taken =
      csv_parse(&parser_, bytes.data(), bytes.size(), &CsvEvents::cell, &CsvEvents::row, &events);
  if (events.memoryIsShort || csv_error(&parser_) == CSV_ENOMEM) throw std::bad_alloc();
  if (taken != bytes.size()) {
    throw CsvError(line_,
                   "a quotation mark stands where none may: a cell that has one must begin "
                   "and end with one, and have those inside twice");
  }
}

void CsvRows::finish() {
  isEnded_ = true;
  CsvEvents events{*this};
  const bool isWhole = csv_fini(&parser_, &CsvEvents::cell, &CsvEvents::row, &events) == 0;
  if (events.memoryIsShort) throw std::bad_alloc();
  if (!isWhole) throw CsvError(rowLine_, "a cell that begins with a quotation mark never ends");
}

void CsvRows::endRow() {
  rows_.push_back({rowLine_, std::exchange(cells_, {})});
  rowLine_ = 0;
}

}  // namespace tarvordp
