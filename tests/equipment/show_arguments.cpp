#include "equipment/show_arguments.h"

#include <charconv>

namespace tarvo::test {
namespace {

struct ShowContent {
  std::string operator()(Empty) const { return "empty"; }
  std::string operator()(Null) const { return "null"; }
  std::string operator()(bool value) const { return "boolean " + show(value); }
  std::string operator()(std::uint8_t value) const { return "byte " + show(value); }
  std::string operator()(std::int16_t value) const { return "int16 " + show(value); }
  std::string operator()(std::int32_t value) const { return "int32 " + show(value); }
  std::string operator()(double value) const { return "double " + show(value); }
  std::string operator()(Currency value) const { return "currency " + show(value); }
  std::string operator()(Date value) const { return "date " + show(value); }
  std::string operator()(const Text& value) const { return "text " + show(TextView(value)); }
  std::string operator()(const Ref<Object>& value) const { return value ? "object" : "nothing"; }
  std::string operator()(const ValueArray& values) const {
    std::string all = "array(";
    for (const Value& value : values) all += (&value == values.data() ? "" : ", ") + show(value);
    return all + ")";
  }
};

}  // namespace

std::string show(double value) {
  char digits[32];
  const std::to_chars_result result = std::to_chars(digits, digits + sizeof digits, value);
  return std::string(digits, result.ptr);
}

std::string show(const Value& value) { return std::visit(ShowContent(), value.content()); }

}  // namespace tarvo::test
