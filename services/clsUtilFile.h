// Stand-in of the file service.
#pragma once

#include "frame/services.h"
#include "services/fail.h"

namespace LibTarvoCI {

class clsUtilFile final : public tarvo::clsUtilFile {
 public:
  // Whether the path names an existing file that is not a folder.  Never raises.
  bool fFileExists(TextView valPath) override;
};

}  // namespace LibTarvoCI
