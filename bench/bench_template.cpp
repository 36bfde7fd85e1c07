// What a line costs on its way through the template language, beside a hand-written program.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <type_traits>

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
    // Who must be asked gets and gives texts of his own.
    CountAllocations counting(state, std::is_same_v<Way, AskedWay>);
    for (auto _ : state) {
      benchmark::DoNotOptimize(way.lineOf(invoices[next]));
      next = (next + 1) % invoices.size();
    }
  }
  state.SetItemsProcessed(state.iterations() * (kVariables + kControlWords));
}

// A yardstick that measures something else is none.
template <class Way>
bool makesTheSameAsByHand() {
  Way way;
  HandWrittenWay byHand;
  for (const Invoice& invoice : invoices()) {
    const Text line = way.lineOf(invoice);
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
  using namespace tarvo::bench;
  if (!makesTheSameAsByHand<TemplateWay>() || !makesTheSameAsByHand<AskedWay>()) return 1;
  benchmark::RegisterBenchmark("line/template", &makeLines<TemplateWay>);
  benchmark::RegisterBenchmark("line/asked", &makeLines<AskedWay>);
  benchmark::RegisterBenchmark("line/hand", &makeLines<HandWrittenWay>);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
