// The compiled type libraries, row by row against the member tables.
#include <gmock/gmock.h>

#include <cstring>

#include "client.h"
#include "frame/com/face.h"
#include "public_classes.h"
#include "services/public_classes.h"

namespace tarvo::client {
namespace {

struct ServerUnderTest {
  const char* name;
  std::wstring (*path)();
  const LibraryInfo* library;
  std::span<const ClassInfo* const> classes;
  std::span<const EnumInfo* const> enumerations;
};

void PrintTo(const ServerUnderTest& server, std::ostream* out) { *out << server.name; }

const ServerUnderTest kServers[] = {
    {"library", &libraryPath, &kPrintLibrary, PublicClasses::infos, PublicEnumerations::infos},
    {"companion", &companionPath, &kCoreLibrary, LibTarvoCI::PublicClasses::infos, {}},
};

GUID guidOf(const Guid& guid) {
  GUID result;
  std::memcpy(&result, &guid, sizeof result);
  return result;
}

std::string documentation(ITypeInfo* info, MEMBERID id, bool help) {
  Bstr name;
  Bstr text;
  info->GetDocumentation(id, name.out(), text.out(), nullptr, nullptr);
  return utf8(help ? text.get() : name.get());
}

// A type as both sides can say it: the kind, the levels of pointers, the interface's name.
std::string spell(ITypeInfo* info, const TYPEDESC& type) {
  switch (type.vt) {
    case VT_PTR:
      return spell(info, *type.lptdesc) + "*";
    case VT_USERDEFINED: {
      ComPtr<ITypeInfo> target;
      if (FAILED(info->GetRefTypeInfo(type.hreftype, target.out()))) return "unresolved";
      return documentation(target.get(), MEMBERID_NIL, false);
    }
    default:
      return "vt" + std::to_string(type.vt);
  }
}

std::string spell(const TypeInfo& type, bool enumsAreNamed) {
  const auto plain = [](VARTYPE vt) { return "vt" + std::to_string(vt); };
  switch (type.kind) {
    case TypeKind::kNone:
      return plain(VT_VOID);
    case TypeKind::kByte:
      return plain(VT_UI1);
    case TypeKind::kInt16:
      return plain(VT_I2);
    case TypeKind::kInt32:
      return plain(VT_I4);
    case TypeKind::kBoolean:
      return plain(VT_BOOL);
    case TypeKind::kDouble:
      return plain(VT_R8);
    case TypeKind::kCurrency:
      return plain(VT_CY);
    case TypeKind::kDate:
      return plain(VT_DATE);
    case TypeKind::kText:
      return plain(VT_BSTR);
    case TypeKind::kValue:
      return plain(VT_VARIANT);
    case TypeKind::kObject:
      return type.objectClass == nullptr ? plain(VT_DISPATCH)
                                         : type.objectClass->interfaceName() + "*";
    case TypeKind::kEnum:
      return enumsAreNamed ? type.enumeration->name : plain(VT_I4);
  }
  return {};
}

class TypeLibrary : public testing::TestWithParam<ServerUnderTest> {
 protected:
  void SetUp() override {
    // The library's description refers to the core library's, which is found where it lies only
    // after registration; loading it first is enough here.
    ASSERT_EQ(S_OK, LoadTypeLibEx(companionPath().c_str(), REGKIND_NONE, core_.out()));
    ASSERT_EQ(S_OK, LoadTypeLibEx(GetParam().path().c_str(), REGKIND_NONE, library_.out()));
  }

  ComPtr<ITypeInfo> typeOf(const Guid& guid) {
    ComPtr<ITypeInfo> info;
    library_->GetTypeInfoOfGuid(guidOf(guid), info.out());
    return info;
  }

  ComPtr<ITypeLib> core_;
  ComPtr<ITypeLib> library_;
};

// An attribute block of a type description, given back at its end.
class Attributes {
 public:
  explicit Attributes(ITypeInfo* info) : info_(info) { info->GetTypeAttr(&attributes_); }
  ~Attributes() { info_->ReleaseTypeAttr(attributes_); }
  const TYPEATTR* operator->() const { return attributes_; }

 private:
  ITypeInfo* info_;
  TYPEATTR* attributes_ = nullptr;
};

class Function {
 public:
  Function(ITypeInfo* info, UINT index) : info_(info) { info->GetFuncDesc(index, &description_); }
  ~Function() {
    if (description_ != nullptr) info_->ReleaseFuncDesc(description_);
  }
  const FUNCDESC* operator->() const { return description_; }
  explicit operator bool() const { return description_ != nullptr; }

 private:
  ITypeInfo* info_;
  FUNCDESC* description_ = nullptr;
};

TEST_P(TypeLibrary, HasTheLibrarysIdentity) {
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(S_OK, library_->GetLibAttr(&attributes));
  EXPECT_TRUE(attributes->guid == guidOf(libraryId(*GetParam().library)));
  EXPECT_EQ(GetParam().library->majorVersion, attributes->wMajorVerNum);
  EXPECT_EQ(GetParam().library->minorVersion, attributes->wMinorVerNum);
  EXPECT_EQ(sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32, attributes->syskind);
  library_->ReleaseTLibAttr(attributes);
  Bstr name;
  Bstr help;
  library_->GetDocumentation(-1, name.out(), help.out(), nullptr, nullptr);
  EXPECT_EQ(GetParam().library->name, utf8(name.view()));
  EXPECT_EQ(GetParam().library->help, utf8(help.view()));
}

TEST_P(TypeLibrary, HasExactlyTheTypesOfTheTables) {
  EXPECT_EQ(GetParam().classes.size() * 2 + GetParam().enumerations.size(),
            library_->GetTypeInfoCount());
}

TEST_P(TypeLibrary, HasEveryClassWithItsDefaultInterface) {
  for (const ClassInfo* row : GetParam().classes) {
    SCOPED_TRACE(row->name);
    const auto info = typeOf(classId(*row));
    ASSERT_TRUE(info);
    const Attributes attributes(info.get());
    EXPECT_EQ(TKIND_COCLASS, attributes->typekind);
    EXPECT_NE(0, attributes->wTypeFlags & TYPEFLAG_FCANCREATE);
    ASSERT_EQ(1, attributes->cImplTypes);
    int flags = 0;
    info->GetImplTypeFlags(0, &flags);
    EXPECT_EQ(IMPLTYPEFLAG_FDEFAULT, flags);
    HREFTYPE reference = 0;
    info->GetRefTypeOfImplType(0, &reference);
    ComPtr<ITypeInfo> implemented;
    ASSERT_EQ(S_OK, info->GetRefTypeInfo(reference, implemented.out()));
    EXPECT_EQ(row->interfaceName(), documentation(implemented.get(), MEMBERID_NIL, false));
    EXPECT_EQ(row->name, documentation(info.get(), MEMBERID_NIL, false));
    EXPECT_EQ(row->help, documentation(info.get(), MEMBERID_NIL, true));
  }
}

// The virtual side of a dual interface: the one that clients compile against.
ComPtr<ITypeInfo> virtualSide(ITypeInfo* info) {
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> result;
  if (SUCCEEDED(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference))) {
    info->GetRefTypeInfo(reference, result.out());
  }
  return result;
}

void expectParameters(ITypeInfo* info, const Function& function, const MemberInfo& member,
                      bool enumsAreNamed) {
  const bool hasResult = member.result.kind != TypeKind::kNone;
  ASSERT_EQ(member.parameters.size() + (hasResult ? 1 : 0),
            static_cast<std::size_t>(function->cParams));
  BSTR names[32] = {};
  UINT count = 0;
  info->GetNames(function->memid, names, 32, &count);
  for (std::size_t i = 0; i < member.parameters.size(); ++i) {
    const ParameterInfo& parameter = member.parameters[i];
    SCOPED_TRACE(parameter.name);
    const ELEMDESC& described = function->lprgelemdescParam[i];
    EXPECT_EQ(parameter.name, utf8(names[i + 1]));
    EXPECT_EQ(spell(parameter.type, enumsAreNamed) + (parameter.byReference ? "*" : ""),
              spell(info, described.tdesc));
    EXPECT_EQ(parameter.byReference ? PARAMFLAG_FIN | PARAMFLAG_FOUT : PARAMFLAG_FIN,
              described.paramdesc.wParamFlags);
  }
  if (hasResult) {
    const ELEMDESC& described = function->lprgelemdescParam[member.parameters.size()];
    EXPECT_EQ(spell(member.result, enumsAreNamed) + "*", spell(info, described.tdesc));
    EXPECT_EQ(PARAMFLAG_FOUT | PARAMFLAG_FRETVAL, described.paramdesc.wParamFlags);
  }
  for (UINT i = 0; i < count; ++i) SysFreeString(names[i]);
}

TEST_P(TypeLibrary, HasEveryOperationInInterfaceOrderWithItsTypes) {
  const bool enumsAreNamed = !GetParam().enumerations.empty();
  for (const ClassInfo* row : GetParam().classes) {
    SCOPED_TRACE(row->name);
    const auto dispatchSide = typeOf(interfaceId(*row));
    ASSERT_TRUE(dispatchSide);
    const auto info = virtualSide(dispatchSide.get());
    ASSERT_TRUE(info);
    const Attributes attributes(info.get());
    EXPECT_EQ(TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FNONEXTENSIBLE |
                  TYPEFLAG_FHIDDEN | TYPEFLAG_FDISPATCHABLE,
              attributes->wTypeFlags);
    ASSERT_EQ(row->members.size(), attributes->cFuncs);
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
      const MemberInfo& member = row->members[i];
      SCOPED_TRACE(member.fullName());
      const Function function(info.get(), i);
      ASSERT_TRUE(function);
      EXPECT_EQ(static_cast<MEMBERID>(i + 1), function->memid);
      EXPECT_EQ(static_cast<SHORT>((7 + i) * sizeof(void*)), function->oVft);
      EXPECT_EQ(INVOKE_FUNC, function->invkind);
      EXPECT_EQ(CC_STDCALL, function->callconv);
      EXPECT_EQ(VT_HRESULT, function->elemdescFunc.tdesc.vt);
      EXPECT_EQ(member.fullName(), documentation(info.get(), function->memid, false));
      EXPECT_EQ(member.help, documentation(info.get(), function->memid, true));
      EXPECT_NE("", std::string(member.help));
      expectParameters(info.get(), function, member, enumsAreNamed);
    }
  }
}

TEST_P(TypeLibrary, HasEveryEnumerationWithItsValues) {
  for (const EnumInfo* row : GetParam().enumerations) {
    SCOPED_TRACE(row->name);
    ComPtr<ITypeInfo> info;
    MEMBERID found = 0;
    USHORT count = 1;
    auto name = fromAscii(row->name);
    library_->FindName(reinterpret_cast<wchar_t*>(name.data()), 0, info.out(), &found, &count);
    ASSERT_TRUE(info);
    const Attributes attributes(info.get());
    EXPECT_EQ(TKIND_ENUM, attributes->typekind);
    EXPECT_EQ(row->help, documentation(info.get(), MEMBERID_NIL, true));
    ASSERT_EQ(row->constants.size(), attributes->cVars);
    for (UINT i = 0; i < attributes->cVars; ++i) {
      VARDESC* variable = nullptr;
      ASSERT_EQ(S_OK, info->GetVarDesc(i, &variable));
      EXPECT_EQ(row->constants[i].name, documentation(info.get(), variable->memid, false));
      EXPECT_EQ(row->constants[i].value, V_I4(variable->lpvarValue));
      info->ReleaseVarDesc(variable);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Servers, TypeLibrary, testing::ValuesIn(kServers),
                         [](const auto& suite) { return std::string(suite.param.name); });

}  // namespace
}  // namespace tarvo::client
