// How the help of the program and of its commands looks: one style for all of them, for a terminal
// of 80 columns.
//
// A page is what the command does, its usage, its arguments, its options, and what its footer says:
// remarks, then the exit status, then examples, in whatever order the command has them.  Paragraphs
// are filled; lines that begin with a blank stay as they are.
#pragma once

#include <memory>
#include <string>

namespace CLI {
class FormatterBase;
class Option;
}  // namespace CLI

namespace tarvordp {

std::shared_ptr<CLI::FormatterBase> makeHelpFormatter();

// What stands for an option's value in help: "NAME", "form|master-detail"; empty for a flag.
// A positional argument's own name.
std::string valueName(const CLI::Option& option);

// What an option takes where that is limited: "a whole number from 1 to 255", "form or
// master-detail"; empty where it is not.
std::string valuesAllowed(const CLI::Option& option);

}  // namespace tarvordp
