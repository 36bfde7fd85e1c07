// How far a long job is, on one line of a terminal that is written again and again.
#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <string>

namespace tarvordp {

class Progress {
 public:
  // `isShown`: whether a person is there to see it.  REQUIRES: `stream` outlives this.
  Progress(std::ostream& stream, bool isShown);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  // Nothing is shown in the first moment of a job, and later not more often than the eye can
  // follow.
  void reading(std::int64_t records);
  void printing(std::int64_t record, std::int64_t records, std::int64_t pages);

  // Takes the line away, so that something else can be written.
  void erase();

 private:
  using Clock = std::chrono::steady_clock;

  bool isDue();
  void show(const std::string& line);

  std::ostream& stream_;
  bool isShown_;
  bool isOnScreen_ = false;
  Clock::time_point next_;
};

// With "," between thousands.
std::string grouped(std::uint64_t number);

// "1 page", "12 pages".
std::string withUnit(std::uint64_t number, const std::string& thing);

}  // namespace tarvordp
