// Case files: tests whose input and outcome are several lines each, in a form that a person types.
//
//   === a line without variables is printed as it stands
//   --- first sheet
//   Total
//   --- jobs
//   ...
//
// "=== " starts a case and names what it shows, "--- " starts a section of it.  Lines before the
// first case, and empty lines at the end of a section, are for the eye alone; a section that is to
// end in an empty line ends in a line of one "~".  A section of an unknown name, the same one twice
// and a case without sections are errors of the file.
//
// With TARVO_UPDATE_GOLDENS=1 in the environment expected sections that differ are written anew,
// and the run still fails (see golden.h).
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo::test {

struct CaseSection {
  std::string name;
  std::string text;  // every line with a line end
};

struct Case {
  std::string name;
  int line = 0;  // of the file
  std::vector<CaseSection> sections;

  bool has(std::string_view section) const;
  // Empty when there is none.
  std::string textOf(std::string_view section) const;
  // The lines of a section, without line ends.
  std::vector<std::string> linesOf(std::string_view section) const;
};

class CaseFile {
 public:
  // `name` counts from the tests' folder.  Throws std::runtime_error with file and line.
  CaseFile(std::string_view name, const std::vector<std::string>& knownSections);

  const std::vector<Case>& cases() const { return cases_; }

  // The name of a case without blanks and signs, as GoogleTest wants it.
  std::string testName(std::size_t index) const;

  // Whether the section of the case is `actual`; a missing one counts as empty.
  ::testing::AssertionResult matches(std::size_t index, std::string_view section,
                                     const std::string& actual);

 private:
  void read(const std::vector<std::string>& knownSections);
  void write() const;

  std::filesystem::path path_;
  std::vector<std::string> heading_;
  std::vector<Case> cases_;
};

}  // namespace tarvo::test
