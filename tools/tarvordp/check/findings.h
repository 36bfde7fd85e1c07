// What check found in a template: where, how bad, and what.
//
// An error stops the report, shows the operator a message, never ends, or puts lines where they do
// not belong.  A warning prints, but probably not what was meant.  A note is worth knowing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "frame/text.h"

namespace tarvordp {

enum class Severity : std::uint8_t { kNote, kWarning, kError };

// Both count from 1; a column is a character.
struct Place {
  std::size_t line;
  std::size_t column;

  auto operator<=>(const Place&) const = default;
};

struct Finding {
  Place place;
  Severity severity;
  std::string message;  // UTF-8, one line
};

class Findings {
 public:
  void error(Place place, std::string message) { add(Severity::kError, place, message); }
  void warning(Place place, std::string message) { add(Severity::kWarning, place, message); }
  void note(Place place, std::string message) { add(Severity::kNote, place, message); }

  // By place; those of one place as they were found.
  const std::vector<Finding>& sorted();
  bool hasErrors() const;
  bool isEmpty() const noexcept { return found_.empty(); }

  // Each as "NAME:LINE:COLUMN: SEVERITY: MESSAGE".
  void write(std::ostream& out, const std::string& name);

 private:
  void add(Severity severity, Place place, std::string& message);

  std::vector<Finding> found_;
};

// The text in UTF-8 between "'", control characters as "\x1A".
std::string quoted(tarvo::TextView text);

// "1 line", "2 lines".
std::string counted(std::size_t count, const std::string& noun);

}  // namespace tarvordp
