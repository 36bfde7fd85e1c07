// What a line costs on its way through the printer channel into the file back-end.
#include <benchmark/benchmark.h>

#include <string>

#include "count_allocations.h"
#include "printer_lines.h"

namespace tarvo::bench {
namespace {

void writeLine(benchmark::State& state, const PrinterLine& line) {
  const Ref<clsUtilImp> channel = openPrinter();
  channel->sWriteLn(line.text, line.leftMargin);
  {
    CountAllocations counting(state);
    for (auto _ : state) channel->sWriteLn(line.text, line.leftMargin);
  }
  channel->sClosePrinterFileHandle();
  state.SetItemsProcessed(state.iterations());
}

// The yardstick: the same bytes handed to the spooler with nothing before it.
void spoolerAlone(benchmark::State& state) {
  const Ref<Spooler> spooler = makeSpooler();
  PrinterHandle handle = 0;
  spooler->openPrinter(u"file:/dev/null", handle);
  spooler->startDocument(handle, {});
  spooler->startPage(handle);
  const std::string line = std::string(80, 'x') + "\r\n";
  spooler->write(handle, line);
  {
    CountAllocations counting(state);
    for (auto _ : state) benchmark::DoNotOptimize(spooler->write(handle, line));
  }
  state.SetItemsProcessed(state.iterations());
}

}  // namespace
}  // namespace tarvo::bench

int main(int argc, char** argv) {
  for (const tarvo::bench::PrinterLine& line : tarvo::bench::kPrinterLines) {
    benchmark::RegisterBenchmark(
        (std::string("sWriteLn/") + line.name).c_str(),
        [&line](benchmark::State& state) { tarvo::bench::writeLine(state, line); });
  }
  benchmark::RegisterBenchmark("spooler_alone", tarvo::bench::spoolerAlone);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
