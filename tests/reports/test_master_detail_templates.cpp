// The template of a master-detail report: what its constants and its body marker may say, how long
// its sections may be, and files that are odd or change while they are read.
#include "master_detail_report.h"

namespace tarvo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kTail = " sWriteReport sWriteNCopiesOfReport sPrintReport";

class MasterDetailTemplate : public MasterDetailReport {
 protected:
  std::string printOf(const std::string& typed) {
    write(typed);
    init();
    return printed();
  }
  std::int32_t errorOf(const std::string& typed) {
    write(typed);
    init();
    return errorOfPrinting();
  }
};

// --- Constants.

struct Constant {
  const char* shows;
  const char* lines;  // of the template, before its first ordinary one
  int pageLength;     // 66 when nothing sets it
  bool isHalfLetter = false;
};

void PrintTo(const Constant& row, std::ostream* out) { *out << row.shows; }

constexpr Constant kConstants[] = {
    {"None", "", 66},
    {"PageLength", "...NMAXLINPAGINA=60\n", 60},
    {"GreatestPageLength", "...NMAXLINPAGINA=255\n", 255},
    {"NoNumberIs0", "...NMAXLINPAGINA=\n", 0},
    {"WordsAre0", "...NMAXLINPAGINA=doce\n", 0},
    {"TheNumberMayHaveBlanksAround", "...NMAXLINPAGINA= 12 \n", 12},
    {"TheNumberEndsBeforeWhatIsNone", "...NMAXLINPAGINA=12=7\n", 12},
    {"AFractionIsRoundedHalfToEven", "...NMAXLINPAGINA=12,5\n", 12},
    {"StopsAreTakenOutOfTheNumberToo", "...NMAXLINPAGINA=1.2\n", 12},
    {"SmallLetters", "...nMaxLinPagina=60\n", 60},
    {"OneStop", ".NMAXLINPAGINA=60\n", 60},
    {"ManyStops", "....N.MAXLIN..PAGINA=60.\n", 60},
    {"BlanksAround", "...  NMAXLINPAGINA=60  \n", 60},
    {"TheLastOneCounts", "...NMAXLINPAGINA=60\n...NMAXLINPAGINA=50\n", 50},
    {"ABlankBeforeTheSignMakesAnotherName", "...NMAXLINPAGINA =60\n", 66},
    {"NoSign", "...NMAXLINPAGINA\n", 66},
    {"NoName", "...=60\n", 66},
    {"UnknownName", "...OTRA=60\n", 66},
    {"OldName", "...NUMERODELinesPORPAGINA=60\n", 66},
    {"OldNameInCapitals", "...NUMERODELINESPORPAGINA=60\n", 66},
    {"FirstOrdinaryLine", "NMAXLINPAGINA=60\n", 60},
    {"FirstOrdinaryLineWithStopsBehindABlank", " ...NMAXLINPAGINA=60\n", 60},
    {"SecondOrdinaryLine", "x\nNMAXLINPAGINA=60\n", 66},
    {"ConstantBehindAnOrdinaryLine", "x\n...NMAXLINPAGINA=60\n", 66},
    {"EmptyLineEndsThem", "\n...NMAXLINPAGINA=60\n", 66},
    {"HalfLetter", "...MEDIACARTA\n", 66, true},
    {"HalfLetterInSmallLettersWithBlanks", "... MediaCarta \n", 66, true},
    {"HalfLetterAndPageLength", "...MEDIACARTA\n...NMAXLINPAGINA=60\n", 60, true},
    {"HalfLetterAsFirstOrdinaryLine", "MEDIACARTA\n", 66, true},
    {"HalfLetterWithMoreInItsLine", "...MEDIACARTA 1\n", 66, false},
    {"HalfLetterWithASign", "...MEDIACARTA=1\n", 66, false},
};

class MasterDetailConstants : public MasterDetailTemplate,
                              public ::testing::WithParamInterface<Constant> {};

TEST_P(MasterDetailConstants, AreReadFromTheFirstLines) {
  printOf(std::string(GetParam().lines) + "{CUERPO=1}\n{FINCUERPO}\n");
  EXPECT_EQ(world.printer->GetMaxLinPage(), GetParam().pageLength);
  EXPECT_EQ(report->GetNumberOfLinesForHalfLetter(),
            GetParam().pageLength == 66 ? 29 : GetParam().pageLength);
  EXPECT_EQ(report->GetIsHalfLetterPaper(), GetParam().isHalfLetter);
}

INSTANTIATE_TEST_SUITE_P(All, MasterDetailConstants, ::testing::ValuesIn(kConstants),
                         [](const auto& row) { return std::string(row.param.shows); });

TEST_F(MasterDetailTemplate, APageLengthThatIsNoByteIsAnOverflow) {
  for (const char* value : {"256", "-1", "99999999999"}) {
    world.error->reports.clear();
    EXPECT_EQ(errorOf(std::string("...NMAXLINPAGINA=") + value + "\n{CUERPO=1}\n"), kOverflow);
    EXPECT_EQ(world.error->trail(),
              std::string("sTranslateConstantAndAssingItsValue "
                          "sReadAllFileTranslateConstantsAndAssignsItsValues") +
                  kTail);
    EXPECT_EQ(world.printer->GetMaxLinPage(), 66) << "nothing is stored";
    EXPECT_EQ(report->GetNumberOfLinesForHalfLetter(), 29);
    EXPECT_EQ(world.files->openStreams(), 0);
  }
}

TEST_F(MasterDetailTemplate, ConstantsAreReadAnewForEachCopy) {
  write("...MEDIACARTA\n...NMAXLINPAGINA=4\n{CUERPO=1}\n{FINCUERPO}\npie\n");
  init(3);
  int pauses = 0;
  client->beforeCall = [&](const std::string& call) {
    if (call != "sDisplayPauseDialog") return;
    report->SetIsHalfLetterPaper(false);
    report->SetNumberOfLinesForHalfLetter(7);
    world.printer->SetMaxLinPage(0);
    if (++pauses == 2) write("{CUERPO=1}\n{FINCUERPO}\notro\n");
  };
  EXPECT_EQ(printed(),
            "\r\npie\r\n\r\n\r\n"  // copies 1 and 2 fill their four lines
            "\r\npie\r\n\r\n\r\n"
            "\r\notro\r\n");
  EXPECT_EQ(world.printer->GetMaxLinPage(), 0) << "the third copy's template does not say it";
}

// --- The body's number.

struct BodyNumber {
  const char* shows;
  const char* marker;
  int lines;  // 0: no limit; -1: no body
};

void PrintTo(const BodyNumber& row, std::ostream* out) { *out << row.shows; }

constexpr BodyNumber kBodyNumbers[] = {
    {"Three", "{CUERPO=3}", 3},
    {"Blanks", "{CUERPO= 3 }", 3},
    {"AboveAByte", "{CUERPO=300}", 300},
    {"WithoutClosingBrace", "{CUERPO=3", 3},
    {"TextBehindTheBrace", "{CUERPO=3} y 4}", 3},
    {"TextBeforeTheMarker", "uno}{CUERPO=3}", 3},
    {"SmallLetters", "{cuerpo=3}", 3},
    {"Fraction", "{CUERPO=2,5}", 2},
    {"NoNumber", "{CUERPO=}", 0},
    {"Words", "{CUERPO=tres}", 0},
    {"Zero", "{CUERPO=0}", 0},
    {"Negative", "{CUERPO=-2}", -1},
};

class MasterDetailBodyNumber : public MasterDetailTemplate,
                               public ::testing::WithParamInterface<BodyNumber> {};

TEST_P(MasterDetailBodyNumber, StandsInTheMarker) {
  addRecord("A");
  world.printer->SetMaxLinPage(0);
  const std::string sent = printOf(std::string(GetParam().marker) + "\n{CODIGO}\n{FINCUERPO}\n");
  const int lines = GetParam().lines;
  EXPECT_EQ(sent, lines < 0 ? "" : "A\r\n" + repeated(lines - 1, "\r\n"));
  EXPECT_EQ(world.calls.linesOf("client.fDetailRecordCount").size(), lines == 0 ? 1u : 0u);
  EXPECT_EQ(world.calls.linesOf("client.fReadFirstRecord").size(), lines < 0 ? 0u : 1u);
}

INSTANTIATE_TEST_SUITE_P(All, MasterDetailBodyNumber, ::testing::ValuesIn(kBodyNumbers),
                         [](const auto& row) { return std::string(row.param.shows); });

TEST_F(MasterDetailTemplate, ABodyNumberOfMoreThan16BitsIsAnOverflow) {
  for (const char* number : {"32768", "-32769"}) {
    world.error->reports.clear();
    EXPECT_EQ(errorOf(std::string("{CUERPO=") + number + "}\n{FINCUERPO}\n"), kOverflow);
    EXPECT_EQ(world.error->trail(),
              std::string("fExtractNumberOfLinesToReadFromLine sPrintBody") + kTail);
  }
}

// --- How long a body may be.

TEST_F(MasterDetailTemplate, ABodyOf51LinesIsAccepted) {
  addRecord("A");
  world.printer->SetMaxLinPage(100);
  EXPECT_EQ(printOf("{CUERPO=51}\n" + repeated(50, "x\n") + "{CODIGO}\n{FINCUERPO}\npie\n"),
            repeated(50, "x\r\n") + "A\r\npie\r\n");
}

TEST_F(MasterDetailTemplate, TheBodys52ndLineIsError9) {
  EXPECT_EQ(errorOf("{CUERPO=60}\n" + repeated(52, "x\n") + "{FINCUERPO}\n"), kSubscriptOutOfRange);
  EXPECT_EQ(world.error->trail(), std::string("sReadAllBodyAndFillLinesArray sPrintBody") + kTail);
  EXPECT_EQ(world.files->openStreams(), 0);
  EXPECT_THAT(world.calls.linesOf("client.fReadFirstRecord"), IsEmpty());
}

TEST_F(MasterDetailTemplate, AnInsertBodyOf51LinesIsAccepted) {
  world.printer->SetMaxLinPage(100);
  EXPECT_EQ(printOf("{CUERPO=51}\n{UNINSERTOCUERPO}\n" + repeated(50, "x\n") + "y\n{FINCUERPO}\n"),
            repeated(50, "x\r\n") + "y\r\n");
}

TEST_F(MasterDetailTemplate, TheInsertBodys52ndLineIsError9) {
  EXPECT_EQ(errorOf("{CUERPO=60}\n{UNINSERTOCUERPO}\n" + repeated(52, "x\n") + "{FINCUERPO}\n"),
            kSubscriptOutOfRange);
  EXPECT_EQ(world.error->trail(),
            std::string("sReadInsertBody sReadAllBodyAndFillLinesArray sPrintBody") + kTail);
  EXPECT_EQ(world.files->openStreams(), 0);
}

TEST_F(MasterDetailTemplate, AHeaderAndAFooterMayBeOfAnyLength) {
  world.printer->SetMaxLinPage(0);
  EXPECT_EQ(printOf(repeated(300, "c\n") + "{CUERPO=0}\n{FINCUERPO}\n" + repeated(300, "p\n")),
            repeated(300, "c\r\n") + repeated(300, "p\r\n"));
}

TEST_F(MasterDetailTemplate, LinesOfAnEarlierCopysBodyAreNotPrintedByAShorterOne) {
  write("{CUERPO=9}\nuno\ndos\n{UNINSERTOCUERPO}\ntres\n{FINCUERPO}\n");
  client->records.resize(1);
  init(2);
  client->beforeCall = [&](const std::string& call) {
    if (call == "sDisplayPauseDialog") write("{CUERPO=2}\nsolo\n{FINCUERPO}\n");
  };
  EXPECT_EQ(printed(), "uno\r\ndos\r\n" + repeated(6, "\r\n") + "tres\r\n\fsolo\r\n\r\n");
}

// --- Odd files.

constexpr const char* kTemplate =
    "cab\n{CUERPO=2}\n{CODIGO}\n{UNINSERTOCUERPO}\nins\n{FINCUERPO}\npie";
constexpr const char* kPrinted = "cab\r\nA\r\nins\r\npie\r\n";

TEST_F(MasterDetailTemplate, WindowsLineEndsAreLineEnds) {
  addRecord("A");
  std::string windows;
  for (const char c : std::string(kTemplate)) windows += c == '\n' ? "\r\n" : std::string(1, c);
  EXPECT_EQ(printOf(windows + "\r\n"), kPrinted);
  EXPECT_EQ(printOf(windows), kPrinted) << "without an end of the last line";
  EXPECT_EQ(printOf(kTemplate), kPrinted);
}

TEST_F(MasterDetailTemplate, ALoneCarriageReturnStaysInItsLine) {
  addRecord("A");
  EXPECT_EQ(printOf("a\rb\n{CUERPO=2}\r{CODIGO}\n{CODIGO}\r\r\n{FINCUERPO}\n"),
            "a\rb\r\nA\r\r\n\r\n");
}

TEST_F(MasterDetailTemplate, AnInsertMarkerWithACarriageReturnOfItsOwnIsABodyLine) {
  addRecord("A");
  client->values.add("UNINSERTOCUERPO=text ?");
  EXPECT_EQ(printOf("{CUERPO=2}\n{UNINSERTOCUERPO}\r\r\n{CODIGO}\n{FINCUERPO}\n"), "?\r\r\nA\r\n");
}

TEST_F(MasterDetailTemplate, AnEmptyFileIsATemplateWithoutMarkers) {
  EXPECT_EQ(printOf(""), "");
  EXPECT_THAT(
      world.calls.linesOf("clsMessage"),
      ElementsAre("clsMessage.sShowMessageWithTitle \"No se encontró línea desde ={CUERPO== en el "
                  "archivo FACTURA\", \"Impresión de Plantilla\"",
                  "clsMessage.sShowMessageWithTitle \"No se encontró línea desde ={FINCUERPO}= en "
                  "el archivo FACTURA\", \"Impresión de Plantilla\"",
                  "clsMessage.sShowMessageWithTitle \"No se encontró información para imprimir.\", "
                  "\"Impresión de Informe\""));
}

TEST_F(MasterDetailTemplate, ALoneNulIsAHeaderLine) {
  EXPECT_EQ(printOf(std::string(1, '\0')), std::string("\0\r\n", 3));
}

TEST_F(MasterDetailTemplate, ALineOfAMegabyteIsPrintedWholeInEverySection) {
  const std::string line(1 << 20, 'x');
  client->records.resize(1);
  EXPECT_EQ(printOf(line + "\n{CUERPO=2}\n" + line + "\n{UNINSERTOCUERPO}\n" + line +
                    "\n{FINCUERPO}\n" + line),
            repeated(4, line + "\r\n"));
  EXPECT_EQ(world.calls.linesOf("clsMessage.sWarning").size(), 4u);
}

TEST_F(MasterDetailTemplate, AMarkerAtTheEndOfALineOfAMegabyteIsFound) {
  const std::string line(1 << 20, 'x');
  EXPECT_EQ(printOf("a\n" + line + "{CUERPO=1}\n{CODIGO}\n" + line + "{fincuerpo}\nb\n"),
            "a\r\n\r\nb\r\n");
}

TEST_F(MasterDetailTemplate, ALineThatHoldsBothEndsEndsTheHeaderAndBeginsTheFooter) {
  client->records.resize(1);
  EXPECT_EQ(printOf("a\n{CUERPO=1}{FINCUERPO}\nb\n"), "a\r\nb\r\nb\r\n");
}

// --- Files that change.

std::string missing() {
  return "clsMessage.sShowMessageWithTitle \"La plantilla de impresión F/FACTURA.ID no fue "
         "encontrada, chequee su directorio de instalación a ver si encuentra el archivo de "
         "nombre: "
         "FACTURA.ID\", \"Archivo no encontrado\"";
}

class MasterDetailChangingTemplate : public MasterDetailTemplate {
 protected:
  MasterDetailChangingTemplate() {
    write("cab {X}\n{CUERPO=2}\n{CODIGO}\n{UNINSERTOCUERPO}\nins\n{FINCUERPO}\npie\n");
    addRecord("A");
    client->values.add("X=text x");
    init();
  }

  void before(const std::string& call, std::function<void()> change) {
    client->beforeCall = [call, change = std::move(change)](const std::string& made) {
      if (made.starts_with(call)) change();
    };
  }
  void vanish() { world.files->remove(kPath); }
};

TEST_F(MasterDetailChangingTemplate, VanishedBeforeItsConstantsItIsToldInEachPass) {
  before("fCanExecuteWriteReport", [this] { vanish(); });
  report->sPrintReport();
  EXPECT_THAT(world.calls.linesOf("clsMessage"),
              ElementsAre(missing(), missing(), missing(),
                          "clsMessage.sShowMessageWithTitle \"No se encontró información para "
                          "imprimir.\", \"Impresión de Informe\""));
  EXPECT_EQ(world.jobsText(), "[Factura]\n<1B>@<12><12>\n");
  EXPECT_EQ(world.files->opened(), 0);
}

TEST_F(MasterDetailChangingTemplate, VanishedBeforeItsHeaderNothingIsPrinted) {
  // Opening, end, line and closing of the constants.
  world.files->beforeAccess = [this](int access) {
    if (access == 4) vanish();
  };
  report->sPrintReport();
  EXPECT_THAT(world.calls.linesOf("clsMessage.sShowMessageWithTitle \"La plantilla"),
              ElementsAre(missing(), missing(), missing()));
  EXPECT_EQ(world.jobsText(), "[Factura]\n<1B>@<12><12>\n");
  EXPECT_EQ(world.files->openStreams(), 0);
}

TEST_F(MasterDetailChangingTemplate, VanishedWhileItsHeaderIsPrintedTheRestIsMissing) {
  before("fTranslateSpecialVarMD X", [this] { vanish(); });
  EXPECT_EQ(printed(), "cab x\r\n");
  EXPECT_THAT(world.calls.linesOf("clsMessage"), ElementsAre(missing(), missing()));
  EXPECT_THAT(world.calls.linesOf("client.fReadFirstRecord"), IsEmpty());
}

TEST_F(MasterDetailChangingTemplate, VanishedBeforeItsFooterTheBodyIsFilledAllTheSame) {
  before("fReadFirstRecord", [this] { vanish(); });
  client->records.clear();
  EXPECT_EQ(printed(), "cab x\r\n\r\nins\r\n");
  EXPECT_THAT(world.calls.linesOf("clsMessage"), ElementsAre(missing()));
}

TEST_F(MasterDetailChangingTemplate, VanishedAfterTheQuestionItIsError53) {
  world.files->beforeAccess = [this](int access) {
    if (access == 5) vanish();  // opening it for the header
  };
  EXPECT_EQ(errorOfPrinting(), kFileNotFound);
  EXPECT_EQ(world.error->trail(),
            std::string("sReadFileFromLineFromToLineUntilAndPrint sPrintPageHeader") + kTail);
}

TEST_F(MasterDetailChangingTemplate, AFooterThatChangedIsPrintedAsItIsThen) {
  before("fReadNextRecord", [this] { write("{FINCUERPO}\nnuevo\n"); });
  EXPECT_EQ(printed(), "cab x\r\nA\r\nins\r\nnuevo\r\n");
}

TEST_F(MasterDetailChangingTemplate, AFooterThatGrowsWhileItIsReadPrintsWhatItHoldsThen) {
  write("{CUERPO=1}\n{FINCUERPO}\n{X}\n");
  int grown = 0;
  before("fTranslateSpecialVarMD X", [&] {
    if (++grown <= 3) world.files->append(kPath, "{X}\n");
  });
  EXPECT_EQ(printed(), "\r\n" + repeated(4, "x\r\n"));
}

TEST_F(MasterDetailChangingTemplate, ABodyThatIsCutShortWhileItIsReadEndsThere) {
  write("{CUERPO=2}\n{CODIGO}\n{CODIGO}\n{FINCUERPO}\npie\n");
  // Constants 4 and header 4 accesses; then opening, end and marker, end and first body line.
  world.files->beforeAccess = [this](int access) {
    if (access == 13) write("{CUERPO=2}\n{CODIGO}\n");
  };
  EXPECT_EQ(printed(), "A\r\n\r\n");
}

}  // namespace
}  // namespace tarvo::test
