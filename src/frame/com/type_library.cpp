// The server's own type library, which lies in the DLL as a resource.
#include "frame/com/server.h"

namespace tarvo::com {

HRESULT typeInfoOf(const GUID& guid, ITypeInfo** result) noexcept {
  try {
    // Not kept: a description is asked for rarely, and a kept library would live past the host's
    // use of COM.
    ComPtr<ITypeLib> library;
    const HRESULT loaded = LoadTypeLibEx(reinterpret_cast<const wchar_t*>(serverFileName().c_str()),
                                         REGKIND_NONE, library.out());
    if (FAILED(loaded)) return loaded;
    return library->GetTypeInfoOfGuid(guid, result);
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace tarvo::com
