// What the pages on job files say without showing it.
#include <gmock/gmock.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "database.h"
#include "equipment/temporary_folder.h"
#include "on_paper.h"
#include "printing.h"
#include "working_folder.h"

namespace tarvo::test {
namespace {

using Json = nlohmann::ordered_json;

struct JobClaim {
  const char* says;
  const char* templateLines;
  const char* job;      // the keys that are not the same in all
  const char* options;  // of the command
  int status;
  const char* prints;  // null: that is another test's affair
};

void PrintTo(const JobClaim& claim, std::ostream* out) { *out << claim.says; }

// A job file in a folder "jobs", run from the folder above it.
class JobFileClaims : public ::testing::TestWithParam<JobClaim> {
 protected:
  JobFileClaims() : here_(folder_.path()) {
    std::filesystem::create_directories(folder_.path() / "jobs" / "templates");
    folder_.write(u"jobs/templates/T.ID", templateBytes(GetParam().templateLines));
    folder_.write(u"jobs/data.csv", "K,Q\na,\n");
    makeDatabase((folder_.path() / "jobs" / "data.sqlite").string(), "CREATE TABLE t(x)");
    folder_.write(u"jobs/job.json", jobText());
  }

  static std::string jobText() {
    Json job = {{"report", "master-detail"},
                {"title", "T"},
                {"directory", "templates"},
                {"template", "T"},
                {"profile", kGuideProfile}};
    job.update(Json::parse(GetParam().job));
    return job.dump();
  }

  TemporaryFolder folder_;
  WorkingFolder here_;
};

TEST_P(JobFileClaims, AreTrue) {
  std::string messages;
  const std::string command =
      std::string("tarvordp print jobs/job.json --printer file:out.prn --yes ") +
      GetParam().options;
  EXPECT_EQ(runCommand(command, messages), GetParam().status) << messages;
  if (GetParam().prints == nullptr) return;
  EXPECT_EQ(onPaper(folder_.contentOf(u"out.prn"), ReportEnd::kOfPages), GetParam().prints);
}

constexpr const char* kLines = "h {K}\n{CUERPO=1}\n{K}\n{FINCUERPO}\nf\n";
constexpr const char* kQuery =
    R"({"record": {"K": "r"}, "recordQuery": {"sqlite": "data.sqlite", "query": "SELECT 'q' AS k"}})";

const JobClaim kJobClaims[] = {
    {"without records header and footer are printed", "h\n{CUERPO=2}\nb\n{FINCUERPO}\nf\n",
     R"({"details": []})", "", 0, "h\n\n\nf\n"},
    {"and the insert body", "h\n{CUERPO=2}\nb\n{UNINSERTOCUERPO}\ni\n{FINCUERPO}\nf\n", "{}", "", 0,
     "h\n\ni\nf\n"},
    {"paths are those of the job file's folder", kLines,
     R"({"record": {"K": "r"}, "details": {"csv": "data.csv"}})", "", 0, "h r\na\nf\n"},
    {"the query goes before the record", kLines, kQuery, "", 0, "h q\n\nf\n"},
    {"--set goes before both", kLines, kQuery, "--set K=s", 0, "h s\n\nf\n"},
    {"the present record goes before it", kLines, R"({"details": [{"K": "a"}]})", "--set K=s", 0,
     "h s\na\nf\n"},
    {"--set gives a text", "{K,8}|{K,8,QR}|\n{CUERPO=1}\n{FINCUERPO}\n", R"({"record": {"K": 12}})",
     "--set K=5", 0, "5       |       5|\n\n"},
    {"an empty cell without a kind is an empty text", "{CUERPO=1}\n{Q}|\n{FINCUERPO}\n",
     R"({"details": {"csv": "data.csv"}})", "", 0, "|\n"},
    {"twelve lines of a long text are too many", kLines,
     R"({"record": {"K": {"lines": ["","","","","","","","","","","",""]}}})", "", 2, nullptr},
    {"a refused report", kLines, R"({"canPrint": {"refuse": "No"}})", "", 1, nullptr},
    {"a report given up at a pause", "...PAUSA\nh\n{CUERPO=1}\n{FINCUERPO}\n",
     R"({"answers": {"pause": false}})", "", 1, nullptr},
    {"a query without a row", kLines,
     R"({"recordQuery": {"sqlite": "data.sqlite", "query": "SELECT x FROM t"}})", "", 2, nullptr},
    {"a parameter too many", kLines,
     R"({"recordQuery": {"sqlite": "data.sqlite", "query": "SELECT 1", "parameters": {"a": 1}}})",
     "", 2, nullptr},
    {"a statement that changes something", kLines,
     R"({"recordQuery": {"sqlite": "data.sqlite", "query": "DELETE FROM t RETURNING x"}})", "", 2,
     nullptr},
    {"a subtotal that is a text", kLines, R"({"details": [{"K": "a"}], "subtotal": "K"})", "", 2,
     nullptr},
    {"a key of a form in a report with records", kLines, R"({"sheets": "both"})", "", 2, nullptr},
};
INSTANTIATE_TEST_SUITE_P(Pages, JobFileClaims, ::testing::ValuesIn(kJobClaims));

}  // namespace
}  // namespace tarvo::test
