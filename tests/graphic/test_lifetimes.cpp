// What lives on after a report: nothing but what its client holds.
#include "graphic/page_report.h"
#include "graphic_test.h"

namespace tarvo::test {
namespace {

// Counts what there is of a kind.
class Counted {
 public:
  explicit Counted(int& count) : count_(count) { ++count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  ~Counted() { --count_; }

 private:
  int& count_;
};

class CountedTable final : public LineTable {
 public:
  static inline int living = 0;
  static Ref<LineTable> makeOne() { return make<CountedTable>(); }

  void addRow(TextView text) override { next_->addRow(text); }
  void moveFirst() override { next_->moveFirst(); }
  bool atEnd() override { return next_->atEnd(); }
  void text(Text& result) override { next_->text(result); }
  void moveNext() override { next_->moveNext(); }
  bool isOpen() noexcept override { return next_->isOpen(); }
  void close() override { next_->close(); }

 private:
  Counted counted_{living};
  Ref<LineTable> next_ = makeMemoryLineTable();
};

// Keeps nothing, or the pages alone, as a window that stays open does.
class CountedOutput final : public PageOutput {
 public:
  static inline int living = 0;
  Ref<const PagedText> kept;

  void show(const Ref<const PagedText>& pages, TextView, bool modal) override {
    if (!modal) kept = pages;
  }
  void print(const Ref<const PagedText>&, TextView, TextView) override {}
  void save(const Ref<const PagedText>&, TextView, TextView) override {}

 private:
  Counted counted_{living};
};

// The report holds its output and, by its parts, the table: while one of them is held by a cycle,
// the output or a table lives on.
class Lifetimes : public GraphicTest {
 protected:
  Lifetimes() {
    CountedTable::living = 0;
    CountedOutput::living = 0;
    counted = make<CountedOutput>();
    channel = make<clsARObRep>(counted, CountedTable::makeOne);
  }

  void expectLiving(int tables, int outputs) {
    EXPECT_EQ(CountedTable::living, tables);
    EXPECT_EQ(CountedOutput::living, outputs);
  }
  void letGo() {
    counted = nullptr;
    channel = nullptr;
  }

  Ref<CountedOutput> counted;
};

TEST_F(Lifetimes, ATableGoesWhenItsReportIsClosed) {
  for (const ePrintingDevice device : {ePD_Screen, ePD_Printer, ePD_Disk}) {
    begin(device);
    channel->sWrite(u"A", 0);
    channel->sPrintReport(true, false);
    expectLiving(1, 1);
    channel->sCloseGraphicHandle();
    expectLiving(0, 1);
  }
  letGo();
  expectLiving(0, 0);
}

TEST_F(Lifetimes, ATableGoesWhenTheNextReportBegins) {
  begin();
  begin();
  expectLiving(1, 1);
  channel->sCancelGraphicPrintProcess();
  begin();
  expectLiving(1, 1);
}

TEST_F(Lifetimes, EverythingGoesWithAChannelInTheMiddleOfAReport) {
  begin();
  channel->sWrite(u"A", 0);
  letGo();
  expectLiving(0, 0);
}

TEST_F(Lifetimes, EverythingGoesAfterAnErrorToo) {
  for (int call = 1; call <= 5; ++call) {
    SCOPED_TRACE(call);
    begin();
    utility->fault.raiseAt(call, 4711);
    EXPECT_EQ(errorNumberOf([this] { channel->sCloseGraphicHandle(); }), 4711);
    expectLiving(1, 1);
  }
  error->reports.clear();
  letGo();
  expectLiving(0, 0);
}

TEST_F(Lifetimes, PagesOfAnOpenWindowHoldNeitherTableNorReport) {
  begin();
  channel->sWrite(u"A", 0);
  channel->sPrintReport(true, true);
  channel->sCloseGraphicHandle();
  const Ref<const PagedText> pages = counted->kept;
  ASSERT_TRUE(pages);
  letGo();
  expectLiving(0, 0);
  EXPECT_EQ(pages->row(0, 0), u"A");
}

TEST_F(Lifetimes, APartThatAClientKeepsHoldsTheTableAndNoMore) {
  Ref<Object> data;
  {
    const Ref<PageReport> report = make<PageReport>(counted);
    const Value section(Text(u"Detail"));
    const Value control(Text(u"dcOrigenData"));
    const Value detail = report->get(u"Sections", {&section, 1});
    const Value found = lateObjectOf(*detail.tryGet<Ref<Object>>()).get(u"Controls", {&control, 1});
    data = *found.tryGet<Ref<Object>>();
    lateObjectOf(data).put(u"Recordset", {}, Ref<Object>(CountedTable::makeOne()));
  }
  letGo();
  expectLiving(1, 0);
  data = nullptr;
  expectLiving(0, 0);
}

}  // namespace
}  // namespace tarvo::test
