// Keys, buttons and list controls.
#include "services/clsApi.h"

#include <gtest/gtest.h>

#include "services/failure.h"
#include "services/named_object.h"

namespace LibTarvoCI {
namespace {

using test::failureOf;
using test::mismatch;
using test::NamedObject;
using test::NamelessObject;
using test::noSuchMember;
using test::notSet;
using test::overflow;

tarvo::RunTimeError objectError(std::int32_t number) {
  return {number, {u"Form1", u"raised by the object", {}, 0}};
}

class ApiTest : public ::testing::Test {
 protected:
  void press() { api_->sPressButton(reference_); }
  std::int32_t width() { return api_->fWidthForItems(reference_); }

  void putItems(const std::vector<Value>& items) {
    object_->answers["ListCount"] = static_cast<std::int16_t>(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
      object_->answers["List(" + std::to_string(i) + ")"] = items[i];
    }
  }

  Ref<clsApi> api_ = tarvo::make<clsApi>();
  Ref<NamedObject> object_ = tarvo::make<NamedObject>();
  Ref<Object> reference_ = object_;
};

TEST_F(ApiTest, NoKeyOfAFormIsHandled) {
  for (const std::int16_t key : std::initializer_list<std::int16_t>{27, 117, 13, 0, -1}) {
    EXPECT_FALSE(api_->fFormKey(reference_, key, 0));
    EXPECT_FALSE(api_->fFormKey(reference_, key, 7));
  }
  Ref<Object> empty;
  EXPECT_FALSE(api_->fFormKey(empty, 27, 0));
  EXPECT_EQ(object_->log.text(), "");
}

TEST_F(ApiTest, AButtonIsPressedByItsClick) {
  object_->answers["Click"] = Value();
  press();
  EXPECT_EQ(object_->log.text(), "call Click()\n");
}

TEST_F(ApiTest, AButtonWithoutAClickIsPressedByItsValue) {
  object_->answers["Value"] = Value();
  press();
  EXPECT_EQ(object_->log.text(),
            "call Click()\nput Value() = " + tarvo::test::show(Value(true)) + "\n");
}

TEST_F(ApiTest, WhatAButtonRaisesPassesAsItIs) {
  EXPECT_EQ(failureOf([&] { press(); }), "438 NamedObject: no such member");

  object_->errors.emplace("Click", objectError(tarvo::kOverflow));
  object_->answers["Value"] = Value();
  object_->log.clear();
  EXPECT_EQ(failureOf([&] { press(); }), "6 Form1: raised by the object");
  EXPECT_EQ(object_->log.text(), "call Click()\n");
}

TEST_F(ApiTest, TheWidthFollowsTheLongestItem) {
  putItems({Text(u"uno"), Text(u"cuatro"), Text(u"dos")});
  EXPECT_EQ(width(), 6 * 105 + 375);
  EXPECT_EQ(object_->log.text(), "get ListCount()\nget List(" +
                                     tarvo::test::show(Value(std::int32_t{0})) + ")\nget List(" +
                                     tarvo::test::show(Value(std::int32_t{1})) + ")\nget List(" +
                                     tarvo::test::show(Value(std::int32_t{2})) + ")\n");
}

TEST_F(ApiTest, TheLongestItemMayStandAnywhere) {
  putItems({Text(u"cuatro"), Text(u"a")});
  EXPECT_EQ(width(), 6 * 105 + 375);
  putItems({Text(u"a"), Text(u"cuatro")});
  EXPECT_EQ(width(), 6 * 105 + 375);
}

TEST_F(ApiTest, EmptyItemsHaveNoLength) {
  putItems({Value(tarvo::Null()), Value(), Text()});
  EXPECT_EQ(width(), 375);
}

TEST_F(ApiTest, NoItemsLeaveTheButton) {
  for (const Value& none : {Value(std::int16_t{0}), Value(std::int32_t{-1}), Value(0.0)}) {
    object_->answers["ListCount"] = none;
    EXPECT_EQ(width(), 375);
  }
}

TEST_F(ApiTest, TheCountMayBeAnyKindOfNumber) {
  putItems({Text(u"uno"), Text(u"cuatro")});
  for (const Value& two :
       {Value(std::uint8_t{2}), Value(std::int16_t{2}), Value(std::int32_t{2}), Value(2.0)}) {
    object_->answers["ListCount"] = two;
    EXPECT_EQ(width(), 6 * 105 + 375);
  }
}

TEST_F(ApiTest, ItemsAndCountsOfAnotherKindAreATypeMismatch) {
  putItems({Value(std::int16_t{12345})});
  EXPECT_EQ(failureOf([&] { width(); }), mismatch("List"));
  for (const Value& count : {Value(Text(u"1")), Value(true), Value(tarvo::Null())}) {
    object_->answers["ListCount"] = count;
    EXPECT_EQ(failureOf([&] { width(); }), mismatch("ListCount"));
  }
  object_->answers["ListCount"] = 1e10;
  EXPECT_EQ(failureOf([&] { width(); }), overflow("ListCount"));
}

TEST_F(ApiTest, AWidthThatDoesNotFitOverflows) {
  constexpr std::size_t kMost = (2147483647 - 375) / 105;
  putItems({Text(kMost, u'x')});
  EXPECT_EQ(width(), static_cast<std::int32_t>(kMost) * 105 + 375);
  putItems({Text(kMost + 1, u'x')});
  EXPECT_EQ(failureOf([&] { width(); }), overflow("List"));
}

TEST_F(ApiTest, WhatAListRaisesPassesAsItIs) {
  EXPECT_EQ(failureOf([&] { width(); }), "438 NamedObject: no such member");
  putItems({Text(u"a"), Text(u"b")});
  object_->errors.emplace("List(1)", objectError(tarvo::kSubscriptOutOfRange));
  EXPECT_EQ(failureOf([&] { width(); }), "9 Form1: raised by the object");
}

TEST_F(ApiTest, AnEmptyReferenceIsAnError) {
  reference_ = nullptr;
  EXPECT_EQ(failureOf([&] { press(); }), notSet("refButton"));
  EXPECT_EQ(failureOf([&] { width(); }), notSet("refControl"));
}

TEST_F(ApiTest, AnObjectWithoutNamesIsAnError) {
  reference_ = tarvo::make<NamelessObject>();
  EXPECT_EQ(failureOf([&] { press(); }), noSuchMember("refButton"));
  EXPECT_EQ(failureOf([&] { width(); }), noSuchMember("refControl"));
}

TEST_F(ApiTest, TheDropDownIsLeftAsItIs) {
  api_->sAdjustDropDown(reference_);
  EXPECT_EQ(object_->log.text(), "");
  Ref<Object> empty;
  EXPECT_EQ(failureOf([&] { api_->sAdjustDropDown(empty); }), "none");
}

}  // namespace
}  // namespace LibTarvoCI
