// The profiles that the program carries: the files of tools/tarvordp/profiles, taken into it when
// it was built, so that none is looked for on a disk.
#pragma once

#include <string_view>
#include <vector>

namespace tarvordp {

struct ShippedFile {
  std::string_view name;  // "epson-9pin"
  std::string_view text;  // the file's content
};

// In the order in which they are shown.
const std::vector<ShippedFile>& shippedFiles();

}  // namespace tarvordp
