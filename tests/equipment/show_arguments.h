// The arguments of a recorded call as readable text: "\"Año\", 2, true".
#pragma once

#include <concepts>
#include <string>
#include <type_traits>

#include "equipment/bytes_dump.h"
#include "frame/currency.h"
#include "frame/date.h"
#include "frame/text.h"
#include "frame/value.h"

namespace tarvo::test {

inline std::string show(TextView text) { return inQuotes(text); }
inline std::string show(const Text& text) { return inQuotes(text); }
inline std::string show(bool value) { return value ? "true" : "false"; }

template <std::integral T>
std::string show(T value) {
  return std::to_string(value);
}

// Every digit that tells it from its neighbours.
std::string show(double value);

// In ten-thousandths, as it is kept.
inline std::string show(Currency value) { return std::to_string(value.tenThousandths) + "/10000"; }
inline std::string show(Date value) { return "day " + show(value.serial); }

// With its kind: "int16 7", "double 1.5", "text \"A\"", "empty".
std::string show(const Value& value);

template <class... Arguments>
std::string showArguments(const Arguments&... arguments) {
  std::string all;
  const auto append = [&all](const std::string& one) { all += all.empty() ? one : ", " + one; };
  (append(show(arguments)), ...);
  return all;
}

}  // namespace tarvo::test
