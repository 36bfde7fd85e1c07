#include "tarvordp/job/answers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/modRDPGlobalValues.h"
#include "job_testing.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"
#include "tarvordp/job/inline_records.h"

namespace tarvordp {
namespace {

using tarvo::make;
using tarvo::Ref;

class AnswersTest : public testing::Test {
 protected:
  AnswersTest() {
    Ref<tarvo::clsUtilImp> printer = make<tarvo::clsUtilImp>();
    LibTarvoCI::CoreServices().handTo(*make<tarvo::clsInitLibTarvoRpd>(), printer);
  }
  ~AnswersTest() override {
    tarvo::modRDPGlobalValues::ofThisThread() = tarvo::modRDPGlobalValues();
  }

  void setRecord(const std::string& json) {
    recordDocument_ = readJsonText(json, "j");
    readNamedValues(recordDocument_, values_);
  }

  // The detail record that is present from now on.
  void setDetail(const std::string& json) {
    detailDocument_ = readJsonText("[" + json + "]", "j");
    const auto source = makeInlineRecords(detailDocument_);
    source->restart();
    ASSERT_TRUE(source->next(detail_));
    present_ = &detail_;
  }

  // What a variable of the template is answered: its content, with "..." when its line goes on.
  std::string answer(const tarvo::Text& record, const tarvo::Text& field) {
    Ref<tarvo::clsObSpecialVar> variable = make<tarvo::clsObSpecialVar>();
    variable->SetRecordName(record);
    variable->SetFieldName(field);
    variable->SetLength(10);
    if (!answers_.answer(variable, present_)) return "not found";
    return contentOf(*variable) + (variable->GetEndOfRepeatPrintLine() ? "" : "...");
  }
  std::string answer(const tarvo::Text& field) { return answer({}, field); }

  std::vector<std::string> answers(int passes) {
    std::vector<std::string> answers;
    for (int i = 0; i < passes; ++i) answers.push_back(answer(u"A"));
    return answers;
  }

 private:
  static std::string contentOf(const tarvo::clsObSpecialVar& variable) {
    switch (variable.GetTypeField()) {
      case tarvo::TFR_String:
        return tarvo::toUtf8(variable.GetContentString());
      case tarvo::TFR_Numeric:
        return "number " + amountText(variable.GetContentNumeric());
      case tarvo::TFR_Boolean:
        return variable.GetContentBool() ? "true" : "false";
      case tarvo::TFR_Date:
        return "date " + std::to_string(static_cast<int>(variable.GetContentDate().serial));
      case tarvo::TFR_Enum:
        return "enum " + tarvo::toUtf8(variable.GetContentEnum());
      default:
        return "kind " + std::to_string(variable.GetTypeField());
    }
  }

  JsonValue recordDocument_;
  JsonValue detailDocument_;
  NamedValues values_;
  Record detail_;
  const Record* present_ = nullptr;
  Answers answers_{values_};
};

using Passes = std::vector<std::string>;

TEST_F(AnswersTest, NamesAreFoundWithoutCaseWhateverTheirLetters) {
  setRecord(R"({"Renglón.Año": 2026, "AÑO": "solo", "ventas.mes.día": true})");
  EXPECT_EQ(answer(u"RENGLÓN", u"AÑO"), "number 2026");
  EXPECT_EQ(answer(u"renglón", u"AÑO"), "number 2026");
  EXPECT_EQ(answer(u"AÑO"), "solo");
  EXPECT_EQ(answer(u"Ventas", u"MES.DÍA"), "true");
  EXPECT_EQ(answer(u"RENGLON", u"AÑO"), "not found") << "an accent is no case";
  EXPECT_EQ(answer(u"RENGLÓN", u""), "not found");
}

TEST_F(AnswersTest, TheDetailRecordComesFirstAndItsNullHidesTheRecordsValue) {
  setRecord(R"({"A": "a", "B": "b", "C": null})");
  EXPECT_EQ(answer(u"A"), "a");
  setDetail(R"({"a": "detail", "b": null})");
  EXPECT_EQ(answer(u"A"), "detail");
  EXPECT_EQ(answer(u"B"), "not found");
  EXPECT_EQ(answer(u"C"), "not found");
  EXPECT_EQ(answer(u"D"), "not found");
}

TEST_F(AnswersTest, ARepeatHasAPassForEachValueOfAnyKindAndStartsOver) {
  setRecord(R"({"A": {"repeat": ["x", -1.5, {"number": "2"}, true, {"date": "1900-01-01"},
                                 {"enum": "E"}, {"lines": ["uno"]}]}})");
  const Passes once{"x...",      "number -1.5...", "number 2...", "true...",
                    "date 2...", "enum E...",      "uno"};
  EXPECT_EQ(answers(7), once);
  EXPECT_EQ(answers(7), once);
}

TEST_F(AnswersTest, ARepeatOfOneValueIsItsLast) {
  setRecord(R"({"A": {"repeat": ["x"]}})");
  EXPECT_EQ(answers(2), (Passes{"x", "x"}));
}

TEST_F(AnswersTest, ARepetitionThatWasLeftInTheMiddleOfALongerRecordStartsOver) {
  setDetail(R"({"A": {"repeat": ["a", "b", "c"]}})");
  EXPECT_EQ(answers(2), (Passes{"a...", "b..."}));
  setDetail(R"({"A": {"repeat": ["x", "y"]}})");
  EXPECT_EQ(answers(2), (Passes{"x...", "y"}));
}

TEST_F(AnswersTest, ANullEndsARepetition) {
  setRecord(R"({"A": {"repeat": ["a", null, "c"]}})");
  EXPECT_EQ(answers(3), (Passes{"a...", "not found", "a..."})) << "nobody prints it any further";
}

TEST_F(AnswersTest, RepetitionsAreCountedForEachName) {
  setRecord(R"({"A": {"repeat": ["a", "b"]}, "B": {"repeat": ["x", "y"]}})");
  EXPECT_EQ(answer(u"A"), "a...");
  EXPECT_EQ(answer(u"B"), "x...");
  EXPECT_EQ(answer(u"A"), "b");
  EXPECT_EQ(answer(u"B"), "y");
}

}  // namespace
}  // namespace tarvordp
