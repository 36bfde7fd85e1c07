// The command "print".
#include <CLI/CLI.hpp>
#include <cstdint>
#include <memory>

#include "tarvordp/command_line.h"
#include "tarvordp/mistake.h"
#include "tarvordp/print/print_job.h"

namespace tarvordp {
namespace {

constexpr const char* kAbout =
    "Prints the report of a job file, which says the template, the data and the printer profile.";

constexpr const char* kFooter =
    "Examples:\n"
    "  tarvordp print invoice.json --printer LX-350             to a printer of the system\n"
    "  tarvordp print invoice.json --printer file:invoice.prn   into a file\n"
    "  tarvordp print invoice.json --printer file:- --copies 3 | less -R\n"
    "  tarvordp print receipt.json --printer LX-350 --save receipt.pdf   a draft, as PDF\n"
    "  tarvordp print invoice.json --set FACTURA.NUMERO=1043 --yes --trace calls.jsonl\n"
    "\n"
    "Exit status: 0 printed, 1 nothing or a sheet less was printed, 2 wrong arguments or job,\n"
    "3 a run-time error ended the report, or its output did not arrive whole.";

std::pair<std::string, std::string> nameAndValue(const std::string& written) {
  const std::size_t sign = written.find('=');
  if (sign == std::string::npos || sign == 0) {
    throw Mistake("--set: \"" + written + "\" is not of the form NAME=VALUE");
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
  command.add_option("job", options.job, "The job file; \"-\" is the standard input")
      ->required()
      ->type_name("JOB");
  command
      .add_option("--printer", options.printer,
                  "The printer, in place of the profile's.  file:PATH writes the bytes into\n"
                  "files, one for each spooler job (PATH, PATH.2 ...), file:- to the\n"
                  "standard output; any other name is a printer of the system")
      ->type_name("NAME");
  command.add_option("--save", options.save, "Saves graphic output, such as drafts, in a PDF file")
      ->type_name("FILE.pdf");
  command
      .add_option("--set", arguments.values,
                  "Gives a value of the record another text; may be repeated")
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
                  "Writes every callback, message, question, spooler call and error\n"
                  "into a file, one JSON object a line")
      ->type_name("FILE");
  command.add_flag("--yes", options.yes, "Asks nothing: pauses go on, questions are accepted");
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
