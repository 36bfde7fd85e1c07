// The identifiers of the generated headers are defined in this file.
#include <windows.h>
// windows.h must come first.
#include <initguid.h>

#include "client.h"

namespace tarvo::client {

std::wstring productFolder() {
  wchar_t path[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  std::wstring folder(path);
  // …\build\win64\tests\windows\client_tests.exe
  for (int level = 0; level < 3; ++level) folder.erase(folder.find_last_of(L"\\/"));
  return folder + L"\\";
}

std::wstring libraryPath() { return productFolder() + L"LibTarvoRdpCI_2402.dll"; }
std::wstring companionPath() { return productFolder() + L"LibTarvoCI_2402.dll"; }

Server::Server(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {}
Server::~Server() {
  if (module_ != nullptr) FreeLibrary(module_);
}

template <class Function>
Function Server::entry(const char* name) const {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
}

HRESULT Server::getClassObject(const CLSID& classId, const IID& id, void** result) const {
  const auto function = entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
  return function == nullptr ? E_FAIL : function(classId, id, result);
}
HRESULT Server::canUnloadNow() const { return entry<HRESULT(WINAPI*)()>("DllCanUnloadNow")(); }
HRESULT Server::registerServer() const { return entry<HRESULT(WINAPI*)()>("DllRegisterServer")(); }
HRESULT Server::unregisterServer() const {
  return entry<HRESULT(WINAPI*)()>("DllUnregisterServer")();
}

const Server& library() {
  static const Server server(libraryPath());
  return server;
}
const Server& companion() {
  static const Server server(companionPath());
  return server;
}

Services Services::fromCompanion() {
  Services services;
  services.error = create<_clsError>(companion(), CLSID_clsError);
  services.message = create<_clsMessage>(companion(), CLSID_clsMessage);
  services.texto = create<_clsTexto>(companion(), CLSID_clsTexto);
  services.defGen = create<_clsDefGen>(companion(), CLSID_clsDefGen);
  services.convert = create<_clsConvert>(companion(), CLSID_clsConvert);
  services.api = create<_clsApi>(companion(), CLSID_clsApi);
  services.utilFile = create<_clsUtilFile>(companion(), CLSID_clsUtilFile);
  services.utilDate = create<_clsUtilDate>(companion(), CLSID_clsUtilDate);
  services.errorCodes = create<_clsErrorCodesIG>(companion(), CLSID_clsErrorCodesIG);
  services.mathOperations =
      create<_clsUtilMathOperations>(companion(), CLSID_clsUtilMathOperations);
  services.utReport = create<_clsUtReport>(companion(), CLSID_clsUtReport);
  return services;
}

HRESULT Services::handOver(_clsInitLibTarvoRpd* startUp) const {
  _clsError* e = error.get();
  _clsMessage* m = message.get();
  _clsTexto* t = texto.get();
  _clsDefGen* d = defGen.get();
  _clsConvert* c = convert.get();
  _clsApi* a = api.get();
  _clsUtilFile* f = utilFile.get();
  _clsUtilDate* u = utilDate.get();
  _clsErrorCodesIG* x = errorCodes.get();
  _clsUtilMathOperations* o = mathOperations.get();
  return startUp->sInitializeInternalGlobalClasses(&e, &m, &t, &d, &c, &a, &f, &u, &x, &o);
}

void handOverNothing() {
  const auto startUp = createStartUp();
  Services{}.handOver(startUp.get());
  _clsUtilImp* printer = nullptr;
  _clsUtReport* report = nullptr;
  startUp->sInitializePrintLibrary(&printer, &report);
}

std::string utf8(TextView text) { return toUtf8(text); }
std::string utf8(BSTR text) { return toUtf8(viewOf(text)); }

std::string takeErrorText() {
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.out()) != S_OK) return "none";
  Bstr source;
  Bstr description;
  info->GetSource(source.out());
  info->GetDescription(description.out());
  return utf8(source.view()) + "|" + utf8(description.view());
}

std::string readFile(const std::wstring& path) {
  const HANDLE file =
      CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return "(missing)";
  std::string content(GetFileSize(file, nullptr), '\0');
  DWORD read = 0;
  ReadFile(file, content.data(), static_cast<DWORD>(content.size()), &read, nullptr);
  CloseHandle(file);
  content.resize(read);
  return content;
}

std::wstring temporaryPath(const wchar_t* name) {
  wchar_t folder[MAX_PATH] = {};
  GetTempPathW(MAX_PATH, folder);
  std::wstring path = std::wstring(folder) + name;
  DeleteFileW(path.c_str());
  return path;
}

}  // namespace tarvo::client
