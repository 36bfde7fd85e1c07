// How tests ask for the run-time error that something ends in.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "frame/run_time_error.h"

namespace tarvo::test {

// The run-time error that the action ends in; none when it succeeds.  Any other exception goes on.
template <class Action>
std::optional<RunTimeError> errorOf(Action&& action) {
  try {
    std::forward<Action>(action)();
  } catch (const RunTimeError& error) {
    return error;
  }
  return std::nullopt;
}

// Its number; 0 when the action succeeds.
template <class Action>
std::int32_t errorNumberOf(Action&& action) {
  const std::optional<RunTimeError> error = errorOf(std::forward<Action>(action));
  return error ? error->number() : 0;
}

}  // namespace tarvo::test
