// Job files, from their text to the printed report, on arbitrary input.
//
// An input that begins with "{" is a job file.  Any other is the members of one, a line each, of
// which those that are no JSON are left out; the first character says where a member stands:
//   r"A": 12.5    in the record
//   d"R.A": true  in the present detail record; a line "n" begins the next one
//   t"copies": 2  in the job itself
//   F             makes it a form; else it is a master-detail report
//
// A job that is wrong ends in a mistake that names the file.  Data from other files and profiles by
// name are left out, for a fuzzer must not reach for files.  What is left is printed with a
// template that answers variables in many ways, under the names A, B, R.A and R.B.
//
// A report ends: printed, every record in every copy, or in an error of those that data or a
// counter can cause.
#include <algorithm>
#include <sstream>
#include <string>

#include "fuzzing.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"
#include "tarvordp/job/job_file.h"
#include "tarvordp/mistake.h"
#include "tarvordp/print/job_messages.h"
#include "tarvordp/print/job_report.h"
#include "tests/equipment/memory_text_files.h"

namespace tarvordp::fuzz {
namespace {

using tarvo::make;
using tarvo::Ref;
using tarvo::fuzz::require;

constexpr std::size_t kLongestInput = 4'000;
constexpr std::uint64_t kMostCalls = 20'000;
constexpr std::uint8_t kMostCopies = 3;
constexpr const char* kFile = "job.json";

constexpr const char* kTemplate =
    "...NMAXLINPAGINA=20\n"
    "{A} {B,10} {R.A,12,4} {R.B,IIF(S,si,no)}\n"
    "{A[2],5} {A[1][2]} {R.A,DATEFORMAT(dd/mm/yy)}\n"
    "{A,8}\n"
    "...PAUSA...\n"
    "{CUERPO=6}\n"
    "{NUMERAR,4,0} {A,10} {B,10,4} {R.A} {R.B}\n"
    "[{R.A,6}]\n"
    "{FINCUERPO}\n"
    "{VAN,15} {R.B}\n";

// Takes everything, until it is too much.
class Paper final : public tarvo::Spooler {
 public:
  bool openPrinter(tarvo::TextView, tarvo::PrinterHandle& handle) override {
    handle = 1;
    return true;
  }
  bool startDocument(tarvo::PrinterHandle, const tarvo::DocumentDescription&) override {
    return true;
  }
  bool startPage(tarvo::PrinterHandle) override { return true; }
  bool write(tarvo::PrinterHandle, std::string_view) override { return ++writes_ < kMostCalls; }
  bool endPage(tarvo::PrinterHandle) override { return true; }
  bool endDocument(tarvo::PrinterHandle) override { return true; }
  bool closePrinter(tarvo::PrinterHandle) override { return true; }
  std::int32_t lastError() const noexcept override { return 0; }

 private:
  std::uint64_t writes_ = 0;
};

class NoPages final : public tarvo::PageOutput {
 public:
  void show(const Ref<const tarvo::PagedText>&, tarvo::TextView, bool) override {}
  void print(const Ref<const tarvo::PagedText>&, tarvo::TextView, tarvo::TextView) override {}
  void save(const Ref<const tarvo::PagedText>&, tarvo::TextView, tarvo::TextView) override {}
};

// Leaves descriptions as they are: trails of deep errors would take all the time.
class TerseErrors final : public tarvo::clsError {
 public:
  void fDescribeError(tarvo::TextView valDescription, tarvo::TextView, tarvo::TextView,
                      tarvo::TextView, std::int16_t, std::int32_t, tarvo::TextView, std::int32_t,
                      std::int32_t, tarvo::Text& result) override {
    result = valDescription;
  }
};

bool reachesForFiles(const Job& job) {
  const auto isFile = [](const JsonValue* data) {
    return data != nullptr && data->is(JsonValue::Kind::object);
  };
  const bool hasProfileByName = job.profile != nullptr && job.profile->is(JsonValue::Kind::text);
  return hasProfileByName || isFile(job.details) || job.recordQuery != nullptr;
}

// All that a report is printed with.
class World {
 public:
  World(const Job& job, const Profile& profile, const JobData& data)
      : run_{job, data, trace_, progress_, operator_, *output_} {
    apply(profile, *printer_);
    printer_->SetPrinterName(u"Papel");
    for (const tarvo::Text& name : {job.templateName, job.firstSheet, job.secondSheet, job.draft}) {
      files_->write(job.directory + name + u".ID", kTemplate);
    }
    services_.refInsError = make<TerseErrors>();
    services_.refInsUtilFile = make<tarvo::test::MemoryFileService>(files_);
    services_.refInsMessage = make<JobMessages>(
        operator_, trace_, job.turnSheet, [this] { return run_.callbacks + output_->calls(); });
    services_.handTo(*make<tarvo::clsInitLibTarvoRpd>(), printer_);
  }
  World(const World&) = delete;
  ~World() { tarvo::modRDPGlobalValues::ofThisThread() = tarvo::modRDPGlobalValues(); }

  void print() {
    try {
      printReport(run_, {files_, make<NoPages>()});
    } catch (const tarvo::RunTimeError& error) {
      checkError(error.number());
      return;
    }
    const Job& job = run_.job;
    const bool isPrinted = job.kind == ReportKind::masterDetail && job.canPrint;
    require(
        !isPrinted || output_->failure() || run_.records == job.copies * run_.data.details->count(),
        "every copy prints every record");
  }

 private:
  // Too small a width, a kind that the variable is not written for, too long a repetition, a pause
  // that gives up, a message without end, too much output.
  static void checkError(std::int32_t number) {
    require(number == tarvo::kInvalidProcedureCall || number == tarvo::kOverflow ||
                number == tarvo::kSubscriptOutOfRange || number == tarvo::kTypeMismatch ||
                number == tarvo::kOutOfStackSpace || number == tarvo::kDeviceError,
            "a report ends in an error that data or a counter can cause");
  }

  std::ostringstream out_;
  std::ostringstream err_;
  Console console_{out_, err_};
  Trace trace_;
  Progress progress_{err_, false};
  Operator operator_{console_, progress_, true};
  Ref<tarvo::test::MemoryTextFiles> files_ = make<tarvo::test::MemoryTextFiles>();
  Ref<OutputSpooler> output_ = make<OutputSpooler>(make<Paper>(), trace_, "\f");
  Ref<tarvo::clsUtilImp> printer_ = make<tarvo::clsUtilImp>(output_);
  LibTarvoCI::CoreServices services_;
  JobRun run_;
};

void printJobOf(std::string_view text) {
  Job job = readJob(readJsonText(text, kFile));
  if (reachesForFiles(job)) return;
  job.copies = std::min(job.copies, kMostCopies);
  const Profile profile = profileOf(job);
  const JobData data = openData(job);
  World(job, profile, data).print();
}

// A job file with the members of the input.
class Members {
 public:
  explicit Members(std::string_view input) {
    std::istringstream lines{std::string(input)};
    for (std::string line; std::getline(lines, line);) take(line);
  }

  std::string job() const {
    return "{\"title\": \"T\", \"directory\": \"p\"" + (isForm_ ? kForm : kMasterDetail) + top_ +
           ", \"record\": {" + record_ + "}" +
           (isForm_ ? "" : ", \"details\": [{" + details_ + "}]") + "}";
  }

 private:
  static inline const std::string kProfile = R"(, "profile": {"CanPrintInTextMode": true})";
  static inline const std::string kForm =
      R"(, "report": "form", "firstSheet": "U", "secondSheet": "D")" + kProfile;
  static inline const std::string kMasterDetail =
      R"(, "report": "master-detail", "template": "T", "subtotal": "R.A")" + kProfile;

  void take(const std::string& line) {
    if (line == "F") isForm_ = true;
    if (line == "n") details_ += "}, {";
    if (line.size() < 2 || !isMember(line.substr(1))) return;
    if (line[0] == 'r') add(record_, line);
    if (line[0] == 'd') add(details_, line);
    if (line[0] == 't') top_ += ", " + line.substr(1);
  }

  static void add(std::string& members, const std::string& line) {
    if (!members.empty() && !members.ends_with('{')) members += ", ";
    members.append(line, 1);
  }

  static bool isMember(const std::string& text) {
    try {
      return readJsonText("{" + text + "}", kFile).members().size() == 1;
    } catch (const Mistake&) {
      return false;
    }
  }

  std::string top_;
  std::string record_;
  std::string details_;
  bool isForm_ = false;
};

}  // namespace
}  // namespace tarvordp::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvordp;
  const std::string text(data, data + std::min(size, fuzz::kLongestInput));
  try {
    fuzz::printJobOf(text.starts_with('{') ? text : fuzz::Members(text).job());
  } catch (const Mistake& mistake) {
    const std::string told = mistake.what();
    tarvo::fuzz::require(told.starts_with(fuzz::kFile), "a mistake names the file");
  }
  return 0;
}
