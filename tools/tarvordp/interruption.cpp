#include "tarvordp/interruption.h"

#include <signal.h>

#include <array>
#include <cstddef>

namespace tarvordp {
namespace {

constexpr std::array<int, 3> kEnds{SIGINT, SIGTERM, SIGHUP};
// What would kill the program where a write can fail as well: a pipe that nobody reads any more, a
// file that is greater than it may be.
constexpr std::array<int, 2> kFailures{SIGPIPE, SIGXFSZ};

using Action = struct sigaction;

volatile sig_atomic_t asked = 0;
std::array<Action, kEnds.size()> endsBefore;
std::array<Action, kFailures.size()> failuresBefore;

template <std::size_t kCount>
void restore(const std::array<int, kCount>& signals, const std::array<Action, kCount>& before) {
  for (std::size_t i = 0; i < kCount; ++i) sigaction(signals[i], &before[i], nullptr);
}

// Once: the next signal, whichever it is, does what it always did.
void note(int) {
  asked = 1;
  restore(kEnds, endsBefore);
}

// Other than a signal that is ignored, one with a handler is no matter of programs begun from here.
void fail(int) {}

// What is ignored stays so: nohup, and jobs in the background of a script.  A wait for the operator
// ends with the signal.
template <std::size_t kCount>
void take(const std::array<int, kCount>& signals, void (*handler)(int),
          std::array<Action, kCount>& before) {
  Action action{};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  for (std::size_t i = 0; i < kCount; ++i) {
    sigaction(signals[i], nullptr, &before[i]);
    if (before[i].sa_handler != SIG_IGN) sigaction(signals[i], &action, nullptr);
  }
}

}  // namespace

Interruption::Interruption() {
  asked = 0;
  take(kFailures, fail, failuresBefore);
  take(kEnds, note, endsBefore);
}

Interruption::~Interruption() {
  restore(kEnds, endsBefore);
  restore(kFailures, failuresBefore);
  asked = 0;
}

bool Interruption::isAskedFor() noexcept { return asked != 0; }

}  // namespace tarvordp
