#include "tarvordp/print/print_job.h"

#include <filesystem>
#include <ostream>
#include <string>
#include <utility>

#include "frame/codepage.h"
#include "frame/modRDPGlobalValues.h"
#include "frame/upper_case.h"
#include "platform/file/file_sink.h"
#include "platform/file/file_spooler.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"
#include "tarvordp/interruption.h"
#include "tarvordp/job/job_file.h"
#include "tarvordp/json/excerpt.h"
#include "tarvordp/mistake.h"
#include "tarvordp/print/job_messages.h"
#include "tarvordp/print/job_pages.h"
#include "tarvordp/print/job_report.h"
#include "tarvordp/print/named_files.h"
#include "tarvordp/print/opened_templates.h"
#include "tarvordp/print/output_file.h"
#include "tarvordp/print/traced_errors.h"
#include "tarvordp/whole_file.h"

namespace tarvordp {
namespace {

using tarvo::make;
using tarvo::Ref;

// Lends services to the library for one report: they know the run, which ends with it.
class LentServices {
 public:
  LentServices(LibTarvoCI::CoreServices services, Ref<tarvo::clsUtilImp> printer)
      : before_(tarvo::modRDPGlobalValues::ofThisThread()) {
    services.handTo(*make<tarvo::clsInitLibTarvoRpd>(), printer);
  }
  LentServices(const LentServices&) = delete;
  LentServices& operator=(const LentServices&) = delete;
  ~LentServices() { tarvo::modRDPGlobalValues::ofThisThread() = before_; }

 private:
  tarvo::modRDPGlobalValues before_;
};

void takeOptions(const PrintOptions& options, Job& job) {
  if (!options.copies) return;
  if (job.kind == ReportKind::form) {
    throw Mistake("--copies: " + options.job + " is a form report, which has no copies");
  }
  job.copies = *options.copies;
}

void takeValues(const PrintOptions& options, NamedValues& values) {
  for (const auto& [name, text] : options.values) {
    values.put(nameKey(tarvo::fromUtf8(name)), TextValue{tarvo::fromUtf8(text)});
  }
}

std::vector<std::string> namesOf(const PrintOptions& options) {
  std::vector<std::string> names;
  for (const auto& [name, text] : options.values) names.push_back(name);
  return names;
}

Profile profileFor(const PrintOptions& options, const Job& job) {
  Profile profile = profileOf(job);
  if (options.printer) profile.printerName = tarvo::fromUtf8(*options.printer);
  return profile;
}

void checkSave(const PrintOptions& options) {
  if (!options.save || *options.save == "-") return;
  if (!tarvo::platform::canHoldFile(tarvo::fromUtf8(*options.save))) {
    throw Mistake("--save: " + *options.save + ": a file cannot be made there");
  }
}

// Two things on one stream would be neither.
void checkTrace(const PrintOptions& options, const Profile& profile) {
  if (options.trace != kStandardOutput) return;
  const bool isPrinter = profile.printerName == tarvo::Text(tarvo::kFilePrinterPrefix) + u"-";
  if (!isPrinter && options.save != kStandardOutput) return;
  throw Mistake(std::string("--trace: the standard output is taken by ") +
                (isPrinter ? "the printer" : "--save"));
}

Trace traceFor(const PrintOptions& options, Console& console) {
  if (!options.trace) return {};
  if (*options.trace == kStandardOutput) return Trace(console.out);
  return Trace(*options.trace);
}

std::string bytesOf(const tarvo::Text& code) {
  std::string bytes;
  tarvo::CodePage::ofSystem().encode(code, bytes);
  return bytes;
}

bool isNamedLikeTemplate(const std::string& path) {
  const std::string ending = std::filesystem::path(path).extension().string();
  return tarvo::upperCase(tarvo::fromUtf8(ending)) == u".ID";
}

JsonValue readJobFile(const std::string& path) {
  const std::string text = readWholeFile(path);
  try {
    return readJsonText(text, path);
  } catch (const Mistake&) {
    if (!isNamedLikeTemplate(path)) throw;
    throw Mistake(path +
                  ": this is no job file, and is named like a template: print takes a job file "
                  "(JSON) that names the template");
  }
}

// One run of one job, to one printer.
class Printing {
 public:
  Printing(const PrintOptions& options, Console& console, const Profile& profile, const Job& job,
           const JobData& data, Trace& trace, Progress& progress, Ref<tarvo::Spooler> spooler)
      : console_(console),
        options_(options),
        op_(console, progress, options.yes),
        output_(make<OutputSpooler>(std::move(spooler), trace,
                                    bytesOf(profile.code(ControlCode::formFeed)))),
        printer_(make<tarvo::clsUtilImp>(output_)),
        pages_(make<JobPages>(tarvo::platform::makePageOutput(), options.save.value_or(""), op_)),
        run_{job, data, trace, progress, op_, *output_},
        messages_(make<JobMessages>(op_, trace, job.turnSheet,
                                    [this] { return run_.callbacks + output_->calls(); })) {
    run_.asked.expect(namesOf(options));
    apply(profile, *printer_);
  }

  ExitStatus print() {
    try {
      printWithServices();
    } catch (const tarvo::RunTimeError& error) {
      return ended(error);
    }
    return finished();
  }

 private:
  void printWithServices() {
    LibTarvoCI::CoreServices services;
    services.refInsError = make<TracedErrors>(run_.trace);
    services.refInsMessage = messages_;
    const LentServices lent(services, printer_);
    printReport(run_, {make<OpenedTemplates>(tarvo::platform::makeTextFiles(), run_), pages_});
  }

  ExitStatus ended(const tarvo::RunTimeError& error) {
    if (output_->failure()) return outputFailed();
    if (Interruption::isAskedFor()) {
      tell("interrupted");
    } else if (run_.wasGivenUpAtPause) {
      tell("the report was given up at a pause");
    } else {
      tell("run-time error " + std::to_string(error.number()) + ": " +
           tarvo::toUtf8(error.description()));
    }
    tellWhereItEnded(error);
    abandonOutput();
    return run_.wasGivenUpAtPause ? kNotPrinted : kRunTimeError;
  }

  ExitStatus finished() {
    if (output_->failure()) return outputFailed();
    const bool isAnything = output_->jobs() > 0 || pages_->pages() > 0;
    if (isAnything) tellHints();
    if (messages_->saidThatNotPrinted()) {
      tellOfSheets();
      return kNotPrinted;
    }
    if (!isAnything) {
      tell("nothing was printed: the job names no template for these sheets");
      return kNotPrinted;
    }
    if (options_.save && pages_->pages() == 0) {
      tell("nothing was saved in " + *options_.save + ": the report went to the printer as text");
    }
    summarize();
    return kDone;
  }

  ExitStatus outputFailed() {
    tell(tarvo::toUtf8(printer_->GetPrinterName()) +
         ": the report did not arrive whole: " + *output_->failure());
    abandonOutput();
    return kRunTimeError;
  }

  void abandonOutput() {
    const std::string outcome = output_->abandon();
    if (!outcome.empty()) tell(outcome);
  }

  // What failed was not the template where it was the output or the data, or where somebody wanted
  // the end.
  void tellWhereItEnded(const tarvo::RunTimeError& error) {
    const bool isElsewhere =
        error.number() == tarvo::kDeviceError || error.number() == tarvo::kDiskFull;
    if (isElsewhere || run_.wasGivenUpAtPause || Interruption::isAskedFor()) return;
    const std::string where = whereItEnded(run_);
    if (!where.empty()) tell("hint: " + where);
  }

  void tellHints() {
    const std::string& doubt = run_.data.details->doubt();
    if (!doubt.empty()) tell("hint: " + doubt);
    for (const std::string& hint : run_.asked.hints()) tell("hint: " + hint);
    if (run_.data.details->lackSubtotal()) {
      tell("hint: no record has the name " +
           quotedExcerpt(run_.job.document->find("subtotal")->text()) +
           " of the job's \"subtotal\": nothing was added up");
    }
  }

  // Of what a message told in the library's words, what is to be added.
  void tellOfSheets() {
    if (!output_->unopened().empty()) tell(output_->unopened());
    if (messages_->saidTemplateEndingTwice()) {
      tell("hint: the job names a template without \".ID\" at its end");
    }
    tellOfEmptyJob();
    if (!messages_->leftOutSecondSheet()) return;
    tell("the second sheet was left out");
    summarize();
  }

  // The library asks whether the report may be printed once its job has begun, so there is one, and
  // a file that was there before is replaced.
  void tellOfEmptyJob() {
    if (!messages_->saidThatNothingFound() || output_->jobs() == 0) return;
    tell(tarvo::toUtf8(printer_->GetPrinterName()) + ": the job there holds no report, " +
         (output_->bytes() == 0
              ? "it is empty"
              : "only " + withUnit(output_->bytes(), "byte") + " that prepare the printer"));
  }

  // For a person who waits; a script has the exit status.
  void summarize() {
    if (!console_.errIsTerminal) return;
    std::string line;
    const auto add = [&line](std::uint64_t number, const char* thing) {
      if (number > 0) line.append(line.empty() ? "printed " : ", ").append(withUnit(number, thing));
    };
    add(output_->pages() + pages_->pages(), "page");
    add(static_cast<std::uint64_t>(run_.records), "record");
    add(output_->bytes(), "byte");
    if (output_->jobs() > 0) line += " to " + tarvo::toUtf8(printer_->GetPrinterName());
    op_.tell(line);
  }

  void tell(const std::string& text) { op_.tell("tarvordp: " + text); }

  Console& console_;
  const PrintOptions& options_;
  Operator op_;
  Ref<OutputSpooler> output_;
  Ref<tarvo::clsUtilImp> printer_;
  Ref<JobPages> pages_;
  JobRun run_;
  Ref<JobMessages> messages_;
};

}  // namespace

ExitStatus printJob(const PrintOptions& options, Console& console, PrintEquipment equipment) {
  Job job = readJob(readJobFile(options.job));
  takeOptions(options, job);
  checkSave(options);
  const Profile profile = profileFor(options, job);
  checkTrace(options, profile);
  requireSeparateFiles(options, profile, job);
  Progress progress(console.err, console.errIsTerminal, equipment.pace);
  JobData data = openData(job, [&](std::int64_t records) { progress.reading(records); });
  takeValues(options, data.record);
  Trace trace = traceFor(options, console);
  if (!equipment.spooler) equipment.spooler = tarvo::makeSpooler();
  Printing printing(options, console, profile, job, data, trace, progress, equipment.spooler);
  const Interruption interruption;
  const ExitStatus status = printing.print();
  if (status == kNotPrinted && profile.printerName.empty()) {
    console.err << "tarvordp: give a printer's name with --printer, or in the profile\n";
  }
  if (trace.isWhole()) return status;
  console.err << "tarvordp: " << trace.path() << ": the trace is not whole\n";
  return status == kDone ? kRunTimeError : status;
}

}  // namespace tarvordp
