// Template lines that hold whatever a line can hold, and sources that do whatever a client can do.
#pragma once

#include <array>
#include <vector>

#include "template/translation_world.h"

namespace tarvo::test {

inline constexpr TextView kSampleLines[] = {
    u"",
    u" ",
    u"text",
    u"texto con á y \r\n",
    u"text }",
    // Variables and their places.
    u"{A}",
    u"x{A}y",
    u"{A}{B}",
    u"{A}{B}{C}",
    u"{A} {A}",
    u"1{A}2{B,9}3{C,3,QR}4",
    u"{a.b}",
    u"{R.A} {R.B} {R.A}",
    u"{A}{BB}{A}",
    u"{}",
    u"{}{}",
    u"{ }",
    u"{,5}",
    u"{.F}",
    u"{F,,5}",
    u"{R.F.G}",
    u"{A,5}{A,5}",
    // Attributes.
    u"{F,XYZ}",
    u"x{F,XYZ}{G,ABC}y{H}",
    u"xyz{F,256}",
    u"{A}{F,5,256}z",
    u"{A[1]}",
    u"{A[1][2]}",
    u"xx{A[x]}",
    u"{A[300]}",
    u"x{R[2].A}",
    u"{F,5,NB}|",
    u"{F,CONCEROS,9}",
    u"{F,NC,9}",
    u"{F,SC,9}{F,SC,9,0}",
    u"{F,CP,12}",
    u"{F,DERECHA,9}{F,CENTRO,9}{F,IZQUIERDA,9}",
    u"{F,QJ,12}",
    u"{F,QJ,3}{G,QJ,255}",
    u"{F,FILL,9}",
    u"{F,PATRONSEPARADOR=2C-B}",
    u"{F,PATRONSEPARADOR=2C3B-B,5}",
    u"x{F,PATRONSEPARADOR=XXB}",
    u"{F,DF(dd/mm/yy)}",
    u"{F,DF(dd \\{mm\\})}",
    u"{F,IIF(\"S\",a,b),8}",
    u"{F,IIF(\"S\",a,b),8}{F}{G,IIF(\"N\",c)}",
    u"{F,IIF(\"S\")}",
    u"{F,IIF(\"S\",,)}",
    u"{F,QLR,IIF(\"S\",[1]a,[2,1]b)}",
    u"ab{F,IIF(\"S\",[1]a,b)}",
    u"{F,VACIO}x{G}",
    u"{F}x{G,CONDICION}y{H}",
    // Control words and constants.
    u"{NEGRA}",
    u"{ negra }",
    u"{NEGRA}{A}{BLANCA}{A}{COMP}",
    u"{R.NEGRA}",
    u"{NEGRA[1]}",
    u"{NEGRA [1]}",
    u"{NEGRA ,5}",
    u"{SNL,3}",
    u"{SNP,3}{A}",
    u"{A}{SNP,9,QR}",
    u"{NB,4}|{NB}|",
    u"{REPEAT}{A}",
    u"{REPEAT}{REPEAT}",
    u"{TAB}",
    u"{A}{SALTAPAGINA}",
    u"{NEGRAS}",
    u"{SNL,XYZ}",
    u"{@const}",
    u"{@const,10,QR}{A}",
    u"{@}",
    u"{@ x }",
    u"{ @x,QR,4}",
    u"{@NEGRA}",
    u"{@Aa.Bb,izquierda,9}",
    u"{@a[1]}",
    u"{@,5}",
    u"{@x,XYZ}",
    u"{@@}",
    // Comments, and what is none.
    u"...",
    u"...{A}",
    u"  ... PAUSA  ",
    u"...pausa",
    u"...NOTA {",
    u"..{A}",
    u". ..{A}",
    u"..",
    u" ...}{",
    u"... {A} PAUSA",
    u"\t...{A}",
    // Braces that do not come in pairs.
    u"{",
    u"}",
    u"}{",
    u"{a{b}",
    u"{a}}",
    u"}{a}",
    u"{a}{",
    u"x{a}y}z{b}",
    u"{{a}}",
    u"{A}{B",
    u"{A}}{B}",
    u"{@{A}}",
    u"{A}{@{B}",
    u"{NEGRA}{",
    u"{{",
    u"}}",
};

// Lines whose length is what matters.
inline std::vector<Text> longSampleLines() {
  const auto many = [](std::size_t count) { return Text(count, u'x'); };
  return {
      u"{@" + many(254) + u"}",
      u"{@" + many(255) + u"}",
      u"{@" + many(256) + u"}",
      u"{@n," + many(300) + u"}",
      u"{A," + many(1025) + u"}",
      u"{" + many(1024) + u"}{A}",
      u"{" + many(1025) + u"}{A}",
      many(4090) + u"{A}{B}",  // 4096
      many(4091) + u"{A}{B}",
      many(32'762) + u"{A}{B}",  // {A} ends at 32765, {B} at 32768
      many(32'764) + u"{A}",     // ends at 32767
      many(32'765) + u"{A}",
      u"{A}" + many(32'764),
      u"{A}" + many(32'765) + u"{B}",
      many(40'000),
      many(32'767) + u"}",
  };
}

struct SampleSource {
  const char* shows;
  SourceAction action;
};

inline clsObSpecialVar& variableOf(const Ref<clsObLineCharacts>& line) {
  return *line->GetSpecialVar();
}

// Gives the text, always or at the first call only and another one afterwards.
inline SourceAction giving(TextView text) {
  return [text](Ref<clsObLineCharacts>& line, int, TranslationWorld&) {
    variableOf(line).SetContentString(text);
    return true;
  };
}
inline SourceAction givingFirst(TextView first, TextView afterwards = u"v") {
  return [first, afterwards](Ref<clsObLineCharacts>& line, int call, TranslationWorld&) {
    variableOf(line).SetContentString(call == 1 ? first : afterwards);
    return true;
  };
}

// Does something to the line or its variable at the nth call (0: at each one), then gives a text.
template <class Action>
SourceAction doing(int nth, Action action) {
  return [nth, action](Ref<clsObLineCharacts>& line, int call, TranslationWorld& world) {
    const Ref<clsObLineCharacts> held = line;
    variableOf(held).SetContentString(u"v");
    if (nth == 0 || call == nth) action(line, world);
    return true;
  };
}

// The same to the variable alone.
template <class Action>
SourceAction changing(Action action) {
  return doing(
      0, [action](Ref<clsObLineCharacts>& line, TranslationWorld&) { action(variableOf(line)); });
}

// Values of every kind.
inline std::vector<SampleSource> valueSources() {
  const auto number = [](std::int64_t tenThousandths, bool parenthesis) {
    return changing([=](clsObSpecialVar& variable) {
      variable.SetContentNumeric(Currency{tenThousandths}, parenthesis);
    });
  };
  const auto date = [](double serial) {
    return changing([=](clsObSpecialVar& variable) { variable.SetContentDate(Date{serial}); });
  };
  return {
      {"knows nothing", [](auto&&...) { return false; }},
      {"knows, but gives nothing", [](auto&&...) { return true; }},
      {"knows every second one", [](auto&, int call, auto&) { return call % 2 == 0; }},
      {"an empty text", giving(u"")},
      {"a blank", giving(u" ")},
      {"a letter", giving(u"v")},
      {"a text in blanks", giving(u"  dos palabras ")},
      {"a long text", giving(u"a text that is longer than any of the widths")},
      {"a number", number(12'345'678'900, false)},
      {"a number below zero", number(-12'340'000, true)},
      {"zero", number(0, false)},
      {"a date", date(36'000)},
      {"an empty date", date(35'000)},
      {"a date that is none", date(1e9)},
      {"true", changing([](clsObSpecialVar& v) { v.SetContentBoolean(true); })},
      {"false", changing([](clsObSpecialVar& v) { v.SetContentBoolean(false); })},
      {"an enumeration", changing([](clsObSpecialVar& v) { v.SetContentEnum(u"S"); })},
      {"an array",
       changing([](clsObSpecialVar& v) { v.SetContentArray(u"SNNS", 6, -1, true, true, -1); })},
  };
}

// Texts with braces: they are read like the template.
inline std::vector<SampleSource> braceSources() {
  return {
      {"{", giving(u"{")},
      {"}", giving(u"}")},
      {"}{", giving(u"}{")},
      {"{ first", givingFirst(u"a{b")},
      {"} first", givingFirst(u"a}b")},
      {"{} first", givingFirst(u"{}")},
      {"a variable first", givingFirst(u"{Z,3}")},
      {"two variables first", givingFirst(u"<{Y}{Z,3,QR}>")},
      {"a variable, afterwards nothing", givingFirst(u"{Z}", u"")},
      {"a control word", giving(u"{SNL,7}{NEGRA}")},
      {"a constant", giving(u"{@con stante,12}")},
      {"a comment", giving(u"...{NB,2}")},
      {"an unknown attribute first", givingFirst(u"{Z,QQQ}")},
      {"what fails", giving(u"{Z,256}")},
  };
}

// What a client does besides.
inline std::vector<SampleSource> lookingSources() {
  const auto look = [](int nth) {
    return doing(nth, [](Ref<clsObLineCharacts>& line, TranslationWorld& world) {
      world.seen.add("text " + inQuotes(line->GetTextToWrite()));
    });
  };
  return {
      {"looks at the text", look(0)},
      {"looks at the first text", look(1)},
      {"looks at the second text", look(2)},
      {"looks at what is printed",
       doing(0, [](auto& line,
                   TranslationWorld& world) { world.seen.add(inQuotes(line->GetTextToPrint())); })},
      {"counts lines", doing(0,
                             [](auto& line, TranslationWorld& world) {
                               world.seen.add(
                                   std::to_string(line->fNumberOfPrintedLinesThatWillFill()));
                             })},
      {"suppresses the line", doing(1, [](auto& line, auto&) { line->SetPrintLine(false); })},
      {"suppresses by the variable", changing([](clsObSpecialVar& v) { v.SetPrintLine(false); })},
      {"sets a condition", changing([](clsObSpecialVar& v) {
         v.SetVariableToApplyCondition(true);
         v.SetContentString(u"");
       })},
      {"writes it empty", changing([](clsObSpecialVar& v) { v.SetVariableToWriteEmpty(true); })},
      {"writes the line empty",
       doing(0, [](auto& line, auto&) { line->SetLineToWriteEmpty(true); })},
      {"renames it", changing([](clsObSpecialVar& v) {
         v.SetFieldName(u"NEGRA");
         v.SetRecordName(u"@");
         v.SetReadText(u"other");
       })},
      {"sets attributes", changing([](clsObSpecialVar& v) {
         v.SetLength(7);
         v.SetAlignmentType(eAT_Center);
         v.SetIifPossibleValues(Value(u"no list"));
       })},
      {"repeats", changing([](clsObSpecialVar& v) {
         v.SetEndOfRepeatPrintLine(false);
         v.SetLineOfRepeatToPrint(true);
       })},
      {"raises", [](auto&&...) -> bool { throw RunTimeError(4711, u"source"); }},
      {"raises at the second call", doing(2, [](auto&&...) { throw RunTimeError(4711); })},
  };
}

// Sources that take the line to pieces.
inline std::vector<SampleSource> meddlingSources() {
  const auto move = [](int places) {
    return changing([places](clsObSpecialVar& v) {
      v.SetPosBegin(static_cast<std::int16_t>(v.GetPosBegin() + places));
    });
  };
  const auto place = [](std::int16_t at) {
    return changing([at](clsObSpecialVar& v) { v.SetPosBegin(at); });
  };
  const auto grow = [](int characters) {
    return changing([characters](clsObSpecialVar& v) {
      v.SetSize(static_cast<std::int16_t>(v.GetSize() + characters));
    });
  };
  const auto size = [](std::int16_t characters) {
    return changing([characters](clsObSpecialVar& v) { v.SetSize(characters); });
  };
  return {
      {"sets the text",
       doing(1, [](auto& line, auto&) { line->SetTextToWrite(u"changed {F} and {G}"); })},
      {"sets a text without variables",
       doing(1, [](auto& line, auto&) { line->SetTextToWrite(u"changed"); })},
      {"takes the text away", doing(1, [](auto& line, auto&) { line->SetTextToWrite({}); })},
      {"gives the same text back",
       doing(0, [](auto& line, auto&) { line->SetTextToWrite(line->GetTextToWrite()); })},
      {"clears the line", doing(1, [](auto& line, auto&) { line->sClrRecord(); })},
      {"clears the line second", doing(2, [](auto& line, auto&) { line->sClrRecord(); })},
      {"clears the variable", changing([](clsObSpecialVar& v) { v.sClrObject(); })},
      {"moves it on", move(1)},
      {"moves it back", move(-1)},
      {"moves it to 0", place(0)},
      {"moves it below", place(-1)},
      {"moves it far away", place(32'767)},
      {"makes it larger", grow(1)},
      {"makes it smaller", grow(-1)},
      {"makes it huge", size(32'767)},
      {"makes it negative", size(-5)},
      {"reads it again", doing(0,
                               [](auto& line, auto&) {
                                 line->sExtractSpecialVar(line->GetTextToWrite());
                                 variableOf(line).SetContentString(u"again");
                               })},
      {"reads another text",
       doing(1, [](auto& line, auto&) { line->sExtractSpecialVar(u"zz{Q,4}"); })},
      {"reads a text of the same form",
       doing(1, [](auto& line, auto&) { line->sExtractSpecialVar(u"{Q}"); })},
      {"resolves it itself", doing(1,
                                   [](auto& line, auto&) {
                                     line->sFormatSpecialVar();
                                     line->sReplaceVarInTextToWrite();
                                   })},
      {"resolves it to nothing itself", doing(0,
                                              [](auto& line, auto&) {
                                                variableOf(line).SetContentString({});
                                                line->sFormatSpecialVar();
                                                line->sReplaceVarInTextToWrite();
                                              })},
      {"asks for control words", doing(0,
                                       [](auto& line, auto&) {
                                         Text content;
                                         line->fSpecialVarIsAnyControlChar(u"snl", content);
                                       })},
  };
}

// Sources that put other objects in the place of the engine's.
inline std::vector<SampleSource> exchangingSources() {
  const auto inner = [](TextView text) {
    return [text](Ref<clsObLineCharacts>& line, TranslationWorld& world) {
      const SourceAction answer = giving(u"inner");
      RecordingSource source(world, world.seen, answer);
      Ref<clsObLineCharacts> own = line;
      world.translator.translate(own, text, source);
      world.seen.add("inner " + dumpOf(*own));
    };
  };
  const auto innerElsewhere = [inner](TextView text) {
    return doing(1, [inner, text](Ref<clsObLineCharacts>&, TranslationWorld& world) {
      inner(text)(world.other, world);
    });
  };
  return {
      {"another variable",
       doing(1, [](auto& line, auto&) { line->SetSpecialVar(make<clsObSpecialVar>()); })},
      {"another variable in the same place", doing(0,
                                                   [](auto& line, auto&) {
                                                     const Text text = line->GetTextToWrite();
                                                     line->SetSpecialVar(make<clsObSpecialVar>());
                                                     line->sExtractSpecialVar(text);
                                                   })},
      {"no variable", doing(1, [](auto& line, auto&) { line->SetSpecialVar(nullptr); })},
      {"no variable, and does not know",
       [](Ref<clsObLineCharacts>& line, int, TranslationWorld&) {
         line->SetSpecialVar(nullptr);
         return false;
       }},
      {"another line", doing(1, [](auto& line, TranslationWorld& world) { line = world.other; })},
      {"another line with variables", doing(1,
                                            [](auto& line, TranslationWorld& world) {
                                              line = world.other;
                                              line->SetTextToWrite(u"of {X} another {Y,5}");
                                              line->sExtractSpecialVar(line->GetTextToWrite());
                                            })},
      {"no line", doing(1, [](auto& line, auto&) { line = nullptr; })},
      {"no line at the second call", doing(2, [](auto& line, auto&) { line = nullptr; })},
      {"no line, and does not know",
       [](Ref<clsObLineCharacts>& line, int, TranslationWorld&) {
         line = nullptr;
         return false;
       }},
      {"translates another line", innerElsewhere(u"in {A,7}{B}")},
      {"translates the same text elsewhere", innerElsewhere(u"{A}{B}")},
      {"translates an irregular line elsewhere", innerElsewhere(u"{A}}")},
      {"translates this line again", doing(1, inner(u"x{Z}y"))},
      {"translates this line to the same again", doing(1, inner(u"{A}{B}"))},
      {"changes the printer's codes",
       doing(1, [](auto&, TranslationWorld& world) { world.printer->SetChrLight(u"{Z,2}"); })},
  };
}

inline std::vector<SampleSource> allSources() {
  std::vector<SampleSource> all;
  for (const auto& some :
       {valueSources(), braceSources(), lookingSources(), meddlingSources(), exchangingSources()}) {
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

}  // namespace tarvo::test
