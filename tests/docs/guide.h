// A guide for template authors, as the tests read it: its headings and its examples.
//
// An example is a run of fenced blocks, with any prose between them and no heading:
//
//   template [NAME]   one template, or several with their names   (Spanish: plantilla)
//   json              may be left out: the keys of the job file that give the values
//   printed           what the first job prints, then the second  (Spanish: impreso)
//   message           may be left out: what the operator is told  (Spanish: mensaje)
//
// A block "sh" has commands, one in each line.  Any other block is neither.
#pragma once

#include <string>
#include <vector>

namespace tarvo::test {

struct Template {
  std::string name;
  std::vector<std::string> lines;

  bool isMasterDetail() const;
};

struct Example {
  std::size_t line = 0;  // where its first block begins
  std::string heading;   // under which it stands
  std::vector<Template> templates;
  std::string json = "{}";
  std::vector<std::string> printed;  // one text for each job, every line with its line end
  std::string message;
};

struct Heading {
  std::size_t level = 0;
  std::string text;
};

struct Guide {
  std::vector<Heading> headings;
  std::vector<Example> examples;
  std::vector<std::string> commands;
  std::vector<std::string> mistakes;  // "line 12: a template that is not followed by ..."
  std::string text;                   // all of it

  // What stands under the last heading of the second level.
  std::string lastSection() const;
};

// The words by which the blocks are known.
struct BlockWords {
  std::string templateWord;
  std::string printedWord;
  std::string messageWord;
};

Guide guideFrom(const std::string& markdown, const BlockWords& words);

// Raises: std::runtime_error when it cannot be read.
Guide readGuide(const std::string& path, const BlockWords& words);

}  // namespace tarvo::test
