// Registration: per machine, per user where the machine's registry is closed, and not at all.
#include <gmock/gmock.h>

#include "client.h"

namespace tarvo::client {
namespace {

constexpr wchar_t kClassOfNameKey[] = L"Software\\Classes\\LibTarvoRdpCI.clsUtilImp\\CLSID";
constexpr wchar_t kClassKey[] = L"Software\\Classes\\CLSID\\{6EBE584D-9189-4448-8733-932D5F4DAD12}";

// A key's default value; "(none)" when the key is not there.
std::string valueOf(HKEY root, const std::wstring& path, const wchar_t* name = nullptr) {
  wchar_t value[512] = {};
  DWORD size = sizeof value;
  if (RegGetValueW(root, path.c_str(), name, RRF_RT_REG_SZ, nullptr, value, &size) !=
      ERROR_SUCCESS) {
    return "(none)";
  }
  return utf8(com::fromWide(value));
}

// On a 64-bit Windows each bitness has class keys of its own in the machine's registry.
bool isWindows64Bit() {
  BOOL isBeside64Bit = FALSE;
  IsWow64Process(GetCurrentProcess(), &isBeside64Bit);
  return sizeof(void*) == 8 || isBeside64Bit;
}

// For its life, the class is registered for the programs of the other bitness as well; on a 32-bit
// Windows, where there are none, that is once more for those that there are.
class ClassOfOtherBitness {
 public:
  ClassOfOtherBitness() {
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, kClassKey, 0, nullptr, 0, KEY_WRITE | kView, nullptr, &key,
                    nullptr);
    RegCloseKey(key);
  }
  ~ClassOfOtherBitness() { RegDeleteKeyExW(HKEY_LOCAL_MACHINE, kClassKey, kView, 0); }

  bool isThere() const {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, kClassKey, 0, KEY_READ | kView, &key) != ERROR_SUCCESS) {
      return false;
    }
    RegCloseKey(key);
    return true;
  }

 private:
  static constexpr REGSAM kView = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
};

// For its life, nobody may open a key of the machine's registry, as for an ordinary account.
class ClosedKey {
 public:
  explicit ClosedKey(const wchar_t* path) : path_(path) {
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, KEY_ALL_ACCESS, &key_);
    DWORD size = sizeof before_;
    RegGetKeySecurity(key_, DACL_SECURITY_INFORMATION, before_, &size);
    ACL nobody;
    InitializeAcl(&nobody, sizeof nobody, ACL_REVISION);
    SECURITY_DESCRIPTOR closed;
    InitializeSecurityDescriptor(&closed, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&closed, TRUE, &nobody, FALSE);
    RegSetKeySecurity(key_, DACL_SECURITY_INFORMATION, &closed);
  }
  ~ClosedKey() {
    RegSetKeySecurity(key_, DACL_SECURITY_INFORMATION, before_);
    RegCloseKey(key_);
  }

  bool isClosed() const {
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(HKEY_LOCAL_MACHINE, path_, 0, KEY_WRITE, &key);
    if (status == ERROR_SUCCESS) RegCloseKey(key);
    return status == ERROR_ACCESS_DENIED;
  }

 private:
  const wchar_t* path_;
  HKEY key_ = nullptr;
  BYTE before_[1024] = {};
};

class Registration : public testing::Test {
 protected:
  void SetUp() override {
    CoInitialize(nullptr);
    companion().registerServer();
    library().unregisterServer();
  }
  void TearDown() override {
    library().unregisterServer();
    CoUninitialize();
  }

  std::string key(HKEY root, const wchar_t* sub) {
    return valueOf(root, kClassKey + std::wstring(sub));
  }
};

TEST_F(Registration, ForTheMachineWritesEveryKey) {
  ASSERT_EQ(S_OK, library().registerServer());
  const HKEY machine = HKEY_LOCAL_MACHINE;
  EXPECT_EQ("LibTarvoRdpCI.clsUtilImp", key(machine, L""));
  EXPECT_EQ("LibTarvoRdpCI.clsUtilImp", key(machine, L"\\ProgID"));
  EXPECT_EQ(utf8(com::fromWide(libraryPath().c_str())), key(machine, L"\\InprocServer32"));
  EXPECT_EQ("Apartment",
            valueOf(machine, std::wstring(kClassKey) + L"\\InprocServer32", L"ThreadingModel"));
  EXPECT_EQ("{6EBE5848-9189-4448-8733-932D5F4DAD12}", key(machine, L"\\TypeLib"));
  EXPECT_EQ("{6EBE584D-9189-4448-8733-932D5F4DAD12}", valueOf(machine, kClassOfNameKey));
  EXPECT_EQ("(none)", key(HKEY_CURRENT_USER, L""));
}

TEST_F(Registration, LetsClientsCreateByProgId) {
  ASSERT_EQ(S_OK, library().registerServer());
  CLSID id;
  ASSERT_EQ(S_OK, CLSIDFromProgID(L"LibTarvoRdpCI.clsUtilImp", &id));
  ComPtr<_clsUtilImp> printer;
  EXPECT_EQ(S_OK, CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_clsUtilImp),
                                   printer.outVoid()));
}

TEST_F(Registration, RegistersTheTypeLibrary) {
  ASSERT_EQ(S_OK, library().registerServer());
  ComPtr<ITypeLib> found;
  GUID libid;
  CLSIDFromString(L"{6EBE5848-9189-4448-8733-932D5F4DAD12}", &libid);
  EXPECT_EQ(S_OK, LoadRegTypeLib(libid, 1, 0, LOCALE_NEUTRAL, found.out()));
}

TEST_F(Registration, MayBeDoneTwice) {
  EXPECT_EQ(S_OK, library().registerServer());
  EXPECT_EQ(S_OK, library().registerServer());
}

TEST_F(Registration, GoesToTheUserWhereTheMachinesRegistryIsClosed) {
  {
    const ClosedKey closed(L"Software\\Classes");
    ASSERT_TRUE(closed.isClosed());
    ASSERT_EQ(S_OK, library().registerServer());
  }
  EXPECT_EQ("(none)", key(HKEY_LOCAL_MACHINE, L""));
  EXPECT_EQ("LibTarvoRdpCI.clsUtilImp", key(HKEY_CURRENT_USER, L""));
  EXPECT_EQ(utf8(com::fromWide(libraryPath().c_str())),
            key(HKEY_CURRENT_USER, L"\\InprocServer32"));
  EXPECT_EQ("{6EBE584D-9189-4448-8733-932D5F4DAD12}", valueOf(HKEY_CURRENT_USER, kClassOfNameKey));
}

TEST_F(Registration, UnregisteringRemovesBothWays) {
  {
    const ClosedKey closed(L"Software\\Classes");
    ASSERT_TRUE(closed.isClosed());
    ASSERT_EQ(S_OK, library().registerServer());
  }
  ASSERT_EQ(S_OK, library().registerServer());
  ASSERT_EQ(S_OK, library().unregisterServer());
  for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    EXPECT_EQ("(none)", key(root, L""));
    EXPECT_EQ("(none)", valueOf(root, kClassOfNameKey));
  }
}

// The name is the same for both bitnesses, so it stays as long as one of them has the class.  On a
// 32-bit Windows, where the 32-bit tests run, there is no other one that it could stay for.
TEST_F(Registration, TheNameGoesWithTheLastBitness) {
  ASSERT_EQ(S_OK, library().registerServer());
  {
    const ClassOfOtherBitness other;
    ASSERT_TRUE(other.isThere());
    ASSERT_EQ(S_OK, library().unregisterServer());
    EXPECT_EQ("(none)", key(HKEY_LOCAL_MACHINE, L""));
    EXPECT_EQ(isWindows64Bit(), other.isThere());
    EXPECT_EQ(isWindows64Bit() ? "{6EBE584D-9189-4448-8733-932D5F4DAD12}" : "(none)",
              valueOf(HKEY_LOCAL_MACHINE, kClassOfNameKey));
  }
  ASSERT_EQ(S_OK, library().registerServer());
  ASSERT_EQ(S_OK, library().unregisterServer());
  EXPECT_EQ("(none)", valueOf(HKEY_LOCAL_MACHINE, kClassOfNameKey));
}

TEST_F(Registration, UnregisteringSaysSoWhenItIsRefused) {
  ASSERT_EQ(S_OK, library().registerServer());
  {
    const ClosedKey closed(kClassKey);
    ASSERT_TRUE(closed.isClosed());
    EXPECT_NE(S_OK, library().unregisterServer());
  }
  EXPECT_EQ("LibTarvoRdpCI.clsUtilImp", key(HKEY_LOCAL_MACHINE, L""));
  EXPECT_EQ(S_OK, library().unregisterServer());
  EXPECT_EQ("(none)", key(HKEY_LOCAL_MACHINE, L""));
}

TEST_F(Registration, IsNotNeededWithTheManifest) {
  CLSID id;
  ASSERT_NE(S_OK, CLSIDFromProgID(L"LibTarvoRdpCI.clsUtilImp", &id)) << "still registered";
  const std::wstring manifest = productFolder() + L"LibTarvoRdpCI_2402.manifest";
  ACTCTXW context{};
  context.cbSize = sizeof context;
  context.lpSource = manifest.c_str();
  const HANDLE handle = CreateActCtxW(&context);
  ASSERT_NE(INVALID_HANDLE_VALUE, handle);
  ULONG_PTR cookie = 0;
  ASSERT_TRUE(ActivateActCtx(handle, &cookie));
  ComPtr<_clsUtilImp> printer;
  EXPECT_EQ(S_OK, CLSIDFromProgID(L"LibTarvoRdpCI.clsUtilImp", &id));
  EXPECT_EQ(S_OK, CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_clsUtilImp),
                                   printer.outVoid()));
  EXPECT_TRUE(printer);
  printer.reset();
  DeactivateActCtx(0, cookie);
  ReleaseActCtx(handle);
}

}  // namespace
}  // namespace tarvo::client
