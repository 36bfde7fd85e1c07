// The page on job files, as the tests read it: what somebody does who follows it from the first
// line to the last, in one folder.
//
//   template NAME   a file NAME.ID, in the system's code page     (Spanish: plantilla)
//   json NAME       a job file, as it stands
//   csv NAME        a table of data, as it stands
//   sql NAME        statements that make the database NAME
//   sh              commands, one in each line
//   printed         what the last command printed; one block for each print job   (impreso)
//   message         what the last command wrote on its error stream               (mensaje)
//   trace NAME      lines that stand in that file in this order
//
// Any other block is a mistake: nothing in the page is left untried.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "blocks.h"
#include "guide.h"

namespace tarvo::test {

struct Step {
  enum class Kind { file, database, command, printed, message, trace };

  Kind kind = Kind::file;
  std::size_t line = 0;
  std::string name;  // of the file
  std::string text;  // of a template in UTF-8 and with its line ends, of a command without
};

struct JobGuide {
  std::vector<Step> steps;
  std::vector<Heading> headings;
  std::vector<std::string> mistakes;
  std::string text;
};

JobGuide jobGuideFrom(const std::string& markdown, const BlockWords& words);

}  // namespace tarvo::test
