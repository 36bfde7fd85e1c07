// The translation of whole lines: what comes of a line.
#include "frame/clsImplementIDMD.h"
#include "frame/clsImplementIDTraduc.h"
#include "template/translator_test.h"

namespace tarvo::test {
namespace {

class Translator : public TranslatorTest {};
TARVO_WITH_EITHER_TEXT_SERVICE(Translator);

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

struct RepeatCase {
  const char* shows;
  TextView line;
  const char* dump;
  bool endsHere;  // whether the line is not printed again
  bool isTurned;  // the variable's LineOfRepeatToPrint
};

constexpr RepeatCase kRepeatCases[] = {
    {"without the word", u"{F}", "\"v\"", true, false},
    {"the word alone", u"a{REPEAT}b", "\"ab\"", false, true},
    {"the word last", u"{F}{REPEAT}", "\"v\"", false, true},
    {"a variable after it takes it back", u"{REPEAT}{F}", "\"v\"", true, false},
    {"a constant too", u"{REPEAT}{@c}", "\"c\"", true, false},
    {"another control word too", u"{REPEAT}{NEGRA}", "\"[bold]\"", true, false},
    {"text does not", u"{F}{REPEAT} text", "\"v text\"", false, true},
    {"twice is once: the second is another variable", u"{REPEAT}{REPEAT}", "", false, true},
};

TEST_P(Translator, RepeatsTheLineWhenItsLastVariableSaysSo) {
  for (const RepeatCase& row : kRepeatCases) {
    SCOPED_TRACE(row.shows);
    for (const int pass : kEveryPass) {
      SCOPED_TRACE(pass);
      EXPECT_EQ(translated(row.line), row.dump);
      EXPECT_EQ(variableOf(world.line).GetEndOfRepeatPrintLine(), row.endsHere);
      EXPECT_EQ(variableOf(world.line).GetLineOfRepeatToPrint(), row.isTurned);
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

// A client of the library's own, who has implemented nothing yet.
TEST_P(Translator, OfTheLibrarysOwnClientsNobodyKnowsAVariable) {
  const Ref<clsImplementIDTraduc> form = make<clsImplementIDTraduc>();
  const SourceAction ofTheForm = [&form](Ref<clsObLineCharacts>& line, int, auto&) {
    return form->fTranslateSpecialVar(line);
  };
  const Ref<clsImplementIDMD> records = make<clsImplementIDMD>();
  const SourceAction ofTheRecords = [&records](Ref<clsObLineCharacts>& line, int, auto&) {
    return records->fTranslateSpecialVarMD(line, Currency::ofUnits(7));
  };
  for (const int pass : kEveryPass) {
    SCOPED_TRACE(pass);
    for (const SourceAction& client : {ofTheForm, ofTheRecords}) {
      EXPECT_EQ(translated(u"a{A}b{R.B,4}c{NEGRA}", client), "\"aNo se encontróbNo sc[bold]\"");
    }
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

}  // namespace
}  // namespace tarvo::test
