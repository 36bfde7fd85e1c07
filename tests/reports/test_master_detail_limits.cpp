// Where the counters of a master-detail report end.
#include "master_detail_report.h"

namespace tarvo::test {
namespace {

constexpr const char* kTail = " sWriteReport sWriteNCopiesOfReport sPrintReport";

class MasterDetailLimits : public MasterDetailReport {
 protected:
  // Every variable is empty, and never the last one.
  void answerForever() {
    client->translates = [](Ref<clsObLineCharacts>& line) {
      line->GetSpecialVar()->SetContentString({});
      line->GetSpecialVar()->SetEndOfRepeatPrintLine(false);
      return true;
    };
  }

  std::size_t answers() const {
    return world.calls.linesOf("client.fTranslateSpecialVarMD").size();
  }
};

// --- Pages.

constexpr int kBreaksOfARecord = 255;
// The comment makes the report forget the word, which would go on breaking pages.
constexpr const char* kManyPages = "{CUERPO=300}\n{SALTAPAGINA}{SNL,255}x\n...\n{FINCUERPO}\n";

TEST_F(MasterDetailLimits, ThePageAfter32767IsAnOverflow) {
  write(kManyPages);
  client->records.resize(32767 / kBreaksOfARecord + 1);
  init();
  EXPECT_EQ(errorOfPrinting(), kOverflow);
  EXPECT_EQ(world.error->trail(),
            std::string("sSkipPage sWriteLine sPrintLine sProcessLineToWriteAndPrint "
                        "sProcessBodyLinesArrayAndPrint sPrintBody") +
                kTail);
  EXPECT_EQ(countOf(lastJob(), "\r\n"), 32766) << "the lines of pages 2 to 32767";
}

TEST_F(MasterDetailLimits, BehindPage9999FormFeedsAndOpenTextAreHeldBackAndLinesAreNot) {
  write(std::string(kManyPages) + "{SNP,1}abierto\nl\xC3\xADnea\n");
  client->records.resize(40);
  init();
  const std::string sent = printed();
  EXPECT_EQ(countOf(sent, "\f"), 9999);
  EXPECT_EQ(countOf(sent, "x"), 40);
  EXPECT_EQ(countOf(sent, "abierto"), 0);
  EXPECT_EQ(countOf(sent, "l\xA1nea\r\n"), 1);
}

TEST_F(MasterDetailLimits, UpToPage9999OpenTextIsPrinted) {
  write(std::string(kManyPages) + "{SNP,1}abierto\n");
  client->records.resize(39);  // to page 9946
  init();
  EXPECT_EQ(countOf(printed(), "abierto"), 1);
}

TEST_F(MasterDetailLimits, TheReportsEndIsSentAfterAnyNumberOfPages) {
  write(kManyPages);
  client->records.resize(40);
  init(2);
  report->sPrintReport();
  const std::string& job = world.spooler->jobs().back().bytes;
  EXPECT_TRUE(job.ends_with("\x12\f\x1B@")) << "a copy ends on page 1";
}

// --- Records.

TEST_F(MasterDetailLimits, Record32767IsTheLastOneThatIsNumbered) {
  write("...NMAXLINPAGINA=200\n{CUERPO=100}\n{NUMERAR,6,0}\n{FINCUERPO}\n");
  client->records.resize(32767);
  init();
  EXPECT_NE(printed().find("32.767\r\n"), std::string::npos);
}

TEST_F(MasterDetailLimits, TheRecordAfter32767IsAnOverflow) {
  write("{CUERPO=1}\n{FINCUERPO}\n");
  client->records.resize(32768);
  init();
  EXPECT_EQ(errorOfPrinting(), kOverflow);
  EXPECT_EQ(world.error->trail(), std::string("sPrintBody") + kTail);
  EXPECT_EQ(world.calls.linesOf("client.sAccumSubTotal").size(), 32767u);
}

TEST_F(MasterDetailLimits, AnUnlimitedBodyOfMoreThan32767LinesIsAnOverflow) {
  write("{CUERPO=0}\n{UNINSERTOCUERPO}\nx\n{FINCUERPO}\n");
  client->records.resize(32766);
  init();
  client->fault.raiseAt(3, kTypeMismatch);
  EXPECT_EQ(errorOfPrinting(), kTypeMismatch) << "the first record was asked for";
  client->records.resize(32767);
  world.error->reports.clear();
  init();
  EXPECT_EQ(errorOfPrinting(), kOverflow);
  EXPECT_EQ(world.error->trail(),
            std::string("sAdjustMaxLinPageAndBodyMaxNumLinesIfItsZero sPrintBody") + kTail);
}

TEST_F(MasterDetailLimits, ASubtotalThatLeavesItsRangeIsAnOverflow) {
  write("{CUERPO=9}\n{CODIGO}\n{FINCUERPO}\n");
  addRecord("A", "922337203685477");
  addRecord("B", "1");
  init();
  EXPECT_EQ(errorOfPrinting(), kOverflow);
  EXPECT_EQ(world.error->trail(), std::string("sPrintBody") + kTail);
  EXPECT_EQ(report->GetMontoSubTotalVan(), Currency::ofUnits(922337203685477));
}

// --- Lines.

TEST_F(MasterDetailLimits, TheLineAfter32767OfAPageIsAnOverflow) {
  write("...NMAXLINPAGINA=0\n{REPEAT}{A}\n");
  answerForever();
  init();
  EXPECT_EQ(errorOfPrinting(), kOverflow);
  EXPECT_EQ(world.error->trail(),
            std::string("sWriteLineNoSkipPage sPrintLine sProcessLineToWriteAndPrint "
                        "sReadFileFromLineFromToLineUntilAndPrint sPrintPageHeader") +
                kTail);
  EXPECT_EQ(countOf(lastJob(), "\r\n"), 32767);
}

TEST_F(MasterDetailLimits, ABodyOf32767LinesIsFilledOverItsPages) {
  write("...NMAXLINPAGINA=101\n{CUERPO=32767}\n{FINCUERPO}\n");
  init();
  const std::string sent = printed();
  EXPECT_EQ(countOf(sent, "\r\n"), 32767);
  EXPECT_EQ(countOf(sent, "\f"), 327) << "100 lines each";
}

TEST_F(MasterDetailLimits, ABodyThatNeedsMorePagesThanThereAreIsAnOverflow) {
  write("...NMAXLINPAGINA=2\nc\n{CUERPO=32767}\n{FINCUERPO}\n");
  init();
  EXPECT_EQ(errorOfPrinting(), kOverflow);
  EXPECT_EQ(world.error->trail(),
            std::string("sSkipPage sWriteLine "
                        "sPrintEmptyLinesToFillFreeSpaceFromBodyUntilPageFooter sPrintPageFooter") +
                kTail);
}

// --- Passes of a repeated line.

TEST_F(MasterDetailLimits, APassAfter32768OfAPrintedLineIsAnOverflow) {
  write("{SNP,1}{REPEAT}{A}\n");  // open text counts no lines
  answerForever();
  init();
  EXPECT_EQ(errorOfPrinting(), kOverflow);
  EXPECT_EQ(world.error->trail(),
            std::string("sProcessLineToWriteAndPrint sReadFileFromLineFromToLineUntilAndPrint "
                        "sPrintPageHeader") +
                kTail);
  EXPECT_EQ(answers(), 32768u);
}

TEST_F(MasterDetailLimits, APassAfter32768OfAMeasuredLineIsAnOverflow) {
  write("{CUERPO=9}\n{SNP,1}{REPEAT}{A}\n{FINCUERPO}\n");
  client->records.resize(1);
  answerForever();
  init();
  EXPECT_EQ(errorOfPrinting(), kOverflow);
  EXPECT_EQ(
      world.error->trail(),
      std::string("fCalculateNumberOfLinesToPrintOfBody fRecordToPrintFitsInPage sPrintBody") +
          kTail);
  EXPECT_EQ(answers(), 32768u);
}

TEST_F(MasterDetailLimits, APassAfter32768OfAnInsertLineIsAnOverflow) {
  write("...NMAXLINPAGINA=0\n{CUERPO=9}\n{UNINSERTOCUERPO}\n{SNP,1}{REPEAT}{A}\n{FINCUERPO}\n");
  int asked = 0;
  client->translates = [&](Ref<clsObLineCharacts>& line) {
    line->GetSpecialVar()->SetContentString({});
    line->GetSpecialVar()->SetEndOfRepeatPrintLine(++asked == 1);  // placing it
    return true;
  };
  init();
  EXPECT_EQ(errorOfPrinting(), kOverflow);
  EXPECT_EQ(world.error->trail(),
            std::string("sProcessLineToWriteAndPrintInsertBody sPrintInsertBody") + kTail);
  EXPECT_EQ(answers(), 32769u);
}

TEST_F(MasterDetailLimits, MoreThan32767MeasuredLinesAreAnOverflow) {
  write("{CUERPO=9}\n{SNL,255}{REPEAT}{A}\n{FINCUERPO}\n");
  client->records.resize(1);
  answerForever();
  init();
  EXPECT_EQ(errorOfPrinting(), kOverflow);
  EXPECT_EQ(
      world.error->trail(),
      std::string("fCalculateNumberOfLinesToPrintOfBody fRecordToPrintFitsInPage sPrintBody") +
          kTail);
  EXPECT_EQ(answers(), 129u) << "129 times 255 is more";
}

TEST_F(MasterDetailLimits, UsedAndMeasuredLinesTogetherAreAnOverflowToo) {
  write("{CUERPO=32767}\n{SNL,255}{REPEAT}{A}\n{FINCUERPO}\n");
  client->records.resize(2);
  int asked = 0;
  client->translates = [&](Ref<clsObLineCharacts>& line) {
    ++asked;
    line->GetSpecialVar()->SetContentString({});
    // One pass each to measure and to print the first record, 128 to measure the second one.
    line->GetSpecialVar()->SetEndOfRepeatPrintLine(asked <= 2 || asked == 130);
    return true;
  };
  init();
  EXPECT_EQ(errorOfPrinting(), kOverflow);
  EXPECT_EQ(world.error->trail(), std::string("fRecordToPrintFitsInPage sPrintBody") + kTail);
  EXPECT_EQ(asked, 130);
}

TEST_F(MasterDetailLimits, ALineThatAsksForItselfAtItsEndIsEndlessWhateverTheClientSays) {
  write("{SNP,1}{A}{REPEAT}\n");
  client->translates = [](Ref<clsObLineCharacts>& line) {
    line->GetSpecialVar()->SetEndOfRepeatPrintLine(true);
    return false;
  };
  init();
  EXPECT_EQ(errorOfPrinting(), kOverflow);
  EXPECT_EQ(answers(), 32768u);
}

TEST_F(MasterDetailLimits, AClientThatNeverKnowsTheValueEndsTheRepetitionAfterOnePass) {
  write("{REPEAT}{A}\n{CUERPO=1}\n{FINCUERPO}\n");
  client->translates = [](Ref<clsObLineCharacts>&) { return false; };
  init();
  EXPECT_EQ(printed(), "No se encontr\xA2\r\n\r\n");
  EXPECT_EQ(answers(), 1u);
}

}  // namespace
}  // namespace tarvo::test
