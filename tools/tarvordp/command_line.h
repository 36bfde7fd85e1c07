// The program's command line: one function adds one command, and the command that was chosen
// leaves the program's exit status.
#pragma once

#include "tarvordp/console.h"

namespace CLI {
class App;
}

namespace tarvordp {

// Exit statuses of every command.
enum ExitStatus : int {
  kDone = 0,
  kNotPrinted = 1,   // a message said that nothing, or a sheet less, is printed
  kWrongInput = 2,   // arguments, a job file, data: nothing was printed
  kRunTimeError = 3  // a run-time error reached the client
};

// Each adds its command to the program.  The command writes to the console and sets the status when
// the command line has been read as a whole; the console and the status must live until then.
// Commands raise Mistake for wrong input.
void addPrintCommand(CLI::App& program, Console& console, int& status);
void addViewCommand(CLI::App& program, Console& console, int& status);
void addCheckCommand(CLI::App& program, Console& console, int& status);
void addFieldsCommand(CLI::App& program, Console& console, int& status);
void addProfilesCommand(CLI::App& program, Console& console, int& status);
void addTestPageCommand(CLI::App& program, Console& console, int& status);

// Runs the program: reads the arguments (argv[0] is its name), runs the command, tells mistakes.
int run(int argc, const char* const* argv, Console& console);

}  // namespace tarvordp
