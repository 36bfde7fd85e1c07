// How the channel's run-time errors travel: who reports them, in which order, with what.
#include <optional>

#include "printer_test.h"

namespace tarvo::test {
namespace {

constexpr std::int32_t kRaised = -2147220991;  // a client's own error, as a service may raise it

enum class Failing { kSpooler, kTexto, kConvert, kMessage };
using enum Failing;

struct Row {
  const char* shows;
  void (*action)(clsUtilImp& channel);
  Failing service;
  int call;             // the one that raises, counted from the start of the action
  const char* workers;  // who is first in the trail: one of the beginnings below, or empty
  const char* callers;  // the rest of the trail
  bool opensFirst = true;

  std::string trail() const { return std::string(workers) + callers; }
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.shows; }

void open(clsUtilImp& c) { c.sInitializePrinterFileHandle(u"LX-300", u"Ventas"); }
void openUnknown(clsUtilImp& c) { c.sInitializePrinterFileHandle(u"nowhere", u"Ventas"); }
void sendJob(clsUtilImp& c) { c.sSendJobAndStartNewOne(); }
void close(clsUtilImp& c) { c.sClosePrinterFileHandle(); }
void write(clsUtilImp& c) { c.sWrite(u"x", 0); }
void writeWithMargin(clsUtilImp& c) { c.sWrite(u"x", 1); }
void writeLine(clsUtilImp& c) { c.sWriteLn(u"x", 0); }
void writeLineWithMargin(clsUtilImp& c) { c.sWriteLn(u"x", 1); }
void skip(clsUtilImp& c) { c.sSkipNPoints(1); }
void reset(clsUtilImp& c) { c.sResetPrinter(); }
void underscores(clsUtilImp& c) { c.sPrintUnderscore(1, true); }
void verticalRule(clsUtilImp& c) { c.sPrintVerticalRule(1, true); }
void horizontalRule(clsUtilImp& c) { c.sPrintHorizontalRule(true, 2, 2); }
void testPage(clsUtilImp& c) { c.sPrintTestPage(); }

// The beginnings of most trails, with the blank that follows: where letters are replaced, where
// bytes leave, where a job starts and ends.
constexpr const char* kLetters = "fReplaceInvalidChars sWriteToFileHandle ";
constexpr const char* kBytes = "fSendStringToPrinter sWriteToFileHandle ";
constexpr const char* kStart = "sStartJobAndPage ";
constexpr const char* kEnd = "sEndJobAndPageAndClosePrinter ";

// Every procedure that has a handler is in one of the trails, at the place where it stands.
constexpr Row kRows[] = {
    // The worker that opens the printer signs with the name of the operation that opens again.
    {"OpenPrinter", open, kSpooler, 1, "", "sSendJobAndStartNewOne sInitializePrinterFileHandle",
     false},
    {"OpenStartDocument", open, kSpooler, 2, kStart,
     "sSendJobAndStartNewOne sInitializePrinterFileHandle", false},
    {"OpenStartPage", open, kSpooler, 3, kStart,
     "sSendJobAndStartNewOne sInitializePrinterFileHandle", false},
    {"OpenMessage", openUnknown, kMessage, 1, "",
     "sSendJobAndStartNewOne sInitializePrinterFileHandle", false},

    {"SendEndPage", sendJob, kSpooler, 1, "", "sSendJobAndStartNewOne"},
    {"SendEndDocument", sendJob, kSpooler, 2, "", "sSendJobAndStartNewOne"},
    {"SendStartDocument", sendJob, kSpooler, 3, kStart, "sSendJobAndStartNewOne"},
    {"SendStartPage", sendJob, kSpooler, 4, kStart, "sSendJobAndStartNewOne"},

    {"CloseEndPage", close, kSpooler, 1, kEnd, "sClosePrinterFileHandle"},
    {"CloseEndDocument", close, kSpooler, 2, kEnd, "sClosePrinterFileHandle"},
    {"ClosePrinter", close, kSpooler, 3, kEnd, "sClosePrinterFileHandle"},

    {"WriteFirstLetter", write, kTexto, 1, kLetters, "sWrite"},
    {"WriteLastLetter", write, kTexto, 8, kLetters, "sWrite"},
    {"WriteBytes", write, kSpooler, 1, kBytes, "sWrite"},
    {"WriteMargin", writeWithMargin, kTexto, 1, "", "sWrite"},
    {"WriteAfterMargin", writeWithMargin, kTexto, 2, kLetters, "sWrite"},

    {"LineFirstLetter", writeLine, kTexto, 1, kLetters, "sWriteLn"},
    {"LineBytes", writeLine, kSpooler, 1, kBytes, "sWriteLn"},
    {"LineMargin", writeLineWithMargin, kTexto, 1, "", "sWriteLn"},

    {"SkipFirstHeight", skip, kSpooler, 1, kBytes, "sWrite sSkipNPoints"},
    {"SkipLineEnd", skip, kSpooler, 2, kBytes, "sWriteLn sSkipNPoints"},
    {"SkipLastHeight", skip, kSpooler, 3, kBytes, "sWrite sSkipNPoints"},
    {"Reset", reset, kSpooler, 1, kBytes, "sWrite sResetPrinter"},

    {"Underscore", underscores, kSpooler, 1, kBytes, "sWrite sPrintUnderscore"},
    {"UnderscoreLineEnd", underscores, kSpooler, 2, kBytes, "sWriteLn sPrintUnderscore"},
    {"VerticalReset", verticalRule, kSpooler, 1, kBytes, "sWrite sPrintVerticalRule"},
    {"VerticalZeroMark", verticalRule, kSpooler, 5, kBytes, "sWriteLn sPrintVerticalRule"},
    {"VerticalNumber", verticalRule, kConvert, 1, "", "sPrintVerticalRule"},
    {"VerticalFormFeed", verticalRule, kSpooler, 19, kBytes, "sWrite sPrintVerticalRule"},
    {"HorizontalReset", horizontalRule, kSpooler, 1, kBytes, "sWrite sPrintHorizontalRule"},
    {"HorizontalFirstDigit", horizontalRule, kConvert, 1, "", "sPrintHorizontalRule"},
    {"HorizontalTens", horizontalRule, kConvert, 21, "", "sPrintHorizontalRule"},
    {"HorizontalLineEnd", horizontalRule, kSpooler, 23, kBytes, "sWriteLn sPrintHorizontalRule"},
    {"TestPageReset", testPage, kSpooler, 1, kBytes, "sWrite sPrintTestPage"},
    {"TestPageTitle", testPage, kSpooler, 2, kBytes, "sWriteLn sPrintTestPage"},
    {"TestPageRule", testPage, kConvert, 3, "", "sPrintVerticalRule sPrintTestPage"},
    {"TestPageRuleMark", testPage, kSpooler, 15, kBytes,
     "sWriteLn sPrintVerticalRule sPrintTestPage"},
};

class ErrorTrail : public PrinterTest, public ::testing::WithParamInterface<Row> {
 protected:
  ErrorTrail() {
    spooler->forgetPrinter(u"nowhere");
    if (GetParam().opensFirst) openJob();
  }

  Fault& fault() {
    switch (GetParam().service) {
      case kSpooler:
        return spooler->fault;
      case kTexto:
        return texto->fault;
      case kConvert:
        return convert->fault;
      case kMessage:
        return message->fault;
    }
    return spooler->fault;
  }

  std::optional<RunTimeError> run() {
    fault().raiseAt(GetParam().call, kRaised);
    return errorOf([this] { GetParam().action(*channel); });
  }
};

TEST_P(ErrorTrail, NamesEveryProcedureInnermostFirst) {
  ASSERT_TRUE(run().has_value());
  EXPECT_EQ(error->trail(), GetParam().trail());
}

TEST_P(ErrorTrail, SignsEachReportWithClassModuleAndKind) {
  run();
  ASSERT_FALSE(error->reports.empty());
  for (const RecordingError::Report& report : error->reports) {
    EXPECT_EQ(toUtf8(report.className), "clsUtilImp");
    EXPECT_EQ(toUtf8(report.module), "Lib. Impresión Texto");
    EXPECT_EQ(report.kind, 2);
    EXPECT_EQ(report.reserved, 0);
  }
}

TEST_P(ErrorTrail, HandsTheDescriptionFromLevelToLevel) {
  const std::optional<RunTimeError> raised = run();
  ASSERT_TRUE(raised.has_value());
  Text description = u"made to fail";
  bool isInnermost = true;
  for (const RecordingError::Report& report : error->reports) {
    EXPECT_EQ(toUtf8(report.description), toUtf8(description));
    // Help goes no further than to the first handler.
    EXPECT_EQ(toUtf8(report.helpFile), isInnermost ? "help.hlp" : "");
    EXPECT_EQ(report.helpContext, isInnermost ? 77 : 0);
    description += u" < " + report.procedure;
    isInnermost = false;
  }
  EXPECT_EQ(raised->number(), kRaised);
  EXPECT_EQ(toUtf8(raised->source()), "fault");
  EXPECT_EQ(toUtf8(raised->description()), toUtf8(description));
  EXPECT_EQ(toUtf8(raised->helpFile()), "");
  EXPECT_EQ(raised->helpContext(), 0);
}

// The failure of the error service itself takes the place of the error at that level.
TEST_P(ErrorTrail, GoesOnWithTheErrorServicesOwnFailureAtAnyLevel) {
  run();
  const int levels = static_cast<int>(error->reports.size());
  ASSERT_GT(levels, 0);
  for (int failing = 1; failing <= levels; ++failing) {
    error->reports.clear();
    if (GetParam().opensFirst) openJob();
    error->fault.raiseAt(failing, 4711);
    const std::optional<RunTimeError> raised = run();
    ASSERT_TRUE(raised.has_value());
    EXPECT_EQ(raised->number(), 4711) << "level " << failing;
    EXPECT_EQ(error->trail(), GetParam().trail());
    Text description = u"made to fail";
    int level = 0;
    for (const RecordingError::Report& report : error->reports) {
      EXPECT_EQ(toUtf8(report.description), toUtf8(description)) << "level " << level + 1;
      if (++level == failing) {
        description = u"made to fail";
      } else {
        description += u" < " + report.procedure;
      }
    }
    EXPECT_EQ(toUtf8(raised->description()), toUtf8(description));
  }
}

INSTANTIATE_TEST_SUITE_P(Every, ErrorTrail, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.shows); });

TEST(ErrorTrails, WalkEveryProcedureThatHasAHandler) {
  std::string all;
  for (const Row& row : kRows) all += " " + row.trail() + " ";
  for (const char* procedure :
       {"sSendJobAndStartNewOne", "sInitializePrinterFileHandle", "sClosePrinterFileHandle",
        "sWriteLn", "sWrite", "sSkipNPoints", "sResetPrinter", "sStartJobAndPage",
        "sEndJobAndPageAndClosePrinter", "sWriteToFileHandle", "fReplaceInvalidChars",
        "fSendStringToPrinter", "sPrintUnderscore", "sPrintVerticalRule", "sPrintHorizontalRule",
        "sPrintTestPage"}) {
    EXPECT_NE(all.find(std::string(" ") + procedure + " "), std::string::npos) << procedure;
  }
}

class PrinterErrors : public PrinterTest {};

TEST_F(PrinterErrors, EveryFailingReplacementStopsTheWrite) {
  openJob();
  for (int call = 1; call <= 8; ++call) {
    calls.clear();
    texto->fault.raiseAt(call, kOverflow);
    EXPECT_EQ(errorNumberOf([this] { channel->sWriteLn(u"x", 0); }), kOverflow);
    EXPECT_TRUE(calls.linesOf("write").empty()) << call;
  }
  channel->sWriteLn(u"again", 0);
  EXPECT_EQ(spooler->bytes(), "again\r\n");
}

TEST_F(PrinterErrors, AnErrorLeavesTheJobOpen) {
  openJob();
  texto->fault.raiseAt(1, kOverflow);
  EXPECT_EQ(errorNumberOf([this] { channel->sWrite(u"lost", 0); }), kOverflow);
  EXPECT_EQ(callsOf([this] {
              channel->sWrite(u"kept", 0);
              channel->sClosePrinterFileHandle();
            }),
            "write 1 kept\nendPage 1\nendDocument 1\nclosePrinter 1\n");
}

TEST_F(PrinterErrors, ARuleStopsWhereTheNumberFails) {
  openJob();
  convert->fault.raiseAt(4, kTypeMismatch);
  EXPECT_EQ(errorNumberOf([this] { channel->sPrintHorizontalRule(true, 1, 1); }), kTypeMismatch);
  EXPECT_EQ(spooler->bytes(), "012");
}

// Whatever the spooler did last is what the error service is told, at every level.
TEST_F(PrinterErrors, CarryTheSystemErrorOfTheLastSpoolerCall) {
  const auto report = [](clsUtilImp& c) {
    c.sInitializePrinterFileHandle(u"LX-300", u"Ventas");
    c.sWriteLn(u"x", 0);
    c.sSendJobAndStartNewOne();
    c.sWrite(u"y", 0);
    c.sClosePrinterFileHandle();
  };
  constexpr int kSpoolerCalls = 3 + 1 + 4 + 1 + 3;
  for (int failing = 1; failing <= kSpoolerCalls; ++failing) {
    error->reports.clear();
    setLastSystemError(0);
    spooler->numberErrorsFrom(501);  // call 1 leaves 501
    spooler->fault.raiseAt(failing, kOutOfMemory);
    EXPECT_EQ(errorNumberOf([&] { report(*channel); }), kOutOfMemory);
    const std::int32_t expected = failing == 1 ? 0 : 500 + failing - 1;
    ASSERT_FALSE(error->reports.empty());
    for (const RecordingError::Report& level : error->reports) {
      EXPECT_EQ(level.lastDllError, expected) << "call " << failing;
    }
  }
  spooler->numberErrorsFrom(501);
  report(*channel);
  EXPECT_EQ(lastSystemError(), 500 + kSpoolerCalls);
}

TEST_F(PrinterErrors, WithoutServicesAreError91) {
  forgetServices();
  struct Call {
    const char* shows;
    void (*action)(clsUtilImp& channel);
  };
  constexpr Call kNeedServices[] = {
      {"sWrite", write},      {"sWriteLn", writeLine},  {"margin", writeWithMargin},
      {"sSkipNPoints", skip}, {"sResetPrinter", reset}, {"sPrintUnderscore", underscores},
      {"rule", verticalRule}, {"rule", horizontalRule}, {"sPrintTestPage", testPage}};
  for (const Call& call : kNeedServices) {
    const std::optional<RunTimeError> raised = errorOf([&] { call.action(*channel); });
    ASSERT_TRUE(raised.has_value()) << call.shows;
    EXPECT_EQ(raised->number(), kObjectNotSet) << call.shows;
    EXPECT_EQ(toUtf8(raised->description()), "Object variable not set");
    EXPECT_EQ(toUtf8(raised->source()), "LibTarvoRdpCI");
  }
  EXPECT_EQ(spooler->bytes(), "");
}

TEST_F(PrinterErrors, AnUnknownPrinterNeedsTheMessageService) {
  forgetServices();
  spooler->forgetPrinter(u"nowhere");
  EXPECT_EQ(errorNumberOf([this] { openUnknown(*channel); }), kObjectNotSet);
}

TEST_F(PrinterErrors, OpeningAndClosingNeedNoService) {
  forgetServices();
  openJob();
  channel->sSendJobAndStartNewOne();
  channel->sClosePrinterFileHandle();
  EXPECT_EQ(spooler->jobs().size(), 2u);
}

TEST_F(PrinterErrors, WithoutTheErrorServiceAloneAreError91) {
  modRDPGlobalValues::ofThisThread().refInsError = nullptr;
  openJob();
  texto->fault.raiseAt(1, kOverflow);
  EXPECT_EQ(errorNumberOf([this] { channel->sWrite(u"x", 0); }), kObjectNotSet);
}

}  // namespace
}  // namespace tarvo::test
