// Markers, constants and the lines that a master-detail report's sections take.
#include "check_test.h"
#include "equipment/processor_time.h"

namespace tarvordp::test {
namespace {

std::string repeated(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

constexpr CheckCase kCases[] = {
    {"a template with everything in its place",
     "...NMAXLINPAGINA=14\n{VIENEN,18}\n{CUERPO=6}\n{NUMERAR,4,0} {MONTO,15}\n"
     "{UNINSERTOCUERPO}\nTotal {TOTAL,15}\n{FINCUERPO}\nVan {VAN,18}\n",
     ""},
    {"markers in any case", "{cuerpo=6}\n{A}\n{uninsertocuerpo}\n{FinCuerpo}\n", ""},

    // Markers.
    {"no body marker", "cabeza\n{FINCUERPO}\n",
     "T:1:1: error: no line holds {CUERPO=n}: everything is header, and no record is printed\n"
     "T:2:1: error: {FINCUERPO} before {CUERPO=n}: the footer would begin here\n"},
    {"no end of the body", "{CUERPO=3}\n{A}\n",
     "T:2:1: error: no line holds {FINCUERPO}: the body goes on to the end of the file, and there "
     "is no footer\n"},
    {"the end of the body before it", "{FINCUERPO}\n{CUERPO=3}\n{FINCUERPO}\n",
     "T:1:1: error: {FINCUERPO} before {CUERPO=n}: the footer would begin here\n"},
    {"a second body marker", "{CUERPO=3}\n{CUERPO=4}\n{FINCUERPO}\n",
     "T:2:1: error: a second {CUERPO=n}: it is printed like a variable\n"},
    {"a second end", "{CUERPO=3}\n{FINCUERPO}\n{FINCUERPO}\n",
     "T:3:1: error: a second {FINCUERPO}: it is printed like a variable\n"},
    {"an insert marker that is not alone", "{CUERPO=3}\n {UNINSERTOCUERPO}\n{FINCUERPO}\n",
     "T:2:2: error: {UNINSERTOCUERPO} must be alone in its line, without blanks\n"},
    {"an insert marker in the footer", "{CUERPO=3}\n{FINCUERPO}\n{UNINSERTOCUERPO}\n",
     "T:3:1: error: {UNINSERTOCUERPO} has its place between {CUERPO=n} and {FINCUERPO}: it is "
     "printed like a variable\n"},
    {"two insert markers", "{CUERPO=3}\n{UNINSERTOCUERPO}\n{UNINSERTOCUERPO}\n{FINCUERPO}\n",
     "T:3:1: error: {UNINSERTOCUERPO} has its place between {CUERPO=n} and {FINCUERPO}: it is "
     "printed like a variable\n"},
    {"what stands beside markers", "xx{CUERPO=3}\n{FINCUERPO} yy\n",
     "T:1:1: warning: what stands beside a marker is not printed\n"
     "T:2:13: warning: what stands beside a marker is not printed\n"},
    {"what is nearly a marker", "{CUERPO:3}\n{FINCUERPO }\n{INSERTO}\n",
     "T:1:1: error: no line holds {CUERPO=n}: everything is header, and no record is printed\n"
     "T:1:1: warning: '{CUERPO:3}' is no marker, did you mean {CUERPO=n}?\n"
     "T:2:1: warning: '{FINCUERPO }' is no marker, did you mean {FINCUERPO}?\n"
     "T:3:1: warning: '{INSERTO}' is no marker, did you mean {UNINSERTOCUERPO}?\n"},
    {"a body without a number", "{CUERPO=}\n{FINCUERPO}\n",
     "T:1:9: error: {CUERPO=n} has no number: the body would be without limit, as with 0\n"},
    {"a negative body", "{CUERPO=-3}\n{FINCUERPO}\n",
     "T:1:9: error: a negative number of body lines: no record is printed\n"},
    {"a body that is too large", "{CUERPO=32768}\n{FINCUERPO}\n",
     "T:1:9: error: the number of {CUERPO=n} is at most 32767 (run-time error 6)\n"},
    {"a body marker that is not closed", "{CUERPO=3\n{FINCUERPO}\n",
     "T:1:9: error: the '}' of {CUERPO=n} is missing\n"},
    {"a body without limit", "a\n{CUERPO=0}\n{A}\n{B}\n{FINCUERPO}\n", ""},
    {"a marker in a comment counts", "... {CUERPO=3}\n{FINCUERPO}\n",
     "T:1:1: warning: what stands beside a marker is not printed\n"},

    // Constants.
    {"half-letter paper in any case", "...mediacarta \n{CUERPO=3}\n{FINCUERPO}\n", ""},
    {"a page length out of range", "...NMAXLINPAGINA=256\n{CUERPO=3}\n{FINCUERPO}\n",
     "T:1:4: error: NMAXLINPAGINA is a number from 0 to 255 (run-time error 6)\n"},
    {"a page length that is no number", "...NMAXLINPAGINA=x\n{CUERPO=3}\n{FINCUERPO}\n",
     "T:1:4: error: NMAXLINPAGINA has no number: the page would have no end\n"},
    {"blanks before the number's sign", "...NMAXLINPAGINA =60\n{CUERPO=3}\n{FINCUERPO}\n",
     "T:1:4: error: NMAXLINPAGINA has no effect: '=' and its number must follow it at once\n"},
    {"the old name of the page length", "...NUMERODELinesPORPAGINA=60\n{CUERPO=3}\n{FINCUERPO}\n",
     "T:1:4: warning: NUMERODELinesPORPAGINA has no effect: NMAXLINPAGINA sets the lines of a "
     "page\n"},
    {"what is nearly a constant", "...MAXLINPAGINA=60\n...MEDIA CARTA\n{CUERPO=3}\n{FINCUERPO}\n",
     "T:1:4: warning: unknown constant 'MAXLINPAGINA', did you mean NMAXLINPAGINA?\n"
     "T:2:4: warning: unknown constant 'MEDIA CARTA', did you mean MEDIACARTA?\n"},
    {"a constant that is printed", ".NMAXLINPAGINA=60\n{CUERPO=3}\n{FINCUERPO}\n",
     "T:1:2: warning: this constant is printed as a line of the header too: only after three full "
     "stops is it not\n"},
    {"a first line that is a constant without stops", "NMAXLINPAGINA=60\n{CUERPO=3}\n{FINCUERPO}\n",
     "T:1:1: warning: this constant is printed as a line of the header too: only after three full "
     "stops is it not\n"},
    {"a constant that comes too late", "cabeza\n...NMAXLINPAGINA=60\n{CUERPO=3}\n{FINCUERPO}\n",
     "T:2:4: error: this constant has no effect: constants stand before every line that does not "
     "begin with '.'\n"},
    {"comments before and among constants",
     "... Factura\n...NMAXLINPAGINA=60\n... \n{CUERPO=3}\n"
     "{FINCUERPO}\n",
     ""},

    // Pages.
    {"a page that is just full", "...NMAXLINPAGINA=6\na\n{CUERPO=3}\n{A}\n{FINCUERPO}\nb\n", ""},
    {"a page that is too small", "...NMAXLINPAGINA=5\na\n{CUERPO=3}\n{A}\n{FINCUERPO}\nb\n",
     "T:3:1: error: 1 + 3 + 1 = 5 lines (header, body, footer): a page of 5 lines holds 4\n"},
    {"skipped lines count", "...NMAXLINPAGINA=6\n{SNL,2}\n{CUERPO=3}\n{A}\n{FINCUERPO}\nb\n",
     "T:3:1: error: 2 + 3 + 1 = 6 lines (header, body, footer): a page of 6 lines holds 5\n"},
    {"a page that is too small when every line is printed",
     "...NMAXLINPAGINA=5\n{CUERPO=3}\n{A}\n{FINCUERPO}\nb\n{C,VACIO}\n",
     "T:2:1: warning: 0 + 3 + 2 = 5 lines (header, body, footer) when no condition "
     "suppresses any: a page of 5 lines holds 4\n"},
    {"comments, open lines and constants take none",
     "...NMAXLINPAGINA=5\n... nota\n{SNP,3}\n{CUERPO=3}\n{A}\n{FINCUERPO}\nb\n", ""},
    {"half-letter paper is 29 lines long", "...MEDIACARTA\na\n{CUERPO=28}\n{A}\n{FINCUERPO}\nb\n",
     "T:3:1: error: 1 + 28 + 1 = 30 lines (header, body, footer): a half-letter page holds "
     "29\n"},
    {"half-letter paper takes no number", "...MEDIACARTA=33\na\n{CUERPO=28}\n{A}\n{FINCUERPO}\nb\n",
     "T:1:4: warning: MEDIACARTA takes no number, so this has no effect: write MEDIACARTA alone, "
     "and NMAXLINPAGINA=n in a line of its own\n"},
    {"half-letter paper that is full to its last line",
     "...MEDIACARTA\na\n{CUERPO=27}\n{A}\n{FINCUERPO}\nb\n", ""},
    {"half-letter paper whose body reaches the last line",
     "...MEDIACARTA\n...NMAXLINPAGINA=8\na\n{CUERPO=7}\n{A}\n{FINCUERPO}\n",
     "T:4:1: error: header and body reach the page's last line, which breaks the page before the "
     "footer\n"},
    {"a page without end", "...NMAXLINPAGINA=0\na\n{CUERPO=3}\n{A}\n{FINCUERPO}\nb\n", ""},
    {"a record larger than the body", "{CUERPO=1}\n{A}\n{B}\n{FINCUERPO}\n",
     "T:1:1: error: a record takes 2 lines, {CUERPO=n} has room for 1\n"},
    {"a line of a record that may be suppressed does not count",
     "{CUERPO=1}\n{A}\n{B,VACIO}\n{FINCUERPO}\n", ""},
    {"an insert body larger than the body",
     "{CUERPO=1}\n{A}\n{UNINSERTOCUERPO}\n{B}\n{C}\n{FINCUERPO}\n",
     "T:3:1: warning: the insert body takes 2 lines, {CUERPO=n} has room for 1: the footer moves "
     "down a line\n"},
    {"an insert body much larger than the body",
     "{CUERPO=1}\n{A}\n{UNINSERTOCUERPO}\n{B}\n{C}\n{D}\n{FINCUERPO}\n",
     "T:3:1: warning: the insert body takes 3 lines, {CUERPO=n} has room for 1: it is split over "
     "pages\n"},
    {"a header that is not as high on every page", "a\n{B,CONDICION}\n{CUERPO=1}\n{FINCUERPO}\n",
     "T:2:1: warning: a condition may suppress this line: every page's header must be as high as "
     "the first one's\n"},

    // Words that depend on the section.
    {"a page break in the header never ends", "{SALTAPAGINA}a\n{CUERPO=1}\n{FINCUERPO}\n",
     "T:1:1: error: SALTAPAGINA in the page header never ends: the new page prints the header "
     "again (run-time error 28)\n"},
    {"a page break elsewhere does with a margin", "{CUERPO=1}\n{FINCUERPO}\n{SALTAPAGINA}a\n",
     "T:3:1: note: with a top margin of lines (SetTopMarginLines) SALTAPAGINA never ends "
     "(run-time error 28)\n"},
    {"a page break of the last body line without a header",
     "{CUERPO=3}\n{SALTAPAGINA}{A}\n{FINCUERPO}\n",
     "T:2:1: warning: without a header line to end it, this break repeats for every empty line "
     "behind the records\n"
     "T:2:1: note: with a top margin of lines (SetTopMarginLines) SALTAPAGINA never ends "
     "(run-time error 28)\n"},
    {"a page break of a body line before others",
     "{CUERPO=3}\n{SALTAPAGINA}{A}\n{B}\n{FINCUERPO}\n",
     "T:2:1: note: with a top margin of lines (SetTopMarginLines) SALTAPAGINA never ends "
     "(run-time error 28)\n"},
    {"a page break of the insert body's last line without a header",
     "{CUERPO=3}\n{A}\n{UNINSERTOCUERPO}\n{SALTAPAGINA}{B}\n{FINCUERPO}\n",
     "T:4:1: warning: without a header line to end it, this break repeats for every empty line of "
     "the body\n"
     "T:4:1: note: with a top margin of lines (SetTopMarginLines) SALTAPAGINA never ends "
     "(run-time error 28)\n"},
    {"a page break of the insert body's last line",
     "a\n{CUERPO=3}\n{A}\n{UNINSERTOCUERPO}\n{B}\n{SALTAPAGINA}{B}\n{FINCUERPO}\n",
     "T:6:1: warning: a break in the insert body's last line breaks the page for the empty lines "
     "before the insert body too: a page with little but the header is lost\n"
     "T:6:1: note: with a top margin of lines (SetTopMarginLines) SALTAPAGINA never ends "
     "(run-time error 28)\n"},
    {"a page break of an insert body's line before others",
     "a\n{CUERPO=3}\n{A}\n{UNINSERTOCUERPO}\n{SALTAPAGINA}{B}\n{B}\n{FINCUERPO}\n",
     "T:5:1: note: with a top margin of lines (SetTopMarginLines) SALTAPAGINA never ends "
     "(run-time error 28)\n"},
    {"a page break of the last line of a record that fills the body",
     "a\n{CUERPO=2}\n{A}\n{SALTAPAGINA}{B}\n{FINCUERPO}\n",
     "T:4:1: warning: a record takes all lines of {CUERPO=n} and breaks the page in its last one: "
     "a page is lost before the next record\n"
     "T:4:1: note: with a top margin of lines (SetTopMarginLines) SALTAPAGINA never ends "
     "(run-time error 28)\n"},
    {"a page break of the last line of a record that does not fill the body",
     "a\n{CUERPO=3}\n{A}\n{SALTAPAGINA}{B}\n{FINCUERPO}\n",
     "T:4:1: note: with a top margin of lines (SetTopMarginLines) SALTAPAGINA never ends "
     "(run-time error 28)\n"},
    {"a page length that the body takes away",
     "...NMAXLINPAGINA=20\n{CUERPO=0}\n{A}\n{FINCUERPO}\n",
     "T:2:1: warning: {CUERPO=0} takes every page's end away: NMAXLINPAGINA has no effect\n"},
    {"a page length that half-letter paper keeps",
     "...MEDIACARTA\n...NMAXLINPAGINA=20\n{CUERPO=0}\n{A}\n{FINCUERPO}\n", ""},
    {"a page break whose header takes its skips",
     "a\n{CUERPO=3}\n{SALTAPAGINA}{SNL,2}\n{FINCUERPO}\n",
     "T:3:1: warning: the page header that SALTAPAGINA prints undoes SNL: the line ends once, not "
     "2 times\n"
     "T:3:1: note: with a top margin of lines (SetTopMarginLines) SALTAPAGINA never ends "
     "(run-time error 28)\n"},
    {"a repetition that nobody ends", "{CUERPO=1}\n{TEXTO}{REPEAT}\n{FINCUERPO}\n",
     "T:2:8: error: REPEAT is the line's last variable, so nobody ends the repetition (run-time "
     "error 6)\n"},
    {"a repetition that ends at once", "{CUERPO=1}\n{REPEAT}{TEXTO}{@fin}\n{FINCUERPO}\n",
     "T:2:16: warning: the line's last variable ends the repetition: behind REPEAT that must be "
     "one of the client's\n"},
    {"a repetition that asks for one value twice",
     "{CUERPO=1}\n{REPEAT}{R.TEXTO,CONDICION}{@-}{r.TEXTO,20}\n{FINCUERPO}\n",
     "T:2:32: warning: a repeated line asks for TEXTO at both its places, and each may take the "
     "next value: a long text may never end (run-time error 6); a condition on it has an element "
     "number, {TEXTO[1],n,CONDICION}\n"},
    {"a repetition with the condition on an element",
     "{CUERPO=1}\n{REPEAT}{TEXTO[1],20,CONDICION}{TEXTO,20}\n{FINCUERPO}\n", ""},
    {"a repetition of two values", "{CUERPO=1}\n{REPEAT}{A.TEXTO}{B.TEXTO}\n{FINCUERPO}\n", ""},
    {"a repetition of the client's", "{CUERPO=1}\n{REPEAT}{TEXTO}\n{FINCUERPO}\n", ""},
    {"a name that is nearly the library's", "{VIENE,10}\n{CUERPO=1}\n{NUMERA}\n{FINCUERPO}\n",
     "T:1:1: warning: the client is asked for VIENE, did you mean VIENEN?\n"
     "T:3:1: warning: the client is asked for NUMERA, did you mean NUMERAR?\n"},
};

class CheckSections : public ::testing::TestWithParam<CheckCase> {};

TEST_P(CheckSections, FindsExactlyThese) {
  EXPECT_EQ(findingsIn(bytesOf(GetParam().text), TemplateKind::kMasterDetail), GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(, CheckSections, ::testing::ValuesIn(kCases));

TEST(CheckBodies, MayHave51Lines) {
  const std::string lines = "{CUERPO=0}\n" + repeated(51, "x\n") + "{UNINSERTOCUERPO}\n" +
                            repeated(51, "y\n") + "{FINCUERPO}\n";
  EXPECT_EQ(findingsIn(lines), "");
}

TEST(CheckBodies, MayNotHave52Lines) {
  const std::string lines = "{CUERPO=0}\n" + repeated(52, "x\n") + "{UNINSERTOCUERPO}\n" +
                            repeated(53, "\n") + "{FINCUERPO}\n";
  EXPECT_EQ(findingsIn(lines),
            "T:53:1: error: the body has more than 51 lines (run-time error 9)\n"
            "T:106:1: error: the insert body has more than 51 lines (run-time error 9)\n");
}

TEST(CheckForms, MayHave254LinesOnAPage) {
  EXPECT_EQ(findingsIn(repeated(254, "x\n") + "{SALTAPAGINA}" + repeated(254, "x\n")), "");
}

TEST(CheckForms, MayNotHave255LinesOnAPage) {
  EXPECT_EQ(
      findingsIn(repeated(253, "x\n") + "{SNL,2}\n"),
      "T:254:1: error: more than 254 lines on one page (run-time error 6): SALTAPAGINA begins "
      "another\n");
}

struct KindCase {
  const char* text;
  TemplateKind kind;
};

TEST(CheckKind, IsGuessedFromMarkersAndConstants) {
  constexpr KindCase kKinds[] = {{"Recibo\n", TemplateKind::kForm},
                                 {"", TemplateKind::kForm},
                                 {"... nota\n{CUERPO}\n", TemplateKind::kMasterDetail},
                                 {"a\n{cuerpo=3}\n", TemplateKind::kMasterDetail},
                                 {"a\n{FINCUERPO}\n", TemplateKind::kMasterDetail},
                                 {"a\n{UNINSERTOCUERPO}\n", TemplateKind::kMasterDetail},
                                 {"...NMAXLINPAGINA=60\n", TemplateKind::kMasterDetail},
                                 {"... nota\n...mediacarta\n", TemplateKind::kMasterDetail},
                                 {"a\n...MEDIACARTA\n", TemplateKind::kForm}};
  for (const KindCase& each : kKinds) {
    EXPECT_EQ(guessedKind(templateLines(each.text)), each.kind) << each.text;
  }
}

TEST(CheckKind, OfAFormMarkersAreVariables) {
  EXPECT_EQ(findingsIn("{CUERPO=3}\n{X}\n{fincuerpo}\n{UNINSERTOCUERPO}\n", TemplateKind::kForm),
            "T:1:1: warning: '{CUERPO=3}' is a marker of master-detail reports: a form asks the "
            "client for it\n"
            "T:3:1: warning: '{fincuerpo}' is a marker of master-detail reports: a form asks the "
            "client for it\n"
            "T:4:1: warning: '{UNINSERTOCUERPO}' is a marker of master-detail reports: a form asks "
            "the client for it\n");
}

TEST(CheckKind, OfAFormNearlyMarkersAreVariablesToo) {
  EXPECT_EQ(findingsIn("{FIN CUERPO}\n{CUERPO= 3}\n", TemplateKind::kForm),
            "T:1:1: warning: '{FIN CUERPO}' is nearly {FINCUERPO}, a marker of master-detail "
            "reports: a form asks the client for it\n"
            "T:2:1: warning: '{CUERPO= 3}' is a marker of master-detail reports: a form asks the "
            "client for it\n");
}

TEST(CheckControls, ARecordThatTakesMoreThanAllLinesIsNotSaidToTakeAll) {
  EXPECT_THAT(findingsIn("a\n{CUERPO=2}\n{A}\n{B}\n{SALTAPAGINA}{C}\n{FINCUERPO}\n"),
              ::testing::Not(::testing::HasSubstr("takes all lines of")));
}

TEST(CheckControls, ManyValuesOfARepeatedLineTakeNoLongerThanOthers) {
  std::string line = "{REPEAT}";
  for (int i = 0; i < 30'000; ++i) line += "{F" + std::to_string(i) + "}";
  std::string findings;
  const double seconds = tarvo::test::processorSecondsOf(
      [&] { findings = findingsIn(line + "{F1}\n", TemplateKind::kMasterDetail); });
  EXPECT_THAT(findings, ::testing::HasSubstr("a repeated line asks for F1 at both its places"));
  EXPECT_LT(seconds, 8);
}

}  // namespace
}  // namespace tarvordp::test
