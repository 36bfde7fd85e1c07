// From a list of public classes to what a server offers.
#pragma once

#include <array>

#include "frame/com/vtable.h"

namespace tarvo::com {

template <class... Classes>
std::array<ComClass, sizeof...(Classes)> comClasses(ClassList<Classes...>) {
  return {comClass<Classes>()...};
}

}  // namespace tarvo::com
