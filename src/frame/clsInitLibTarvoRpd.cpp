#include "frame/clsInitLibTarvoRpd.h"

#include <string>

#include "printer/clsUtilImp.h"

namespace tarvo {
namespace {

VersionRegistryMaker versionRegistryMaker = nullptr;

Ref<clsVersionRegistry> makeVersionRegistry() {
  if (versionRegistryMaker == nullptr) throw RunTimeError(kCannotCreateObject);
  return versionRegistryMaker();
}

Text decimalText(std::uint16_t number) { return fromAscii(std::to_string(number)); }

enum LocationCode : std::int16_t { kElsewhere = -1, kTestFolder = 1, kBackupFolder = 2 };

LocationCode locationCodeOf(TextView folder) {
  if (folder.find(u"\\backup\\") != TextView::npos) return kBackupFolder;
  if (folder.find(u"\\prueba\\") != TextView::npos) return kTestFolder;
  return kElsewhere;
}

}  // namespace

Text fDllVersionText(const Application& library) {
  return Text(library.title) + u".dll " + u" Versión: " + decimalText(library.major) + u"." +
         decimalText(library.minor) + u"." + decimalText(library.revision);
}

void setVersionRegistryMaker(VersionRegistryMaker maker) noexcept { versionRegistryMaker = maker; }

const ErrorIdentity& clsInitLibTarvoRpd::errorIdentity() const noexcept {
  static constexpr ErrorIdentity kIdentity{u"clsInitLibTarvoRpd", u"clsInitLibTarvoRpd"};
  return kIdentity;
}

void clsInitLibTarvoRpd::sInitializeInternalGlobalClasses(
    Ref<clsError>& refInsError, Ref<clsMessage>& refInsMessage, Ref<clsTexto>& refInsTexto,
    Ref<clsDefGen>& refInsDefGen, Ref<clsConvert>& refInsConvert, Ref<clsApi>& refInsApi,
    Ref<clsUtilFile>& refInsUtilFile, Ref<clsUtilDate>& refInsUtilDate,
    Ref<clsErrorCodesIG>& refInsErrorCodesIG,
    Ref<clsUtilMathOperations>& refInsUtilMathOperations) try {
  modRDPGlobalValues& values = modRDPGlobalValues::ofThisThread();
  values.refInsError = refInsError;
  values.refInsMessage = refInsMessage;
  values.refInsTexto = refInsTexto;
  values.refInsDefGen = refInsDefGen;
  values.refInsConvert = refInsConvert;
  values.refInsApi = refInsApi;
  values.refInsUtilFile = refInsUtilFile;
  values.refInsUtilDate = refInsUtilDate;
  values.refInsErrorCodesIG = refInsErrorCodesIG;
  values.refInsUtilMathOperations = refInsUtilMathOperations;
} catch (...) {
  trap("sInitializeInternalGlobalClasses");
}

void clsInitLibTarvoRpd::sInitializePrintLibrary(Ref<clsUtilImp>& refInsImp,
                                                 Ref<clsUtReport>& refInsUtReport) try {
  modRDPGlobalValues& values = modRDPGlobalValues::ofThisThread();
  values.refInsImp = refInsImp;
  values.refInsUtReport = refInsUtReport;
} catch (...) {
  trap("sInitializePrintLibrary");
}

void clsInitLibTarvoRpd::sSendDllVersionToLibTarvoCI() try {
  Text version = fDllVersionText();
  Ref<clsVersionRegistry> registry = makeVersionRegistry();
  registry->sRegisterVersion(version);
  // The announcement ends with a fresh registry, which goes at once: registries rely on both.
  registry = makeVersionRegistry();
} catch (...) {
  trap("sSendDllVersionToLibTarvoCI");
}

bool clsInitLibTarvoRpd::fCheckDllPathSendMsgAndReturnFalseIfCantExecute() {
  const LocationCode code = locationCodeOf(applicationFolder() + u"\\");
  if (code == kElsewhere) return false;
  const Ref<clsMessage> messages = modRDPGlobalValues::ofThisThread().refInsMessage;
  const bool accepted = messages->fWarnLocation(application().title, code);
  // Only the code 0 would let the user's answer count, and no folder has it: the contract is False.
  return accepted && static_cast<std::int16_t>(code) == 0;
}

}  // namespace tarvo
