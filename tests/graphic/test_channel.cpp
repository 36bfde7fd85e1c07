// What the graphic channel makes of a report's lines.
#include <array>

#include "equipment/temporary_folder.h"
#include "frame/silent_services.h"
#include "graphic/clsARObRep_members.h"
#include "graphic/page_report_parts.h"
#include "graphic_test.h"

namespace tarvo::test {
namespace {

class Channel : public GraphicTest {};

TEST_F(Channel, EveryWriteIsARowOfItsOwn) {
  EXPECT_EQ(rowsOf([this] {
              channel->sWrite(u"A", 0);
              channel->sWriteLn(u"B", 0);
              channel->sWrite(u"", 0);
              channel->sWrite(u"año", 0);
            }),
            "A\nB\n\naño\n");
}

TEST_F(Channel, ARowIsAddedToTheTableWithEachWrite) {
  begin();
  EXPECT_EQ(callsOf([this] { channel->sWrite(u"A", 0); }), "table addRow \"A\"\n");
  EXPECT_EQ(callsOf([this] { channel->sWriteLn(u"B", 0); }), "table addRow \"B\"\n");
}

TEST_F(Channel, AMarginIsTheTextServicesAffair) {
  EXPECT_EQ(rowsOf([this] {
              channel->sWrite(u"A", 3);
              channel->sWriteLn(u"B", 1);
            }),
            "   A\n B\n");
  begin();
  textCalls.clear();
  channel->sWriteLn(u"A", 255);
  EXPECT_EQ(textCalls.linesOf("clsTexto.fLeftMargin"),
            std::vector<std::string>{"clsTexto.fLeftMargin \"A\", 255"});
}

TEST_F(Channel, NoMarginIsNoCall) {
  begin();
  channel->sWriteLn(u"A", 0);
  channel->sWrite(u"A", 0);
  EXPECT_TRUE(textCalls.linesOf("clsTexto.fLeftMargin").empty());
}

TEST_F(Channel, SixControlCodesAreTakenOutOneAfterTheOther) {
  begin();
  textCalls.clear();
  channel->sWrite(u"a<bold>b", 0);
  EXPECT_EQ(textCalls.text(),
            "clsTexto.fReplaceAll \"a<3C>bold>b\", \"<3C>cond>\", \"\"\n"
            "clsTexto.fReplaceAll \"a<3C>bold>b\", \"<3C>exp>\", \"\"\n"
            "clsTexto.fReplaceAll \"a<3C>bold>b\", \"<3C>/exp>\", \"\"\n"
            "clsTexto.fReplaceAll \"a<3C>bold>b\", \"<3C>norm>\", \"\"\n"
            "clsTexto.fReplaceAll \"a<3C>bold>b\", \"<3C>bold>\", \"\"\n"
            "clsTexto.fReplaceAll \"ab\", \"<3C>light>\", \"\"\n"
            "clsTexto.fLength \"ab\"\n");
}

TEST_F(Channel, EveryOccurrenceOfTheSixCodesGoes) {
  EXPECT_EQ(rowsOf([this] {
              channel->sWrite(u"<bold>T<light><norm><norm>o<exp>t</exp>al<cond>", 0);
              // What only comes together by taking out an earlier one of the six goes as well...
              channel->sWrite(u"x<no<cond>rm>y", 0);
              // ...and what a later one would have made an earlier one, stays.
              channel->sWrite(u"x<co<norm>nd>y", 0);
            }),
            "Total\nxy\nx<3C>cond>y\n");
}

TEST_F(Channel, OtherControlCodesStayInTheText) {
  EXPECT_EQ(rowsOf([this] {
              channel->sWrite(printer->GetChrReset(), 0);
              channel->sWrite(u"a\f\rb", 0);
            }),
            "<1B>@\na<0C><0D>b\n");
}

TEST_F(Channel, AnEmptyControlCodeTakesNothingOut) {
  printer->SetChrCondensed(u"");
  printer->SetChrLight(u"");
  EXPECT_EQ(rowsOf([this] { channel->sWrite(u"a <bold>b", 0); }), "a b\n");
}

TEST_F(Channel, ACodeCountsAsItIsWhenTheLineIsWritten) {
  EXPECT_EQ(rowsOf([this] {
              channel->sWrite(u"<bold>a", 0);
              printer->SetChrBold(u"*");
              channel->sWrite(u"<bold>*b", 0);
            }),
            "a\n<3C>bold>b\n");
}

struct Skip {
  int points;
  std::size_t rows;
};
class ChannelSkips : public GraphicTest, public ::testing::WithParamInterface<Skip> {};

TEST_P(ChannelSkips, AreEmptyRows) {
  begin();
  const std::string made =
      callsOf([this] { channel->sSkipNPoints(static_cast<std::uint8_t>(GetParam().points)); });
  std::string expected;
  for (std::size_t i = 0; i < GetParam().rows; ++i) expected += "table addRow \"\"\n";
  EXPECT_EQ(made, expected);
}

// Twelve points are a row, halves go to the even number, and there is one row at least.
INSTANTIATE_TEST_SUITE_P(OfPoints, ChannelSkips,
                         ::testing::Values(Skip{0, 1}, Skip{1, 1}, Skip{5, 1}, Skip{6, 1},
                                           Skip{7, 1}, Skip{12, 1}, Skip{17, 1}, Skip{18, 2},
                                           Skip{19, 2}, Skip{24, 2}, Skip{29, 2}, Skip{30, 2},
                                           Skip{31, 3}, Skip{42, 4}, Skip{54, 4}, Skip{66, 6},
                                           Skip{120, 10}, Skip{246, 20}, Skip{247, 21},
                                           Skip{255, 21}),
                         [](const auto& row) { return std::to_string(row.param.points); });

TEST_F(Channel, TellsTheReportUtilityWhatTheReportIs) {
  begin();
  channel->sWrite(u"A", 0);
  EXPECT_EQ(callsOf([this] { channel->sCloseGraphicHandle(); }),
            "table moveFirst\n"
            "fLoadLayout \"rpxFormDraft\", \"Ventas\"\n"
            "fApplyLayout PageReport, \"rpxFormDraft|Ventas\"\n"
            "sBindText PageReport, \"txtData\", \"ObData\", 0\n"
            "sSetFont PageReport, \"txtData\", \"Courier New\", 8, false, false\n"
            "sRunReport PageReport, false, \"Ventas\", true, \"EPSON\", 0, \"\", \"\"\n"
            "table moveFirst\n"  // the report component's
            "show \"Ventas\", modal\n"
            "table close\n");
}

TEST_F(Channel, GoesWhereTheDeviceSays) {
  const struct {
    ePrintingDevice device;
    const char* run;
    const char* output;
  } rows[] = {
      {ePD_Screen, "sRunReport PageReport, false, \"Ventas\", true, \"EPSON\", 0, \"\", \"\"",
       "show \"Ventas\", modal"},
      {ePD_Printer, "sRunReport PageReport, true, \"Ventas\", true, \"EPSON\", 1, \"\", \"\"",
       "print \"Ventas\", \"EPSON\""},
      {ePD_Disk, "sRunReport PageReport, false, \"Ventas\", true, \"EPSON\", 2, \"\", \"\"",
       "save \"Ventas\", \"EPSON\""},
  };
  for (const auto& row : rows) {
    calls.clear();
    begin(row.device);
    channel->sCloseGraphicHandle();
    EXPECT_EQ(calls.linesOf("sRunReport"), std::vector<std::string>{row.run});
    EXPECT_EQ(calls.linesOf(std::string(row.output).substr(0, 5)),
              std::vector<std::string>{row.output});
  }
}

TEST_F(Channel, IsModalUnlessItIsAskedNotToBe) {
  begin();
  for (const bool showMessages : {false, true}) {
    calls.clear();
    channel->sPrintReport(showMessages, false);
    channel->sPrintReport(showMessages, true);
    EXPECT_EQ(calls.linesOf("show"),
              (std::vector<std::string>{"show \"Ventas\", modal", "show \"Ventas\", modeless"}));
  }
}

TEST_F(Channel, GivesThePageMarginsOfAQuarterOfAnInch) {
  rowsOf([] {});
  const PageFormat upright = output->reports.at(0).pages->format();
  rowsOf([this] { channel->sWrite(Text(200, u'x'), 0); });
  const PageFormat wide = output->reports.at(0).pages->format();
  for (const PageFormat* page : {&upright, &wide}) {
    EXPECT_EQ(page->leftMargin, 360);
    EXPECT_EQ(page->topMargin, 360);
    EXPECT_EQ(page->rightMargin, 360);
    EXPECT_EQ(page->bottomMargin, 360);
    EXPECT_EQ(page->height, 15840);
  }
  EXPECT_FALSE(upright.landscape);
  EXPECT_TRUE(wide.landscape);
}

Ref<Object> objectIn(const Value& value) { return *value.tryGet<Ref<Object>>(); }

Ref<Object> partOf(const Ref<Object>& whole, TextView collection, TextView name) {
  return objectIn(lateObjectOf(whole).get(collection, std::array<Value, 1>{Text(name)}));
}

constexpr std::array<TextView, 4> kMargins{u"LeftMargin", u"TopMargin", u"RightMargin",
                                           u"BottomMargin"};

// A utility of another kind: its layout has margins of its own, and it looks at the report itself
// instead of running it.
class LookingUtility final : public clsUtReport {
 public:
  void fLoadLayout(TextView, TextView, Text& result) override { result = u"any"; }
  bool fApplyLayout(Ref<Object>& refReport, TextView) override {
    for (const TextView margin : kMargins) settingsOf(refReport).put(margin, {}, 5000.0);
    return true;
  }
  void sBindText(Ref<Object>&, TextView, TextView, std::int32_t) override {}
  void sSetFont(Ref<Object>&, TextView, TextView, std::int16_t, bool, bool) override {}
  void sRunReport(Ref<Object>& refReport, bool, TextView, bool, TextView, ePrintingDevice, TextView,
                  TextView) override {
    for (const TextView margin : kMargins) {
      margins.push_back(settingsOf(refReport).get(margin, {}));
    }
    const Ref<Object> data =
        partOf(partOf(refReport, u"Sections", u"Detail"), u"Controls", u"dcOrigenData");
    const Ref<Object> table = objectIn(lateObjectOf(data).get(u"Recordset", {}));
    dynamic_cast<LineTable&>(*table).text(presentRow);
  }

  std::vector<Value> margins;
  Text presentRow;

 private:
  // The report keeps the settings, so they outlive the reference.
  static LateObject& settingsOf(const Ref<Object>& report) {
    return lateObjectOf(objectIn(lateObjectOf(report).get(u"PageSettings", {})));
  }
};

TEST_F(Channel, GivesItsTableAndMarginsToTheReportWhateverTheUtilityDoes) {
  const Ref<LookingUtility> looking = make<LookingUtility>();
  modRDPGlobalValues::ofThisThread().refInsUtReport = looking;
  begin();
  channel->sWrite(u"first", 0);
  channel->sWrite(u"second", 0);
  channel->sCloseGraphicHandle();
  EXPECT_EQ(looking->margins, std::vector<Value>(4, Value(std::int32_t{360})));
  EXPECT_EQ(looking->presentRow, u"first") << "the table stands at its first row";
}

TEST_F(Channel, ShowsNothingWhenTheLayoutIsNotApplied) {
  utility->appliesLayouts = false;
  begin();
  channel->sWrite(u"A", 0);
  EXPECT_EQ(callsOf([this] { channel->sCloseGraphicHandle(); }),
            "table moveFirst\n"
            "fLoadLayout \"rpxFormDraft\", \"Ventas\"\n"
            "fApplyLayout PageReport, \"rpxFormDraft|Ventas\"\n"
            "table close\n");
  EXPECT_TRUE(error->reports.empty());
}

TEST_F(Channel, AReportWithoutLinesIsAnEmptyPage) {
  EXPECT_EQ(rowsOf([] {}), "");
  EXPECT_EQ(output->reports.at(0).pages->pageCount(), 1u);
}

TEST_F(Channel, AReportCanBeProducedTwice) {
  begin();
  channel->sWrite(u"A", 0);
  channel->sPrintReport(true, true);
  channel->sWrite(u"B", 0);
  channel->sPrintReport(true, true);
  ASSERT_EQ(output->reports.size(), 2u);
  EXPECT_EQ(output->reports[0].text(), "A\n");
  EXPECT_EQ(output->reports[1].text(), "A\nB\n");
}

TEST_F(Channel, KeepsTheThreeValuesUntilTheNextInit) {
  channel->sInit(u"uno", u"Primero", ePD_Printer);
  channel->sCloseGraphicHandle();
  channel->sInitializeGraphicHandle(u"Otro");
  channel->sCloseGraphicHandle();
  channel->sInit(u"dos", u"Segundo", ePD_Disk);
  channel->sCloseGraphicHandle();
  EXPECT_EQ(calls.linesOf("print"),
            (std::vector<std::string>{"print \"Primero\", \"uno\"", "print \"Primero\", \"uno\""}));
  EXPECT_EQ(calls.linesOf("save"), std::vector<std::string>{"save \"Segundo\", \"dos\""});
}

TEST_F(Channel, EachInitStartsAnEmptyTable) {
  begin();
  channel->sWrite(u"lost", 0);
  begin();
  channel->sWrite(u"kept", 0);
  channel->sCloseGraphicHandle();
  EXPECT_EQ(output->reports.at(0).text(), "kept\n");
  EXPECT_EQ(calls.linesOf("table make").size(), 2u);
}

TEST_F(Channel, ACancelClosesTheTableAndShowsNothing) {
  begin();
  channel->sWrite(u"A", 0);
  EXPECT_EQ(callsOf([this] { channel->sCancelGraphicPrintProcess(); }), "table close\n");
  EXPECT_EQ(callsOf([this] { channel->sCancelGraphicPrintProcess(); }), "");
}

TEST_F(Channel, ACancelWithoutATableDoesNothing) {
  EXPECT_EQ(callsOf([this] { channel->sCancelGraphicPrintProcess(); }), "");
  begin();
  channel->sCloseGraphicHandle();
  EXPECT_EQ(callsOf([this] { channel->sCancelGraphicPrintProcess(); }), "");
  EXPECT_TRUE(error->reports.empty());
}

TEST_F(Channel, PrintsAfterACancelAndAnInit) {
  begin();
  channel->sWrite(u"lost", 0);
  channel->sCancelGraphicPrintProcess();
  EXPECT_EQ(rowsOf([this] { channel->sWrite(u"kept", 0); }), "kept\n");
}

TEST_F(Channel, LinesKeepTheirCharactersWhateverTheyAre) {
  const Text odd = Text(u"a") + u'\0' + u"б" + u'\xD800' + u"€";
  EXPECT_EQ(rowsOf([&] { channel->sWrite(odd, 0); }), "a<00>б<D800>€\n");
}

// A text service that writes a line on the channel itself while it works for another.
class WritingTexto final : public SilentTexto {
 public:
  explicit WritingTexto(clsARObRep& channel) : channel_(channel) {}

  void fLeftMargin(TextView valText, std::uint8_t, Text& result) override {
    writeOnce(u"by fLeftMargin");
    result.assign(u">").append(valText);
  }
  void fReplaceAll(TextView valText, TextView, TextView, Text& result) override {
    writeOnce(u"by fReplaceAll");
    result.assign(valText);
  }

 private:
  void writeOnce(TextView text) {
    if (std::exchange(isWriting_, true)) return;
    channel_.sWrite(text, 1);
    isWriting_ = false;
  }

  clsARObRep& channel_;
  bool isWriting_ = false;
};

TEST_F(Channel, AServiceMayWriteWhileItWorksForAnotherLine) {
  EXPECT_EQ(rowsOf([this] {
              const auto writing = make<WritingTexto>(*channel);
              modRDPGlobalValues::ofThisThread().refInsTexto = writing;
              channel->sWrite(u"outer", 1);
            }),
            ">by fLeftMargin\n"
            ">by fReplaceAll\n>by fReplaceAll\n>by fReplaceAll\n"
            ">by fReplaceAll\n>by fReplaceAll\n>by fReplaceAll\n"
            ">outer\n");
}

TEST(ChannelMembers, StandInInterfaceOrder) {
  std::string all;
  for (const MemberInfo& member : Described<clsARObRep>::info.members) {
    all += member.fullName() + "(";
    for (const ParameterInfo& parameter : member.parameters) {
      all += std::string(parameter.byReference ? "&" : "") + parameter.name + " ";
    }
    all += ")\n";
  }
  EXPECT_EQ(all,
            "sPrintReport(valShowMsg valShowModeless )\n"
            "sInit(initPhysicalPrinterName initReportTitle initPrintingDevice )\n"
            "sInitializeGraphicHandle(valDocumentName )\n"
            "sCloseGraphicHandle()\n"
            "sWriteLn(valText valLeftMargin )\n"
            "sWrite(valText valLeftMargin )\n"
            "sSkipNPoints(valNumberOfPoints )\n"
            "sCancelGraphicPrintProcess()\n");
  EXPECT_EQ(Described<clsARObRep>::info.number, 11);
}

TEST_F(Channel, OfItsOwnUsesThePlatformsTableAndOutput) {
  const Ref<clsARObRep> own = make<clsARObRep>();
  const TemporaryFolder folder;
  own->sInit(u"file:" + folder.pathOf(u"out.pdf"), u"Ventas", ePD_Disk);
  own->sWrite(u"A", 0);
  own->sCloseGraphicHandle();
  EXPECT_TRUE(folder.contentOf(u"out.pdf").starts_with("%PDF-1.4\n"));
}

}  // namespace
}  // namespace tarvo::test
