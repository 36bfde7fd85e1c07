// Alone in its file: a program that carries another identity (the companion server) defines
// application() itself, and the linker then leaves this one out.
#include "frame/application.h"
#include "frame/version.h"

namespace tarvo {

const Application& application() noexcept {
  static constexpr Application kApplication{kLibraryTitle, kVersionMajor, kVersionMinor,
                                            kVersionRevision};
  return kApplication;
}

}  // namespace tarvo
