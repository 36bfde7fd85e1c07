#include "services/binary_number.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace LibTarvoCI {
namespace {

// Enough significant digits for any double to be told from its neighbours.
constexpr int kMaxDigits = 17;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The number in scientific notation with that many digits: "d,ddde-xx", whatever the mark is.
DecimalDigits roundedTo(double number, int digitCount) {
  std::array<char, 64> text;
  std::snprintf(text.data(), text.size(), "%.*e", digitCount - 1, number);
  DecimalDigits decimal;
  const char* at = text.data();
  for (; *at != '\0' && *at != 'e'; ++at) {
    if (isDigit(*at)) decimal.digits.push_back(*at);
  }
  if (*at == 'e') decimal.exponent = std::atoi(at + 1) - (digitCount - 1);
  return decimal;
}

}  // namespace

double nearestDouble(std::string_view digits, int exponent) {
  const std::string text = std::string(digits) + "e" + std::to_string(exponent);
  return std::strtod(text.c_str(), nullptr);
}

DecimalDigits fewestDigits(double number) {
  DecimalDigits decimal;
  for (int digitCount = 1; digitCount <= kMaxDigits; ++digitCount) {
    decimal = roundedTo(number, digitCount);
    if (nearestDouble(decimal.digits, decimal.exponent) == number) break;
  }
  return decimal;
}

}  // namespace LibTarvoCI
