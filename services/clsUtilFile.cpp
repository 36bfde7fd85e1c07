#include "services/clsUtilFile.h"

#include "frame/platform.h"

namespace LibTarvoCI {

bool clsUtilFile::fFileExists(TextView valPath) { return tarvo::platform::fileExists(valPath); }

}  // namespace LibTarvoCI
