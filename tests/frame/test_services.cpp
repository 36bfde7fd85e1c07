// The one operation of the service contracts that has a body of its own.
#include "frame/services.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "equipment/errors.h"
#include "frame/silent_services.h"

namespace tarvo {
namespace {

// Replaces nothing, but writes down what it is asked in the text itself: "text" becomes
// "(text:old>new)".
class Writing final : public test::SilentTexto {
 public:
  int failAt = 0;
  int calls = 0;

  void fReplaceAll(TextView valText, TextView valOld, TextView valNew, Text& result) override {
    if (++calls == failAt) throw RunTimeError(kOverflow);
    result = Text(u"(").append(valText).append(u":").append(valOld).append(u">").append(valNew);
    result.append(u")");
  }
};

constexpr clsTexto::Replacement kReplacements[] = {{u"a", u"1"}, {u"b", u""}, {u"", u"2"}};

TEST(ReplaceEach, AsksForEveryReplacementInOrderOnTheResultOfTheLast) {
  const Ref<Writing> texto = make<Writing>();
  Text result = u"left over";
  texto->replaceEach(u"x", kReplacements, result);
  EXPECT_EQ(result, u"(((x:a>1):b>):>2)");
  EXPECT_EQ(texto->calls, 3);
}

TEST(ReplaceEach, WithoutReplacementsGivesTheTextItself) {
  const Ref<Writing> texto = make<Writing>();
  Text result = u"left over";
  texto->replaceEach(u"x", {}, result);
  EXPECT_EQ(result, u"x");
  EXPECT_EQ(texto->calls, 0);
}

TEST(ReplaceEach, AsksForTheEmptyTextToo) {
  const Ref<Writing> texto = make<Writing>();
  Text result;
  texto->replaceEach(u"", std::span(kReplacements).first(1), result);
  EXPECT_EQ(result, u"(:a>1)");
}

TEST(ReplaceEach, EndsWithTheErrorOfTheOneThatFails) {
  const Ref<Writing> texto = make<Writing>();
  texto->failAt = 2;
  Text result;
  EXPECT_EQ(test::errorNumberOf([&] { texto->replaceEach(u"x", kReplacements, result); }), 6);
  EXPECT_EQ(texto->calls, 2);
}

}  // namespace
}  // namespace tarvo
