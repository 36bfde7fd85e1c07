// The library's server: LibTarvoRdpCI_2402.dll.
#include "frame/clsInitLibTarvoRpd.h"
#include "frame/com/outside_object.h"
#include "frame/com/public_com_classes.h"
#include "frame/com/server.h"
#include "frame/thread_values.h"
#include "platform/win32/preview_window.h"
#include "public_classes.h"

namespace tarvo::com {
namespace {

// The core library's registry, from whichever server is registered for it.
Ref<clsVersionRegistry> makeVersionRegistry() {
  CLSID id;
  ComPtr<IUnknown> registry;
  const ClassInfo& info = Described<clsVersionRegistry>::info;
  const Text progId = fromAscii(info.progId());
  if (FAILED(CLSIDFromProgID(wide(progId), &id)) ||
      FAILED(
          CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, registry.outVoid()))) {
    throw RunTimeError(kCannotCreateObject, progId);
  }
  const Ref<Object> proxy = makeServiceProxy(registry.get(), info);
  return Ref<clsVersionRegistry>(static_cast<clsVersionRegistry*>(proxy.get()));
}

// What the library takes from outside: services, and the clients' own objects.
Ref<Object> makeProxyOf(IUnknown* object, const ClassInfo& contract) {
  Ref<Object> proxy = makeServiceProxy(object, contract);
  return proxy ? proxy : makeCallbackProxy(object, contract);
}

// A preview's window calls this library's code for as long as it is there.
bool somethingNeedsTheLibrary() { return anyThreadHoldsServices() || platform::anyPreviewIsOpen(); }

}  // namespace

const ServerDescription& serverDescription() {
  static const auto classes = comClasses(PublicClasses{});
  static const ServerDescription description = [] {
    setVersionRegistryMaker(&makeVersionRegistry);
    return ServerDescription{&kPrintLibrary, classes, &makeProxyOf, &somethingNeedsTheLibrary};
  }();
  return description;
}

}  // namespace tarvo::com
