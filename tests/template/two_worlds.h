// Worlds that differ in the services alone, and in which the same must happen: one in which the
// text service is asked for every step, one in which it is not, and one in which no service is
// asked more than it must be.  In the first two every other service writes down its calls.
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
    TranslationWorld unwatched{TranslationWorld::kAllBypassed};
    bool includeUnwatched = true;  // false: what happens comes from a watched service

    // What happens in each before a line; the operator always loses patience.
    template <class Action>
    void inEach(Action action) {
      action(asked);
      action(bypassed);
      if (includeUnwatched) action(unwatched);
    }

    std::string expectSame(TextView line, const SourceAction& action) {
      inEach([](TranslationWorld& world) {
        constexpr int kMostMessages = 30;
        if (!world.message->fault.isPending()) world.message->fault.raiseAt(kMostMessages, kRaised);
      });
      std::string expected = asked.translate(line, action);
      EXPECT_EQ(bypassed.translate(line, action), expected);
      EXPECT_EQ(formattingOf(bypassed), formattingOf(asked));
      if (includeUnwatched) {
        EXPECT_EQ(unwatched.translate(line, action), expected);
      }
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
