#include "equipment/case_file.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "equipment/golden.h"

namespace tarvo::test {
namespace {

constexpr std::string_view kCaseMark = "=== ";
constexpr std::string_view kSectionMark = "--- ";
constexpr std::string_view kEndMark = "~";

const CaseSection* find(const Case& each, std::string_view section) {
  const auto found = std::find_if(each.sections.begin(), each.sections.end(),
                                  [section](const auto& one) { return one.name == section; });
  return found == each.sections.end() ? nullptr : &*found;
}

// The empty lines at the end are for the eye.
std::string withoutEyeLines(const std::vector<std::string>& lines) {
  std::size_t count = lines.size();
  while (count > 0 && lines[count - 1].empty()) --count;
  if (count > 0 && lines[count - 1] == kEndMark) --count;
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text.append(lines[i]).append("\n");
  return text;
}

}  // namespace

bool Case::has(std::string_view section) const { return find(*this, section) != nullptr; }

std::string Case::textOf(std::string_view section) const {
  const CaseSection* found = find(*this, section);
  return found == nullptr ? std::string() : found->text;
}

std::vector<std::string> Case::linesOf(std::string_view section) const {
  std::vector<std::string> lines;
  std::string_view rest;
  const std::string text = textOf(section);
  for (rest = text; !rest.empty(); rest.remove_prefix(rest.find('\n') + 1)) {
    lines.emplace_back(rest.substr(0, rest.find('\n')));
  }
  return lines;
}

CaseFile::CaseFile(std::string_view name, const std::vector<std::string>& knownSections)
    : path_(std::filesystem::path(TARVO_TESTS_DIR) / name) {
  read(knownSections);
}

void CaseFile::read(const std::vector<std::string>& knownSections) {
  std::ifstream file(path_);
  int number = 0;
  const auto fail = [&](const std::string& what) {
    throw std::runtime_error(path_.string() + ":" + std::to_string(number) + ": " + what);
  };
  if (!file) fail("cannot be read");
  std::vector<std::string>* into = &heading_;
  std::vector<std::string> sectionLines;
  const auto endSection = [&] {
    if (into == &sectionLines) cases_.back().sections.back().text = withoutEyeLines(sectionLines);
    sectionLines.clear();
  };
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.starts_with(kCaseMark)) {
      endSection();
      if (!cases_.empty() && cases_.back().sections.empty()) fail("the case before has no section");
      cases_.push_back({line.substr(kCaseMark.size()), number, {}});
      into = nullptr;
    } else if (line.starts_with(kSectionMark) && !cases_.empty()) {
      endSection();
      const std::string section = line.substr(kSectionMark.size());
      if (std::find(knownSections.begin(), knownSections.end(), section) == knownSections.end()) {
        fail("unknown section: " + section);
      }
      if (cases_.back().has(section)) fail("the section stands there twice: " + section);
      cases_.back().sections.push_back({section, {}});
      into = &sectionLines;
    } else if (into != nullptr) {
      into->push_back(line);
    } else if (!line.empty()) {
      fail("this line is in no section");
    }
  }
  endSection();
  if (cases_.empty() || cases_.back().sections.empty()) fail("the last case has no section");
}

std::string CaseFile::testName(std::size_t index) const {
  std::string name;
  bool beginsWord = true;
  for (const char c : cases_.at(index).name) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) != 0) name += static_cast<char>(beginsWord ? std::toupper(byte) : byte);
    beginsWord = std::isalnum(byte) == 0;
  }
  return name;
}

::testing::AssertionResult CaseFile::matches(std::size_t index, std::string_view section,
                                             const std::string& actual) {
  Case& each = cases_.at(index);
  const std::string where =
      path_.filename().string() + ":" + std::to_string(each.line) + " " + std::string(section);
  const ::testing::AssertionResult result = sameLines(where, each.textOf(section), actual);
  const char* const asked = std::getenv("TARVO_UPDATE_GOLDENS");
  if (result || asked == nullptr || std::string_view(asked) != "1") return result;
  const auto found = std::find_if(each.sections.begin(), each.sections.end(),
                                  [section](const auto& one) { return one.name == section; });
  if (found == each.sections.end()) {
    each.sections.push_back({std::string(section), actual});
  } else {
    found->text = actual;
  }
  write();
  return ::testing::AssertionFailure() << where << ": written; look at it, then run again";
}

void CaseFile::write() const {
  std::ofstream file(path_, std::ios::binary);
  for (const std::string& line : heading_) file << line << '\n';
  for (const Case& each : cases_) {
    file << kCaseMark << each.name << '\n';
    for (const CaseSection& section : each.sections) {
      file << kSectionMark << section.name << '\n' << section.text;
      if (section.text == "\n" || section.text.ends_with("\n\n")) file << kEndMark << '\n';
    }
    file << '\n';
  }
}

}  // namespace tarvo::test
