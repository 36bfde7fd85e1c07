#include "tarvordp/print/progress.h"

#include <ostream>

namespace tarvordp {
namespace {

constexpr std::chrono::milliseconds kFirstMoment{500};
constexpr std::chrono::milliseconds kInterval{100};

}  // namespace

Progress::Progress(std::ostream& stream, bool isShown)
    : stream_(stream), isShown_(isShown), next_(Clock::now() + kFirstMoment) {}

Progress::~Progress() { erase(); }

bool Progress::isDue() {
  if (!isShown_) return false;
  const auto now = Clock::now();
  if (now < next_) return false;
  next_ = now + kInterval;
  return true;
}

void Progress::reading(std::int64_t records) {
  if (!isDue()) return;
  show("reading the data: " + withUnit(static_cast<std::uint64_t>(records), "record"));
}

void Progress::printing(std::int64_t record, std::int64_t records, std::int64_t pages) {
  if (!isDue()) return;
  std::string line = "printing: record " + grouped(static_cast<std::uint64_t>(record)) + " of " +
                     grouped(static_cast<std::uint64_t>(records));
  if (pages > 0) line += ", " + withUnit(static_cast<std::uint64_t>(pages), "page");
  show(line);
}

void Progress::show(const std::string& line) {
  stream_ << '\r' << line << "\x1b[K" << std::flush;
  isOnScreen_ = true;
}

void Progress::erase() {
  if (!isOnScreen_) return;
  stream_ << "\r\x1b[K" << std::flush;
  isOnScreen_ = false;
}

std::string grouped(std::uint64_t number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, 1, ',');
  return text;
}

std::string withUnit(std::uint64_t number, const std::string& thing) {
  return grouped(number) + " " + thing + (number == 1 ? "" : "s");
}

}  // namespace tarvordp
