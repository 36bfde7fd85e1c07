// Two worlds that differ in the text service alone, and in which the same must happen: one in which
// it is asked for every step, one in which it is not.  Every other service writes down its calls in
// both.
#pragma once

#include <gtest/gtest.h>

#include "template/translator_test.h"

namespace tarvo::test {

class BypassedTextService : public ::testing::Test {
 protected:
  ~BypassedTextService() override { modRDPGlobalValues::ofThisThread() = modRDPGlobalValues(); }

  struct Worlds {
    TranslationWorld asked{TranslationWorld::kAsked};
    TranslationWorld bypassed{TranslationWorld::kBypassed};

    // What happens in both before a line; the operator always loses patience.
    template <class Action>
    void inBoth(Action action) {
      action(asked);
      action(bypassed);
    }

    std::string expectSame(TextView line, const SourceAction& action) {
      inBoth([](TranslationWorld& world) {
        constexpr int kMostMessages = 30;
        if (!world.message->fault.isPending()) world.message->fault.raiseAt(kMostMessages, kRaised);
      });
      std::string expected = asked.translate(line, action);
      EXPECT_EQ(bypassed.translate(line, action), expected);
      EXPECT_EQ(formattingOf(bypassed), formattingOf(asked));
      return expected;
    }

   private:
    // The calls that values cause.  What is read may be kept, so those of the reading may be fewer.
    static std::vector<std::string> formattingOf(const TranslationWorld& world) {
      std::vector<std::string> calls;
      for (const std::string& call : world.otherCalls.lines()) {
        const bool isOfReading = call.starts_with("clsConvert.fIsNumeric") ||
                                 call.starts_with("clsConvert.fTextTo") ||
                                 call.starts_with("clsConvert.fNumberToText text");
        if (!isOfReading) calls.push_back(call);
      }
      return calls;
    }
  };

  static void expectSameFor(const std::vector<SampleSource>& sources) {
    for (const SampleSource& source : sources) {
      SCOPED_TRACE(source.shows);
      for (const TextView line : kSampleLines) {
        SCOPED_TRACE(toUtf8(line));
        Worlds worlds;
        worlds.expectSame(line, source.action);
        // From here on an earlier line's leavings are this line's own.
        const std::string second = worlds.expectSame(line, source.action);
        EXPECT_EQ(worlds.expectSame(line, source.action), second);
      }
    }
  }
};

}  // namespace tarvo::test
