// Counting the allocations of what a benchmark measures.
#pragma once

#include <benchmark/benchmark.h>

#include "equipment/allocations.h"

namespace tarvo::bench {

// Counts the allocations of the measured part; there must be none, since the storage is warm.
class CountAllocations {
 public:
  explicit CountAllocations(benchmark::State& state) : state_(state) {}
  CountAllocations(const CountAllocations&) = delete;
  CountAllocations& operator=(const CountAllocations&) = delete;
  ~CountAllocations() {
    const auto made = static_cast<double>(test::allocations() - before_);
    state_.counters["allocations"] = benchmark::Counter(made, benchmark::Counter::kAvgIterations);
    if (made > 0) state_.SkipWithError("it allocates");
  }

 private:
  benchmark::State& state_;
  std::size_t before_ = test::allocations();
};

}  // namespace tarvo::bench
