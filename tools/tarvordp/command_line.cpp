#include "tarvordp/command_line.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <ostream>
#include <string>

#include "frame/version.h"
#include "tarvordp/mistake.h"

namespace tarvordp {
namespace {

constexpr const char* kAbout =
    "Prints reports on line printers from text templates, without a client program:\n"
    "a job file says which template, which data and which printer profile.";

constexpr const char* kExamples =
    "Examples:\n"
    "  tarvordp print invoice.json --printer file:invoice.prn\n"
    "  tarvordp view invoice.prn --profile epson-9pin\n"
    "  tarvordp check INVOICE.ID --profile epson-9pin\n"
    "\n"
    "Exit status: 0 done, 1 nothing or a sheet less was printed, 2 wrong arguments or input,\n"
    "3 a run-time error ended the report.";

std::string version() {
  return "tarvordp " + std::to_string(tarvo::kVersionMajor) + "." +
         std::to_string(tarvo::kVersionMinor) + "." + std::to_string(tarvo::kVersionRevision);
}

// The library would only say that a command is required.
void checkCommand(const CLI::App& program, int argc, const char* const* argv) {
  if (argc < 2 || argv[1][0] == '-') return;
  const auto isMeant = [&](const CLI::App* command) { return command->check_name(argv[1]); };
  if (program.get_subcommands(isMeant).empty()) {
    throw Mistake(std::string("there is no command \"") + argv[1] + "\": see tarvordp --help");
  }
}

int tell(Console& console, const std::exception& failure, int status) {
  console.err << "tarvordp: " << failure.what() << '\n';
  return status;
}

}  // namespace

int run(int argc, const char* const* argv, Console& console) {
  CLI::App program(kAbout, "tarvordp");
  program.footer(kExamples);
  program.set_version_flag("--version", version());
  program.require_subcommand(1);
  int status = kDone;
  addPrintCommand(program, console, status);
  addViewCommand(program, console, status);
  addCheckCommand(program, console, status);
  addFieldsCommand(program, console, status);
  addProfilesCommand(program, console, status);
  addTestPageCommand(program, console, status);
  try {
    checkCommand(program, argc, argv);
    program.parse(argc, argv);
  } catch (const CLI::ParseError& failure) {
    if (program.exit(failure, console.out, console.err) != 0) return kWrongInput;
  } catch (const Mistake& mistake) {
    return tell(console, mistake, kWrongInput);
  }
  if (!console.out.flush()) {
    console.err << "tarvordp: the standard output was not written whole\n";
    return kRunTimeError;
  }
  return status;
}

}  // namespace tarvordp
