// Reports from CSV files and databases, and from many records.
#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <stdexcept>

#include "print_testing.h"

namespace tarvordp {
namespace {

using testing::HasSubstr;

class DataTest : public test::PrintTest {
 protected:
  void runSql(const std::string& sql) {
    sqlite3* database = nullptr;
    sqlite3_open(pathOf("d.db").c_str(), &database);
    const int result = sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr);
    sqlite3_close(database);
    if (result != SQLITE_OK) throw std::runtime_error(sql);
  }

  void writeInvoice(const std::string& more = "") {
    runSql(
        "CREATE TABLE invoice(number INTEGER, customer TEXT, day TEXT);"
        "CREATE TABLE line(invoice INTEGER, code TEXT, amount REAL);"
        "INSERT INTO invoice VALUES(7, 'Peña e Hijos', '2026-03-15');"
        "INSERT INTO line VALUES(7, 'A-1', 1250.5), (7, 'A-2', 0.1), (8, 'B', 5);");
    writeMasterDetail(
        "{FACTURA.NUMERO,4,0} {CLIENTE.NOMBRE} {FACTURA.FECHA}\n{CUERPO=2}\n"
        "{R.CODIGO,5}{R.MONTO,10}\n{FINCUERPO}\n",
        R"(, "recordQuery": {"sqlite": "d.db", "query": "SELECT number AS 'Factura.Numero', )"
        R"(customer AS 'Cliente.Nombre', day AS 'Factura.Fecha:date' FROM invoice )"
        R"(WHERE number = :n", "parameters": {"n": 7}},
             "details": {"sqlite": "d.db", "query": "SELECT code AS 'R.Codigo', )"
        R"(amount AS 'R.Monto' FROM line WHERE invoice = @n", "parameters": {"n": 7}},
             "subtotal": "R.MONTO")" +
            more);
  }

  static constexpr const char* kInvoice =
      "   7 Pe<A4>a e Hijos 15/03/2026<0D><0A>\nA-1    1.250,50<0D><0A>\nA-2        0,10<0D><0A>\n"
      "<0C>";
};

TEST_F(DataTest, AnInvoiceFromADatabase) {
  writeInvoice();
  const test::Outcome outcome = print({"--copies", "2"});
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_EQ(printed(), std::string(kInvoice) + kInvoice);
}

TEST_F(DataTest, AnInvoiceFromACsvFile) {
  write("d.csv", "R.Codigo,R.Monto:number,R.Fecha:date\r\nA-1,\"1250,5\",\r\nA-2,-.1,\r\n");
  writeMasterDetail("{CUERPO=2}\n{R.CODIGO,5}{R.MONTO,10} {R.FECHA}\n{FINCUERPO}\n",
                    R"(, "details": {"csv": "d.csv"}, "subtotal": "R.MONTO")");
  EXPECT_THAT(print().err, HasSubstr("line 3: R.Monto: \"-.1\" is no number"));
  write("d.csv", "R.Codigo,R.Monto:number,R.Fecha:date\r\nA-1,\"1250,5\",\r\nA-2,-0.1,\r\n");
  EXPECT_EQ(print().status, kDone);
  EXPECT_EQ(printed(),
            "A-1    1.250,50 No se encontr<A2><0D><0A>\nA-2       -0,10 No se encontr<A2><0D><0A>\n"
            "<0C>");
}

TEST_F(DataTest, AnErrorOfTheDatabasePrintsNothing) {
  writeInvoice();
  runSql("DROP TABLE line");
  test::Outcome outcome = print();
  EXPECT_EQ(outcome.status, kWrongInput);
  EXPECT_EQ(outcome.err, "tarvordp: j.json: /details/query: d.db: no such table: line\n");
  EXPECT_FALSE(has("out.prn"));

  runSql("DELETE FROM invoice");
  outcome = print();
  EXPECT_EQ(outcome.status, kWrongInput);
  EXPECT_EQ(outcome.err, "tarvordp: j.json: /recordQuery/query: the query found no row\n");
}

TEST_F(DataTest, ALockedDatabasePrintsNothing) {
  writeInvoice();
  sqlite3* writer = nullptr;
  sqlite3_open(pathOf("d.db").c_str(), &writer);
  sqlite3_exec(writer, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
  const test::Outcome outcome = print();
  sqlite3_close(writer);
  EXPECT_EQ(outcome.status, kWrongInput);
  EXPECT_EQ(outcome.err, "tarvordp: j.json: /recordQuery/sqlite: d.db: database is locked\n");
  EXPECT_FALSE(has("out.prn"));
}

TEST_F(DataTest, DataThatBecomeWrongWhileTheyArePrintedAreARunTimeError) {
  std::string content = "N:number\n";
  for (int i = 0; i < 1500; ++i) content += "1\n";
  write("d.csv", content);
  // The first copy is on its way when the pause asks; the file is shorter by then.
  writeMasterDetail("{CUERPO=50}\n{N}\n{FINCUERPO}\n",
                    R"(, "details": {"csv": "d.csv"}, "copies": 2)");
  struct Shortener : std::streambuf {
    std::string path;
    int_type underflow() override {
      std::ofstream(path, std::ios::trunc) << "N:number\n1\nx\n";
      setg(&enter, &enter, &enter + 1);
      return traits_type::to_int_type(enter);
    }
    char enter = '\n';
  } shortener;
  shortener.path = pathOf("d.csv");
  inIsTerminal_ = true;
  std::streambuf* const before = std::cin.rdbuf(&shortener);
  const test::Outcome outcome = print();
  std::cin.rdbuf(before);
  std::cin.clear();
  EXPECT_EQ(outcome.status, kRunTimeError);
  EXPECT_THAT(outcome.err, HasSubstr("tarvordp: run-time error 57: j.json: /details/csv: d.csv: "
                                     "somebody changed the file while it was read: print "
                                     "again\n   en "));
  EXPECT_FALSE(has("out.prn"));
}

// Of the process, in bytes.
std::size_t residentMemory() {
  std::ifstream file("/proc/self/statm");
  std::size_t total = 0;
  std::size_t resident = 0;
  file >> total >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMemoryCanBeMeasured = false;
#else
constexpr bool kMemoryCanBeMeasured = true;
#endif

TEST_F(DataTest, ThirtyThousandRecordsStayInTheDatabase) {
  if (!kMemoryCanBeMeasured) GTEST_SKIP() << "the address sanitizer keeps what was given back";
  runSql(
      "CREATE TABLE t(code TEXT, amount REAL);"
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 32000)"
      " INSERT INTO t SELECT printf('%0200d', i), i FROM n;");
  writeMasterDetail("{CUERPO=50}\n{CODE}{AMOUNT,12}\n{FINCUERPO}\n",
                    R"(, "details": {"sqlite": "d.db", "query": "SELECT * FROM t"},
                         "subtotal": "amount")");
  print({"--printer", "file:/dev/null"});  // once, so that everything is there
  const std::size_t before = residentMemory();
  const test::Outcome outcome = print();
  const std::size_t after = residentMemory();
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, kDone);
  EXPECT_EQ(std::filesystem::file_size(pathOf("out.prn")), 32'000U * 214 + 640);
  EXPECT_LT(after, before + 4'000'000) << "the records would take ten times as much";
}

}  // namespace
}  // namespace tarvordp
