#include "guide.h"

#include <algorithm>

#include "blocks.h"
#include "frame/text.h"
#include "frame/upper_case.h"

namespace tarvo::test {
namespace {

constexpr const char* kUnnamed = "EJEMPLO";

// Takes blocks and headings in their order, and makes examples of them.
class ExampleMaker {
 public:
  ExampleMaker(Guide& guide, const BlockWords& words) : guide_(guide), words_(words) {}

  void heading(std::size_t line, const std::string& text) {
    const std::size_t level = text.find_first_not_of('#');
    finish(line);
    guide_.headings.push_back({level, text.substr(std::min(level + 1, text.size()))});
  }

  void block(const Block& block) {
    if (block.word == words_.templateWord) {
      takeTemplate(block);
    } else if (block.word == "json") {
      takeJson(block);
    } else if (block.word == words_.printedWord) {
      takePrinted(block);
    } else if (block.word == words_.messageWord) {
      takeMessage(block);
    } else if (block.word == "sh") {
      guide_.commands.insert(guide_.commands.end(), block.lines.begin(), block.lines.end());
    }
  }

  // The example ends here, or the document.
  void finish(std::size_t line) {
    if (!isOpen_) return;
    if (example_.printed.empty()) mistake(line, "the example above does not say what it prints");
    guide_.examples.push_back(example_);
    isOpen_ = false;
  }

 private:
  void takeTemplate(const Block& block) {
    if (!example_.printed.empty()) finish(block.line);
    if (isOpen_ && hasJson_) mistake(block.line, "a template after the values");
    if (!isOpen_) begin(block.line);
    example_.templates.push_back({block.argument.empty() ? kUnnamed : block.argument, block.lines});
  }

  void takeJson(const Block& block) {
    if (!isOpen_ || hasJson_ || !example_.printed.empty()) {
      return mistake(block.line, "values that follow no template");
    }
    example_.json = block.text();
    hasJson_ = true;
  }

  void takePrinted(const Block& block) {
    if (!isOpen_ || !example_.message.empty()) {
      return mistake(block.line, "a printed page that follows no template");
    }
    example_.printed.push_back(block.text());
  }

  void takeMessage(const Block& block) {
    if (!isOpen_ || example_.printed.empty() || !example_.message.empty()) {
      return mistake(block.line, "a message that follows no printed page");
    }
    example_.message = block.text();
  }

  void begin(std::size_t line) {
    example_ = {};
    example_.line = line;
    if (!guide_.headings.empty()) example_.heading = guide_.headings.back().text;
    isOpen_ = true;
    hasJson_ = false;
  }

  void mistake(std::size_t line, const std::string& what) {
    guide_.mistakes.push_back("line " + std::to_string(line) + ": " + what);
  }

  Guide& guide_;
  const BlockWords& words_;
  Example example_;
  bool isOpen_ = false;
  bool hasJson_ = false;
};

}  // namespace

bool Template::isMasterDetail() const {
  return std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
    return upperCase(fromUtf8(line)).find(u"{CUERPO=") != Text::npos;
  });
}

std::string Guide::lastSection() const {
  const std::size_t heading = text.rfind("\n## ");
  return heading == std::string::npos ? "" : text.substr(heading);
}

Guide guideFrom(const std::string& markdown, const BlockWords& words) {
  Guide guide;
  guide.text = markdown;
  ExampleMaker maker(guide, words);
  const bool isWhole = readMarkdown(
      markdown, {[&](const Block& block) { maker.block(block); },
                 [&](std::size_t line, const std::string& text) { maker.heading(line, text); }});
  maker.finish(static_cast<std::size_t>(std::ranges::count(markdown, '\n')));
  if (!isWhole) guide.mistakes.push_back("a block without an end");
  return guide;
}

Guide readGuide(const std::string& path, const BlockWords& words) {
  return guideFrom(contentOfFile(path), words);
}

}  // namespace tarvo::test
