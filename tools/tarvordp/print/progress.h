// How far a long job is, on one line of a terminal that is written again and again.
#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <string>

namespace tarvordp {

// Where a master-detail report has got to.
struct RecordProgress {
  std::int64_t copy = 1;  // from 1
  std::int64_t copies = 1;
  std::int64_t record = 0;  // of this copy, from 1
  std::int64_t records = 0;
  std::int64_t pages = 0;  // so far, of all copies
};

// Where a form report has got to.  How many values it will ask for nobody knows.
struct FormProgress {
  std::int64_t sheet = 0;  // from 1; 0: a draft, which has one
  std::int64_t sheets = 1;
  std::int64_t values = 0;  // so far
  std::int64_t pages = 0;   // so far, of all sheets
};

class Progress {
 public:
  using Time = std::chrono::milliseconds;

  // When the line is shown first, and how often it changes.
  struct Pace {
    Time first{500};
    Time interval{100};
  };

  // `isShown`: whether a person is there to see it.  REQUIRES: `stream` outlives this.
  Progress(std::ostream& stream, bool isShown) : Progress(stream, isShown, Pace{}) {}
  Progress(std::ostream& stream, bool isShown, Pace pace);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  // Nothing is shown in the first moment of a job, and later not more often than the eye can
  // follow.
  void reading(std::int64_t records);
  void printing(const RecordProgress& at);
  void printingForm(const FormProgress& at);

  // Takes the line away, so that something else can be written.
  void erase();

 private:
  using Clock = std::chrono::steady_clock;

  bool isDue();
  void show(const std::string& line);

  std::ostream& stream_;
  bool isShown_;
  bool isOnScreen_ = false;
  Time interval_;
  Clock::time_point next_;
};

// With "," between thousands.
std::string grouped(std::uint64_t number);

// "1 page", "12 pages".
std::string withUnit(std::uint64_t number, const std::string& thing);

}  // namespace tarvordp
