// The translation of whole lines: what is asked of whom in which order, what comes of it, and that
// nobody can see whether the text service was asked for every step.
#include <array>

#include "template/forwarding_convert.h"
#include "template/sample_lines.h"
#include "template/template_test.h"

namespace tarvo::test {
namespace {

constexpr std::int32_t kRaised = -2147220991;  // a client's own error
constexpr int kMostMessages = 30;
constexpr int kEveryPass[] = {1, 2, 3};

// --- The order of the steps.

class TranslationSteps : public TemplateTest {
 protected:
  class Source final : public VariableSource {
   public:
    explicit Source(CallLog& log) : log_(log) {}
    bool answer(Ref<clsObLineCharacts>& line) override {
      log_.add("source.answer " + toUtf8(line->GetField()));
      if (line->GetField() == u"UNKNOWN") return false;
      line->GetSpecialVar()->SetContentString(u"v");
      return true;
    }
    void notFound(clsObLineCharacts& line) override {
      log_.add("source.notFound " + toUtf8(line.GetField()));
    }

   private:
    CallLog& log_;
  };

  // With every variable read before, so that only the steps are left.
  std::string stepsOf(TextView templateLine) {
    for (int pass = 1; pass <= 2; ++pass) {
      line->sClrRecord();
      serviceCalls.clear();
      Source source(serviceCalls);
      translator.translate(line, templateLine, source);
    }
    return callsMade();
  }

  LineTranslator translator;
  Ref<clsObLineCharacts> line = make<clsObLineCharacts>();
};

struct StepsCase {
  const char* shows;
  TextView line;
  const char* steps;
};

constexpr StepsCase kStepsCases[] = {
    {"an empty line asks for nothing", u"", ""},
    {"text is looked through once", u"ab", "fTrim \"ab\"; fPosition \"ab\", \"{\", 1"},
    {"a comment is looked at for its word", u" ...{A}",
     "fTrim \" ...{A}\"; fStrip \" ...{A}\", \".\"; fTrim \" {A}\""},
    {"a client's variable", u"x{A,3}",
     "fTrim \"x{A,3}\"; fPosition \"x{A,3}\", \"{\", 1; "
     "fPosition \"x{A,3}\", \"{\", 1; fPosition \"x{A,3}\", \"}\", 1; fPart \"x{A,3}\", 3, 3; "
     "fTrim \"A\"; answer A; fPadOrCut \"v\", 3, \" \"; fAlignLeft \"v  \", 3; "
     "fDelete \"x{A,3}\", 2, 4; fInsert \"x\", \"v  \", 2; fPosition \"xv  \", \"{\", 1"},
    {"a control word is not asked for", u"{tab}",
     "fTrim \"{tab}\"; fPosition \"{tab}\", \"{\", 1; "
     "fPosition \"{tab}\", \"{\", 1; fPosition \"{tab}\", \"}\", 1; fPart \"{tab}\", 2, 3; "
     "fTrim \"TAB\"; fDelete \"{tab}\", 1, 4; fInsert \"\", \"\", 1"},
    {"a constant is tried as a control word first", u"{@c}",
     "fTrim \"{@c}\"; fPosition \"{@c}\", \"{\", 1; "
     "fPosition \"{@c}\", \"{\", 1; fPosition \"{@c}\", \"}\", 1; fPart \"{@c}\", 2, 2; "
     "fTrim \"@c\"; fPart \"@c\", 2, 255; fDelete \"{@c}\", 1, 3; fInsert \"\", \"c\", 1; "
     "fPosition \"c\", \"{\", 1"},
    {"what nobody knows", u"{UNKNOWN}",
     "fTrim \"{UNKNOWN}\"; fPosition \"{UNKNOWN}\", \"{\", 1; "
     "fPosition \"{UNKNOWN}\", \"{\", 1; fPosition \"{UNKNOWN}\", \"}\", 1; "
     "fPart \"{UNKNOWN}\", 2, 7; fTrim \"UNKNOWN\"; answer UNKNOWN; notFound UNKNOWN; "
     "fDelete \"{UNKNOWN}\", 1, 8; fInsert \"\", \"No se encontró\", 1; "
     "fPosition \"No se encontró\", \"{\", 1"},
    {"from left to right in the text as it has become", u"{A}{B}",
     "fTrim \"{A}{B}\"; fPosition \"{A}{B}\", \"{\", 1; "
     "fPosition \"{A}{B}\", \"{\", 1; fPosition \"{A}{B}\", \"}\", 1; fPart \"{A}{B}\", 2, 1; "
     "fTrim \"A\"; answer A; fDelete \"{A}{B}\", 1, 2; fInsert \"{B}\", \"v\", 1; "
     "fPosition \"v{B}\", \"{\", 1; "
     "fPosition \"v{B}\", \"{\", 1; fPosition \"v{B}\", \"}\", 1; fPart \"v{B}\", 3, 1; "
     "fTrim \"B\"; answer B; fDelete \"v{B}\", 2, 2; fInsert \"v\", \"v\", 2; "
     "fPosition \"vv\", \"{\", 1"},
};

TEST_F(TranslationSteps, ComeInTheirOrder) {
  for (const StepsCase& row : kStepsCases) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(stepsOf(row.line), row.steps);
  }
}

TEST_F(TranslationSteps, AskNothingOfAServiceThatMayBeBypassed) {
  useUnwatchedTexto();
  for (const StepsCase& row : kStepsCases) {
    std::string asked;
    for (std::string rest = row.steps; !rest.empty();) {
      const std::string step = rest.substr(0, rest.find("; "));
      rest.erase(0, step.size() + 2);
      if (step[0] != 'f') asked += (asked.empty() ? "" : "; ") + step;
    }
    EXPECT_EQ(stepsOf(row.line), asked) << row.shows;
  }
}

// --- What comes of a line.  Each of these holds with either text service.

class Translator : public ::testing::TestWithParam<TranslationWorld::TextService> {
 protected:
  ~Translator() override { modRDPGlobalValues::ofThisThread() = modRDPGlobalValues(); }

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

INSTANTIATE_TEST_SUITE_P(, Translator,
                         ::testing::Values(TranslationWorld::kAsked, TranslationWorld::kBypassed),
                         [](const auto& service) {
                           return service.param == TranslationWorld::kAsked ? "Asked" : "Bypassed";
                         });

struct LineCase {
  const char* shows;
  TextView line;
  const char* dump;
  int answers = 0;
};

constexpr LineCase kLineCases[] = {
    {"text stays", u"a b", "\"a b\""},
    {"an empty line is printed", u"", ""},
    {"a lone closing brace is text", u"a}b", "\"a}b\""},
    {"a variable", u"a{A}b", "\"avb\"", 1},
    {"one after the other", u"{A}{B} {C,3}|", "\"vv v  |\"", 3},
    {"the same twice", u"{A}{A}", "\"vv\"", 2},
    {"nothing between the braces", u"{}", "\"v\"", 1},
    {"a control word", u"x{NEGRA}y", "\"x[bold]y\""},
    {"in small letters between blanks", u"x{  negra }y", "\"x[bold]y\""},
    {"with a record", u"{R.NEGRA}", "\"[bold]\""},
    {"with an element number", u"{NEGRA[1]}", "\"[bold]\""},
    {"and a blank before it", u"{NEGRA [1]}", "\"[bold]\""},
    {"with a width", u"{NEGRA,8}|", "\"[bold]  |\""},
    {"a code without a width is whole", u"{COMP}|", "\"[condensed]|\""},
    {"nearly a control word", u"{NEGRAS}", "\"v\"", 1},
    {"line feeds", u"x{SNL,3}", "\"x   \" skips=3"},
    {"points: their width is not printed", u"x{SNP,9}", "\"x\" open points skips=9"},
    {"blanks", u"x{NB,3}y", "\"x   y\""},
    {"page and tab", u"{SALTAPAGINA}{TAB}", "tab page"},
    {"a constant", u"{@Año 5.x}", "\"Año 5.x\""},
    {"with attributes", u"{@Ab,5,QR}|", "\"   Ab|\""},
    {"that is empty", u"a{@}b", "\"ab\""},
    {"that looks like a control word", u"{@NEGRA}", "\"NEGRA\""},
    {"that keeps its blanks", u"{@ a }|", "\" a|\""},
    {"behind a blank it counts in capitals", u"{ @a}", "\"A\""},
    {"that holds an opening brace", u"{@a{b}", "error 5", 0},
    {"that makes a variable", u"{@{A}}", "\"v\"", 1},
    {"conditional, with a value", u"{A,VACIO}x", "\"x\"", 1},
    {"irregular: not closed", u"{", "error 5"},
    {"irregular: not closed behind another", u"{A}{", "error 5", 1},
    {"irregular: closed before it opens", u"}{", "error 5"},
    {"irregular: closed twice before another", u"{A}}{B}", "error 5", 1},
    {"irregular: closed twice", u"{A}}", "\"v}\"", 1},
    {"irregular: opened twice reads up to the first end", u"{a{b}", "\"v\"", 1},
    {"irregular: nested", u"{{a}}", "\"v}\"", 1},
};

TEST_P(Translator, MakesTheLine) {
  for (const LineCase& row : kLineCases) {
    SCOPED_TRACE(row.shows);
    for (const int pass : kEveryPass) {
      SCOPED_TRACE(pass);
      EXPECT_EQ(translated(row.line), row.dump);
      EXPECT_EQ(answers(), row.answers);
    }
  }
}

struct CommentCase {
  const char* shows;
  TextView line;
  const char* dump;
  int answers = 0;
};

constexpr CommentCase kCommentCases[] = {
    {"pause between blanks", u"   ...PAUSA  ", "\"   PAUSA  \" suppressed pause"},
    {"pause in small letters", u"...pausa", "\"pausa\" suppressed pause"},
    {"pause behind blanks", u"...  pausa", "\"  pausa\" suppressed pause"},
    {"full stops behind the word", u"...PAUSA...", "\"PAUSA\" suppressed pause"},
    {"full stops in the word", u"...PAU.SA", "\"PAUSA\" suppressed pause"},
    {"two full stops are text", u"..pausa", "\"..pausa\""},
    {"and their variables are read", u"..{A}", "\"..v\"", 1},
    {"full stops that are apart are text", u". ..PAUSA", "\". ..PAUSA\""},
    {"behind a tab they are text", u"\t...PAUSA", "\"<09>...PAUSA\""},
    {"another word sets nothing", u"...NOTA", "\"NOTA\" suppressed"},
    {"variables are not looked at", u"...{A}{SNL,3}", "\"{A}{SNL,3}\" suppressed"},
    {"nor braces that do not fit", u"...}{", "\"}{\" suppressed"},
    {"nor a pause beside them", u"...PAUSA{A}", "\"PAUSA{A}\" suppressed"},
    {"nothing but full stops", u"...", "suppressed"},
    {"four of them", u"....PAUSA", "\"PAUSA\" suppressed pause"},
    {"an empty line is none", u"", ""},
    {"a blank line is none", u"   ", "\"   \""},
    {"full stops from a value are text", u"{@...}PAUSA", "\"...PAUSA\""},
};

TEST_P(Translator, TakesComments) {
  for (const CommentCase& row : kCommentCases) {
    SCOPED_TRACE(row.shows);
    for (const int pass : kEveryPass) {
      SCOPED_TRACE(pass);
      EXPECT_EQ(translated(row.line), row.dump);
      EXPECT_EQ(answers(), row.answers);
    }
  }
}

struct ValueCase {
  const char* shows;
  TextView line;
  std::vector<TextView> values;  // the first answers; afterwards "v"
  const char* dump;
  std::size_t answers;
};

const std::vector<ValueCase>& valueCases() {
  static const std::vector<ValueCase> kCases = {
      {"a whole variable is read again", u"<{A}>", {u"{B}"}, "\"<3C>v>\"", 2},
      {"with its attributes", u"<{A}>", {u"{B,4,QR}"}, "\"<3C>   v>\"", 2},
      {"before what follows", u"{A}{C}", {u"{B}", u"1", u"2"}, "\"12\"", 3},
      {"several of them, left to right", u"{A}{D}", {u"{B}-{C}", u"1", u"2", u"3"}, "\"1-23\"", 4},
      {"again and again", u"{A}", {u"{B}", u"{C}", u"{D}", u"end"}, "\"end\"", 4},
      {"control words too", u"{A}", {u"{SNL,2}{NEGRA}"}, "\"  [bold]\" skips=2", 1},
      {"an opening brace alone", u"{A}", {u"{"}, "error 5", 1},
      {"closed by what follows", u"{A}B}x", {u"{"}, "\"vx\"", 2},
      {"a closing brace alone", u"{A}", {u"}"}, "\"}\"", 1},
      {"before another variable", u"{A}{B}", {u"}"}, "error 5", 1},
      {"cut by its width", u"{A,2}B}", {u"{C}"}, "\"v\"", 2},
      {"a comment's full stops", u"{A}{B}", {u"...", u"1"}, "\"...1\"", 2},
      {"nothing", u"a{A}b{B}c", {u"", u""}, "\"abc\"", 2},
  };
  return kCases;
}

TEST_P(Translator, ReadsValuesLikeTheTemplate) {
  for (const ValueCase& row : valueCases()) {
    SCOPED_TRACE(row.shows);
    const SourceAction inTurn = [&row](Ref<clsObLineCharacts>& line, int call, auto&) {
      const auto index = static_cast<std::size_t>(call - 1);
      variableOf(line).SetContentString(index < row.values.size() ? row.values[index] : u"v");
      return true;
    };
    for (const int pass : kEveryPass) {
      SCOPED_TRACE(pass);
      EXPECT_EQ(translated(row.line, inTurn), row.dump);
      EXPECT_EQ(static_cast<std::size_t>(answers()), row.answers);
    }
  }
}

TEST_P(Translator, AConstantHas255Characters) {
  for (const std::size_t size : {253u, 254u, 255u, 256u, 300u, 1000u, 2000u}) {
    SCOPED_TRACE(size);
    const Text constant = Text(size - 1, u'x') + u"y";
    for (const int pass : kEveryPass) {
      SCOPED_TRACE(pass);
      EXPECT_EQ(translated(u"{@" + constant + u"}"), inQuotes(constant.substr(0, 255)));
      EXPECT_EQ(translated(u"{@" + constant + u",3}"), "\"xxx\"");
    }
  }
}

TEST_P(Translator, SaysWhatNobodyKnows) {
  const SourceAction knowsNothing = [](auto&&...) { return false; };
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    EXPECT_EQ(translated(u"{A}/{B,5}/{C,16,QR}/", knowsNothing),
              "\"No se encontró/No se/  No se encontró/\"");
    EXPECT_EQ(world.seen.linesOf("source.notFound").size(), 3u);
    EXPECT_EQ(translated(u"{A,VACIO}", knowsNothing), "");
    EXPECT_EQ(translated(u"{NEGRA}{@c}", knowsNothing), "\"[bold]c\"");
    EXPECT_TRUE(world.seen.lines().empty());
  }
}

TEST_P(Translator, ConditionsSuppressTheLine) {
  const SourceAction emptyA = [](Ref<clsObLineCharacts>& line, int, auto&) {
    variableOf(line).SetContentString(line->GetField() == u"A" ? u"" : u"v");
    return true;
  };
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    EXPECT_EQ(translated(u"x{A,VACIO}y{B}", emptyA), "\"xyv\" suppressed");
    EXPECT_EQ(translated(u"{B,VACIO}{A,CONDICION}{B,VACIA}{B}", emptyA), "\"v\" suppressed");
    EXPECT_EQ(translated(u"{B,VACIO}y{A}", emptyA), "\"y\"");
  }
}

TEST_P(Translator, ShowsTheSourceWhereItsVariableStands) {
  const SourceAction look = [](Ref<clsObLineCharacts>& line, int, TranslationWorld& seen) {
    const clsObSpecialVar& variable = variableOf(line);
    seen.seen.add("at " + std::to_string(variable.GetPosBegin()) + "-" +
                  std::to_string(variable.GetPosEnd()) + " in " + inQuotes(line->GetTextToWrite()));
    variableOf(line).SetContentString(u"value");
    return true;
  };
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    EXPECT_EQ(translated(u"a{A}b{NEGRA}{BB}", look), "\"avalueb[bold]value\"");
    EXPECT_EQ(world.seen.linesOf("at "),
              (std::vector<std::string>{"at 2-4 in \"a{A}b{NEGRA}{BB}\"",
                                        "at 14-17 in \"avalueb[bold]{BB}\""}));
  }
}

// --- Ends.

// Answers {A} with {A}, or with nothing.
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

TEST_P(Translator, AValueThatAsksForItselfIsAnOverflow) {
  EndlessSource itself(u"{A}");
  EXPECT_EQ(resultOf(world, u"{A}", itself), kOverflow);
  EXPECT_EQ(itself.answers, 32'768);
  EXPECT_EQ(world.line->GetTextToWrite(), u"{A}");
  EXPECT_EQ(world.error->trail(), "");  // it is the engine that reports
  EXPECT_EQ(translated(u"{A}{B}"), "\"vv\"");
}

TEST_P(Translator, ALineHas32767Variables) {
  EndlessSource nothing(u"");
  EXPECT_EQ(resultOf(world, variables(32'767), nothing), 0);
  EXPECT_EQ(nothing.answers, 32'767);
  EXPECT_EQ(world.line->GetTextToWrite(), u"");
}

TEST_P(Translator, ALineWithMoreVariablesIsAnOverflow) {
  EndlessSource nothing(u"");
  EXPECT_EQ(resultOf(world, variables(32'768), nothing), kOverflow);
}

TEST_P(Translator, AVariablePastPlace32767IsAnOverflow) {
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

TEST_P(Translator, AValueMayPushTheNextVariablePastPlace32767) {
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

TEST_P(Translator, TextMayBeLonger) {
  for (const std::size_t size : {4'096u, 4'097u, 32'767u, 32'768u, 70'000u}) {
    const Text text(size, u'x');
    EXPECT_EQ(translated(text), inQuotes(text));
    EXPECT_EQ(translated(text + u"}"), inQuotes(text + u"}"));
    EXPECT_EQ(translated(u"{A}" + text), inQuotes(u"v" + text));
  }
}

// --- What a source may do.

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

TEST_P(Translator, GoesOnWithWhatTheSourceLeaves) {
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
TEST_P(Translator, EveryCallOfTheSourceMayFail) {
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

TEST_P(Translator, TellsOfUnknownAttributesEachTime) {
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    EXPECT_EQ(translated(u"a{F,XYZ}{F,XYZ}"), "\"avv\"");
    EXPECT_EQ(world.seen.linesOf("clsMessage").size(), 2u);
  }
}

// More lines than are kept, in one place and in many.
TEST_P(Translator, TranslatesAnyNumberOfLines) {
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

TEST_P(Translator, MayBeUsedByItsSource) {
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

TEST_P(Translator, WithoutALineNothingIsAsked) {
  world.useServices();
  Ref<clsObLineCharacts> none;
  EndlessSource source(u"v");
  const auto translate = [&] { world.translator.translate(none, u"{A}", source); };
  EXPECT_EQ(errorNumberOf(translate), kObjectNotSet);
  EXPECT_EQ(source.answers, 0);
  EXPECT_EQ(world.error->trail(), "");
}

// --- With either text service everything is the same.

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
        if (!isOfReading && !call.starts_with("clsUtilDate")) calls.push_back(call);
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
      [](TranslationWorld& world, int call) { world.recordingDate->fault.raiseAt(call, kRaised); },
      [](TranslationWorld& world, int call) { world.math->fault.raiseAt(call, kRaised); },
      [](TranslationWorld& world, int call) { world.message->fault.raiseAt(call, kRaised); },
      [](TranslationWorld& world, int call) { world.error->fault.raiseAt(call, kRaised); },
  };
  const auto isPending = [](TranslationWorld& world) {
    return world.convert->fault.isPending() || world.recordingDate->fault.isPending() ||
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
      worlds.bypassed.dates = worlds.bypassed.recordingDate;
      worlds.inBoth([&](TranslationWorld& world) { arm(world, call); });
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

// What happens while the operator reads a message.
TEST_F(BypassedTextService, IsNotSeenFromWithinAMessage) {
  using Happening = void (*)(TranslationWorld&);
  constexpr Happening happenings[] = {
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
  for (const Happening& happening : happenings) {
    SCOPED_TRACE(&happening - happenings);
    for (const TextView line : {u"ab{F,XYZ}{G}", u"{A}x{F,XYZ,ABC}{F,XYZ}", u"{NEGRA,XYZ}",
                                u"xx{@c,XYZ}{F,XYZ,5}", u"x{F,XYZ}y}"}) {
      SCOPED_TRACE(toUtf8(line));
      Worlds worlds;
      worlds.inBoth([&happening](TranslationWorld& world) {
        world.atEachMessage = [&happening, &world] { happening(world); };
      });
      worlds.expectSame(line, giving(u"v"));
      const std::string second = worlds.expectSame(line, giving(u"v"));
      EXPECT_EQ(worlds.expectSame(line, giving(u"v")), second);
    }
  }
}

// --- Services that are replaced.

// Widths that nobody else reads so.
class DoublingConvert final : public ForwardingConvert {
 public:
  std::uint8_t fTextToByte(TextView valText) override {
    return static_cast<std::uint8_t>(2 * ForwardingConvert::fTextToByte(valText));
  }
};

TEST_P(Translator, ForgetsWhatItReadWithOtherServices) {
  const Ref<RecordingConvert> before = world.convert;
  const Ref<RecordingConvert> after =
      make<RecordingConvert>(world.otherCalls, make<DoublingConvert>());
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    world.convert = before;
    EXPECT_EQ(translated(u"{A,3}|{B,2}|"), "\"v  |v |\"");
    EXPECT_EQ(translated(u"{A,3}|{B,2}|"), "\"v  |v |\"");
    world.convert = after;
    EXPECT_EQ(translated(u"{A,3}|{B,2}|"), "\"v     |v   |\"");
  }
}

// From line to line it is another one; a third world sees the recording one throughout.
TEST_F(BypassedTextService, MayBeReplacedBetweenLines) {
  for (const SampleSource& source : {allSources()[5], allSources()[6], braceSources()[7]}) {
    SCOPED_TRACE(source.shows);
    Worlds worlds;
    TranslationWorld& changing = worlds.bypassed;
    int count = 0;
    for (const int pass : kEveryPass) {
      SCOPED_TRACE(pass);
      for (const TextView line : kSampleLines) {
        SCOPED_TRACE(toUtf8(line));
        changing.use(++count % 3 == 0 ? TranslationWorld::kAsked : TranslationWorld::kBypassed);
        worlds.expectSame(line, source.action);
      }
    }
  }
}

// Who is put in the text service's place in the middle of a line is asked from then on.
TEST_F(BypassedTextService, MayBeReplacedWithinALine) {
  TranslationWorld world(TranslationWorld::kBypassed);
  CallLog log;
  const SourceAction replaces = doing(2, [&log](auto&, TranslationWorld& inside) {
    inside.texto = make<RecordingTexto>(log, make<LibTarvoCI::clsTexto>());
    inside.useServices();
  });
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    log.clear();
    world.use(TranslationWorld::kBypassed);
    world.translate(u"{A}{B}{C}", replaces);
    EXPECT_EQ(dumpOf(*world.line), "\"vvv\"");
    EXPECT_EQ(log.linesOf("clsTexto.fDelete"),
              (std::vector<std::string>{"clsTexto.fDelete \"v{B}{C}\", 2, 2",
                                        "clsTexto.fDelete \"vv{C}\", 3, 2"}));
  }
}

// A new conversion service reads the variables that come after it, and no others.
TEST_P(Translator, ReadsEveryVariableWithTheServicesOfItsMoment) {
  const Ref<RecordingConvert> before = world.convert;
  const Ref<RecordingConvert> after =
      make<RecordingConvert>(world.otherCalls, make<DoublingConvert>());
  const SourceAction replaces = doing(1, [&after](auto&, TranslationWorld& inside) {
    inside.convert = after;
    inside.useServices();
  });
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    world.convert = before;
    EXPECT_EQ(translated(u"{A,3}|{B,3}|", replaces), "\"v  |v     |\"");
    world.convert = before;
    EXPECT_EQ(translated(u"{A,3}|{B,3}|"), "\"v  |v  |\"");
    EXPECT_EQ(translated(u"{A,3}|{B,3}|", replaces), "\"v  |v     |\"");
  }
}

// --- Failures of the text service itself.

class TranslatorErrors : public TemplateTest {
 protected:
  Ref<clsObLineCharacts> line = make<clsObLineCharacts>();
  LineTranslator translator;
};

// The nth call of the text service fails, for n = 1, 2, ... until none does; the next line works.
TEST_F(TranslatorErrors, EveryCallOfTheTextServiceMayFail) {
  for (const TextView text : {u"...PAUSA", u"x{A,5}{@c,4,QR}{NB,2}{B,NB}", u"{A}}{B}"}) {
    SCOPED_TRACE(toUtf8(text));
    int call = 0;
    for (bool isReached = true; isReached;) {
      SCOPED_TRACE(++call);
      const auto translate = [&] {
        EndlessSource source(u"v");
        line->sClrRecord();
        translator.translate(line, text, source);
      };
      line = make<clsObLineCharacts>();
      error->reports.clear();
      texto->fault.raiseAt(call, kRaised);
      const std::optional<RunTimeError> raised = errorOf(translate);
      isReached = !texto->fault.isPending();
      texto->fault.never();
      if (!isReached) break;
      ASSERT_TRUE(raised);
      EXPECT_EQ(raised->number(), kRaised);
      // Outside of the line's own operations it is the engine that reports.
      if (!error->reports.empty()) {
        EXPECT_EQ(toUtf8(error->reports.back().className), "clsObLineCharacteristic");
      }
      const std::int32_t usual = text == u"{A}}{B}" ? kInvalidProcedureCall : 0;
      EXPECT_EQ(errorNumberOf(translate), usual);
    }
    EXPECT_GT(call, 3);
  }
}

TEST_P(Translator, ALineWithoutVariableObjectFailsUnderItsOwnName) {
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
