// Stand-in of a service that is kept for the client; nothing in this project calls it.
#pragma once

#include "frame/services.h"

namespace LibTarvoCI {

class clsErrorCodesIG final : public tarvo::clsErrorCodesIG {};

}  // namespace LibTarvoCI
