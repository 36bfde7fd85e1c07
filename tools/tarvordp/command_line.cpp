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
    program.parse(argc, argv);
  } catch (const CLI::ParseError& failure) {
    const bool wrong = program.exit(failure, console.out, console.err) != 0;
    return wrong ? kWrongInput : kDone;
  } catch (const Mistake& mistake) {
    return tell(console, mistake, kWrongInput);
  }
  return status;
}

}  // namespace tarvordp
