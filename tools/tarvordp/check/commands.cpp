// The commands check and fields.
#include <CLI/CLI.hpp>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "tarvordp/check/check_template.h"
#include "tarvordp/check/fields.h"
#include "tarvordp/command_line.h"
#include "tarvordp/json/json_value.h"
#include "tarvordp/mistake.h"
#include "tarvordp/profile/profile.h"
#include "tarvordp/whole_file.h"

namespace tarvordp {
namespace {

constexpr const char* kCheckHelp =
    "Each finding is a line on the standard output, FILE:LINE:COLUMN: SEVERITY: MESSAGE;\n"
    "columns count characters. Templates are read in code page 1252.\n"
    "  error    stops the report, shows the operator a message, never ends, or puts lines\n"
    "           where they do not belong\n"
    "  warning  prints, but probably not what was meant\n"
    "  note     worth knowing\n"
    "\n"
    "Exit status:\n"
    "  0  no errors; there may be warnings and notes\n"
    "  1  errors\n"
    "  2  wrong arguments, or a template or a profile that cannot be read\n"
    "\n"
    "Examples:\n"
    "  tarvordp check INVOICE.ID --profile epson-9pin\n"
    "  tarvordp check plantillas/*.ID";

constexpr const char* kFieldsHelp =
    "One table for each section: the page header, the body, the insert body and the page footer\n"
    "of a master-detail report, or a form's sheet. A width of \"-\" is the value's own;\n"
    "decimals count only where the client answers with a number.\n"
    "Control words and constants need no answer and are not shown.\n"
    "\n"
    "Exit status:\n"
    "  0  listed\n"
    "  2  wrong arguments, or a template that cannot be read\n"
    "\n"
    "Examples:\n"
    "  tarvordp fields INVOICE.ID";

const std::map<std::string, TemplateKind> kKinds{{"form", TemplateKind::kForm},
                                                 {"master-detail", TemplateKind::kMasterDetail}};

struct CheckArguments {
  std::vector<std::string> templates;
  std::string kind;
  std::string profile;
};

// One with members: a template's line may hold two braces alone.
bool isJsonObject(const std::string& bytes) {
  constexpr const char* kBlanks = " \t\r\n";
  const std::size_t first = bytes.find_first_not_of(kBlanks);
  if (first == std::string::npos || bytes[first] != '{') return false;
  if (bytes[bytes.find_last_not_of(kBlanks)] != '}') return false;
  try {
    const JsonValue value = readJsonText(bytes, "");
    return value.is(JsonValue::Kind::object) && !value.members().empty();
  } catch (const Mistake&) {
    return false;
  }
}

// What stands in for findings where there are none, for a person who waits.
void tellNone(const std::string& name, const Findings& findings, TemplateKind kind,
              Console& console) {
  if (!console.errIsTerminal || !findings.isEmpty()) return;
  console.err << "tarvordp: " << name << ": no findings, as a template of "
              << (kind == TemplateKind::kForm ? "a form\n" : "a master-detail report\n");
}

// A template that cannot be read is told, and the others are looked at all the same.
int forEachTemplate(const std::vector<std::string>& names, Console& console,
                    const std::function<int(const std::string&, const std::string&)>& work) {
  int status = kDone;
  for (const std::string& name : names) {
    try {
      const std::string bytes = readWholeFile(name);
      if (isJsonObject(bytes)) {
        throw Mistake(name +
                      ": this is JSON, like a job file, and no template: give the .ID files");
      }
      status = std::max(status, work(name, bytes));
    } catch (const Mistake& mistake) {
      console.err << "tarvordp: " << mistake.what() << '\n';
      status = kWrongInput;
    }
  }
  return status;
}

int check(const CheckArguments& arguments, Console& console) {
  std::optional<TemplateKind> kind;
  if (!arguments.kind.empty()) kind = kKinds.at(arguments.kind);
  std::optional<Profile> profile;
  if (!arguments.profile.empty()) profile = findProfile(arguments.profile, "");
  const auto work = [&](const std::string& name, const std::string& bytes) {
    Findings findings = checkTemplate(bytes, kind, profile ? &*profile : nullptr);
    findings.write(console.out, name);
    tellNone(name, findings, kind ? *kind : guessedKind(templateLines(bytes)), console);
    return findings.hasErrors() ? static_cast<int>(kNotPrinted) : kDone;
  };
  return forEachTemplate(arguments.templates, console, work);
}

// What cannot be read for a mistake in the template is told, so that nothing is missing silently.
int fields(const std::vector<std::string>& templates, Console& console) {
  const auto work = [&](const std::string& name, const std::string& bytes) {
    Findings findings;
    write(console.out, name, fieldsOf(bytes, findings));
    if (findings.hasErrors()) {
      console.err << "tarvordp: " << name
                  << ": has errors, so fields may be missing: tarvordp check tells them\n";
    }
    return static_cast<int>(kDone);
  };
  return forEachTemplate(templates, console, work);
}

}  // namespace

void addCheckCommand(CLI::App& program, Console& console, int& status) {
  const auto arguments = std::make_shared<CheckArguments>();
  CLI::App* command =
      program.add_subcommand("check", "Find mistakes in templates before they are printed");
  command->add_option("TEMPLATE", arguments->templates, "Template files (.ID)")->required();
  command
      ->add_option("--kind", arguments->kind,
                   "The report that prints them; else guessed from their markers")
      ->check(CLI::IsMember(std::vector<std::string>{"form", "master-detail"}));
  command->add_option("--profile", arguments->profile,
                      "Printer profile, a shipped one's name or a file: page length, columns and "
                      "letters");
  command->footer(kCheckHelp);
  command->callback([arguments, &console, &status] { status = check(*arguments, console); });
}

void addFieldsCommand(CLI::App& program, Console& console, int& status) {
  const auto templates = std::make_shared<std::vector<std::string>>();
  CLI::App* command =
      program.add_subcommand("fields", "List what a client must answer to print templates");
  command->add_option("TEMPLATE", *templates, "Template files (.ID)")->required();
  command->footer(kFieldsHelp);
  command->callback([templates, &console, &status] { status = fields(*templates, console); });
}

}  // namespace tarvordp
