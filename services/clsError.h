// Stand-in of the error service: turns a description into a call trace.
#pragma once

#include "frame/services.h"
#include "services/fail.h"

namespace LibTarvoCI {

class clsError final : public tarvo::clsError {
 public:
  // The description, then on a line of its own "   en CLASS.PROCEDURE (MODULE)".  As every
  // procedure that an error passes asks once, the lines end up innermost first.
  void fDescribeError(TextView valDescription, TextView valClassName, TextView valProcedureName,
                      TextView valModuleDescription, std::int16_t valKind,
                      std::int32_t valHelpContext, TextView valHelpFile,
                      std::int32_t valLastDllError, std::int32_t valReserved,
                      Text& result) override;
};

}  // namespace LibTarvoCI
