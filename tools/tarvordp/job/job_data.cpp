// Where a job's data come from.
#include <filesystem>
#include <map>
#include <system_error>
#include <utility>

#include "tarvordp/job/csv_records.h"
#include "tarvordp/job/inline_records.h"
#include "tarvordp/job/job_file.h"
#include "tarvordp/job/query_records.h"

namespace tarvordp {
namespace {

class DataSources {
 public:
  explicit DataSources(const std::string& folder) : folder_(folder) {}

  void readQuery(const JsonValue& written, NamedValues& values) {
    KnownKeys keys(written);
    const Query query = queryIn(keys);
    readFirstRow(query.database, query.sql, query.parameters, values);
  }

  std::unique_ptr<RecordSource> open(const JsonValue& written) {
    if (written.is(JsonValue::Kind::array)) return makeInlineRecords(written);
    if (!written.is(JsonValue::Kind::object)) {
      written.mistake("must be an array of records, {\"csv\": ...} or {\"sqlite\": ...}, not " +
                      std::string(written.kindName()));
    }
    KnownKeys keys(written);
    if (const JsonValue* csv = keys.optional("csv")) {
      keys.nothingElse();
      return makeCsvRecords(pathOf(*csv), *csv);
    }
    const Query query = queryIn(keys);
    return makeQueryRecords(query.database, query.sql, query.parameters);
  }

 private:
  struct Query {
    std::shared_ptr<const Database> database;
    const JsonValue& sql;
    const JsonValue* parameters;
  };

  Query queryIn(KnownKeys& keys) {
    const JsonValue& file = keys.required("sqlite");
    const JsonValue& sql = keys.required("query");
    sql.asText();
    const JsonValue* parameters = keys.optional("parameters");
    keys.nothingElse();
    return {databaseOf(file), sql, parameters};
  }

  // All queries of one file see the same state of it, however its path is written.
  std::shared_ptr<const Database> databaseOf(const JsonValue& written) {
    const std::string path = pathOf(written);
    std::error_code error;
    const std::string plain = std::filesystem::weakly_canonical(path, error).string();
    std::shared_ptr<const Database>& database = databases_[error ? path : plain];
    if (!database) database = std::make_shared<Database>(path, written);
    return database;
  }

  std::string pathOf(const JsonValue& written) const {
    return (std::filesystem::path(folder_) / written.asText()).string();
  }

  const std::string& folder_;
  std::map<std::string, std::shared_ptr<const Database>> databases_;  // by their plain paths
};

}  // namespace

JobData openData(const Job& job, const Details::Listener& listener) {
  DataSources sources(job.folder);
  JobData data;
  if (job.record != nullptr) readNamedValues(*job.record, data.record);
  if (job.recordQuery != nullptr) sources.readQuery(*job.recordQuery, data.record);
  data.details = job.details == nullptr ? std::make_unique<Details>()
                                        : std::make_unique<Details>(sources.open(*job.details),
                                                                    job.subtotal, listener);
  return data;
}

}  // namespace tarvordp
