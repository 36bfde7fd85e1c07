// Stand-in of the math service.
#pragma once

#include "frame/services.h"
#include "services/fail.h"

namespace LibTarvoCI {

class clsUtilMathOperations final : public tarvo::clsUtilMathOperations {
 public:
  // Half away from zero; 4 decimals and more leave the value as it is.
  // Raises: 5 for negative decimals, 6 when the rounded amount leaves the range.
  Currency fRound(Currency valValue, std::int16_t valDecimals) override;

  bool mayBeBypassed() const noexcept override { return true; }
};

}  // namespace LibTarvoCI
