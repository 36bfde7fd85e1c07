// What the tests of the translation of whole lines stand on: a world in which the text service is
// asked for every step, and one in which it is not.
#pragma once

#include <gtest/gtest.h>

#include "template/sample_lines.h"

namespace tarvo::test {

inline constexpr std::int32_t kRaised = -2147220991;  // a client's own error
// What is done once may be kept, and taken again.
inline constexpr int kEveryPass[] = {1, 2, 3};

// Each of its tests holds with either text service.
class TranslatorTest : public ::testing::TestWithParam<TranslationWorld::TextService> {
 protected:
  ~TranslatorTest() override { modRDPGlobalValues::ofThisThread() = modRDPGlobalValues(); }

  // The line as it is printed, and what differs in its flags; or the error it ends in.
  std::string translated(TextView templateLine, const SourceAction& action = giving(u"v")) {
    account = world.translate(templateLine, action);
    const std::size_t at = account.find("\nerror ");
    if (account.starts_with("error ")) return account.substr(0, account.find(" of "));
    if (at != std::string::npos) return account.substr(at + 1, account.find(" of ", at) - at - 1);
    return world.line ? dumpOf(*world.line) : "no line";
  }

  int answers() const { return static_cast<int>(world.seen.linesOf("source.answer").size()); }

  TranslationWorld world{GetParam()};
  std::string account;
};

// Instantiates the tests of a class of those.
#define TARVO_WITH_EITHER_TEXT_SERVICE(Fixture)                                            \
  INSTANTIATE_TEST_SUITE_P(                                                                \
      , Fixture, ::testing::Values(TranslationWorld::kAsked, TranslationWorld::kBypassed), \
      [](const auto& service) {                                                            \
        return service.param == TranslationWorld::kAsked ? "Asked" : "Bypassed";           \
      })

// Answers every time with the same text.
class EndlessSource final : public VariableSource {
 public:
  explicit EndlessSource(TextView value) : value_(value) {}
  bool answer(Ref<clsObLineCharacts>& line) override {
    ++answers;
    variableOf(line).SetContentString(value_);
    return true;
  }
  int answers = 0;

 private:
  TextView value_;
};

}  // namespace tarvo::test
