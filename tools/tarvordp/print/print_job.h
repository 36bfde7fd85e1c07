// Prints the report of a job file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "printer/spooler.h"
#include "tarvordp/command_line.h"
#include "tarvordp/print/progress.h"

namespace tarvordp {

struct PrintOptions {
  std::string job;                                          // a path; "-" the standard input
  std::optional<std::string> printer;                       // in place of the profile's
  std::optional<std::string> save;                          // graphic output goes into this file
  std::vector<std::pair<std::string, std::string>> values;  // names of the record, and their texts
  std::optional<std::uint8_t> copies;                       // in place of the job's
  std::optional<std::string> trace;  // a file for what happens; "-" the standard output
  bool yes = false;                  // nobody is asked
};

// What the report is printed with that a test has of its own.  Default: the system's.
struct PrintEquipment {
  tarvo::Ref<tarvo::Spooler> spooler{};
  Progress::Pace pace{};
};

// What became of it is told on the console's error stream.
// Raises: Mistake for wrong input; nothing was printed then.
ExitStatus printJob(const PrintOptions& options, Console& console, PrintEquipment equipment = {});

}  // namespace tarvordp
