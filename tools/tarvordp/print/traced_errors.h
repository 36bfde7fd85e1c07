// The error service of a printed job: describes errors as the core library's stand-in does, and
// traces them.
#pragma once

#include "services/clsError.h"
#include "tarvordp/print/trace.h"

namespace tarvordp {

class TracedErrors final : public tarvo::clsError {
 public:
  // REQUIRES: `trace` outlives the calls.
  explicit TracedErrors(Trace& trace);

  void fDescribeError(tarvo::TextView valDescription, tarvo::TextView valClassName,
                      tarvo::TextView valProcedureName, tarvo::TextView valModuleDescription,
                      std::int16_t valKind, std::int32_t valHelpContext,
                      tarvo::TextView valHelpFile, std::int32_t valLastDllError,
                      std::int32_t valReserved, tarvo::Text& result) override;

 private:
  Trace& trace_;
  tarvo::Ref<tarvo::clsError> describing_;
};

}  // namespace tarvordp
