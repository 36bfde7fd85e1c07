#include "tarvordp/console.h"

#include <unistd.h>

#include <iostream>

namespace tarvordp {

Console Console::ofProcess() {
  return {std::cout, std::cerr, isatty(STDOUT_FILENO) == 1, isatty(STDERR_FILENO) == 1,
          isatty(STDIN_FILENO) == 1};
}

}  // namespace tarvordp
