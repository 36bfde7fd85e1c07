// How the graphic channel's run-time errors travel: who reports them, in which order, with what.
#include <algorithm>
#include <optional>

#include "graphic_test.h"

namespace tarvo::test {
namespace {

constexpr std::int32_t kRaised = -2147220991;  // a client's own error, as a service may raise it

enum class Failing { kTable, kTexto, kUtility, kOutput };
using enum Failing;

struct Row {
  const char* shows;
  void (*action)(clsARObRep& channel);
  Failing service;
  int call;  // the one that raises, counted from the start of the action
  const char* trail;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.shows; }

void init(clsARObRep& c) { c.sInit(u"EPSON", u"Ventas", ePD_Screen); }
void initialize(clsARObRep& c) { c.sInitializeGraphicHandle(u"Ventas"); }
void print(clsARObRep& c) { c.sPrintReport(true, true); }
void close(clsARObRep& c) { c.sCloseGraphicHandle(); }
void write(clsARObRep& c) { c.sWrite(u"x", 0); }
void writeWithMargin(clsARObRep& c) { c.sWrite(u"x", 1); }
void writeLine(clsARObRep& c) { c.sWriteLn(u"x", 0); }
void writeLineWithMargin(clsARObRep& c) { c.sWriteLn(u"x", 1); }
void skip(clsARObRep& c) { c.sSkipNPoints(24); }
void cancel(clsARObRep& c) { c.sCancelGraphicPrintProcess(); }

// Every procedure that has a handler is in one of the trails, at the place where it stands.
constexpr Row kRows[] = {
    {"InitTable", init, kTable, 1, "sInitializeGraphicHandle sInit"},
    {"InitializeTable", initialize, kTable, 1, "sInitializeGraphicHandle"},

    {"WriteMargin", writeWithMargin, kTexto, 1, "sWrite"},
    {"WriteFirstCode", write, kTexto, 1, "sWriteToGraphicHandle sWrite"},
    {"WriteLastCode", write, kTexto, 6, "sWriteToGraphicHandle sWrite"},
    {"WriteRow", write, kTable, 1, "sWriteToGraphicHandle sWrite"},
    {"WriteLength", write, kTexto, 7, "sWriteToGraphicHandle sWrite"},
    {"LineMargin", writeLineWithMargin, kTexto, 1, "sWriteLn"},
    {"LineFirstCode", writeLine, kTexto, 1, "sWriteToGraphicHandle sWriteLn"},
    {"LineRow", writeLine, kTable, 1, "sWriteToGraphicHandle sWriteLn"},
    {"SkipSecondRow", skip, kTable, 2, "sWriteToGraphicHandle sWriteLn sSkipNPoints"},

    {"PrintMoveFirst", print, kTable, 1, "sPrintReport"},
    {"PrintLoad", print, kUtility, 1, "fConfigReport sPrintReport"},
    {"PrintApply", print, kUtility, 2, "fConfigReport sPrintReport"},
    {"PrintBind", print, kUtility, 3, "fConfigReport sPrintReport"},
    {"PrintFont", print, kUtility, 4, "fConfigReport sPrintReport"},
    {"PrintRun", print, kUtility, 5, "sPrintReport"},
    {"PrintReadTable", print, kTable, 2, "sPrintReport"},
    {"PrintOutput", print, kOutput, 1, "sPrintReport"},
    {"ClosePrint", close, kUtility, 4, "fConfigReport sPrintReport sCloseGraphicHandle"},
    {"CloseTable", close, kTable, 3, "sCloseGraphicHandle"},
    {"CancelTable", cancel, kTable, 1, "sCancelGraphicPrintProcess"},
};

class ChannelTrail : public GraphicTest, public ::testing::WithParamInterface<Row> {
 protected:
  ChannelTrail() { begin(); }

  Fault& fault() {
    switch (GetParam().service) {
      case kTable:
        return RecordingLineTable::fault;
      case kTexto:
        return texto->fault;
      case kUtility:
        return utility->fault;
      case kOutput:
        break;
    }
    return output->fault;
  }

  std::optional<RunTimeError> run() {
    fault().raiseAt(GetParam().call, kRaised);
    return errorOf([this] { GetParam().action(*channel); });
  }
};

TEST_P(ChannelTrail, NamesEveryProcedureInnermostFirst) {
  ASSERT_TRUE(run().has_value());
  EXPECT_EQ(error->trail(), GetParam().trail);
}

TEST_P(ChannelTrail, SignsEachReportWithClassModuleAndKind) {
  run();
  ASSERT_FALSE(error->reports.empty());
  for (const RecordingError::Report& report : error->reports) {
    EXPECT_EQ(toUtf8(report.className), "clsARObRep");
    EXPECT_EQ(toUtf8(report.module), "Lib. Impresión Texto - clsARObRep");
    EXPECT_EQ(report.kind, 2);
    EXPECT_EQ(report.reserved, 0);
  }
}

TEST_P(ChannelTrail, KeepsNumberAndSourceOfTheError) {
  const std::optional<RunTimeError> raised = run();
  ASSERT_TRUE(raised.has_value());
  EXPECT_EQ(raised->number(), kRaised);
  EXPECT_EQ(toUtf8(raised->source()), "fault");
  Text description = u"made to fail";
  for (const auto& report : error->reports) description += u" < " + report.procedure;
  EXPECT_EQ(toUtf8(raised->description()), toUtf8(description));
}

TEST_P(ChannelTrail, LeavesAChannelThatPrintsTheNextReport) {
  run();
  EXPECT_EQ(rowsOf([this] { channel->sWriteLn(u"again", 0); }), "again\n");
}

INSTANTIATE_TEST_SUITE_P(Every, ChannelTrail, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.shows); });

TEST(ChannelTrails, WalkEveryProcedureThatHasAHandler) {
  // A report object of the channel's own cannot fail in it, so no row reaches
  // sSetObRepPageSettings; see ChannelErrors.AnotherReportInTheUtilitysHands.
  std::string all;
  for (const Row& row : kRows) all += std::string(" ") + row.trail + " ";
  for (const char* procedure :
       {"sPrintReport", "sInit", "sInitializeGraphicHandle", "sCloseGraphicHandle", "sWriteLn",
        "sWrite", "sSkipNPoints", "sCancelGraphicPrintProcess", "sWriteToGraphicHandle",
        "fConfigReport"}) {
    EXPECT_NE(all.find(std::string(" ") + procedure + " "), std::string::npos) << procedure;
  }
}

class ChannelErrors : public GraphicTest {
 protected:
  std::int32_t numberOf(void (*action)(clsARObRep&)) {
    error->reports.clear();
    return errorNumberOf([&] { action(*channel); });
  }
};

// Puts another report object in the place of the channel's, as it may.
class ExchangingUtility final : public clsUtReport {
 public:
  explicit ExchangingUtility(Ref<Object> other) : other_(std::move(other)) {}
  void fLoadLayout(TextView, TextView, Text& result) override { result = u"any"; }
  bool fApplyLayout(Ref<Object>&, TextView) override { return true; }
  void sBindText(Ref<Object>&, TextView, TextView, std::int32_t) override {}
  void sSetFont(Ref<Object>& refReport, TextView, TextView, std::int16_t, bool, bool) override {
    refReport = other_;
  }
  void sRunReport(Ref<Object>&, bool, TextView, bool, TextView, ePrintingDevice, TextView,
                  TextView) override {}

 private:
  Ref<Object> other_;
};

TEST_F(ChannelErrors, AnotherReportInTheUtilitysHands) {
  class Nameless final : public Object {};
  const struct {
    Ref<Object> other;
    std::int32_t number;
  } rows[] = {{nullptr, kObjectNotSet}, {make<Nameless>(), kNoSuchMember}};
  for (const auto& row : rows) {
    modRDPGlobalValues::ofThisThread().refInsUtReport = make<ExchangingUtility>(row.other);
    begin();
    EXPECT_EQ(numberOf(print), row.number);
    EXPECT_EQ(error->trail(), "sSetObRepPageSettings fConfigReport sPrintReport");
  }
}

TEST_F(ChannelErrors, WithoutATableAre91) {
  const auto actions = {write, writeLine, skip, print, close};
  for (const auto action : actions) EXPECT_EQ(numberOf(action), kObjectNotSet);
  begin();
  channel->sCloseGraphicHandle();
  for (const auto action : actions) EXPECT_EQ(numberOf(action), kObjectNotSet);
  EXPECT_EQ(error->trail(), "sPrintReport sCloseGraphicHandle");
}

TEST_F(ChannelErrors, WithAClosedTableAre3704) {
  begin();
  channel->sCancelGraphicPrintProcess();
  for (const auto action : {write, writeLine, skip, print, close}) {
    EXPECT_EQ(numberOf(action), kTableIsClosed);
  }
}

struct LongLine {
  const char* shows;
  void (*write)(clsARObRep& channel);
  const char* trail;
};
void PrintTo(const LongLine& row, std::ostream* out) { *out << row.shows; }

class ChannelLongLine : public GraphicTest, public ::testing::WithParamInterface<LongLine> {
 protected:
  // What the table is asked for, without the line's own thousands of characters.
  std::size_t rowsAdded() const { return calls.linesOf("table addRow").size(); }
};

TEST_P(ChannelLongLine, IsRefusedAndLeavesTheReportAsItWas) {
  begin();
  channel->sWrite(u"before", 0);
  const auto raised = errorOf([this] { GetParam().write(*channel); });
  ASSERT_TRUE(raised.has_value());
  EXPECT_EQ(raised->number(), kLineIsTooLong);
  EXPECT_TRUE(raised->description().starts_with(u"The line has more than 7000 characters"))
      << raised->what();
  EXPECT_EQ(error->trail(), GetParam().trail);
  EXPECT_EQ(rowsAdded(), 2u) << "it was the table that refused the second";
  channel->sWrite(u"behind", 0);
  channel->sCloseGraphicHandle();
  EXPECT_EQ(output->reports.at(0).text(), "before\nbehind\n");
  EXPECT_EQ(output->reports.at(0).pages->format().width, 12240) << "no page for wide lines";
  EXPECT_EQ(rowsOf([this] { channel->sWriteLn(u"next", 0); }), "next\n");
}

INSTANTIATE_TEST_SUITE_P(
    Of, ChannelLongLine,
    ::testing::Values(LongLine{"Write", [](clsARObRep& c) { c.sWrite(Text(7001, u'x'), 0); },
                               "sWriteToGraphicHandle sWrite"},
                      LongLine{"WriteLn", [](clsARObRep& c) { c.sWriteLn(Text(20'000, u'x'), 0); },
                               "sWriteToGraphicHandle sWriteLn"},
                      LongLine{"Margin", [](clsARObRep& c) { c.sWriteLn(Text(6999, u'x'), 2); },
                               "sWriteToGraphicHandle sWriteLn"}),
    [](const auto& row) { return std::string(row.param.shows); });

TEST_F(ChannelErrors, AreNotOfALineThatFitsWithoutItsCodes) {
  begin();
  channel->sWrite(Text(7000, u'x') + u"<bold>", 0);
  channel->sWrite(Text(6998, u'x'), 2);
  channel->sCloseGraphicHandle();
  EXPECT_TRUE(error->reports.empty());
  const std::string shown = output->reports.at(0).text();
  EXPECT_EQ(std::count(shown.begin(), shown.end(), 'x'), 7000 + 6998);
}

TEST_F(ChannelErrors, WithoutAServiceAre91) {
  modRDPGlobalValues& values = modRDPGlobalValues::ofThisThread();
  begin();
  values.refInsTexto = nullptr;
  EXPECT_EQ(numberOf(write), kObjectNotSet);
  EXPECT_EQ(error->trail(), "sWriteToGraphicHandle sWrite");
  EXPECT_EQ(numberOf(writeWithMargin), kObjectNotSet);
  EXPECT_EQ(error->trail(), "sWrite");
  values.refInsTexto = texto;
  values.refInsImp = nullptr;
  EXPECT_EQ(numberOf(write), kObjectNotSet);
  values.refInsImp = printer;
  values.refInsUtReport = nullptr;
  EXPECT_EQ(numberOf(print), kObjectNotSet);
  EXPECT_EQ(error->trail(), "fConfigReport sPrintReport");
  values.refInsError = nullptr;
  EXPECT_EQ(numberOf(print), kObjectNotSet);
}

// Nothing is rolled back: the lines are still there, and the report can be produced after all.
TEST_F(ChannelErrors, LeaveTheTableOpen) {
  begin();
  channel->sWrite(u"A", 0);
  output->fault.raiseAt(1, kRaised);
  EXPECT_EQ(numberOf(close), kRaised);
  channel->sWrite(u"B", 0);
  channel->sCloseGraphicHandle();
  EXPECT_EQ(output->reports.at(0).text(), "A\nB\n");
}

TEST_F(ChannelErrors, OfADeviceThatThereIsNot) {
  begin(static_cast<ePrintingDevice>(3));
  EXPECT_EQ(numberOf(print), kInvalidProcedureCall);
  EXPECT_TRUE(output->reports.empty());
}

}  // namespace
}  // namespace tarvo::test
