#include "job_guide.h"

#include <algorithm>

namespace tarvo::test {
namespace {

constexpr const char* kTemplateEnding = ".ID";

class StepMaker {
 public:
  StepMaker(JobGuide& guide, const BlockWords& words) : guide_(guide), words_(words) {}

  void take(const Block& block) {
    if (block.word == "sh") {
      for (const std::string& line : block.lines) add(Step::Kind::command, block, "", line);
    } else if (block.word == words_.printedWord) {
      takeResult(Step::Kind::printed, block);
    } else if (block.word == words_.messageWord) {
      takeResult(Step::Kind::message, block);
    } else if (block.argument.empty()) {
      mistake(block, "a block \"" + block.word + "\" without a file's name");
    } else if (block.word == words_.templateWord) {
      add(Step::Kind::file, block, block.argument + kTemplateEnding, block.text());
    } else if (block.word == "json" || block.word == "csv") {
      add(Step::Kind::file, block, block.argument, block.text());
    } else if (block.word == "sql") {
      add(Step::Kind::database, block, block.argument, block.text());
    } else if (block.word == "trace") {
      takeResult(Step::Kind::trace, block);
    } else {
      mistake(block, "a block \"" + block.word + "\"");
    }
  }

 private:
  void takeResult(Step::Kind kind, const Block& block) {
    if (guide_.steps.empty() || guide_.steps.back().kind < Step::Kind::command) {
      return mistake(block, "a result that follows no command");
    }
    add(kind, block, block.argument, block.text());
  }

  void add(Step::Kind kind, const Block& block, const std::string& name, const std::string& text) {
    guide_.steps.push_back({kind, block.line, name, text});
  }

  void mistake(const Block& block, const std::string& what) {
    guide_.mistakes.push_back("line " + std::to_string(block.line) + ": " + what);
  }

  JobGuide& guide_;
  const BlockWords& words_;
};

}  // namespace

JobGuide jobGuideFrom(const std::string& markdown, const BlockWords& words) {
  JobGuide guide;
  guide.text = markdown;
  StepMaker maker(guide, words);
  const auto addHeading = [&guide](std::size_t, const std::string& text) {
    const std::size_t level = text.find_first_not_of('#');
    guide.headings.push_back({level, text.substr(std::min(level + 1, text.size()))});
  };
  if (!readMarkdown(markdown, {[&](const Block& block) { maker.take(block); }, addHeading})) {
    guide.mistakes.push_back("a block without an end");
  }
  return guide;
}

}  // namespace tarvo::test
