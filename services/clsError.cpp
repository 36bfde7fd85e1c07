#include "services/clsError.h"

namespace LibTarvoCI {

void clsError::fDescribeError(TextView valDescription, TextView valClassName,
                              TextView valProcedureName, TextView valModuleDescription,
                              std::int16_t, std::int32_t, TextView, std::int32_t, std::int32_t,
                              Text& result) {
  result.assign(valDescription)
      .append(u"\r\n   en ")
      .append(valClassName)
      .append(u".")
      .append(valProcedureName)
      .append(u" (")
      .append(valModuleDescription)
      .append(u")");
}

}  // namespace LibTarvoCI
