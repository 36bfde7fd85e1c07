// What the operator reads when the library was started from an unusual folder.  Every message
// service of ours, whatever it shows messages with, says it in these words.
#pragma once

#include <cstdint>

#include "services/fail.h"

namespace LibTarvoCI {

// A question that names the project and the kind of folder: 1 a test folder, 2 a backup folder, any
// other code an unusual one.
Text locationWarning(TextView projectTitle, std::int16_t locationCode);

}  // namespace LibTarvoCI
