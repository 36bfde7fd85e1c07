// Prints an example of a guide as its reader would: with the workbench, from a job file.
#pragma once

#include <string>
#include <vector>

#include "equipment/temporary_folder.h"
#include "guide.h"

namespace tarvo::test {

struct Printing {
  int status = 0;                 // the workbench's exit status
  std::vector<std::string> jobs;  // each as onPaper() shows it
  std::string messages;           // what the workbench wrote on its error stream
};

// The job file is the example's JSON.  What it leaves out is added: the kind of report, a title,
// the templates' folder and names, the profile of the examples. Raises: what reading the JSON
// raises.
Printing print(const Example& example);

// The lines of the text, in UTF-8, as the file of a template has them.
std::string templateBytes(const std::string& text);

// Writes the example's templates and its JSON, as it stands, into the folder.
void writeFiles(const Example& example, const std::string& jobName, const TemporaryFolder& folder);

// Runs a command of the workbench, its words separated by blanks; what it writes is added to
// `output`.  The exit status.
int runCommand(const std::string& command, std::string& output);

}  // namespace tarvo::test
