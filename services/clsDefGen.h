// Stand-in of a service that is kept for the client; nothing in this project calls it.
#pragma once

#include "frame/services.h"

namespace LibTarvoCI {

class clsDefGen final : public tarvo::clsDefGen {};

}  // namespace LibTarvoCI
