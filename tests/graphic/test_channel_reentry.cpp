// What a client may do on the channel while a report of it is shown: a modal preview lets the
// client's own events run.
#include <functional>

#include "graphic_test.h"

namespace tarvo::test {
namespace {

// Calls back while it shows the pages, once; what the client does then is the test's affair.
class CallingOutput final : public PageOutput {
 public:
  explicit CallingOutput(Ref<RecordingPageOutput> next) : next_(std::move(next)) {}

  std::function<void()> whileShown;

  void show(const Ref<const PagedText>& pages, TextView title, bool modal) override {
    if (const auto action = std::exchange(whileShown, nullptr)) action();
    next_->show(pages, title, modal);
  }
  void print(const Ref<const PagedText>& pages, TextView title, TextView printer) override {
    next_->print(pages, title, printer);
  }
  void save(const Ref<const PagedText>& pages, TextView title, TextView printer) override {
    next_->save(pages, title, printer);
  }

 private:
  Ref<RecordingPageOutput> next_;
};

// Reads its arguments once more when the report was run.
class LateReadingUtility final : public clsUtReport {
 public:
  explicit LateReadingUtility(Ref<clsUtReport> next) : next_(std::move(next)) {}

  Text titleAfterwards;
  Text printerAfterwards;

  void fLoadLayout(TextView layout, TextView title, Text& result) override {
    next_->fLoadLayout(layout, title, result);
  }
  bool fApplyLayout(Ref<Object>& report, TextView layout) override {
    return next_->fApplyLayout(report, layout);
  }
  void sBindText(Ref<Object>& report, TextView control, TextView column,
                 std::int32_t width) override {
    next_->sBindText(report, control, column, width);
  }
  void sSetFont(Ref<Object>& report, TextView control, TextView font, std::int16_t size, bool bold,
                bool italic) override {
    next_->sSetFont(report, control, font, size, bold, italic);
  }
  void sRunReport(Ref<Object>& report, bool toPrinter, TextView title, bool modal, TextView printer,
                  ePrintingDevice device, TextView option1, TextView option2) override {
    next_->sRunReport(report, toPrinter, title, modal, printer, device, option1, option2);
    titleAfterwards = title;
    printerAfterwards = printer;
  }

 private:
  Ref<clsUtReport> next_;
};

class ChannelReentry : public GraphicTest {
 protected:
  ChannelReentry() { channel = make<clsARObRep>(calling, RecordingLineTable::makeOne); }

  // Closes a report of one line "first" and runs the action while it is shown.
  void closeWhile(std::function<void()> action) {
    begin();
    channel->sWrite(u"first", 0);
    calling->whileShown = std::move(action);
    channel->sCloseGraphicHandle();
  }

  void beginSecond() {
    channel->sInit(u"LASER", u"A title that is longer than the first one's", ePD_Screen);
    channel->sWrite(u"second", 0);
  }

  void expectRows(const std::vector<std::string>& rows) {
    std::vector<std::string> shown;
    for (const auto& report : output->reports) shown.push_back(report.text());
    EXPECT_EQ(shown, rows);
    EXPECT_TRUE(error->reports.empty()) << error->trail();
  }

  Ref<CallingOutput> calling = make<CallingOutput>(output);
};

TEST_F(ChannelReentry, AReportThatIsBegunWhileAnotherIsShownGoesOn) {
  closeWhile([this] { beginSecond(); });
  EXPECT_EQ(calls.linesOf("table close").size(), 1u) << "the shown report's table";
  channel->sWrite(u"third", 0);
  channel->sCloseGraphicHandle();
  expectRows({"first\n", "second\nthird\n"});
  EXPECT_EQ(output->reports[1].title, u"A title that is longer than the first one's");
  EXPECT_EQ(calls.linesOf("table close").size(), 2u);
}

TEST_F(ChannelReentry, AWholeReportFitsIntoTheTimeOfAnother) {
  closeWhile([this] {
    beginSecond();
    channel->sCloseGraphicHandle();
  });
  expectRows({"second\n", "first\n"});
  EXPECT_EQ(calls.linesOf("table close").size(), 2u);
  EXPECT_EQ(errorNumberOf([this] { channel->sWrite(u"x", 0); }), kObjectNotSet);
}

TEST_F(ChannelReentry, AReportThatIsGivenUpWhileItIsShownIsClosedOnce) {
  closeWhile([this] { channel->sCancelGraphicPrintProcess(); });
  expectRows({"first\n"});
  EXPECT_EQ(calls.linesOf("table close").size(), 1u);
  EXPECT_EQ(errorNumberOf([this] { channel->sWrite(u"x", 0); }), kObjectNotSet);
}

TEST_F(ChannelReentry, AReportThatIsGivenUpAndBegunAnewGoesOn) {
  closeWhile([this] {
    channel->sCancelGraphicPrintProcess();
    beginSecond();
  });
  channel->sCloseGraphicHandle();
  expectRows({"first\n", "second\n"});
}

TEST_F(ChannelReentry, ALineOfTheShownReportComesTooLate) {
  closeWhile([this] { channel->sWrite(u"late", 0); });
  expectRows({"first\n"});
}

TEST_F(ChannelReentry, TheUtilityKeepsTitleAndPrinterOfItsReport) {
  const Ref<LateReadingUtility> reading = make<LateReadingUtility>(utility);
  modRDPGlobalValues::ofThisThread().refInsUtReport = reading;
  closeWhile([this] { beginSecond(); });
  EXPECT_EQ(reading->titleAfterwards, u"Ventas");
  EXPECT_EQ(reading->printerAfterwards, u"EPSON");
}

}  // namespace
}  // namespace tarvo::test
