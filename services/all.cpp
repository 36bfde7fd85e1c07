#include "services/all.h"

namespace LibTarvoCI {

using tarvo::make;

CoreServices::CoreServices()
    : refInsError(make<clsError>()),
      refInsMessage(make<clsMessage>()),
      refInsTexto(make<clsTexto>()),
      refInsDefGen(make<clsDefGen>()),
      refInsConvert(make<clsConvert>()),
      refInsApi(make<clsApi>()),
      refInsUtilFile(make<clsUtilFile>()),
      refInsUtilDate(make<clsUtilDate>()),
      refInsErrorCodesIG(make<clsErrorCodesIG>()),
      refInsUtilMathOperations(make<clsUtilMathOperations>()),
      refInsUtReport(make<clsUtReport>()) {}

void CoreServices::handTo(tarvo::clsInitLibTarvoRpd& library) {
  library.sInitializeInternalGlobalClasses(refInsError, refInsMessage, refInsTexto, refInsDefGen,
                                           refInsConvert, refInsApi, refInsUtilFile, refInsUtilDate,
                                           refInsErrorCodesIG, refInsUtilMathOperations);
}

void CoreServices::handTo(tarvo::clsInitLibTarvoRpd& library, Ref<tarvo::clsUtilImp>& printer) {
  handTo(library);
  library.sInitializePrintLibrary(printer, refInsUtReport);
}

void useOwnVersionRegistry() noexcept {
  tarvo::setVersionRegistryMaker(
      []() -> Ref<tarvo::clsVersionRegistry> { return make<clsVersionRegistry>(); });
}

}  // namespace LibTarvoCI
