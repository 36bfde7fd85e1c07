#include "frame/com/server.h"

#include <new>
#include <vector>

#include "frame/com/runtime_slot.h"

namespace tarvo::com {
namespace {

LONG lockCount = 0;
HINSTANCE moduleHandle = nullptr;

class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const ComClass& comClass) : comClass_(comClass) { lockServer(); }

  STDMETHODIMP QueryInterface(REFIID id, void** result) override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (id != IID_IUnknown && id != IID_IClassFactory) return E_NOINTERFACE;
    *result = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** result) override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    try {
      const Ref<Object> object = comClass_.create();
      Face* face = faceOf(comClass_, *object);
      const HRESULT status = faceQueryInterface(face, id, result);
      faceRelease(face);
      return status;
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    } catch (...) {
      return E_FAIL;
    }
  }

  STDMETHODIMP LockServer(BOOL lock) override {
    lock ? lockServer() : unlockServer();
    return S_OK;
  }

 private:
  ~ClassFactory() { unlockServer(); }

  const ComClass& comClass_;
  ULONG references_ = 0;
};

}  // namespace

void lockServer() noexcept { InterlockedIncrement(&lockCount); }
void unlockServer() noexcept { InterlockedDecrement(&lockCount); }

bool serverIsLocked() noexcept {
  if (InterlockedCompareExchange(&lockCount, 0, 0) != 0) return true;
  const ServerDescription& server = serverDescription();
  return server.isStillNeeded != nullptr && server.isStillNeeded();
}

const ComClass* findClass(const ClassInfo& info) noexcept {
  for (const ComClass& row : serverDescription().classes) {
    if (row.info == &info) return &row;
  }
  return nullptr;
}

const ComClass* findClass(const CLSID& id) noexcept {
  for (const ComClass& row : serverDescription().classes) {
    if (platformGuid(classId(*row.info)) == id) return &row;
  }
  return nullptr;
}

HINSTANCE serverModule() noexcept { return moduleHandle; }

Text serverFileName() {
  std::vector<wchar_t> buffer(MAX_PATH);
  for (;;) {
    const DWORD length =
        GetModuleFileNameW(moduleHandle, buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length < buffer.size()) return Text(buffer.data(), buffer.data() + length);
    buffer.resize(buffer.size() * 2);
  }
}

HRESULT makeClassFactory(const ComClass& comClass, REFIID id, void** result) noexcept {
  auto* factory = new (std::nothrow) ClassFactory(comClass);
  if (factory == nullptr) return E_OUTOFMEMORY;
  factory->AddRef();
  const HRESULT status = factory->QueryInterface(id, result);
  factory->Release();
  return status;
}

}  // namespace tarvo::com

// --- The exports.

extern "C" {

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID processIsEnding) {
  if (reason == DLL_PROCESS_ATTACH) {
    tarvo::com::moduleHandle = module;
    tarvo::com::noteRuntimeSlot();
  } else if (reason == DLL_PROCESS_DETACH && processIsEnding == nullptr) {
    tarvo::com::freeRuntimeSlot();
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  const tarvo::com::ComClass* found = tarvo::com::findClass(classId);
  if (found == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
  return tarvo::com::makeClassFactory(*found, id, result);
}

STDAPI DllCanUnloadNow() { return tarvo::com::serverIsLocked() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return tarvo::com::registerServer(); }

STDAPI DllUnregisterServer() { return tarvo::com::unregisterServer(); }
}
