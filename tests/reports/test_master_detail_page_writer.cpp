// The page writer of the master-detail report by itself: how its pages end, and when.
#include <gmock/gmock.h>

#include "frame/checked.h"
#include "master_detail_report.h"
#include "reports/master_detail_page_writer.h"

namespace tarvo::test {
namespace {

using ::testing::ElementsAre;

constexpr ErrorIdentity kReport{u"clsReport", u"Lib. de Prueba"};

class Host final : public PageWriterHost {
 public:
  explicit Host(CallLog& log) : log_(log) {}

  bool skipPage = false;

  bool skipPageWasRead() const noexcept override { return skipPage; }
  void printPageHeader() override { log_.add("header"); }

 private:
  CallLog& log_;
};

class MasterDetailPageWriterTest : public ::testing::Test {
 protected:
  MasterDetailPageWriterTest() {
    writer.initialize();
    world.printer->sInitializePrinterFileHandle(u"LX-300", u"Prueba");
    world.spoolerCalls.clear();
  }

  void writeLines(int count) {
    for (int i = 0; i < count; ++i) writer.sWriteLineNoSkipPage(u"x");
  }

  // What the action sends to the printer.
  template <class Action>
  std::string sent(Action&& action) {
    const std::size_t before = world.spooler->bytes().size();
    action();
    return world.spooler->bytes().substr(before);
  }

  ReportWorld world;
  Host host{world.calls};
  HalfLetterPaper paper;
  MasterDetailPageWriter writer{kReport, host, paper};
};

// --- When a page is full.

TEST_F(MasterDetailPageWriterTest, HoldsOneLineLessThanThePageLengthAndThenBreaks) {
  EXPECT_EQ(sent([&] {
              for (int i = 0; i < 65; ++i) writer.sWriteLine(u"x");
            }),
            repeated(65, "x\r\n"));
  EXPECT_EQ(writer.page(), 1);
  EXPECT_EQ(sent([&] { writer.sWriteLine(u"y"); }), "\fy\r\n");
  EXPECT_EQ(writer.page(), 2);
  EXPECT_EQ(writer.line(), 2) << "after its line 1";
  EXPECT_THAT(world.calls.lines(), ElementsAre("header"));
}

TEST_F(MasterDetailPageWriterTest, APageLengthOf0NeverBreaksByItself) {
  world.printer->SetMaxLinPage(0);
  writeLines(300);
  EXPECT_FALSE(writer.fHasToSkipPage());
  EXPECT_EQ(sent([&] { writer.sWriteLine(u"y"); }), "y\r\n");
  EXPECT_EQ(writer.page(), 1);
}

TEST_F(MasterDetailPageWriterTest, TheWordBreaksAnyPageBeforeLinesAndOpenText) {
  host.skipPage = true;
  EXPECT_EQ(sent([&] { writer.sWriteLine(u"a"); }), "\fa\r\n") << "an empty page";
  EXPECT_EQ(sent([&] { writer.sOBWrite(u"b"); }), "\fb");
  world.printer->SetMaxLinPage(0);
  EXPECT_EQ(sent([&] { writer.sWriteLine(u"c"); }), "\fc\r\n") << "a page without a length";
  EXPECT_EQ(writer.page(), 4);
}

TEST_F(MasterDetailPageWriterTest, APageOf255LinesHolds254) {
  world.printer->SetMaxLinPage(255);
  writeLines(253);
  EXPECT_FALSE(writer.fHasToSkipPage());
  writeLines(1);
  EXPECT_TRUE(writer.fHasToSkipPage());
}

// --- How it ends.

struct PageEnd {
  const char* shows;
  bool isHalfLetter;
  bool eject;
  int linesWritten;
  const char* sends;
  int emptyLines;
};

void PrintTo(const PageEnd& row, std::ostream* out) { *out << row.shows; }

class MasterDetailPageEnd : public MasterDetailPageWriterTest,
                            public ::testing::WithParamInterface<PageEnd> {};

// After 19 lines the present line is 20; a half-letter page has 29.
constexpr PageEnd kPageEnds[] = {
    {"FormFeed", false, true, 19, "\f", 0},
    {"FiveLinesWithoutEjecting", false, false, 19, "", 5},
    {"HalfLetterFromLine20", true, true, 19, "", 10},
    {"HalfLetterWithoutEjecting", true, false, 19, "", 10},
    {"HalfLetterFromItsFirstLine", true, true, 0, "", 29},
    {"HalfLetterFromItsLastLine", true, true, 28, "", 1},
    {"HalfLetterBehindItsLastLine", true, true, 29, "", 0},
    {"HalfLetterFarBehind", true, true, 60, "", 0},
};

TEST_P(MasterDetailPageEnd, SendsWhatThePaperNeeds) {
  paper.isUsed = GetParam().isHalfLetter;
  writeLines(GetParam().linesWritten);
  EXPECT_EQ(sent([&] { writer.sSkipPage(GetParam().eject); }),
            GetParam().sends + repeated(GetParam().emptyLines, "\r\n"));
  EXPECT_EQ(writer.line(), 1);
  EXPECT_EQ(writer.page(), 2);
}

INSTANTIATE_TEST_SUITE_P(All, MasterDetailPageEnd, ::testing::ValuesIn(kPageEnds),
                         [](const auto& row) { return std::string(row.param.shows); });

TEST_F(MasterDetailPageWriterTest, TheLinesOfHalfLetterPaperDoNotBreakThePage) {
  paper = {true, 29};
  world.printer->SetMaxLinPage(10);
  host.skipPage = true;
  EXPECT_EQ(sent([&] { writer.sSkipPage(true); }), repeated(29, "\r\n"));
  EXPECT_TRUE(world.calls.lines().empty()) << "no header";
}

TEST_F(MasterDetailPageWriterTest, HalfLetterPaperMayHave255Lines) {
  paper = {true, 255};
  writeLines(19);
  EXPECT_EQ(sent([&] { writer.sSkipPage(true); }), repeated(236, "\r\n"));
}

TEST_F(MasterDetailPageWriterTest, HalfLetterPaperOf0LinesEndsAtOnce) {
  paper = {true, 0};
  EXPECT_EQ(sent([&] { writer.sSkipPage(true); }), "");
  EXPECT_EQ(writer.page(), 2);
}

TEST_F(MasterDetailPageWriterTest, TheFiveLinesInsteadOfAFormFeedMayBreakThePage) {
  world.printer->SetMaxLinPage(10);
  writeLines(7);
  EXPECT_EQ(sent([&] { writer.sSkipPage(false); }), "\r\n\r\n\f\r\n\r\n\r\n");
  EXPECT_EQ(writer.page(), 3) << "the break's and the skip's own";
  EXPECT_EQ(writer.line(), 1);
}

TEST_F(MasterDetailPageWriterTest, TheNextPagesHeaderFollowsTheFormFeed) {
  EXPECT_EQ(sent([&] { writer.sSkipPageAndPrintPageHeader(); }), "\f");
  EXPECT_THAT(world.calls.lines(), ElementsAre("header"));
}

TEST_F(MasterDetailPageWriterTest, AFormFeedIsHeldBackBehindPage9999AndThePageCounted) {
  writer.setPage(10000);
  EXPECT_EQ(sent([&] { writer.sSkipPage(true); }), "");
  EXPECT_EQ(writer.page(), 10001);
  EXPECT_EQ(sent([&] { writer.sSkipPage(false); }), repeated(5, "\r\n"));
}

// --- Skipping lines.

TEST_F(MasterDetailPageWriterTest, SkipsAsManyLinesAsAsked) {
  for (const int count : {0, 1, 5}) {
    EXPECT_EQ(sent([&] { writer.sSkipNLines(narrow<std::uint8_t>(count)); }),
              repeated(count, "\r\n"));
  }
  EXPECT_EQ(writer.line(), 7);
}

TEST_F(MasterDetailPageWriterTest, Skips255LinesWithoutOverflow) {
  world.printer->SetMaxLinPage(0);
  EXPECT_EQ(sent([&] { writer.sSkipNLines(255); }), repeated(255, "\r\n"));
  EXPECT_EQ(writer.line(), 256) << "more than a byte";
}

TEST_F(MasterDetailPageWriterTest, SkippedLinesBreakAFullPage) {
  world.printer->SetMaxLinPage(3);
  EXPECT_EQ(sent([&] { writer.sSkipNLines(5); }), "\r\n\r\n\f\r\n\r\n\f\r\n");
  EXPECT_THAT(world.calls.lines(), ElementsAre("header", "header"));
}

// --- Limits and signatures.

TEST_F(MasterDetailPageWriterTest, TheLineAfter32767IsAnOverflowOnceItIsSent) {
  writeLines(32766);
  EXPECT_EQ(writer.line(), 32767);
  EXPECT_EQ(sent([&] {
              EXPECT_EQ(errorNumberOf([&] { writer.sWriteLineNoSkipPage(u"y"); }), kOverflow);
            }),
            "y\r\n");
  EXPECT_EQ(writer.line(), 32767);
  EXPECT_EQ(world.error->trail(), "sWriteLineNoSkipPage");
}

TEST_F(MasterDetailPageWriterTest, ThePageAfter32767IsAnOverflow) {
  writer.setPage(32766);
  writer.sSkipPage(true);
  EXPECT_EQ(writer.page(), 32767);
  EXPECT_EQ(errorNumberOf([&] { writer.sSkipPage(true); }), kOverflow);
  EXPECT_EQ(world.error->trail(), "sSkipPage");
}

TEST_F(MasterDetailPageWriterTest, OnALongPageTheQuestionForLinesLeftIsAnOverflow) {
  world.printer->SetMaxLinPage(255);
  writeLines(253);
  EXPECT_FALSE(writer.fLessOfNLinesAbsentToEndPage(0));
  EXPECT_TRUE(writer.fLessOfNLinesAbsentToEndPage(1));
  writeLines(2);
  EXPECT_EQ(errorNumberOf([&] { writer.fLessOfNLinesAbsentToEndPage(0); }), kOverflow);
}

struct Signature {
  const char* shows;
  void (*action)(MasterDetailPageWriter&, HalfLetterPaper&, ReportWorld&);
  const char* trail;
};

void PrintTo(const Signature& row, std::ostream* out) { *out << row.shows; }

void breakSpooler(ReportWorld& world) { world.spooler->fault.raiseAt(1, kOutOfMemory); }

const Signature kSignatures[] = {
    {"PageTest",
     [](MasterDetailPageWriter& writer, HalfLetterPaper&, ReportWorld&) {
       modRDPGlobalValues::ofThisThread().refInsImp = nullptr;
       writer.fHasToSkipPage();
     },
     "fHasToSkipPage"},
    {"PageEnd",
     [](MasterDetailPageWriter& writer, HalfLetterPaper&, ReportWorld& world) {
       breakSpooler(world);
       writer.sSkipPage(true);
     },
     "fSendStringToPrinter sWriteToFileHandle sWrite sWriteFormFeed sSkipPage"},
    {"PageEndOfFiveLines",
     [](MasterDetailPageWriter& writer, HalfLetterPaper&, ReportWorld& world) {
       breakSpooler(world);
       writer.sSkipPage(false);
     },
     "fSendStringToPrinter sWriteToFileHandle sWriteLn sWriteLineNoSkipPage sWriteLine sSkipNLines "
     "sSkipPage"},
    {"PageEndOfHalfLetterPaper",
     [](MasterDetailPageWriter& writer, HalfLetterPaper& paper, ReportWorld& world) {
       paper.isUsed = true;
       breakSpooler(world);
       writer.sSkipPage(true);
     },
     "fSendStringToPrinter sWriteToFileHandle sWriteLn sWriteLineNoSkipPage sSkipPage"},
    {"Skip",
     [](MasterDetailPageWriter& writer, HalfLetterPaper&, ReportWorld& world) {
       breakSpooler(world);
       writer.sSkipNLines(1);
     },
     "fSendStringToPrinter sWriteToFileHandle sWriteLn sWriteLineNoSkipPage sWriteLine "
     "sSkipNLines"},
};

class MasterDetailPageWriterSignatures : public MasterDetailPageWriterTest,
                                         public ::testing::WithParamInterface<Signature> {};

TEST_P(MasterDetailPageWriterSignatures, AreTheReportsAndTheOperationsOwn) {
  EXPECT_NE(errorNumberOf([&] { GetParam().action(writer, paper, world); }), 0);
  EXPECT_EQ(world.error->trail(), GetParam().trail);
  ASSERT_FALSE(world.error->reports.empty());
  EXPECT_EQ(world.error->reports.back().className, u"clsReport");
  EXPECT_EQ(world.error->reports.back().module, u"Lib. de Prueba");
}

INSTANTIATE_TEST_SUITE_P(All, MasterDetailPageWriterSignatures, ::testing::ValuesIn(kSignatures),
                         [](const auto& row) { return std::string(row.param.shows); });

}  // namespace
}  // namespace tarvo::test
