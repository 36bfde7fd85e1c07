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

}  // namespace
}  // namespace tarvordp::test
