// All stand-ins of the core services, and the short way to give them to the library.
#pragma once

#include "frame/clsInitLibTarvoRpd.h"
#include "services/clsApi.h"
#include "services/clsConvert.h"
#include "services/clsDefGen.h"
#include "services/clsError.h"
#include "services/clsErrorCodesIG.h"
#include "services/clsMessage.h"
#include "services/clsTexto.h"
#include "services/clsUtReport.h"
#include "services/clsUtilDate.h"
#include "services/clsUtilFile.h"
#include "services/clsUtilMathOperations.h"
#include "services/clsVersionRegistry.h"

namespace LibTarvoCI {

// One of each service, for a native program, a test or a demonstration.  A program that has a
// service of its own, or a stand-in with other settings, puts it in before handing them over:
//
//   LibTarvoCI::CoreServices services;
//   services.refInsMessage = myMessages;
//   services.handTo(*tarvo::make<tarvo::clsInitLibTarvoRpd>(), printer);
struct CoreServices {
  CoreServices();

  // Hands the services to the library, for the current thread.  They live on when this goes.
  void handTo(tarvo::clsInitLibTarvoRpd& library);
  // The same, and the report utility with the printer channel.
  void handTo(tarvo::clsInitLibTarvoRpd& library, Ref<tarvo::clsUtilImp>& printer);

  Ref<tarvo::clsError> refInsError;
  Ref<tarvo::clsMessage> refInsMessage;
  Ref<tarvo::clsTexto> refInsTexto;
  Ref<tarvo::clsDefGen> refInsDefGen;
  Ref<tarvo::clsConvert> refInsConvert;
  Ref<tarvo::clsApi> refInsApi;
  Ref<tarvo::clsUtilFile> refInsUtilFile;
  Ref<tarvo::clsUtilDate> refInsUtilDate;
  Ref<tarvo::clsErrorCodesIG> refInsErrorCodesIG;
  Ref<tarvo::clsUtilMathOperations> refInsUtilMathOperations;
  Ref<tarvo::clsUtReport> refInsUtReport;
};

// Lets the library announce its version to the stand-in of the version registry.  For the whole
// process; call it before other threads use the library.
void useOwnVersionRegistry() noexcept;

}  // namespace LibTarvoCI
