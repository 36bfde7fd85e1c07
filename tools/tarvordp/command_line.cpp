#include "tarvordp/command_line.h"

#include <CLI/CLI.hpp>
#include <ostream>
#include <string>

#include "frame/version.h"
#include "tarvordp/argument_mistake.h"
#include "tarvordp/help_page.h"
#include "tarvordp/mistake.h"

namespace tarvordp {
namespace {

constexpr const char* kAbout =
    "Print reports on line printers from text templates, without a client program: a job file says "
    "which template, which data and which printer profile.";

constexpr const char* kFooter =
    "\"tarvordp COMMAND --help\" tells a command's arguments and options.\n"
    "\n"
    "Exit status:\n"
    "  0  done; check: no errors were found\n"
    "  1  nothing, or a sheet less, was printed; check: errors were found;\n"
    "     view: a file could not be written\n"
    "  2  wrong arguments, or a job, a profile, a template or data that cannot be used:\n"
    "     nothing was printed\n"
    "  3  a run-time error ended the report, or not all of the output arrived\n"
    "\n"
    "Examples:\n"
    "  tarvordp print invoice.json --printer file:invoice.prn\n"
    "  tarvordp view invoice.prn --profile epson-9pin\n"
    "  tarvordp check INVOICE.ID --profile epson-9pin";

std::string version() {
  return "tarvordp " + std::to_string(tarvo::kVersionMajor) + "." +
         std::to_string(tarvo::kVersionMinor) + "." + std::to_string(tarvo::kVersionRevision);
}

// The library would only say that a command is missing.
void checkCommand(const CLI::App& program, int argc, const char* const* argv) {
  if (argc < 2 || argv[1][0] == '-') return;
  const auto isMeant = [&](const CLI::App* command) { return command->check_name(argv[1]); };
  if (program.get_subcommands(isMeant).empty()) {
    throw Mistake(unknownCommand(program, argv[1]));
  }
}

// A flag is there or not: "--yes=no" would be a surprise.
void takeNoValuesForFlags(CLI::App& program) {
  for (CLI::App* command : program.get_subcommands([](CLI::App*) { return true; })) {
    for (CLI::Option* option : command->get_options()) {
      if (option->get_items_expected_max() == 0) option->disable_flag_override();
    }
  }
}

int tell(Console& console, const std::string& mistake, int status) {
  console.err << "tarvordp: " << mistake << '\n';
  return status;
}

}  // namespace

int run(int argc, const char* const* argv, Console& console) {
  CLI::App program(kAbout, "tarvordp");
  program.footer(kFooter);
  program.formatter(makeHelpFormatter());
  program.set_help_flag("-h,--help", "Show this help");
  program.set_version_flag("--version", version(), "Show the version");
  program.require_subcommand(1);
  int status = kDone;
  addPrintCommand(program, console, status);
  addViewCommand(program, console, status);
  addCheckCommand(program, console, status);
  addFieldsCommand(program, console, status);
  addProfilesCommand(program, console, status);
  addTestPageCommand(program, console, status);
  takeNoValuesForFlags(program);
  try {
    checkCommand(program, argc, argv);
    program.parse(argc, argv);
  } catch (const CLI::ParseError& failure) {
    if (failure.get_exit_code() != 0) {
      return tell(console, argumentMistake(program, failure), kWrongInput);
    }
    program.exit(failure, console.out, console.err);
  } catch (const Mistake& mistake) {
    return tell(console, mistake.what(), kWrongInput);
  }
  if (!console.out.flush()) {
    console.err << "tarvordp: the standard output was not written whole\n";
    return kRunTimeError;
  }
  return status;
}

}  // namespace tarvordp
