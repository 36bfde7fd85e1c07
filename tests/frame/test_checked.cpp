// Arithmetic that cannot leave its type unnoticed, for each type that the library counts with.
#include "frame/checked.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

#include "equipment/errors.h"

namespace tarvo {
namespace {

using test::errorNumberOf;

template <class T>
class Checked : public ::testing::Test {
 protected:
  static constexpr T kMost = std::numeric_limits<T>::max();
  static constexpr T kLeast = std::numeric_limits<T>::min();
  static constexpr T kOne{1};
};

using CountingTypes = ::testing::Types<std::uint8_t, std::int16_t, std::int32_t, std::int64_t>;
TYPED_TEST_SUITE(Checked, CountingTypes);

TYPED_TEST(Checked, AddsUpToTheGreatestValue) {
  using T = TypeParam;
  EXPECT_EQ(checkedAdd(T{2}, T{3}), T{5});
  EXPECT_EQ(checkedAdd(static_cast<T>(this->kMost - 1), this->kOne), this->kMost);
  EXPECT_EQ(checkedAdd(this->kLeast, T{0}), this->kLeast);
  EXPECT_EQ(errorNumberOf([this] { checkedAdd(this->kMost, this->kOne); }), 6);
  EXPECT_EQ(errorNumberOf([this] { checkedAdd(this->kOne, this->kMost); }), 6);
  EXPECT_EQ(errorNumberOf([this] { checkedAdd(this->kMost, this->kMost); }), 6);
}

TYPED_TEST(Checked, SubtractsDownToTheLeastValue) {
  using T = TypeParam;
  EXPECT_EQ(checkedSubtract(T{5}, T{3}), T{2});
  EXPECT_EQ(checkedSubtract(this->kMost, this->kMost), T{0});
  EXPECT_EQ(checkedSubtract(static_cast<T>(this->kLeast + 1), this->kOne), this->kLeast);
  EXPECT_EQ(errorNumberOf([this] { checkedSubtract(this->kLeast, this->kOne); }), 6);
}

TYPED_TEST(Checked, MultipliesWithinTheRange) {
  using T = TypeParam;
  constexpr T kHalf = TestFixture::kMost / 2;
  EXPECT_EQ(checkedMultiply(T{6}, T{7}), T{42});
  EXPECT_EQ(checkedMultiply(this->kMost, this->kOne), this->kMost);
  EXPECT_EQ(checkedMultiply(this->kMost, T{0}), T{0});
  EXPECT_EQ(checkedMultiply(kHalf, T{2}), static_cast<T>(this->kMost - 1));
  EXPECT_EQ(errorNumberOf([] { checkedMultiply(static_cast<T>(kHalf + 1), T{2}); }), 6);
  EXPECT_EQ(errorNumberOf([this] { checkedMultiply(this->kMost, this->kMost); }), 6);
}

TYPED_TEST(Checked, SignedValuesOverflowBelowZeroToo) {
  using T = TypeParam;
  if constexpr (std::is_signed_v<T>) {
    constexpr T kMinusOne{-1};
    EXPECT_EQ(checkedMultiply(this->kMost, kMinusOne), static_cast<T>(this->kLeast + 1));
    EXPECT_EQ(errorNumberOf([this] { checkedMultiply(this->kLeast, kMinusOne); }), 6);
    EXPECT_EQ(errorNumberOf([this] { checkedAdd(this->kLeast, kMinusOne); }), 6);
    EXPECT_EQ(errorNumberOf([this] { checkedSubtract(this->kMost, kMinusOne); }), 6);
    EXPECT_EQ(errorNumberOf([this] { checkedSubtract(T{0}, this->kLeast); }), 6);
  } else {
    EXPECT_EQ(errorNumberOf([] { checkedSubtract(T{0}, T{1}); }), 6);
  }
}

TYPED_TEST(Checked, AWideValueIsNarrowedWhenItFits) {
  using T = TypeParam;
  EXPECT_EQ(narrow<T>(static_cast<std::int64_t>(this->kMost)), this->kMost);
  EXPECT_EQ(narrow<T>(static_cast<std::int64_t>(this->kLeast)), this->kLeast);
  EXPECT_EQ(narrow<T>(std::uint64_t{0}), T{0});
  const auto past = static_cast<std::uint64_t>(this->kMost) + 1;
  EXPECT_EQ(errorNumberOf([&] { narrow<T>(past); }), 6);
  if constexpr (sizeof(T) < sizeof(std::int64_t)) {
    const std::int64_t most{this->kMost};
    const std::int64_t least{this->kLeast};
    EXPECT_EQ(errorNumberOf([&] { narrow<T>(most + 1); }), 6);
    EXPECT_EQ(errorNumberOf([&] { narrow<T>(least - 1); }), 6);
    EXPECT_EQ(errorNumberOf([] { narrow<T>(std::numeric_limits<std::int64_t>::min()); }), 6);
  }
}

TEST(CheckedNarrow, ANegativeValueDoesNotFitATypeWithoutSign) {
  EXPECT_EQ(errorNumberOf([] { narrow<std::uint8_t>(-1); }), 6);
  EXPECT_EQ(errorNumberOf([] { narrow<std::uint64_t>(std::int64_t{-1}); }), 6);
}

template <class T>
std::vector<T> valuesOf(T first, T last) {
  std::vector<T> values;
  countedLoop<T>(first, last, [&values](T value) { values.push_back(value); });
  return values;
}

TYPED_TEST(Checked, ALoopRunsForEveryValueFromFirstToLast) {
  using T = TypeParam;
  EXPECT_EQ(valuesOf<T>(1, 4), (std::vector<T>{1, 2, 3, 4}));
  EXPECT_EQ(valuesOf<T>(7, 7), (std::vector<T>{7}));
  const auto beforeLast = static_cast<T>(this->kMost - 1);
  EXPECT_EQ(valuesOf<T>(beforeLast, beforeLast), (std::vector<T>{beforeLast}));
}

TYPED_TEST(Checked, ALoopWhoseFirstIsPastItsLastNeverRuns) {
  using T = TypeParam;
  EXPECT_EQ(valuesOf<T>(2, 1), std::vector<T>());
  EXPECT_EQ(valuesOf<T>(this->kMost, this->kLeast), std::vector<T>());
}

TYPED_TEST(Checked, ALoopToTheGreatestValueRunsForItAndThenOverflows) {
  using T = TypeParam;
  std::vector<T> values;
  const auto first = static_cast<T>(this->kMost - 2);
  const std::int32_t number = errorNumberOf(
      [&] { countedLoop<T>(first, this->kMost, [&values](T value) { values.push_back(value); }); });
  EXPECT_EQ(number, 6);
  EXPECT_EQ(values, (std::vector<T>{first, static_cast<T>(first + 1), this->kMost}));
}

TEST(CheckedLoop, RunsForAllValuesOfAByte) {
  int runs = 0;
  const std::int32_t number =
      errorNumberOf([&] { countedLoop<std::uint8_t>(0, 255, [&runs](std::uint8_t) { ++runs; }); });
  EXPECT_EQ(runs, 256);
  EXPECT_EQ(number, 6);
}

TEST(CheckedLoop, EndsWithTheErrorThatItsBodyRaises) {
  int runs = 0;
  const std::int32_t number = errorNumberOf([&] {
    countedLoop<std::int16_t>(1, 10, [&runs](std::int16_t value) {
      ++runs;
      if (value == 3) throw RunTimeError(kSubscriptOutOfRange);
    });
  });
  EXPECT_EQ(runs, 3);
  EXPECT_EQ(number, 9);
}

}  // namespace
}  // namespace tarvo
