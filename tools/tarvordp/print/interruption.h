// Whether somebody wants the program to end: Ctrl-C, a terminal that was closed, kill.
//
// A report that is ended so can still take back what it has begun; the program's usual death would
// leave half a file under a whole one's name.
#pragma once

namespace tarvordp {

// While it lives, the first of the signals SIGINT, SIGTERM and SIGHUP is only noted; the next one
// ends the program as usual.  One at a time.
class Interruption {
 public:
  Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;
  ~Interruption();

  // Whether a signal came since the last one of these was made.
  static bool isAskedFor() noexcept;
};

}  // namespace tarvordp
