// Writes one kind of line so many times and does nothing else, so that its instructions can be
// counted: write_lines KIND COUNT.  See instructions.sh.
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "printer_lines.h"

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  for (const tarvo::bench::PrinterLine& line : tarvo::bench::kPrinterLines) {
    if (line.name != std::string_view(argv[1])) continue;
    const tarvo::Ref<tarvo::clsUtilImp> channel = tarvo::bench::openPrinter();
    for (int left = std::atoi(argv[2]); left > 0; --left) {
      channel->sWriteLn(line.text, line.leftMargin);
    }
    channel->sClosePrinterFileHandle();
    return 0;
  }
  std::fprintf(stderr, "write_lines: unknown kind %s\n", argv[1]);
  return 2;
}
