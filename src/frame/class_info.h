// What the outside may know of a public class: its operations with their names, types and order.
//
// The descriptions are made from the member tables (member_table.h), never written by hand.  The
// type library, the late-bound calls, the registration and the reference pages all read them.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace tarvo {

struct ClassInfo;
struct EnumInfo;

struct Guid {
  std::uint32_t data1 = 0;
  std::uint16_t data2 = 0;
  std::uint16_t data3 = 0;
  std::array<std::uint8_t, 8> data4{};

  friend constexpr bool operator==(const Guid&, const Guid&) = default;
};

// A type library's name, and the first of the consecutive identifiers of which its own is one.
struct LibraryInfo {
  const char* name;      // "LibTarvoRdpCI": also the first part of every ProgID
  const char* fileName;  // without its ending
  const char* help;
  Guid firstGuid;
  std::uint16_t majorVersion;
  std::uint16_t minorVersion;
};

enum class TypeKind : std::uint8_t {
  kNone,
  kByte,     // unsigned 8-bit
  kInt16,    // signed
  kInt32,    // signed
  kBoolean,  // the kind of COM: 16 bits, 0 or -1
  kDouble,
  kCurrency,
  kDate,
  kText,
  kValue,  // any value
  kObject,
  kEnum,
};

struct TypeInfo {
  TypeKind kind = TypeKind::kNone;
  const ClassInfo* objectClass = nullptr;  // kObject: none means an object of any kind
  const EnumInfo* enumeration = nullptr;   // kEnum
};

struct ParameterInfo {
  const char* name;
  TypeInfo type;
  bool byReference;
};

struct MemberInfo {
  const char* prefix;  // "Get" or "Set" for the two operations of a property, else ""
  const char* name;    // what follows the prefix
  const char* help;
  std::span<const ParameterInfo> parameters;
  TypeInfo result;  // kNone: no result

  std::string fullName() const { return std::string(prefix) + name; }
};

struct ClassInfo {
  const char* name;
  const char* help;
  const LibraryInfo* library;
  std::uint16_t number;  // 1 and up, once per library; the identifiers follow from it
  std::span<const MemberInfo> members;

  std::string interfaceName() const { return std::string("_") + name; }
  std::string progId() const { return std::string(library->name) + "." + name; }
};

struct EnumInfo {
  struct Constant {
    const char* name;
    std::int32_t value;
  };

  const char* name;
  const char* help;
  std::span<const Constant> constants;
};

// The identifiers of a library, of a class's default interface and of the class.  Consecutive, so
// that a class needs no more than its number.
constexpr Guid libraryId(const LibraryInfo& library) { return library.firstGuid; }
constexpr Guid interfaceId(const ClassInfo& info) {
  Guid id = info.library->firstGuid;
  id.data1 += info.number * 2u;
  return id;
}
constexpr Guid classId(const ClassInfo& info) {
  Guid id = interfaceId(info);
  id.data1 += 1;
  return id;
}

// "01234567-89AB-CDEF-0123-456789ABCDEF"
std::string toString(const Guid& guid);

}  // namespace tarvo
