// The translation of whole lines: how long they may be, and how many variables and lines there may
// be.
#include "template/translator_test.h"

namespace tarvo::test {
namespace {

class TranslationLimits : public TranslatorTest {};
TARVO_WITH_EITHER_TEXT_SERVICE(TranslationLimits);

Text variables(int count) {
  Text all;
  for (int i = 0; i < count; ++i) all += u"{}";
  return all;
}

// Translates without an account, for there would be too much to tell.
std::int32_t resultOf(TranslationWorld& world, TextView templateLine, VariableSource& source) {
  world.useServices();
  world.line = make<clsObLineCharacts>();
  world.line->sClrRecord();
  return errorNumberOf([&] { world.translator.translate(world.line, templateLine, source); });
}

TEST_P(TranslationLimits, AValueThatAsksForItselfIsAnOverflow) {
  EndlessSource itself(u"{A}");
  EXPECT_EQ(resultOf(world, u"{A}", itself), kOverflow);
  EXPECT_EQ(itself.answers, 32'768);
  EXPECT_EQ(world.line->GetTextToWrite(), u"{A}");
  EXPECT_EQ(world.error->trail(), "");  // it is the engine that reports
  EXPECT_EQ(translated(u"{A}{B}"), "\"vv\"");
}

TEST_P(TranslationLimits, ALineHas32767Variables) {
  EndlessSource nothing(u"");
  EXPECT_EQ(resultOf(world, variables(32'767), nothing), 0);
  EXPECT_EQ(nothing.answers, 32'767);
  EXPECT_EQ(world.line->GetTextToWrite(), u"");
}

TEST_P(TranslationLimits, ALineWithMoreVariablesIsAnOverflow) {
  EndlessSource nothing(u"");
  EXPECT_EQ(resultOf(world, variables(32'768), nothing), kOverflow);
}

TEST_P(TranslationLimits, AVariablePastPlace32767IsAnOverflow) {
  const auto many = [](std::size_t count) { return Text(count, u'x'); };
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    EXPECT_TRUE(translated(many(32'764) + u"{A}").ends_with("xv\""));
    EXPECT_EQ(translated(many(32'765) + u"{A}"), "error 6");
    EXPECT_EQ(answers(), 0);
    EXPECT_EQ(translated(u"{A}" + many(32'764) + u"{B}"), "error 6");  // ends at 32768 by then
    EXPECT_EQ(answers(), 1);
    EXPECT_TRUE(translated(u"{A}" + many(32'762) + u"{B}{C}", giving(u"")).ends_with("x\""));
    EXPECT_EQ(answers(), 3);
  }
}

TEST_P(TranslationLimits, AValueMayPushTheNextVariablePastPlace32767) {
  const Text value(16'381, u'x');
  for (const TextView line : {u"{A}{B}12{C}", u"{A}{B}123{C}", u"{A}{B}123456789{C}"}) {
    SCOPED_TRACE(toUtf8(line));
    const std::size_t between = line.size() - 9;
    for (const int pass : kEveryPass) {
      SCOPED_TRACE(pass);
      EXPECT_EQ(translated(line), inQuotes(u"vv" + Text(line.substr(6, between)) + u"v"));
      const std::string pushed = translated(line, giving(value));
      if (between == 2) {
        EXPECT_EQ(pushed.size(), 3 * value.size() + 4);
        EXPECT_EQ(answers(), 3);
      } else {
        EXPECT_EQ(pushed, "error 6");
        EXPECT_EQ(answers(), 2);
      }
    }
  }
}

TEST_P(TranslationLimits, TextMayBeLonger) {
  for (const std::size_t size : {4'096u, 4'097u, 32'767u, 32'768u, 70'000u}) {
    const Text text(size, u'x');
    EXPECT_EQ(translated(text), inQuotes(text));
    EXPECT_EQ(translated(text + u"}"), inQuotes(text + u"}"));
    EXPECT_EQ(translated(u"{A}" + text), inQuotes(u"v" + text));
  }
}

// More lines than are kept, in one place and in many.
TEST_P(TranslationLimits, TranslatesAnyNumberOfLines) {
  constexpr std::size_t kLines = 3'000;
  std::vector<Text> lines;
  for (std::size_t i = 0; i < kLines; ++i) {
    const Text number = fromUtf8(std::to_string(i));
    lines.push_back(number + u"{A}{B," + fromUtf8(std::to_string(i % 7)) + u"}|");
  }
  EndlessSource source(u"v");
  Text place;
  for (int pass = 1; pass <= 2; ++pass) {
    for (std::size_t i = 0; i < kLines; ++i) {
      const Text expected =
          fromUtf8(std::to_string(i)) + u"vv" + Text(i % 7 == 0 ? 0 : i % 7 - 1, u' ') + u"|";
      place = lines[i];
      world.line->sClrRecord();
      world.translator.translate(world.line, place, source);
      ASSERT_EQ(world.line->GetTextToWrite(), expected);
      world.line->sClrRecord();
      world.translator.translate(world.line, lines[i], source);
      ASSERT_EQ(world.line->GetTextToWrite(), expected);
    }
  }
}

}  // namespace
}  // namespace tarvo::test
