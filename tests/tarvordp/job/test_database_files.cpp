// What stands beside a database: a write-ahead log, its index, a journal; who may read and write
// them; and that everything is there afterwards as it was before.
#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>

#include "database_writer.h"
#include "equipment/temporary_folder.h"
#include "equipment/without_privileges.h"
#include "job_testing.h"
#include "tarvordp/job/query_records.h"

namespace tarvordp {
namespace {

namespace fs = std::filesystem;
using tarvo::test::WithoutPrivileges;
using test::mistakeOf;
using test::runSql;
using test::Writer;
using testing::EndsWith;
using testing::HasSubstr;

constexpr const char* kCannotLeave = "needs another user than the administrator, or to become one";

class DatabaseFilesTest : public testing::Test {
 protected:
  ~DatabaseFilesTest() override { permit(fs::perms::owner_all); }

  // A database with a write-ahead log, three records in it, and nothing beside it.
  void makeWithLog() {
    runSql(path_,
           "PRAGMA journal_mode=WAL; CREATE TABLE t(n INTEGER);"
           "INSERT INTO t VALUES(1), (2), (3)");
    ASSERT_EQ(filesText(), "d.db ");
  }

  static constexpr const char* kAddTwo =
      "PRAGMA wal_autocheckpoint=0; INSERT INTO t VALUES(10), (20)";

  std::shared_ptr<const Database> open(const std::string& path) {
    return std::make_shared<Database>(path, *document_.find("sqlite"));
  }

  std::unique_ptr<RecordSource> records() {
    return makeQueryRecords(open(path_), *document_.find("query"), nullptr);
  }

  std::string sumIn(const std::string& path) {
    const auto source = makeQueryRecords(open(path), *document_.find("sum"), nullptr);
    return test::recordsOf(*source).at(0);
  }
  std::string sum() { return sumIn(path_); }
  std::string mistake() {
    return mistakeOf([&] { sum(); });
  }

  // The files by their names, with all that is in them.
  std::map<std::string, std::string> files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(folder_.path())) {
      const fs::path name = entry.path().filename();
      files[name.string()] = folder_.contentOf(name.u16string());
    }
    return files;
  }
  std::string filesText() const {
    std::string text;
    for (const auto& file : files()) text += file.first + " ";
    return text;
  }

  // Who is not the owner may look into the folder; more, or nothing else, the owner too.
  void permit(fs::perms owner) const {
    fs::permissions(folder_.path(), owner | fs::perms::group_read | fs::perms::group_exec |
                                        fs::perms::others_read | fs::perms::others_exec);
  }
  void forbidWriting() const { permit(fs::perms::owner_read | fs::perms::owner_exec); }

  void copyTo(const std::string& name) const {
    for (const char* end : {"", "-wal"}) {
      fs::copy_file(path_ + end, folder_.path() / (name + end));
    }
  }

  tarvo::test::TemporaryFolder folder_;
  std::string path_ = (folder_.path() / "d.db").string();
  JsonValue document_ = readJsonText(
      R"({"sqlite": "d", "query": "SELECT n FROM t", "sum": "SELECT sum(n) FROM t"})", "j");
};

TEST_F(DatabaseFilesTest, OneWithALogAtWhichNobodyWorksIsReadAndNothingIsLeftBesideIt) {
  makeWithLog();
  const auto before = files();
  const auto time = fs::last_write_time(path_);
  {
    const auto database = open(path_);
    EXPECT_EQ(filesText(), "d.db ") << "not even meanwhile: who is killed leaves nothing";
  }
  EXPECT_EQ(sum(), "number 6");
  EXPECT_EQ(files(), before);
  EXPECT_EQ(fs::last_write_time(path_), time);
}

TEST_F(DatabaseFilesTest, WhatStandsInTheLogOfOneWhoIsAtWorkIsSeen) {
  makeWithLog();
  const Writer writer(path_, kAddTwo);
  ASSERT_TRUE(writer.isReady());
  ASSERT_EQ(filesText(), "d.db d.db-shm d.db-wal ");
  const auto before = files();
  EXPECT_EQ(sum(), "number 36");
  auto after = files();
  after["d.db-shm"] = before.at("d.db-shm");  // readers say there what they read
  EXPECT_EQ(after, before);
}

TEST_F(DatabaseFilesTest, WhatIsNotCommittedIsNotSeen) {
  makeWithLog();
  const Writer writer(path_, "BEGIN; INSERT INTO t VALUES(100)");
  ASSERT_TRUE(writer.isReady());
  EXPECT_EQ(sum(), "number 6");
}

TEST_F(DatabaseFilesTest, WhatOthersAtWorkCommitMeanwhileIsNotSeen) {
  makeWithLog();
  const Writer writer(path_, kAddTwo);
  ASSERT_TRUE(writer.isReady());
  const auto source = records();
  runSql(path_, "DELETE FROM t; PRAGMA wal_checkpoint(TRUNCATE)");
  EXPECT_EQ(test::recordsOf(*source).size(), 5U);
  EXPECT_EQ(test::recordsOf(*source).size(), 5U) << "again";
}

TEST_F(DatabaseFilesTest, WhatStandsInTheLogOfOneWhoHasCrashedIsSeen) {
  makeWithLog();
  Writer writer(path_, kAddTwo);
  ASSERT_TRUE(writer.isReady());
  writer.crash();
  ASSERT_EQ(filesText(), "d.db d.db-shm d.db-wal ");
  EXPECT_EQ(sum(), "number 36");
  EXPECT_EQ(filesText(), "d.db d.db-shm d.db-wal ");
}

TEST_F(DatabaseFilesTest, ACopyWithItsLogIsReadWholeAndNothingIsMadeOrTakenIn) {
  makeWithLog();
  Writer writer(path_, kAddTwo);
  ASSERT_TRUE(writer.isReady());
  copyTo("copy");
  writer.crash();
  const auto before = files();
  const std::string copy = (folder_.path() / "copy").string();
  EXPECT_EQ(sumIn(copy), "number 36");
  EXPECT_EQ(files(), before);
}

TEST_F(DatabaseFilesTest, AnEmptyLogIsNoTrouble) {
  makeWithLog();
  folder_.write(u"d.db-wal", "");
  EXPECT_EQ(sum(), "number 6");
  EXPECT_EQ(filesText(), "d.db d.db-wal ");
}

TEST_F(DatabaseFilesTest, ALogThatTheDatabaseDoesNotKnowOfIsNoTrouble) {
  runSql(path_, "CREATE TABLE t(n); INSERT INTO t VALUES(6)");
  for (const std::string log : {"", "this is no log"}) {
    folder_.write(u"d.db-wal", log);
    const auto before = files();
    EXPECT_EQ(sum(), "number 6");
    EXPECT_EQ(files(), before);
  }
}

TEST_F(DatabaseFilesTest, ALinkHasTheLogOfWhatItLeadsTo) {
  makeWithLog();
  const Writer writer(path_, kAddTwo);
  ASSERT_TRUE(writer.isReady());
  const std::string link = (folder_.path() / "link").string();
  fs::create_symlink("d.db", link);
  EXPECT_EQ(sumIn(link), "number 36");
  EXPECT_EQ(filesText(), "d.db d.db-shm d.db-wal link ");
}

TEST_F(DatabaseFilesTest, ANameMayHoldWhatMeansSomethingElsewhere) {
  const std::string odd = (folder_.path() / "año ?immutable=1&x#y%41.db").string();
  runSql(odd, "PRAGMA journal_mode=WAL; CREATE TABLE t(n); INSERT INTO t VALUES(5)");
  EXPECT_EQ(sumIn(odd), "number 5");
  EXPECT_EQ(files().size(), 1U);
}

// --- Others who come while it is read.

TEST_F(DatabaseFilesTest, AChangeOfOneThatIsNotLockedIsTold) {
  makeWithLog();
  const auto source = records();
  EXPECT_EQ(test::recordsOf(*source).size(), 3U);
  runSql(path_, "DELETE FROM t");
  EXPECT_THAT(mistakeOf([&] { test::recordsOf(*source); }),
              EndsWith("d.db: somebody changed the database while it was read: print again"));
  EXPECT_THAT(mistakeOf([&] { test::recordsOf(*source); }), HasSubstr("somebody changed"));
}

TEST_F(DatabaseFilesTest, AChangeOfACopyWithItsLogIsTold) {
  makeWithLog();
  Writer writer(path_, kAddTwo);
  ASSERT_TRUE(writer.isReady());
  copyTo("copy");
  writer.crash();
  path_ = (folder_.path() / "copy").string();
  const auto source = records();
  EXPECT_EQ(test::recordsOf(*source).size(), 5U);
  const Writer other(path_, "INSERT INTO t VALUES(7)");
  ASSERT_TRUE(other.isReady());
  EXPECT_THAT(mistakeOf([&] { test::recordsOf(*source); }), HasSubstr("somebody changed"));
}

TEST_F(DatabaseFilesTest, AChangeWithinTheSameTickOfTheFilesClockIsTold) {
  makeWithLog();
  std::string content = folder_.contentOf(u"d.db");
  const auto change = [&] {
    ++content[63];  // of a number that SQLite keeps for its users
    folder_.write(u"d.db", content);
    const auto now = fs::file_time_type::clock::now().time_since_epoch();
    fs::last_write_time(path_, fs::file_time_type(now - now % std::chrono::milliseconds(20)));
  };
  for (int i = 0; i < 5; ++i) {
    change();
    const auto database = open(path_);
    change();
    EXPECT_THAT(mistakeOf([&] { database->requireUnchanged(document_); }),
                HasSubstr("somebody changed"));
  }
}

TEST_F(DatabaseFilesTest, AReaderWhoComesAndGoesIsNoChange) {
  makeWithLog();
  const auto source = records();
  runSql(path_, "SELECT * FROM t");
  EXPECT_EQ(test::recordsOf(*source).size(), 3U);
}

TEST_F(DatabaseFilesTest, OneThatSomebodyHasForHimselfIsLocked) {
  makeWithLog();
  const Writer writer(path_, "PRAGMA locking_mode=EXCLUSIVE; INSERT INTO t VALUES(10)");
  ASSERT_TRUE(writer.isReady());
  ASSERT_EQ(filesText(), "d.db d.db-wal ");
  EXPECT_THAT(mistake(), EndsWith("d.db: database is locked"));
  EXPECT_EQ(filesText(), "d.db d.db-wal ");
}

// --- Without permissions.

TEST_F(DatabaseFilesTest, IsReadInAFolderWhereNothingCanBeMade) {
  makeWithLog();
  forbidWriting();
  const WithoutPrivileges nobody;
  if (!nobody.areThey()) GTEST_SKIP() << kCannotLeave;
  EXPECT_THROW(runSql(path_, "SELECT * FROM t"), std::runtime_error) << "the plain way fails";
  EXPECT_EQ(sum(), "number 6");
}

TEST_F(DatabaseFilesTest, ALogIsSeenInAFolderWhereNothingCanBeMade) {
  makeWithLog();
  Writer writer(path_, kAddTwo);
  ASSERT_TRUE(writer.isReady());
  copyTo("copy");
  forbidWriting();
  const WithoutPrivileges nobody;
  if (!nobody.areThey()) GTEST_SKIP() << kCannotLeave;
  EXPECT_EQ(sum(), "number 36") << "of one who is at work";
  EXPECT_EQ(sumIn((folder_.path() / "copy").string()), "number 36") << "of a copy";
  writer.crash();
  EXPECT_EQ(sum(), "number 36") << "of one who has crashed";
  EXPECT_EQ(filesText(), "copy copy-wal d.db d.db-shm d.db-wal ");
}

TEST_F(DatabaseFilesTest, ALogThatMayNotBeReadIsTold) {
  makeWithLog();
  Writer writer(path_, kAddTwo);
  ASSERT_TRUE(writer.isReady());
  copyTo("copy");
  for (const char* name : {"copy-wal", "d.db-wal"}) {
    fs::permissions(folder_.path() / name, fs::perms::none);
  }
  permit(fs::perms::owner_all);
  const WithoutPrivileges nobody;
  if (!nobody.areThey()) GTEST_SKIP() << kCannotLeave;
  EXPECT_THAT(mistake(), EndsWith("d.db: unable to open database file: it, or what belongs to it "
                                  "beside it (-wal, -shm, -journal), cannot be read"));
  EXPECT_THAT(mistakeOf([&] { sumIn((folder_.path() / "copy").string()); }),
              HasSubstr("unable to open database file: it, or what belongs to it"));
}

TEST_F(DatabaseFilesTest, ADatabaseThatMayNotBeReadIsTold) {
  makeWithLog();
  permit(fs::perms::owner_all);
  fs::permissions(path_, fs::perms::none);
  const WithoutPrivileges nobody;
  if (!nobody.areThey()) GTEST_SKIP() << kCannotLeave;
  EXPECT_THAT(mistake(), HasSubstr("d.db: unable to open database file"));
}

// --- The journal of a writer who has crashed.

class HotJournalTest : public DatabaseFilesTest {
 protected:
  // Its second half is written, and would be read; the journal has what was there before.
  void makeHalfWritten() {
    runSql(path_,
           "CREATE TABLE t(n INTEGER, filler TEXT);"
           "WITH RECURSIVE i(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM i WHERE n < 500)"
           " INSERT INTO t SELECT 1, printf('%0200d', n) FROM i");
    Writer writer(path_, "PRAGMA cache_size=2; PRAGMA cache_spill=1; BEGIN; UPDATE t SET n = 1000");
    ASSERT_TRUE(writer.isReady());
    writer.crash();
    ASSERT_EQ(filesText(), "d.db d.db-journal ");
    // A header that says how much is in the journal makes it one that has to be rolled back.
    ASSERT_NE(folder_.contentOf(u"d.db-journal")[0], '\0');
  }
};

TEST_F(HotJournalTest, IsToldAndNothingIsReadOrChanged) {
  makeHalfWritten();
  const auto before = files();
  EXPECT_THAT(mistake(), HasSubstr("d.db: attempt to write a readonly database: a writer was "
                                   "interrupted; what it left beside the database has to be"));
  EXPECT_EQ(files(), before);
  runSql(path_, "SELECT * FROM t");
  EXPECT_EQ(sum(), "number 500") << "when somebody has rolled it back";
}

TEST_F(HotJournalTest, BesideADatabaseWithALogIsToldToo) {
  makeHalfWritten();
  const std::string journal = folder_.contentOf(u"d.db-journal");
  runSql(path_, "PRAGMA journal_mode=WAL");
  folder_.write(u"d.db-journal", journal);
  const auto before = files();
  EXPECT_THAT(mistake(), HasSubstr("a writer was interrupted"));
  EXPECT_EQ(files(), before);
}

TEST_F(HotJournalTest, OneThatIsDoneWithIsNoTrouble) {
  makeWithLog();
  folder_.write(u"d.db-journal", std::string(512, '\0'));
  EXPECT_EQ(sum(), "number 6");
  folder_.write(u"d.db-journal", "");
  EXPECT_EQ(sum(), "number 6");
  EXPECT_EQ(filesText(), "d.db d.db-journal ");
}

}  // namespace
}  // namespace tarvordp
