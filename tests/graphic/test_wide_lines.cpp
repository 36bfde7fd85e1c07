// When a report gets a wide page, and what fits on it.
#include "graphic_test.h"

namespace tarvo::test {
namespace {

class WideLines : public GraphicTest {
 protected:
  // The page of a report with these lines.
  const PageFormat& pageOf(std::initializer_list<std::size_t> lengths) {
    rowsOf([&] {
      for (const std::size_t length : lengths) channel->sWrite(Text(length, u'x'), 0);
    });
    return output->reports.at(0).pages->format();
  }
};

TEST_F(WideLines, BeginAt113Characters) {
  EXPECT_EQ(pageOf({112}).width, 12240);
  EXPECT_EQ(pageOf({113}).width, 24480);
}

TEST_F(WideLines, WidenThePageWhicheverLineItWas) {
  EXPECT_EQ(pageOf({113, 1, 1}).width, 24480);
  EXPECT_EQ(pageOf({1, 1, 113}).width, 24480);
}

TEST_F(WideLines, CountWithTheMarginAndWithoutTheCodes) {
  rowsOf([this] { channel->sWrite(Text(112, u'x') + u"<bold>", 0); });
  EXPECT_EQ(output->reports.at(0).pages->format().width, 12240);
  rowsOf([this] { channel->sWrite(Text(112, u'x'), 1); });
  EXPECT_EQ(output->reports.at(0).pages->format().width, 24480);
}

TEST_F(WideLines, AreNotMeasuredAnyMoreOnceThereIsOne) {
  begin();
  channel->sWrite(Text(112, u'x'), 0);
  channel->sWrite(Text(113, u'x'), 0);
  EXPECT_EQ(textCalls.linesOf("clsTexto.fLength").size(), 2u);
  channel->sWrite(u"a", 0);
  EXPECT_EQ(textCalls.linesOf("clsTexto.fLength").size(), 2u);
}

TEST_F(WideLines, AreForgottenWithTheirTable) {
  begin();
  channel->sWrite(Text(113, u'x'), 0);
  channel->sInitializeGraphicHandle(u"whatever");
  channel->sWrite(u"narrow", 0);
  channel->sCloseGraphicHandle();
  EXPECT_EQ(output->reports.at(0).pages->format().width, 12240);
  EXPECT_EQ(output->reports.at(0).text(), "narrow\n");
}

TEST_F(WideLines, OfALinePrintersWidestPaperFitWhole) {
  pageOf({227});
  EXPECT_EQ(output->reports.at(0).text(), std::string(227, 'x') + "\n");
}

TEST_F(WideLines, TellTheReportUtilityTheWidthOfTheTextBox) {
  begin();
  channel->sWrite(Text(113, u'x'), 0);
  channel->sPrintReport(true, false);
  EXPECT_EQ(calls.linesOf("sBindText"),
            std::vector<std::string>{"sBindText PageReport, \"txtData\", \"ObData\", 23670"});
}

}  // namespace
}  // namespace tarvo::test
