#include "tarvordp/job/job_value.h"

#include <gmock/gmock.h>

#include "job_testing.h"
#include "tarvordp/job/inline_records.h"

namespace tarvordp {
namespace {

using test::mistakeOf;
using test::valueText;

JobValue read(const std::string& json) { return readJobValue(readJsonText(json, "j")); }

struct ValueCase {
  const char* json;
  const char* value;
};

constexpr ValueCase kValues[] = {
    {R"("Peña")", "text Peña"},
    {R"("")", "text "},
    {R"(12.5)", "number 12.5"},
    {R"(-1e-1)", "number -0.1"},
    {R"({"number": "12.5", "parenthesis": true})", "number 12.5 with parentheses"},
    {R"({"number": "-7", "parenthesis": false})", "number -7"},
    {R"({"number": "0.12345"})", "number 0.1234"},
    {R"(0.12345)", "number 0.1234"},
    {R"(0.12355)", "number 0.1236"},
    {R"(2.675)", "number 2.675"},
    {R"(-922337203685477.5808)", "number -922337203685477.5808"},
    {R"(1e-400)", "number 0"},
    {R"({"date": "2024-02-29"})", "date 45351.000000"},
    {R"(true)", "true"},
    {R"(false)", "false"},
    {R"({"date": "2026-03-15"})", "date 46096.000000"},
    {R"({"date": "2026-03-15T18:00:00"})", "date 46096.750000"},
    {R"({"enum": "X"})", "enum X"},
    {R"({"array": "SNNS"})", "array SNNS width 0 index -1 position -1"},
    {R"({"array": "SN", "maxWidth": 255, "index": -32768, "fill": true, "usePosition": true,
         "position": 32767})",
     "array SN width 255 index -32768 filled by position position 32767"},
    {R"({"lines": ["uno", "dos"]})", "lines [uno] [dos] []"},
    {R"({"lines": []})", "lines []"},
    {R"({"repeat": ["a", 1, null, {"enum": "E"}]})", "repeat [text a] [number 1] [none] [enum E]"},
    {R"({"lines": ["1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11"]})",
     "lines [1] [2] [3] [4] [5] [6] [7] [8] [9] [10] [11] []"},
    {R"({"repeat": [true, 0.12345, {"number": "-1", "parenthesis": true}, {"date": "2026-03-15"},
         {"array": "SN"}, {"lines": ["uno"]}]})",
     "repeat [true] [number 0.1234] [number -1 with parentheses] [date 46096.000000] "
     "[array SN width 0 index -1 position -1] [lines [uno] []]"},
    {R"(null)", "none"},
};

TEST(JobValue, HasAKindForEveryFormOfJson) {
  for (const ValueCase& row : kValues) EXPECT_EQ(valueText(read(row.json)), row.value) << row.json;
}

struct WrongCase {
  const char* json;
  const char* mistake;
};

constexpr WrongCase kWrong[] = {
    {R"([1])",
     "j: the document: must be a value, not an array: write {\"repeat\": [...]} or {\"lines\": "
     "[...]}"},
    {R"({})",
     "j: the document: must have one of the keys \"number\", \"date\", \"enum\", \"array\", "
     "\"lines\", "
     "\"repeat\""},
    {R"({"dat": "2026-03-15"})",
     "j: the document: must have one of the keys \"number\", \"date\", \"enum\", \"array\", "
     "\"lines\", "
     "\"repeat\""},
    {R"({"date": "2026-03-15", "enum": "X"})", "j: /enum: unknown key \"enum\""},
    {R"({"date": 20260315})", "j: /date: must be a text, not a number"},
    {R"({"date": "2026-02-30"})", "j: /date: \"2026-02-30\" is no day of the calendar"},
    {R"({"number": true})",
     "j: /number: must be a text with a number in it, such as \"12.5\", not true or false"},
    {R"({"number": 12.5})",
     "j: /number: must be a text with a number in it, such as \"12.5\", not a number"},
    {R"({"number": "12,5"})",
     "j: /number: \"12,5\" is no number: write \".\" before its decimals, and nothing between its "
     "thousands"},
    {R"({"repeat": [{"number": "1.234,5"}]})",
     "j: /repeat/0/number: \"1.234,5\" is no number: write \".\" before its decimals, and nothing "
     "between its thousands"},
    {R"({"a": 1})",
     "j: the document: must have one of the keys \"number\", \"date\", \"enum\", \"array\", "
     "\"lines\", \"repeat\""},
    {R"({"repeat": [1e300]})",
     "j: /repeat/0: \"1e300\" is no amount: the greatest one is 922337203685477.5807, and the "
     "least one is -922337203685477.5808"},
    {R"({"array": "S", "maxWidth": -1e99})",
     "j: /maxWidth: must be a whole number from 0 to 255, not -1e99"},
    {R"({"date": "2026-03-15 12:00:00"})",
     "j: /date: \"2026-03-15 12:00:00\" is no date: write YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS"},
    {R"({"date": "2023-02-29"})", "j: /date: \"2023-02-29\" is no day of the calendar"},
    {R"({"date": null})", "j: /date: must be a text, not null"},
    {R"({"number": "doce"})", "j: /number: \"doce\" is no number"},
    {R"({"lines": [1,2,3,4,5,6,7,8,9,10,11,12]})",
     "j: /lines: must have at most 11 texts: the library reads no more of a long text"},
    {R"({"number": "1", "parenthesis": "yes"})",
     "j: /parenthesis: must be true or false, not a text"},
    {R"({"number": "1", "paréntesis": true})", "j: /paréntesis: unknown key \"paréntesis\""},
    {R"(1e15)",
     "j: the document: \"1e15\" is no amount: the greatest one is 922337203685477.5807, and the "
     "least one is "
     "-922337203685477.5808"},
    {R"({"enum": 1})", "j: /enum: must be a text, not a number"},
    {R"({"array": ["S", "N"]})", "j: /array: must be a text, not an array"},
    {R"({"array": "S", "maxWidth": 256})",
     "j: /maxWidth: must be a whole number from 0 to 255, not 256"},
    {R"({"array": "S", "index": -32769})",
     "j: /index: must be a whole number from -32768 to 32767, not -32769"},
    {R"({"array": "S", "position": 1.5})",
     "j: /position: must be a whole number from -32768 to 32767, not 1.5"},
    {R"({"array": "S", "fill": 1})", "j: /fill: must be true or false, not a number"},
    {R"({"lines": "uno"})", "j: /lines: must be an array, not a text"},
    {R"({"lines": ["uno", 2]})", "j: /lines/1: must be a text, not a number"},
    {R"({"repeat": []})", "j: /repeat: must have at least one value"},
    {R"({"repeat": "a"})", "j: /repeat: must be an array, not a text"},
    {R"({"repeat": ["a"], "enum": "X"})", "j: /enum: unknown key \"enum\""},
    {R"({"repeat": ["a", {"repeat": ["b"]}]})",
     "j: /repeat/1: a \"repeat\" cannot stand in another one"},
    {R"({"repeat": [{"date": "hoy"}]})",
     "j: /repeat/0/date: \"hoy\" is no date: write YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS"},
};

TEST(JobValue, WhatIsWrongIsToldWithItsPlace) {
  for (const WrongCase& row : kWrong) {
    EXPECT_EQ(mistakeOf([&] { read(row.json); }), row.mistake) << row.json;
  }
}

TEST(Record, NamesAreFoundWithoutCase) {
  NamedValues values;
  readNamedValues(readJsonText(R"({"Cliente.nombre": "a", "niño": "b", "Año.ÿ": "c"})", "j"),
                  values);
  ASSERT_NE(values.find(u"CLIENTE.NOMBRE"), nullptr);
  EXPECT_EQ(valueText(*values.find(u"CLIENTE.NOMBRE")), "text a");
  EXPECT_NE(values.find(u"NIÑO"), nullptr);
  EXPECT_NE(values.find(u"AÑO.Ÿ"), nullptr);
  EXPECT_EQ(values.find(u"CLIENTE"), nullptr);
}

TEST(Record, ANameThatDiffersInCaseOnlyStandsTwice) {
  NamedValues values;
  const JsonValue object = readJsonText(R"({"a.b": 1, "A.B": 2})", "j");
  EXPECT_EQ(mistakeOf([&] { readNamedValues(object, values); }),
            "j: /A.B: the name \"A.B\" stands twice");
  const JsonValue year = readJsonText(R"({"Año": 1, "AÑO": 2})", "j");
  EXPECT_EQ(mistakeOf([&] { readNamedValues(year, values); }),
            "j: /AÑO: the name \"AÑO\" stands twice");
  const JsonValue empty = readJsonText(R"({"": 1})", "j");
  EXPECT_EQ(mistakeOf([&] { readNamedValues(empty, values); }), "j: /: a name is empty");
}

TEST(InlineRecords, AreTheObjectsOfTheArrayInTheirOrder) {
  const JsonValue array =
      readJsonText(R"([{"A": 1, "B": "x"}, {"A": 2, "B": "y"}, {"C": true}, {}])", "j");
  const auto records = makeInlineRecords(array);
  const std::vector<std::string> expected{"number 1 | text x", "number 2 | text y", "true", ""};
  EXPECT_EQ(test::recordsOf(*records), expected);
  EXPECT_EQ(test::recordsOf(*records), expected);
}

TEST(InlineRecords, WhatIsWrongIsToldWithItsPlace) {
  const JsonValue array = readJsonText(R"([{"A": 1}, {"A": {"date": "x"}}, 3])", "j");
  const auto records = makeInlineRecords(array);
  EXPECT_EQ(mistakeOf([&] { test::recordsOf(*records); }),
            "j: /1/A/date: \"x\" is no date: write YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS");
  const JsonValue numbers = readJsonText("[3]", "j");
  EXPECT_EQ(mistakeOf([&] { test::recordsOf(*makeInlineRecords(numbers)); }),
            "j: /0: must be an object, not a number");
}

}  // namespace
}  // namespace tarvordp
