// tarvordp testpage
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <optional>
#include <string>

#include "frame/modRDPGlobalValues.h"
#include "frame/run_time_error.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"
#include "tarvordp/command_line.h"
#include "tarvordp/mistake.h"
#include "tarvordp/print/job_messages.h"
#include "tarvordp/print/output_spooler.h"
#include "tarvordp/profile/profile.h"

namespace tarvordp {
namespace {

constexpr std::uint8_t kUsualPageLength = 66;
constexpr std::int16_t kNormalGroups = 8;  // of ten columns: what 80-column paper takes
constexpr std::uint8_t kColumnsInGroup = 10;

// The services of the thread know the run, which ends.
class ServicesKept {
 public:
  ServicesKept() : before_(tarvo::modRDPGlobalValues::ofThisThread()) {}
  ServicesKept(const ServicesKept&) = delete;
  ServicesKept& operator=(const ServicesKept&) = delete;
  ~ServicesKept() { tarvo::modRDPGlobalValues::ofThisThread() = before_; }

 private:
  tarvo::modRDPGlobalValues before_;
};

struct TestPageOptions {
  std::string profile;
  std::string printer;
  bool rules = false;
};

void printRules(tarvo::clsUtilImp& printer, const Profile& profile) {
  const std::uint8_t lines = profile.maxLinPage == 0 ? kUsualPageLength : profile.maxLinPage;
  // A unit is a line; the rule's first tick needs a point of the last one.
  printer.sPrintVerticalRule(static_cast<std::int16_t>(lines - 1), true);
  const int condensed = profile.maxChrLinCondensed80Columns / kColumnsInGroup;
  printer.sPrintHorizontalRule(true, kNormalGroups,
                               std::max(static_cast<std::int16_t>(condensed), kNormalGroups));
}

// One test page, to one printer.
class TestPagePrinting {
 public:
  TestPagePrinting(const TestPageOptions& options, const Profile& profile, Console& console)
      : options_(options),
        profile_(profile),
        progress_(console.err, false),
        operator_(console, progress_, true),
        output_(tarvo::make<OutputSpooler>(tarvo::makeSpooler(), trace_, std::string())),
        printer_(tarvo::make<tarvo::clsUtilImp>(output_)),
        messages_(tarvo::make<JobMessages>(operator_, trace_, std::nullopt,
                                           [this] { return output_->calls(); })) {
    apply(profile, *printer_);
  }

  ExitStatus print() {
    LibTarvoCI::CoreServices services;
    services.refInsMessage = messages_;
    services.handTo(*tarvo::make<tarvo::clsInitLibTarvoRpd>(), printer_);
    try {
      printPages();
    } catch (const tarvo::RunTimeError& error) {
      tell(std::string("run-time error ") + error.what());
      return abandoned();
    }
    if (messages_->saidThatNotPrinted()) return kNotPrinted;
    if (!output_->failure()) return kDone;
    tell(tarvo::toUtf8(profile_.printerName) +
         ": the test page did not arrive whole: " + *output_->failure());
    return abandoned();
  }

 private:
  void printPages() {
    printer_->sInitializePrinterFileHandle(profile_.printerName, u"Página de prueba");
    if (messages_->saidThatNotPrinted()) return;  // there is no such printer
    printer_->sPrintTestPage();
    if (options_.rules) printRules(*printer_, profile_);
    printer_->sClosePrinterFileHandle();
  }

  ExitStatus abandoned() {
    const std::string outcome = output_->abandon();
    if (!outcome.empty()) tell(outcome);
    return kRunTimeError;
  }

  void tell(const std::string& text) { operator_.tell("tarvordp: " + text); }

  const TestPageOptions& options_;
  const Profile& profile_;
  Trace trace_;
  Progress progress_;
  Operator operator_;
  tarvo::Ref<OutputSpooler> output_;
  tarvo::Ref<tarvo::clsUtilImp> printer_;
  tarvo::Ref<JobMessages> messages_;
};

ExitStatus printTestPage(const TestPageOptions& options, Console& console) {
  Profile profile = findProfile(options.profile, {});
  if (!options.printer.empty()) profile.printerName = tarvo::fromUtf8(options.printer);
  if (profile.printerName.empty()) {
    throw Mistake("no printer: the profile names none; say --printer NAME, or --printer file:PATH");
  }
  const ServicesKept kept;
  return TestPagePrinting(options, profile, console).print();
}

}  // namespace

void addTestPageCommand(CLI::App& program, Console& console, int& status) {
  CLI::App* command = program.add_subcommand(
      "testpage", "Print the test page, which shows every mode of a printer profile");
  command->footer(
      "Exit status:\n"
      "  0  printed\n"
      "  1  no such printer\n"
      "  2  wrong arguments or profile\n"
      "  3  a run-time error, or not everything arrived\n\n"
      "Examples:\n"
      "  tarvordp testpage --profile epson-9pin --printer LX-350\n"
      "  tarvordp testpage --profile oki-microline --printer file:page.prn --rules\n"
      "  tarvordp testpage --profile epson-9pin --printer file:- | "
      "tarvordp view - --profile epson-9pin");
  auto options = std::make_shared<TestPageOptions>();
  command
      ->add_option("--profile", options->profile,
                   "A shipped profile's name, or the path of a profile file")
      ->required()
      ->type_name("PROFILE");
  command
      ->add_option("--printer", options->printer,
                   "A printer of this system, or file:PATH (file:- the standard output); "
                   "default: the profile's PrinterName")
      ->type_name("NAME");
  command->add_flag("--rules", options->rules,
                    "Print a ruler down a page and rulers across one, too");
  command->callback([options, &console, &status] { status = printTestPage(*options, console); });
}

}  // namespace tarvordp
