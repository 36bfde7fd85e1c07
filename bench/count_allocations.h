// Counting the allocations of what a benchmark measures.
#pragma once

#include <benchmark/benchmark.h>

#include "equipment/allocations.h"

namespace tarvo::bench {

// Counts the allocations of the measured part.  There must be none, since the storage is warm, but
// where they are allowed.
class CountAllocations {
 public:
  explicit CountAllocations(benchmark::State& state, bool areAllowed = false)
      : state_(state), areAllowed_(areAllowed) {}
  CountAllocations(const CountAllocations&) = delete;
  CountAllocations& operator=(const CountAllocations&) = delete;
  ~CountAllocations() {
    const auto made = static_cast<double>(test::allocations() - before_);
    state_.counters["allocations"] = benchmark::Counter(made, benchmark::Counter::kAvgIterations);
    if (made > 0 && !areAllowed_) state_.SkipWithError("it allocates");
  }

 private:
  benchmark::State& state_;
  bool areAllowed_;
  std::size_t before_ = test::allocations();
};

}  // namespace tarvo::bench
