#include "blocks.h"

#include <cctype>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace tarvo::test {
namespace {

constexpr const char* kFence = "```";

Block blockOf(std::size_t line, const std::string& fence) {
  std::istringstream information(fence.substr(std::string(kFence).size()));
  Block block;
  block.line = line;
  information >> block.word >> block.argument;
  return block;
}

}  // namespace

std::string Block::text() const {
  std::string all;
  for (const std::string& each : lines) all += each + "\n";
  return all;
}

bool readMarkdown(const std::string& markdown, const MarkdownReader& reader) {
  std::istringstream lines(markdown);
  Block block;
  bool isInBlock = false;
  std::size_t number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    if (line.starts_with(kFence)) {
      if (isInBlock) {
        reader.block(block);
      } else {
        block = blockOf(number, line);
      }
      isInBlock = !isInBlock;
    } else if (isInBlock) {
      block.lines.push_back(line);
    } else if (line.starts_with('#')) {
      reader.heading(number, line);
    }
  }
  return !isInBlock;
}

std::string contentOfFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(path + " cannot be read");
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string anchorOf(const std::string& heading) {
  std::string anchor;
  for (const char c : heading) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == ' ') {
      anchor += '-';
    } else if (std::isalnum(byte) != 0 || byte >= 0x80 || c == '-') {
      anchor += static_cast<char>(byte < 0x80 ? std::tolower(byte) : byte);
    }
  }
  return anchor;
}

std::vector<std::string> ownLinks(const std::string& markdown) {
  const std::string mark = "](#";
  std::vector<std::string> anchors;
  for (std::size_t at = 0; (at = markdown.find(mark, at)) != std::string::npos;) {
    at += mark.size();
    anchors.push_back(markdown.substr(at, markdown.find(')', at) - at));
  }
  return anchors;
}

}  // namespace tarvo::test
