#include "services/terminal.h"

#include <unistd.h>

namespace LibTarvoCI {

bool standardInputIsTerminal() noexcept { return isatty(STDIN_FILENO) != 0; }

}  // namespace LibTarvoCI
