// What the tests of the reports stand on: services and a spooler that write down their calls,
// templates in memory, a clock that stands still.
#pragma once

#include <string>

#include "equipment/bytes_dump.h"
#include "equipment/call_log.h"
#include "equipment/errors.h"
#include "equipment/memory_text_files.h"
#include "equipment/recording_services.h"
#include "equipment/recording_spooler.h"
#include "frame/modRDPGlobalValues.h"
#include "page_log.h"
#include "printer/clsUtilImp.h"
#include "reports/report_ports.h"
#include "services/clsConvert.h"
#include "services/clsTexto.h"
#include "services/clsUtReport.h"
#include "services/clsUtilDate.h"
#include "services/clsUtilMathOperations.h"

namespace tarvo::test {

// The date service at 14:05:09 of 15 March 2026.
class StoppedClock final : public clsUtilDate {
 public:
  static Date today() { return dateOf({2026, 3, 15, 0, 0, 0}); }

  Fault fault;  // of fToday alone

  Date fToday() override {
    fault.countCall();
    return today();
  }
  void fTimeText(Text& result) override { result = u"14:05:09"; }
  void fFormatDate(Date valDate, TextView valFormat, Text& result) override {
    next_->fFormatDate(valDate, valFormat, result);
  }
  void fDefaultDateText(Date valDate, Text& result) override {
    next_->fDefaultDateText(valDate, result);
  }
  std::int16_t fYear(Date valDate) override { return next_->fYear(valDate); }

 private:
  Ref<clsUtilDate> next_ = make<LibTarvoCI::clsUtilDate>();
};

// A template as a person types it, in the bytes of the file.
inline std::string templateBytes(const std::string& typed) {
  std::string bytes;
  CodePage::ofSystem().encode(fromUtf8(typed), bytes);
  return bytes;
}

// A printer's codes, one printable pair each, so that a dump shows at once which they are.
inline void fillReportProfile(clsUtilImp& printer) {
  printer.SetPrinterName(u"LX-300");
  printer.SetMaxLinPage(66);
  printer.SetCanPrintInTextMode(true);
  printer.SetChrFormFeed(u"\f");
  printer.SetChrReset(u"\x1B@");
  printer.SetChrNormal(u"\x12");
  printer.SetChrCondensed(u"\x0F");
  printer.SetChrBold(
      u"\x1B"
      u"E");
  printer.SetChrLight(
      u"\x1B"
      u"F");
  printer.SetChrInitExpanded(u"\x1BW1");
  printer.SetChrEndExpanded(u"\x1BW0");
  printer.SetChrHighLine1Point(
      u"\x1B"
      u"A1");
  printer.SetChrHighLine12Points(
      u"\x1B"
      u"A2");
  printer.SetChrFont10Points(u"\x1BP");
  printer.SetChrFont12Points(u"\x1BM");
}

class ReportWorld {
 public:
  ReportWorld() {
    modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
    services = modRDPGlobalValues();
    services.refInsError = error;
    services.refInsMessage = message;
    services.refInsTexto = make<LibTarvoCI::clsTexto>();
    services.refInsConvert = make<LibTarvoCI::clsConvert>();
    services.refInsUtilDate = clock;
    services.refInsUtilMathOperations = make<LibTarvoCI::clsUtilMathOperations>();
    services.refInsUtilFile = fileService;
    services.refInsUtReport = make<LibTarvoCI::clsUtReport>();
    services.refInsImp = printer;
    fillReportProfile(*printer);
  }
  ReportWorld(const ReportWorld&) = delete;
  ~ReportWorld() { modRDPGlobalValues::ofThisThread() = modRDPGlobalValues(); }

  ReportPorts ports() const { return {files, pages}; }

  // Every job that the spooler got: its name, "(open)" when it was not ended, and its bytes.
  std::string jobsText() const {
    std::string all;
    for (const RecordingSpooler::Job& job : spooler->jobs()) {
      all += "[" + toUtf8(job.documentName) + "]" + (job.isEnded ? "" : " (open)") + "\n";
      const std::string dump = bytesDump(job.bytes);
      all += dump;
      if (!dump.empty() && !dump.ends_with('\n')) all += '\n';
    }
    return all;
  }

  CallLog calls;         // of the client, the message service and the error service
  CallLog spoolerCalls;  // of the spooler
  CallLog pageCalls;     // of the page output
  Ref<RecordingError> error = make<RecordingError>(calls);
  Ref<RecordingMessage> message = make<RecordingMessage>(calls);
  Ref<RecordingSpooler> spooler = make<RecordingSpooler>(spoolerCalls);
  Ref<PageLog> pages = make<PageLog>(pageCalls);
  Ref<MemoryTextFiles> files = make<MemoryTextFiles>();
  Ref<MemoryFileService> fileService = make<MemoryFileService>(files);
  Ref<StoppedClock> clock = make<StoppedClock>();
  Ref<clsUtilImp> printer = make<clsUtilImp>(spooler);
};

// A setting of a case file: a keyword, and a value behind it or nothing.
struct Setting {
  explicit Setting(const std::string& line)
      : keyword(line.substr(0, line.find(' '))),
        value(line.size() > keyword.size() ? line.substr(keyword.size() + 1) : "") {}

  std::uint8_t byte() const { return static_cast<std::uint8_t>(std::stoi(value)); }

  // The printer's settings; false for any other.
  bool applyTo(clsUtilImp& printer) const {
    if (keyword == "printer") {
      printer.SetPrinterName(fromUtf8(value));
    } else if (keyword == "no-text-mode") {
      printer.SetCanPrintInTextMode(false);
    } else if (keyword == "page-length") {
      printer.SetMaxLinPage(byte());
    } else {
      return false;
    }
    return true;
  }

  std::string keyword;
  std::string value;
};

}  // namespace tarvo::test
