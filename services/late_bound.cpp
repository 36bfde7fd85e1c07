#include "services/late_bound.h"

#include <cmath>
#include <limits>

namespace LibTarvoCI {
namespace {

// The value as a double when it is any kind of number; those that exist here are exact in one.
const double* numberIn(const Value& value, double& storage) {
  if (const auto* number = value.tryGet<double>()) {
    storage = *number;
  } else if (const auto* byte = value.tryGet<std::uint8_t>()) {
    storage = *byte;
  } else if (const auto* shortNumber = value.tryGet<std::int16_t>()) {
    storage = *shortNumber;
  } else if (const auto* longNumber = value.tryGet<std::int32_t>()) {
    storage = *longNumber;
  } else {
    return nullptr;
  }
  return &storage;
}

}  // namespace

tarvo::LateObject& lateObject(const Ref<Object>& reference, TextView about) {
  if (!reference) fail(tarvo::kObjectNotSet, about);
  auto* object = dynamic_cast<tarvo::LateObject*>(reference.get());
  if (object == nullptr) fail(tarvo::kNoSuchMember, about);
  return *object;
}

std::int32_t integerOf(const Value& value, TextView about) {
  double storage = 0;
  const double* number = numberIn(value, storage);
  if (number == nullptr) fail(tarvo::kTypeMismatch, about);
  const double whole = std::nearbyint(*number);
  using Limits = std::numeric_limits<std::int32_t>;
  // Also false for "not a number".
  if (!(whole >= Limits::min() && whole <= Limits::max())) fail(tarvo::kOverflow, about);
  return static_cast<std::int32_t>(whole);
}

bool booleanOf(const Value& value, TextView about) {
  if (const bool* boolean = value.tryGet<bool>()) return *boolean;
  double storage = 0;
  const double* number = numberIn(value, storage);
  if (number == nullptr) fail(tarvo::kTypeMismatch, about);
  return *number != 0;
}

Text textOf(const Value& value, TextView about) {
  if (const Text* text = value.tryGet<Text>()) return *text;
  const bool isNothing =
      value.tryGet<tarvo::Empty>() != nullptr || value.tryGet<tarvo::Null>() != nullptr;
  if (!isNothing) fail(tarvo::kTypeMismatch, about);
  return {};
}

}  // namespace LibTarvoCI
