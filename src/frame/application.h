// The running library itself: what it is called, which version it is, and where it was loaded from.
#pragma once

#include <cstdint>

#include "frame/text.h"

namespace tarvo {

struct Application {
  TextView title;  // the project title; also the source of the library's own run-time errors
  std::uint16_t major = 0;
  std::uint16_t minor = 0;
  std::uint16_t revision = 0;
};

// The three numbers come from the build.
const Application& application() noexcept;

// The folder that the library's file was loaded from, without a separator at its end.  Parts are
// separated by "\" on every platform.
Text applicationFolder();

// For tests and for programs that carry the library inside them: answers `folder` from now on.
// An empty text goes back to the real one.
void setApplicationFolder(TextView folder);

}  // namespace tarvo
