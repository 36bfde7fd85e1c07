#include "tarvordp/job/csv_records.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "equipment/temporary_folder.h"
#include "job_testing.h"

namespace tarvordp {
namespace {

using test::mistakeOf;
using Records = std::vector<std::string>;

class CsvTest : public testing::Test {
 protected:
  std::string pathOf(const std::string& content) {
    folder_.write(u"d.csv", content);
    return (folder_.path() / "d.csv").string();
  }

  Records recordsOf(const std::string& content) {
    return test::recordsOf(*makeCsvRecords(pathOf(content), where_));
  }

  // Without the place in the job file and the folder.
  std::string mistakeIn(const std::string& content) {
    const std::string mistake = mistakeOf([&] { recordsOf(content); });
    const std::string head = "j: /csv: " + folder_.path().string() + "/";
    return mistake.starts_with(head) ? mistake.substr(head.size()) : mistake;
  }

  tarvo::test::TemporaryFolder folder_;
  JsonValue document_ = readJsonText(R"({"csv": "d.csv"})", "j");
  const JsonValue& where_ = *document_.find("csv");
};

TEST_F(CsvTest, HasColumnNamesFirstAndTextsWithoutAKind) {
  EXPECT_EQ(recordsOf("A,B\n1,x\n,\n"), (Records{"text 1 | text x", "text  | text "}));
}

TEST_F(CsvTest, EveryLineEndServesAndTheLastRowNeedsNone) {
  const Records expected{"text 1", "text 2"};
  for (const char* content :
       {"A\n1\n2\n", "A\r\n1\r\n2\r\n", "A\n1\n2", "A\r\n1\r\n2", "A\r1\r2"}) {
    EXPECT_EQ(recordsOf(content), expected) << content;
  }
}

TEST_F(CsvTest, AByteOrderMarkIsNoPartOfTheFirstName) {
  const auto records = makeCsvRecords(pathOf("\xEF\xBB\xBF"
                                             "AÑO\n2026\n"),
                                      where_);
  records->restart();
  Record record;
  ASSERT_TRUE(records->next(record));
  ASSERT_NE(record.find(u"AÑO"), nullptr);
}

TEST_F(CsvTest, QuotedCellsHoldCommasLineEndsAndQuotationMarks) {
  EXPECT_EQ(recordsOf("A,B\n\"x,y\",\"di \"\"ya\"\"\"\n\"uno\r\ndos\",\"\"\n"),
            (Records{"text x,y | text di \"ya\"", "text uno\r\ndos | text "}));
}

TEST_F(CsvTest, BlanksBelongToTheirCells) {
  EXPECT_EQ(recordsOf("A,B\n  x ,\t\n"), (Records{"text   x  | text \t"}));
}

TEST_F(CsvTest, BlankLinesAreSkipped) {
  EXPECT_EQ(recordsOf("\n\r\nA,B\n\n1,2\n   \n\t\n3,4\n\n"),
            (Records{"text 1 | text 2", "text 3 | text 4"}));
  EXPECT_EQ(recordsOf("\xEF\xBB\xBF\n \nA,B\r \r1,2\r"), Records{"text 1 | text 2"});
}

TEST_F(CsvTest, BlankLinesAreSkippedInATableOfOneColumnToo) {
  EXPECT_EQ(recordsOf("\t\nA\n \n\n1\n\t\r\n\r\n2\n  "), (Records{"text 1", "text 2"}));
  EXPECT_EQ(recordsOf("A\r \r\r1\r"), Records{"text 1"});
}

TEST_F(CsvTest, AQuotedCellOfATableOfOneColumnIsARecordWhateverItHolds) {
  EXPECT_EQ(recordsOf("A\n\"\"\n\" \t\"\n\"\n\n\"\n"), (Records{"text ", "text  \t", "text \n\n"}));
  EXPECT_EQ(recordsOf("N:number\n\"\"\n\n7\n"), (Records{"none", "number 7"}));
}

TEST_F(CsvTest, ANumberHasOneCommaOrPointAndIsNeverAnotherAmount) {
  EXPECT_EQ(recordsOf("N:number\n1.234\n\"1,234\"\n\"-0,12345\"\n1e2\n"),
            (Records{"number 1.234", "number 1.234", "number -0.1234", "number 100"}));
  for (const std::string number : {"1.234,56", "1,234.56", "1.234.567"}) {
    EXPECT_EQ(mistakeIn("N:number\n1\n\"" + number + "\"\n"),
              "d.csv: line 3: N: \"" + number +
                  "\" is no number: write one \",\" or \".\" before its decimals, and nothing "
                  "between its thousands");
  }
}

TEST_F(CsvTest, NamesAreFoundWithoutCaseWhateverTheirLetters) {
  const auto records = makeCsvRecords(pathOf("Renglón.Año:number\n2026\n"), where_);
  records->restart();
  Record record;
  ASSERT_TRUE(records->next(record));
  EXPECT_NE(record.find(u"RENGLÓN.AÑO"), nullptr);
}

TEST_F(CsvTest, AColumnMaySayItsKind) {
  EXPECT_EQ(recordsOf("F:date,E:enum,B:bool,N:number,T:text\n"
                      "2026-03-15,X,S,\"1,50\",007\n"
                      "2026-03-15 12:00:00,Y,no,-1.5,\n"
                      ",,,,\n"),
            (Records{"date 46096.000000 | enum X | true | number 1.5 | text 007",
                     "date 46096.500000 | enum Y | false | number -1.5 | none",
                     "none | none | none | none | none"}));
}

TEST_F(CsvTest, BooleansAreWrittenInManyWays) {
  EXPECT_EQ(recordsOf("B:bool\ntrue\nTRUE\n1\nS\ns\nsí\nSÍ\nsi\n"), Records(8, "true"));
  EXPECT_EQ(recordsOf("B:bool\nfalse\n0\nN\nn\nno\nNo\n"), Records(6, "false"));
}

TEST_F(CsvTest, ATableMayHaveNoRecords) {
  EXPECT_EQ(recordsOf("A,B\n"), Records{});
  EXPECT_EQ(recordsOf("A,B"), Records{});
}

TEST_F(CsvTest, IsReadAgainAfterARestart) {
  const auto records = makeCsvRecords(pathOf("A\n1\n2\n"), where_);
  EXPECT_EQ(test::recordsOf(*records), (Records{"text 1", "text 2"}));
  EXPECT_EQ(test::recordsOf(*records), (Records{"text 1", "text 2"}));
  records->restart();
  Record record;
  records->next(record);
  EXPECT_EQ(test::recordsOf(*records), (Records{"text 1", "text 2"})) << "from the middle";
}

struct WrongCsv {
  const char* content;
  const char* mistake;
};

const WrongCsv kWrong[] = {
    {"", "d.csv: there is no row of column names"},
    {"\n\n", "d.csv: there is no row of column names"},
    {"A,B\n1,2\n3\n", "d.csv: line 3: the row has 1 cell, and there are 2 columns"},
    {"A,B\n\n\"x\ny\",2\n1,2,3\n", "d.csv: line 5: the row has 3 cells, and there are 2 columns"},
    {"A,B\n\"\"\n", "d.csv: line 2: the row has 1 cell, and there are 2 columns"},
    {"A,\n1,2\n", "d.csv: line 1: a name is empty"},
    {"A,a\n1,2\n", "d.csv: line 1: the name \"a\" stands twice"},
    {"A,A:date\n1,2\n", "d.csv: line 1: the name \"A\" stands twice"},
    {"A:dat\n1\n",
     "d.csv: line 1: column \"A:dat\": \"dat\" is no kind: there are :date, :enum, :bool, :number "
     "and :text"},
    {"A\n\"x\"y\n",
     "d.csv: line 2: a quotation mark stands where none may: a cell that has one must begin and "
     "end with one, and have those inside twice"},
    {"A\n1\nx\"y\n",
     "d.csv: line 3: a quotation mark stands where none may: a cell that has one must begin and "
     "end with one, and have those inside twice"},
    {"A\n1\n\"x\ny\n", "d.csv: line 3: a cell that begins with a quotation mark never ends"},
    {"A,F:date\n1,2026-02-30\n", "d.csv: line 2: F: \"2026-02-30\" is no day of the calendar"},
    {"A,N:number\n\"a\nb\",1\n1,1.000\n2,1.0.0\n",
     "d.csv: line 5: N: \"1.0.0\" is no number: write one \",\" or \".\" before its decimals, and "
     "nothing between its thousands"},
    {"A\n1\n1,2\n", "d.csv: line 3: the row has 2 cells, and there is 1 column"},
    {"A;B\n1;1,5\n",
     "d.csv: line 1: columns are separated by commas, and those of this file seem to be by \";\""},
    {"A\tB\n1\t1,5\n",
     "d.csv: line 1: columns are separated by commas, and those of this file seem to be by tabs"},
    {"A:number;B\n1;2\n",
     "d.csv: line 1: columns are separated by commas, and those of this file seem to be by \";\""},
    {"A;B:number\n1;2\n",
     "d.csv: line 1: columns are separated by commas, and those of this file seem to be by \";\""},
    {"A,B;C\n1\n", "d.csv: line 2: the row has 1 cell, and there are 2 columns"},
    {"A\r1\r2,3\r", "d.csv: line 3: the row has 2 cells, and there is 1 column"},
    {"A\r\n1\r\n\r\n2,3\r\n", "d.csv: line 4: the row has 2 cells, and there is 1 column"},
    {":number\n1\n", "d.csv: line 1: a name is empty"},
    {"A,AÑO,año\n", "d.csv: line 1: the name \"año\" stands twice"},
    {"N:number\n1e400\n",
     "d.csv: line 2: N: \"1e400\" is no amount: the greatest one is 922337203685477.5807, and the "
     "least one is -922337203685477.5808"},
    {"N:number\n\xF1\n", "d.csv: line 2: N: a text is not UTF-8"},
    {"D:date\n\xF1\n", "d.csv: line 2: D: a text is not UTF-8"},
    {"B:bool\nquizás\n",
     "d.csv: line 2: B: \"quizás\" is neither true nor false: write true/false, 1/0, S/N or sí/no"},
    {"A\n1\nPe\xF1"
     "a\n",
     "d.csv: line 3: A: a text is not UTF-8"},
    {"A\xF1O\n1\n", "d.csv: line 1: a text is not UTF-8"},
};

TEST_F(CsvTest, WhatIsWrongIsToldWithItsLine) {
  for (const WrongCsv& row : kWrong) EXPECT_EQ(mistakeIn(row.content), row.mistake) << row.content;
}

TEST_F(CsvTest, AFileThatCannotBeReadSaysWhy) {
  EXPECT_EQ(mistakeOf([&] { makeCsvRecords("/nowhere/d.csv", where_); }),
            "j: /csv: /nowhere/d.csv: cannot be read: No such file or directory");
  EXPECT_EQ(mistakeOf([&] { makeCsvRecords("/tmp", where_); }),
            "j: /csv: /tmp: cannot be read: Is a directory");
}

}  // namespace
}  // namespace tarvordp
