// Whether somebody wants the program to end: Ctrl-C, a terminal that was closed, kill.
//
// A report that is ended so can still take back what it has begun; the program's usual death would
// leave half a file under a whole one's name.
#pragma once

namespace tarvordp {

// While it lives, the first of the signals SIGINT, SIGTERM and SIGHUP is only noted; the next one,
// of any of these kinds, ends the program as usual.  One that was ignored before stays ignored.
//
// What a closed pipe or a limit on the size of files would end the program by (SIGPIPE, SIGXFSZ) is
// a write that fails.
//
// What waits for neither the operator nor the printer is not shortened: a slow query is run to its
// next row.  One at a time; afterwards all is as it was before.
class Interruption {
 public:
  Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;
  ~Interruption();

  // Whether a signal came while the present one lives.
  static bool isAskedFor() noexcept;
};

}  // namespace tarvordp
