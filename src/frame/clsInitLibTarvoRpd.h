// Start-up: the one door through which the library gets what it needs.
//
// A program makes one on each thread that prints, before it makes any report, and calls, in this
// order, sInitializeInternalGlobalClasses and sInitializePrintLibrary; the other two are optional.
// The object keeps nothing and may go at once: what it was given stays in modRDPGlobalValues.
#pragma once

#include "frame/application.h"
#include "frame/modRDPGlobalValues.h"
#include "frame/trapped.h"

namespace tarvo {

class clsInitLibTarvoRpd final : public TrappedObject {
 public:
  // Keeps the core library's services for this thread; an earlier set is replaced.  References may
  // be empty: an operation that needs a missing service fails with error 91 when it calls it.
  // None of the references is changed.
  void sInitializeInternalGlobalClasses(Ref<clsError>& refInsError, Ref<clsMessage>& refInsMessage,
                                        Ref<clsTexto>& refInsTexto, Ref<clsDefGen>& refInsDefGen,
                                        Ref<clsConvert>& refInsConvert, Ref<clsApi>& refInsApi,
                                        Ref<clsUtilFile>& refInsUtilFile,
                                        Ref<clsUtilDate>& refInsUtilDate,
                                        Ref<clsErrorCodesIG>& refInsErrorCodesIG,
                                        Ref<clsUtilMathOperations>& refInsUtilMathOperations);

  // Keeps the printer channel, which the client has made and configured, and the report utility.
  void sInitializePrintLibrary(Ref<clsUtilImp>& refInsImp, Ref<clsUtReport>& refInsUtReport);

  // Announces the library's name and version to the core library's version registry.
  // Raises: 429 when the registry cannot be made.
  void sSendDllVersionToLibTarvoCI();

  // Warns the user, through the message service, when the library's file lies in a folder named
  // "backup" (code 2) or "prueba" (code 1), or below one.  The answer is False for every folder.
  // Raises: 91 without a message service, when there is something to say.
  bool fCheckDllPathSendMsgAndReturnFalseIfCantExecute();

 private:
  const ErrorIdentity& errorIdentity() const noexcept override;
};

// "LibTarvoRdpCI.dll  Versión: 1.0.25": title, two fixed pieces, the three numbers without padding.
Text fDllVersionText(const Application& library = application());

// How the library makes a version registry; the platform sets it where there is a way to (on
// Windows through the core library's server), a native program may.  Default: none, which makes
// sSendDllVersionToLibTarvoCI fail with error 429.
using VersionRegistryMaker = Ref<clsVersionRegistry> (*)();
void setVersionRegistryMaker(VersionRegistryMaker maker) noexcept;

}  // namespace tarvo
