// No answer of the spooler changes what the channel does, but that of opening the printer.
#include "printer_test.h"

namespace tarvo::test {
namespace {

class FailingSpoolerCalls : public PrinterTest {
 protected:
  // A report with everything in it.
  static void print(clsUtilImp& channel) {
    channel.sInitializePrinterFileHandle(u"LX-300", u"Ventas");
    channel.sWriteLn(u"Total", 2);
    channel.sWrite(u"x", 0);
    channel.sSkipNPoints(2);
    channel.sResetPrinter();
    channel.sSendJobAndStartNewOne();
    channel.sPrintUnderscore(2, true);
    channel.sPrintVerticalRule(1, true);
    channel.sPrintHorizontalRule(true, 1, 1);
    channel.sClosePrinterFileHandle();
  }

  // The calls of that report when the spooler fails at its nth call; `reached` tells whether there
  // was one.
  std::string callsWithFailure(int nth, bool& reached) {
    const Ref<FailingSpooler> failing = make<FailingSpooler>(nth);
    const Ref<clsUtilImp> under = make<clsUtilImp>(make<RecordingSpooler>(calls, failing));
    fillProfile(*under);
    calls.clear();
    print(*under);
    reached = failing->hasFailed();
    return calls.text();
  }
};

TEST_F(FailingSpoolerCalls, MakeNoDifferenceToTheFlow) {
  bool reached = false;
  const std::string undisturbed = callsWithFailure(100'000, reached);
  ASSERT_FALSE(reached);
  ASSERT_FALSE(undisturbed.empty());
  int failures = 0;
  for (int nth = 2;; ++nth) {  // the first call opens the printer
    const std::string made = callsWithFailure(nth, reached);
    if (!reached) break;
    EXPECT_EQ(made, undisturbed) << "call " << nth << " failed";
    ++failures;
  }
  EXPECT_EQ(failures + 1, std::count(undisturbed.begin(), undisturbed.end(), '\n'));
}

TEST_F(FailingSpoolerCalls, AtOpeningOpenNoJobAndRaiseNothing) {
  bool reached = false;
  const std::string made = callsWithFailure(1, reached);
  EXPECT_TRUE(reached);
  EXPECT_TRUE(made.starts_with(
      "openPrinter \"LX-300\"\n"
      "clsMessage.sShowMessage \"No se reconoce el nombre de la impresora: LX-300\"\n"
      "write 0   Total<0D><0A>\n"))
      << made;
  EXPECT_EQ(calls.linesOf("clsMessage").size(), 1u);
  EXPECT_TRUE(calls.linesOf("clsError").empty());
}

TEST_F(FailingSpoolerCalls, LeaveTheSystemsCodeForTheHandlersAlone) {
  const Ref<clsUtilImp> under = make<clsUtilImp>(make<FailingSpooler>(4));
  under->sInitializePrinterFileHandle(u"LX-300", u"Ventas");
  EXPECT_EQ(lastSystemError(), 0);
  under->sWrite(u"x", 0);
  EXPECT_EQ(lastSystemError(), FailingSpooler::kError);
  under->sWrite(u"x", 0);
  EXPECT_EQ(lastSystemError(), 0);
}

}  // namespace
}  // namespace tarvo::test
