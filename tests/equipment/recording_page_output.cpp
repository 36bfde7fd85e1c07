#include "equipment/recording_page_output.h"

#include "equipment/show_arguments.h"

namespace tarvo::test {

std::string pagesText(const PagedText& pages) {
  std::string all;
  for (std::size_t page = 0; page < pages.pageCount(); ++page) {
    if (page > 0) all += "-- page " + std::to_string(page + 1) + "\n";
    for (std::size_t row = 0; row < pages.rowsOnPage(page); ++row) {
      const std::string shown = inQuotes(pages.row(page, row));
      all += shown.substr(1, shown.size() - 2) + "\n";
    }
  }
  return all;
}

std::string RecordingPageOutput::Report::text() const { return pagesText(*pages); }

void RecordingPageOutput::show(const Ref<const PagedText>& pages, TextView title, bool modal) {
  keep("show " + showArguments(title) + (modal ? ", modal" : ", modeless"),
       {ePD_Screen, Text(title), {}, modal, pages});
}

void RecordingPageOutput::print(const Ref<const PagedText>& pages, TextView title,
                                TextView printerName) {
  keep("print " + showArguments(title, printerName),
       {ePD_Printer, Text(title), Text(printerName), false, pages});
}

void RecordingPageOutput::save(const Ref<const PagedText>& pages, TextView title,
                               TextView printerName) {
  keep("save " + showArguments(title, printerName),
       {ePD_Disk, Text(title), Text(printerName), false, pages});
}

void RecordingPageOutput::keep(std::string call, Report report) {
  log_.add(std::move(call));
  fault.countCall();
  reports.push_back(std::move(report));
}

}  // namespace tarvo::test
