// tarvo-interfaces: writes the interface definitions and manifests of both servers into a folder.
// A tool of the build; the Windows build runs it on the build machine.
#include <cstdio>
#include <string>

#include "interfaces/idl.h"
#include "public_classes.h"
#include "services/public_classes.h"

namespace {

using namespace tarvo;
using interfaces::LibraryContent;

constexpr LibraryContent kPrint{kPrintLibrary, PublicClasses::infos, PublicEnumerations::infos};
constexpr LibraryContent kCore{kCoreLibrary, LibTarvoCI::PublicClasses::infos, {}};

bool writeFile(const std::string& path, const std::string& content) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return false;
  const bool written = std::fwrite(content.data(), 1, content.size(), file) == content.size();
  return std::fclose(file) == 0 && written;
}

bool writeAll(const std::string& folder, bool is64Bit) {
  const std::string core = kCoreLibrary.fileName;
  const std::string print = kPrintLibrary.fileName;
  const std::string interfacesFile = core + "_interfaces.idl";
  return writeFile(folder + "/" + interfacesFile, interfaces::interfaceIdl(kCore)) &&
         writeFile(folder + "/" + core + ".idl", interfaces::libraryIdl(kCore, interfacesFile)) &&
         writeFile(folder + "/" + print + ".idl",
                   interfaces::libraryIdl(kPrint, kCoreLibrary, interfacesFile)) &&
         writeFile(folder + "/" + core + ".manifest",
                   interfaces::assemblyManifest(kCore, is64Bit)) &&
         writeFile(folder + "/" + print + ".manifest",
                   interfaces::assemblyManifest(kPrint, is64Bit));
}

}  // namespace

int main(int count, char** arguments) {
  const std::string bits = count == 3 ? arguments[2] : "";
  if (bits != "32" && bits != "64") {
    std::fprintf(stderr, "usage: tarvo-interfaces FOLDER 32|64\n");
    return 2;
  }
  if (!writeAll(arguments[1], bits == "64")) {
    std::perror(arguments[1]);
    return 1;
  }
  return 0;
}
