// The report component, reached by name as a report utility reaches it.
#include "graphic/page_report.h"

#include <gtest/gtest.h>

#include "equipment/errors.h"
#include "equipment/recording_page_output.h"
#include "equipment/show_arguments.h"
#include "graphic/memory_line_table.h"
#include "services/report_layout.h"

namespace tarvo::test {
namespace {

class Report : public ::testing::Test {
 protected:
  template <class... Arguments>
  Value call(TextView operation, const Arguments&... arguments) {
    const std::vector<Value> values{Value(arguments)...};
    return report->call(operation, values);
  }
  template <class... Arguments>
  std::int32_t errorOfCall(TextView operation, const Arguments&... arguments) {
    return errorNumberOf([&] { call(operation, arguments...); });
  }

  static Ref<Object> objectIn(const Value& value) { return *value.tryGet<Ref<Object>>(); }
  Ref<Object> section() {
    const Value name(Text(u"Detail"));
    return objectIn(report->get(u"Sections", {&name, 1}));
  }
  Ref<Object> control(TextView controlName) {
    const Value name(controlName);
    return objectIn(lateObjectOf(section()).get(u"Controls", {&name, 1}));
  }
  void setData() {
    const Ref<Object> data = control(u"dcOrigenData");
    lateObjectOf(data).put(u"Recordset", {}, Ref<Object>(table));
  }
  void run(std::int32_t device = ePD_Screen) {
    call(u"Run", device == ePD_Printer, Text(u"Ventas"), true, Text(u"EPSON"), device, Text(),
         Text());
  }

  CallLog log;
  Ref<RecordingPageOutput> output = make<RecordingPageOutput>(log);
  Ref<LineTable> table = makeMemoryLineTable();
  Ref<PageReport> report = make<PageReport>(output);
};

TEST_F(Report, KnowsTheDraftLayoutInTheUtilitysWords) {
  EXPECT_EQ(call(u"ApplyLayout", LibTarvoCI::layoutText({u"rpxFormDraft", u"Año|1"})), Value(true));
  EXPECT_EQ(call(u"applylayout", Text(u"rpxFormDraft")), Value(true));
}

TEST_F(Report, KnowsNoOtherLayout) {
  for (const TextView other : {u"", u"|", u"rpxForm|x", u"rpxFormDraft2|", u"RPXFORMDRAFT|x"}) {
    EXPECT_EQ(call(u"ApplyLayout", other), Value(false)) << toUtf8(other);
  }
  EXPECT_EQ(errorOfCall(u"ApplyLayout", std::int32_t{1}), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"ApplyLayout"), kWrongNumberOfArguments);
}

TEST_F(Report, ALayoutBeginsAnew) {
  setData();
  call(u"BindText", Text(u"txtData"), Text(u"ObData"), std::int32_t{960});
  const Ref<Object> settings = objectIn(report->get(u"PageSettings", {}));
  lateObjectOf(settings).put(u"PageWidth", {}, std::int32_t{5000});
  EXPECT_EQ(call(u"ApplyLayout", Text(u"other")), Value(false));
  table->addRow(u"twelve chars");
  run();
  EXPECT_EQ(output->reports.at(0).text(), "twelve cha\nrs\n") << "another layout changes nothing";

  call(u"ApplyLayout", Text(u"rpxFormDraft|"));
  EXPECT_EQ(errorNumberOf([this] { run(); }), kObjectNotSet) << "there is no data any more";
  setData();
  run();
  EXPECT_EQ(output->reports.at(1).text(), "\n") << "the text box shows no column";
  EXPECT_EQ(output->reports.at(1).pages->format().width, 12240);
}

TEST_F(Report, ShowsTheBoundColumn) {
  setData();
  table->addRow(u"uno");
  table->addRow(u"");
  table->addRow(u"tres");
  call(u"BindText", Text(u"TXTDATA"), Text(u"obdata"), std::int32_t{0});
  run();
  EXPECT_EQ(output->reports.at(0).text(), "uno\n\ntres\n");
  EXPECT_EQ(output->reports.at(0).pages->columns(), 120u) << "a width of 0 leaves it";
}

TEST_F(Report, BeginsWithTheFirstRowEachTime) {
  setData();
  call(u"BindText", Text(u"txtData"), Text(u"ObData"), std::int32_t{0});
  table->addRow(u"uno");
  table->addRow(u"dos");
  table->moveNext();
  run();
  run();
  EXPECT_EQ(output->reports.at(0).text(), "uno\ndos\n");
  EXPECT_EQ(output->reports.at(1).text(), "uno\ndos\n");
}

TEST_F(Report, TakesAWidthAndAFontAsAnyKindOfNumber) {
  setData();
  call(u"BindText", Text(u"txtData"), Text(u"ObData"), 2400.0);
  call(u"SetFont", Text(u"txtData"), Text(u"Courier"), std::uint8_t{10}, std::int16_t{-1}, false);
  run();
  const PagedText& pages = *output->reports.at(0).pages;
  EXPECT_EQ(pages.columns(), 20u);
  EXPECT_EQ(pages.format().fontName, u"Courier");
  EXPECT_EQ(pages.format().fontSize, 10);
  EXPECT_EQ(pages.format().rowHeight, 230);
  EXPECT_TRUE(pages.format().bold);
  EXPECT_FALSE(pages.format().italic);
  call(u"SetFont", Text(u"txtData"), Text(u"Courier"), std::int32_t{8}, false, true);
  run();
  EXPECT_FALSE(output->reports.at(1).pages->format().bold);
  EXPECT_TRUE(output->reports.at(1).pages->format().italic);
}

TEST_F(Report, BindsNoUnknownControlOrColumn) {
  const std::int32_t width = 0;
  EXPECT_EQ(errorOfCall(u"BindText", Text(u"txt"), Text(u"ObData"), width), kNoSuchMember);
  EXPECT_EQ(errorOfCall(u"BindText", Text(u"dcOrigenData"), Text(u"ObData"), width), kNoSuchMember);
  EXPECT_EQ(errorOfCall(u"BindText", Text(u"txtData"), Text(u"Data"), width), kNoSuchMember);
  EXPECT_EQ(errorOfCall(u"BindText", width, Text(u"ObData"), width), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"BindText", Text(u"txtData"), width, width), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"BindText", Text(u"txtData"), Text(u"ObData"), Text(u"")), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"BindText", Text(u"txtData"), Text(u"ObData"), std::int32_t{-1}),
            kInvalidProcedureCall);
  EXPECT_EQ(errorOfCall(u"BindText", Text(u"txtData"), Text(u"ObData")), kWrongNumberOfArguments);
}

TEST_F(Report, RefusesOtherFonts) {
  const Text box = u"txtData";
  const Text font = u"Courier New";
  const std::int32_t size = 8;
  EXPECT_EQ(errorOfCall(u"SetFont", Text(u"x"), font, size, false, false), kNoSuchMember);
  EXPECT_EQ(errorOfCall(u"SetFont", Text(u"dcOrigenData"), font, size, false, false),
            kNoSuchMember);
  EXPECT_EQ(errorOfCall(u"SetFont", box, size, size, false, false), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"SetFont", box, font, font, false, false), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"SetFont", box, font, size, font, false), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"SetFont", box, font, size, false, font), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"SetFont", box, font, std::int32_t{0}, false, false),
            kInvalidProcedureCall);
  EXPECT_EQ(errorOfCall(u"SetFont", box, font, size, false), kWrongNumberOfArguments);
}

TEST_F(Report, RunsOnTheDeviceOrOnThePrinterWhenEitherSaysSo) {
  setData();
  const struct {
    bool toPrinter;
    std::int32_t device;
    const char* call;
  } rows[] = {
      {false, 0, "show \"Ventas\", modeless\n"},  {false, 1, "print \"Ventas\", \"EPSON\"\n"},
      {false, 2, "save \"Ventas\", \"EPSON\"\n"}, {true, 0, "print \"Ventas\", \"EPSON\"\n"},
      {true, 1, "print \"Ventas\", \"EPSON\"\n"}, {true, 2, "print \"Ventas\", \"EPSON\"\n"},
  };
  for (const auto& row : rows) {
    log.clear();
    call(u"Run", row.toPrinter, Text(u"Ventas"), false, Text(u"EPSON"), row.device, Text(u"a"),
         Value());
    EXPECT_EQ(log.text(), row.call) << row.toPrinter << row.device;
  }
}

TEST_F(Report, RefusesToRunWithOtherArguments) {
  setData();
  const Text text = u"x";
  const std::int32_t number = 0;
  EXPECT_EQ(errorOfCall(u"Run", text, text, true, text, number, text, text), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"Run", true, number, true, text, number, text, text), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"Run", true, text, text, text, number, text, text), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"Run", true, text, true, number, number, text, text), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"Run", true, text, true, text, text, text, text), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"Run", true, text, true, text, number, number, text), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"Run", true, text, true, text, number, text, number), kTypeMismatch);
  EXPECT_EQ(errorOfCall(u"Run", true, text, true, text, number, text), kWrongNumberOfArguments);
  for (const std::int32_t device : {-1, 3}) {
    EXPECT_EQ(errorOfCall(u"Run", true, text, true, text, device, text, text),
              kInvalidProcedureCall);
  }
  EXPECT_TRUE(output->reports.empty());
}

TEST_F(Report, WithoutDataIsError91) {
  EXPECT_EQ(errorNumberOf([this] { run(); }), kObjectNotSet);
}

TEST_F(Report, PassesOnWhatTheTableAndTheOutputRaise) {
  setData();
  output->fault.raiseAt(1, 4711);
  EXPECT_EQ(errorNumberOf([this] { run(); }), 4711);
  table->close();
  EXPECT_EQ(errorNumberOf([this] { run(); }), kTableIsClosed);
}

TEST_F(Report, HasNoOtherMembers) {
  for (const TextView unknown : {u"", u"Show", u"BindTexts", u"Caption"}) {
    EXPECT_EQ(errorOfCall(unknown), kNoSuchMember);
    EXPECT_EQ(errorNumberOf([&] { report->get(unknown, {}); }), kNoSuchMember);
    EXPECT_EQ(errorNumberOf([&] { report->put(unknown, {}, true); }), kNoSuchMember);
  }
  const auto sectionOf = [this](const Value& name) { report->get(u"Sections", {&name, 1}); };
  EXPECT_EQ(errorNumberOf([&] { sectionOf(Text(u"PageHeader")); }), kNoSuchMember);
  EXPECT_EQ(errorNumberOf([&] { sectionOf(1.0); }), kTypeMismatch);
  EXPECT_EQ(errorNumberOf([&] { report->get(u"Sections", {}); }), kWrongNumberOfArguments);
  sectionOf(Text(u"detail"));
}

TEST_F(Report, IsAPageReport) { EXPECT_EQ(report->typeName(), u"PageReport"); }

TEST_F(Report, LaysOutAMillionCharactersOnTheirPages) {
  setData();
  call(u"BindText", Text(u"txtData"), Text(u"ObData"), std::int32_t{0});
  for (int i = 0; i < 10'000; ++i) table->addRow(Text(100, u'x'));
  run();
  EXPECT_EQ(output->reports.at(0).pages->pageCount(), 152u);
}

}  // namespace
}  // namespace tarvo::test
