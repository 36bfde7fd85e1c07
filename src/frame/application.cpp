#include "frame/application.h"

#include "frame/platform.h"

namespace tarvo {
namespace {

Text& replacedFolder() {
  static Text folder;
  return folder;
}

}  // namespace

Text applicationFolder() {
  return replacedFolder().empty() ? platform::libraryFolder() : replacedFolder();
}

void setApplicationFolder(TextView folder) { replacedFolder() = folder; }

}  // namespace tarvo
