// What is wrong with a command line, in the program's own words: which argument it is, what is
// expected, and where there is help.
#pragma once

#include <string>
#include <string_view>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace tarvordp {

// `--copies: "0" is not a whole number from 1 to 255; see "tarvordp print --help"`
// REQUIRES: `failure` came from the program's reading of its arguments.
std::string argumentMistake(const CLI::App& program, const CLI::ParseError& failure);

// The same for a word that stands where a command should.
std::string unknownCommand(const CLI::App& program, std::string_view word);

}  // namespace tarvordp
