// What the tests of the graphic channel stand on: a channel whose services, table and output write
// down every call.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "equipment/call_log.h"
#include "equipment/errors.h"
#include "equipment/recording_page_output.h"
#include "equipment/recording_services.h"
#include "equipment/show_arguments.h"
#include "frame/late_object.h"
#include "frame/modRDPGlobalValues.h"
#include "graphic/clsARObRep.h"
#include "graphic/memory_line_table.h"
#include "printer/clsUtilImp.h"
#include "services/clsTexto.h"
#include "services/clsUtReport.h"

namespace tarvo::test {

// The report utility: hands every call on to the stand-in, unless it is told to refuse the layout.
class RecordingUtReport final : public clsUtReport {
 public:
  explicit RecordingUtReport(CallLog& log) : log_(log) {}

  Fault fault;
  bool appliesLayouts = true;

  void fLoadLayout(TextView valLayoutName, TextView valReportTitle, Text& result) override {
    record("fLoadLayout", showArguments(valLayoutName, valReportTitle));
    next_->fLoadLayout(valLayoutName, valReportTitle, result);
  }
  bool fApplyLayout(Ref<Object>& refReport, TextView valLayout) override {
    record("fApplyLayout", about(refReport, showArguments(valLayout)));
    return appliesLayouts && next_->fApplyLayout(refReport, valLayout);
  }
  void sBindText(Ref<Object>& refReport, TextView valControlName, TextView valColumnName,
                 std::int32_t valWidth) override {
    record("sBindText", about(refReport, showArguments(valControlName, valColumnName, valWidth)));
    next_->sBindText(refReport, valControlName, valColumnName, valWidth);
  }
  void sSetFont(Ref<Object>& refReport, TextView valControlName, TextView valFontName,
                std::int16_t valSize, bool valBold, bool valItalic) override {
    record("sSetFont", about(refReport, showArguments(valControlName, valFontName, valSize, valBold,
                                                      valItalic)));
    next_->sSetFont(refReport, valControlName, valFontName, valSize, valBold, valItalic);
  }
  void sRunReport(Ref<Object>& refReport, bool valToPrinter, TextView valReportTitle, bool valModal,
                  TextView valPrinterName, ePrintingDevice valDevice, TextView valOption1,
                  TextView valOption2) override {
    record("sRunReport",
           about(refReport,
                 showArguments(valToPrinter, valReportTitle, valModal, valPrinterName,
                               static_cast<std::int32_t>(valDevice), valOption1, valOption2)));
    next_->sRunReport(refReport, valToPrinter, valReportTitle, valModal, valPrinterName, valDevice,
                      valOption1, valOption2);
  }

 private:
  void record(const std::string& operation, const std::string& arguments) {
    log_.add(operation + " " + arguments);
    fault.countCall();
  }

  // A report is shown by its type.
  static std::string about(const Ref<Object>& report, const std::string& arguments) {
    auto* late = dynamic_cast<LateObject*>(report.get());
    return (late == nullptr ? "?" : toUtf8(late->typeName())) + ", " + arguments;
  }

  CallLog& log_;
  Ref<LibTarvoCI::clsUtReport> next_ = make<LibTarvoCI::clsUtReport>();
};

// A table in memory that writes down its calls, and can fail at its nth.
class RecordingLineTable final : public LineTable {
 public:
  // Of all tables: a channel makes them by a plain function.
  static inline CallLog* log = nullptr;
  static inline Fault fault;
  static Ref<LineTable> makeOne() {
    record("make");
    return make<RecordingLineTable>();
  }

  void addRow(TextView text) override {
    record("addRow " + show(text));
    next_->addRow(text);
  }
  void moveFirst() override {
    record("moveFirst");
    next_->moveFirst();
  }
  bool atEnd() override { return next_->atEnd(); }
  void text(Text& result) override { next_->text(result); }
  void moveNext() override { next_->moveNext(); }
  bool isOpen() noexcept override { return next_->isOpen(); }
  void close() override {
    record("close");
    next_->close();
  }

 private:
  static void record(const std::string& line) {
    if (log != nullptr) log->add("table " + line);
    fault.countCall();
  }

  Ref<LineTable> next_ = makeMemoryLineTable();
};

class GraphicTest : public ::testing::Test {
 protected:
  GraphicTest() {
    forgetServices();
    modRDPGlobalValues& values = modRDPGlobalValues::ofThisThread();
    values.refInsError = error;
    values.refInsTexto = texto;
    values.refInsImp = printer;
    values.refInsUtReport = utility;
    RecordingLineTable::log = &calls;
    RecordingLineTable::fault.never();
    printer->SetChrCondensed(u"<cond>");
    printer->SetChrInitExpanded(u"<exp>");
    printer->SetChrEndExpanded(u"</exp>");
    printer->SetChrNormal(u"<norm>");
    printer->SetChrBold(u"<bold>");
    printer->SetChrLight(u"<light>");
    printer->SetChrReset(u"\x1B@");
  }
  ~GraphicTest() override {
    RecordingLineTable::log = nullptr;
    forgetServices();
  }

  static void forgetServices() {
    modRDPGlobalValues::ofThisThread() = modRDPGlobalValues();
    setLastSystemError(0);
  }

  void begin(ePrintingDevice device = ePD_Screen) { channel->sInit(u"EPSON", u"Ventas", device); }

  // The calls that one action makes, of the table, the report utility and the output.
  template <class Action>
  std::string callsOf(Action&& action) {
    calls.clear();
    action();
    return calls.text();
  }

  // The rows of the report that the action produces.
  template <class Action>
  std::string rowsOf(Action&& action) {
    output->reports.clear();
    begin();
    action();
    channel->sCloseGraphicHandle();
    return output->reports.size() == 1 ? output->reports[0].text() : "(no report)";
  }

  CallLog calls;      // of the table, the report utility and the output
  CallLog textCalls;  // of the text service
  CallLog errorCalls;
  Ref<RecordingError> error = make<RecordingError>(errorCalls);
  Ref<RecordingTexto> texto = make<RecordingTexto>(textCalls, make<LibTarvoCI::clsTexto>());
  Ref<RecordingUtReport> utility = make<RecordingUtReport>(calls);
  Ref<RecordingPageOutput> output = make<RecordingPageOutput>(calls);
  Ref<clsUtilImp> printer = make<clsUtilImp>(nullptr);  // for its control codes alone
  Ref<clsARObRep> channel = make<clsARObRep>(output, RecordingLineTable::makeOne);
};

}  // namespace tarvo::test
