// What recording equipment has in common: a log that several of them may share, so that a test sees
// their calls in one order, and a fault at the nth call.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "frame/run_time_error.h"

namespace tarvo::test {

// Calls in their order, one line each.
class CallLog {
 public:
  void add(std::string line) { lines_.push_back(std::move(line)); }
  void clear() { lines_.clear(); }

  const std::vector<std::string>& lines() const { return lines_; }

  // Those that start so, in their order.
  std::vector<std::string> linesOf(const std::string& start) const {
    std::vector<std::string> found;
    std::copy_if(lines_.begin(), lines_.end(), std::back_inserter(found),
                 [&start](const std::string& line) { return line.starts_with(start); });
    return found;
  }

  // Every line with a line end.
  std::string text() const {
    std::string all;
    for (const std::string& line : lines_) all.append(line).append("\n");
    return all;
  }

 private:
  std::vector<std::string> lines_;
};

// Raises an error at one call, and at no other.
class Fault {
 public:
  // The nth call from now on, 1 the next one.
  void raiseAt(int nth, std::int32_t number) {
    callsLeft_ = nth;
    number_ = number;
  }
  void never() { callsLeft_ = 0; }

  // Whether it has not been reached yet.
  bool isPending() const { return callsLeft_ > 0; }

  // Raises: the number, when this call is the one.
  void countCall() {
    if (callsLeft_ > 0 && --callsLeft_ == 0) {
      throw RunTimeError(number_, {u"fault", u"made to fail", u"help.hlp", 77});
    }
  }

 private:
  int callsLeft_ = 0;
  std::int32_t number_ = 0;
};

}  // namespace tarvo::test
