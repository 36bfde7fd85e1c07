// Writes the interface definitions of a library from its member tables.
#pragma once

#include <span>
#include <string>

#include "frame/class_info.h"

namespace tarvo::interfaces {

// A library with what it offers.
struct LibraryContent {
  const LibraryInfo& library;
  std::span<const ClassInfo* const> classes;
  std::span<const EnumInfo* const> enumerations;
};

// The interfaces alone, for another library's definitions to import.
// REQUIRES: none of them uses an enumeration of its own library.
std::string interfaceIdl(const LibraryContent& content);

// A library whose interfaces stand in `interfacesFile`.
std::string libraryIdl(const LibraryContent& content, const std::string& interfacesFile);

// A library that uses the interfaces of `imported`, whose definitions stand in `interfacesFile`.
std::string libraryIdl(const LibraryContent& content, const LibraryInfo& imported,
                       const std::string& interfacesFile);

// The assembly manifest for using the library's classes without registration.
std::string assemblyManifest(const LibraryContent& content, bool is64Bit);

}  // namespace tarvo::interfaces
