#include "tarvordp/job/query_records.h"

#include <gmock/gmock.h>

#include <chrono>
#include <string>
#include <vector>

#include "equipment/temporary_folder.h"
#include "job_testing.h"

namespace tarvordp {
namespace {

using test::mistakeOf;
using test::runSql;
using testing::EndsWith;
using testing::HasSubstr;
using Records = std::vector<std::string>;

class QueryTest : public testing::Test {
 protected:
  QueryTest() {
    runSql(path_,
           "CREATE TABLE t(code TEXT, amount REAL, count INTEGER, day TEXT, other BLOB);"
           "INSERT INTO t VALUES('A-1', 1250.5, 3, '2026-03-15', NULL);"
           "INSERT INTO t VALUES('Ñandú', 0.1, -1, '', x'00ff');");
  }

  // The query as a job file has it.
  void write(const std::string& sql, const std::string& parameters = "") {
    std::string json = R"({"sqlite": "d", "query": ")" + sql + "\"";
    if (!parameters.empty()) json += ", \"parameters\": " + parameters;
    document_ = readJsonText(json + "}", "j");
  }

  std::shared_ptr<const Database> open() {
    return std::make_shared<Database>(path_, *document_.find("sqlite"));
  }

  std::unique_ptr<RecordSource> records() {
    return makeQueryRecords(open(), *document_.find("query"), document_.find("parameters"));
  }

  Records recordsOf(const std::string& sql, const std::string& parameters = "") {
    write(sql, parameters);
    return test::recordsOf(*records());
  }

  std::string mistakeIn(const std::string& sql, const std::string& parameters = "") {
    std::string mistake = mistakeOf([&] { recordsOf(sql, parameters); });
    const std::size_t folder = mistake.find(path_);
    if (folder != std::string::npos) mistake.replace(folder, path_.size(), "d");
    return mistake;
  }

  tarvo::test::TemporaryFolder folder_;
  std::string path_ = (folder_.path() / "d.db").string();
  JsonValue document_;
};

TEST_F(QueryTest, ValuesAreWhatTheDatabaseSays) {
  EXPECT_EQ(recordsOf("SELECT code, amount, count, NULL AS n FROM t"),
            (Records{"text A-1 | number 1250.5 | number 3 | none",
                     "text Ñandú | number 0.1 | number -1 | none"}));
}

TEST_F(QueryTest, AColumnMaySayItsKind) {
  EXPECT_EQ(recordsOf("SELECT day AS 'f:date', code AS 'e:enum', count > 0 AS 'b:bool',"
                      " '1,5' AS 'n:number', count AS 't:text', count AS 'c:enum' FROM t"),
            (Records{"date 46096.000000 | enum A-1 | true | number 1.5 | text 3 | enum 3",
                     "none | enum Ñandú | false | number 1.5 | text -1 | enum -1"}));
  EXPECT_EQ(recordsOf("SELECT NULL AS 'f:date', NULL AS 't:text', '' AS 'u:text', '' AS 'b:bool',"
                      " '' AS 'n:number', '2026-03-15 06:00:00' AS 'g:date'"),
            (Records{"none | none | text  | none | none | date 46096.250000"}));
}

TEST_F(QueryTest, RealNumbersAreTheDecimalsThatWereStored) {
  EXPECT_EQ(
      recordsOf("SELECT 2.675, 1.00005 AS b, 0.12345 AS c, 1e3 AS d, 0.1+0.2 AS e, 12345.6789 "
                "AS f"),
      (Records{"number 2.675 | number 1 | number 0.1234 | number 1000 | number 0.3 | number "
               "12345.6789"}));
}

TEST_F(QueryTest, NamesAreFoundWithoutCaseAndKind) {
  write("SELECT day AS 'Venta.fecha:date' FROM t");
  const auto source = records();
  source->restart();
  Record record;
  ASSERT_TRUE(source->next(record));
  EXPECT_NE(record.find(u"VENTA.FECHA"), nullptr);
}

TEST_F(QueryTest, ParametersAreBoundAndNeverPasted) {
  EXPECT_EQ(recordsOf("SELECT :a AS a, @b AS b, $c AS c, :d AS d, :e AS e",
                      R"({"a": "x'; DROP TABLE t; --", "b": 12, "c": 1.5, "d": true, "e": null})"),
            (Records{"text x'; DROP TABLE t; -- | number 12 | number 1.5 | number 1 | none"}));
  EXPECT_EQ(recordsOf("SELECT :n AS n", R"({"n": -1e-400})"), (Records{"number 0"}));
  EXPECT_EQ(recordsOf("SELECT count FROM t WHERE code = :code", R"({"code": "Ñandú"})"),
            (Records{"number -1"}));
  EXPECT_EQ(recordsOf("SELECT :n = 9007199254740993 AS a, typeof(:n) AS b, typeof(:f) AS c",
                      R"({"n": 9007199254740993, "f": 2.0})"),
            (Records{"number 1 | text integer | text real"}));
}

TEST_F(QueryTest, RunsAgainAfterARestart) {
  write("SELECT code FROM t");
  const auto source = records();
  EXPECT_EQ(test::recordsOf(*source), (Records{"text A-1", "text Ñandú"}));
  EXPECT_EQ(test::recordsOf(*source), (Records{"text A-1", "text Ñandú"}));
}

TEST_F(QueryTest, MayFindNothing) { EXPECT_EQ(recordsOf("SELECT * FROM t WHERE 0"), Records{}); }

TEST_F(QueryTest, EveryPathRoundsHalfToEven) {
  EXPECT_EQ(recordsOf("SELECT 0.12345, '0.12345' AS 'b:number', '0,12355' AS 'c:number',"
                      " CAST('0.12355' AS REAL) AS d, -0.12345 AS 'e:number',"
                      " 922337203685477 AS f, -922337203685477 AS 'g:number'"),
            (Records{"number 0.1234 | number 0.1234 | number 0.1236 | number 0.1236 | "
                     "number -0.1234 | number 922337203685477 | number -922337203685477"}));
}

struct WrongQuery {
  const char* sql;
  const char* parameters;
  const char* mistake;
};

const WrongQuery kWrong[] = {
    {"SELECT x FROM t", "", "j: /query: d: no such column: x"},
    {"SELECT * FROM nada", "", "j: /query: d: no such table: nada"},
    {"SELEC 1", "", "j: /query: d: near \"SELEC\": syntax error"},
    {"", "", "j: /query: there is no query"},
    {" -- nothing ", "", "j: /query: there is no query"},
    {"SELECT 1; SELECT 2", "", "j: /query: must be one statement only"},
    {"DELETE FROM t", "", "j: /query: must be a query that gives rows"},
    {"INSERT INTO t(code) VALUES('x') RETURNING code", "",
     "j: /query: must be a query that changes nothing"},
    {"PRAGMA journal_mode=DELETE", "", "j: /query: must be a query that changes nothing"},
    {"PRAGMA wal_checkpoint", "", "j: /query: must be a query that changes nothing"},
    {"SELECT code, code FROM t", "", "j: /query: the name \"code\" stands twice"},
    {"SELECT 1 AS 'a:hora'", "",
     "j: /query: column \"a:hora\": \"hora\" is no kind: there are :date, :enum, :bool, :number "
     "and "
     ":text"},
    {"SELECT other FROM t", "", "j: /query: d: row 2: other: a BLOB cannot be printed"},
    {"SELECT code AS 'code:number' FROM t", "", "j: /query: d: row 1: code: \"A-1\" is no number"},
    {"SELECT day AS 'day:date' FROM t UNION ALL SELECT '15/3/26'", "",
     "j: /query: d: row 3: day: \"15/3/26\" is no date: write YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS"},
    {"SELECT count AS 'c:date' FROM t", "",
     "j: /query: d: row 1: c: \"3\" is no date: write YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS"},
    {"SELECT 5 AS 'b:bool'", "",
     "j: /query: d: row 1: b: \"5\" is neither true nor false: write true/false, 1/0, S/N or "
     "sí/no"},
    {"SELECT 9223372036854775807 AS n", "",
     "j: /query: d: row 1: n: \"9223372036854775807\" is no amount: the greatest one is "
     "922337203685477.5807, and the least one is -922337203685477.5808"},
    {"SELECT 1e300 AS n", "",
     "j: /query: d: row 1: n: \"1e+300\" is no amount: the greatest one is 922337203685477.5807, "
     "and the least one is -922337203685477.5808"},
    {"SELECT '1.234,56' AS 'n:number'", "",
     "j: /query: d: row 1: n: \"1.234,56\" is no number: write one \",\" or \".\" before its "
     "decimals, and nothing between its thousands"},
    {"SELECT 1 AS Año, 2 AS AÑO", "", "j: /query: the name \"AÑO\" stands twice"},
    {"SELECT '2025-02-29' AS 'd:date'", "",
     "j: /query: d: row 1: d: \"2025-02-29\" is no day of the calendar"},
    {"SELECT 9e999 AS n", "", "j: /query: d: row 1: n: \"inf\" is no number"},
    {"SELECT CAST(x'f1' AS TEXT) AS n", "", "j: /query: d: row 1: n: a text is not UTF-8"},
    {"SELECT abs(-9223372036854775808)", "", "j: /query: d: integer overflow"},
    {"SELECT :a AS a", "", "j: /query: the parameter \"a\" has no value in \"parameters\""},
    {"SELECT :a AS a", R"({"b": 1})",
     "j: /query: the parameter \"a\" has no value in \"parameters\""},
    {"SELECT 1", R"({"b": 1})", "j: /parameters/b: the query has no parameter \"b\""},
    {"SELECT 1", "[1]", "j: /parameters: must be an object, not an array"},
    {"SELECT ? AS a", R"({"1": 1})",
     "j: /query: d: a parameter has no name: write :NAME in place of \"?\""},
    {"SELECT :a AS a", R"({"a": [1]})",
     "j: /parameters/a: a parameter must be a text, a number, true, false or null, not an array"},
};

TEST_F(QueryTest, WhatIsWrongIsToldWithItsPlace) {
  for (const WrongQuery& row : kWrong) {
    EXPECT_EQ(mistakeIn(row.sql, row.parameters), row.mistake) << row.sql;
  }
}

TEST_F(QueryTest, TheFirstRowAddsItsValues) {
  write("SELECT code AS 'Cliente.Codigo', amount FROM t ORDER BY amount DESC");
  NamedValues values;
  values.put(u"AMOUNT", TextValue{u"before"});
  readFirstRow(open(), *document_.find("query"), nullptr, values);
  EXPECT_EQ(test::valueText(*values.find(u"CLIENTE.CODIGO")), "text A-1");
  EXPECT_EQ(test::valueText(*values.find(u"AMOUNT")), "number 1250.5");

  write("SELECT code FROM t WHERE 0");
  EXPECT_EQ(mistakeOf([&] { readFirstRow(open(), *document_.find("query"), nullptr, values); }),
            "j: /query: the query found no row");
}

TEST_F(QueryTest, ADatabaseThatIsMissingBrokenOrAFolderIsTold) {
  write("SELECT 1");
  folder_.write(u"broken.db",
                "this is no database, whatever its name is; far from it, rather, but "
                "it is long enough to be looked at as if it were one of them all");
  const auto mistakeOfOpening = [&](const std::string& path) {
    return mistakeOf([&] { Database(path, *document_.find("sqlite")); });
  };
  EXPECT_EQ(mistakeOfOpening("/nowhere/d.db"),
            "j: /sqlite: /nowhere/d.db: there is no such database");
  EXPECT_EQ(mistakeOfOpening("/tmp"), "j: /sqlite: /tmp: is a folder, no database");
  EXPECT_THAT(mistakeOfOpening((folder_.path() / "broken.db").string()),
              EndsWith("broken.db: file is not a database"));
  std::filesystem::resize_file(path_, std::filesystem::file_size(path_) - 100);
  EXPECT_THAT(mistakeOf([&] { open(); }),
              EndsWith("d.db: the database is not whole: its last page is torn"));
  std::filesystem::resize_file(path_, 4096);
  EXPECT_THAT(mistakeIn("SELECT * FROM t"), HasSubstr("database disk image is malformed"));
}

TEST_F(QueryTest, ALockedDatabaseIsWaitedForAndThenTold) {
  write("SELECT 1");
  sqlite3* writer = nullptr;
  sqlite3_open(path_.c_str(), &writer);
  ASSERT_EQ(sqlite3_exec(writer, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THAT(mistakeOf([&] { open(); }),
              testing::AllOf(HasSubstr("j: /sqlite: "), EndsWith("d.db: database is locked")));
  EXPECT_GT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
  sqlite3_exec(writer, "ROLLBACK", nullptr, nullptr, nullptr);
  EXPECT_EQ(recordsOf("SELECT 1"), Records{"number 1"}) << "when the lock is gone";
  sqlite3_close(writer);
}

TEST_F(QueryTest, AnEmptyTextIsAValueOfAnEnumerationAndOfATextAlone) {
  EXPECT_EQ(recordsOf("SELECT '' AS 'E:enum', '' AS 'T:text', '' AS 'N:number', '' AS 'D:date'"),
            Records{"enum  | text  | none | none"});
}

TEST_F(QueryTest, StaysAtItsEnd) {
  write("SELECT code FROM t");
  const auto source = records();
  EXPECT_EQ(test::recordsOf(*source).size(), 2U);
  Record record;
  EXPECT_FALSE(source->next(record)) << "the database would begin anew";
  EXPECT_EQ(test::recordsOf(*source).size(), 2U);
}

}  // namespace
}  // namespace tarvordp
