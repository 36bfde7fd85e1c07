// The rows of a CSV file, cell by cell as they were written, without its blank lines.
//
// A line ends with CR LF, LF or CR, inside quotation marks too: so lines are counted.
#pragma once

#include <csv.h>

#include <cstdint>
#include <deque>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tarvordp {

struct CsvRow {
  std::uint64_t line = 0;  // where it begins, from 1
  std::vector<std::string> cells;
};

// What is wrong with a file, and in which line; line 0: with the file as a whole.
class CsvError : public std::runtime_error {
 public:
  CsvError(std::uint64_t line, const std::string& what) : std::runtime_error(what), line_(line) {}
  std::uint64_t line() const noexcept { return line_; }

 private:
  std::uint64_t line_;
};

class CsvRows {
 public:
  // Raises: CsvError when the file cannot be read.
  explicit CsvRows(const std::string& path);
  CsvRows(const CsvRows&) = delete;
  CsvRows& operator=(const CsvRows&) = delete;
  ~CsvRows();

  // Goes before the first row.  Raises: CsvError.
  void restart();

  // Replaces `row` by the next one; false at the end.
  // Raises: CsvError for text that is no CSV, and when reading fails.
  bool next(CsvRow& row);

 private:
  friend struct CsvEvents;

  bool feedLine();
  bool readChunk();
  std::string_view takeLine();
  void feed(std::string_view bytes);
  void finish();
  void startParser();
  void addCell(std::string_view cell) { cells_.emplace_back(cell); }
  void endRow();

  std::string path_;
  std::ifstream file_;
  csv_parser parser_{};
  bool isEnded_ = false;
  std::string chunk_;               // up to a LF; lines may end before
  std::size_t next_ = 0;            // where its next line begins
  std::uint64_t line_ = 0;          // the number of the line before
  std::uint64_t rowLine_ = 0;       // where the row that is not complete yet begins; 0: nowhere
  std::vector<std::string> cells_;  // of that row
  std::deque<CsvRow> rows_;         // complete ones that nobody has asked for yet
};

}  // namespace tarvordp
