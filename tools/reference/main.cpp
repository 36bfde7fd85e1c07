// tarvo-reference: writes the reference of the public classes to the standard output.
#include <cstdio>

#include "reference/reference.h"

int main() {
  const std::string page = tarvo::reference::page();
  const bool written = std::fwrite(page.data(), 1, page.size(), stdout) == page.size();
  return written && std::fflush(stdout) == 0 ? 0 : 1;
}
