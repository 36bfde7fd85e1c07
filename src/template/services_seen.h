// The services on which the reading of a template depends: as long as they are the same ones, what
// was read once need not be read again.
//
// Threads: one.
#pragma once

#include "frame/modRDPGlobalValues.h"

namespace tarvo {

class ServicesSeen {
 public:
  // Looks at the present ones: whether they are those of the last look.
  bool areTheSame() {
    services_ = &modRDPGlobalValues::ofThisThread();
    if (arePresent()) return true;
    texto_ = services_->refInsTexto;
    convert_ = services_->refInsConvert;
    return false;
  }

  // The same question without a new look.  REQUIRES: there was a look.
  bool arePresent() const noexcept {
    return services_->refInsTexto == texto_ && services_->refInsConvert == convert_;
  }

  // The text service of the last look.
  const clsTexto* texto() const noexcept { return texto_.get(); }

 private:
  const modRDPGlobalValues* services_ = nullptr;  // of the thread, and there as long as it

  // Held, so that a new service never stands where an old one stood.
  Ref<clsTexto> texto_;
  Ref<clsConvert> convert_;
};

}  // namespace tarvo
