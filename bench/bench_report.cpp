// What a record costs in a master-detail report, beside a hand-written program that prints the same
// bytes.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <iterator>

#include "equipment/allocations.h"
#include "report_records.h"

namespace tarvo::bench {
namespace {

constexpr const char* kNowhere = "/dev/null";
constexpr long kFewer = 1'000;
constexpr long kMore = 30'000;

void asReport(benchmark::State& state) {
  const long records = static_cast<long>(state.range(0));
  for (auto _ : state) printLedger(u"file:" + fromUtf8(kNowhere), records);
  state.SetItemsProcessed(state.iterations() * records);
}

void byHand(benchmark::State& state) {
  const long records = static_cast<long>(state.range(0));
  for (auto _ : state) printLedgerByHand(kNowhere, records);
  state.SetItemsProcessed(state.iterations() * records);
}

std::size_t allocationsOf(long records) {
  const std::size_t before = test::allocations();
  printLedger(u"file:" + fromUtf8(kNowhere), records);
  return test::allocations() - before;
}

// More records on as many pages take no more; a page does, for its two passes over the template.
bool takesNothingFromTheHeapForARecord() {
  constexpr long kFullPages = 46L * kRecordsPerPage;
  const std::size_t fewer = allocationsOf(kFullPages - kRecordsPerPage + 1);
  const std::size_t full = allocationsOf(kFullPages);
  const std::size_t twice = allocationsOf(2 * kFullPages);
  std::printf("allocations: %ld for a record, %.1f for a page\n",
              static_cast<long>(full) - static_cast<long>(fewer),
              static_cast<double>(twice - full) / 46);
  return full == fewer;
}

std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A yardstick that prints something else is none.
bool printsTheSameAsByHand() {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "tarvo-bench";
  std::filesystem::create_directories(folder);
  const std::filesystem::path report = folder / "report";
  const std::filesystem::path hand = folder / "hand";
  printLedger(u"file:" + report.u16string(), kFewer);
  printLedgerByHand(hand.c_str(), kFewer);
  const std::string bytes = contentOf(report);
  return !bytes.empty() && bytes == contentOf(hand);
}

}  // namespace
}  // namespace tarvo::bench

int main(int argc, char** argv) {
  using namespace tarvo::bench;
  if (!printsTheSameAsByHand()) {
    std::fprintf(stderr, "bench_report: the two ways print different bytes\n");
    return 1;
  }
  if (!takesNothingFromTheHeapForARecord()) {
    std::fprintf(stderr, "bench_report: records take memory\n");
    return 1;
  }
  for (const long records : {kFewer, kMore}) {
    benchmark::RegisterBenchmark("ledger/report", &asReport)->Arg(records);
    benchmark::RegisterBenchmark("ledger/hand", &byHand)->Arg(records);
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
