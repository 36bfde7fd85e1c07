// The page word of a master-detail line, and the header that is printed because of it.  The
// header's lines go through the line object that the line with the word is in.  What a line asks
// for besides its page is read after it was written, and so it is then what the header's last line
// asked for.
#include "master_detail_report.h"

namespace tarvo::test {
namespace {

class MasterDetailPageWord : public MasterDetailReport {
 protected:
  // A record of those lines under a header of one plain line.
  std::string printOf(const std::string& bodyLines, const std::string& header = "cab\n",
                      const std::string& insertLines = "") {
    write(header + "{CUERPO=6}\n" + bodyLines +
          (insertLines.empty() ? "" : "{UNINSERTOCUERPO}\n" + insertLines) + "{FINCUERPO}\n");
    if (client->records.empty()) addRecord("A");
    init();
    return printed();
  }

  int timesAsked(const std::string& name) const {
    return static_cast<int>(
        world.calls.linesOf("client.fTranslateSpecialVarMD " + name + ",").size());
  }
};

TEST_F(MasterDetailPageWord, EndsTheRepetitionOfItsLineWhichTheHeaderDoesNotGoOnWith) {
  client->repeats["TEXTO"] = {"uno", "dos", "tres"};
  EXPECT_EQ(printOf("{REPEAT}{SALTAPAGINA}{TEXTO}\nfin\n"),
            "cab\r\n\fcab\r\nuno\r\nfin\r\n" + repeated(4, "\r\n"));
  EXPECT_EQ(timesAsked("TEXTO"), 3 + 1) << "measured to its end all the same";
}

TEST_F(MasterDetailPageWord, LeavesTheRepetitionOfItsLineAloneWithoutAHeader) {
  client->repeats["TEXTO"] = {"uno", "dos", "tres"};
  EXPECT_EQ(printOf("{REPEAT}{SALTAPAGINA}{TEXTO}\nfin\n", ""),
            "\funo\r\n\fdos\r\n\ftres\r\nfin\r\n" + repeated(4, "\r\n"));
}

TEST_F(MasterDetailPageWord, LosesTheFurtherLinesOfItsLineBehindAHeader) {
  EXPECT_EQ(printOf("{SALTAPAGINA}{SNL,3}x\nfin\n"),
            "cab\r\n\fcab\r\n   x\r\nfin\r\n" + repeated(4, "\r\n"));
}

TEST_F(MasterDetailPageWord, TakesTheFurtherLinesOfTheHeadersLastLineWhichBreakNoPage) {
  EXPECT_EQ(printOf("{SALTAPAGINA}x\nfin\n", "{SNL,3}cab\n"),
            "   cab\r\n\r\n\r\n\f   cab\r\n\r\n\r\nx\r\n\r\n\r\nfin\r\n\r\n\r\n");
}

TEST_F(MasterDetailPageWord, IsForgottenByTheFurtherLinesOfTheHeadersLastLineWhichRunOverThePage) {
  const std::string header = "   cab\r\n\r\n\r\n";
  EXPECT_EQ(printOf("{SALTAPAGINA}x\nfin\n", "...NMAXLINPAGINA=5\n{SNL,3}cab\n"),
            header + "\f" + header + "x\r\n\r\n\r\nfin\r\n\f" + header + "\r\n\f" + header + "\r\n")
      << "only the two filling lines look where they are";
}

TEST_F(MasterDetailPageWord, LosesThePointsOfItsLineBehindAHeaderAndTheLineStaysOpen) {
  EXPECT_EQ(printOf("{SALTAPAGINA}{SNP,3}x\nfin\n"),
            "cab\r\n\fcab\r\nxfin\r\n" + repeated(5, "\r\n"));
}

TEST_F(MasterDetailPageWord, KeepsThePointsOfItsLineWithoutAHeader) {
  EXPECT_EQ(printOf("{SALTAPAGINA}{SNP,3}x\nfin\n", ""),
            "\fx\x1B"
            "A1\r\n\r\n\r\n\x1B"
            "A2fin\r\n" +
                repeated(5, "\r\n"));
}

TEST_F(MasterDetailPageWord, TakesThePointsOfTheHeadersLastLine) {
  EXPECT_EQ(printOf("{SALTAPAGINA}{SNP,3}x\nfin\n", "{SNP,2}cab\n"),
            "cab\x1B"
            "A1\r\n\r\n\x1B"
            "A2\fcab\x1B"
            "A1\r\n\r\n\x1B"
            "A2x\x1B"
            "A1\r\n\r\n\x1B"
            "A2fin\r\n" +
                repeated(5, "\r\n"));
}

TEST_F(MasterDetailPageWord, EndsTheRepetitionOfAnInsertLineToo) {
  client->repeats["TEXTO"] = {"uno", "dos"};
  EXPECT_EQ(printOf("{CODIGO}\n", "cab\n", "{REPEAT}{SALTAPAGINA}{TEXTO}\nfin\n"),
            "cab\r\nA\r\n\r\n\r\n\fcab\r\nuno\r\nfin\r\n" + repeated(4, "\r\n"));
  EXPECT_EQ(timesAsked("TEXTO"), 2 + 2 + 1) << "measured, placed, and printed";
}

}  // namespace
}  // namespace tarvo::test
