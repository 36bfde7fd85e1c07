// What depends on the printer: widths, emphasis, letters, page lengths.
#include "check_test.h"

namespace tarvordp::test {
namespace {

std::string columns(std::size_t count) { return std::string(count, 'x'); }

Profile profileOf(const std::string& name) { return findProfile(name, ""); }

// --- Widths.

TEST(CheckWidths, Of80ColumnsFit) {
  EXPECT_EQ(findingsIn(columns(80) + "\n"), "");
  EXPECT_EQ(findingsIn(columns(80) + "     \n"), "");  // blanks behind
  EXPECT_EQ(findingsIn(columns(60) + "{F,20}{G}{NOMBRE,30,NB}\n"), "");
  EXPECT_EQ(findingsIn("{CUERPO=1}\n{VAN}" + columns(79) + "\n{FINCUERPO}\n"), "");
}

TEST(CheckWidths, BeyondThePaperAreToldWhereTheyBegin) {
  EXPECT_EQ(findingsIn(columns(81) + "\n"),
            "T:1:81: warning: the line takes 81 columns at least, the paper has 80\n");
  EXPECT_EQ(findingsIn(columns(61) + "{F,20}\n"),
            "T:1:62: warning: the line takes 81 columns at least, the paper has 80\n");
  EXPECT_EQ(findingsIn("{NB,76}{@Total}\n"),
            "T:1:8: warning: the line takes 81 columns at least, the paper has 80\n");
  EXPECT_EQ(findingsIn("{CUERPO=1}\n{VAN}" + columns(80) + "\n{FINCUERPO}\n"),
            "T:2:85: warning: the line takes 81 columns at least, the paper has 80\n");
}

TEST(CheckWidths, OfAValueOfIifAreTheShorterOnes) {
  EXPECT_EQ(findingsIn(columns(76) + "{F,IIF(\"S\",\"no\",abcd)}xx\n"), "");
  EXPECT_EQ(findingsIn(columns(76) + "{F,IIF(\"S\",abcdef,\"no\")}xxx\n"),
            "T:1:103: warning: the line takes 81 columns at least, the paper has 80\n");
}

TEST(CheckWidths, OfADateAreItsFormats) {
  EXPECT_EQ(findingsIn(columns(70) + "{F,DF(dd/mm/yyyy)}\n"), "");
  EXPECT_EQ(findingsIn(columns(71) + "{F,DF(dd/mm/yyyy)}\n"),
            "T:1:72: warning: the line takes 81 columns at least, the paper has 80\n");
}

TEST(CheckWidths, OfAVariableThatIsNotPrintedAreNone) {
  EXPECT_EQ(findingsIn(columns(80) + "{F,20,VACIO}\n"), "");
}

TEST(CheckWidths, DependOnThePitchInForce) {
  EXPECT_EQ(findingsIn("{COMP}" + columns(137) + "\n"), "");
  EXPECT_EQ(findingsIn("{COMP}" + columns(138) + "\n"),
            "T:1:144: warning: the line takes 138 columns at least, the paper has 137 in condensed "
            "print\n");
  EXPECT_EQ(findingsIn("{EXPANDIDO}" + columns(41) + "{FINEXPANDIDO}\n"),
            "T:1:52: warning: the line takes 41 columns at least, the paper has 40 in expanded "
            "print\n");
  EXPECT_EQ(
      findingsIn("{COMP}{EXPANDIDO}" + columns(69) + "{FINEXPANDIDO}\n"),
      "T:1:86: warning: the line takes 69 columns at least, the paper has 68 in condensed and "
      "expanded print\n");
}

TEST(CheckWidths, OfSeveralPitchesAreToldInNormalColumns) {
  EXPECT_EQ(findingsIn("{EXPANDIDO}" + columns(10) + "{FINEXPANDIDO}" + columns(60) + "\n"), "");
  EXPECT_EQ(findingsIn("{EXPANDIDO}" + columns(10) + "{FINEXPANDIDO}" + columns(61) + "\n"),
            "T:1:96: warning: the line takes 81 columns at least, the paper has 80\n");
}

TEST(CheckWidths, KeepThePitchFromLineToLine) {
  EXPECT_EQ(findingsIn("{COMP}\n" + columns(137) + "\n{NORMAL}" + columns(81) + "\n"),
            "T:3:89: warning: the line takes 81 columns at least, the paper has 80\n");
}

TEST(CheckWidths, TakeTheProfilesColumns) {
  Profile profile = profileOf("epson-9pin");
  profile.maxChrLinCondensed80Columns = 132;
  EXPECT_EQ(findingsIn("{COMP}" + columns(133) + "\n", {}, &profile),
            "T:1:139: warning: the line takes 133 columns at least, the paper has 132 in condensed "
            "print\n");
}

TEST(CheckWidths, Of255CharactersWarnTheOperator) {
  EXPECT_EQ(findingsIn("{COMP}" + std::string(254, ' ') + "\n"), "");
  EXPECT_EQ(findingsIn("{COMP}" + std::string(255, ' ') + "\n"),
            "T:1:1: error: the line has more than 254 characters: each time it is printed a "
            "warning is shown\n");
}

TEST(CheckWidths, OfCondensedPrintAtAPagesEnd) {
  EXPECT_EQ(findingsIn("a\n{CUERPO=1}\n{FINCUERPO}\n{COMP}b\n"),
            "T:4:1: warning: condensed print is still on when the next page's header begins: "
            "{NORMAL} is missing\n");
  EXPECT_EQ(findingsIn("{COMP}a\n{CUERPO=1}\n{FINCUERPO}\nb\n"), "");
  EXPECT_EQ(findingsIn("a\n{CUERPO=1}\n{FINCUERPO}\n{COMP}b{NORMAL}\n"), "");
}

// --- Emphasis.

TEST(CheckEmphasis, LeftOnAtALinesEnd) {
  EXPECT_EQ(findingsIn("{NEGRA}a{BLANCA}{SUBRAYADO}b{FINSUBRAYADO}\n"), "");
  EXPECT_EQ(findingsIn("{NEGRA}a\nb\n"),
            "T:1:1: warning: bold print goes on behind the line's end: {BLANCA} is missing\n");
  EXPECT_EQ(findingsIn("{SUBRAYADO}a\n x{EXPANDIDO}b\n"),
            "T:1:1: warning: underlined print goes on behind the line's end: {FINSUBRAYADO} is "
            "missing\n"
            "T:2:3: warning: expanded print goes on behind the line's end: {FINEXPANDIDO} is "
            "missing\n");
}

TEST(CheckEmphasis, EndedOnALaterLine) {
  EXPECT_EQ(findingsIn("{NEGRA}a\nb{BLANCA}\n"),
            "T:1:1: note: bold print goes on behind the line's end\n");
  EXPECT_EQ(findingsIn("{NEGRA}a\n{CUERPO=1}\n{A}\n{FINCUERPO}\n{BLANCA}\n"),
            "T:1:1: warning: bold print goes on behind the line's end: {BLANCA} is missing\n");
}

TEST(CheckEmphasis, EndedByACodeThatIsTheSame) {
  const Profile oki = profileOf("oki-microline");
  ASSERT_EQ(oki.code(ControlCode::normal), oki.code(ControlCode::endExpanded));
  EXPECT_EQ(findingsIn("{EXPANDIDO}a{NORMAL}\n", {}, &oki), "");
  const Profile epson = profileOf("epson-9pin");
  EXPECT_EQ(findingsIn("{EXPANDIDO}a{NORMAL}\n", {}, &epson),
            "T:1:1: warning: expanded print goes on behind the line's end: {FINEXPANDIDO} is "
            "missing\n");
}

TEST(CheckEmphasis, ThatTheProfileLacksIsToldOnce) {
  const Profile plain = profileOf("plain");
  EXPECT_EQ(findingsIn("{NEGRA}a\n{NEGRA}b{COMP}" + columns(81) + "\n", {}, &plain),
            "T:1:1: note: the profile has no ChrBold: NEGRA sends nothing\n"
            "T:2:9: note: the profile has no ChrCondensed: COMP sends nothing\n"
            "T:2:94: warning: the line takes 82 columns at least, the paper has 80\n");
}

// --- Letters.

TEST(CheckLetters, ThatPrinterAndLibraryHaveAreFine) {
  EXPECT_EQ(findingsIn(bytesOf("á é í ó ú ñ Ñ º {@Año} {F,IIF(\"S\",Sí,Añejo)}\n")), "");
}

TEST(CheckLetters, PrintAsOthersInTheUsualSet) {
  EXPECT_EQ(findingsIn(bytesOf("Á ¿Qué? ¿\n")),
            "T:1:1: warning: 'Á' leaves as byte C1 and prints as '┴' in PC437, the usual character "
            "set\n"
            "T:1:3: warning: '¿' leaves as byte BF and prints as '┐' in PC437, the usual character "
            "set\n");
}

TEST(CheckLetters, ThatThePrinterLacksAndThoseThatTheLibraryDoesNotChange) {
  const Profile epson = profileOf("epson-9pin");
  EXPECT_EQ(findingsIn(bytesOf("Í ü\n"), {}, &epson),
            "T:1:1: warning: 'Í' leaves as byte CD and prints as '═': the printer's character set "
            "(PC437) lacks it\n"
            "T:1:3: warning: 'ü' leaves as byte FC and prints as 'ⁿ': PC437 has it, but only á é í "
            "ó ú ñ Ñ º are sent as the printer has them\n");
}

TEST(CheckLetters, OfPC858) {
  Profile profile = profileOf("ibm-proprinter");
  profile.codes[static_cast<std::size_t>(ControlCode::internationalChars)] =
      tarvo::Text(u"\x1B[T\x05\0\0\0\x03\x5A\0", 10);
  EXPECT_EQ(findingsIn(bytesOf("€ Õ\n"), {}, &profile),
            "T:1:1: warning: '€' leaves as byte 80 and prints as 'Ç': PC858 has it, but only á é í "
            "ó ú ñ Ñ º are sent as the printer has them\n"
            "T:1:3: warning: 'Õ' leaves as byte D5 and prints as '€': PC858 has it, but only á é í "
            "ó ú ñ Ñ º are sent as the printer has them\n");
}

TEST(CheckLetters, OfASetThatIsNotKnownAreTheUsualOnes) {
  Profile profile = profileOf("epson-24pin");
  profile.codes[static_cast<std::size_t>(ControlCode::internationalChars)] =
      tarvo::Text(u"\x1B(t\x03\0\x01\x07\0", 8);
  EXPECT_EQ(findingsIn(bytesOf("Í\n"), {}, &profile),
            "T:1:1: warning: 'Í' leaves as byte CD and prints as '═' in PC437, the usual character "
            "set\n");
}

TEST(CheckLetters, OfPC850) {
  Profile profile = profileOf("epson-24pin");
  profile.codes[static_cast<std::size_t>(ControlCode::internationalChars)] =
      tarvo::Text(u"\x1B(t\x03\0\x01\x03\0\x1Bt\x01", 11);
  EXPECT_EQ(findingsIn(bytesOf("Í €\n"), {}, &profile),
            "T:1:1: warning: 'Í' leaves as byte CD and prints as '═': PC850 has it, but only á é í "
            "ó ú ñ Ñ º are sent as the printer has them\n"
            "T:1:3: warning: '€' leaves as byte 80 and prints as 'Ç': the printer's character set "
            "(PC850) lacks it\n");
}

TEST(CheckLetters, AreLookedForWhereTheyArePrinted) {
  EXPECT_EQ(
      findingsIn(bytesOf("... Ábaco\n{Á.É,QR}{F,IIF(\"Ó\",Ú,b)}{@Ü,10}\n")),
      "T:2:20: warning: 'Ú' leaves as byte DA and prints as '┌' in PC437, the usual character "
      "set\n"
      "T:2:27: warning: 'Ü' leaves as byte DC and prints as '▄' in PC437, the usual character "
      "set\n");
}

TEST(CheckLetters, ThatAreControlCharacters) {
  EXPECT_EQ(findingsIn("a\tb\x1B"
                       "Ec\rd\n\x1A"),
            "T:1:2: warning: a tab character goes to the printer as it is: columns are made with "
            "blanks\n"
            "T:1:4: note: the control character '\\x1B' goes to the printer as it is\n"
            "T:1:7: warning: a carriage return within the line: what follows is printed over it\n"
            "T:2:1: warning: character 1A, the end of file of old editors, is printed like any "
            "other\n");
}

// --- Pages.

TEST(CheckPages, TakeTheProfilesLength) {
  Profile profile = profileOf("epson-9pin");
  profile.maxLinPage = 6;
  const std::string text = "a\n{CUERPO=4}\n{A}\n{FINCUERPO}\nb\n";
  EXPECT_EQ(findingsIn(text), "");
  EXPECT_EQ(
      findingsIn(text, {}, &profile),
      "T:2:1: error: 1 + 4 + 1 = 6 lines (header, body, footer): a page of 6 lines holds 5\n");
  EXPECT_EQ(findingsIn("...NMAXLINPAGINA=7\n" + text, {}, &profile), "");
}

TEST(CheckPages, OfAFormAreToldOnce) {
  Profile profile = profileOf("epson-9pin");
  profile.maxLinPage = 3;
  EXPECT_EQ(findingsIn("a\nb\n", {}, &profile), "");
  EXPECT_EQ(
      findingsIn("a\nb\nc\nd\n{SALTAPAGINA}e\nf\n{SNL,2}\n", {}, &profile),
      "T:3:1: warning: a form breaks no page by itself, and a page holds 2 lines: SALTAPAGINA "
      "begins another\n"
      "T:7:1: warning: a form breaks no page by itself, and a page holds 2 lines: SALTAPAGINA "
      "begins another\n");
  profile.maxLinPage = 0;
  EXPECT_EQ(findingsIn("a\nb\nc\n", {}, &profile), "");
}

}  // namespace
}  // namespace tarvordp::test
