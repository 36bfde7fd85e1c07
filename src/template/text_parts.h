// The text service as the template language asks it.
//
// A place or a size of zero that comes out of a template or from a client means no characters,
// where the service's own count of 0 means to the end; and a text of negative size is error 5 (a
// "}" before its "{").
#pragma once

#include <cstdint>

#include "frame/modRDPGlobalValues.h"
#include "frame/run_time_error.h"
#include "frame/services.h"

namespace tarvo {

class TextParts {
 public:
  // The service of the present call: it may be replaced meanwhile.
  TextParts() : service_(modRDPGlobalValues::ofThisThread().refInsTexto) {}

  clsTexto* operator->() const { return &*service_; }

  // 0: not found.
  std::int32_t position(TextView text, TextView searched) const {
    return service_->fPosition(text, searched, 1);
  }

  // The `count` characters from `start`.  Raises: 5 when count is negative.
  void part(TextView text, std::int32_t start, std::int32_t count, Text& result) const {
    if (count < 0) throw RunTimeError(kInvalidProcedureCall);
    if (count == 0) {
      result.clear();
    } else {
      service_->fPart(text, start, count, result);
    }
  }

  // What follows the place.
  void after(TextView text, std::int32_t place, Text& result) const {
    service_->fPart(text, place + 1, 0, result);
  }

  // In place.
  void part(Text& text, std::int32_t start, std::int32_t count) const {
    Text result;
    part(text, start, count, result);
    text.swap(result);
  }
  void keepAfter(Text& text, std::int32_t place) const {
    Text result;
    after(text, place, result);
    text.swap(result);
  }
  void trim(Text& text) const {
    Text result;
    service_->fTrim(text, result);
    text.swap(result);
  }

 private:
  Ref<clsTexto> service_;
};

}  // namespace tarvo
