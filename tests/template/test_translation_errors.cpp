// The translation of whole lines: failures, and who reports them.
#include "template/template_test.h"
#include "template/translator_test.h"

namespace tarvo::test {
namespace {

class TranslatorErrors : public TemplateTest {
 protected:
  Ref<clsObLineCharacts> line = make<clsObLineCharacts>();
  LineTranslator translator;
};

// Who reported, innermost first.
std::string reportersOf(const RecordingError& error) {
  std::string all;
  for (const RecordingError::Report& report : error.reports) {
    all += (all.empty() ? "" : " ") + toUtf8(report.className) + "." + toUtf8(report.procedure);
  }
  return all;
}

#define IN_VARIABLE(procedure) "clsObSpecialVar." procedure
#define IN_LINE(procedure) "clsObLineCharacteristic." procedure

// Where the text service is at work, as its failure is reported there.
constexpr const char* kTranslator = "";  // it is the engine that reports
constexpr const char* kComment = IN_LINE("sExtractComment");
constexpr const char* kPause = IN_LINE("fCheckAnyPrintingControlVarInCommentary");
constexpr const char* kPlace = IN_VARIABLE("sExtract ") IN_LINE("sExtractSpecialVar");
constexpr const char* kReading = IN_VARIABLE("sExtractFieldAndCharacteristics ")
    IN_VARIABLE("sExtract ") IN_LINE("sExtractSpecialVar");
constexpr const char* kElement =
    IN_VARIABLE("sExtractIfHasNumberArrayElement ") IN_VARIABLE("sExtractFieldAndCharacteristics ")
        IN_VARIABLE("sExtract ") IN_LINE("sExtractSpecialVar");
constexpr const char* kAttribute =
    IN_VARIABLE("sReadAttribute ") IN_VARIABLE("sExtractFieldAndCharacteristics ")
        IN_VARIABLE("sExtract ") IN_LINE("sExtractSpecialVar");
constexpr const char* kControl = IN_LINE("fSpecialVarIsAnyControlChar");
constexpr const char* kText =
    IN_VARIABLE("sFormatString ") IN_VARIABLE("sFormatSpecialVar ") IN_LINE("sFormatSpecialVar");
constexpr const char* kAlignment = IN_VARIABLE("sAlignTextToWrite ")
    IN_VARIABLE("sFormatSpecialVar ") IN_LINE("sFormatSpecialVar");
constexpr const char* kTrimming = IN_VARIABLE("sFormatSpecialVar ") IN_LINE("sFormatSpecialVar");
constexpr const char* kReplacing = IN_LINE("sReplaceVarInTextToWrite");

struct Calls {
  const char* reporters;  // when one of them fails
  int count = 1;
};

struct FailingCalls {
  const char* shows;
  TextView line;
  std::vector<Calls> calls;     // all that the text service gets, in their order
  std::int32_t usualError = 0;  // when none of them fails
};

const std::vector<FailingCalls>& failingCalls() {
  static const std::vector<FailingCalls> kRows = {
      {"a comment", u"...PAUSA", {{kTranslator}, {kComment}, {kPause}}},
      {"a client's variable",
       u"x{A,5}",
       {{kTranslator, 2},
        {kPlace, 3},
        {kReading, 4},
        {kElement},
        {kReading, 3},
        {kAttribute},
        {kControl},
        {kText},
        {kAlignment},
        {kReplacing, 2},
        {kTranslator}}},
      {"a constant",
       u"{@c,4,QR}",
       {{kTranslator, 2},
        {kPlace, 6},
        {kReading, 8},
        {kAttribute},
        {kReading, 3},
        {kAttribute},
        {kControl},
        {kTranslator},
        {kText},
        {kAlignment},
        {kReplacing, 2},
        {kTranslator}}},
      {"a control word that asks the service too",
       u"{NB,2}",
       {{kTranslator, 2},
        {kPlace, 3},
        {kReading, 4},
        {kElement},
        {kReading, 3},
        {kAttribute},
        {kControl, 2},
        {kText},
        {kAlignment},
        {kReplacing, 2},
        {kTranslator}}},
      {"a value without the blanks around it",
       u"{B,NB}",
       {{kTranslator, 2},
        {kPlace, 3},
        {kReading, 4},
        {kElement},
        {kReading, 3},
        {kAttribute},
        {kControl},
        {kTrimming},
        {kReplacing, 2},
        {kTranslator}}},
      {"braces that do not come in pairs",
       u"{A}}{B}",
       {{kTranslator, 2},
        {kPlace, 3},
        {kReading, 3},
        {kElement},
        {kControl},
        {kReplacing, 2},
        {kTranslator},
        {kPlace, 2}},
       kInvalidProcedureCall},
  };
  return kRows;
}

// The nth call of the text service fails, for n = 1, 2, ... until none does; the next line works.
TEST_F(TranslatorErrors, EveryCallOfTheTextServiceMayFail) {
  for (const FailingCalls& row : failingCalls()) {
    SCOPED_TRACE(row.shows);
    const auto translate = [&] {
      EndlessSource source(u"v");
      line->sClrRecord();
      translator.translate(line, row.line, source);
    };
    int call = 0;
    for (const Calls& some : row.calls) {
      for (int i = 0; i < some.count; ++i) {
        SCOPED_TRACE(++call);
        line = make<clsObLineCharacts>();
        error->reports.clear();
        texto->fault.raiseAt(call, kRaised);
        EXPECT_EQ(errorNumberOf(translate), kRaised);
        EXPECT_EQ(reportersOf(*error), some.reporters);
        texto->fault.never();
        EXPECT_EQ(errorNumberOf(translate), row.usualError);
      }
    }
    line = make<clsObLineCharacts>();
    texto->fault.raiseAt(call + 1, kRaised);
    EXPECT_EQ(errorNumberOf(translate), row.usualError);
    EXPECT_TRUE(texto->fault.isPending()) << "the row ends too early";
    texto->fault.never();
  }
}

class TranslationErrors : public TranslatorTest {};
TARVO_WITH_EITHER_TEXT_SERVICE(TranslationErrors);

TEST_P(TranslationErrors, ALineWithoutVariableObjectFailsUnderItsOwnName) {
  EXPECT_EQ(translated(u"{A}"), "\"v\"");
  const SourceAction answer = giving(u"v");
  RecordingSource source(world, world.seen, answer);
  world.line->SetSpecialVar(nullptr);
  for (const TextView line : {u"{A}", u"{B}"}) {
    world.error->reports.clear();
    const auto translate = [&] { world.translator.translate(world.line, line, source); };
    EXPECT_EQ(errorNumberOf(translate), kObjectNotSet);
    EXPECT_EQ(world.error->trail(), "sExtractSpecialVar");
  }
}

TEST_F(TranslatorErrors, TrailsAreTheSameWithEitherTextService) {
  struct Row {
    TextView line;
    const char* trail;
  };
  constexpr Row rows[] = {
      {u"}{", "sExtract sExtractSpecialVar"},
      {u"{A}{", "sExtract sExtractSpecialVar"},
      {u"{F,256}", "sReadAttribute sExtractFieldAndCharacteristics sExtract sExtractSpecialVar"},
      {u"{F[x]}",
       "sExtractIfHasNumberArrayElement sExtractFieldAndCharacteristics sExtract "
       "sExtractSpecialVar"},
      {u"{F,QJ,9}", "fJustifyStr sAlignTextToWrite sFormatSpecialVar sFormatSpecialVar"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(toUtf8(row.line));
    for (const bool isWatched : {true, false}) {
      if (!isWatched) useUnwatchedTexto();
      for (const int pass : kEveryPass) {
        SCOPED_TRACE(pass);
        error->reports.clear();
        line->sClrRecord();
        EndlessSource source(u"v");
        EXPECT_NE(errorNumberOf([&] { translator.translate(line, row.line, source); }), 0);
        EXPECT_EQ(error->trail(), row.trail);
        EXPECT_EQ(toUtf8(error->reports.back().module), "Lib. Impresión Texto - Ob Line");
      }
    }
    modRDPGlobalValues::ofThisThread().refInsTexto = texto;
  }
}

}  // namespace
}  // namespace tarvo::test
