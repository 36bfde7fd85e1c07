// tarvordp: the workbench of the report library.
#include <exception>
#include <iostream>

#include "tarvordp/command_line.h"

int main(int argc, char** argv) {
  try {
    auto console = tarvordp::Console::ofProcess();
    return tarvordp::run(argc, argv, console);
  } catch (const std::exception& failure) {
    std::cerr << "tarvordp: " << failure.what() << '\n';
    return tarvordp::kRunTimeError;
  }
}
