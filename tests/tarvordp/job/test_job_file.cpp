#include "tarvordp/job/job_file.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <string>

#include "equipment/temporary_folder.h"
#include "job_testing.h"

namespace tarvordp {
namespace {

using test::mistakeOf;
using test::valueText;

Job read(const std::string& json, const std::string& file = "dir/j.json") {
  return readJob(readJsonText(json, file));
}

// A job with its required keys, and more of them.
std::string form(const std::string& more = "") {
  return R"({"report": "form", "title": "Planilla", "directory": "p")" + more + "}";
}
std::string masterDetail(const std::string& more = "") {
  return R"({"report": "master-detail", "title": "Factura", "directory": "p", "template": "F")" +
         more + "}";
}

TEST(Job, OfAFormHasItsDefaults) {
  const Job job = read(form());
  EXPECT_EQ(job.kind, ReportKind::form);
  EXPECT_EQ(job.title, u"Planilla");
  EXPECT_EQ(job.directory, u"dir/p/");
  EXPECT_EQ(job.sheets, tarvo::eHP_AmbasHojas);
  EXPECT_EQ(job.output, tarvo::ePOD_Definitiva);
  EXPECT_EQ(job.firstSheet + job.secondSheet + job.draft + job.user + job.textFile, u"");
  EXPECT_EQ(job.turnSheet, std::nullopt);
  EXPECT_EQ(job.pause, std::nullopt);
  EXPECT_EQ(job.record, nullptr);
}

TEST(Job, OfAFormHasItsKeys) {
  const Job job = read(form(R"(, "firstSheet": "UNO", "secondSheet": "DOS", "draft": "B",
      "sheets": "second", "output": "draft", "user": "ana", "textFile": "t.txt",
      "answers": {"turnSheet": false, "pause": true}, "record": {}, "profile": "plain")"));
  EXPECT_EQ(job.firstSheet, u"UNO");
  EXPECT_EQ(job.secondSheet, u"DOS");
  EXPECT_EQ(job.draft, u"B");
  EXPECT_EQ(job.sheets, tarvo::eHP_SegundaHoja);
  EXPECT_EQ(job.output, tarvo::ePOD_Borrador);
  EXPECT_EQ(job.user, u"ana");
  EXPECT_EQ(job.textFile, u"t.txt");
  EXPECT_EQ(job.turnSheet, false);
  EXPECT_EQ(job.pause, true);
  EXPECT_EQ(read(form(R"(, "sheets": "first")")).sheets, tarvo::eHP_PrimeraHoja);
  EXPECT_EQ(read(form(R"(, "sheets": "both")")).sheets, tarvo::eHP_AmbasHojas);
  EXPECT_EQ(read(form(R"(, "output": "definitive")")).output, tarvo::ePOD_Definitiva);
}

TEST(Job, OfAMasterDetailReportHasItsDefaults) {
  const Job job = read(masterDetail());
  EXPECT_EQ(job.kind, ReportKind::masterDetail);
  EXPECT_EQ(job.templateName, u"F");
  EXPECT_EQ(job.copies, 1);
  EXPECT_EQ(job.topMarginLines + job.topMarginPoints, 0);
  EXPECT_TRUE(job.canPrint);
  EXPECT_EQ(job.subtotal, u"");
  EXPECT_EQ(job.details, nullptr);
}

TEST(Job, OfAMasterDetailReportHasItsKeys) {
  const Job job = read(masterDetail(R"(, "copies": 255, "topMarginLines": 3,
      "topMarginPoints": 255, "subtotal": "Renglon.Monto", "canPrint": {"refuse": "No hay."},
      "details": [], "recordQuery": {})"));
  EXPECT_EQ(job.copies, 255);
  EXPECT_EQ(job.topMarginLines, 3);
  EXPECT_EQ(job.topMarginPoints, 255);
  EXPECT_EQ(job.subtotal, u"RENGLON.MONTO");
  EXPECT_FALSE(job.canPrint);
  EXPECT_EQ(job.refusal, u"No hay.");
  EXPECT_NE(job.details, nullptr);
  EXPECT_NE(job.recordQuery, nullptr);
  EXPECT_FALSE(read(masterDetail(R"(, "canPrint": false)")).canPrint);
}

TEST(Job, PathsCountFromItsFolder) {
  EXPECT_EQ(read(form(), "j.json").directory, u"p/");
  EXPECT_EQ(read(form(), "/a/b/j.json").directory, u"/a/b/p/");
  const std::string absolute = R"({"report": "form", "title": "", "directory": "/x/y/"})";
  EXPECT_EQ(read(absolute).directory, u"/x/y/");
  const std::string here = R"({"report": "form", "title": "", "directory": "."})";
  EXPECT_EQ(read(here, "j.json").directory, u"./");
}

struct WrongJob {
  std::string json;
  const char* mistake;
};

const WrongJob kWrong[] = {
    {"[]", "dir/j.json: the document: must be an object, not an array"},
    {"{}", "dir/j.json: the document: the key \"report\" is missing"},
    {R"({"report": "form"})", "dir/j.json: the document: the key \"title\" is missing"},
    {R"({"report": "form", "title": "t"})",
     "dir/j.json: the document: the key \"directory\" is missing"},
    {R"({"report": "master-detail", "title": "t", "directory": "p"})",
     "dir/j.json: the document: the key \"template\" is missing"},
    {R"({"report": "detail", "title": "t", "directory": "p"})",
     "dir/j.json: /report: \"detail\" is none of \"form\", \"master-detail\""},
    {R"({"report": 1, "title": "t", "directory": "p"})",
     "dir/j.json: /report: must be a text, not a number"},
    {form(R"(, "firstSheets": "x")"), "dir/j.json: /firstSheets: unknown key \"firstSheets\""},
    {form(R"(, "firstSheet": null)"), "dir/j.json: /firstSheet: must be a text, not null"},
    {form(R"(, "sheets": "third")"),
     "dir/j.json: /sheets: \"third\" is none of \"first\", \"second\", \"both\""},
    {form(R"(, "output": "final")"),
     "dir/j.json: /output: \"final\" is none of \"definitive\", \"draft\""},
    {form(R"(, "template": "x")"),
     "dir/j.json: /template: the key \"template\" is for a master-detail report, and this is none"},
    {form(R"(, "copies": 2)"),
     "dir/j.json: /copies: the key \"copies\" is for a master-detail report, and this is none"},
    {form(R"(, "details": [])"),
     "dir/j.json: /details: the key \"details\" is for a master-detail report, and this is none"},
    {masterDetail(R"(, "draft": "x")"),
     "dir/j.json: /draft: the key \"draft\" is for a form report, and this is none"},
    {masterDetail(R"(, "sheets": "both")"),
     "dir/j.json: /sheets: the key \"sheets\" is for a form report, and this is none"},
    {masterDetail(R"(, "copies": 0)"),
     "dir/j.json: /copies: must be a whole number from 1 to 255, not 0"},
    {masterDetail(R"(, "copies": 256)"),
     "dir/j.json: /copies: must be a whole number from 1 to 255, not 256"},
    {masterDetail(R"(, "copies": 1.5)"),
     "dir/j.json: /copies: must be a whole number from 1 to 255, not 1.5"},
    {masterDetail(R"(, "copies": "2")"), "dir/j.json: /copies: must be a whole number, not a text"},
    {masterDetail(R"(, "topMarginLines": -1)"),
     "dir/j.json: /topMarginLines: must be a whole number from 0 to 255, not -1"},
    {masterDetail(R"(, "canPrint": "no")"),
     "dir/j.json: /canPrint: must be true or false, not a text"},
    {masterDetail(R"(, "canPrint": {})"), "dir/j.json: /canPrint: the key \"refuse\" is missing"},
    {masterDetail(R"(, "canPrint": {"refuse": "x", "y": 1})"),
     "dir/j.json: /canPrint/y: unknown key \"y\""},
    {masterDetail(R"(, "answers": {"turnsheet": true})"),
     "dir/j.json: /answers/turnsheet: unknown key \"turnsheet\""},
    {masterDetail(R"(, "answers": {"turnSheet": "yes"})"),
     "dir/j.json: /answers/turnSheet: must be true or false, not a text"},
    {masterDetail(R"(, "subtotal": ["x"])"), "dir/j.json: /subtotal: must be a text, not an array"},
};

TEST(Job, WhatIsWrongIsToldWithItsPlace) {
  for (const WrongJob& row : kWrong) {
    EXPECT_EQ(mistakeOf([&] { read(row.json); }), row.mistake) << row.json;
  }
}

// --- Its profile.

TEST(JobProfile, IsEmptyWhenTheJobHasNone) {
  const Profile profile = profileOf(read(form()));
  EXPECT_EQ(profile.printerName, u"");
  EXPECT_FALSE(profile.canPrintInTextMode);
}

TEST(JobProfile, MayStandInTheJobItself) {
  const Job job = read(form(R"(, "profile": {"PrinterName": "file:x", "MaxLinPage": 20,
      "CanPrintInTextMode": true, "ChrBold": "\u001bE"})"));
  const Profile profile = profileOf(job);
  EXPECT_EQ(profile.printerName, u"file:x");
  EXPECT_EQ(profile.maxLinPage, 20);
  EXPECT_TRUE(profile.canPrintInTextMode);
  EXPECT_EQ(profile.code(ControlCode::bold), u"\u001bE");
  EXPECT_THAT(mistakeOf([] { profileOf(read(form(R"(, "profile": {"ChrBolt": "x"})"))); }),
              testing::HasSubstr("/profile/ChrBolt"));
  EXPECT_THAT(mistakeOf([] { profileOf(read(form(R"(, "profile": 3)"))); }),
              testing::HasSubstr("/profile"));
}

TEST(JobProfile, ThatIsNowhereOrWrongIsToldWithItsPlaceInTheJob) {
  EXPECT_THAT(mistakeOf([] { profileOf(read(form(R"(, "profile": "nope")"))); }),
              testing::HasSubstr("/profile: \"nope\" is neither a file nor a shipped"));
  EXPECT_THAT(mistakeOf([] { profileOf(read(form(R"(, "profile": ".")"))); }),
              testing::HasSubstr("/profile: "));
}

TEST(JobProfile, MayBeAShippedOneOrAFileBesideTheJob) {
  EXPECT_EQ(profileOf(read(form(R"(, "profile": "epson-9pin")"))).code(ControlCode::bold),
            u"\u001bE");
  const tarvo::test::TemporaryFolder folder;
  folder.write(u"mine.json", R"({"MaxLinPage": 7})");
  const std::string file = (folder.path() / "j.json").string();
  EXPECT_EQ(profileOf(read(form(R"(, "profile": "mine.json")"), file)).maxLinPage, 7);
  EXPECT_NE(mistakeOf([&] { profileOf(read(form(R"(, "profile": "his.json")"), file)); }),
            "no mistake");
}

// --- Its data.

class JobDataTest : public testing::Test {
 protected:
  JobData open(const std::string& more) {
    job_ = read(masterDetail(more), (folder_.path() / "j.json").string());
    return openData(job_);
  }

  std::string mistakeIn(const std::string& more) {
    std::string mistake = mistakeOf([&] { open(more); });
    const std::string head = folder_.path().string() + "/";
    for (auto at = mistake.find(head); at != std::string::npos; at = mistake.find(head)) {
      mistake.erase(at, head.size());
    }
    return mistake;
  }

  tarvo::test::TemporaryFolder folder_;
  Job job_;
};

TEST_F(JobDataTest, ANameOfTheQueryReplacesThatOfTheRecord) {
  test::runSql((folder_.path() / "d.db").string(), "CREATE TABLE t(a); INSERT INTO t VALUES(7)");
  const JobData data = open(R"(, "record": {"a": "r", "b": "r"}, "recordQuery":
      {"sqlite": "d.db", "query": "SELECT a, NULL AS c FROM t WHERE a = :n",
       "parameters": {"n": 7}})");
  EXPECT_EQ(valueText(*data.record.find(u"A")), "number 7");
  EXPECT_EQ(valueText(*data.record.find(u"B")), "text r");
  EXPECT_EQ(valueText(*data.record.find(u"C")), "none");
  EXPECT_EQ(data.record.find(u"D"), nullptr);
  EXPECT_FALSE(data.details->first());
}

TEST_F(JobDataTest, DetailsComeFromTheJobFromCsvAndFromAQuery) {
  test::runSql((folder_.path() / "d.db").string(), "CREATE TABLE t(a); INSERT INTO t VALUES(7)");
  folder_.write(u"d.csv", "a\n7\n");
  for (const char* details : {R"([{"a": 7}])", R"({"csv": "d.csv"})",
                              R"({"sqlite": "d.db", "query": "SELECT a FROM t"})"}) {
    const JobData data = open(R"(, "details": )" + std::string(details));
    ASSERT_TRUE(data.details->first()) << details;
    EXPECT_NE(data.details->present()->find(u"A"), nullptr) << details;
    EXPECT_EQ(data.details->count(), 1) << details;
  }
}

// How often the program has the file open.
int timesOpen(const std::filesystem::path& file) {
  int times = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code gone;  // the folder's own is
    if (std::filesystem::read_symlink(entry.path(), gone) == file) ++times;
  }
  return times;
}

TEST_F(JobDataTest, ADatabaseIsOpenedOnceHoweverItsPathIsWritten) {
  const auto file = std::filesystem::canonical(folder_.path()) / "d.db";
  test::runSql(file.string(), "CREATE TABLE t(a); INSERT INTO t VALUES(7)");
  std::filesystem::create_symlink("d.db", folder_.path() / "link.db");
  for (const char* path : {"d.db", "./d.db", "link.db"}) {
    job_ = read(masterDetail(R"(, "recordQuery": {"sqlite": "d.db", "query": "SELECT a FROM t"},
        "details": {"query": "SELECT a FROM t", "sqlite": ")" +
                             std::string(path) + "\"}"),
                (folder_.path() / "j.json").string());
    int times = 0;
    openData(job_, [&](std::int64_t) { times = timesOpen(file); });
    EXPECT_EQ(times, 1) << path;
  }
}

TEST_F(JobDataTest, WhatIsWrongIsToldWithItsPlace) {
  EXPECT_EQ(mistakeIn(R"(, "record": [])"), "j.json: /record: must be an object, not an array");
  EXPECT_EQ(mistakeIn(R"(, "record": {"a": {"date": "x"}})"),
            "j.json: /record/a/date: \"x\" is no date: write YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS");
  EXPECT_EQ(mistakeIn(R"(, "details": "x.csv")"),
            "j.json: /details: must be an array of records, {\"csv\": ...} or {\"sqlite\": ...}, "
            "not a text");
  EXPECT_EQ(mistakeIn(R"(, "details": {})"), "j.json: /details: the key \"sqlite\" is missing");
  EXPECT_EQ(mistakeIn(R"(, "details": {"csv": "d.csv", "query": "x"})"),
            "j.json: /details/query: unknown key \"query\"");
  EXPECT_EQ(mistakeIn(R"(, "details": {"csv": 1})"),
            "j.json: /details/csv: must be a text, not a number");
  EXPECT_EQ(mistakeIn(R"(, "details": {"csv": "d.csv"})"),
            "j.json: /details/csv: d.csv: cannot be read: No such file or directory");
  EXPECT_EQ(mistakeIn(R"(, "details": {"sqlite": "d.db"})"),
            "j.json: /details: the key \"query\" is missing");
  EXPECT_EQ(mistakeIn(R"(, "details": {"sqlite": "d.db", "query": 1})"),
            "j.json: /details/query: must be a text, not a number");
  EXPECT_EQ(mistakeIn(R"(, "details": {"sqlite": "d.db", "query": "SELECT 1", "limit": 1})"),
            "j.json: /details/limit: unknown key \"limit\"");
  EXPECT_EQ(mistakeIn(R"(, "details": {"sqlite": "d.db", "query": "SELECT 1"})"),
            "j.json: /details/sqlite: d.db: there is no such database");
  EXPECT_EQ(mistakeIn(R"(, "recordQuery": [])"),
            "j.json: /recordQuery: must be an object, not an array");
}

}  // namespace
}  // namespace tarvordp
