// A value whose kind is known only while the program runs.
//
// It carries what a client hands over where an operation takes "any value", and what an object
// reached by operation name gives back.  The library's own properties have types of their own.
#pragma once

#include <cstdint>
#include <variant>
#include <vector>

#include "frame/currency.h"
#include "frame/date.h"
#include "frame/object.h"
#include "frame/text.h"

namespace tarvo {

class Value;
using ValueArray = std::vector<Value>;  // base 0, one dimension

struct Empty {
  friend constexpr bool operator==(Empty, Empty) = default;
};
struct Null {
  friend constexpr bool operator==(Null, Null) = default;
};

class Value {
 public:
  using Content = std::variant<Empty, Null, bool, std::uint8_t, std::int16_t, std::int32_t, double,
                               Currency, Date, Text, Ref<Object>, ValueArray>;

  Value() = default;
  template <class T>
  requires std::is_constructible_v<Content, T> &&(!std::is_same_v<std::decay_t<T>, Value>)
      Value(T&& content)  // implicit: every kind of content is a value
      : content_(std::forward<T>(content)) {}
  Value(TextView text) : content_(Text(text)) {}

  const Content& content() const noexcept { return content_; }
  Content& content() noexcept { return content_; }

  template <class T>
  const T* tryGet() const noexcept {
    return std::get_if<T>(&content_);
  }

  friend bool operator==(const Value& a, const Value& b) { return a.content_ == b.content_; }

 private:
  Content content_;
};

}  // namespace tarvo
