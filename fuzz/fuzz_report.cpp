// Whole reports, from the template to the printer's bytes, on arbitrary input.
//
// An input is what a person could type: a line of settings, the answers, a line "%%", and the
// template.  Settings, one character each, in any order:
//   F        the form report; else the master-detail report
//   G        a printer without text mode: the graphic channel
//   1 to 9   so many records; "M" a thousand of them
//   c        two copies, or both sheets      h  half-letter paper
//   t  p     five top margin lines, points   L  a page of 8 lines (66 is the default), Z  of none
// Answers, a line each, given in turn to whatever asks; the first character is the kind:
//   #-12.5   a number   e...  an enumeration   ?  not known   !  an error   @...  the last pass
//   ^...     the section is read forward to that text         and any other line is a text
//
// A report ends: printed, or in an error of those that a template, a client or a counter can cause.
// No template stays open, and the report object prints a plain template afterwards as ever.
#include <algorithm>
#include <string>
#include <vector>

#include "frame/codepage.h"
#include "frame/modRDPGlobalValues.h"
#include "fuzzing.h"
#include "printer/clsUtilImp.h"
#include "reports/clsObRepMasterDetail.h"
#include "reports/clsObRepPlanilla.h"
#include "services/clsConvert.h"
#include "services/clsTexto.h"
#include "services/clsUtReport.h"
#include "services/clsUtilDate.h"
#include "services/clsUtilMathOperations.h"
#include "tests/equipment/forwarding_services.h"
#include "tests/equipment/memory_text_files.h"

namespace tarvo::fuzz {
namespace {

// What has no end, or a far one, ends early.
constexpr std::size_t kLongestInput = 2'000;
constexpr int kMostAnswers = 400;
constexpr int kMostMessages = 40;
constexpr int kMostWrites = 20'000;
constexpr std::size_t kMostBytes = 20'000'000;
constexpr int kMostAccesses = 100'000;  // of template files
constexpr int kMostRecordsOfPages = 3;  // the graphic channel keeps every line
constexpr std::int16_t kMostBlanks = 99;

constexpr std::int32_t kClientRaises = 4711;
constexpr std::int32_t kOperatorRaises = 4712;

class Operator final : public test::ForwardingMessage {
 public:
  void sShowMessageWithTitle(TextView, TextView) override { count(); }
  void sWarning(Text&) override { count(); }
  void sWarningWithTitle(TextView, TextView) override { count(); }
  bool fAskAcceptCancel(TextView, TextView) override {
    count();
    return true;
  }

 private:
  void count() {
    if (++messages_ > kMostMessages) throw RunTimeError(kOperatorRaises);
  }
  int messages_ = 0;
};

// Leaves descriptions as they are: an error that comes out of two hundred pages within one another
// would spend all the time on its trail.
class TerseError final : public clsError {
 public:
  void fDescribeError(TextView valDescription, TextView, TextView, TextView, std::int16_t,
                      std::int32_t, TextView, std::int32_t, std::int32_t, Text& result) override {
    result = valDescription;
  }
};

// Counts of blanks may fill any memory: they end early here.
class ThriftyConvert final : public test::ForwardingConvert {
 public:
  std::int16_t fTextToInteger(TextView valText) override {
    const std::int16_t number = ForwardingConvert::fTextToInteger(valText);
    if (number > kMostBlanks) throw RunTimeError(kOverflow);
    return number;
  }
};

class Paper final : public Spooler {
 public:
  std::string bytes;
  int openJobs = 0;

  bool openPrinter(TextView, PrinterHandle& handle) override {
    handle = 1;
    return true;
  }
  bool startDocument(PrinterHandle, const DocumentDescription&) override {
    ++openJobs;
    return true;
  }
  bool startPage(PrinterHandle) override { return true; }
  bool write(PrinterHandle, std::string_view written) override {
    bytes += written;
    if (++writes_ > kMostWrites || bytes.size() > kMostBytes) throw RunTimeError(kOutOfMemory);
    return true;
  }
  bool endPage(PrinterHandle) override { return true; }
  bool endDocument(PrinterHandle) override {
    --openJobs;
    return true;
  }
  bool closePrinter(PrinterHandle) override { return true; }
  std::int32_t lastError() const noexcept override { return 0; }

 private:
  int writes_ = 0;
};

class NoPages final : public PageOutput {
 public:
  void show(const Ref<const PagedText>&, TextView, bool) override {}
  void print(const Ref<const PagedText>&, TextView, TextView) override {}
  void save(const Ref<const PagedText>&, TextView, TextView) override {}
};

struct Input {
  std::string settings;
  std::vector<std::string> answers;
  std::string templateBytes;

  bool has(char setting) const { return settings.find(setting) != std::string::npos; }
  int records() const {
    const std::size_t digit = settings.find_first_of("123456789");
    const int few = digit == std::string::npos ? 0 : settings[digit] - '0';
    const int count = has('M') ? 1000 : few;
    return has('G') ? std::min(count, kMostRecordsOfPages) : count;
  }
};

Input read(const std::uint8_t* data, std::size_t size) {
  const std::string all(data, data + std::min(size, kLongestInput));
  Input input;
  std::size_t from = all.find('\n');
  input.settings = all.substr(0, from);
  while (from != std::string::npos) {
    const std::size_t to = all.find('\n', from + 1);
    const std::string line = all.substr(from + 1, to == std::string::npos ? to : to - from - 1);
    from = to;
    if (line == "%%") break;
    input.answers.push_back(line);
  }
  if (from != std::string::npos) input.templateBytes = all.substr(from + 1);
  return input;
}

// What both kinds of client answer.
class Answers {
 public:
  explicit Answers(const Input& input) : input_(input) {}

  clsObRepMasterDetail* report = nullptr;

  bool give(clsObLineCharacts& line) {
    count();
    if (input_.answers.empty()) return false;
    const std::string& answer =
        input_.answers[static_cast<std::size_t>(given_) % input_.answers.size()];
    clsObSpecialVar& variable = *line.GetSpecialVar();
    Text text;
    CodePage::windows1252().decode(answer, text);
    const TextView rest = TextView(text).substr(text.empty() ? 0 : 1);
    switch (answer.empty() ? '=' : answer[0]) {
      case '#':
        variable.SetContentNumeric(Currency{static_cast<std::int64_t>(answer.size()) * 12'345},
                                   answer.size() % 2 == 0);
        return true;
      case 'e':
        variable.SetContentEnum(rest);
        return true;
      case '?':
        return false;
      case '!':
        throw RunTimeError(kClientRaises);
      case '@':
        variable.SetContentString(rest);
        variable.SetEndOfRepeatPrintLine(given_ % 3 == 0);
        return true;
      case '^': {
        Text read;
        if (report != nullptr) report->fReadFileUntilLineFrom(rest, read);
        variable.SetContentString(read.substr(0, 20));
        return true;
      }
      default:
        variable.SetContentString(text);
        return true;
    }
  }

  void count() {
    if (++given_ > kMostAnswers) throw RunTimeError(kClientRaises);
  }

 private:
  const Input& input_;
  int given_ = 0;
};

class FormClient final : public clsImplementIDTraduc {
 public:
  explicit FormClient(Answers& answers) : answers_(answers) {}
  bool fTranslateSpecialVar(Ref<clsObLineCharacts>& line) override { return answers_.give(*line); }
  void sDisplayPauseDialog() override { answers_.count(); }

 private:
  Answers& answers_;
};

class MasterDetailClient final : public clsImplementIDMD {
 public:
  MasterDetailClient(Answers& answers, int records) : answers_(answers), records_(records) {}

  bool fTranslateSpecialVarMD(Ref<clsObLineCharacts>& line, Currency) override {
    return answers_.give(*line);
  }
  void sDisplayPauseDialog() override { answers_.count(); }
  bool fReadFirstRecord() override {
    read_ = 1;
    return records_ > 0;
  }
  bool fReadNextRecord() override { return ++read_ <= records_; }
  void sAccumSubTotal(Currency& subTotal) override { subTotal += Currency::ofUnits(read_); }
  bool fCanExecuteWriteReport(bool&, Text&) override { return true; }
  std::int32_t fDetailRecordCount() override { return records_; }

 private:
  Answers& answers_;
  int records_;
  int read_ = 0;
};

class World {
 public:
  explicit World(const Input& input) : input_(input) {
    modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
    services = modRDPGlobalValues();
    services.refInsError = make<TerseError>();
    services.refInsMessage = make<Operator>();
    services.refInsTexto = make<LibTarvoCI::clsTexto>();
    services.refInsConvert = make<ThriftyConvert>();
    services.refInsUtilDate = make<LibTarvoCI::clsUtilDate>();
    services.refInsUtilMathOperations = make<LibTarvoCI::clsUtilMathOperations>();
    services.refInsUtilFile = make<test::MemoryFileService>(files_);
    services.refInsUtReport = make<LibTarvoCI::clsUtReport>();
    services.refInsImp = printer_;
    fillProfile();
    files_->write(u"F/P.ID", input.templateBytes);
    files_->beforeAccess = [](int access) {
      if (access > kMostAccesses) throw RunTimeError(kDeviceError);
    };
  }
  World(const World&) = delete;
  ~World() { modRDPGlobalValues::ofThisThread() = modRDPGlobalValues(); }

  void printForm() {
    Answers answers(input_);
    Ref<clsImplementIDTraduc> client = make<FormClient>(answers);
    const auto form = make<clsObRepPlanilla>(ports());
    const auto print = [&] {
      form->sInit(client, u"Prueba", u"", u"", u"", u"F/", ePOD_Definitiva,
                  input_.has('c') ? eHP_AmbasHojas : eHP_PrimeraHoja);
      form->SetFileNameIDFirstSheet(u"P");
      form->SetFileNameIDSecondSheet(u"P");
      form->sPrintReport();
    };
    attempt(print);
    expectPlain(print, "uno\ndos\n", "uno\r\ndos\r\n");
  }

  void printMasterDetail() {
    Answers answers(input_);
    Ref<clsImplementIDMD> client = make<MasterDetailClient>(answers, input_.records());
    const auto report = make<clsObRepMasterDetail>(ports());
    answers.report = report.get();
    const auto print = [&] {
      report->sInit(client, u"Prueba", u"", u"", u"P", u"F/", input_.has('c') ? 2 : 1);
      report->SetIsHalfLetterPaper(input_.has('h'));
      if (input_.has('t')) report->SetTopMarginLines(5);
      if (input_.has('p')) report->SetTopMarginPoints(5);
      report->sPrintReport();
    };
    const auto printPlain = [&] {
      Ref<clsImplementIDMD> none = make<MasterDetailClient>(answers, 0);
      report->sInit(none, u"Prueba", u"", u"", u"P", u"F/", 1);
      report->sPrintReport();
    };
    attempt(print);
    expectPlain(printPlain, "...NMAXLINPAGINA=66\nuno\n{CUERPO=1}\n{FINCUERPO}\ndos\n",
                "uno\r\n\r\ndos\r\n");
  }

 private:
  ReportPorts ports() const { return {files_, make<NoPages>()}; }

  void fillProfile() {
    printer_->SetPrinterName(u"Papel");
    printer_->SetCanPrintInTextMode(!input_.has('G'));
    printer_->SetMaxLinPage(input_.has('Z') ? 0 : input_.has('L') ? 8 : 66);
    printer_->SetChrFormFeed(u"\f");
    printer_->SetChrNormal(u"\x12");
    printer_->SetChrCondensed(u"\x0F");
  }

  template <class Print>
  void attempt(Print print) {
    const int openBefore = paper_->openJobs;
    try {
      print();
      require(paper_->openJobs == openBefore, "a report that ends has ended its jobs");
    } catch (const RunTimeError& error) {
      checkError(error.number());
    }
    require(files_->openStreams() == 0, "no template stays open");
  }

  // 57 is the limit of the template's accesses, 91 a client that reads forward where nothing is
  // read.
  static void checkError(std::int32_t number) {
    require(number == kInvalidProcedureCall || number == kOverflow || number == kOutOfMemory ||
                number == kSubscriptOutOfRange || number == kTypeMismatch ||
                number == kOutOfStackSpace || number == kDeviceError || number == kObjectNotSet ||
                number == kClientRaises || number == kOperatorRaises,
            "a report ends in an error that a template, a client or a counter can cause");
  }

  // Whatever the report went through, it prints this as a new one does.
  template <class Print>
  void expectPlain(Print print, const char* plain, const std::string& prints) {
    files_->write(u"F/P.ID", plain);
    files_->beforeAccess = nullptr;
    const auto paper = make<Paper>();
    printer_ = make<clsUtilImp>(paper);
    modRDPGlobalValues::ofThisThread().refInsImp = printer_;
    modRDPGlobalValues::ofThisThread().refInsMessage = make<Operator>();
    fillProfile();
    printer_->SetMaxLinPage(66);
    printer_->SetCanPrintInTextMode(true);
    print();
    require(files_->openStreams() == 0, "no template stays open");
    require(paper->bytes.starts_with("\x12" + prints), "the next report prints as ever");
  }

  const Input& input_;
  Ref<test::MemoryTextFiles> files_ = make<test::MemoryTextFiles>();
  Ref<Paper> paper_ = make<Paper>();
  Ref<clsUtilImp> printer_ = make<clsUtilImp>(paper_);
};

}  // namespace
}  // namespace tarvo::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvo::fuzz;
  const Input input = read(data, size);
  World world(input);
  if (input.has('F')) {
    world.printForm();
  } else {
    world.printMasterDetail();
  }
  return 0;
}
