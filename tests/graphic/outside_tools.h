// Programs that were written by others and look at what this library has written.
#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace tarvo::test {

// Whether there is such a program; a test that needs one and has none is skipped, and says so.
inline bool hasProgram(const std::string& name) {
  return std::system(("command -v " + name + " >/dev/null 2>&1").c_str()) == 0;
}

// What a command of the shell prints, and how it ended: "...\n" and "exit code 3" unless it is 0.
inline std::string outputOf(const std::string& command) {
  std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return "(cannot be run)";
  std::string output;
  std::array<char, 4096> piece{};
  while (const std::size_t length = std::fread(piece.data(), 1, piece.size(), pipe)) {
    output.append(piece.data(), length);
  }
  const int status = pclose(pipe);
  if (status != 0) output += "exit code " + std::to_string(WEXITSTATUS(status));
  return output;
}

}  // namespace tarvo::test

#define TARVO_NEEDS_PROGRAM(name)                                    \
  do {                                                               \
    if (!::tarvo::test::hasProgram(name)) {                          \
      GTEST_SKIP() << "the program " << name << " is not installed"; \
    }                                                                \
  } while (false)
