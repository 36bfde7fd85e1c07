#include "services/fail.h"

#include <utility>

#include "frame/run_time_error.h"

namespace LibTarvoCI {

void fail(std::int32_t number, TextView about) {
  Text description = tarvo::describeErrorNumber(number);
  if (!about.empty()) description.append(u": ").append(about);
  throw tarvo::RunTimeError(number, {Text(kProjectTitle), std::move(description), {}, 0});
}

}  // namespace LibTarvoCI
