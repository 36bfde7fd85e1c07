#include "tarvordp/print/csv_separator.h"

#include <filesystem>
#include <string_view>
#include <system_error>

#include "tarvordp/job/csv_rows.h"

namespace tarvordp {
namespace {

// The file's path, as the job writes it; null: there is none.
const JsonValue* csvOf(const Job& job) {
  if (job.details == nullptr || !job.details->is(JsonValue::Kind::object)) return nullptr;
  const JsonValue* csv = job.details->find("csv");
  return csv != nullptr && csv->is(JsonValue::Kind::text) ? csv : nullptr;
}

// The only cell of the row of names; empty when there are more, or none.  What is no ordinary file
// has been read by now, and cannot be read again.
std::string onlyName(const std::string& path) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return {};
  try {
    CsvRows rows(path);
    CsvRow row;
    return rows.next(row) && row.cells.size() == 1 ? row.cells[0] : "";
  } catch (const CsvError&) {
    return {};
  }
}

}  // namespace

std::string separatorHint(const Job& job) {
  const JsonValue* csv = csvOf(job);
  if (csv == nullptr) return {};
  const std::string path = (std::filesystem::path(job.folder) / csv->text()).string();
  const std::string name = onlyName(path);
  const bool hasSemicolon = name.find(';') != std::string::npos;
  if (!hasSemicolon && name.find('\t') == std::string::npos) return {};
  return path + " seems to be separated by " + (hasSemicolon ? "\";\"" : "tabs") +
         ", and a CSV file by \",\"";
}

}  // namespace tarvordp
