#include "tarvordp/print/traced_errors.h"

namespace tarvordp {

TracedErrors::TracedErrors(Trace& trace)
    : trace_(trace), describing_(tarvo::make<LibTarvoCI::clsError>()) {}

// The service is asked while the error is being handled, so its number can be had.
void TracedErrors::fDescribeError(tarvo::TextView valDescription, tarvo::TextView valClassName,
                                  tarvo::TextView valProcedureName,
                                  tarvo::TextView valModuleDescription, std::int16_t valKind,
                                  std::int32_t valHelpContext, tarvo::TextView valHelpFile,
                                  std::int32_t valLastDllError, std::int32_t valReserved,
                                  tarvo::Text& result) {
  describing_->fDescribeError(valDescription, valClassName, valProcedureName, valModuleDescription,
                              valKind, valHelpContext, valHelpFile, valLastDllError, valReserved,
                              result);
  if (!trace_.isOn()) return;
  trace_.write({{"event", "error"},
                {"class", tarvo::toUtf8(valClassName)},
                {"procedure", tarvo::toUtf8(valProcedureName)},
                {"module", tarvo::toUtf8(valModuleDescription)},
                {"number", tarvo::currentRunTimeError().number()},
                {"description", tarvo::toUtf8(result)}});
}

}  // namespace tarvordp
