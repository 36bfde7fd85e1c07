// The companion server: LibTarvoCI_2402.dll, the stand-ins for COM clients.
#include "frame/application.h"
#include "frame/com/server.h"
#include "frame/com/vtable.h"
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

template <class... Contracts, class... StandIns>
std::array<ComClass, sizeof...(Contracts)> comClasses(
    LibTarvoCI::OfferList<LibTarvoCI::Offer<Contracts, StandIns>...>) {
  static_assert((std::is_base_of_v<Contracts, StandIns> && ...), "a stand-in has its contract");
  return {comClass<Contracts, StandIns>()...};
}

}  // namespace

const ServerDescription& serverDescription() {
  static const auto classes = comClasses(LibTarvoCI::PublicClasses{});
  static const ServerDescription description{&kCoreLibrary, classes};
  return description;
}

}  // namespace com
}  // namespace tarvo
