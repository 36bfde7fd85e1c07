// The services on which a translated line depends: as long as they are the same ones, what was read
// once need not be read again, and what was formatted once need not be formatted again.
//
// Threads: one.
#pragma once

#include "frame/modRDPGlobalValues.h"

namespace tarvo {

class ServicesSeen {
 public:
  // Looks at the present ones: whether they are those of the last look.
  bool areTheSame() {
    if (services_ != nullptr && arePresent()) return true;
    return isNothingNew();
  }

  // The same question without a new look.  REQUIRES: there was a look.
  bool arePresent() const noexcept {
    return services_->refInsTexto == texto_ && services_->refInsConvert == convert_ &&
           services_->refInsUtilDate == dates_ && services_->refInsUtilMathOperations == math_;
  }

  // The present printer channel; null when there is none.  REQUIRES: there was a look.
  const clsUtilImp* printer() const noexcept { return services_->refInsImp.get(); }

  // Of the last look.  A service that is missing is missed where it is asked.
  bool mayBypassTexto() const noexcept { return mayBypassTexto_; }
  bool mayBypassAll() const noexcept { return mayBypassAll_; }

  // Of the last look, and not of a present one.  REQUIRES: putsFields().
  bool putsFields() const noexcept { return putsFields_; }
  clsConvert& numbers() const noexcept { return *convert_.get(); }

 private:
  // Looks thoroughly.
  [[gnu::noinline]] bool isNothingNew() {
    services_ = &modRDPGlobalValues::ofThisThread();
    if (arePresent()) return true;
    texto_ = services_->refInsTexto;
    convert_ = services_->refInsConvert;
    dates_ = services_->refInsUtilDate;
    math_ = services_->refInsUtilMathOperations;
    mayBypassTexto_ = mayBypass(texto_);
    putsFields_ = convert_ && convert_->putsFields();
    mayBypassAll_ = mayBypassTexto_ && mayBypass(convert_) && mayBypass(dates_) && mayBypass(math_);
    return false;
  }

  template <class Service>
  static bool mayBypass(const Ref<Service>& service) noexcept {
    return service && service->mayBeBypassed();
  }

  const modRDPGlobalValues* services_ = nullptr;  // of the thread, and there as long as it

  // Held, so that a new service never stands where an old one stood.
  Ref<clsTexto> texto_;
  Ref<clsConvert> convert_;
  Ref<clsUtilDate> dates_;
  Ref<clsUtilMathOperations> math_;
  bool mayBypassTexto_ = false;
  bool mayBypassAll_ = false;
  bool putsFields_ = false;
};

}  // namespace tarvo
