// Prints reports on a printer of the Windows spooler:
//
//   printed_pages PRINTER
//
// One job for each kind of page, and one from the preview window, in whose dialog an operator asks
// for two of the pages; test_page_output_printed.py looks at them.  Ends with 42.
#include <windows.h>
// windows.h must come first.
#include <dlgs.h>
#include <winspool.h>

#include <cstdio>

#include "frame/run_time_error.h"
#include "graphic/page_output.h"
#include "ui/preview_operator.h"

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

DWORD WINAPI printPages2And3(void*) {
  const HWND window = test::Operator::waitForWindow(L"Desde la ventana");
  test::Operator::giveInput(window);
  test::press('P', VK_CONTROL);
  const HWND dialog = test::Operator::waitForDialog();
  SendDlgItemMessageW(dialog, rad3, BM_CLICK, 0, 0);
  SetDlgItemTextW(dialog, edt1, L"2");
  SetDlgItemTextW(dialog, edt2, L"3");
  PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  test::comesTrue([dialog] { return !IsWindow(dialog); });
  // It is back when it has printed.
  test::comesTrue([window] { return IsWindowEnabled(window); });
  PostMessageW(window, WM_CLOSE, 0, 0);
  return 0;
}

void printFromWindow(TextView printer) {
  const std::wstring name(printer.begin(), printer.end());
  SetDefaultPrinterW(name.c_str());
  const HANDLE person = CreateThread(nullptr, 0, &printPages2And3, nullptr, 0, nullptr);
  platform::makePageOutput()->show(ruledPages({}, 250), u"Desde la ventana", true);
  WaitForSingleObject(person, INFINITE);
  CloseHandle(person);
}

}  // namespace
}  // namespace tarvo

int main(int count, char** words) {
  if (count != 2) return 2;
  try {
    const tarvo::Text printer = tarvo::fromUtf8(words[1]);
    tarvo::printAll(printer);
    tarvo::printFromWindow(printer);
  } catch (const tarvo::RunTimeError& error) {
    std::puts(error.what());
    return 1;
  }
  return 42;
}
