// The translation of whole lines: what a source may do while it is asked.
#include "template/translator_test.h"

namespace tarvo::test {
namespace {

class TranslationSource : public TranslatorTest {};
TARVO_WITH_EITHER_TEXT_SERVICE(TranslationSource);

struct MeddlingCase {
  const char* shows;
  TextView line;
  SourceAction action;
  const char* dump;
  int answers;
};

std::vector<MeddlingCase> meddlingCases() {
  const auto withOther = [](auto change) {
    return doing(1, [change](Ref<clsObLineCharacts>& line, TranslationWorld& world) {
      line = world.other;
      change(*line);
    });
  };
  return {
      {"changes the text around its variable", u"{A}{B}",
       doing(1, [](auto& line, auto&) { line->SetTextToWrite(u"{A} and {C} and {D}"); }),
       "\"v and v and v\"", 3},
      {"changes the text, and the variable stands elsewhere", u"{A}",
       doing(1, [](auto& line, auto&) { line->SetTextToWrite(u"12345"); }), "\"v45\"", 1},
      {"clears the line", u"{A}{B}", doing(1, [](auto& line, auto&) { line->sClrRecord(); }),
       "error 5", 1},
      {"gives the line another variable", u"x{A}{B}",
       doing(1,
             [](auto& line, auto&) {
               const Ref<clsObSpecialVar> another = make<clsObSpecialVar>();
               another->SetContentString(u"other");
               another->SetPosBegin(2);
               another->SetSize(1);
               line->SetSpecialVar(another);
             }),
       "\"xotherv\"", 2},
      {"takes the variable away", u"{A}",
       doing(1, [](auto& line, auto&) { line->SetSpecialVar(nullptr); }), "error 91", 1},
      {"gives another line", u"{A}{B}", withOther([](clsObLineCharacts& other) {
         other.SetTextToWrite(u"other {X}{Y}");
         other.sExtractSpecialVar(u"other {X}{Y}");
       }),
       "\"other v\"", 2},
      {"gives a line without variables", u"{A}{B}", withOther([](clsObLineCharacts& other) {
         other.SetTextToWrite(u"other");
         other.GetSpecialVar()->SetPosBegin(6);
       }),
       "\"other\"", 1},
      {"takes the line away", u"{A}", doing(1, [](auto& line, auto&) { line = nullptr; }),
       "error 91", 1},
      {"takes the line away and does not know", u"{A}",
       [](Ref<clsObLineCharacts>& line, int, auto&) {
         line = nullptr;
         return false;
       },
       "error 91", 1},
      {"raises", u"{A}{B}", doing(2, [](auto&&...) { throw RunTimeError(kRaised); }),
       "error -2147220991", 2},
  };
}

TEST_P(TranslationSource, GoesOnWithWhatTheSourceLeaves) {
  for (const MeddlingCase& row : meddlingCases()) {
    SCOPED_TRACE(row.shows);
    for (const int pass : kEveryPass) {
      SCOPED_TRACE(pass);
      EXPECT_EQ(translated(row.line, row.action), row.dump);
      EXPECT_EQ(answers(), row.answers);
      EXPECT_EQ(translated(u"{A}{B,3}|"), "\"vv  |\"");
    }
  }
}

// The source raises at its nth call, for n = 1, 2, ... until it does not; the next line works.
TEST_P(TranslationSource, EveryCallOfTheSourceMayFail) {
  constexpr TextView kLine = u"a{A}b{NEGRA}{B,3}{@c}{C}{A}d";
  const char* const texts[] = {"a{A}b{NEGRA}{B,3}{@c}{C}{A}d", "avb[bold]{B,3}{@c}{C}{A}d",
                               "avb[bold]v  c{C}{A}d", "avb[bold]v  cv{A}d"};
  int call = 0;
  for (const char* const text : texts) {
    SCOPED_TRACE(++call);
    for (const int pass : kEveryPass) {
      SCOPED_TRACE(pass);
      const SourceAction raises = doing(call, [](auto&&...) { throw RunTimeError(kRaised); });
      EXPECT_EQ(translated(kLine, raises), "error -2147220991");
      EXPECT_EQ(answers(), call);
      EXPECT_EQ(toUtf8(world.line->GetTextToWrite()), text);
      EXPECT_EQ(world.error->trail(), "");
      EXPECT_EQ(translated(u"{C}{B}"), "\"vv\"");
    }
  }
  const SourceAction neverRaises = doing(5, [](auto&&...) { throw RunTimeError(kRaised); });
  EXPECT_EQ(translated(kLine, neverRaises), "\"avb[bold]v  cvvd\"");
}

TEST_P(TranslationSource, TellsOfUnknownAttributesEachTime) {
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    EXPECT_EQ(translated(u"a{F,XYZ}{F,XYZ}"), "\"avv\"");
    EXPECT_EQ(world.seen.linesOf("clsMessage").size(), 2u);
  }
}

TEST_P(TranslationSource, MayBeUsedByItsSource) {
  const SourceAction translatesAnother = doing(0, [](auto&, TranslationWorld& inside) {
    const SourceAction inner = giving(u"inner");
    RecordingSource source(inside, inside.seen, inner);
    inside.translator.translate(inside.other, u"{A}<{B}>{NB,3}", source);
  });
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    EXPECT_EQ(translated(u"{A}<{B}>{NB,3}", translatesAnother), "\"v<3C>v>   \"");
    EXPECT_EQ(dumpOf(*world.other), "\"inner<3C>inner>   \"");
    EXPECT_EQ(answers(), 2 + 2 * 2);
  }
}

// The line is what the inner translation has left, and goes on from there: the variable that was
// asked for stands where it stood, whatever is there now.
TEST_P(TranslationSource, MayTranslateTheSameLineMeanwhile) {
  const auto translatingAgain = [](TextView templateLine) {
    return doing(1, [templateLine](Ref<clsObLineCharacts>& line, TranslationWorld& inside) {
      const SourceAction inner = giving(u"inner");
      RecordingSource source(inside, inside.seen, inner);
      inside.translator.translate(line, templateLine, source);
      inside.seen.add("inner line " + dumpOf(*line));
    });
  };
  struct Row {
    const char* shows;
    TextView line;
    TextView innerLine;
    const char* innerDump;
    const char* dump;
  };
  constexpr Row kRows[] = {
      {"the inner variable is taken for the outer one", u"{A}{B}", u"<{X,3}>", "\"<3C>inn>\"",
       "\"<3C>inn\""},
      {"without variables the outer one's place counts", u"ab{A}cd{B}", u"plain text",
       "\"plain text\"", "\"plv text\""},
      {"the same text again", u"{A}{B}", u"{A}{B}", "\"innerinner\"", "\"innerinnerer\""},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.shows);
    for (const int pass : kEveryPass) {
      SCOPED_TRACE(pass);
      EXPECT_EQ(translated(row.line, translatingAgain(row.innerLine)), row.dump);
      EXPECT_EQ(world.seen.linesOf("inner line"),
                std::vector{std::string("inner line ") + row.innerDump});
    }
  }
}

// The same from within the conversion service, while it makes the text of {A}.
TEST_P(TranslationSource, AServiceMayTranslateTheSameLineMeanwhile) {
  const SourceAction number = [](Ref<clsObLineCharacts>& line, int, auto&) {
    variableOf(line).SetContentNumeric(Currency::ofUnits(7), false);
    return true;
  };
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    bool isInside = false;
    std::string innerDump;
    world.atEachConversion = [&] {
      if (isInside) return;
      isInside = true;
      const SourceAction inner = giving(u"inner");
      RecordingSource source(world, world.seen, inner);
      world.translator.translate(world.line, u"<{X}>", source);
      innerDump = dumpOf(*world.line);
    };
    EXPECT_EQ(translated(u"ab{A}cd", number), "\"<3C>7er>\"");  // {X} is gone, 7 is there
    EXPECT_EQ(innerDump, "\"<3C>inner>\"");
    world.atEachConversion = nullptr;
    EXPECT_EQ(translated(u"ab{A}cd", number), "\"ab7cd\"");
  }
}

TEST_P(TranslationSource, WithoutALineNothingIsAsked) {
  world.useServices();
  Ref<clsObLineCharacts> none;
  EndlessSource source(u"v");
  const auto translate = [&] { world.translator.translate(none, u"{A}", source); };
  EXPECT_EQ(errorNumberOf(translate), kObjectNotSet);
  EXPECT_EQ(source.answers, 0);
  EXPECT_EQ(world.error->trail(), "");
}

}  // namespace
}  // namespace tarvo::test
