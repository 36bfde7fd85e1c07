// Whether a person can be asked.  One file per platform answers (posix, win32); the build chooses.
#pragma once

namespace LibTarvoCI {

// Whether the program's standard input is a terminal.
bool standardInputIsTerminal() noexcept;

}  // namespace LibTarvoCI
