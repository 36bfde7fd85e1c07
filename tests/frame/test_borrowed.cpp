// Storage that is lent to one call: an inner call finds none, and it comes back whatever happens.
#include "frame/borrowed.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvo {
namespace {

constexpr std::size_t kGrown = 1'000;

// Grows the storage, and says where it is.
const char* grow(Kept<std::string>& home) {
  Borrowed<std::string> lent(home);
  lent->reserve(kGrown);
  return lent->data();
}

TEST(Borrowed, IsTheStorageOfTheLastCall) {
  Kept<std::string> home;
  const char* const storage = grow(home);
  Borrowed<std::string> lent(home);
  EXPECT_GE(lent->capacity(), kGrown);
  EXPECT_EQ(lent->data(), storage);
  EXPECT_EQ((*lent).data(), storage);
}

TEST(Borrowed, AnInnerCallDoesNotTouchTheOuterOnes) {
  Kept<std::string> home;
  Borrowed<std::string>(home)->assign(kGrown, 'x');
  {
    Borrowed<std::string> outer(home);
    EXPECT_EQ(*outer, std::string(kGrown, 'x'));
    outer->assign(kGrown, 'o');
    {
      Borrowed<std::string> inner(home);
      EXPECT_EQ(*inner, "");
      inner->assign(kGrown, 'i');
    }
    EXPECT_EQ(*outer, std::string(kGrown, 'o'));
  }
  EXPECT_EQ(*Borrowed<std::string>(home), std::string(kGrown, 'o'));
}

TEST(Borrowed, ComesBackWhenTheCallFails) {
  Kept<std::string> home;
  const char* const storage = grow(home);
  try {
    const Borrowed<std::string> lent(home);
    throw 1;
  } catch (int) {
  }
  EXPECT_EQ(Borrowed<std::string>(home)->data(), storage);
}

}  // namespace
}  // namespace tarvo
