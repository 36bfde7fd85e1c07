// The conversion service that hands every call on; it stands with the others of its kind.
#pragma once

#include "tests/equipment/forwarding_services.h"
