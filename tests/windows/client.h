// What the client tests share: the two servers as a C++ client loads them.
//
// Nothing here links the library's code: the servers are reached through their exports, and their
// interfaces through the headers that the interface compiler made.
#pragma once

#include <string>

#include "LibTarvoCI_2402.h"
#include "LibTarvoRdpCI_2402.h"
#include "frame/com/automation.h"

namespace tarvo::client {

using com::Bstr;
using com::ComPtr;
using com::query;
using com::Variant;
using com::viewOf;

// The folder of the built servers, with a separator at its end.
std::wstring productFolder();

// A server that is loaded by its file's path, as no registration is needed for.
class Server {
 public:
  explicit Server(const std::wstring& path);
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server();  // unloads it

  HRESULT getClassObject(const CLSID& classId, const IID& id, void** result) const;
  HRESULT canUnloadNow() const;
  HRESULT registerServer() const;
  HRESULT unregisterServer() const;

 private:
  template <class Function>
  Function entry(const char* name) const;

  HMODULE module_;
};

std::wstring libraryPath();
std::wstring companionPath();

// Both servers, for the whole program.
const Server& library();
const Server& companion();

// A new object of a server's class; empty when it cannot be made.
template <class I>
ComPtr<I> create(const Server& server, const CLSID& classId) {
  ComPtr<IClassFactory> factory;
  ComPtr<I> object;
  if (SUCCEEDED(server.getClassObject(classId, IID_IClassFactory, factory.outVoid()))) {
    factory->CreateInstance(nullptr, __uuidof(I), object.outVoid());
  }
  return object;
}

inline ComPtr<_clsUtilImp> createPrinter() {
  return create<_clsUtilImp>(library(), CLSID_clsUtilImp);
}
inline ComPtr<_clsInitLibTarvoRpd> createStartUp() {
  return create<_clsInitLibTarvoRpd>(library(), CLSID_clsInitLibTarvoRpd);
}

// The ten services, the report utility, and handing them over.
struct Services {
  ComPtr<_clsError> error;
  ComPtr<_clsMessage> message;
  ComPtr<_clsTexto> texto;
  ComPtr<_clsDefGen> defGen;
  ComPtr<_clsConvert> convert;
  ComPtr<_clsApi> api;
  ComPtr<_clsUtilFile> utilFile;
  ComPtr<_clsUtilDate> utilDate;
  ComPtr<_clsErrorCodesIG> errorCodes;
  ComPtr<_clsUtilMathOperations> mathOperations;
  ComPtr<_clsUtReport> utReport;

  static Services fromCompanion();

  // To this thread's library; empty ones as Nothing.
  HRESULT handOver(_clsInitLibTarvoRpd* startUp) const;
};

// Empties every service reference of this thread's library, the printer channel included.
void handOverNothing();

// The thread's error object, taken: "source|description"; "none" without one.
std::string takeErrorText();

std::string utf8(TextView text);
std::string utf8(BSTR text);

// A file's bytes; "(missing)" when it cannot be read.
std::string readFile(const std::wstring& path);

// A path in the folder for temporary files; whatever was there is deleted.
std::wstring temporaryPath(const wchar_t* name);

}  // namespace tarvo::client
