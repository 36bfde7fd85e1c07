#include "reference/reference.h"

#include <algorithm>
#include <cctype>
#include <span>
#include <string_view>

#include "frame/class_info.h"
#include "public_classes.h"
#include "services/public_classes.h"

namespace tarvo::reference {
namespace {

constexpr std::string_view kIntroduction =
    "# Reference\n"
    "\n"
    "<!-- Made from the member tables by `build/native/tarvo-reference`; a test compares. -->\n"
    "\n"
    "All public classes with their operations in interface order, declared as Visual Basic\n"
    "declares them. `Byte` is 0 to 255, `Integer` 16 bits with a sign, `Long` 32 bits with a "
    "sign,\n"
    "`Currency` an amount with four decimals; texts are counted and may hold any character.\n"
    "`GetX, SetX As T` is a property: `Function GetX() As T` and `Sub SetX(ByVal valNewValue As "
    "T)`.\n"
    "What each class is for, its calling order and its errors stand in its header, and in the\n"
    "[client's guide](clients-guide.md).\n"
    "\n";

std::string visualBasicName(const TypeInfo& type) {
  switch (type.kind) {
    case TypeKind::kNone:
      return "";
    case TypeKind::kByte:
      return "Byte";
    case TypeKind::kInt16:
      return "Integer";
    case TypeKind::kInt32:
      return "Long";
    case TypeKind::kBoolean:
      return "Boolean";
    case TypeKind::kDouble:
      return "Double";
    case TypeKind::kCurrency:
      return "Currency";
    case TypeKind::kDate:
      return "Date";
    case TypeKind::kText:
      return "String";
    case TypeKind::kValue:
      return "Variant";
    case TypeKind::kObject:
      return type.objectClass == nullptr ? "Object" : type.objectClass->name;
    case TypeKind::kEnum:
      return type.enumeration->name;
  }
  return "";
}

std::string declaration(const MemberInfo& member) {
  const bool hasResult = member.result.kind != TypeKind::kNone;
  std::string text = (hasResult ? "Function " : "Sub ") + member.fullName() + "(";
  std::string_view separator;
  for (const ParameterInfo& parameter : member.parameters) {
    text += separator;
    text += parameter.byReference ? "ByRef " : "ByVal ";
    text += parameter.name + (" As " + visualBasicName(parameter.type));
    separator = ", ";
  }
  text += ")";
  return hasResult ? text + " As " + visualBasicName(member.result) : text;
}

// Whether the two rows are a property's: "GetX" and, directly after it, "SetX".
bool isProperty(const MemberInfo& first, const MemberInfo& second) {
  return std::string_view(first.prefix) == "Get" && std::string_view(second.prefix) == "Set" &&
         std::string_view(first.name) == second.name;
}

std::string row(const std::string& written, const char* help) {
  return "| `" + written + "` | " + help + " |\n";
}

std::string classSection(const ClassInfo& info) {
  std::string text = "### `" + std::string(info.name) + "`\n\n" + info.help + ". ProgID `" +
                     info.progId() + "`, class identifier `{" + toString(classId(info)) + "}`.\n\n";
  if (info.members.empty()) return text + "No operations.\n\n";
  text += "| Operation | |\n|---|---|\n";
  for (std::size_t i = 0; i < info.members.size(); ++i) {
    const MemberInfo& member = info.members[i];
    if (i + 1 < info.members.size() && isProperty(member, info.members[i + 1])) {
      std::string both = "Get";
      both.append(member.name).append(", Set").append(member.name);
      both.append(" As ").append(visualBasicName(member.result));
      text += row(both, member.help);
      ++i;
    } else {
      text += row(declaration(member), member.help);
    }
  }
  return text + "\n";
}

std::string enumerationSection(const EnumInfo& info) {
  std::string text = "### `" + std::string(info.name) + "`\n\n" + info.help +
                     ".\n\n| Constant | Value |\n|---|---|\n";
  for (const EnumInfo::Constant& constant : info.constants) {
    text += "| `" + std::string(constant.name) + "` | " + std::to_string(constant.value) + " |\n";
  }
  return text + "\n";
}

// The heading's place as the readers of Markdown make it.
std::string link(const char* name) {
  std::string anchor = name;
  std::ranges::transform(anchor, anchor.begin(), [](unsigned char letter) {
    return static_cast<char>(std::tolower(letter));
  });
  return "[`" + std::string(name) + "`](#" + anchor + ")";
}

void addLibrary(std::string& text, const LibraryInfo& library,
                std::span<const ClassInfo* const> classes,
                std::span<const EnumInfo* const> enumerations) {
  text += "## `" + std::string(library.name) + "`\n\n" + library.help + ". File `" +
          library.fileName + ".dll`, type library version " + std::to_string(library.majorVersion) +
          "." + std::to_string(library.minorVersion) + ".\n\n";
  for (const ClassInfo* info : classes) text += "- " + link(info->name) + ": " + info->help + "\n";
  for (const EnumInfo* info : enumerations) {
    text += "- " + link(info->name) + ": " + info->help + "\n";
  }
  text += "\n";
  for (const ClassInfo* info : classes) text += classSection(*info);
  for (const EnumInfo* info : enumerations) text += enumerationSection(*info);
}

}  // namespace

std::string page() {
  std::string text(kIntroduction);
  addLibrary(text, kPrintLibrary, PublicClasses::infos, PublicEnumerations::infos);
  addLibrary(text, kCoreLibrary, LibTarvoCI::PublicClasses::infos, {});
  text.pop_back();  // one line end at the end
  return text;
}

}  // namespace tarvo::reference
