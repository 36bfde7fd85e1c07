// How the run-time errors of a variable's value travel: every call of every service fails in turn,
// and memory where nothing else can.
#include <cstdlib>
#include <new>
#include <optional>
#include <set>
#include <sstream>

#include "template/template_test.h"

namespace {

// The nth allocation from now on fails; 0: none.
thread_local int allocationsLeft = 0;

void* allocate(std::size_t size) noexcept {
  if (allocationsLeft > 0 && --allocationsLeft == 0) return nullptr;
  return std::malloc(size != 0 ? size : 1);
}

void* allocateOrThrow(std::size_t size) {
  void* memory = allocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

// The whole test program allocates through these.
void* operator new(std::size_t size) { return allocateOrThrow(size); }
void* operator new[](std::size_t size) { return allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace tarvo::test {
namespace {

constexpr std::int32_t kRaised = -2147220991;  // a service's own error

using Action = void (*)(clsObSpecialVar& variable);

void format(clsObSpecialVar& v) { v.sFormatSpecialVar(); }
void align(clsObSpecialVar& v) { v.sAlignTextToWrite(); }
void askWhetherEmpty(clsObSpecialVar& v) { static_cast<void>(v.fIsEmpty()); }
void giveArray(clsObSpecialVar& v) { v.SetContentArray(u"abc", 5, -1, true, true, 0); }

void text(clsObSpecialVar& v) { v.SetContentString(u"a bc"); }
void dash(clsObSpecialVar& v) { v.SetContentString(u"-"); }
void number(clsObSpecialVar& v) { v.SetContentNumeric(Currency{15'000}, false); }
void zero(clsObSpecialVar& v) { v.SetContentNumeric({}, false); }
void date(clsObSpecialVar& v) { v.SetContentDate(Date{35869}); }
void boolean(clsObSpecialVar& v) { v.SetContentBoolean(true); }
void enumeration(clsObSpecialVar& v) { v.SetContentEnum(u"C"); }

const std::string kFormat = "sFormatSpecialVar";
const std::string kNumber = "sFormatNumber " + kFormat;
const std::string kDate = "sFormatDate " + kFormat;
const std::string kString = "sFormatString " + kFormat;
const std::string kEnum = "sFormatEnum " + kFormat;
const std::string kBool = "sFormatBool " + kFormat;
const std::string kAlign = "sAlignTextToWrite " + kFormat;
const std::string kJustify = "fJustifyStr " + kAlign;
const std::string kGap =
    "fGetCharsFromSpecialSeparationString fDoSpecialSeparationString " + kFormat;
const std::string kCode = "fConvierteBCEnImprimible " + kGap;

struct FailingCall {
  const char* operation;
  std::string trail;  // who reports when it fails, innermost first
  const char* left;   // what it leaves in TextToWrite, "before" before the action
};

struct Scenario {
  const char* shows;
  const char16_t* line;
  Action give;
  Action action;
  std::vector<FailingCall> calls;  // every service call of the action, in their order
};

void PrintTo(const Scenario& scenario, std::ostream* out) { *out << scenario.shows; }

const Scenario kScenarios[] = {
    {"Number",
     u"{F,6,C0,NB}",
     number,
     format,
     {{"fFormatNumberDotComma", kNumber, ""},
      {"fTrim", kFormat, "  1,50"},
      {"fReplaceAll", kFormat, "1,50"}}},
    {"NumberInTheOtherStyle",
     u"{F,6,CP,QC}",
     number,
     format,
     {{"fFormatNumberCommaDot", kNumber, ""}, {"fAlignCenter", kAlign, "  1.50"}}},
    {"PlainNumber",
     u"{F,6,2,SC,QL}",
     number,
     format,
     {{"fNumberToText", kNumber, ""},
      {"fAlignRight", kNumber, ""},
      {"fAlignLeft", kAlign, "   1,5"}}},
    {"PlainWholeNumber",
     u"{F,3,SC}",
     number,
     format,
     {{"fRound", kNumber, ""}, {"fNumberToText", kNumber, ""}, {"fAlignRight", kNumber, ""}}},
    {"NoZero",
     u"{F,6,NC,C0}",
     zero,
     format,
     {{"fAlignRight", kAlign, ""}, {"fReplaceAll", kFormat, "      "}}},
    {"Text",
     u"{F,6}",
     text,
     format,
     {{"fPadOrCut", kString, "before"}, {"fAlignLeft", kAlign, "a bc  "}}},
    {"RepeatedText",
     u"{F,6,FILL,QR}",
     dash,
     format,
     {{"fRepeat", kString, "before"}, {"fAlignRight", kAlign, "------"}}},
    {"JustifiedText",
     u"{F,6,QJ}",
     text,
     format,
     {{"fPadOrCut", kString, "before"},
      {"fTrim", kJustify, "a bc  "},
      {"fInsert", kJustify, "a bc  "},
      {"fInsert", kJustify, "a bc  "}}},
    {"Date",
     u"{F,12}",
     date,
     format,
     {{"fDefaultDateText", kDate, "before"}, {"fAlignLeft", kAlign, "15/03/1998"}}},
    {"FormattedDate",
     u"{F,4,DF(dd),NB}",
     date,
     format,
     {{"fFormatDate", kDate, "before"}, {"fAlignLeft", kAlign, "15"}, {"fTrim", kFormat, "15  "}}},
    {"Enumeration",
     u"{F,6,IIF(\"C\",Si,No)}",
     enumeration,
     format,
     {{"fReplaceAll", kEnum, "before"}, {"fAlignLeft", kAlign, "Si"}}},
    {"Boolean",
     u"{F,6}",
     boolean,
     format,
     {{"fBooleanToText", kBool, "before"}, {"fAlignLeft", kAlign, "S"}}},
    {"BooleanWithIif",
     u"{F,6,IIF(\"S\",Si,No)}",
     boolean,
     format,
     {{"fBooleanToText", kBool, "before"},
      {"fReplaceAll", kBool, "before"},
      {"fAlignLeft", kAlign, "Si"}}},
    {"Pattern",
     u"{F,PATRONSEPARADOR=B-2C}",
     text,
     format,
     {{"fSplit", kGap, "a bc"},
      {"fRepeat", kCode, "a bc"},
      {"fSplit", kGap, "a bc"},
      {"fReplaceAll", kGap, "a bc"},
      {"fReplaceAll", kGap, "a bc"},
      {"fSplit", kGap, "a bc"},
      {"fTextToInteger", kCode, "a bc"},
      {"fRepeat", kCode, "a bc"},
      {"fSplit", kGap, "a bc"},
      {"fRepeat", kCode, "a bc"}}},
    {"AlignmentAlone", u"{F,9,QC}", text, align, {{"fAlignCenter", "sAlignTextToWrite", "before"}}},
    {"JustificationAlone",
     u"{F,4,QJ}",
     text,
     align,
     {{"fTrim", "fJustifyStr sAlignTextToWrite", "before"}}},
    {"EmptyDate", u"{F}", date, askWhetherEmpty, {{"fYear", "fIsEmpty", "before"}}},
    {"Array", u"{F[2]}", text, giveArray, {{"fPadOrCut", "SetContentArray", "before"}}},
};

class ValueErrors : public TemplateTest, public ::testing::WithParamInterface<Scenario> {
 protected:
  ValueErrors() {
    printer->SetChrCondensed(u"<");
    printer->SetChrNormal(u">");
  }

  void prepare() {
    variable->sExtract(GetParam().line);
    GetParam().give(*variable);
    variable->SetTextToWrite(u"before");
    error->reports.clear();
    serviceCalls.clear();
  }

  std::optional<RunTimeError> run() {
    return errorOf([this] { GetParam().action(*variable); });
  }

  std::string state() const {
    return toUtf8(variable->GetTextToWrite() + u" " + variable->GetContentString());
  }

  // Runs with the nth call of all services failing.
  std::optional<RunTimeError> runFailingAt(std::size_t nth) {
    prepare();
    run();
    const std::string name = serviceCalls.lines().at(nth - 1);
    const std::string service = name.substr(0, name.find('.') + 1);
    int nthOfTheService = 0;
    for (std::size_t i = 0; i < nth; ++i) {
      if (serviceCalls.lines()[i].starts_with(service)) ++nthOfTheService;
    }
    prepare();
    faultOf(service).raiseAt(nthOfTheService, kRaised);
    const std::optional<RunTimeError> raised = run();
    EXPECT_FALSE(faultOf(service).isPending());
    return raised;
  }

 private:
  Fault& faultOf(const std::string& service) {
    if (service == "clsTexto.") return texto->fault;
    if (service == "clsConvert.") return convert->fault;
    if (service == "clsUtilDate.") return dates->fault;
    return math->fault;
  }
};

TEST_P(ValueErrors, NamesEveryProcedureInnermostFirstWhicheverCallFails) {
  for (std::size_t nth = 1; nth <= GetParam().calls.size(); ++nth) {
    const FailingCall& failing = GetParam().calls[nth - 1];
    SCOPED_TRACE(std::to_string(nth) + " " + failing.operation);
    const std::optional<RunTimeError> raised = runFailingAt(nth);
    ASSERT_TRUE(raised.has_value());
    EXPECT_EQ(error->trail(), failing.trail);
    EXPECT_EQ(toUtf8(variable->GetTextToWrite()), failing.left);
    EXPECT_EQ(serviceCalls.lines().size(), nth) << "goes on after the error";
    EXPECT_NE(serviceCalls.lines().back().find(std::string(".") + failing.operation + " "),
              std::string::npos)
        << serviceCalls.lines().back();

    EXPECT_EQ(raised->number(), kRaised);
    EXPECT_EQ(toUtf8(raised->source()), "fault");
    Text description = u"made to fail";
    for (const RecordingError::Report& report : error->reports) {
      EXPECT_EQ(toUtf8(report.className), "clsObSpecialVar");
      EXPECT_EQ(toUtf8(report.module), "Lib. Impresión Texto - Ob Special Var");
      EXPECT_EQ(report.kind, 2);
      EXPECT_EQ(report.reserved, 0);
      EXPECT_EQ(toUtf8(report.description), toUtf8(description));
      description += u" < " + report.procedure;
    }
    EXPECT_EQ(toUtf8(raised->description()), toUtf8(description));
  }
}

TEST_P(ValueErrors, MakesNoOtherCalls) {
  prepare();
  EXPECT_FALSE(run().has_value());
  EXPECT_EQ(serviceCalls.lines().size(), GetParam().calls.size()) << serviceCalls.text();
  EXPECT_TRUE(error->reports.empty());
}

TEST_P(ValueErrors, WorksAgainAfterwards) {
  prepare();
  run();
  const std::string expected = state();
  for (std::size_t nth = 1; nth <= GetParam().calls.size(); ++nth) {
    ASSERT_TRUE(runFailingAt(nth).has_value());
    EXPECT_FALSE(run().has_value());
    EXPECT_EQ(state(), expected) << nth;
  }
}

INSTANTIATE_TEST_SUITE_P(Every, ValueErrors, ::testing::ValuesIn(kScenarios),
                         [](const auto& row) { return std::string(row.param.shows); });

TEST(ValueErrorScenarios, WalkEveryProcedureInWhichAServiceIsAsked) {
  std::set<std::string> walked;
  for (const Scenario& scenario : kScenarios) {
    for (const FailingCall& call : scenario.calls) {
      std::istringstream names(call.trail);
      for (std::string name; names >> name;) walked.insert(name);
    }
  }
  const std::set<std::string> all{"SetContentArray",
                                  "sFormatSpecialVar",
                                  "sAlignTextToWrite",
                                  "sFormatNumber",
                                  "sFormatDate",
                                  "sFormatString",
                                  "sFormatEnum",
                                  "sFormatBool",
                                  "fIsEmpty",
                                  "fJustifyStr",
                                  "fConvierteBCEnImprimible",
                                  "fGetCharsFromSpecialSeparationString",
                                  "fDoSpecialSeparationString"};
  EXPECT_EQ(walked, all);
}

// --- Errors of its own, and missing services.

class OwnErrors : public TemplateTest {};

struct OwnErrorRow {
  const char16_t* line;
  Action give;
  std::int32_t number;
  const char* trail;
};

TEST_F(OwnErrors, TellTheErrorServiceWhoMetThem) {
  const OwnErrorRow rows[] = {
      {u"{F}", enumeration, 13, "sFormatEnum sFormatSpecialVar"},
      {u"{F,IIF(\"C\")}", enumeration, 9, "sFormatEnum sFormatSpecialVar"},
      {u"{F,IIF(\"X\",Si)}", enumeration, 9, "sFormatEnum sFormatSpecialVar"},
      {u"{F,IIF(\"S\")}", boolean, 9, "sFormatBool sFormatSpecialVar"},
      {u"{F,IIF(\"N\",No)}", boolean, 9, "sFormatBool sFormatSpecialVar"},
      {u"{F,9,QJ}", dash, 6, "fJustifyStr sAlignTextToWrite sFormatSpecialVar"},
  };
  for (const OwnErrorRow& row : rows) {
    SCOPED_TRACE(toUtf8(row.line));
    variable->sExtract(row.line);
    row.give(*variable);
    error->reports.clear();
    const std::optional<RunTimeError> raised = errorOf([this] { variable->sFormatSpecialVar(); });
    ASSERT_TRUE(raised.has_value());
    EXPECT_EQ(raised->number(), row.number);
    EXPECT_EQ(toUtf8(raised->source()), "LibTarvoRdpCI");
    EXPECT_EQ(error->trail(), row.trail);
    EXPECT_EQ(error->reports[0].description, describeErrorNumber(row.number));
  }
}

struct MissingRow {
  const char* shows;
  void (*forget)(modRDPGlobalValues& services);
  const char16_t* line;
  Action give;
  Action action;
  const char* trail;
};

void forgetTexto(modRDPGlobalValues& s) { s.refInsTexto = nullptr; }
void forgetConvert(modRDPGlobalValues& s) { s.refInsConvert = nullptr; }
void forgetDates(modRDPGlobalValues& s) { s.refInsUtilDate = nullptr; }
void forgetMath(modRDPGlobalValues& s) { s.refInsUtilMathOperations = nullptr; }

TEST_F(OwnErrors, WithoutAServiceAreError91) {
  const MissingRow rows[] = {
      {"text", forgetTexto, u"{F,6}", text, format, "sFormatString sFormatSpecialVar"},
      {"alignment", forgetTexto, u"{F,6,QL}", number, format,
       "sAlignTextToWrite sFormatSpecialVar"},
      {"justification", forgetTexto, u"{F,4,QJ}", number, format,
       "fJustifyStr sAlignTextToWrite sFormatSpecialVar"},
      {"blanks", forgetTexto, u"{F,6,NB}", number, format, "sFormatSpecialVar"},
      {"zeros", forgetTexto, u"{F,6,C0}", number, format, "sFormatSpecialVar"},
      {"pattern", forgetTexto, u"{F,PATRONSEPARADOR=B}", text, format,
       "fGetCharsFromSpecialSeparationString fDoSpecialSeparationString sFormatSpecialVar"},
      {"plain number", forgetTexto, u"{F,SC}", number, format, "sFormatNumber sFormatSpecialVar"},
      {"enumeration", forgetTexto, u"{F,IIF(\"C\",Si,No)}", enumeration, format,
       "sFormatEnum sFormatSpecialVar"},
      {"array", forgetTexto, u"{F[2]}", text, giveArray, "SetContentArray"},
      {"number", forgetConvert, u"{F}", number, format, "sFormatNumber sFormatSpecialVar"},
      {"boolean", forgetConvert, u"{F}", boolean, format, "sFormatBool sFormatSpecialVar"},
      {"count", forgetConvert, u"{F,PATRONSEPARADOR=2B}", text, format,
       "fConvierteBCEnImprimible fGetCharsFromSpecialSeparationString "
       "fDoSpecialSeparationString sFormatSpecialVar"},
      {"date", forgetDates, u"{F}", date, format, "sFormatDate sFormatSpecialVar"},
      {"empty date", forgetDates, u"{F}", date, askWhetherEmpty, "fIsEmpty"},
      {"rounding", forgetMath, u"{F,SC}", number, format, "sFormatNumber sFormatSpecialVar"},
  };
  for (const MissingRow& row : rows) {
    SCOPED_TRACE(row.shows);
    modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
    const modRDPGlobalValues all = services;
    variable->sExtract(row.line);
    row.give(*variable);
    error->reports.clear();
    row.forget(services);
    EXPECT_EQ(errorNumberOf([&] { row.action(*variable); }), kObjectNotSet);
    EXPECT_EQ(error->trail(), row.trail);
    services = all;
    EXPECT_EQ(errorNumberOf([&] { row.action(*variable); }), 0);
  }
}

// What needs no service works without any.
TEST_F(OwnErrors, NoneForWhatNeedsNoService) {
  modRDPGlobalValues::ofThisThread() = modRDPGlobalValues();
  variable->SetLength(3);
  variable->SetAlignmentType(static_cast<eAlignmentType>(7));
  variable->SetTextToWrite(u"before");
  EXPECT_EQ(writtenBy([this] { variable->sAlignTextToWrite(); }), "before");
  variable->SetLength(0);
  text(*variable);
  EXPECT_EQ(writtenBy([this] { variable->sFormatSpecialVar(); }), "a bc");
  for (const Action give : {text, number, boolean, enumeration, zero}) {
    give(*variable);
    EXPECT_EQ(variable->fIsEmpty(), give == zero);
  }
  variable->SetContentArray(u"abc", 5, -1, false, false, 2);
  EXPECT_EQ(variable->GetContentString(), u"b");
}

// --- Exhausted memory, the one way in which a content that is a text can fail.

class ContentErrors : public TemplateTest {};

TEST_F(ContentErrors, OfExhaustedMemoryHaveTheirTrail) {
  struct MemoryRow {
    const char* shows;
    Action action;
    std::vector<const char*> trails;  // of every allocation of the action
  };
  static const Text kLong(100, u'x');
  const MemoryRow rows[] = {
      {"SetContentString",
       [](clsObSpecialVar& v) { v.SetContentString(kLong); },
       {"SetContentString"}},
      {"SetContentEnum", [](clsObSpecialVar& v) { v.SetContentEnum(kLong); }, {"SetContentEnum"}},
      {"SetContentArray",
       [](clsObSpecialVar& v) { v.SetContentArray(kLong, 0, 0, false, false, 0); },
       {"SetContentArray", "SetContentString SetContentArray"}},
      {"SetContentNumeric", number, {}},
      {"SetContentDate", date, {}},
      {"SetContentBoolean", boolean, {}},
  };
  for (const MemoryRow& row : rows) {
    for (std::size_t nth = 1; nth <= row.trails.size() + 1; ++nth) {
      SCOPED_TRACE(row.shows);
      variable = make<clsObSpecialVar>();
      error->reports.clear();
      allocationsLeft = static_cast<int>(nth);
      const std::int32_t raised = errorNumberOf([&] { row.action(*variable); });
      const bool hasFailed = allocationsLeft == 0;
      allocationsLeft = 0;
      EXPECT_EQ(hasFailed, nth <= row.trails.size()) << "allocation " << nth;
      EXPECT_EQ(raised, hasFailed ? kOutOfMemory : 0);
      EXPECT_EQ(error->trail(), nth <= row.trails.size() ? row.trails[nth - 1] : "");
    }
  }
}

}  // namespace
}  // namespace tarvo::test
