// What a master-detail report holds before, during and after it is printed: its properties, its
// line object, and the operations that a client may call by themselves.
#include <limits>

#include "master_detail_report.h"

namespace tarvo::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MasterDetailProperties : public MasterDetailReport {
 protected:
  void expectDefaults() {
    EXPECT_FALSE(report->GetLineToWrite());
    EXPECT_FALSE(report->GetEndOfDetailRecords());
    EXPECT_EQ(report->GetMontoSubTotalVan(), Currency{});
    EXPECT_FALSE(report->GetInsertBodyWasPrinted());
    EXPECT_FALSE(report->GetIsHalfLetterPaper());
    EXPECT_EQ(report->GetNumberOfLinesForHalfLetter(), 29);
    EXPECT_EQ(report->GetTopMarginLines(), 0);
    EXPECT_EQ(report->GetTopMarginPoints(), 0);
  }
};

TEST_F(MasterDetailProperties, HaveTheirDefaultsAfterInit) {
  init();
  expectDefaults();
}

TEST_F(MasterDetailProperties, KeepWhatTheyAreGivenToTheLimitsOfTheirTypes) {
  init();
  report->SetEndOfDetailRecords(true);
  report->SetInsertBodyWasPrinted(true);
  report->SetIsHalfLetterPaper(true);
  EXPECT_TRUE(report->GetEndOfDetailRecords());
  EXPECT_TRUE(report->GetInsertBodyWasPrinted());
  EXPECT_TRUE(report->GetIsHalfLetterPaper());
  for (const int value : {255, 0, 1}) {
    const auto byte = narrow<std::uint8_t>(value);
    report->SetNumberOfLinesForHalfLetter(byte);
    report->SetTopMarginLines(byte);
    report->SetTopMarginPoints(byte);
    EXPECT_EQ(report->GetNumberOfLinesForHalfLetter(), byte);
    EXPECT_EQ(report->GetTopMarginLines(), byte);
    EXPECT_EQ(report->GetTopMarginPoints(), byte);
  }
  for (const Currency value : {Currency{std::numeric_limits<std::int64_t>::max()},
                               Currency{std::numeric_limits<std::int64_t>::min()}, Currency{-1}}) {
    report->SetMontoSubTotalVan(value);
    EXPECT_EQ(report->GetMontoSubTotalVan(), value);
  }
}

TEST_F(MasterDetailProperties, AreResetByInit) {
  init();
  report->SetEndOfDetailRecords(true);
  report->SetMontoSubTotalVan(Currency::ofUnits(7));
  report->SetInsertBodyWasPrinted(true);
  report->SetIsHalfLetterPaper(true);
  report->SetNumberOfLinesForHalfLetter(60);
  report->SetTopMarginLines(1);
  report->SetTopMarginPoints(2);
  init();
  expectDefaults();
}

TEST_F(MasterDetailProperties, InitForgetsThePagesAndThatALineWasPrinted) {
  write("{VIENEN,5}|\n{CUERPO=1}\n{CODIGO}\n{FINCUERPO}\n");
  client->records.resize(3);
  client->amounts = {Currency::ofUnits(1), Currency::ofUnits(2), Currency::ofUnits(4)};
  init();
  report->sPrintReport();
  EXPECT_TRUE(report->GetEndOfDetailRecords());
  write("...\n{CUERPO=0}\n{FINCUERPO}\n...\n");
  client->records.clear();
  world.calls.clear();
  init();
  report->sPrintReport();
  EXPECT_THAT(world.calls.lines(), Contains("clsMessage.sShowMessageWithTitle \"No se encontró "
                                            "información para imprimir.\", \"Impresión de "
                                            "Informe\""));
}

TEST_F(MasterDetailProperties, WithoutInitASecondReportCountsItsLinesOnAndNothingElse) {
  write("{VIENEN,5}|\n{CUERPO=1}\n{CODIGO}\n{FINCUERPO}\n{VAN,5}|\n");
  addRecord("A", "1");
  addRecord("B", "2");
  init();
  const std::string copy = "\r\nA\r\n 1,00|\r\n\f 1,00|\r\nB\r\n 0,00|\r\n";
  EXPECT_EQ(printed(), copy) << "page 1 and subtotal 0, then page 2";
  EXPECT_EQ(report->GetMontoSubTotalVan(), Currency{});
  // The second page begins at its line 1 again, three lines above the first one's.
  EXPECT_EQ(printed(), "\r\nA\r\n 1,00|\r\n\f 1,00|\r\nB\r\n\r\n\r\n\r\n 0,00|\r\n");
}

TEST_F(MasterDetailProperties, AfterPrintingTellHowTheReportEnded) {
  write(
      "...MEDIACARTA\n...NMAXLINPAGINA=40\n{CUERPO=2}\n{CODIGO}\n{UNINSERTOCUERPO}\nx\n"
      "{FINCUERPO}\n");
  addRecord("A", "1");
  init();
  report->sPrintReport();
  EXPECT_TRUE(report->GetEndOfDetailRecords());
  EXPECT_TRUE(report->GetInsertBodyWasPrinted());
  EXPECT_TRUE(report->GetIsHalfLetterPaper());
  EXPECT_EQ(report->GetNumberOfLinesForHalfLetter(), 40);
  EXPECT_EQ(world.printer->GetMaxLinPage(), 40) << "the printer's profile as well";
  EXPECT_EQ(report->GetMontoSubTotalVan(), Currency{});
}

TEST_F(MasterDetailProperties, AHalfLetterPaperThatTheClientAsksForNeedsNoConstant) {
  write("{CUERPO=1}\n{CODIGO}\n{FINCUERPO}\n");
  addRecord("A");
  addRecord("B");
  init();
  report->SetIsHalfLetterPaper(true);
  report->SetNumberOfLinesForHalfLetter(3);
  EXPECT_EQ(printed(), "A\r\n\r\n\r\nB\r\n");
}

TEST_F(MasterDetailProperties, ASubtotalThatTheClientSetsBeforeIsWhereTheFirstCopyStarts) {
  write("{CUERPO=1}\n{CODIGO}\n{FINCUERPO}\n{VAN,6}|\n");
  addRecord("A", "1");
  addRecord("B", "1");
  init(2);
  report->SetMontoSubTotalVan(Currency::ofUnits(10));
  EXPECT_EQ(printed(), "A\r\n 11,00|\r\n\fB\r\n  0,00|\r\n\fA\r\n  1,00|\r\n\fB\r\n  0,00|\r\n");
}

TEST_F(MasterDetailProperties, ASubtotalThatNoRecordEndedIsOfItsCopyAlone) {
  write("{CUERPO=0}\n{FINCUERPO}\n{VAN,6}|\n");
  init(2);
  report->SetMontoSubTotalVan(Currency::ofUnits(10));
  EXPECT_EQ(printed(), " 10,00|\r\n" + repeated(5, "\r\n") + "  0,00|\r\n");
}

// --- Copies.

struct Copies {
  int given;
  int printed;
};

TEST_F(MasterDetailProperties, CopiesAre1For0AndOtherwiseAsGiven) {
  write("copia\n{CUERPO=0}\n{FINCUERPO}\n");
  for (const Copies& row : {Copies{0, 1}, Copies{1, 1}, Copies{2, 2}, Copies{255, 255}}) {
    init(row.given);
    world.calls.clear();
    EXPECT_EQ(countOf(printed(), "copia"), row.printed) << row.given;
    EXPECT_EQ(world.calls.linesOf("client.sDisplayPauseDialog").size(),
              static_cast<std::size_t>(row.printed - 1));
    EXPECT_EQ(world.calls.linesOf("client.fCanExecuteWriteReport").size(), 1u);
  }
}

TEST_F(MasterDetailProperties, CopiesThatAreNoByteAreAnOverflow) {
  for (const int copies : {256, 32767, -1, -32768}) {
    world.error->reports.clear();
    EXPECT_EQ(errorNumberOf([&] { init(copies); }), kOverflow) << copies;
    EXPECT_EQ(world.error->trail(), "sInit");
    EXPECT_EQ(world.error->reports.at(0).className, u"clsObRepMasterDetail");
    EXPECT_EQ(world.error->reports.at(0).module, u"Lib. Impresión Texto - Ob Rep");
    EXPECT_EQ(world.error->reports.at(0).kind, 2);
  }
}

// --- The line object.

TEST_F(MasterDetailProperties, TheLineObjectIsThereWhileTheReportIsPrintedAlone) {
  write("{A}\n{CUERPO=3}\n{CODIGO}\n{UNINSERTOCUERPO}\n{B}\n{FINCUERPO}\n{C}\n");
  addRecord("A");
  std::vector<bool> isTheReports;
  client->translates = [&](Ref<clsObLineCharacts>& line) {
    isTheReports.push_back(line && line == report->GetLineToWrite());
    return false;
  };
  client->beforeCall = [&](const std::string& call) {
    const bool inACopy = !call.starts_with("fCanExecuteWriteReport");
    EXPECT_EQ(static_cast<bool>(report->GetLineToWrite()), inACopy) << call;
  };
  init();
  EXPECT_FALSE(report->GetLineToWrite());
  report->sPrintReport();
  EXPECT_FALSE(report->GetLineToWrite());
  // Header 1, body 2, insert body 3 and footer 1.
  EXPECT_THAT(isTheReports, ElementsAre(true, true, true, true, true, true, true));
}

TEST_F(MasterDetailProperties, EachCopyHasALineObjectOfItsOwnAndNoneWhileTheOperatorTurnsPaper) {
  write("{A}\n{CUERPO=0}\n{FINCUERPO}\n");
  std::vector<Ref<clsObLineCharacts>> lines;
  bool hadALineInThePause = false;
  client->translates = [&](Ref<clsObLineCharacts>& line) {
    lines.push_back(line);
    return false;
  };
  client->beforeCall = [&](const std::string& call) {
    if (call == "sDisplayPauseDialog") hadALineInThePause |= bool{report->GetLineToWrite()};
  };
  init(2);
  report->sPrintReport();
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_NE(lines[0], lines[1]);
  EXPECT_FALSE(hadALineInThePause);
}

TEST_F(MasterDetailProperties, AnErrorLeavesTheLineObjectAsTheReportWorksWithItAndKeepsItThen) {
  write("{A}\n{CUERPO=0}\n{FINCUERPO}\n");
  init();
  client->fault.raiseAt(2, kTypeMismatch);
  EXPECT_EQ(errorOfPrinting(), kTypeMismatch);
  const Ref<clsObLineCharacts> left = report->GetLineToWrite();
  ASSERT_TRUE(left);
  report->sPrintReport();
  EXPECT_EQ(report->GetLineToWrite(), left) << "it was there before the report";
  init();
  EXPECT_FALSE(report->GetLineToWrite());
}

TEST_F(MasterDetailProperties, TranslatingByItselfNeedsALineObject) {
  init();
  EXPECT_EQ(errorNumberOf([&] { report->sSearchSpecialVarAndTranslate(u"x"); }), kObjectNotSet);
  EXPECT_EQ(world.error->trail(), "sSearchSpecialVarAndTranslate");
}

TEST_F(MasterDetailProperties, TranslatesALineInsideACallbackWithoutPrintingIt) {
  write("...PAUSA\nfin\n{CUERPO=0}\n{FINCUERPO}\n");
  client->values.add("A=text uno");
  std::string translated;
  client->beforeCall = [&](const std::string& call) {
    if (call != "sDisplayPauseDialog") return;
    report->GetLineToWrite()->sClrRecord();
    report->sSearchSpecialVarAndTranslate(u"{A}|{VAN,5}|{NADA}|{@x}");
    translated = toUtf8(report->GetLineToWrite()->GetTextToPrint());
  };
  init();
  EXPECT_EQ(printed(), "fin\r\n");
  EXPECT_EQ(translated, "uno| 0,00|No se encontró|x");
}

// --- fReadFileUntilLineFrom.

class MasterDetailReading : public MasterDetailProperties {
 protected:
  // Prints a template whose header asks for {LEE}, with the client reading forward there.
  std::string printReading(const std::string& typed, TextView marker) {
    write(typed);
    client->translates = [this, marker](Ref<clsObLineCharacts>& line) {
      if (line->GetSpecialVar()->GetFieldName() != u"LEE") return false;
      found = report->fReadFileUntilLineFrom(marker, lineRead);
      line->GetSpecialVar()->SetContentString(found ? u"si" : u"no");
      return true;
    };
    init();
    return printed();
  }

  bool found = false;
  Text lineRead = u"(nada)";
};

TEST_F(MasterDetailReading, MovesTheSectionThatIsBeingRead) {
  EXPECT_EQ(printReading("uno {LEE}\ndos\ntres\ncuatro\n{CUERPO=0}\n{FINCUERPO}\npie\n", u"TRE"),
            "uno si\r\ncuatro\r\npie\r\n");
  EXPECT_EQ(lineRead, u"tres") << "the line is given as it stands in the file";
}

TEST_F(MasterDetailReading, FindsTheMarkerInEitherCaseOfTheLineButItselfInCapitalsAlone) {
  EXPECT_EQ(printReading("{LEE}\naño {x}\nb\n{CUERPO=0}\n{FINCUERPO}\n", u"AÑO {"), "si\r\nb\r\n");
  EXPECT_EQ(lineRead, u"año {x}");
  EXPECT_EQ(printReading("{LEE}\naño {x}\nb\n{CUERPO=0}\n{FINCUERPO}\n", u"año {"), "no\r\n");
}

TEST_F(MasterDetailReading, AnEmptyMarkerIsFoundAtOnceAndNothingIsRead) {
  EXPECT_EQ(printReading("{LEE}\ndos\n{CUERPO=0}\n{FINCUERPO}\n", u""), "si\r\ndos\r\n");
  EXPECT_EQ(lineRead, u"(nada)");
}

TEST_F(MasterDetailReading, PassesEmptyLinesOver) {
  EXPECT_EQ(printReading("{LEE}\n\n\nx{y\nfin\n{CUERPO=0}\n{FINCUERPO}\n", u"X{"), "si\r\nfin\r\n");
}

TEST_F(MasterDetailReading, SaysWhenTheMarkerIsNotFoundAndTheSectionEndsThere) {
  EXPECT_EQ(printReading("{LEE}\ndos\n{CUERPO=0}\n{FINCUERPO}\npie\n", u"{NUNCA"), "no\r\npie\r\n");
  EXPECT_EQ(lineRead, u"(nada)");
  EXPECT_THAT(world.calls.lines(),
              Contains("clsMessage.sShowMessageWithTitle \"No se encontró línea desde ={NUNCA= en "
                       "el archivo FACTURA\", \"Impresión de Plantilla\""));
}

TEST_F(MasterDetailReading, LeavesARepeatedLineItsOwn) {
  // Long enough to live on the heap, and read over by longer ones.
  const std::string first = "{REPEAT}" + std::string(40, 'a') + "{LEE}";
  write(first + "\n" + std::string(400, 'b') + "\n" + std::string(4000, 'c') + "\nd\n" +
        "{CUERPO=0}\n{FINCUERPO}\n");
  int passes = 0;
  client->translates = [&](Ref<clsObLineCharacts>& line) {
    Text read;
    if (passes < 2) report->fReadFileUntilLineFrom(passes == 0 ? u"BB" : u"CC", read);
    line->GetSpecialVar()->SetContentString(u"!");
    line->GetSpecialVar()->SetEndOfRepeatPrintLine(++passes == 3);
    return true;
  };
  init();
  EXPECT_EQ(printed(), repeated(3, std::string(40, 'a') + "!\r\n") + "d\r\n");
}

TEST_F(MasterDetailReading, InsideABreakMovesTheSectionOfTheBreak) {
  write("cabeza {LEE}\nh2\nh3\n{CUERPO=5}\nuno\n{SALTAPAGINA}dos\ntres\n{FINCUERPO}\npie\n");
  client->records.resize(1);
  int headers = 0;
  client->translates = [&](Ref<clsObLineCharacts>& line) {
    Text read;
    if (++headers == 2) report->fReadFileUntilLineFrom(u"H2", read);
    line->GetSpecialVar()->SetContentString(u"x");
    return true;
  };
  init();
  EXPECT_EQ(printed(),
            "cabeza x\r\nh2\r\nh3\r\nuno\r\n\fcabeza x\r\nh3\r\ndos\r\ntres\r\n\r\n\r\n\r\n\r\n"
            "pie\r\n");
}

TEST_F(MasterDetailReading, WithoutASectionIsError91) {
  Text read;
  init();
  EXPECT_EQ(errorNumberOf([&] { report->fReadFileUntilLineFrom(u"X", read); }), kObjectNotSet);
  EXPECT_EQ(world.error->trail(), "fReadFileUntilLineFrom");
  EXPECT_TRUE(report->fReadFileUntilLineFrom(u"", read)) << "nothing is to be read";
}

TEST_F(MasterDetailReading, BetweenTheSectionsIsError91) {
  write("a\n{CUERPO=2}\n{CODIGO}\n{FINCUERPO}\n");
  addRecord("A");
  Text read;
  client->beforeCall = [&](const std::string& call) {
    if (call.starts_with("fReadFirst")) report->fReadFileUntilLineFrom(u"X", read);
  };
  init();
  EXPECT_EQ(errorOfPrinting(), kObjectNotSet) << "the body was read before its records";
  EXPECT_EQ(world.error->trail(),
            "fReadFileUntilLineFrom sPrintBody sWriteReport sWriteNCopiesOfReport sPrintReport");
}

}  // namespace
}  // namespace tarvo::test
