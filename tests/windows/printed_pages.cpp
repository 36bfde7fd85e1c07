// Prints reports on a printer of the Windows spooler:
//
//   printed_pages PRINTER
//
// One job for each kind of page; test_page_output_printed.py looks at them.  Ends with 42.
#include <cstdio>

#include "frame/run_time_error.h"
#include "graphic/page_output.h"

namespace tarvo {
namespace {

// Rows whose first and last columns, and one in the middle, are marked.
Ref<PagedText> ruledPages(PageFormat format, std::size_t rowCount) {
  const Ref<PagedText> pages = make<PagedText>(std::move(format));
  for (std::size_t row = 0; row < rowCount; ++row) {
    Text text(pages->columns(), row % 2 == 0 ? u'i' : u'W');
    const Text number = fromAscii(std::to_string(1000 + row));
    text.replace(0, 5, number + u" ");
    text.replace(50, 6, u" Ñandú");
    text.replace(text.size() - 5, 5, u" " + number);
    pages->addRow(text);
  }
  return pages;
}

PageFormat wideFormat() {
  PageFormat format;
  format.width = 24480;
  format.height = 15840;
  format.landscape = true;
  return format;
}

void printAll(TextView printer) {
  const Ref<PageOutput> output = platform::makePageOutput();
  output->print(ruledPages({}, 70), u"Relación nº 1", printer);
  output->print(ruledPages(wideFormat(), 66), u"Hoja ancha", printer);
  output->print(make<PagedText>(PageFormat()), u"Sin filas", printer);
}

}  // namespace
}  // namespace tarvo

int main(int count, char** words) {
  if (count != 2) return 2;
  try {
    tarvo::printAll(tarvo::fromUtf8(words[1]));
  } catch (const tarvo::RunTimeError& error) {
    std::puts(error.what());
    return 1;
  }
  return 42;
}
