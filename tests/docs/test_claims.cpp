// What the guides say without showing it: limits, traps, and reports that stop with an error.
#include <gmock/gmock.h>

#include "guide.h"
#include "printing.h"

namespace tarvo::test {
namespace {

constexpr const char* kStops = "(stops with an error)\n";

// What the workbench says at the end when nothing answered the name.
std::string unanswered(const std::string& name) {
  return "tarvordp: hint: these names of the template were not answered, at least once: " + name +
         "\n";
}

struct Claim {
  const char* says;
  const char* templateLines;
  const char* json;
  std::string prints;
  std::string message = {};
};

void PrintTo(const Claim& claim, std::ostream* out) { *out << claim.says; }

Example exampleOf(const Claim& claim) {
  const std::string text = "```template\n" + std::string(claim.templateLines) + "```\n```json\n" +
                           claim.json + "\n```\n```printed\n```\n";
  return guideFrom(text, {"template", "printed", "message"}).examples.at(0);
}

std::string lines(int count, const std::string& line = "") {
  std::string all;
  for (int i = 0; i < count; ++i) all += line + "\n";
  return all;
}

class GuideClaims : public ::testing::TestWithParam<Claim> {};

TEST_P(GuideClaims, AreTrue) {
  const Printing printing = print(exampleOf(GetParam()));
  if (GetParam().prints == kStops) {
    EXPECT_EQ(printing.status, 3);
    return;
  }
  EXPECT_EQ(printing.status, 0);
  EXPECT_THAT(printing.jobs, ::testing::ElementsAre(GetParam().prints));
  EXPECT_EQ(printing.messages, GetParam().message);
}

// --- Values.

const Claim kValues[] = {
    {"a width goes up to 255", "{X,255,NB}|\n", R"({"record": {"X": "a"}})", "a|\n"},
    {"a greater width stops the report", "{X,256}\n", R"({"record": {"X": "a"}})", kStops},
    {"so do more decimals", "{X,12,256}\n", R"({"record": {"X": 1}})", kStops},
    {"and a greater number in brackets", "{X[256]}\n", R"({"record": {"X": "a"}})", kStops},
    {"and a brace without its other", "{X\n", R"({"record": {"X": "a"}})", kStops},
    {"and a closing one before the first", "}{X}\n", R"({"record": {"X": "a"}})", kStops},
    {"and one between two values", "a {X} } b {X}\n", R"({"record": {"X": "a"}})", kStops},
    {"and one before a fixed text", "a } {@b}\n", "{}", kStops},
    {"one behind the last value is printed", "{X} } b\n", R"({"record": {"X": "a"}})", "a } b\n"},
    {"and one in a line without any", "a } b\n", "{}", "a } b\n"},
    {"a value that holds a brace is read again", "{X}\n",
     R"({"record": {"X": "a{Y,3}", "Y": "b"}})", "ab··\n"},
    {"a half is rounded up", "{X,6}\n", R"({"record": {"X": 0.125}})", "  0,13\n"},
    {"a date is not cut", "{X,4}|\n", R"({"record": {"X": {"date": "2026-03-15"}}})",
     "15/03/2026|\n"},
    {"a justified text may lack one more and is too long", "{X,23,QJ}|\n",
     R"({"record": {"X": "uno dos tres cuatro"}})", "uno   dos   tres   cuatro|\n"},
    {"a justified text may lack fewer and is too long", "{X,20,QJ}|\n",
     R"({"record": {"X": "uno dos tres cuatro"}})", "uno  dos  tres  cuatro|\n"},
    {"a justified text that lacks still more stops the report", "{X,24,QJ}|\n",
     R"({"record": {"X": "uno dos tres cuatro"}})", kStops},
    {"a justified single word stops the report", "{X,24,QJ}|\n", R"({"record": {"X": "uno"}})",
     kStops},
    {"a separator pattern adds its blanks to the width", "{X,10,PATRONSEPARADOR=B}|\n",
     R"({"record": {"X": "0123456789"}})", "0 1 2 3 4 5 6 7 8 9|\n"},
    {"several codes of a pattern stand together", "{X,2,PATRONSEPARADOR=2C1B}\n",
     R"({"record": {"X": "01"}})", "0<COMPRIMIDO>  <NORMAL> 1\n"},
    {"a short value leaves its last boxes blank", "{X,4,PATRONSEPARADOR=B}|\n",
     R"({"record": {"X": "01"}})", "0 1    |\n"},
    {"a fixed text ends at a comma", "{@a, b}\n", "{}", "a\n",
     "[Impresión de Plantilla] No se encontró el tipo de atributo B en la línea @a, B\n"},
    {"a value of one character is repeated too", "{X,3,FILL}{Y,3,REPEAT}|\n",
     R"({"record": {"X": "x", "Y": "yy"}})", "xxxyy |\n"},
    {"brackets may follow the record", "{D[2].X}{D.X[1][3]}\n",
     R"({"record": {"D.X": {"array": "abc", "usePosition": true}}})", "bc\n"},
};
INSTANTIATE_TEST_SUITE_P(Values, GuideClaims, ::testing::ValuesIn(kValues));

// --- Codes, conditions, repeated lines.

constexpr const char* kCode = R"({"record": {"X": {"enum": "A"}, "D": {"date": "2026-03-15"}}})";
constexpr const char* kLongText = R"({"details": [{"K": "k", "X": {"lines": ["uno dos tres"]}}]})";

const Claim kLines[] = {
    {"a code without its marks is never found", "{X,IIF(A,yes,no)}\n", kCode, "no\n"},
    {"either text may be empty", "{X,IIF(\"A\",,no)}|{X,IIF(\"B\",yes,)}|\n", kCode, "||\n"},
    {"a text that is longer than the width is not cut", "{X,IIF(\"A\",longer,no),2}|\n", kCode,
     "longer|\n"},
    {"a code without an IIF stops the report", "{X}\n", kCode, kStops},
    {"a condition on one too", "{X,CONDICION}a\n", kCode, kStops},
    {"with an IIF it is never empty", "{X,IIF(\"B\",,),CONDICION}a\n", kCode, "a\n"},
    {"a date format behind an IIF is taken for an IIF", "{D,IIF(\"A\",a,b),DF(yyyy)}|\n", kCode,
     "|\n"},
    {"IIF does nothing to texts and numbers", "{X,IIF(\"a\",b,c)}{Y,IIF(\"1\",b,c)}\n",
     R"({"record": {"X": "a", "Y": 1}})", "a1\n"},
    {"a blank is not empty", "{X,CONDICION}a\n", R"({"record": {"X": " "}})", "a\n"},
    {"a date of 1998 is not empty", "{X,VACIA}a\n{Y,VACIO}b\nc\n",
     R"({"record": {"X": {"date": "1998-01-01"}, "Y": {"date": "1997-12-31"}}})", "a\nc\n"},
    {"no is empty", "{X,CONDICION}a\nb\n", R"({"record": {"X": false}})", "b\n"},
    {"a line that disappears switches nothing", "{X,CONDICION}{NEGRA}a\nb\n",
     R"({"record": {"X": ""}})", "b\n"},
    {"brackets in an IIF without QLR never end", "{X,IIF(\"A\",[2]a,b)}\n", kCode, kStops},
    {"a value that repeats and is not the last one is printed once",
     "{CUERPO=3}\n{X,8}{K}\n{FINCUERPO}\n", kLongText, "tres    k\n\n\n"},
    {"values before it are printed again", "{CUERPO=3}\n{K}{X,4}\n{FINCUERPO}\n", kLongText,
     "kuno·\nkdos·\nktres\n"},
    {"a condition on a long text takes its pieces", "{CUERPO=3}\n{X,CONDICION}{X,4}\n{FINCUERPO}\n",
     kLongText, kStops},
    {"REPEAT at the end of a line never ends", "{CUERPO=3}\n{K}{REPEAT}\n{FINCUERPO}\n", kLongText,
     kStops},
    {"no line of a form is repeated", "{X,4}\n", R"({"record": {"X": {"repeat": ["a", "b"]}}})",
     "a···\n"},
};
INSTANTIATE_TEST_SUITE_P(Lines, GuideClaims, ::testing::ValuesIn(kLines));

// --- Control words.

std::string blanks(int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += ' ';
  return all;
}

std::string blanksAtTheEnd(int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += "·";
  return all;
}

const std::string kLongLine = "a" + blanksAtTheEnd(254) + "\n";
const std::string kLongBoldLine = "<NEGRA>a" + blanks(252) + "b\n";
const std::string kBoldLine = "<NEGRA>a" + blanks(250) + "b\n";
constexpr const char* kTooLong =
    "La información a imprimir supera los 254 caracteres. Reduzca el ancho de las columnas de "
    "monto y texto o disminuya el rango de la información solicitada. El informe se imprimirá "
    "truncado.\n";

const Claim kControls[] = {
    {"a width cuts the printer's code", "{NEGRA,1}a\n", "{}", "<1B>a\n"},
    {"a field named like a control word is one", "{ITEM.NORMAL}a{FONT.BOLD}b{LETRA.NEGRA}c\n",
     R"({"record": {"ITEM.NORMAL": "x", "FONT.BOLD": "y", "LETRA.NEGRA": "z"}})",
     "<NORMAL>a<NEGRA>b<NEGRA>c\n"},
    {"a misspelt control word is a value", "{NEGRITA}a\n", "{}", "No se encontróa\n",
     unanswered("NEGRITA")},
    {"SNL without a number, or with 0, ends the line once", "a{SNL}\nb{SNL,0}\nc\n", "{}",
     "a\nb\nc\n"},
    {"the most points are 254", "a{SNP,254}\nb\n", "{}", "a<1PT>\n" + lines(253) + "<12PT>b\n"},
    {"255 points stop the report", "a{SNP,255}\nb\n", "{}", kStops},
    {"SNL with a new page breaks it again", "{SALTAPAGINA}{SNL,2}a\nb\n", "{}",
     "<FF>  a\n<FF>\nb\n"},
    {"a new page prints the header and no footer",
     "h\n{CUERPO=3}\n{K}\n{SALTAPAGINA}n\n{FINCUERPO}\nf\n", R"({"details": [{"K": "k"}]})",
     "h\nk\n<FF>h\nn\n\n\nf\n"},
    {"SNL with it in a report with records ends the line once",
     "h\n{CUERPO=7}\n{K}\n{SALTAPAGINA}n{SNL,3}\nz\n{FINCUERPO}\nf\n",
     R"({"details": [{"K": "k"}]})", "h\nk\n<FF>h\nn···\nz\n" + lines(5) + "f\n"},
    {"a new page under a top margin of lines stops the report",
     "h\n{CUERPO=3}\n{K}\n{SALTAPAGINA}n\n{FINCUERPO}\n",
     R"({"details": [{"K": "k"}], "topMarginLines": 2})", kStops},
    {"in the footer too", "h\n{CUERPO=1}\n{K}\n{FINCUERPO}\n{SALTAPAGINA}f\n",
     R"({"details": [{"K": "k"}], "topMarginLines": 2})", kStops},
    {"without it the margin does no harm", "h\n{CUERPO=1}\n{K}\n{FINCUERPO}\nf\n",
     R"({"details": [{"K": "k"}], "topMarginLines": 2})", "\n\nh\nk\nf\n"},
    {"a new page in the header never ends", "{SALTAPAGINA}h\n{CUERPO=1}\n{FINCUERPO}\n", "{}",
     kStops},
    {"a line of 255 characters is told and printed whole", "{X,255}\n", R"({"record": {"X": "a"}})",
     kLongLine, kTooLong},
    {"the printer's codes count too", "{NEGRA}{X,253}{@b}\n", R"({"record": {"X": "a"}})",
     kLongBoldLine, kTooLong},
    {"254 characters are none too many", "{NEGRA}{X,251}{@b}\n", R"({"record": {"X": "a"}})",
     kBoldLine},
};
INSTANTIATE_TEST_SUITE_P(Controls, GuideClaims, ::testing::ValuesIn(kControls));

// --- Reports with records.

const std::string kMost = lines(51, "x");
const std::string kMostLines = "{CUERPO=51}\n" + kMost + "{FINCUERPO}\n";
const std::string kTooManyLines = "{CUERPO=60}\n" + kMost + "x\n{FINCUERPO}\n";
const std::string kUnnumberedHalfLetter = "...MEDIACARTA\nh\n{CUERPO=1}\n{K}\n{FINCUERPO}\n";

constexpr const char* kOne = R"({"details": [{"K": "a"}]})";
constexpr const char* kTwo = R"({"details": [{"K": "a"}, {"K": "b"}]})";

const Claim kReports[] = {
    {"51 lines of a body are printed", kMostLines.c_str(), kOne, kMost},
    {"52 stop the report", kTooManyLines.c_str(), kOne, kStops},
    {"small letters make no difference to marks", "{cuerpo=1}\n{k}\n{fincuerpo}\nf\n", kOne,
     "a\nf\n"},
    {"an insert body's mark with a blank is a line",
     "{CUERPO=2}\n{K}\n {UNINSERTOCUERPO}\n{FINCUERPO}\n", kOne, "a\n No se encontró\n",
     unanswered("UNINSERTOCUERPO")},
    {"the page's lines less one fit", "...NMAXLINPAGINA=5\nh\n{CUERPO=2}\n{K}\n{FINCUERPO}\nf\n",
     kOne, "h\na\n\nf\n"},
    {"more break the page where nobody expects it",
     "...NMAXLINPAGINA=4\nh\n{CUERPO=4}\n{K}\n{FINCUERPO}\nf\n", kOne, "h\na\n\n<FF>h\n\n\nf\n"},
    {"a record longer than the body leaves an empty page before it",
     "...NMAXLINPAGINA=9\nh\n{CUERPO=1}\n{K}\nx\n{FINCUERPO}\nf\n", kOne,
     "h\n\nf\n<FF>h\na\nx\nf\n"},
    {"a header of more lines than the page is printed",
     "...NMAXLINPAGINA=3\nh\nh\nh\nh\n{CUERPO=1}\n{K}\n{FINCUERPO}\n", kOne, "h\nh\nh\nh\na\n"},
    {"small letters and blanks make no difference to constants",
     "... MediaCarta  \n... nMaxLinPagina=4 \nh\n{CUERPO=1}\n{K}\n{FINCUERPO}\n", kTwo,
     "h\na\n\n\nh\nb\n"},
    {"a constant after another line is none",
     "h\n...NMAXLINPAGINA=3\n{CUERPO=3}\n{K}\n{FINCUERPO}\n", kOne, "h\na\n\n\n"},
    {"in a form it is a comment", "...NMAXLINPAGINA=3\na\nb\nc\nd\n", "{}", "a\nb\nc\nd\n"},
    {"a number has decimals from width 4 on",
     "{CUERPO=1}\n{NUMERAR,4}|{NUMERAR,4,0}|\n{FINCUERPO}\n", kOne, "1,00|   1|\n"},
    {"the header's records are the next one's",
     "...NMAXLINPAGINA=9\nh {K}\n{CUERPO=1}\n{K}\n{FINCUERPO}\nf {K}\n", kTwo,
     "h No se encontró\na\nf b\n<FF>h b\nb\nf b\n", unanswered("K")},
    {"without a number half-letter paper has 29 lines", kUnnumberedHalfLetter.c_str(), kTwo,
     "h\na\n" + lines(27) + "h\nb\n"},
    {"an insert body that finds no room has a page of its own",
     "...NMAXLINPAGINA=9\nh\n{CUERPO=2}\n{K}\n{UNINSERTOCUERPO}\ni\n{FINCUERPO}\nVan{VAN,3}\n",
     R"({"details": [{"K": 1}, {"K": 2}], "subtotal": "K"})", "h\n1\n2\nVan  3\n<FF>h\n\ni\n\n"},
    {"the VAN before it is printed on the first copy only",
     "...NMAXLINPAGINA=9\nh\n{CUERPO=2}\n{K}\n{UNINSERTOCUERPO}\ni\n{FINCUERPO}\nVan{VAN,3}\n",
     R"({"details": [{"K": 1}, {"K": 2}], "subtotal": "K", "copies": 2})",
     "h\n1\n2\nVan  3\n<FF>h\n\ni\n\n<FF>h\n1\n2\n\n<FF>h\n\ni\n\n"},
    {"an insert body follows long records of an endless page directly",
     "{CUERPO=0}\n{K}\nx\n{UNINSERTOCUERPO}\ni\n{FINCUERPO}\nf\n", kTwo, "a\nx\nb\nx\ni\nf\n"},
};
INSTANTIATE_TEST_SUITE_P(Reports, GuideClaims, ::testing::ValuesIn(kReports));

}  // namespace
}  // namespace tarvo::test
