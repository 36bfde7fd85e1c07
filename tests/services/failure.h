// How an operation of a stand-in ends: "none", or the error's number, source and description, for
// instance "5 LibTarvoCI: Invalid procedure call or argument: valStart".
#pragma once

#include <string>
#include <utility>

#include "equipment/errors.h"

namespace LibTarvoCI::test {

template <class Action>
std::string failureOf(Action&& action) {
  const auto error = tarvo::test::errorOf(std::forward<Action>(action));
  if (!error) return "none";
  return std::to_string(error->number()) + " " + tarvo::toUtf8(error->source()) + ": " +
         tarvo::toUtf8(error->description());
}

// How the failures of the usual numbers read.
inline std::string invalidCall(const std::string& about) {
  return "5 LibTarvoCI: Invalid procedure call or argument: " + about;
}
inline std::string overflow(const std::string& about) { return "6 LibTarvoCI: Overflow: " + about; }
inline std::string mismatch(const std::string& about) {
  return "13 LibTarvoCI: Type mismatch: " + about;
}
inline std::string notSet(const std::string& about) {
  return "91 LibTarvoCI: Object variable not set: " + about;
}
inline std::string noSuchMember(const std::string& about) {
  return "438 LibTarvoCI: Object doesn't support this property or method: " + about;
}

}  // namespace LibTarvoCI::test
