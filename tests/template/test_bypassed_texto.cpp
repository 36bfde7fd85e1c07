// The translation of whole lines: nobody can see whether the text service was asked for every step.
#include "template/two_worlds.h"

namespace tarvo::test {
namespace {

TEST_F(BypassedTextService, IsNotSeenInValues) { expectSameFor(valueSources()); }
TEST_F(BypassedTextService, IsNotSeenInValuesWithBraces) { expectSameFor(braceSources()); }
TEST_F(BypassedTextService, IsNotSeenByWhoLooks) { expectSameFor(lookingSources()); }
TEST_F(BypassedTextService, IsNotSeenByWhoMeddles) { expectSameFor(meddlingSources()); }
TEST_F(BypassedTextService, IsNotSeenByWhoExchanges) { expectSameFor(exchangingSources()); }

TEST_F(BypassedTextService, IsNotSeenInLongLines) {
  for (const Text& line : longSampleLines()) {
    SCOPED_TRACE(line.size());
    Worlds worlds;
    worlds.expectSame(line, giving(u"v"));
    worlds.expectSame(line, givingFirst(u"<{Y}{Z,3,QR}>"));
    worlds.expectSame(line, giving(u""));
    worlds.expectSame(line, giving(line));
  }
}

// One line object and one translator go through all lines, as in a report.
TEST_F(BypassedTextService, IsNotSeenFromLineToLine) {
  Worlds worlds;
  for (const SampleSource& source : allSources()) {
    SCOPED_TRACE(source.shows);
    for (const TextView line : kSampleLines) {
      SCOPED_TRACE(toUtf8(line));
      worlds.expectSame(line, source.action);
    }
  }
}

// A brace at every place of values of every size.
TEST_F(BypassedTextService, FindsEveryBrace) {
  Worlds worlds;
  for (std::size_t size = 1; size <= 40; ++size) {
    for (std::size_t at = 0; at < size; ++at) {
      for (const char16_t brace : {u'{', u'}'}) {
        Text value(size, u'x');
        value[at] = brace;
        SCOPED_TRACE(toUtf8(value));
        worlds.expectSame(u"{A}Z}{B}", givingFirst(value));
      }
    }
  }
}

// The nth call of each other service fails, for n = 1, 2, ... until none does.
TEST_F(BypassedTextService, IsNotSeenWhenAnotherServiceFails) {
  using Arm = void (*)(TranslationWorld&, int);
  constexpr Arm arms[] = {
      [](TranslationWorld& world, int call) { world.convert->fault.raiseAt(call, kRaised); },
      [](TranslationWorld& world, int call) { world.dates->fault.raiseAt(call, kRaised); },
      [](TranslationWorld& world, int call) { world.math->fault.raiseAt(call, kRaised); },
      [](TranslationWorld& world, int call) { world.message->fault.raiseAt(call, kRaised); },
      [](TranslationWorld& world, int call) { world.error->fault.raiseAt(call, kRaised); },
  };
  const auto isPending = [](TranslationWorld& world) {
    return world.convert->fault.isPending() || world.dates->fault.isPending() ||
           world.math->fault.isPending() || world.message->fault.isPending() ||
           world.error->fault.isPending();
  };
  const SourceAction everyKind = [](Ref<clsObLineCharacts>& line, int call, auto&) {
    clsObSpecialVar& variable = variableOf(line);
    if (call % 4 == 0) variable.SetContentDate(Date{36'000});
    if (call % 4 == 1) variable.SetContentNumeric(Currency{12'345'678}, true);
    if (call % 4 == 2) variable.SetContentBoolean(true);
    if (call % 4 == 3) variable.SetContentEnum(u"S");
    return true;
  };
  constexpr TextView kLine =
      u"x{A[1],9}{B,IIF(\"S\",a)}{C,QLR,5,IIF(\"S\",[1,2]a,b)}{D,Q1,DF(dd)}{E,SC,9,0}{D[1][2],Q2}";
  int failures = 0;
  for (const Arm arm : arms) {
    for (int call = 1;; ++call) {
      SCOPED_TRACE(call);
      Worlds worlds;
      worlds.includeUnwatched = false;
      worlds.inEach([&](TranslationWorld& world) { arm(world, call); });
      const std::string expected = worlds.asked.translate(kLine, everyKind);
      EXPECT_EQ(worlds.bypassed.translate(kLine, everyKind), expected);
      EXPECT_EQ(isPending(worlds.bypassed), isPending(worlds.asked));
      if (isPending(worlds.asked)) break;
      ++failures;
      for (const int pass : kEveryPass) {
        SCOPED_TRACE(pass);
        worlds.expectSame(kLine, everyKind);
      }
    }
  }
  EXPECT_GT(failures, 15);
}

// --- What happens while the operator reads a message, or a service is at work.

using Incident = void (*)(TranslationWorld&);

constexpr Incident kIncidents[] = {
    [](TranslationWorld& world) { world.seen.add(wholeDumpOf(variableOf(world.line))); },
    [](TranslationWorld& world) { world.seen.add(dumpOf(*world.line)); },
    [](TranslationWorld& world) { world.line->SetTextToWrite(u"changed {F} {G}"); },
    [](TranslationWorld& world) { world.line->SetPrintLine(false); },
    [](TranslationWorld& world) { variableOf(world.line).SetFieldName(u"NEGRA"); },
    [](TranslationWorld& world) { variableOf(world.line).SetFieldName(u"@c"); },
    [](TranslationWorld& world) { variableOf(world.line).SetLength(3); },
    [](TranslationWorld& world) { world.line->SetSpecialVar(make<clsObSpecialVar>()); },
    [](TranslationWorld& world) { world.line->sExtractSpecialVar(u"x{Z,4}y"); },
    [](TranslationWorld& world) {
      variableOf(world.line).SetPosBegin(2);
      variableOf(world.line).SetSize(0);
    },
    [](TranslationWorld& world) {
      const SourceAction inner = giving(u"inner");
      RecordingSource source(world, world.seen, inner);
      world.translator.translate(world.other, u"{A}{B}", source);
    },
    [](TranslationWorld& world) {
      const SourceAction inner = giving(u"inner");
      RecordingSource source(world, world.seen, inner);
      world.translator.translate(world.line, u"plain", source);
    },
    [](TranslationWorld& world) {
      const SourceAction inner = giving(u"inner");
      RecordingSource source(world, world.seen, inner);
      world.translator.translate(world.line, u"{A}", source);
    },
    [](TranslationWorld& world) {
      const Ref<clsObSpecialVar> other = make<clsObSpecialVar>();
      other->sExtract(u"ab{G,3}");
      world.line->SetSpecialVar(other);
    },
    [](TranslationWorld& world) { world.line->sReplaceVarInTextToWrite(); },
};

// Happens to the engine's line wherever it is hooked in, but not within itself.
Happening once(TranslationWorld& world, Incident incident, bool& isInside) {
  return [&world, incident, &isInside] {
    if (isInside) return;
    isInside = true;
    errorNumberOf([&] { incident(world); });
    isInside = false;
  };
}

TEST_F(BypassedTextService, IsNotSeenFromWithinAMessage) {
  for (const Incident& incident : kIncidents) {
    SCOPED_TRACE(&incident - kIncidents);
    for (const TextView line : {u"ab{F,XYZ}{G}", u"{A}x{F,XYZ,ABC}{F,XYZ}", u"{NEGRA,XYZ}",
                                u"xx{@c,XYZ}{F,XYZ,5}", u"x{F,XYZ}y}"}) {
      SCOPED_TRACE(toUtf8(line));
      Worlds worlds;
      worlds.inEach([&incident](TranslationWorld& world) {
        world.atEachMessage = [&incident, &world] { incident(world); };
      });
      worlds.expectSame(line, giving(u"v"));
      const std::string second = worlds.expectSame(line, giving(u"v"));
      EXPECT_EQ(worlds.expectSame(line, giving(u"v")), second);
    }
  }
}

// The services that make a value's text, and that say whether a date is one.
TEST_F(BypassedTextService, IsNotSeenFromWithinAnotherService) {
  const SourceAction everyKind = [](Ref<clsObLineCharacts>& line, int call, auto&) {
    clsObSpecialVar& variable = variableOf(line);
    if (call % 3 == 0) variable.SetContentBoolean(true);
    if (call % 3 == 1) variable.SetContentNumeric(Currency{12'345'678}, true);
    if (call % 3 == 2) variable.SetContentDate(Date{36'000});
    return true;
  };
  for (const Incident& incident : kIncidents) {
    SCOPED_TRACE(&incident - kIncidents);
    for (const TextView line : {u"ab{F,12}{G}c{H}", u"{A}x{F,12,QR}{NEGRA}{F,VACIO}", u"{A}{B}y}",
                                u"{F}{G,DF(dd)}{H,IIF(\"S\",a,b)}{I,SC}"}) {
      SCOPED_TRACE(toUtf8(line));
      Worlds worlds;
      worlds.includeUnwatched = false;
      bool isInside = false;
      worlds.inEach([&](TranslationWorld& world) {
        world.atEachConversion = world.atEachDate = once(world, incident, isInside);
      });
      worlds.expectSame(line, everyKind);
      const std::string second = worlds.expectSame(line, everyKind);
      EXPECT_EQ(worlds.expectSame(line, everyKind), second);
    }
  }
}

}  // namespace
}  // namespace tarvo::test
