// A page output for tests: keeps every report that it is given, and writes the calls down.
//
//   auto output = make<RecordingPageOutput>(log);
//   auto channel = make<clsARObRep>(output);
//   ...
//   EXPECT_EQ(output->reports.at(0).text(), "FACTURA\n\nTotal\n");
//
// A line of the log is "show \"Ventas\", modal", "print \"Ventas\", \"EPSON\"" or "save ...".
#pragma once

#include <string>
#include <vector>

#include "equipment/call_log.h"
#include "frame/enums.h"
#include "graphic/page_output.h"

namespace tarvo::test {

class RecordingPageOutput final : public PageOutput {
 public:
  explicit RecordingPageOutput(CallLog& log) : log_(log) {}

  // The error takes the call's place: the report is not kept.
  Fault fault;

  struct Report {
    ePrintingDevice device;
    Text title;
    Text printerName;  // of a report that is shown: empty
    bool modal;        // of a report that is not shown: false
    Ref<const PagedText> pages;

    // The rows, each with a line end; a page after the first begins with a line "-- page 2". As in
    // inQuotes(), what nobody can see is a number in angle brackets.
    std::string text() const;
  };
  std::vector<Report> reports;

  void show(const Ref<const PagedText>& pages, TextView title, bool modal) override;
  void print(const Ref<const PagedText>& pages, TextView title, TextView printerName) override;
  void save(const Ref<const PagedText>& pages, TextView title, TextView printerName) override;

 private:
  void keep(std::string call, Report report);

  CallLog& log_;
};

// The rows of pages, as above.
std::string pagesText(const PagedText& pages);

}  // namespace tarvo::test
