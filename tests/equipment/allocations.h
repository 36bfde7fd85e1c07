// Counts what a program takes from the heap.  A program that is to be counted has allocations.cpp
// among its sources: it replaces the global operator new.
#pragma once

#include <cstddef>

namespace tarvo::test {

// Allocations since the program's start, on all threads.
std::size_t allocations() noexcept;

}  // namespace tarvo::test
