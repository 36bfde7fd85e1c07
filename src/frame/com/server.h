// An in-process COM server: what it offers, and the services that its parts share.
//
// A DLL defines serverDescription() and links the frame; the four exports are in server.cpp.
#pragma once

#include <span>

#include "frame/com/face.h"

namespace tarvo::com {

struct ServerDescription {
  const LibraryInfo* library;
  std::span<const ComClass> classes;
  // Makes the proxy of a contract, empty for a class that is none; null when the server takes no
  // objects from outside (service_proxies.cpp, callback_proxies.cpp).
  Ref<Object> (*makeProxy)(IUnknown* object, const ClassInfo& contract) = nullptr;
  // Asked when no object and no lock is left: whether something else needs the DLL in place.
  // Default: none.
  bool (*isStillNeeded)() = nullptr;
};

// Defined once in each DLL.
const ServerDescription& serverDescription();

// The class of that name's description, or null when the server has none.
const ComClass* findClass(const ClassInfo& info) noexcept;
const ComClass* findClass(const CLSID& id) noexcept;

// Whatever keeps the server in its host's memory: faces, class objects in use, explicit locks.
void lockServer() noexcept;
void unlockServer() noexcept;
bool serverIsLocked() noexcept;

HINSTANCE serverModule() noexcept;
Text serverFileName();

// A type description from the server's own embedded type library, counted.
HRESULT typeInfoOf(const GUID& guid, ITypeInfo** result) noexcept;

// Registration; see registration.cpp.
HRESULT registerServer() noexcept;
HRESULT unregisterServer() noexcept;

HRESULT makeClassFactory(const ComClass& comClass, REFIID id, void** result) noexcept;

}  // namespace tarvo::com
