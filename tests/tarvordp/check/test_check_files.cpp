// Template files as they come: line ends, bytes outside ASCII, the project's own templates.
#include <filesystem>
#include <fstream>

#include "check_test.h"
#include "equipment/case_file.h"
#include "equipment/golden.h"

namespace tarvordp::test {
namespace {

std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(CheckFiles, OfEveryLineEnd) {
  const std::string found =
      "T:1:3: error: unknown attribute 'QX'\n"
      "T:3:2: error: a '{' without its '}' ends the report (run-time error 5)\n";
  EXPECT_EQ(findingsIn("{,QX}\n\n {B\n", TemplateKind::kForm),
            "T:1:1: warning: a variable without a field name\n" + found);
  EXPECT_EQ(findingsIn("{F,QX}\r\n\r\n {B\r\n"),
            "T:1:4: error: unknown attribute 'QX'\n"
            "T:3:2: error: a '{' without its '}' ends the report (run-time error 5)\n");
  EXPECT_EQ(findingsIn("{F,QX}\n\n {B"),
            "T:1:4: error: unknown attribute 'QX'\n"
            "T:3:2: error: a '{' without its '}' ends the report (run-time error 5)\n");
}

TEST(CheckFiles, LinesAreThoseThatReportsRead) {
  using Lines = std::vector<tarvo::Text>;
  EXPECT_EQ(templateLines(""), Lines());
  EXPECT_EQ(templateLines("\n"), Lines({u""}));
  EXPECT_EQ(templateLines("a\r\nb\n\nc"), Lines({u"a", u"b", u"", u"c"}));
  EXPECT_EQ(templateLines("a\rb\r"), Lines({u"a\rb\r"}));
  EXPECT_EQ(templateLines("a\r\n\x1A"), Lines({u"a", u"\x1A"}));
  EXPECT_EQ(templateLines("\xF1\x80\xC1"), Lines({u"ñ€Á"}));
  EXPECT_EQ(templateLines(std::string_view("a\0b\n", 4)), Lines({tarvo::Text(u"a\0b", 3)}));
}

TEST(CheckFiles, OfUtf8AreToldOnceAtTheirFirstLetter) {
  EXPECT_EQ(
      findingsIn("Factura {F}\r\n  Nº {F,QX}\r\nPeña, Á, 20 €\r\n"),
      "T:2:4: warning: this file looks like UTF-8; templates are read as Windows-1252, so 'º' "
      "is read as 'Âº': save it as Windows-1252 (\"ANSI\")\n"
      "T:2:10: error: unknown attribute 'QX'\n");
  EXPECT_EQ(
      findingsIn("20 €\n"),
      "T:1:4: warning: this file looks like UTF-8; templates are read as Windows-1252, so '€' "
      "is read as 'â‚¬': save it as Windows-1252 (\"ANSI\")\n");
  EXPECT_EQ(findingsIn(bytesOf("Peña, año, Nº\n")), "");
}

TEST(CheckFiles, OfUtf8KeepWhatIsNoLetter) {
  EXPECT_EQ(
      findingsIn("Nº\tx\n"),
      "T:1:2: warning: this file looks like UTF-8; templates are read as Windows-1252, so 'º' "
      "is read as 'Âº': save it as Windows-1252 (\"ANSI\")\n"
      "T:1:4: warning: a tab character goes to the printer as it is: columns are made with "
      "blanks\n");
}

// One byte that is no UTF-8, and the file is none: its letters are told as those that are read.
TEST(CheckFiles, OfBothEncodingsAreNoUtf8) {
  const std::string found = findingsIn(
      "Nº\nPe\xF1"
      "a\n");
  EXPECT_EQ(found,
            "T:1:2: warning: 'Â' leaves as byte C2 and prints as '┬' in PC437, the usual "
            "character set\n");
  for (const char* none : {"\xC1\x81\n", "\xF5\x80\x80\x80\n", "\xE2\x82", "\xC3", "\x80\n"}) {
    EXPECT_THAT(findingsIn(none), ::testing::Not(::testing::HasSubstr("UTF-8"))) << none;
  }
}

TEST(CheckFiles, WithTheMarkOfAnEncodingAreTold) {
  EXPECT_THAT(findingsIn("\xEF\xBB\xBF...NMAXLINPAGINA=20\n{CUERPO=3}\n{A}\n{FINCUERPO}\nNº\n"),
              ::testing::StartsWith(
                  "T:1:1: warning: this file begins with the mark of UTF-8; templates are read as "
                  "Windows-1252, so the first line begins with 'ï»¿': save it as Windows-1252 "
                  "(\"ANSI\")\n"));
  const std::string utf16 =
      "T:1:1: error: this file is UTF-16; templates are read as Windows-1252: "
      "save it as Windows-1252 (\"ANSI\")\n";
  EXPECT_EQ(findingsIn(std::string("\xFF\xFE"
                                   "a\0\n\0",
                                   6)),
            utf16);
  EXPECT_EQ(findingsIn(std::string("\xFE\xFF\0a\0\n", 6)), utf16);
}

TEST(CheckFiles, OfBytesThatNoTextHasAreToldOnce) {
  EXPECT_EQ(findingsIn(std::string("a {F,QX}\n\x01 \0 \xC1 \0\n", 18)),
            "T:1:6: error: unknown attribute 'QX'\n"
            "T:2:3: warning: a byte 00, which no text has: is this file a template?\n");
}

TEST(CheckFiles, WhoseLinesEndByCarriageReturnsAreOneLine) {
  EXPECT_EQ(
      findingsIn("a\rb"),
      "T:1:2: error: lines end by carriage returns alone: the whole file is one line; end them "
      "by CR LF\n"
      "T:1:2: warning: a carriage return within the line: what follows is printed over it\n");
  EXPECT_THAT(findingsIn("a\r"), ::testing::Not(::testing::HasSubstr("one line")));
  EXPECT_THAT(findingsIn("a\rb\n"), ::testing::Not(::testing::HasSubstr("one line")));
}

TEST(CheckFiles, OfLinesLongerThanPositionsAreCounted) {
  const std::string error =
      "a variable behind the line's 32,767th character ends the report "
      "(run-time error 6)\n";
  EXPECT_THAT(findingsIn(std::string(32764, 'x') + "{A}\n"),
              ::testing::Not(::testing::HasSubstr(error)));
  EXPECT_THAT(findingsIn(std::string(32765, 'x') + "{A}\n"),
              ::testing::HasSubstr("T:1:32766: error: " + error));
  EXPECT_THAT(findingsIn("{" + std::string(40000, 'A') + "}\n"),
              ::testing::StartsWith("T:1:1: error: " + error));
  EXPECT_EQ(findingsIn("... {" + std::string(40000, 'A') + "}\n"), "");
}

TEST(CheckFiles, EveryByteIsACharacterOfItsColumn) {
  std::string line;
  for (int byte = 0x80; byte <= 0xFF; ++byte) line += static_cast<char>(byte);
  const std::string found = findingsIn("... " + line + "\n" + "ñ{F,QX}\n");
  EXPECT_THAT(found, ::testing::HasSubstr("T:2:6: error: unknown attribute 'QX'\n"));  // UTF-8: two
  EXPECT_EQ(findingsIn("\xF1{F,QX}\n"), "T:1:5: error: unknown attribute 'QX'\n");
}

// The samples are printed by tests; what is found in them is true: '¿' and 'Í' print as other
// letters.
TEST(CheckFiles, OfTheSamples) {
  std::string found;
  for (const char* name : {"BORRADOR", "LIBRO", "RECIBO1", "RECIBO2"}) {
    found += std::string(name) + "\n" +
             findingsIn(contentOf(std::string(TARVO_TESTS_DIR "/reports/samples/") + name + ".ID"));
  }
  EXPECT_EQ(
      found,
      "BORRADOR\n"
      "T:2:38: warning: '¿' leaves as byte BF and prints as '┐' in PC437, the usual character "
      "set\n"
      "LIBRO\n"
      "T:2:16: warning: 'Í' leaves as byte CD and prints as '═' in PC437, the usual character "
      "set\n"
      "RECIBO1\n"
      "RECIBO2\n");
}

// The guides' examples, each with all that is found in it: those that show a mistake.
TEST(CheckFiles, OfTheGuides) {
  std::string found;
  for (const char* guide : {"template-language.en", "lenguaje-de-plantillas.es"}) {
    std::istringstream lines(contentOf(std::string(TARVO_TESTS_DIR "/../docs/") + guide + ".md"));
    std::string example;
    bool isExample = false;
    std::size_t examples = 0;
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("```")) {
        const std::string findings = isExample ? findingsIn(bytesOf(example)) : "";
        if (!findings.empty()) found += example + findings + "\n";
        isExample = line.starts_with("```template") || line.starts_with("```plantilla");
        if (isExample) ++examples;
        example.clear();
      } else if (isExample) {
        example += line + "\n";
      }
    }
    EXPECT_GT(examples, 30U) << guide;
  }
  EXPECT_TRUE(tarvo::test::matchesGolden("tarvordp/check/golden/guides.txt", found));
}

// Each with all that is found in it; looked through once for what is no mistake.
std::string findingsOfCases(const char* file, const std::vector<std::string>& sections,
                            const std::vector<std::string>& templates, TemplateKind kind) {
  const tarvo::test::CaseFile cases(file, sections);
  std::string found;
  for (const tarvo::test::Case& each : cases.cases()) {
    for (const std::string& section : templates) {
      if (!each.has(section)) continue;
      const std::string findings = findingsIn(bytesOf(each.textOf(section)), kind);
      if (!findings.empty()) found += each.name + "\n" + findings;
    }
  }
  return found;
}

TEST(CheckFiles, OfTheFormCases) {
  EXPECT_TRUE(tarvo::test::matchesGolden(
      "tarvordp/check/golden/forms.txt",
      findingsOfCases(
          "reports/cases/forms.case",
          {"settings", "first sheet", "second sheet", "draft", "values", "jobs", "calls", "pages"},
          {"first sheet", "second sheet", "draft"}, TemplateKind::kForm)));
}

TEST(CheckFiles, OfTheMasterDetailCases) {
  EXPECT_TRUE(tarvo::test::matchesGolden(
      "tarvordp/check/golden/master_detail.txt",
      findingsOfCases(
          "reports/cases/master_detail.case",
          {"settings", "template", "values", "records", "repeats", "jobs", "calls", "pages"},
          {"template"}, TemplateKind::kMasterDetail)));
}

TEST(CheckFiles, LettersOfFourBytesAreUtf8Too) {
  EXPECT_THAT(findingsIn("\xF0\x9F\x98\x80 {A}\n"),
              ::testing::HasSubstr("T:1:1: warning: this file looks like UTF-8"));
}

}  // namespace
}  // namespace tarvordp::test
