// Storage that is lent to one call: an inner call finds none, and it comes back whatever happens.
#include "frame/borrowed.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvo {
namespace {

constexpr std::size_t kGrown = 1'000;

TEST(Borrowed, ComesBackWithWhatItHasGrownTo) {
  std::string home;
  const char* storage = nullptr;
  {
    Borrowed<std::string> lent(home);
    lent->reserve(kGrown);
    storage = lent->data();
  }
  EXPECT_GE(home.capacity(), kGrown);
  EXPECT_EQ(home.data(), storage);
}

TEST(Borrowed, IsTheStorageOfTheLastCall) {
  std::string home;
  home.reserve(kGrown);
  const char* storage = home.data();
  Borrowed<std::string> lent(home);
  EXPECT_EQ(lent->data(), storage);
  EXPECT_EQ((*lent).data(), storage);
}

TEST(Borrowed, AnInnerCallDoesNotTouchTheOuterOnes) {
  std::string home(kGrown, 'x');
  {
    Borrowed<std::string> outer(home);
    outer->assign(kGrown, 'o');
    {
      Borrowed<std::string> inner(home);
      EXPECT_EQ(*inner, "");
      inner->assign(kGrown, 'i');
    }
    EXPECT_EQ(*outer, std::string(kGrown, 'o'));
  }
  EXPECT_EQ(home, std::string(kGrown, 'o'));
}

TEST(Borrowed, ComesBackWhenTheCallFails) {
  std::string home;
  home.reserve(kGrown);
  const char* storage = home.data();
  try {
    const Borrowed<std::string> lent(home);
    throw 1;
  } catch (int) {
  }
  EXPECT_EQ(home.data(), storage);
}

}  // namespace
}  // namespace tarvo
