// A file's bytes at once.
#pragma once

#include <string>

namespace tarvordp {

// "-" is the standard input.  Raises: Mistake with the system's reason.
std::string readWholeFile(const std::string& path);

}  // namespace tarvordp
