// Prints pages for the test with a real print server.
//
//   print_pages PRINTER TITLE ROWS     so many numbered rows
//
// An error is printed as its number and description; the exit code is then 1.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "graphic/page_output.h"

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const auto pages = tarvo::make<tarvo::PagedText>(tarvo::PageFormat());
  for (int i = 1; i <= std::atoi(argv[3]); ++i) {
    pages->addRow(u"Fila " + tarvo::fromAscii(std::to_string(i)));
  }
  try {
    tarvo::platform::makePageOutput()->print(pages, tarvo::fromUtf8(argv[2]),
                                             tarvo::fromUtf8(argv[1]));
  } catch (const tarvo::RunTimeError& error) {
    std::printf("%d: %s\n", error.number(), tarvo::toUtf8(error.description()).c_str());
    return 1;
  }
  return 0;
}
