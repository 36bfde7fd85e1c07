// One command of the program, run in the test's own process.
#pragma once

#include <CLI/CLI.hpp>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include "tarvordp/command_line.h"
#include "tarvordp/mistake.h"

namespace tarvordp {

struct CommandRun {
  int status = 0;
  std::string out;
  std::string err;
};

using AddCommand = void (*)(CLI::App&, Console&, int&);

// `arguments` begins with the command's name.
inline CommandRun runCommand(AddCommand add, std::vector<std::string> arguments,
                             bool outIsTerminal = false) {
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err, outIsTerminal, false, false};
  CLI::App program("", "tarvordp");
  CommandRun run;
  add(program, console, run.status);
  try {
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    program.parse(reversed);
  } catch (const CLI::ParseError& failure) {
    run.status = program.exit(failure, out, err) == 0 ? kDone : kWrongInput;
  } catch (const Mistake& mistake) {
    err << mistake.what() << '\n';
    run.status = kWrongInput;
  }
  run.out = out.str();
  run.err = err.str();
  return run;
}

}  // namespace tarvordp
