// What an object that is reached by name takes for a number, a boolean and a text.
#include "graphic/late_arguments.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "equipment/errors.h"
#include "equipment/show_arguments.h"

namespace tarvo::test {
namespace {

TEST(LateArguments, NumbersOfEveryKindAreIntegers) {
  const struct {
    Value value;
    std::int32_t number;
  } rows[] = {{std::uint8_t{255}, 255},
              {std::int16_t{-7}, -7},
              {std::int32_t{2147483647}, 2147483647},
              {2.5, 2},
              {3.5, 4},
              {-2147483648.4, -2147483647 - 1},
              {Currency{23'700}, 2},
              {Currency{-25'000}, -2}};
  for (const auto& row : rows) {
    EXPECT_EQ(integerArgument(row.value, u"x"), row.number) << show(row.value);
  }
}

TEST(LateArguments, NumbersThatDoNotFitAreError6) {
  for (const double value : {2147483647.5, -2147483649.0, 1e300, std::nan(""),
                             std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(errorNumberOf([&] { integerArgument(value, u"x"); }), kOverflow) << value;
  }
}

TEST(LateArguments, BooleansAreNumbersToo) {
  EXPECT_TRUE(booleanArgument(true, u"x"));
  EXPECT_FALSE(booleanArgument(false, u"x"));
  EXPECT_TRUE(booleanArgument(std::int16_t{-1}, u"x"));
  EXPECT_FALSE(booleanArgument(std::int32_t{0}, u"x"));
  EXPECT_TRUE(booleanArgument(0.5, u"x"));
}

TEST(LateArguments, NothingIsAnEmptyText) {
  const Value text(Text(u"año"));
  const Value empty;
  const Value null{Null()};
  EXPECT_EQ(textArgument(text, u"x"), u"año");
  EXPECT_EQ(textArgument(empty, u"x"), u"");
  EXPECT_EQ(textArgument(null, u"x"), u"");
}

TEST(LateArguments, OtherKindsAreATypeMismatchThatNamesTheArgument) {
  const auto check = [](auto take, const Value& value) {
    const auto error = errorOf([&] { take(value, u"width"); });
    ASSERT_TRUE(error.has_value()) << show(value);
    EXPECT_EQ(error->number(), kTypeMismatch);
    EXPECT_EQ(toUtf8(error->description()), "Type mismatch: width");
  };
  const Value object{Ref<Object>()};
  for (const Value& value : {Value(), Value(Null()), Value(true), Value(Text(u"7")), object,
                             Value(Date{1}), Value(ValueArray())}) {
    check(integerArgument, value);
    if (value.tryGet<bool>() == nullptr) check(booleanArgument, value);
  }
  for (const Value& value : {Value(true), Value(7.0), object, Value(ValueArray())}) {
    check(textArgument, value);
  }
}

TEST(LateArguments, AreCounted) {
  const std::vector<Value> two(2);
  requireCount(two, 2);
  EXPECT_EQ(errorNumberOf([&] { requireCount(two, 1); }), kWrongNumberOfArguments);
  EXPECT_EQ(errorNumberOf([&] { requireCount(two, 3); }), kWrongNumberOfArguments);
  requireCount({}, 0);
}

}  // namespace
}  // namespace tarvo::test
