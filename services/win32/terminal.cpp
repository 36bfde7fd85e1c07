#include "services/terminal.h"

#include <windows.h>

namespace LibTarvoCI {

// The C run-time's own test takes every character device for a terminal, NUL as well.
bool standardInputIsTerminal() noexcept {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != 0;
}

}  // namespace LibTarvoCI
