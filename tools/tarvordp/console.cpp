#include "tarvordp/console.h"

#include <fcntl.h>
#include <unistd.h>

#include <iostream>

namespace tarvordp {
namespace {

// A file that was opened in its place would get the messages, or be read as the input.
void keepPlace(int descriptor, int wrongWay) {
  if (fcntl(descriptor, F_GETFD) != -1) return;
  open("/dev/null", wrongWay);  // the lowest free one, which is this
}

}  // namespace

Console Console::ofProcess() {
  keepPlace(STDIN_FILENO, O_WRONLY);
  keepPlace(STDOUT_FILENO, O_RDONLY);
  keepPlace(STDERR_FILENO, O_RDONLY);
  return {std::cout, std::cerr, isatty(STDOUT_FILENO) == 1, isatty(STDERR_FILENO) == 1,
          isatty(STDIN_FILENO) == 1};
}

}  // namespace tarvordp
