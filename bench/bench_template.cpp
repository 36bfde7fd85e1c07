// What a line costs on its way through the template language, beside a hand-written program.
#include <benchmark/benchmark.h>

#include <cstdio>

#include "count_allocations.h"
#include "template_lines.h"

namespace tarvo::bench {
namespace {

template <class Way>
void makeLines(benchmark::State& state) {
  const auto invoices = tarvo::bench::invoices();
  Way way;
  for (const Invoice& invoice : invoices) way.lineOf(invoice);
  std::size_t next = 0;
  {
    CountAllocations counting(state);
    for (auto _ : state) {
      benchmark::DoNotOptimize(way.lineOf(invoices[next]));
      next = (next + 1) % invoices.size();
    }
  }
  state.SetItemsProcessed(state.iterations() * (kVariables + kControlWords));
}

// A yardstick that measures something else is none.
bool bothMakeTheSame() {
  TemplateWay byTemplate;
  HandWrittenWay byHand;
  for (const Invoice& invoice : invoices()) {
    const Text line = byTemplate.lineOf(invoice);
    if (line == byHand.lineOf(invoice)) continue;
    std::fprintf(stderr, "bench_template: the two ways differ:\n%s\n%s\n", toUtf8(line).c_str(),
                 toUtf8(byHand.lineOf(invoice)).c_str());
    return false;
  }
  return true;
}

}  // namespace
}  // namespace tarvo::bench

int main(int argc, char** argv) {
  if (!tarvo::bench::bothMakeTheSame()) return 1;
  benchmark::RegisterBenchmark("line/template",
                               &tarvo::bench::makeLines<tarvo::bench::TemplateWay>);
  benchmark::RegisterBenchmark("line/hand", &tarvo::bench::makeLines<tarvo::bench::HandWrittenWay>);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
