// Values whose kind is known only while the program runs: each C++ type becomes its own kind.
#include "frame/value.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

// What would lose something on the way into a kind, or become a truth value by mistake, is none.
static_assert(!std::is_constructible_v<Value, std::int64_t>);
static_assert(!std::is_constructible_v<Value, std::uint32_t>);
static_assert(!std::is_constructible_v<Value, const char*>);
static_assert(!std::is_constructible_v<Value, void*>);

class Something : public Object {};

TEST(Value, IsEmptyAtFirst) {
  EXPECT_NE(Value().tryGet<Empty>(), nullptr);
  EXPECT_EQ(Value().tryGet<Null>(), nullptr);
}

// Whether the value is of that kind, and of that content.
template <class Kind>
bool holds(const Value& value, const Kind& expected) {
  const Kind* content = value.tryGet<Kind>();
  return content != nullptr && *content == expected;
}

TEST(Value, KeepsTheKindOfWhatItIsMadeFrom) {
  EXPECT_TRUE(holds(Value(Null()), Null()));
  EXPECT_TRUE(holds(Value(true), true));
  EXPECT_TRUE(holds(Value(std::uint8_t{255}), std::uint8_t{255}));
  EXPECT_TRUE(holds(Value(std::int16_t{-1}), std::int16_t{-1}));
  EXPECT_TRUE(holds(Value(std::int32_t{-1}), std::int32_t{-1}));
  EXPECT_TRUE(holds(Value(1.5), 1.5));
  EXPECT_TRUE(holds(Value(Currency{15'000}), Currency{15'000}));
  EXPECT_TRUE(holds(Value(Date{36'526}), Date{36'526}));
  const Ref<Object> object = make<Something>();
  EXPECT_TRUE(holds(Value(object), object));
  EXPECT_TRUE(holds(Value(ValueArray{Value(true)}), ValueArray{Value(true)}));
}

TEST(Value, TakesTextInAnyForm) {
  const Text text = u"año";
  EXPECT_TRUE(holds(Value(text), text));
  EXPECT_TRUE(holds(Value(TextView(text)), text));
  EXPECT_TRUE(holds(Value(u"año"), text));
}

TEST(Value, TakesAReferenceToAnyKindOfObject) {
  const Ref<Something> something = make<Something>();
  EXPECT_TRUE(holds(Value(something), Ref<Object>(something)));
}

TEST(Value, NumbersOfDifferentKindsAreDifferentValues) {
  EXPECT_EQ(Value(std::int16_t{1}), Value(std::int16_t{1}));
  EXPECT_NE(Value(std::int16_t{1}), Value(std::int32_t{1}));
  EXPECT_NE(Value(1.0), Value(Currency{10'000}));
  EXPECT_NE(Value(1.0), Value(Date{1.0}));
  EXPECT_NE(Value(), Value(Null()));
}

TEST(Value, TypesThatFitIntoAKindBecomeThatKind) {
  EXPECT_TRUE(holds(Value(std::uint16_t{65535}), std::int32_t{65535}));
  EXPECT_TRUE(holds(Value(1.5f), 1.5));
}

TEST(Value, ItsContentCanBeReplaced) {
  Value value(true);
  value.content() = Text(u"S");
  EXPECT_TRUE(holds(value, Text(u"S")));
  EXPECT_EQ(value.tryGet<bool>(), nullptr);
}

}  // namespace
}  // namespace tarvo
