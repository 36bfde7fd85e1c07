// Whether a person can be asked.
#pragma once

namespace LibTarvoCI {

// Whether the program's standard input is a terminal.
bool standardInputIsTerminal() noexcept;

}  // namespace LibTarvoCI
