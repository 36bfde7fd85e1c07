#include "graphic/late_arguments.h"

#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>

namespace tarvo {
namespace {

// The value when it is a number of any kind; all of them are exact in a double.
std::optional<double> numberOf(const Value& value) {
  return std::visit(
      [](const auto& content) -> std::optional<double> {
        using Content = std::decay_t<decltype(content)>;
        if constexpr (std::is_same_v<Content, Currency>) {
          return static_cast<double>(content.tenThousandths) / 10000;
        } else if constexpr (std::is_arithmetic_v<Content> && !std::is_same_v<Content, bool>) {
          return static_cast<double>(content);
        } else {
          return std::nullopt;
        }
      },
      value.content());
}

double numberArgument(const Value& value, TextView about) {
  const std::optional<double> number = numberOf(value);
  if (!number) throw RunTimeError(kTypeMismatch, about);
  return *number;
}

}  // namespace

std::int32_t integerArgument(const Value& value, TextView about) {
  const double whole = std::nearbyint(numberArgument(value, about));
  using Limits = std::numeric_limits<std::int32_t>;
  // Also false for "not a number".
  if (!(whole >= Limits::min() && whole <= Limits::max())) throw RunTimeError(kOverflow, about);
  return static_cast<std::int32_t>(whole);
}

bool booleanArgument(const Value& value, TextView about) {
  if (const bool* boolean = value.tryGet<bool>()) return *boolean;
  return numberArgument(value, about) != 0;
}

TextView textArgument(const Value& value, TextView about) {
  if (const Text* text = value.tryGet<Text>()) return *text;
  const bool isNothing = value.tryGet<Empty>() != nullptr || value.tryGet<Null>() != nullptr;
  if (!isNothing) throw RunTimeError(kTypeMismatch, about);
  return {};
}

void requireCount(std::span<const Value> arguments, std::size_t count) {
  if (arguments.size() != count) throw RunTimeError(kWrongNumberOfArguments);
}

}  // namespace tarvo
