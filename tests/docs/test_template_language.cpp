// The guides for template authors tell the truth: what they print is what is printed, both say the
// same, and no word of the language is missing.
#include <gmock/gmock.h>

#include <set>
#include <sstream>

#include "blocks.h"
#include "frame/text.h"
#include "guide.h"
#include "printing.h"
#include "skeleton.h"
#include "template/attribute_words.h"
#include "template/control_words.h"
#include "working_folder.h"

namespace tarvo::test {
namespace {

struct Language {
  const char* name;
  const char* file;
  BlockWords words;
  std::size_t fewestExamples;  // so that a guide whose blocks are not found does not pass
};

const Language kEnglish{
    "English", "template-language.en.md", {"template", "printed", "message"}, 35};
const Language kSpanish{
    "Spanish", "lenguaje-de-plantillas.es.md", {"plantilla", "impreso", "mensaje"}, 35};

void PrintTo(const Language* language, std::ostream* out) { *out << language->file; }

const Guide& guideIn(const Language& language) {
  static const Guide kGuides[] = {
      readGuide(std::string(TARVO_DOCS_DIR "/") + kEnglish.file, kEnglish.words),
      readGuide(std::string(TARVO_DOCS_DIR "/") + kSpanish.file, kSpanish.words)};
  return kGuides[&language == &kSpanish ? 1 : 0];
}

// --- Examples.

struct NamedExample {
  const Language* language;
  std::size_t number;

  const Example& example() const { return guideIn(*language).examples[number]; }
};

void PrintTo(const NamedExample& named, std::ostream* out) {
  *out << named.language->file << ":" << named.example().line << ", under \""
       << named.example().heading << "\"";
}

std::vector<NamedExample> allExamples() {
  std::vector<NamedExample> all;
  for (const Language* language : {&kEnglish, &kSpanish}) {
    const std::size_t count = guideIn(*language).examples.size();
    for (std::size_t number = 0; number < count; ++number) all.push_back({language, number});
  }
  return all;
}

class TemplateLanguage : public ::testing::TestWithParam<NamedExample> {};

TEST_P(TemplateLanguage, PrintsWhatTheGuideShows) {
  const Example& example = GetParam().example();
  const Printing printing = print(example);
  EXPECT_EQ(printing.messages, example.message);
  EXPECT_EQ(printing.status, 0);
  ASSERT_EQ(printing.jobs.size(), example.printed.size());
  for (std::size_t job = 0; job < printing.jobs.size(); ++job) {
    EXPECT_EQ(printing.jobs[job], example.printed[job]) << "job " << job + 1;
  }
}

INSTANTIATE_TEST_SUITE_P(Guides, TemplateLanguage, ::testing::ValuesIn(allExamples()),
                         [](const auto& each) {
                           return each.param.language->name + std::string("Example") +
                                  std::to_string(each.param.number + 1);
                         });

// --- Guides as wholes.

class TemplateGuides : public ::testing::TestWithParam<const Language*> {
 protected:
  const Guide& guide() const { return guideIn(*GetParam()); }
};

TEST_P(TemplateGuides, FollowEveryTemplateByWhatItPrints) {
  EXPECT_THAT(guide().mistakes, ::testing::IsEmpty());
  EXPECT_GE(guide().examples.size(), GetParam()->fewestExamples);
}

// The texts in `code` of a table's first two columns.
std::set<std::string> wordsInTables(const std::string& section) {
  std::set<std::string> words;
  std::istringstream lines(section);
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("| ")) continue;
    std::istringstream cells(line.substr(1));
    std::string cell;
    for (int column = 0; column < 2 && std::getline(cells, cell, '|'); ++column) {
      for (std::size_t begin = 0; (begin = cell.find('`', begin)) != std::string::npos;) {
        const std::size_t end = cell.find('`', begin + 1);
        words.insert(cell.substr(begin + 1, end - begin - 1));
        begin = end + 1;
      }
    }
  }
  return words;
}

std::set<std::string> wordsOfTheLibrary() {
  std::set<std::string> words;
  for (const AttributeWord& each : kAttributeWords) {
    words.insert(toUtf8(each.word));
    words.insert(toUtf8(each.shortWord));
  }
  for (const ControlWord& each : kControlWords) {
    words.insert(toUtf8(each.word));
    words.insert(toUtf8(each.otherWord));
  }
  words.insert(toUtf8(kSeparatorPatternStart));
  words.erase("");
  return words;
}

// What stands in the table of everything that is no attribute and no control word.
const std::set<std::string> kOtherWords{"...",
                                        "...PAUSA",
                                        "...NMAXLINPAGINA=66",
                                        "...MEDIACARTA",
                                        "{CUERPO=n}",
                                        "{UNINSERTOCUERPO}",
                                        "{FINCUERPO}",
                                        "{NUMERAR}",
                                        "{VAN}",
                                        "{VIENEN}",
                                        "{FINRENGLONESDOCUMENTOS}"};

// But for those that show how a value and a fixed text are written.
std::set<std::string> withoutNamesOfValues(const std::set<std::string>& words) {
  std::set<std::string> others;
  for (const std::string& word : words) {
    if (word.find_first_of("[@") == std::string::npos) others.insert(word);
  }
  return others;
}

TEST_P(TemplateGuides, EndInATableOfAllWordsAndNoOthers) {
  std::set<std::string> expected = wordsOfTheLibrary();
  expected.insert(kOtherWords.begin(), kOtherWords.end());
  EXPECT_EQ(withoutNamesOfValues(wordsInTables(guide().lastSection())), expected);
}

TEST_P(TemplateGuides, ExplainEveryWordBeforeTheTable) {
  const std::string body =
      guide().text.substr(0, guide().text.size() - guide().lastSection().size());
  for (const std::string& word : wordsOfTheLibrary()) {
    EXPECT_THAT(body, ::testing::HasSubstr("`" + word)) << word << " is not explained";
  }
}

// The commands of the first example, in a folder that holds its two files.
TEST_P(TemplateGuides, ShowCommandsThatWorkAsTheyAreWritten) {
  const TemporaryFolder folder;
  const std::vector<std::string>& commands = guide().commands;
  ASSERT_EQ(commands.size(), 3u);
  std::istringstream words(commands[1]);
  std::string program;
  std::string job;
  words >> program >> program >> job;
  writeFiles(guide().examples.at(0), job, folder);

  const WorkingFolder here(folder.path());
  std::string output;
  for (const std::string& command : commands) {
    EXPECT_TRUE(command.starts_with("tarvordp ")) << command;
    EXPECT_EQ(runCommand(command, output), 0) << command << "\n" << output;
  }
  // The last one shows the page: its texts, whatever stands around them.
  EXPECT_THAT(output, ::testing::HasSubstr("José Peña"));
  EXPECT_THAT(output, ::testing::HasSubstr("1.395,50"));
}

TEST_P(TemplateGuides, LinkToHeadingsThatAreThere) {
  std::set<std::string> anchors;
  for (const Heading& each : guide().headings) anchors.insert(anchorOf(each.text));
  const std::vector<std::string> links = ownLinks(guide().text);
  EXPECT_THAT(links, ::testing::Not(::testing::IsEmpty()));
  for (const std::string& link : links) EXPECT_TRUE(anchors.contains(link)) << link;
}

INSTANTIATE_TEST_SUITE_P(Guides, TemplateGuides, ::testing::Values(&kEnglish, &kSpanish),
                         [](const auto& each) { return std::string(each.param->name); });

// --- The two of them.

TEST(TwoLanguages, HaveTheSameHeadings) {
  EXPECT_EQ(skeletonOf(guideIn(kEnglish).headings), skeletonOf(guideIn(kSpanish).headings));
}

TEST(TwoLanguages, HaveTheSameExamplesButForTheTexts) {
  const std::vector<Example>& english = guideIn(kEnglish).examples;
  const std::vector<Example>& spanish = guideIn(kSpanish).examples;
  ASSERT_EQ(english.size(), spanish.size());
  for (std::size_t i = 0; i < english.size(); ++i) {
    EXPECT_EQ(skeletonOf(english[i]), skeletonOf(spanish[i]))
        << "lines " << english[i].line << " and " << spanish[i].line;
  }
}

TEST(TwoLanguages, HaveAsManyRowsInTablesAndAsManyPoints) {
  const auto count = [](const Guide& guide, const std::string& beginning) {
    int lines = 0;
    for (std::size_t at = 0; (at = guide.text.find("\n" + beginning, at)) != std::string::npos;
         ++at) {
      ++lines;
    }
    return lines;
  };
  for (const char* beginning : {"| ", "- "}) {
    EXPECT_EQ(count(guideIn(kEnglish), beginning), count(guideIn(kSpanish), beginning))
        << "lines that begin with " << beginning;
  }
}

}  // namespace
}  // namespace tarvo::test
