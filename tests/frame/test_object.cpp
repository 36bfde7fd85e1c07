// Counted references: an object lives exactly as long as one of them names it.
#include "frame/object.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "equipment/errors.h"
#include "frame/tracked.h"

namespace tarvo {
namespace {

using test::errorNumberOf;

class Base : public Object {
 public:
  virtual int kind() const { return 1; }
  int value = 0;
};

class Derived : public Base {
 public:
  int kind() const override { return 2; }
};

using Thing = test::Tracked<Base>;

class References : public ::testing::Test {
 protected:
  // Whatever a test did, nothing may be left over.
  ~References() override { EXPECT_EQ(life.alive(), 0); }

  test::LifeCount life;
};

TEST_F(References, AnObjectGoesWithItsOnlyReference) {
  {
    const Ref<Thing> only = make<Thing>(life);
    EXPECT_EQ(life.alive(), 1);
  }
  EXPECT_EQ(life.alive(), 0);
}

TEST_F(References, AnObjectGoesWithTheLastOfItsCopies) {
  auto first = std::make_unique<Ref<Thing>>(make<Thing>(life));
  auto second = std::make_unique<Ref<Thing>>(*first);
  auto third = std::make_unique<Ref<Thing>>(*second);
  first.reset();
  EXPECT_EQ(life.alive(), 1);
  third.reset();
  EXPECT_EQ(life.alive(), 1);
  second.reset();
  EXPECT_EQ(life.alive(), 0);
}

TEST_F(References, MovingHandsOverAndCountsNothing) {
  Ref<Thing> first = make<Thing>(life);
  Thing* const object = first.get();
  Ref<Thing> second(std::move(first));
  EXPECT_EQ(first.get(), nullptr);  // NOLINT(bugprone-use-after-move): empty is what is promised
  EXPECT_EQ(second.get(), object);
  EXPECT_EQ(life.alive(), 1);
  second = nullptr;
  EXPECT_EQ(life.alive(), 0);
}

TEST_F(References, AssigningReleasesWhatWasThere) {
  Ref<Thing> first = make<Thing>(life);
  Ref<Thing> second = make<Thing>(life);
  EXPECT_EQ(life.alive(), 2);
  first = second;
  EXPECT_EQ(life.alive(), 1);
  EXPECT_EQ(first, second);
  second = nullptr;
  EXPECT_EQ(life.alive(), 1);
  first = nullptr;
  EXPECT_EQ(life.alive(), 0);
}

TEST_F(References, AssigningByMovingReleasesWhatWasThere) {
  Ref<Thing> first = make<Thing>(life);
  Ref<Thing> second = make<Thing>(life);
  Thing* const object = second.get();
  first = std::move(second);
  EXPECT_EQ(life.alive(), 1);
  EXPECT_EQ(first.get(), object);
  EXPECT_EQ(second.get(), nullptr);  // NOLINT(bugprone-use-after-move): empty is promised
}

TEST_F(References, AssigningToItselfChangesNothing) {
  Ref<Thing> only = make<Thing>(life);
  Ref<Thing>& same = only;
  only = same;
  EXPECT_EQ(life.alive(), 1);
  only = std::move(same);
  EXPECT_EQ(life.alive(), 1);
  EXPECT_TRUE(only);
  only = nullptr;
  EXPECT_EQ(life.alive(), 0);
}

TEST_F(References, ConvertingToABaseCountsOneMore) {
  Ref<Thing> thing = make<Thing>(life);
  Ref<Base> base = thing;
  Ref<Object> object = base;
  EXPECT_EQ(base.get(), thing.get());
  thing = nullptr;
  base = nullptr;
  EXPECT_EQ(life.alive(), 1);
  object = nullptr;
  EXPECT_EQ(life.alive(), 0);
}

TEST_F(References, ConvertingATemporaryLeavesOneReference) {
  Ref<Base> base = make<Thing>(life);
  EXPECT_EQ(life.alive(), 1);
  base = make<Thing>(life);
  EXPECT_EQ(life.alive(), 1);
}

TEST_F(References, ConvertingNothingGivesNothing) {
  const Ref<Derived> none;
  const Ref<Base> base = none;
  EXPECT_FALSE(base);
}

TEST_F(References, MadeFromAPointerIsOneMore) {
  const Ref<Thing> first = make<Thing>(life);
  { const Ref<Thing> second(first.get()); }
  EXPECT_EQ(life.alive(), 1);
}

TEST_F(References, AReferenceCountedByHandKeepsTheObject) {
  Ref<Thing> only = make<Thing>(life);
  Thing* const object = only.get();
  object->addReference();
  only = nullptr;
  EXPECT_EQ(life.alive(), 1);
  object->release();
  EXPECT_EQ(life.alive(), 0);
}

class Link : public Object {
 public:
  Ref<test::Tracked<Link>> next;
};

TEST_F(References, AssigningFromInsideTheObjectThatGoesIsSafe) {
  using TrackedLink = test::Tracked<Link>;
  Ref<TrackedLink> head = make<TrackedLink>(life);
  head->next = make<TrackedLink>(life);
  TrackedLink* const second = head->next.get();
  head = head->next;
  EXPECT_EQ(head.get(), second);
  EXPECT_EQ(life.alive(), 1);
}

TEST(Reference, IsEmptyAtFirst) {
  const Ref<Base> none;
  EXPECT_FALSE(none);
  EXPECT_EQ(none.get(), nullptr);
  EXPECT_EQ(none, Ref<Base>(nullptr));
}

TEST(Reference, EmptyOnesCanBeCopiedAndAssigned) {
  Ref<Base> none;
  const Ref<Base> copy(none);
  none = copy;
  EXPECT_FALSE(none);
}

TEST(Reference, GoingThroughAnEmptyOneIsError91) {
  const Ref<Base> none;
  EXPECT_EQ(errorNumberOf([&] { none->value = 1; }), 91);
  EXPECT_EQ(errorNumberOf([&] { (*none).value = 1; }), 91);
}

TEST(Reference, ReachesItsObject) {
  const Ref<Base> base = make<Derived>();
  base->value = 7;
  EXPECT_EQ((*base).value, 7);
  EXPECT_EQ(base->kind(), 2);
}

TEST(Reference, IsEqualToThoseOfTheSameObject) {
  const Ref<Base> first = make<Base>();
  const Ref<Base> second = make<Base>();
  EXPECT_EQ(first, Ref<Base>(first));
  EXPECT_NE(first, second);
  EXPECT_NE(first, Ref<Base>());
}

class Named : public Object {
 public:
  Named(std::unique_ptr<int> initNumber, std::string initName)
      : number(std::move(initNumber)), name(std::move(initName)) {}
  std::unique_ptr<int> number;
  std::string name;
};

TEST(Reference, MakeHandsItsArgumentsOn) {
  const Ref<Named> named = make<Named>(std::make_unique<int>(3), "nombre");
  EXPECT_EQ(*named->number, 3);
  EXPECT_EQ(named->name, "nombre");
}

TEST(Object, HasNoForeignFaceUntilItIsGivenOne) {
  const Ref<Base> base = make<Base>();
  EXPECT_EQ(base->face(), nullptr);
  int face = 0;
  base->setFace(&face);
  EXPECT_EQ(base->face(), &face);
}

}  // namespace
}  // namespace tarvo
