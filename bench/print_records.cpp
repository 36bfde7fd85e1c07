// Prints a ledger of so many records one way and does nothing else, so that its instructions and
// its time can be counted: print_records report|hand COUNT [FILE].  See instructions.sh.
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "report_records.h"

int main(int argc, char** argv) {
  if (argc != 3 && argc != 4) return 2;
  const std::string_view way = argv[1];
  const long count = std::atol(argv[2]);
  const char* path = argc == 4 ? argv[3] : "/dev/null";
  if (way == "report") {
    tarvo::bench::printLedger(u"file:" + tarvo::fromUtf8(path), count);
  } else if (way == "hand") {
    tarvo::bench::printLedgerByHand(path, count);
  } else {
    std::fprintf(stderr, "print_records: unknown way %s\n", argv[1]);
    return 2;
  }
  return 0;
}
