#include "services/terminal.h"

// The one header of this room that is not of the language; every platform of ours has it.
#include <unistd.h>

namespace LibTarvoCI {

bool standardInputIsTerminal() noexcept {
  constexpr int kStandardInput = 0;
  return isatty(kStandardInput) != 0;
}

}  // namespace LibTarvoCI
