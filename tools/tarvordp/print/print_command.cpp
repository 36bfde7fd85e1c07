// The command "print".
#include <CLI/CLI.hpp>
#include <cstdint>
#include <memory>

#include "tarvordp/command_line.h"
#include "tarvordp/mistake.h"
#include "tarvordp/print/print_job.h"

namespace tarvordp {
namespace {

constexpr const char* kAbout = "Print the report of a job file";

constexpr const char* kFooter =
    "The job file says which template, which data and which printer profile. Messages, questions "
    "and hints go to the standard error stream. Without a terminal nothing is asked: pauses go on "
    "and questions are accepted.\n"
    "\n"
    "Where it goes: a form's sheets and a master-detail report go to the printer. A form's draft "
    "does not: it is shown on the screen, or without a screen saved as TITLE.pdf in the current "
    "folder, whatever --printer says. A master-detail report for a printer without text mode "
    "goes to it as pages, so with file:PATH that file is a PDF. --save takes the place of "
    "both.\n"
    "\n"
    "Exit status:\n"
    "  0  printed\n"
    "  1  a message said that nothing, or a sheet less, is printed\n"
    "  2  wrong arguments, or a wrong job, profile or data: nothing was printed\n"
    "  3  a run-time error ended the report, or its output did not arrive whole\n"
    "\n"
    "Examples:\n"
    "  tarvordp print invoice.json --printer LX-350\n"
    "  tarvordp print invoice.json --printer file:invoice.prn\n"
    "  tarvordp print invoice.json --printer file:- --copies 3 | lp -o raw\n"
    "  tarvordp print receipt.json --printer LX-350 --save receipt.pdf\n"
    "  tarvordp print invoice.json --set CLIENTE.NOMBRE=\"Ana Contreras\" --yes"
    "\n"
    "  tarvordp print invoice.json --yes --trace calls.jsonl";

std::pair<std::string, std::string> nameAndValue(const std::string& written) {
  const std::size_t sign = written.find('=');
  if (sign == std::string::npos || sign == 0) {
    throw Mistake("--set: \"" + written +
                  "\" is not of the form NAME=VALUE; see "
                  "\"tarvordp print --help\"");
  }
  return {written.substr(0, sign), written.substr(sign + 1)};
}

struct Arguments {
  PrintOptions options;
  std::vector<std::string> values;
};

void addArguments(CLI::App& command, Arguments& arguments) {
  constexpr int kMostCopies = 255;
  PrintOptions& options = arguments.options;
  command.add_option("JOB", options.job, "The job file; \"-\" reads the standard input")
      ->required();
  command
      .add_option(
          "--printer", options.printer,
          "The printer, in place of the profile's. file:PATH writes each job of the "
          "spooler into a file (PATH, PATH.2 ...), file:- to the standard output; any "
          "other name is a printer of the system. Drafts do not go there (see --save), but want "
          "some printer's name all the same")
      ->type_name("NAME");
  command
      .add_option("--save", options.save, "Save what is graphic, such as a draft, as this PDF file")
      ->type_name("FILE.pdf");
  command
      .add_option("--set", arguments.values,
                  "Give a value of the record another text, as which it is printed: number and "
                  "date formats do not apply to it. Queries keep the job's parameters. May be "
                  "repeated")
      ->type_name("NAME=VALUE")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  command
      .add_option("--copies", options.copies,
                  "Copies of a master-detail report, in place of the job's")
      ->type_name("N")
      ->check(CLI::Range(1, kMostCopies));
  command
      .add_option("--trace", options.trace,
                  "Write every callback, message, question, spooler call and error into a file, "
                  "one JSON object a line; \"-\" is the standard output")
      ->type_name("FILE");
  command.add_flag("--yes", options.yes, "Ask nothing: pauses go on, questions are accepted");
}

}  // namespace

void addPrintCommand(CLI::App& program, Console& console, int& status) {
  CLI::App* command = program.add_subcommand("print", kAbout);
  command->footer(kFooter);
  const auto arguments = std::make_shared<Arguments>();
  addArguments(*command, *arguments);
  command->callback([arguments, &console, &status] {
    for (const std::string& value : arguments->values) {
      arguments->options.values.push_back(nameAndValue(value));
    }
    status = printJob(arguments->options, console);
  });
}

}  // namespace tarvordp
