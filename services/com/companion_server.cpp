// The companion server: LibTarvoCI_2402.dll, the stand-ins for COM clients.
#include "frame/application.h"
#include "frame/com/server.h"
#include "frame/com/vtable.h"
#include "services/all.h"
#include "services/com/message_boxes.h"
#include "services/public_classes.h"

namespace tarvo {

// The source of this server's own errors.
const Application& application() noexcept {
  static constexpr Application kApplication{u"LibTarvoCI", kVersionMajor, kVersionMinor,
                                            kVersionRevision};
  return kApplication;
}

namespace com {
namespace {

// A contract's class, and the stand-in that a client gets for it.
const std::array kClasses{
    comClass<clsError, LibTarvoCI::clsError>(),
    comClass<clsMessage, LibTarvoCI::MessageBoxes>(),
    comClass<clsTexto, LibTarvoCI::clsTexto>(),
    comClass<clsConvert, LibTarvoCI::clsConvert>(),
    comClass<clsUtilDate, LibTarvoCI::clsUtilDate>(),
    comClass<clsUtilMathOperations, LibTarvoCI::clsUtilMathOperations>(),
    comClass<clsUtilFile, LibTarvoCI::clsUtilFile>(),
    comClass<clsApi, LibTarvoCI::clsApi>(),
    comClass<clsUtReport, LibTarvoCI::clsUtReport>(),
    comClass<LibTarvoCI::clsVersionRegistry>(),
    comClass<clsDefGen, LibTarvoCI::clsDefGen>(),
    comClass<clsErrorCodesIG, LibTarvoCI::clsErrorCodesIG>(),
};
static_assert(std::tuple_size_v<decltype(kClasses)> == LibTarvoCI::PublicClasses::infos.size(),
              "as many classes are offered as the type library has");

}  // namespace

const ServerDescription& serverDescription() {
  static const ServerDescription description{&kCoreLibrary, kClasses};
  return description;
}

}  // namespace com
}  // namespace tarvo
