// What every fuzzer has: its entry, which libFuzzer or replay.cpp calls, and how it says that
// something is wrong.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace tarvo::fuzz {

// Ends the program, with the input still at hand, when the claim does not hold.
inline void require(bool holds, const char* claim) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", claim);
  std::abort();
}

}  // namespace tarvo::fuzz
