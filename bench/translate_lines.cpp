// Makes so many lines one way and does nothing else, so that its instructions can be counted:
// translate_lines template|asked|hand COUNT.  See instructions.sh.
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "template_lines.h"

namespace {

template <class Way>
std::size_t make(long count) {
  const auto invoices = tarvo::bench::invoices();
  Way way;
  std::size_t characters = 0;
  for (long i = 0; i < count; ++i) {
    characters += way.lineOf(invoices[static_cast<std::size_t>(i) % invoices.size()]).size();
  }
  return characters;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const std::string_view way = argv[1];
  const long count = std::atol(argv[2]);
  if (way == "template") {
    std::printf("%zu\n", make<tarvo::bench::TemplateWay>(count));
  } else if (way == "asked") {
    std::printf("%zu\n", make<tarvo::bench::AskedWay>(count));
  } else if (way == "hand") {
    std::printf("%zu\n", make<tarvo::bench::HandWrittenWay>(count));
  } else {
    std::fprintf(stderr, "translate_lines: unknown way %s\n", argv[1]);
    return 2;
  }
  return 0;
}
