// Registration: per machine, or for the present user alone where the caller may not write the
// machine's registry.
//
// Keys (below Software\Classes): CLSID\{…} with InprocServer32, ProgID, TypeLib, Programmable; one
// key per ProgID with its CLSID; and what the platform registers for a type library.
//
// 64-bit Windows keeps CLSID keys in two views, one for the programs of each bitness, while both
// see the same ProgID keys.  So a ProgID's key goes with the last of the two registrations.
#include "frame/com/automation.h"
#include "frame/com/error_info.h"
#include "frame/com/server.h"

// Not in every header set, but in every Windows from 7 on, which is what the servers need.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib*, OLECHAR*, OLECHAR*);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID, WORD, WORD, LCID, SYSKIND);
}

namespace tarvo::com {
namespace {

constexpr bool kIs64Bit = sizeof(void*) == 8;
constexpr SYSKIND kSystemKind = kIs64Bit ? SYS_WIN64 : SYS_WIN32;
constexpr REGSAM kOwnView = 0;
// The same as the own one on a 32-bit Windows, and wherever else there is no second view.
constexpr REGSAM kViewOfOtherBitness = kIs64Bit ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

void checkWin32(LSTATUS status) {
  if (status != ERROR_SUCCESS) {
    const HRESULT failed = HRESULT_FROM_WIN32(static_cast<DWORD>(status));
    throw RunTimeError(failed);
  }
}

const wchar_t* wideText(const Text& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }

// A key of the registry, open for writing; made if it is not there.
class Key {
 public:
  Key(HKEY parent, const Text& path) {
    checkWin32(
        RegCreateKeyExW(parent, wideText(path), 0, nullptr, 0, KEY_WRITE, nullptr, &key_, nullptr));
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  ~Key() { RegCloseKey(key_); }

  HKEY get() const { return key_; }

  // `name` empty: the key's default value.
  void set(const Text& name, const Text& value) const {
    checkWin32(RegSetValueExW(key_, wideText(name), 0, REG_SZ,
                              reinterpret_cast<const BYTE*>(value.c_str()),
                              static_cast<DWORD>((value.size() + 1) * sizeof(char16_t))));
  }
  void setSubKey(const Text& path, const Text& value) const { Key(key_, path).set({}, value); }

 private:
  HKEY key_ = nullptr;
};

const Text kClasses = u"Software\\Classes";

Text braced(const Guid& guid) { return u"{" + fromAscii(toString(guid)) + u"}"; }

void registerClass(const Key& classes, const ClassInfo& info, const Text& fileName) {
  const Text progId = fromAscii(info.progId());
  const Text id = braced(classId(info));
  const Key key(classes.get(), u"CLSID\\" + id);
  key.set({}, progId);
  key.setSubKey(u"ProgID", progId);
  key.setSubKey(u"TypeLib", braced(libraryId(*info.library)));
  key.setSubKey(u"Programmable", {});
  const Key server(key.get(), u"InprocServer32");
  server.set({}, fileName);
  server.set(u"ThreadingModel", u"Apartment");
  const Key name(classes.get(), progId);
  name.set({}, fromAscii(info.help));
  name.setSubKey(u"CLSID", id);
}

void registerTypeLibrary(const Text& fileName, bool forUser) {
  ComPtr<ITypeLib> library;
  check(LoadTypeLibEx(wideText(fileName), REGKIND_NONE, library.out()));
  auto* path = const_cast<wchar_t*>(wideText(fileName));
  check(forUser ? RegisterTypeLibForUser(library.get(), path, nullptr)
                : RegisterTypeLib(library.get(), path, nullptr));
}

// A caller who may not write is refused before anything is written: by the opening of the classes,
// or by the type library, which comes first.
void registerBelow(HKEY root, bool forUser) {
  const Text fileName = serverFileName();
  const Key classes(root, kClasses);
  registerTypeLibrary(fileName, forUser);
  for (const ComClass& row : serverDescription().classes) {
    registerClass(classes, *row.info, fileName);
  }
}

// A key that may not even be read is there.
bool isThere(HKEY root, const Text& path, REGSAM view) {
  HKEY key = nullptr;
  const LSTATUS status = RegOpenKeyExW(root, wideText(path), 0, KEY_READ | view, &key);
  if (status == ERROR_SUCCESS) RegCloseKey(key);
  return status != ERROR_FILE_NOT_FOUND && status != ERROR_PATH_NOT_FOUND;
}

// Raises: when the key is there and cannot be removed.
void removeKey(HKEY root, const Text& path) {
  if (isThere(root, path, kOwnView)) checkWin32(RegDeleteTreeW(root, wideText(path)));
}

void removeBelow(HKEY root) {
  for (const ComClass& row : serverDescription().classes) {
    const Text classKey = kClasses + u"\\CLSID\\" + braced(classId(*row.info));
    // First, so that where there is one view only, the class is not taken for the other bitness's.
    removeKey(root, classKey);
    if (isThere(root, classKey, kViewOfOtherBitness)) continue;
    removeKey(root, kClasses + u"\\" + fromAscii(row.info->progId()));
  }
}

void removeTypeLibrary() {
  const LibraryInfo& library = *serverDescription().library;
  const GUID id = platformGuid(libraryId(library));
  UnRegisterTypeLib(id, library.majorVersion, library.minorVersion, LOCALE_NEUTRAL, kSystemKind);
  UnRegisterTypeLibForUser(id, library.majorVersion, library.minorVersion, LOCALE_NEUTRAL,
                           kSystemKind);
}

bool isRefusal(const RunTimeError& error) {
  return error.number() == E_ACCESSDENIED || error.number() == TYPE_E_REGISTRYACCESS;
}

}  // namespace

HRESULT registerServer() noexcept {
  try {
    try {
      registerBelow(HKEY_LOCAL_MACHINE, false);
    } catch (const RunTimeError& error) {
      if (!isRefusal(error)) throw;
      registerBelow(HKEY_CURRENT_USER, true);
    }
    return S_OK;
  } catch (...) {
    return statusOfNumber(currentRunTimeError().number());
  }
}

HRESULT unregisterServer() noexcept {
  try {
    removeBelow(HKEY_LOCAL_MACHINE);
    removeBelow(HKEY_CURRENT_USER);
    removeTypeLibrary();
    return S_OK;
  } catch (...) {
    return statusOfNumber(currentRunTimeError().number());
  }
}

}  // namespace tarvo::com
