// One line of a template: its state, and the value that takes a variable's place.
#include "template/line_dump.h"
#include "template/template_test.h"
#include "template/variable_dump.h"

namespace tarvo::test {
namespace {

constexpr std::int32_t kRaised = -2147220991;  // a client's own error, as a service may raise it
constexpr Date kEmptyDate{35500.0};            // 1997
constexpr Date kDate{36000.0};                 // 1998

class LineTest : public TemplateTest {
 protected:
  // A line that says the opposite of a cleared one everywhere.
  void changeEverything() {
    line->SetTextToWrite(u"left {R[1].F[2],9,QR,VACIO,NB}");
    line->sExtractSpecialVar(line->GetTextToWrite());
    clsObSpecialVar& read = *line->GetSpecialVar();
    read.SetContentNumeric(Currency::ofUnits(7), true);
    read.sFormatSpecialVar();
    read.SetPrintLine(false);
    read.SetLineOfRepeatToPrint(true);
    read.SetEndOfRepeatPrintLine(false);
    line->SetAlignment(eAT_Justify);
    line->SetHasTab(true);
    line->SetTabPos(9);
    line->SetSkipLine(false);
    line->SetSkipNPoints(true);
    line->SetNumberOfSkips(200);
    line->SetPrintLine(false);
    line->SetSkipPageWasRead(true);
    line->SetPauseWasRead(true);
    line->SetLineToWriteEmpty(true);
  }

  // Reads the first variable of the text, as an engine does.
  clsObSpecialVar& extracted(TextView text) {
    line->sClrRecord();
    line->SetTextToWrite(text);
    line->sExtractSpecialVar(text);
    serviceCalls.clear();
    return *line->GetSpecialVar();
  }

  Ref<clsObLineCharacts> line = make<clsObLineCharacts>();
};

constexpr const char* kEverythingChanged =
    "\"left {R[1].F[2],9,QR,VACIO,NB}\" alignment=3 tab tabPos=9 open points skips=200 "
    "suppressed page pause writtenEmpty";
constexpr const char* kFresh = "alignment=0 open skips=0 suppressed";

// --- State.

TEST_F(LineTest, AFreshOneIsFalseAndZeroEverywhere) {
  EXPECT_EQ(dumpOf(*line), kFresh);
  EXPECT_EQ(line->GetAlignment(), eAT_Right);
  EXPECT_FALSE(line->GetPrintLine());
  EXPECT_FALSE(line->GetSkipLine());
  EXPECT_EQ(line->GetNumberOfSkips(), 0);
  EXPECT_EQ(line->GetTextToPrint(), u"");
  EXPECT_EQ(line->fNumberOfPrintedLinesThatWillFill(), 0);
  EXPECT_EQ(callsMade(), "");
}

TEST_F(LineTest, AFreshOneHasAVariableOfItsOwn) {
  ASSERT_TRUE(line->GetSpecialVar());
  EXPECT_EQ(dumpOf(*line->GetSpecialVar()), "");
  EXPECT_NE(line->GetSpecialVar(), make<clsObLineCharacts>()->GetSpecialVar());
}

TEST_F(LineTest, ClearingMakesAnEmptyLineThatIsPrinted) {
  changeEverything();
  ASSERT_EQ(dumpOf(*line), kEverythingChanged);
  line->sClrRecord();
  EXPECT_EQ(dumpOf(*line), "");
  EXPECT_EQ(line->GetTextToWrite(), u"");
  EXPECT_EQ(line->GetAlignment(), eAT_Left);
  EXPECT_FALSE(line->GetHasTab());
  EXPECT_EQ(line->GetTabPos(), 0);
  EXPECT_TRUE(line->GetSkipLine());
  EXPECT_FALSE(line->GetSkipNPoints());
  EXPECT_EQ(line->GetNumberOfSkips(), 1);
  EXPECT_TRUE(line->GetPrintLine());
  EXPECT_FALSE(line->GetSkipPageWasRead());
  EXPECT_FALSE(line->GetPauseWasRead());
  EXPECT_FALSE(line->GetLineToWriteEmpty());
}

TEST_F(LineTest, ClearingClearsTheVariableAndKeepsIt) {
  changeEverything();
  const Ref<clsObSpecialVar> before = line->GetSpecialVar();
  ASSERT_NE(dumpOf(*before), "");
  serviceCalls.clear();
  line->sClrRecord();
  EXPECT_EQ(line->GetSpecialVar(), before);
  EXPECT_EQ(dumpOf(*before), "");
  EXPECT_EQ(placeOf(*before), "0-0 size=0 reads ''");
  EXPECT_EQ(before->GetTextToWrite(), u"");
  EXPECT_EQ(before->GetTypeField(), TFR_String);
  EXPECT_EQ(before->GetContentNumeric(), Currency{});
  EXPECT_TRUE(before->GetEndOfRepeatPrintLine());
  EXPECT_EQ(callsMade(), "");
}

// --- Accessors: each keeps what it is given, and changes nothing else.

struct FlagAccess {
  bool (clsObLineCharacts::*get)() const noexcept;
  void (clsObLineCharacts::*set)(bool) noexcept;
  const char* whenFalse;  // on a cleared line
  const char* whenTrue;
};

constexpr FlagAccess kFlags[] = {
    {&clsObLineCharacts::GetHasTab, &clsObLineCharacts::SetHasTab, "", "tab"},
    {&clsObLineCharacts::GetSkipLine, &clsObLineCharacts::SetSkipLine, "open", ""},
    {&clsObLineCharacts::GetSkipNPoints, &clsObLineCharacts::SetSkipNPoints, "", "points"},
    {&clsObLineCharacts::GetPrintLine, &clsObLineCharacts::SetPrintLine, "suppressed", ""},
    {&clsObLineCharacts::GetSkipPageWasRead, &clsObLineCharacts::SetSkipPageWasRead, "", "page"},
    {&clsObLineCharacts::GetPauseWasRead, &clsObLineCharacts::SetPauseWasRead, "", "pause"},
    {&clsObLineCharacts::GetLineToWriteEmpty, &clsObLineCharacts::SetLineToWriteEmpty, "",
     "writtenEmpty"},
};

TEST_F(LineTest, FlagsAreKept) {
  for (const FlagAccess& flag : kFlags) {
    SCOPED_TRACE(*flag.whenTrue != '\0' ? flag.whenTrue : flag.whenFalse);
    for (const bool value : {true, false, false, true}) {
      line->sClrRecord();
      (*line.*flag.set)(value);
      EXPECT_EQ((*line.*flag.get)(), value);
      EXPECT_EQ(dumpOf(*line), value ? flag.whenTrue : flag.whenFalse);
    }
  }
}

TEST_F(LineTest, BytesAreKept) {
  line->sClrRecord();
  for (int value = 0; value <= 255; ++value) {
    line->SetTabPos(static_cast<std::uint8_t>(value));
    EXPECT_EQ(line->GetTabPos(), value);
    EXPECT_EQ(line->GetNumberOfSkips(), 1);
  }
  line->SetTabPos(0);
  for (int value = 0; value <= 255; ++value) {
    line->SetNumberOfSkips(static_cast<std::uint8_t>(value));
    EXPECT_EQ(line->GetNumberOfSkips(), value);
    EXPECT_EQ(line->GetTabPos(), 0);
  }
}

TEST_F(LineTest, AlignmentsAreKeptUnchecked) {
  line->sClrRecord();
  for (const int value : {0, 1, 2, 3, 4, -1}) {
    line->SetAlignment(static_cast<eAlignmentType>(value));
    EXPECT_EQ(line->GetAlignment(), value);
  }
}

TEST_F(LineTest, TextsAreKeptUnchecked) {
  for (const TextView text : {TextView(u"Total {F"), TextView(u"a\0b\r\n}", 6), TextView()}) {
    line->SetTextToWrite(text);
    EXPECT_EQ(line->GetTextToWrite(), text);
    EXPECT_EQ(line->GetTextToPrint(), text);
  }
  EXPECT_EQ(callsMade(), "");
}

TEST_F(LineTest, ItsOwnTextMayBeGivenBack) {
  line->SetTextToWrite(u"a text that is longer than a small one");
  line->SetTextToWrite(TextView(line->GetTextToWrite()).substr(2));
  EXPECT_EQ(line->GetTextToWrite(), u"text that is longer than a small one");
}

TEST_F(LineTest, VariablesAreKept) {
  line->SetSpecialVar(variable);
  EXPECT_EQ(line->GetSpecialVar(), variable);
  line->SetSpecialVar(nullptr);
  EXPECT_FALSE(line->GetSpecialVar());
}

TEST_F(LineTest, ALineThatIsWrittenEmptyPrintsNoText) {
  line->SetTextToWrite(u"text");
  line->SetLineToWriteEmpty(true);
  EXPECT_EQ(line->GetTextToPrint(), u"");
  EXPECT_EQ(line->GetTextToWrite(), u"text");
  line->SetLineToWriteEmpty(false);
  EXPECT_EQ(line->GetTextToPrint(), u"text");
}

TEST_F(LineTest, TheFieldIsTheVariables) {
  line->sExtractSpecialVar(u"x {r.monto,5}");
  EXPECT_EQ(line->GetField(), u"MONTO");
  variable->SetFieldName(u"as it is");
  line->SetSpecialVar(variable);
  EXPECT_EQ(line->GetField(), u"as it is");
}

TEST_F(LineTest, ExtractingLeavesTheTextAlone) {
  line->sClrRecord();
  line->SetTextToWrite(u"text");
  line->sExtractSpecialVar(u"Total: {FACTURA.MONTO,15,DERECHA}");
  EXPECT_EQ(dumpOf(*line), "\"text\"");
  EXPECT_EQ(placeOf(*line->GetSpecialVar()), "8-33 size=24 reads 'FACTURA.MONTO,15,DERECHA'");
}

TEST_F(LineTest, FormattingIsTheVariables) {
  extracted(u"{F,6}").SetContentString(u"abc");
  line->sFormatSpecialVar();
  EXPECT_EQ(line->GetSpecialVar()->GetTextToWrite(), u"abc   ");
  EXPECT_EQ(dumpOf(*line), "\"{F,6}\"");
}

// --- How many printed lines it takes.

TEST_F(LineTest, TakesItsSkipsButAtLeastOneLine) {
  for (int skips = 0; skips <= 255; ++skips) {
    line->SetNumberOfSkips(static_cast<std::uint8_t>(skips));
    for (const bool prints : {false, true}) {
      for (const bool skipsLines : {false, true}) {
        for (const bool others : {false, true}) {
          line->SetPrintLine(prints);
          line->SetSkipLine(skipsLines);
          line->SetSkipNPoints(others);
          line->SetSkipPageWasRead(others);
          line->SetPauseWasRead(others);
          line->SetLineToWriteEmpty(others);
          const int expected = !prints || !skipsLines ? 0 : skips == 0 ? 1 : skips;
          EXPECT_EQ(line->fNumberOfPrintedLinesThatWillFill(), expected)
              << skips << prints << skipsLines << others;
        }
      }
    }
  }
}

// --- The value in the variable's place.

struct ReplaceCase {
  bool isConditional;
  bool isEmpty;
  bool isWrittenEmpty;
  bool variablePrints;
  const char* dump;
};

constexpr ReplaceCase kReplaceCases[] = {
    {false, false, false, true, "\"a [value] z\""},
    {false, false, false, false, "\"a [value] z\" suppressed"},
    {false, false, true, true, "\"a  z\""},
    {false, false, true, false, "\"a  z\" suppressed"},
    {false, true, false, true, "\"a [value] z\""},
    {false, true, false, false, "\"a [value] z\" suppressed"},
    {false, true, true, true, "\"a  z\""},
    {false, true, true, false, "\"a  z\" suppressed"},
    {true, false, false, true, "\"a [value] z\""},
    {true, false, false, false, "\"a [value] z\" suppressed"},
    {true, false, true, true, "\"a  z\""},
    {true, false, true, false, "\"a  z\" suppressed"},
    {true, true, false, true, "\"a  z\" suppressed"},
    {true, true, false, false, "\"a  z\" suppressed"},
    {true, true, true, true, "\"a  z\" suppressed"},
    {true, true, true, false, "\"a  z\" suppressed"},
};

// A kind of value that can be empty, and what asking for it takes.
struct Kind {
  const char* name;
  void (*give)(clsObSpecialVar& variable, bool empty);
  const char* asked;
};

constexpr Kind kKinds[] = {
    {"text", [](clsObSpecialVar& v, bool empty) { v.SetContentString(empty ? u"" : u"x"); }, ""},
    {"number",
     [](clsObSpecialVar& v, bool empty) {
       v.SetContentNumeric(empty ? Currency{} : Currency{1}, false);
     },
     ""},
    {"boolean", [](clsObSpecialVar& v, bool empty) { v.SetContentBoolean(!empty); }, ""},
    {"date", [](clsObSpecialVar& v, bool empty) { v.SetContentDate(empty ? kEmptyDate : kDate); },
     "; fYear day "},
};

TEST_F(LineTest, TheValueTakesTheVariablesPlaceOrSuppressesTheLine) {
  for (const Kind& kind : kKinds) {
    for (const ReplaceCase& row : kReplaceCases) {
      SCOPED_TRACE(std::string(kind.name) + ", " + (row.isConditional ? "conditional " : "") +
                   (row.isEmpty ? "empty " : "") + (row.isWrittenEmpty ? "written empty " : "") +
                   (row.variablePrints ? "" : "does not print"));
      clsObSpecialVar& read = extracted(u"a {F} z");
      kind.give(read, row.isEmpty);
      read.SetTextToWrite(u"[value]");
      read.SetVariableToApplyCondition(row.isConditional);
      read.SetVariableToWriteEmpty(row.isWrittenEmpty);
      read.SetPrintLine(row.variablePrints);
      line->sReplaceVarInTextToWrite();
      EXPECT_EQ(dumpOf(*line), row.dump);
      const bool isInserted = !row.isWrittenEmpty && !(row.isConditional && row.isEmpty);
      const std::string day = *kind.asked == '\0' ? "" : row.isEmpty ? "35500" : "36000";
      EXPECT_EQ(callsMade(), std::string("fDelete \"a {F} z\", 3, 2") + kind.asked + day +
                                 (isInserted ? "; fInsert \"a  z\", \"[value]\", 3" : ""));
    }
  }
}

TEST_F(LineTest, AKindThatIsNeverEmptyNeverSuppresses) {
  clsObSpecialVar& read = extracted(u"{F,VACIO,IIF(,,)}x");
  read.SetContentEnum(u"");
  line->sReplaceVarInTextToWrite();
  EXPECT_EQ(dumpOf(*line), "\"x\"");
}

TEST_F(LineTest, AllOfTheVariableIsTakenOut) {
  struct Row {
    TextView text;
    const char* calls;
    TextView rest;
  };
  constexpr Row rows[] = {
      {u"{}", "fDelete \"{}\", 1, 1; fInsert \"\", \"V\", 1", u"V"},
      {u"{F}", "fDelete \"{F}\", 1, 2; fInsert \"\", \"V\", 1", u"V"},
      {u"ab{F}", "fDelete \"ab{F}\", 3, 2; fInsert \"ab\", \"V\", 3", u"abV"},
      {u"{F}ab", "fDelete \"{F}ab\", 1, 2; fInsert \"ab\", \"V\", 1", u"Vab"},
      {u"a{R.F,5}b{G}", "fDelete \"a{R.F,5}b{G}\", 2, 6; fInsert \"ab{G}\", \"V\", 2", u"aVb{G}"},
      {u"{F}}", "fDelete \"{F}}\", 1, 2; fInsert \"}\", \"V\", 1", u"V}"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(toUtf8(row.text));
    clsObSpecialVar& read = extracted(row.text);
    read.SetTextToWrite(u"V");
    line->sReplaceVarInTextToWrite();
    EXPECT_EQ(callsMade(), row.calls);
    EXPECT_EQ(line->GetTextToWrite(), row.rest);
  }
}

TEST_F(LineTest, ALineOnceSuppressedStaysSo) {
  line->sClrRecord();
  line->SetTextToWrite(u"{F,VACIO}{G}{H,VACIO}");
  for (const TextView value : {u"", u"full", u"full"}) {
    line->sExtractSpecialVar(line->GetTextToWrite());
    line->GetSpecialVar()->SetContentString(value);
    line->sFormatSpecialVar();
    line->sReplaceVarInTextToWrite();
    EXPECT_FALSE(line->GetPrintLine());
  }
  EXPECT_EQ(dumpOf(*line), "\"full\" suppressed");
}

TEST_F(LineTest, WithoutExtractingWhatStandsThereIsTakenOut) {
  clsObSpecialVar& read = extracted(u"ab{F}");
  read.SetTextToWrite(u"V");
  line->SetTextToWrite(u"another text");
  line->sReplaceVarInTextToWrite();
  EXPECT_EQ(line->GetTextToWrite(), u"anVer text");
}

// --- Errors.

using Action = void (*)(clsObLineCharacts& line);

void nothing(clsObLineCharacts&) {}
void clear(clsObLineCharacts& line) { line.sClrRecord(); }
void read(clsObLineCharacts& line) {
  line.SetTextToWrite(u"a {F,5}");
  line.sExtractSpecialVar(u"a {F,5}");
}
void readIrregular(clsObLineCharacts& line) { line.sExtractSpecialVar(u"}{"); }
void readTooWide(clsObLineCharacts& line) { line.sExtractSpecialVar(u"{F,256}"); }
void readBeyond(clsObLineCharacts& line) { line.sExtractSpecialVar(Text(32767, u'x') + u"{F}"); }
void comment(clsObLineCharacts& line) {
  Text text = u"...";
  line.sExtractComment(text);
}
void format(clsObLineCharacts& line) { line.sFormatSpecialVar(); }
void giveDate(clsObLineCharacts& line) {
  read(line);
  line.GetSpecialVar()->SetContentDate(kDate);
}
void giveNoDate(clsObLineCharacts& line) {
  read(line);
  line.GetSpecialVar()->SetContentDate(Date{1e9});
  modRDPGlobalValues::ofThisThread().refInsUtilDate = make<LibTarvoCI::clsUtilDate>();
}
void giveDateWithoutService(clsObLineCharacts& line) {
  giveDate(line);
  modRDPGlobalValues::ofThisThread().refInsUtilDate = {};
}
void shrinkVariable(clsObLineCharacts& line) {
  read(line);
  line.GetSpecialVar()->SetSize(-2);
}
void replace(clsObLineCharacts& line) { line.sReplaceVarInTextToWrite(); }

enum class Failing { kNone, kTexto, kDates };
using enum Failing;

struct ErrorCase {
  const char* shows;
  Action before;
  Action action;
  Failing failing;
  int call;  // the one that raises, counted from the start of the action
  std::int32_t number;
  const char* source;
  const char* trail;  // innermost first
};

constexpr const char* kUs = "LibTarvoRdpCI";
constexpr const char* kTheirs = "LibTarvoCI";

constexpr ErrorCase kErrors[] = {
    {"irregular braces", nothing, readIrregular, kNone, 0, kInvalidProcedureCall, kUs,
     "sExtract sExtractSpecialVar"},
    {"a place that does not fit", nothing, readBeyond, kNone, 0, kOverflow, kUs,
     "sExtract sExtractSpecialVar"},
    {"an attribute that fails", nothing, readTooWide, kNone, 0, kOverflow, kTheirs,
     "sReadAttribute sExtractFieldAndCharacteristics sExtract sExtractSpecialVar"},
    {"finding the braces", nothing, read, kTexto, 1, kRaised, "fault",
     "sExtract sExtractSpecialVar"},
    {"the comment's text", nothing, comment, kTexto, 1, kRaised, "fault", "sExtractComment"},
    {"the value's width", read, format, kTexto, 1, kRaised, "fault",
     "sFormatString sFormatSpecialVar sFormatSpecialVar"},
    {"the value's alignment", read, format, kTexto, 2, kRaised, "fault",
     "sAlignTextToWrite sFormatSpecialVar sFormatSpecialVar"},
    {"taking the variable out", read, replace, kTexto, 1, kRaised, "fault",
     "sReplaceVarInTextToWrite"},
    {"putting the value in", read, replace, kTexto, 2, kRaised, "fault",
     "sReplaceVarInTextToWrite"},
    {"whether it is empty", giveDate, replace, kDates, 1, kRaised, "fault",
     "fIsEmpty sReplaceVarInTextToWrite"},
    {"a date that is none", giveNoDate, replace, kNone, 0, kOverflow, kTheirs,
     "fIsEmpty sReplaceVarInTextToWrite"},
    {"who knows dates is missing", giveDateWithoutService, replace, kNone, 0, kObjectNotSet, kUs,
     "fIsEmpty sReplaceVarInTextToWrite"},
    {"no variable was read", nothing, replace, kNone, 0, kInvalidProcedureCall, kTheirs,
     "sReplaceVarInTextToWrite"},
    {"a negative size", shrinkVariable, replace, kNone, 0, kInvalidProcedureCall, kTheirs,
     "sReplaceVarInTextToWrite"},
};

class LineErrors : public LineTest {
 protected:
  void arm(Failing failing, int call) {
    error->reports.clear();
    if (failing == kTexto) texto->fault.raiseAt(call, kRaised);
    if (failing == kDates) dates->fault.raiseAt(call, kRaised);
  }

  // The line reports last; the error keeps its number and source, and the last text it was given.
  void expectReported(const RunTimeError& raised, const char* trail) {
    EXPECT_EQ(error->trail(), trail);
    ASSERT_FALSE(error->reports.empty());
    const RecordingError::Report& last = error->reports.back();
    EXPECT_EQ(toUtf8(last.className), "clsObLineCharacteristic");
    EXPECT_EQ(toUtf8(last.module), "Lib. Impresión Texto - Ob Line");
    EXPECT_EQ(last.kind, 2);
    EXPECT_EQ(last.reserved, 0);
    for (std::size_t i = 0; i + 1 < error->reports.size(); ++i) {
      EXPECT_EQ(toUtf8(error->reports[i].className), "clsObSpecialVar");
    }
    EXPECT_EQ(raised.description(), last.description + u" < " + last.procedure);
  }
};

TEST_F(LineErrors, AreReportedUnderTheLinesName) {
  for (const ErrorCase& row : kErrors) {
    SCOPED_TRACE(row.shows);
    modRDPGlobalValues::ofThisThread().refInsUtilDate = dates;
    line = make<clsObLineCharacts>();
    line->sClrRecord();
    row.before(*line);
    arm(row.failing, row.call);
    const std::optional<RunTimeError> raised = errorOf([&] { row.action(*line); });
    ASSERT_TRUE(raised);
    EXPECT_EQ(raised->number(), row.number);
    EXPECT_EQ(toUtf8(raised->source()), row.source);
    expectReported(*raised, row.trail);
  }
}

struct MissingVariableCase {
  const char* procedure;
  Action action;
};

constexpr MissingVariableCase kWithoutVariable[] = {
    {"sClrRecord", clear},
    {"sExtractSpecialVar", read},
    {"sFormatSpecialVar", format},
    {"sReplaceVarInTextToWrite", replace},
};

TEST_F(LineErrors, WithoutAVariable) {
  line->SetSpecialVar(nullptr);
  for (const MissingVariableCase& row : kWithoutVariable) {
    SCOPED_TRACE(row.procedure);
    arm(kNone, 0);
    const std::optional<RunTimeError> raised = errorOf([&] { row.action(*line); });
    ASSERT_TRUE(raised);
    EXPECT_EQ(raised->number(), kObjectNotSet);
    expectReported(*raised, row.procedure);
  }
}

TEST_F(LineErrors, TheFieldOfNoVariableIsNotReported) {
  line->SetSpecialVar(nullptr);
  EXPECT_EQ(errorNumberOf([&] { line->GetField(); }), kObjectNotSet);
  EXPECT_EQ(error->trail(), "");
}

// The nth call of the text service fails, for n = 1, 2, ... until none does: each time the line
// reports last, and the same line object then does its work.
TEST_F(LineErrors, AtEveryCallOfTheTextService) {
  struct Row {
    const char* shows;
    Action before;
    Action action;
    const char* dump;
  };
  constexpr Row rows[] = {
      {"reading", nothing, read, "\"a {F,5}\""},
      {"comment", nothing, comment, ""},
      {"formatting", read, format, "\"a {F,5}\""},
      {"replacing", read, replace, "\"a \""},
  };
  for (const Row& row : rows) {
    int call = 0;
    for (bool isReached = true; isReached;) {
      SCOPED_TRACE(row.shows + (" " + std::to_string(++call)));
      line = make<clsObLineCharacts>();
      line->sClrRecord();
      row.before(*line);
      arm(kTexto, call);
      const std::int32_t number = errorNumberOf([&] { row.action(*line); });
      isReached = !texto->fault.isPending();
      EXPECT_EQ(number, isReached ? kRaised : 0);
      texto->fault.never();
      if (!isReached) break;
      ASSERT_FALSE(error->reports.empty());
      EXPECT_EQ(toUtf8(error->reports.back().className), "clsObLineCharacteristic");
      line->sClrRecord();
      row.before(*line);
      row.action(*line);
      EXPECT_EQ(dumpOf(*line), row.dump);
    }
    EXPECT_GT(call, 1) << row.shows;
  }
}

TEST_F(LineErrors, WhatWasDoneUntilThenStays) {
  extracted(u"a {F} z").SetTextToWrite(u"V");
  arm(kTexto, 2);  // putting the value in
  EXPECT_EQ(errorNumberOf([&] { line->sReplaceVarInTextToWrite(); }), kRaised);
  EXPECT_EQ(dumpOf(*line), "\"a  z\"");
}

}  // namespace
}  // namespace tarvo::test
