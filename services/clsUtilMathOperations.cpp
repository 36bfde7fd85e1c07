#include "services/clsUtilMathOperations.h"

namespace LibTarvoCI {

Currency clsUtilMathOperations::fRound(Currency valValue, std::int16_t valDecimals) {
  if (valDecimals < 0) fail(tarvo::kInvalidProcedureCall, u"valDecimals");
  try {
    return tarvo::roundHalfAwayFromZero(valValue, valDecimals);
  } catch (const tarvo::RunTimeError& error) {
    fail(error.number(), u"valValue");
  }
}

}  // namespace LibTarvoCI
