// The streams of one run of the program, so that a test can read them, and whether a person is at
// their other end.
#pragma once

#include <iosfwd>

namespace tarvordp {

struct Console {
  std::ostream& out;  // what was asked for
  std::ostream& err;  // messages, progress, mistakes
  bool outIsTerminal = false;
  bool errIsTerminal = false;
  bool inIsTerminal = false;

  // The process's own streams.  One that is closed is kept from being the next file that is opened:
  // it fails whatever is done with it.
  static Console ofProcess();
};

}  // namespace tarvordp
