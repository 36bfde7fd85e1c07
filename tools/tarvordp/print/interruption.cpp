#include "tarvordp/print/interruption.h"

#include <signal.h>

#include <array>

namespace tarvordp {
namespace {

constexpr std::array<int, 3> kSignals{SIGINT, SIGTERM, SIGHUP};

volatile sig_atomic_t asked = 0;

void note(int) { asked = 1; }

// Once: the signal after that does what it always did.  A wait for the operator ends with it.
void take(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, nullptr);
}

}  // namespace

Interruption::Interruption() {
  asked = 0;
  for (const int signal : kSignals) take(signal, note);
}

Interruption::~Interruption() {
  for (const int signal : kSignals) take(signal, SIG_DFL);
}

bool Interruption::isAskedFor() noexcept { return asked != 0; }

}  // namespace tarvordp
