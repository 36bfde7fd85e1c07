// The pages on job files tell the truth: each example prints what is shown, every key stands in a
// table and is known to the program, and both languages say the same.
#include <gmock/gmock.h>

#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "database.h"
#include "equipment/temporary_folder.h"
#include "frame/text.h"
#include "job_guide.h"
#include "on_paper.h"
#include "printing.h"
#include "skeleton.h"
#include "working_folder.h"

namespace tarvo::test {
namespace {

using Json = nlohmann::ordered_json;

struct Language {
  const char* name;
  const char* file;
  BlockWords words;
};

const Language kEnglish{"English", "job-files.md", {"template", "printed", "message"}};
const Language kSpanish{
    "Spanish", "archivos-de-trabajo.es.md", {"plantilla", "impreso", "mensaje"}};

const JobGuide& guideIn(const Language& language) {
  static const auto read = [](const Language& which) {
    return jobGuideFrom(contentOfFile(std::string(TARVO_DOCS_DIR "/") + which.file), which.words);
  };
  static const JobGuide kGuides[] = {read(kEnglish), read(kSpanish)};
  return kGuides[&language == &kSpanish ? 1 : 0];
}

// --- Following the page.

std::string wordBehind(const std::string& command, const std::string& word) {
  std::istringstream words(command);
  for (std::string each; words >> each;) {
    if (each == word && words >> each) return each;
  }
  return "";
}

class Follower {
 public:
  explicit Follower(const TemporaryFolder& folder) : folder_(folder) {}

  void follow(const Step& step) {
    switch (step.kind) {
      case Step::Kind::file:
        return write(step);
      case Step::Kind::database:
        return makeDatabase((folder_.path() / step.name).string(), step.text);
      case Step::Kind::command:
        return run(step.text);
      case Step::Kind::printed:
        return expectPrinted(step.text);
      case Step::Kind::message:
        EXPECT_EQ(messages_, step.text);
        messages_.clear();
        return;
      case Step::Kind::trace:
        return expectTrace(step);
    }
  }

  // What the last command told and printed must have been shown.
  void finishCommand() {
    EXPECT_EQ(messages_, "") << "the page does not show this";
    EXPECT_FALSE(folder_.has(fromUtf8(fileOfJob(job_ + 1)))) << "the page does not show this job";
  }

 private:
  void write(const Step& step) const {
    const bool isTemplate = step.name.ends_with(".ID");
    folder_.write(fromUtf8(step.name), isTemplate ? templateBytes(step.text) : step.text);
  }

  void run(const std::string& command) {
    if (!command_.empty()) finishCommand();
    command_ = command;
    job_ = 0;
    messages_.clear();
    EXPECT_TRUE(command.starts_with("tarvordp print ")) << command;
    EXPECT_EQ(runCommand(command + " --yes", messages_), 0) << messages_;
    if (!wordBehind(command, "--trace").empty()) job_ = 1;  // its paper was shown before
  }

  std::string fileOfJob(int number) const {
    const std::string file = wordBehind(command_, "--printer").substr(std::string("file:").size());
    return number == 1 ? file : file + "." + std::to_string(number);
  }

  void expectPrinted(const std::string& shown) {
    const std::string job = folder_.contentOf(fromUtf8(wordBehind(command_, "print")));
    const bool isForm = Json::parse(job).at("report") == "form";
    EXPECT_EQ(onPaper(folder_.contentOf(fromUtf8(fileOfJob(++job_))),
                      isForm ? ReportEnd::kOfForm : ReportEnd::kOfPages),
              shown);
  }

  void expectTrace(const Step& step) const {
    const std::string trace = folder_.contentOf(fromUtf8(step.name));
    std::size_t at = 0;
    std::istringstream lines(step.text);
    for (std::string line; std::getline(lines, line);) {
      const std::size_t found = trace.find(line + "\n", at);
      ASSERT_NE(found, std::string::npos) << line << "\nis not there, or not here, in\n" << trace;
      at = found + line.size();
    }
  }

  const TemporaryFolder& folder_;
  std::string command_;
  std::string messages_;  // of the last command, until the page shows them
  int job_ = 0;           // the last one that the page showed
};

class JobFiles : public ::testing::TestWithParam<const Language*> {
 protected:
  const JobGuide& guide() const { return guideIn(*GetParam()); }
};

TEST_P(JobFiles, PrintWhatThePageShows) {
  EXPECT_THAT(guide().mistakes, ::testing::IsEmpty());
  const TemporaryFolder folder;
  const WorkingFolder here(folder.path());
  Follower follower(folder);
  std::map<Step::Kind, int> counts;
  for (const Step& step : guide().steps) {
    SCOPED_TRACE(std::string(GetParam()->file) + ":" + std::to_string(step.line));
    follower.follow(step);
    ++counts[step.kind];
  }
  follower.finishCommand();
  EXPECT_GE(counts[Step::Kind::printed], 7);
  EXPECT_GE(counts[Step::Kind::database], 1);
  EXPECT_GE(counts[Step::Kind::trace], 1);
}

TEST_P(JobFiles, LinkToHeadingsThatAreThere) {
  std::set<std::string> anchors;
  for (const Heading& each : guide().headings) anchors.insert(anchorOf(each.text));
  const std::vector<std::string> links = ownLinks(guide().text);
  EXPECT_GT(links.size(), 10u);
  for (const std::string& link : links) EXPECT_TRUE(anchors.contains(link)) << link;
}

// --- The tables of keys.

// The texts in `code` of the first cells of tables: "`user`, `textFile`" are two.
std::vector<std::string> firstCells(const std::string& markdown) {
  std::vector<std::string> words;
  std::istringstream lines(markdown);
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("| `")) continue;
    const std::string cell = line.substr(2, line.find(" |", 2) - 2);
    for (std::size_t begin = 0; (begin = cell.find('`', begin)) != std::string::npos;) {
      const std::size_t end = cell.find('`', begin + 1);
      words.push_back(cell.substr(begin + 1, end - begin - 1));
      begin = end + 1;
    }
  }
  return words;
}

struct KeyPlace {
  const char* report;  // a kind of report that has the key
  const char* key;
  const char* within;  // the pointer of the object that it belongs to, without its first "/"
};

const KeyPlace kKeys[] = {
    {"form", "report", ""},
    {"form", "title", ""},
    {"form", "directory", ""},
    {"form", "profile", ""},
    {"form", "record", ""},
    {"form", "recordQuery", ""},
    {"form", "answers", ""},
    {"form", "user", ""},
    {"form", "textFile", ""},
    {"master-detail", "template", ""},
    {"master-detail", "details", ""},
    {"master-detail", "subtotal", ""},
    {"master-detail", "copies", ""},
    {"master-detail", "topMarginLines", ""},
    {"master-detail", "topMarginPoints", ""},
    {"master-detail", "canPrint", ""},
    {"form", "firstSheet", ""},
    {"form", "secondSheet", ""},
    {"form", "draft", ""},
    {"form", "sheets", ""},
    {"form", "output", ""},
    {"form", "turnSheet", "answers"},
    {"form", "pause", "answers"},
    {"form", "usePosition", "record/X"},
    {"form", "position", "record/X"},
    {"form", "index", "record/X"},
    {"form", "fill", "record/X"},
    {"form", "maxWidth", "record/X"},
    {"form", "sqlite", "recordQuery"},
    {"form", "query", "recordQuery"},
    {"form", "parameters", "recordQuery"},
};

std::string pointerOf(const KeyPlace& place, const std::string& key) {
  return std::string(*place.within == '\0' ? "" : "/") + place.within + "/" + key;
}

// Where the key has a wrong value: a list, where a list is none that it may have.
Json jobWithWrong(const KeyPlace& place, const std::string& key) {
  Json job = {{"report", place.report}, {"title", "T"}, {"directory", "."}};
  if (std::string(place.report) == "master-detail") job["template"] = "T";
  if (std::string(place.within) == "recordQuery") {
    job["recordQuery"] = {{"sqlite", "shop.sqlite"}, {"query", "SELECT :a AS x"}};
  } else if (std::string(place.within) == "record/X") {
    job["record"]["X"] = {{"array", "abc"}};
  }
  job[Json::json_pointer(pointerOf(place, key))] = Json::array({Json::array()});
  return job;
}

std::string complaintOf(const KeyPlace& place, const std::string& key) {
  const TemporaryFolder folder;
  makeDatabase((folder.path() / "shop.sqlite").string(), "CREATE TABLE t(x)");
  folder.write(u"job.json", jobWithWrong(place, key).dump());
  const WorkingFolder here(folder.path());
  std::string messages;
  EXPECT_EQ(runCommand("tarvordp print job.json --printer file:out.prn", messages), 2) << messages;
  return messages;
}

// A wrong value is told at the key's place, as what it is; a key of another name as unknown.
TEST(KeysOfJobFiles, AreKnownToTheProgram) {
  for (const KeyPlace& place : kKeys) {
    const std::string complaint = complaintOf(place, place.key);
    EXPECT_THAT(complaint, ::testing::HasSubstr(pointerOf(place, place.key)));
    EXPECT_THAT(complaint, ::testing::Not(::testing::HasSubstr("unknown key"))) << place.key;
    const std::string other = std::string(place.key) + "X";
    EXPECT_THAT(complaintOf(place, other), ::testing::HasSubstr("unknown key \"" + other + "\""));
  }
}

TEST_P(JobFiles, HaveATableWithEveryKey) {
  const std::vector<std::string> inTables = firstCells(guide().text);
  for (const KeyPlace& place : kKeys) {
    EXPECT_THAT(inTables, ::testing::Contains(place.key)) << place.key << " stands in no table";
  }
}

INSTANTIATE_TEST_SUITE_P(Pages, JobFiles, ::testing::Values(&kEnglish, &kSpanish),
                         [](const auto& each) { return std::string(each.param->name); });

// --- The two of them.

TEST(TwoLanguagesOfJobFiles, HaveTheSameHeadings) {
  EXPECT_EQ(skeletonOf(guideIn(kEnglish).headings), skeletonOf(guideIn(kSpanish).headings));
}

TEST(TwoLanguagesOfJobFiles, HaveTheSameTables) {
  const auto withoutTexts = [](std::vector<std::string> words) {
    for (std::string& word : words) {
      if (word.starts_with('"') && word.find(' ') == std::string::npos) word = "\"~\"";
    }
    return words;
  };
  EXPECT_EQ(withoutTexts(firstCells(guideIn(kEnglish).text)),
            withoutTexts(firstCells(guideIn(kSpanish).text)));
}

TEST(TwoLanguagesOfJobFiles, HaveTheSameStepsAndAsManyPoints) {
  const auto kinds = [](const JobGuide& guide) {
    std::vector<Step::Kind> all;
    for (const Step& step : guide.steps) all.push_back(step.kind);
    return all;
  };
  const auto points = [](const JobGuide& guide) {
    int count = 0;
    for (std::size_t at = 0; (at = guide.text.find("\n- ", at)) != std::string::npos; ++at) ++count;
    return count;
  };
  EXPECT_EQ(kinds(guideIn(kEnglish)), kinds(guideIn(kSpanish)));
  EXPECT_EQ(points(guideIn(kEnglish)), points(guideIn(kSpanish)));
}

}  // namespace
}  // namespace tarvo::test
