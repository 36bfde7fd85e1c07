// tarvordp testpage
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <ostream>
#include <string>
#include <system_error>
#include <utility>

#include "frame/run_time_error.h"
#include "platform/file/file_spooler.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"
#include "tarvordp/command_line.h"
#include "tarvordp/mistake.h"
#include "tarvordp/profile/profile.h"

namespace tarvordp {
namespace {

using tarvo::Text;
using tarvo::TextView;

constexpr std::uint8_t kUsualPageLength = 66;
constexpr std::int16_t kNormalGroups = 8;  // of ten columns: what 80-column paper takes
constexpr std::uint8_t kColumnsInGroup = 10;

// Messages as lines of the console.
class ConsoleMessages final : public tarvo::clsMessage {
 public:
  explicit ConsoleMessages(std::ostream& err) : err_(err) {}

  void sShowMessage(Text& refText) override { show(refText, {}); }
  void sShowMessageWithTitle(TextView valText, TextView valTitle) override {
    show(valText, valTitle);
  }
  void sWarning(Text& refText) override { show(refText, {}); }
  void sWarningWithTitle(TextView valText, TextView valTitle) override { show(valText, valTitle); }
  bool fAskAcceptCancel(TextView valText, TextView valTitle) override {
    show(valText, valTitle);
    return true;
  }
  bool fWarnLocation(TextView valProjectTitle, std::int16_t) override {
    show(valProjectTitle, {});
    return true;
  }

 private:
  void show(TextView text, TextView title) {
    if (!title.empty()) err_ << '[' << tarvo::toUtf8(title) << "] ";
    err_ << tarvo::toUtf8(text) << '\n';
  }

  std::ostream& err_;
};

// The library looks at no answer of its spooler; this command does.
class WatchedSpooler final : public tarvo::Spooler {
 public:
  explicit WatchedSpooler(tarvo::Ref<tarvo::Spooler> next) : next_(std::move(next)) {}

  bool opened() const noexcept { return opened_; }
  bool failed() const noexcept { return failed_; }
  std::int32_t failure() const noexcept { return failure_; }

  bool openPrinter(TextView name, tarvo::PrinterHandle& handle) override {
    return opened_ = next_->openPrinter(name, handle);
  }
  bool startDocument(tarvo::PrinterHandle handle,
                     const tarvo::DocumentDescription& document) override {
    return watched(next_->startDocument(handle, document));
  }
  bool startPage(tarvo::PrinterHandle handle) override { return watched(next_->startPage(handle)); }
  bool write(tarvo::PrinterHandle handle, std::string_view bytes) override {
    return watched(next_->write(handle, bytes));
  }
  bool endPage(tarvo::PrinterHandle handle) override { return watched(next_->endPage(handle)); }
  bool endDocument(tarvo::PrinterHandle handle) override {
    return watched(next_->endDocument(handle));
  }
  bool closePrinter(tarvo::PrinterHandle handle) override { return next_->closePrinter(handle); }
  std::int32_t lastError() const noexcept override { return next_->lastError(); }

 private:
  bool watched(bool succeeded) {
    if (!succeeded && opened_ && !failed_) {
      failed_ = true;
      failure_ = next_->lastError();
    }
    return succeeded;
  }

  tarvo::Ref<tarvo::Spooler> next_;
  bool opened_ = false;
  bool failed_ = false;
  std::int32_t failure_ = 0;
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

int printOn(tarvo::clsUtilImp& printer, const WatchedSpooler& spooler, const Profile& profile,
            const TestPageOptions& options, Console& console) {
  const std::string name = tarvo::toUtf8(printer.GetPrinterName());
  printer.sInitializePrinterFileHandle(printer.GetPrinterName(), u"Página de prueba");
  if (!spooler.opened()) return kNotPrinted;  // a message has said so
  printer.sPrintTestPage();
  if (options.rules) printRules(printer, profile);
  printer.sClosePrinterFileHandle();
  if (!spooler.failed()) return kDone;
  console.err << "tarvordp: " << name << ": not everything was printed";
  const bool isFile = printer.GetPrinterName().starts_with(tarvo::kFilePrinterPrefix);
  if (isFile) console.err << ": " << std::generic_category().message(spooler.failure());
  console.err << '\n';
  return kNotPrinted;
}

int printTestPage(const TestPageOptions& options, Console& console) {
  Profile profile = findProfile(options.profile, {});
  if (!options.printer.empty()) profile.printerName = tarvo::fromUtf8(options.printer);
  if (profile.printerName.empty()) {
    throw Mistake("no printer: the profile names none; say --printer NAME, or --printer file:PATH");
  }
  const auto spooler = tarvo::make<WatchedSpooler>(tarvo::makeSpooler());
  auto printer = tarvo::make<tarvo::clsUtilImp>(spooler);
  apply(profile, *printer);
  LibTarvoCI::CoreServices services;
  services.refInsMessage = tarvo::make<ConsoleMessages>(console.err);
  services.handTo(*tarvo::make<tarvo::clsInitLibTarvoRpd>(), printer);
  try {
    return printOn(*printer, *spooler, profile, options, console);
  } catch (const tarvo::RunTimeError& error) {
    console.err << "tarvordp: run-time error " << error.what() << '\n';
    return kRunTimeError;
  }
}

}  // namespace

void addTestPageCommand(CLI::App& program, Console& console, int& status) {
  CLI::App* command = program.add_subcommand(
      "testpage", "Print the test page, which shows every mode of a printer profile");
  command->footer(
      "Exit status: 0 printed; 1 no such printer, or not everything was printed; 2 wrong\n"
      "arguments or profile; 3 a run-time error.\n\n"
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
