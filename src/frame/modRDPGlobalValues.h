// The services and the shared printer channel, as the client handed them over.
//
// One set per thread (a client's apartment), each reference empty until clsInitLibTarvoRpd fills
// it.  Every class of the library reaches the services only here; none makes its own.  Nothing in
// the library empties a reference: it stays for the life of the thread unless a later set replaces
// it.
#pragma once

#include "frame/object.h"
#include "frame/services.h"

namespace tarvo {

class clsUtilImp;

struct modRDPGlobalValues {
  modRDPGlobalValues();
  ~modRDPGlobalValues();

  static modRDPGlobalValues& ofThisThread();

  // Whether any reference is set: what the set holds is needed as long as the thread lives.
  bool holdsAny() const noexcept;

  Ref<clsError> refInsError;
  Ref<clsMessage> refInsMessage;
  Ref<clsTexto> refInsTexto;
  Ref<clsDefGen> refInsDefGen;
  Ref<clsConvert> refInsConvert;
  Ref<clsApi> refInsApi;
  Ref<clsUtilFile> refInsUtilFile;
  Ref<clsUtilDate> refInsUtilDate;
  Ref<clsErrorCodesIG> refInsErrorCodesIG;
  Ref<clsUtilMathOperations> refInsUtilMathOperations;
  Ref<clsUtilImp> refInsImp;
  Ref<clsUtReport> refInsUtReport;
};

}  // namespace tarvo
