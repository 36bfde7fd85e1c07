// The guides for clients and developers: every file and folder that they name exists, and every
// link leads somewhere.
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace tarvo::test {
namespace {

using ::testing::ElementsAre;

// A name between back-ticks that has a "/" and begins with a folder of the project.
bool looksLikePath(std::string_view name) {
  static constexpr std::array<std::string_view, 11> kFolders{
      "src",   "services", "tests", "tools", "samples",  "docs",
      "bench", "fuzz",     "cmake", ".ci",   "packaging"};
  const std::size_t slash = name.find('/');
  return slash != std::string_view::npos &&
         std::ranges::find(kFolders, name.substr(0, slash)) != kFolders.end() &&
         name.find_first_of(" ;(*…\\") == std::string_view::npos;
}

// "src/printer/clsUtilImp{.h,.cpp}" names two.
std::vector<std::string> spelledOut(const std::string& path) {
  const std::size_t open = path.find('{');
  const std::size_t close = path.find('}');
  if (open == std::string::npos || close == std::string::npos) return {path};
  std::vector<std::string> paths;
  for (std::size_t at = open; at < close;) {
    const std::size_t end = std::min(path.find(',', at + 1), close);
    paths.push_back(path.substr(0, open) + path.substr(at + 1, end - at - 1) +
                    path.substr(close + 1));
    at = end;
  }
  return paths;
}

// Blocks of code have three back-ticks; in them nothing is looked at.
std::vector<std::string> pathsIn(std::istream& guide) {
  std::vector<std::string> paths;
  bool isCode = false;
  for (std::string line; std::getline(guide, line);) {
    if (line.starts_with("```")) isCode = !isCode;
    for (std::size_t at = isCode ? std::string::npos : line.find('`'); at != std::string::npos;) {
      const std::size_t end = line.find('`', at + 1);
      if (end == std::string::npos) break;
      const std::string name = line.substr(at + 1, end - at - 1);
      if (looksLikePath(name)) {
        for (const std::string& path : spelledOut(name)) paths.push_back(path);
      }
      at = line.find('`', end + 1);
    }
  }
  return paths;
}

class Guide : public ::testing::TestWithParam<const char*> {};

TEST_P(Guide, NamesFilesThatExist) {
  std::ifstream guide(std::string(TARVO_ROOT "/docs/") + GetParam());
  ASSERT_TRUE(guide.is_open());
  const auto paths = pathsIn(guide);
  EXPECT_GE(paths.size(), 5u) << "it names hardly anything";
  for (const std::string& path : paths) {
    EXPECT_TRUE(std::filesystem::exists(TARVO_ROOT "/" + path)) << path;
  }
}

// --- Links: "[text](file.md)", "[text](#heading)", "[text](file.md#heading)".

std::string anchorOf(const std::string& heading) {
  std::string anchor;
  for (const char c : heading.substr(heading.find(' ') + 1)) {
    const auto character = static_cast<unsigned char>(c);
    if (std::isalnum(character) != 0 || c == '-' || c == '_' || character >= 0x80) {
      anchor += static_cast<char>(std::tolower(character));
    } else if (c == ' ') {
      anchor += '-';
    }
  }
  return anchor;
}

std::set<std::string> anchorsIn(const std::string& path) {
  std::ifstream file(path);
  std::set<std::string> anchors;
  bool isCode = false;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("```")) isCode = !isCode;
    if (!isCode && line.starts_with("#")) anchors.insert(anchorOf(line));
  }
  return anchors;
}

std::vector<std::string> linksIn(std::istream& guide) {
  std::vector<std::string> links;
  for (std::string line; std::getline(guide, line);) {
    for (std::size_t at = line.find("]("); at != std::string::npos; at = line.find("](", at + 1)) {
      links.push_back(line.substr(at + 2, line.find(')', at) - at - 2));
    }
  }
  return links;
}

TEST_P(Guide, HasNoDeadLinks) {
  const std::string folder = TARVO_ROOT "/docs/";
  std::ifstream guide(folder + GetParam());
  const auto links = linksIn(guide);
  EXPECT_GE(links.size(), 1u);
  for (const std::string& link : links) {
    const std::size_t mark = std::min(link.find('#'), link.size());
    const std::string file = folder + (mark == 0 ? GetParam() : link.substr(0, mark));
    EXPECT_TRUE(std::filesystem::exists(file)) << link;
    if (mark < link.size()) {
      EXPECT_TRUE(anchorsIn(file).contains(link.substr(mark + 1))) << link;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Docs, Guide, ::testing::Values("architecture.md", "clients-guide.md"),
                         [](const auto& test) {
                           const std::string name(test.param);
                           return name.substr(0, name.find_first_of("-."));
                         });

TEST(GuideReading, TakesPathsOfTheProject) {
  std::istringstream guide(
      "see `src/frame/text.h`, `a/b` and `src/x{.h,.cpp}`\n"
      "```\n`src/none`\n```\n"
      "`src/*.h` `sInit` `docs/` `unfinished\n");
  EXPECT_THAT(pathsIn(guide), ElementsAre("src/frame/text.h", "src/x.h", "src/x.cpp", "docs/"));
}

TEST(GuideReading, KnowsTheAnchorOfAHeading) {
  EXPECT_EQ(anchorOf("## Preview, drafts, PDF"), "preview-drafts-pdf");
  EXPECT_EQ(anchorOf("# The client's guide"), "the-clients-guide");
}

}  // namespace
}  // namespace tarvo::test
