// The public classes of the companion server, in the order of their numbers.
#pragma once

#include "frame/services_members.h"
#include "services/clsVersionRegistry.h"

namespace tarvo {

// The stand-in's registry can be read back: one operation more than the contract has.
template <>
struct Members<LibTarvoCI::clsVersionRegistry> : Members<clsVersionRegistry> {
  static constexpr auto table =
      memberTable(method<&LibTarvoCI::clsVersionRegistry::sRegisterVersion>(
                      "sRegisterVersion", "keeps the version text of a library", "refVersion"),
                  method<&LibTarvoCI::clsVersionRegistry::GetRegisteredVersion>(
                      "GetRegisteredVersion", "the version text that was kept last"));
};

}  // namespace tarvo

namespace LibTarvoCI {

using PublicClasses =
    tarvo::ClassList<tarvo::clsError, tarvo::clsMessage, tarvo::clsTexto, tarvo::clsConvert,
                     tarvo::clsUtilDate, tarvo::clsUtilMathOperations, tarvo::clsUtilFile,
                     tarvo::clsApi, tarvo::clsUtReport, clsVersionRegistry, tarvo::clsDefGen,
                     tarvo::clsErrorCodesIG>;

}  // namespace LibTarvoCI
