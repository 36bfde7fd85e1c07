// Markdown as the tests read it: blocks between three back-ticks, and headings.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace tarvo::test {

struct Block {
  std::size_t line = 0;  // of its beginning
  std::string word;      // behind the back-ticks
  std::string argument;  // behind that word
  std::vector<std::string> lines;

  std::string text() const;  // every line with its line end
};

struct MarkdownReader {
  std::function<void(const Block&)> block;
  std::function<void(std::size_t line, const std::string& heading)> heading;
};

// Gives the reader blocks and headings in their order.  False when a block has no end.
bool readMarkdown(const std::string& markdown, const MarkdownReader& reader);

// Raises: std::runtime_error when it cannot be read.
std::string contentOfFile(const std::string& path);

// As a link names a heading: small letters, no marks, "-" for blanks.
std::string anchorOf(const std::string& heading);

// The anchors that the document links to within itself, "](#anchor)".
std::vector<std::string> ownLinks(const std::string& markdown);

}  // namespace tarvo::test
