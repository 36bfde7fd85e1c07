#include "tarvordp/print/progress.h"

#include <ostream>

namespace tarvordp {
namespace {

std::string counted(const std::string& thing, std::int64_t number, std::int64_t all) {
  return thing + " " + grouped(static_cast<std::uint64_t>(number)) + " of " +
         grouped(static_cast<std::uint64_t>(all));
}

std::string alsoPages(std::int64_t pages) {
  return pages > 0 ? ", " + withUnit(static_cast<std::uint64_t>(pages), "page") : "";
}

}  // namespace

Progress::Progress(std::ostream& stream, bool isShown, Pace pace)
    : stream_(stream),
      isShown_(isShown),
      interval_(pace.interval),
      next_(Clock::now() + pace.first) {}

Progress::~Progress() { erase(); }

bool Progress::isDue() {
  if (!isShown_) return false;
  const auto now = Clock::now();
  if (now < next_) return false;
  next_ = now + interval_;
  return true;
}

void Progress::reading(std::int64_t records) {
  if (!isDue()) return;
  show("reading the data: " + withUnit(static_cast<std::uint64_t>(records), "record"));
}

void Progress::printing(const RecordProgress& at) {
  if (!isDue()) return;
  const std::string copy = at.copies > 1 ? counted("copy", at.copy, at.copies) + ", " : "";
  show("printing: " + copy + counted("record", at.record, at.records) + alsoPages(at.pages));
}

void Progress::printingForm(const FormProgress& at) {
  if (!isDue()) return;
  const std::string sheet = at.sheet > 0 ? counted("sheet", at.sheet, at.sheets) : "draft";
  show("printing: " + sheet + ", " + withUnit(static_cast<std::uint64_t>(at.values), "value") +
       alsoPages(at.pages));
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
