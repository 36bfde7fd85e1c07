# Writes a source file that holds the shipped profiles' files as they are, so that the program finds
# them wherever it is run.
#
#   cmake -DOUTPUT=FILE.cpp -DFOLDER=PROFILES -DNAMES=NAME,NAME... -P embed_profiles.cmake
string(REPLACE "," ";" NAMES "${NAMES}")
set(source "// Made from the profiles' files at build time.\n#include \"tarvordp/profile/shipped.h\"\n
namespace tarvordp {\n\nconst std::vector<ShippedFile>& shippedFiles() {
  static const std::vector<ShippedFile> kFiles{\n")
foreach(name IN LISTS NAMES)
  file(READ "${FOLDER}/${name}.json" text)
  string(APPEND source "      {\"${name}\", R\"profile(${text})profile\"},\n")
endforeach()
string(APPEND source "  };\n  return kFiles;\n}\n\n}  // namespace tarvordp\n")
file(WRITE "${OUTPUT}" "${source}")
