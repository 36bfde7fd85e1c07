// What the report utility tells a report object.
#include "services/clsUtReport.h"

#include <gtest/gtest.h>

#include <functional>

#include "services/failure.h"
#include "services/named_object.h"
#include "services/report_layout.h"

namespace LibTarvoCI {
namespace {

using namespace std::string_literals;
using test::failureOf;
using test::mismatch;
using test::NamedObject;
using test::NamelessObject;
using test::noSuchMember;
using test::notSet;

class UtReportTest : public ::testing::Test {
 protected:
  UtReportTest() {
    for (const char* name : {"BindText", "SetFont", "Run"}) object_->answers[name] = Value();
    object_->answers["ApplyLayout"] = true;
  }

  // The values as the object saw them, with their kinds.
  template <class... Values>
  static std::string call(const std::string& operation, const Values&... values) {
    std::string all;
    const auto append = [&all](const Value& value) {
      all += (all.empty() ? "" : ", ") + tarvo::test::show(value);
    };
    (append(Value(values)), ...);
    return "call " + operation + "(" + all + ")\n";
  }

  Ref<clsUtReport> utility_ = tarvo::make<clsUtReport>();
  Ref<NamedObject> object_ = tarvo::make<NamedObject>();
  Ref<Object> report_ = object_;
};

TEST_F(UtReportTest, TheDraftLayoutIsKnown) {
  Text layout = u"left from an earlier call";
  utility_->fLoadLayout(u"rpxFormDraft", u"Factura de venta", layout);
  EXPECT_EQ(layout, u"rpxFormDraft|Factura de venta");
  utility_->fLoadLayout(u"rpxFormDraft", u"", layout);
  EXPECT_EQ(layout, u"rpxFormDraft|");
}

TEST_F(UtReportTest, AnyOtherLayoutIsEmpty) {
  for (const TextView name :
       {u"", u"rpxForm", u"rpxFormDraft2", u"RPXFORMDRAFT", u" rpxFormDraft"}) {
    Text layout = u"left from an earlier call";
    utility_->fLoadLayout(name, u"Factura", layout);
    EXPECT_EQ(layout, u"") << tarvo::toUtf8(name);
  }
}

TEST_F(UtReportTest, ALayoutTextCanBeReadBack) {
  for (const Text& title : {Text(u"Factura de venta"), Text(), Text(u"a|b|"), Text(u"a\0b"s)}) {
    Text text;
    utility_->fLoadLayout(u"rpxFormDraft", title, text);
    ReportLayout layout;
    EXPECT_TRUE(readLayout(text, layout));
    EXPECT_EQ(layout.name, kDraftLayout);
    EXPECT_EQ(layout.reportTitle, title);
  }
  ReportLayout layout{u"name", u"title"};
  EXPECT_FALSE(readLayout(u"rpxFormDraft", layout));
  EXPECT_FALSE(readLayout(u"", layout));
  EXPECT_EQ(layout.name + u"/" + layout.reportTitle, u"name/title");
}

TEST_F(UtReportTest, TheReportAppliesTheLayoutAndAnswers) {
  const struct {
    Value answer;
    bool applied;
  } rows[] = {{true, true},
              {false, false},
              {std::int16_t{-1}, true},
              {std::int16_t{0}, false},
              {std::int32_t{1}, true},
              {std::int32_t{0}, false},
              {std::uint8_t{1}, true},
              {0.5, true},
              {0.0, false}};
  for (const auto& row : rows) {
    SCOPED_TRACE(tarvo::test::show(row.answer));
    object_->answers["ApplyLayout"] = row.answer;
    object_->log.clear();
    EXPECT_EQ(utility_->fApplyLayout(report_, u"rpxFormDraft|Factura"), row.applied);
    EXPECT_EQ(object_->log.text(), call("ApplyLayout", Text(u"rpxFormDraft|Factura")));
  }
}

TEST_F(UtReportTest, AnAnswerThatIsNoBooleanIsATypeMismatch) {
  for (const Value& answer : {Value(), Value(tarvo::Null()), Value(Text(u"True"))}) {
    object_->answers["ApplyLayout"] = answer;
    EXPECT_EQ(failureOf([&] { utility_->fApplyLayout(report_, u"x"); }), mismatch("ApplyLayout"));
  }
}

TEST_F(UtReportTest, AnEmptyLayoutIsRefusedWithoutAskingTheReport) {
  EXPECT_FALSE(utility_->fApplyLayout(report_, u""));
  EXPECT_EQ(object_->log.text(), "");
  Ref<Object> empty;
  EXPECT_FALSE(utility_->fApplyLayout(empty, u""));
}

TEST_F(UtReportTest, ATextBoxIsBound) {
  utility_->sBindText(report_, u"txtData", u"ObData", 9000);
  utility_->sBindText(report_, u"txtData", u"ObData", 0);
  EXPECT_EQ(object_->log.text(),
            call("BindText", Text(u"txtData"), Text(u"ObData"), std::int32_t{9000}) +
                call("BindText", Text(u"txtData"), Text(u"ObData"), std::int32_t{0}));
}

TEST_F(UtReportTest, AFontIsSet) {
  utility_->sSetFont(report_, u"txtData", u"Courier New", 8, false, true);
  utility_->sSetFont(report_, u"txtData", u"Courier New", 10, true, false);
  EXPECT_EQ(
      object_->log.text(),
      call("SetFont", Text(u"txtData"), Text(u"Courier New"), std::int16_t{8}, false, true) +
          call("SetFont", Text(u"txtData"), Text(u"Courier New"), std::int16_t{10}, true, false));
}

TEST_F(UtReportTest, AReportIsRun) {
  utility_->sRunReport(report_, true, u"Factura", false, u"EPSON", tarvo::ePD_Printer, u"uno",
                       u"dos");
  utility_->sRunReport(report_, false, u"Guía", true, u"", tarvo::ePD_Disk, u"", u"");
  EXPECT_EQ(object_->log.text(),
            call("Run", true, Text(u"Factura"), false, Text(u"EPSON"), std::int32_t{1},
                 Text(u"uno"), Text(u"dos")) +
                call("Run", false, Text(u"Guía"), true, Text(), std::int32_t{2}, Text(), Text()));
}

TEST_F(UtReportTest, WhatTheReportRaisesPassesAsItIs) {
  object_->errors.emplace("Run", tarvo::RunTimeError(0x800A, {u"Viewer", u"no paper", {}, 0}));
  const auto run = [&] {
    utility_->sRunReport(report_, true, u"", true, u"", tarvo::ePD_Screen, u"", u"");
  };
  EXPECT_EQ(failureOf(run), "32778 Viewer: no paper");
  object_->errors.clear();
  object_->answers.clear();
  EXPECT_EQ(failureOf(run), "438 NamedObject: no such member");
}

TEST_F(UtReportTest, EveryOperationNeedsAnObjectThatIsReachedByName) {
  const std::function<void()> operations[] = {
      [&] { utility_->fApplyLayout(report_, u"rpxFormDraft|"); },
      [&] { utility_->sBindText(report_, u"a", u"b", 1); },
      [&] { utility_->sSetFont(report_, u"a", u"b", 8, false, false); },
      [&] { utility_->sRunReport(report_, true, u"", true, u"", tarvo::ePD_Screen, u"", u""); },
  };
  for (const auto& operation : operations) {
    report_ = object_;
    EXPECT_EQ(failureOf(operation), "none");
    report_ = nullptr;
    EXPECT_EQ(failureOf(operation), notSet("refReport"));
    report_ = tarvo::make<NamelessObject>();
    EXPECT_EQ(failureOf(operation), noSuchMember("refReport"));
  }
}

}  // namespace
}  // namespace LibTarvoCI
