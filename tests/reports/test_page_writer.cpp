// The page writer by itself: counters, pages, ranges, channels, emphasis.
#include <gmock/gmock.h>

#include "frame/checked.h"
#include "report_world.h"
#include "reports/form_page_writer.h"

namespace tarvo::test {
namespace {

constexpr ErrorIdentity kReport{u"clsReport", u"Lib. de Prueba"};

class Host final : public PageWriterHost {
 public:
  explicit Host(CallLog& log) : log_(log) {}

  bool skipPage = false;
  Fault headerFault;

  bool skipPageWasRead() const noexcept override { return skipPage; }
  void printPageHeader() override {
    log_.add("header");
    headerFault.countCall();
  }

 private:
  CallLog& log_;
};

class PageWriterTest : public ::testing::Test {
 protected:
  PageWriterTest() {
    writer.initialize();
    world.printer->sInitializePrinterFileHandle(u"LX-300", u"Prueba");
    world.spoolerCalls.clear();
  }

  void writeLines(int count) {
    for (int i = 0; i < count; ++i) writer.sWriteLine(u"x");
  }

  // Goes to that page without leaving a trace.
  void goToPage(int page) { writer.setPage(narrow<std::int16_t>(page)); }

  // What the action sends to the printer.
  template <class Action>
  std::string printed(Action&& action) {
    const std::size_t before = world.spooler->bytes().size();
    action();
    std::string dump = bytesDump(world.spooler->bytes().substr(before));
    if (!dump.empty()) dump.pop_back();  // the dump's own last line end
    return dump;
  }

  // The rows that the action adds to a page report.
  template <class Action>
  std::string rows(Action&& action) {
    const auto channel = make<clsARObRep>(world.pages);
    channel->sInit(u"LX-300", u"Prueba", ePD_Screen);
    writer.setGraphicChannel(channel);
    action();
    channel->sCloseGraphicHandle();
    writer.setGraphicChannel(nullptr);
    return world.pageCalls.text();
  }

  ReportWorld world;
  Host host{world.calls};
  FormPageWriter writer{kReport, host};
};

TEST_F(PageWriterTest, StartsAtLineOneOfPageOneAndPrintsPages0To9999) {
  EXPECT_EQ(writer.page(), 1);
  EXPECT_EQ(writer.line(), 1);
  EXPECT_FALSE(writer.linePrinted());
  EXPECT_EQ(writer.device(), ePD_Printer);
  goToPage(0);
  EXPECT_EQ(printed([&] { writer.sOBWrite(u"a"); }), "a");
  goToPage(9999);
  EXPECT_EQ(printed([&] { writer.sOBWrite(u"a"); }), "a");
  goToPage(10000);
  EXPECT_EQ(printed([&] { writer.sOBWrite(u"a"); }), "");
  goToPage(-1);
  EXPECT_EQ(printed([&] { writer.sOBWrite(u"a"); }), "");
}

TEST_F(PageWriterTest, InitializingPutsEverythingBack) {
  writer.sSetMargins(9, 9, 9, 9);
  writer.allowPoints(false);
  writer.sWriteLine(u"a");
  goToPage(7);
  writer.setPageRange(5, 3);
  writer.initialize();
  EXPECT_EQ(writer.page(), 1);
  EXPECT_EQ(writer.line(), 1);
  EXPECT_FALSE(writer.linePrinted());
  EXPECT_EQ(printed([&] {
              writer.sSkipNPoints(1);
              writer.sOBWrite(u"b");
              writer.sWriteLine(u"c");
            }),
            "<1B>A1<0D><0A>\n<1B>A2bc<0D><0A>");
  goToPage(4);
  EXPECT_EQ(printed([&] { writer.sWriteLine(u"d"); }), "d<0D><0A>");
}

TEST_F(PageWriterTest, HoldsOneLineLessThanThePageLengthAndThenBreaks) {
  const std::string page = printed([&] { writeLines(65); });
  EXPECT_EQ(page.find("<0C>"), std::string::npos);
  EXPECT_EQ(writer.line(), 66);
  EXPECT_EQ(writer.page(), 1);
  EXPECT_EQ(printed([&] { writeLines(1); }), "<0C>x<0D><0A>");
  EXPECT_EQ(writer.page(), 2);
  EXPECT_EQ(writer.line(), 2) << "the line after line 1";
  EXPECT_THAT(world.calls.lines(), ::testing::ElementsAre("header"));
}

TEST_F(PageWriterTest, APageLengthOf0BreaksBeforeEveryCheckedLine) {
  world.printer->SetMaxLinPage(0);
  EXPECT_EQ(printed([&] { writeLines(2); }), "<0C>x<0D><0A>\n<0C>x<0D><0A>");
}

TEST_F(PageWriterTest, TheWordBreaksAnEmptyPageBeforeLinesAndOpenText) {
  host.skipPage = true;
  EXPECT_EQ(printed([&] { writer.sWriteLine(u"a"); }), "<0C>a<0D><0A>");
  EXPECT_EQ(printed([&] { writer.sOBWrite(u"b"); }), "<0C>b");
  EXPECT_EQ(writer.page(), 3);
}

TEST_F(PageWriterTest, UncheckedWritesNeverBreak) {
  host.skipPage = true;
  world.printer->SetMaxLinPage(1);
  EXPECT_EQ(printed([&] {
              writer.sWriteLineNoSkipPage(u"a");
              writer.sOBWriteNoSkipPage(u"b");
            }),
            "a<0D><0A>\nb");
  EXPECT_EQ(writer.page(), 1);
}

TEST_F(PageWriterTest, OpenTextCountsNoLineAndPrintsNone) {
  writer.sOBWrite(u"abierta");
  EXPECT_EQ(writer.line(), 1);
  EXPECT_FALSE(writer.linePrinted());
  writer.sWriteLine(u"a");
  EXPECT_EQ(writer.line(), 2);
  EXPECT_TRUE(writer.linePrinted());
}

TEST_F(PageWriterTest, ARangeKeepsOpenTextAndFormFeedsBackAndLetsLinesThrough) {
  writer.setPageRange(3, 5);
  const auto everything = [&] {
    writer.sOBWriteNoSkipPage(u"a");
    writer.sWriteFormFeed();
    writer.sWriteLineNoSkipPage(u"l");
  };
  for (const int outside : {1, 2, 6}) {
    goToPage(outside);
    EXPECT_EQ(printed(everything), "l<0D><0A>") << "page " << outside;
  }
  for (const int inside : {3, 4, 5}) {
    goToPage(inside);
    EXPECT_EQ(printed(everything), "a<0C>l<0D><0A>") << "page " << inside;
  }
}

TEST_F(PageWriterTest, ARangeThatIsTurnedRoundKeepsLinesBackBetweenAndCountsThemAllTheSame) {
  writer.setPageRange(5, 3);
  goToPage(4);
  EXPECT_EQ(printed([&] { writer.sWriteLine(u"l"); }), "");
  EXPECT_EQ(writer.line(), 2);
  EXPECT_FALSE(writer.linePrinted());
  for (const int outside : {3, 5}) {
    goToPage(outside);
    EXPECT_EQ(printed([&] { writer.sWriteLineNoSkipPage(u"l"); }), "l<0D><0A>");
  }
}

TEST_F(PageWriterTest, SkippingAPageSendsTheFormFeedAndCountsThePage) {
  writer.sWriteLine(u"a");
  EXPECT_EQ(printed([&] { writer.sSkipPage(true); }), "<0C>");
  EXPECT_EQ(writer.line(), 1);
  EXPECT_EQ(writer.page(), 2);
  EXPECT_EQ(printed([&] { writer.sSkipPage(false); }), "<0C>") << "a form always ejects";
  EXPECT_EQ(printed([&] { writer.sSkipPageAndPrintPageHeader(); }), "<0C>");
  EXPECT_THAT(world.calls.lines(), ::testing::ElementsAre("header"));
}

TEST_F(PageWriterTest, TellsWhetherFewerLinesAreLeft) {
  struct Row {
    int written;
    std::uint8_t asked;
    bool fewer;
  };
  for (const Row& row : {Row{65, 0, true}, Row{64, 0, false}, Row{64, 1, true}, Row{0, 64, false},
                         Row{0, 65, true}}) {
    ReportWorld fresh;
    Host quiet{fresh.calls};
    FormPageWriter page{kReport, quiet};
    page.initialize();
    for (int i = 0; i < row.written; ++i) page.sWriteLineNoSkipPage(u"x");
    EXPECT_EQ(page.fLessOfNLinesAbsentToEndPage(row.asked), row.fewer)
        << row.written << " lines written, " << int{row.asked} << " asked";
  }
}

TEST_F(PageWriterTest, ASumOfMoreThan255LinesIsAnOverflow) {
  EXPECT_FALSE(errorOf([&] { writer.fLessOfNLinesAbsentToEndPage(254); }));
  EXPECT_EQ(errorNumberOf([&] { writer.fLessOfNLinesAbsentToEndPage(255); }), kOverflow);
  EXPECT_EQ(world.error->trail(), "fLessOfNLinesAbsentToEndPage");
}

TEST_F(PageWriterTest, PointsGoToTheChannelUnlessTheyAreForbidden) {
  EXPECT_EQ(printed([&] { writer.sSkipNPoints(2); }), "<1B>A1<0D><0A>\n<0D><0A>\n<1B>A2");
  EXPECT_EQ(writer.line(), 1);
  writer.allowPoints(false);
  EXPECT_EQ(printed([&] { writer.sSkipNPoints(2); }), "");
}

TEST_F(PageWriterTest, SkippingLinesWrites255AndThenOverflows) {
  world.printer->SetMaxLinPage(101);
  const std::string lines =
      printed([&] { EXPECT_EQ(errorNumberOf([&] { writer.sSkipNLines(1); }), kOverflow); });
  std::size_t count = 0;
  for (std::size_t at = lines.find("<0D>"); at != std::string::npos;
       at = lines.find("<0D>", at + 1)) {
    ++count;
  }
  EXPECT_EQ(count, 255u);
  EXPECT_EQ(writer.page(), 3) << "100 lines a page";
  EXPECT_EQ(writer.line(), 56);
  EXPECT_EQ(world.error->trail(), "sSkipNLines");
}

TEST_F(PageWriterTest, TheLeftMarginStandsBeforeLinesAndOpenTextAlone) {
  writer.sSetMargins(9, 8, 7, 3);
  EXPECT_EQ(printed([&] {
              writer.sWriteLine(u"a");
              writer.sOBWrite(u"b");
              writer.sWriteFormFeed();
            }),
            "   a<0D><0A>\n   b<0C>");
}

constexpr const char* kWarning =
    "clsMessage.sWarning \"La información a imprimir supera los 254 caracteres. Reduzca el ancho "
    "de "
    "las columnas de monto y texto o disminuya el rango de la información solicitada. El informe "
    "se "
    "imprimirá truncado.\"";

TEST_F(PageWriterTest, WarnsOfEveryLineAbove254CharactersAndSendsItWhole) {
  EXPECT_EQ(printed([&] { writer.sWriteLine(Text(254, u'x')); }).size(), 254u + 8);
  EXPECT_TRUE(world.calls.lines().empty());
  const Text line(300, u'x');
  EXPECT_EQ(printed([&] { writer.sWriteLine(line); }), std::string(300, 'x') + "<0D><0A>");
  writer.sWriteLine(line);
  EXPECT_THAT(world.calls.lines(), ::testing::ElementsAre(kWarning, kWarning));
}

TEST_F(PageWriterTest, DoesNotWarnOfOpenTextNorOfALineThatIsKeptBack) {
  writer.sOBWrite(Text(300, u'x'));
  writer.setPageRange(5, 3);
  goToPage(4);
  writer.sWriteLine(Text(300, u'x'));
  EXPECT_TRUE(world.calls.lines().empty());
}

// --- Channels.

TEST_F(PageWriterTest, UsesThePrinterChannelForAPrinterThatPrintsText) {
  EXPECT_TRUE(writer.usesTextChannel());
  for (const ePrintingDevice other : {ePD_Screen, ePD_Disk}) {
    writer.setDevice(other);
    EXPECT_FALSE(writer.usesTextChannel());
  }
  writer.setDevice(ePD_Printer);
  world.printer->SetCanPrintInTextMode(false);
  EXPECT_FALSE(writer.usesTextChannel());
}

TEST_F(PageWriterTest, TakesAMissingProfileForOneWithoutTextMode) {
  modRDPGlobalValues::ofThisThread().refInsImp = nullptr;
  EXPECT_FALSE(writer.usesTextChannel());
}

TEST_F(PageWriterTest, SendsRowsToTheGraphicChannel) {
  writer.setDevice(ePD_Screen);
  writer.sSetMargins(1, 0, 0, 2);
  const std::string all = rows([&] {
    writer.sWriteLine(u"a");
    writer.sOBWrite(u"b");
    writer.sSkipNPoints(24);
    writer.sWriteFormFeed();
  });
  EXPECT_EQ(all, "show \"Prueba\" modal\n  a\n  b\n\n\n") << all;
  EXPECT_EQ(writer.line(), 2);
}

TEST_F(PageWriterTest, WithoutAChannelWritingIsError91) {
  writer.setDevice(ePD_Screen);
  EXPECT_EQ(errorNumberOf([&] { writer.sWriteLine(u"a"); }), kObjectNotSet);
  EXPECT_EQ(world.error->trail(), "sWriteLineNoSkipPage sWriteLine");
}

// --- Emphasis.

struct Emphasis {
  const char* shows;
  void (PageWriter::*operation)();
  const char* sends;
  const char* signs;  // the name in its error reports
};

void PrintTo(const Emphasis& row, std::ostream* out) { *out << row.shows; }

constexpr Emphasis kEmphases[] = {
    {"Bold", &PageWriter::sWriteBold, "<1B>E", "sWriteBold"},
    {"Light", &PageWriter::sWriteLight, "<1B>F", "sWriteLine"},
    {"Expanded", &PageWriter::sWriteExpanded, "<1B>W1", "sWriteExpanded"},
    {"Condensed", &PageWriter::sWriteCondensed, "<0F>", "sWriteCondensed"},
    {"Normal", &PageWriter::sWriteNormal, "<12>", "sWriteNormal"},
    {"Font10Points", &PageWriter::sWriteFont10Points, "<1B>P", "sWriteFont10Points"},
    {"Font12Points", &PageWriter::sWriteFont12Points, "<1B>M", "sWriteFont12Points"},
    {"Reset", &PageWriter::sResetPrinter, "<1B>@", "sResetPrinter"},
    {"InternationalCharacters", &PageWriter::sPrinterInternationalCharacters, "<1B>R",
     "sPrinterInternationalCharacters"},
};

class PageWriterEmphasis : public PageWriterTest, public ::testing::WithParamInterface<Emphasis> {
 protected:
  PageWriterEmphasis() { world.printer->SetChrInternationalChars(u"\x1BR"); }
  void send() { (writer.*GetParam().operation)(); }
};

TEST_P(PageWriterEmphasis, SendsItsCode) {
  EXPECT_EQ(printed([&] { send(); }), GetParam().sends);
}

TEST_P(PageWriterEmphasis, ObeysTheRangeAndBreaksNoPage) {
  host.skipPage = true;
  EXPECT_EQ(printed([&] { send(); }), GetParam().sends);
  goToPage(10000);
  EXPECT_EQ(printed([&] { send(); }), "");
}

TEST_P(PageWriterEmphasis, SendsNothingToOtherDevices) {
  for (const ePrintingDevice other : {ePD_Screen, ePD_Disk}) {
    writer.setDevice(other);
    EXPECT_EQ(printed([&] { send(); }), "") << other;
  }
}

TEST_P(PageWriterEmphasis, SignsItsErrors) {
  modRDPGlobalValues::ofThisThread().refInsImp = nullptr;
  EXPECT_EQ(errorNumberOf([&] { send(); }), kObjectNotSet);
  EXPECT_EQ(world.error->trail(), GetParam().signs);
  ASSERT_EQ(world.error->reports.size(), 1u);
  EXPECT_EQ(world.error->reports[0].className, u"clsReport");
  EXPECT_EQ(world.error->reports[0].module, u"Lib. de Prueba");
}

INSTANTIATE_TEST_SUITE_P(All, PageWriterEmphasis, ::testing::ValuesIn(kEmphases),
                         [](const auto& row) { return std::string(row.param.shows); });

TEST_F(PageWriterTest, SendsAnEmptyCodeAsAnEmptyWriteButForTheCharacterSet) {
  world.printer->SetChrBold({});
  writer.sWriteBold();
  EXPECT_THAT(world.spoolerCalls.lines(), ::testing::ElementsAre("write 1"));
  writer.sPrinterInternationalCharacters();
  EXPECT_EQ(world.spoolerCalls.lines().size(), 1u);
}

// --- The emitted-on line.

TEST_F(PageWriterTest, TellsWhenTheReportWasIssuedInLightPrint) {
  EXPECT_EQ(printed([&] { writer.sWriteEmitedWithWidth(50); }),
            "<1B>F              Emitido el 15/03/2026 a las 14:05:09<0D><0A>\n<1B>E");
  EXPECT_EQ(writer.line(), 2);
}

TEST_F(PageWriterTest, CutsTheEmittedOnLineAtTheReportWidth) {
  writer.setReportWidth(21);
  EXPECT_EQ(printed([&] { writer.sWriteEmited(); }), "<1B>FEmitido el 15/03/2026<0D><0A>\n<1B>E");
}

TEST_F(PageWriterTest, BreaksAFullPageBeforeTheEmittedOnLine) {
  writeLines(65);
  const std::string sent = printed([&] { writer.sWriteEmitedWithWidth(10); });
  EXPECT_EQ(sent, "<1B>F<0C>Emitido el<0D><0A>\n<1B>E");
}

TEST_F(PageWriterTest, AsksTheServicesForTheEmittedOnLine) {
  CallLog asked;
  modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
  services.refInsTexto = make<RecordingTexto>(asked, services.refInsTexto);
  services.refInsConvert = make<RecordingConvert>(asked, services.refInsConvert);
  services.refInsUtilDate = make<RecordingDate>(asked, services.refInsUtilDate);
  writer.setDevice(ePD_Disk);  // no code, and a line that is kept back: the services alone
  writer.setPageRange(5, 3);
  goToPage(4);
  writer.sWriteEmitedWithWidth(60);
  EXPECT_THAT(
      asked.lines(),
      ::testing::ElementsAre("clsUtilDate.fToday", ::testing::StartsWith("clsConvert.fDateToText"),
                             "clsUtilDate.fTimeText",
                             "clsTexto.fFitToWidth \"Emitido el 15/03/2026 a las 14:05:09\", 60"));
}

// --- The report width.

class WidthService final : public clsConvert {
 public:
  std::int32_t width = 0;
  std::vector<std::int32_t> asked;

  std::int32_t fReportWidth(std::int32_t valLength, std::int16_t valCode) override {
    asked.insert(asked.end(), {valLength, valCode});
    return width;
  }
  void fFormatNumberDotComma(Currency, std::int16_t, std::int16_t, bool, Text&) override {}
  void fFormatNumberCommaDot(Currency, std::int16_t, std::int16_t, bool, Text&) override {}
  void fNumberToText(const Value&, Text&) override {}
  double fTextToNumber(TextView) override { return 0; }
  bool fIsNumeric(TextView) override { return false; }
  std::uint8_t fTextToByte(TextView) override { return 0; }
  std::int16_t fTextToInteger(TextView) override { return 0; }
  void fBooleanToText(bool, Text&) override {}
  void fDateToText(Date, Text&) override {}
};

TEST_F(PageWriterTest, AsksTheConversionServiceForTheReportWidth) {
  const auto service = make<WidthService>();
  modRDPGlobalValues::ofThisThread().refInsConvert = service;
  service->width = 132;
  EXPECT_EQ(writer.fReportWidthAccordingToTitleColumns(Text(254, u'x')), 132);
  EXPECT_THAT(service->asked, ::testing::ElementsAre(254, 3));
  service->width = 0;
  EXPECT_EQ(writer.fReportWidthAccordingToTitleColumns({}), 76);
  service->asked.clear();
  EXPECT_EQ(writer.fReportWidthAccordingToTitleColumns(Text(255, u'x')), 254);
  EXPECT_TRUE(service->asked.empty());
  for (const std::int32_t outside : {256, -1}) {
    service->width = outside;
    EXPECT_EQ(errorNumberOf([&] { writer.fReportWidthAccordingToTitleColumns({}); }), kOverflow);
  }
  EXPECT_EQ(world.error->trail(),
            "fReportWidthAccordingToTitleColumns fReportWidthAccordingToTitleColumns");
}

// --- Limits of the counters.

TEST_F(PageWriterTest, TheLineAfter255IsAnOverflowOnceItIsSent) {
  world.printer->SetMaxLinPage(255);
  for (int i = 0; i < 254; ++i) writer.sWriteLineNoSkipPage({});
  EXPECT_EQ(writer.line(), 255);
  EXPECT_EQ(printed([&] {
              EXPECT_EQ(errorNumberOf([&] { writer.sWriteLineNoSkipPage(u"x"); }), kOverflow);
            }),
            "x<0D><0A>");
  EXPECT_EQ(world.error->trail(), "sWriteLineNoSkipPage");
}

TEST_F(PageWriterTest, ThePageAfter32767IsAnOverflow) {
  goToPage(32766);
  writer.sSkipPage(true);
  EXPECT_EQ(writer.page(), 32767);
  EXPECT_EQ(errorNumberOf([&] { writer.sSkipPage(true); }), kOverflow);
  EXPECT_EQ(writer.page(), 32767);
  EXPECT_EQ(world.error->trail(), "sSkipPage");
}

// --- Who signs.

struct Signature {
  const char* shows;
  void (*action)(PageWriter&, ReportWorld&, Host&);
  const char* trail;
};

void PrintTo(const Signature& row, std::ostream* out) { *out << row.shows; }

void loseProfile(ReportWorld&) { modRDPGlobalValues::ofThisThread().refInsImp = nullptr; }
void loseMessages(ReportWorld&) { modRDPGlobalValues::ofThisThread().refInsMessage = nullptr; }

const Signature kSignatures[] = {
    {"PageTest",
     [](PageWriter& w, ReportWorld& world, Host&) {
       loseProfile(world);
       w.sWriteLine(u"a");
     },
     "fHasToSkipPage sWriteLine"},
    {"PageTestOfOpenText",
     [](PageWriter& w, ReportWorld& world, Host&) {
       loseProfile(world);
       w.sOBWrite(u"a");
     },
     "fHasToSkipPage sOBWrite"},
    {"Warning",
     [](PageWriter& w, ReportWorld& world, Host&) {
       loseMessages(world);
       w.sWriteLineNoSkipPage(Text(255, u'x'));
     },
     "sWriteLineNoSkipPage"},
    {"OpenText",
     [](PageWriter& w, ReportWorld& world, Host&) {
       world.spooler->fault.raiseAt(1, kOutOfMemory);
       w.sOBWrite(u"a");
     },
     "fSendStringToPrinter sWriteToFileHandle sWrite sOBWriteNoSkipPage sOBWrite"},
    {"Line",
     [](PageWriter& w, ReportWorld& world, Host&) {
       world.spooler->fault.raiseAt(1, kOutOfMemory);
       w.sWriteLine(u"a");
     },
     "fSendStringToPrinter sWriteToFileHandle sWriteLn sWriteLineNoSkipPage sWriteLine"},
    {"FormFeedOfABreak",
     [](PageWriter& w, ReportWorld& world, Host& host) {
       host.skipPage = true;
       world.spooler->fault.raiseAt(1, kOutOfMemory);
       w.sWriteLine(u"a");
     },
     "fSendStringToPrinter sWriteToFileHandle sWrite sWriteFormFeed sSkipPage sWriteLine"},
    {"Header",
     [](PageWriter& w, ReportWorld&, Host& host) {
       host.headerFault.raiseAt(1, kTypeMismatch);
       w.sSkipPageAndPrintPageHeader();
     },
     "sSkipPageAndPrintPageHeader"},
    {"Points",
     [](PageWriter& w, ReportWorld& world, Host&) {
       world.spooler->fault.raiseAt(1, kOutOfMemory);
       w.sSkipNPoints(1);
     },
     "fSendStringToPrinter sWriteToFileHandle sWrite sSkipNPoints sSkipNPoints"},
    {"EmittedOn",
     [](PageWriter& w, ReportWorld& world, Host&) {
       world.clock->fault.raiseAt(1, kTypeMismatch);
       w.sWriteEmited();
     },
     "sWriteEmitedWithWidth sWriteEmited"},
    {"ReportWidth",
     [](PageWriter& w, ReportWorld&, Host&) {
       modRDPGlobalValues::ofThisThread().refInsConvert = nullptr;
       w.fReportWidthAccordingToTitleColumns({});
     },
     "fReportWidthAccordingToTitleColumns"},
    {"LinesLeft",
     [](PageWriter& w, ReportWorld& world, Host&) {
       loseProfile(world);
       w.fLessOfNLinesAbsentToEndPage(1);
     },
     "fLessOfNLinesAbsentToEndPage"},
};

class PageWriterSignatures : public PageWriterTest,
                             public ::testing::WithParamInterface<Signature> {};

TEST_P(PageWriterSignatures, AreTheReportsAndTheOperationsOwn) {
  EXPECT_NE(errorNumberOf([&] { GetParam().action(writer, world, host); }), 0);
  EXPECT_EQ(world.error->trail(), GetParam().trail);
  ASSERT_FALSE(world.error->reports.empty());
  EXPECT_EQ(world.error->reports.back().className, u"clsReport");
  EXPECT_EQ(world.error->reports.back().module, u"Lib. de Prueba");
}

INSTANTIATE_TEST_SUITE_P(All, PageWriterSignatures, ::testing::ValuesIn(kSignatures),
                         [](const auto& row) { return std::string(row.param.shows); });

}  // namespace
}  // namespace tarvo::test
