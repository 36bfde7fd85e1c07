// A page output that writes down what it gets.
//
//   show "Recibo" modal        print "Recibo" on "LX-300"        save "Recibo" for ""
//   uno                        and every row of every page
//   -- page 2 --
#pragma once

#include "equipment/bytes_dump.h"
#include "equipment/call_log.h"
#include "graphic/page_output.h"

namespace tarvo::test {

class PageLog final : public PageOutput {
 public:
  explicit PageLog(CallLog& log) : log_(log) {}

  Fault fault;

  void show(const Ref<const PagedText>& pages, TextView title, bool modal) override {
    take("show " + inQuotes(title) + (modal ? " modal" : ""), *pages);
  }
  void print(const Ref<const PagedText>& pages, TextView title, TextView printerName) override {
    take("print " + inQuotes(title) + " on " + inQuotes(printerName), *pages);
  }
  void save(const Ref<const PagedText>& pages, TextView title, TextView printerName) override {
    take("save " + inQuotes(title) + " for " + inQuotes(printerName), *pages);
  }

 private:
  void take(std::string what, const PagedText& pages) {
    fault.countCall();
    log_.add(std::move(what));
    for (std::size_t page = 0; page < pages.pageCount(); ++page) {
      if (page > 0) log_.add("-- page " + std::to_string(page + 1) + " --");
      for (std::size_t row = 0; row < pages.rowsOnPage(page); ++row) {
        log_.add(toUtf8(pages.row(page, row)));
      }
    }
  }

  CallLog& log_;
};

}  // namespace tarvo::test
