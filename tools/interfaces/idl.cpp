#include "interfaces/idl.h"

namespace tarvo::interfaces {
namespace {

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

std::string versionOf(const LibraryInfo& library) {
  return std::to_string(library.majorVersion) + "." + std::to_string(library.minorVersion);
}

// Enumerations belong to one library; where that one is not known they travel as what they are.
enum class EnumSpelling { kByName, kAsInteger };

std::string spell(const TypeInfo& type, EnumSpelling enums) {
  switch (type.kind) {
    case TypeKind::kNone:
      return "void";
    case TypeKind::kByte:
      return "unsigned char";
    case TypeKind::kInt16:
      return "short";
    case TypeKind::kInt32:
      return "long";
    case TypeKind::kBoolean:
      return "VARIANT_BOOL";
    case TypeKind::kDouble:
      return "double";
    case TypeKind::kCurrency:
      return "CURRENCY";
    case TypeKind::kDate:
      return "DATE";
    case TypeKind::kText:
      return "BSTR";
    case TypeKind::kValue:
      return "VARIANT";
    case TypeKind::kObject:
      return (type.objectClass == nullptr ? "IDispatch" : type.objectClass->interfaceName()) + "*";
    case TypeKind::kEnum:
      return enums == EnumSpelling::kByName ? type.enumeration->name : std::string("long");
  }
  return {};
}

std::string parameterIdl(const ParameterInfo& parameter, EnumSpelling enums) {
  const std::string type = spell(parameter.type, enums);
  return parameter.byReference ? "[in, out] " + type + "* " + parameter.name
                               : "[in] " + type + " " + parameter.name;
}

std::string memberIdl(const MemberInfo& member, std::size_t id, EnumSpelling enums) {
  std::string out = "  [id(" + std::to_string(id) + "), helpstring(" + quoted(member.help) +
                    ")]\n  HRESULT " + member.fullName() + "(";
  const char* separator = "";
  for (const ParameterInfo& parameter : member.parameters) {
    out += separator + parameterIdl(parameter, enums);
    separator = ", ";
  }
  if (member.result.kind != TypeKind::kNone) {
    out += separator + ("[out, retval] " + spell(member.result, enums) + "* result");
  }
  return out + ");\n";
}

std::string interfaceIdl(const ClassInfo& info, EnumSpelling enums) {
  std::string out = "[object, uuid(" + toString(interfaceId(info)) +
                    "), dual, oleautomation, nonextensible, hidden,\n pointer_default(unique), "
                    "helpstring(" +
                    quoted(info.help) + ")]\ninterface " + info.interfaceName() +
                    " : IDispatch {\n";
  std::size_t id = 0;
  for (const MemberInfo& member : info.members) out += memberIdl(member, ++id, enums);
  return out + "}\n\n";
}

std::string forwardDeclarations(const LibraryContent& content) {
  std::string out;
  for (const ClassInfo* info : content.classes) out += "interface " + info->interfaceName() + ";\n";
  return out + "\n";
}

std::string allInterfaces(const LibraryContent& content, EnumSpelling enums) {
  std::string out = forwardDeclarations(content);
  for (const ClassInfo* info : content.classes) out += interfaceIdl(*info, enums);
  return out;
}

std::string enumIdl(const EnumInfo& info) {
  std::string out = "typedef [helpstring(" + quoted(info.help) + ")]\nenum " + info.name + " {\n";
  const char* separator = "";
  for (const EnumInfo::Constant& constant : info.constants) {
    out += separator + ("  " + std::string(constant.name)) + " = " + std::to_string(constant.value);
    separator = ",\n";
  }
  return out + "\n} " + info.name + ";\n\n";
}

std::string classIdl(const ClassInfo& info) {
  return "[uuid(" + toString(classId(info)) + "), helpstring(" + quoted(info.help) +
         ")]\ncoclass " + info.name + " {\n  [default] interface " + info.interfaceName() +
         ";\n}\n\n";
}

std::string openLibrary(const LibraryInfo& library) {
  return "[uuid(" + toString(libraryId(library)) + "), version(" + versionOf(library) +
         "), helpstring(" + quoted(library.help) + ")]\nlibrary " + library.name +
         " {\nimportlib(\"stdole2.tlb\");\n";
}

constexpr const char* kMadeByBuild = "// Made by the build from the member tables.\n";

}  // namespace

std::string interfaceIdl(const LibraryContent& content) {
  return kMadeByBuild + std::string("import \"prelude.idl\";\n\n") +
         allInterfaces(content, EnumSpelling::kAsInteger);
}

std::string libraryIdl(const LibraryContent& content, const std::string& interfacesFile) {
  std::string out = kMadeByBuild + ("import \"prelude.idl\";\nimport " + quoted(interfacesFile)) +
                    ";\n\n" + openLibrary(content.library);
  for (const ClassInfo* info : content.classes) out += classIdl(*info);
  return out + "}\n";
}

std::string libraryIdl(const LibraryContent& content, const LibraryInfo& imported,
                       const std::string& interfacesFile) {
  std::string out = kMadeByBuild + ("import \"prelude.idl\";\nimport " + quoted(interfacesFile)) +
                    ";\n\n" + openLibrary(content.library) + "importlib(" +
                    quoted(std::string(imported.fileName) + ".tlb") + ");\n\n";
  for (const EnumInfo* info : content.enumerations) out += enumIdl(*info);
  out += allInterfaces(content, EnumSpelling::kByName);
  for (const ClassInfo* info : content.classes) out += classIdl(*info);
  return out + "}\n";
}

std::string assemblyManifest(const LibraryContent& content, bool is64Bit) {
  const LibraryInfo& library = content.library;
  const std::string libid = "{" + toString(libraryId(library)) + "}";
  std::string out =
      "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
      "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
      "  <assemblyIdentity type=\"win32\" name=" +
      quoted(library.fileName) + " version=" + quoted(versionOf(library) + ".0.0") +
      " processorArchitecture=" + quoted(is64Bit ? "amd64" : "x86") +
      "/>\n"
      "  <file name=" +
      quoted(std::string(library.fileName) + ".dll") + ">\n";
  for (const ClassInfo* info : content.classes) {
    out += "    <comClass clsid=\"{" + toString(classId(*info)) +
           "}\" progid=" + quoted(info->progId()) + " tlbid=" + quoted(libid) +
           "\n              threadingModel=\"Apartment\" description=" + quoted(info->help) +
           "/>\n";
  }
  return out + "    <typelib tlbid=" + quoted(libid) + " version=" + quoted(versionOf(library)) +
         " helpdir=\"\"/>\n  </file>\n</assembly>\n";
}

}  // namespace tarvo::interfaces
