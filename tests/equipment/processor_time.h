// How long something takes on the processor: for what must not grow with the square of its input.
#pragma once

#include <ctime>

namespace tarvo::test {

// Of the whole process, waiting not counted.
template <class Action>
double processorSecondsOf(Action action) {
  const std::clock_t start = std::clock();
  action();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

}  // namespace tarvo::test
