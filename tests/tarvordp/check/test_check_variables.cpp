// Mistakes within one line: braces, attributes, names.
#include "check_test.h"

namespace tarvordp::test {
namespace {

constexpr CheckCase kCases[] = {
    {"a plain line has none", "Total {FACTURA.MONTO,15,DERECHA}\n", ""},
    {"an empty template prints nothing", "", "T:1:1: warning: the file is empty\n"},
    {"an empty line is a template", "\n", ""},

    // Braces.
    {"an unclosed brace ends the report", "Total {MONTO,15\n",
     "T:1:7: error: a '{' without its '}' ends the report (run-time error 5)\n"},
    {"the variables before an unclosed brace are read", "{A,QZ} {B",
     "T:1:4: error: unknown attribute 'QZ'\n"
     "T:1:8: error: a '{' without its '}' ends the report (run-time error 5)\n"},
    {"a brace within a variable", "{A {B}\n",
     "T:1:1: error: a '{' whose '}' is missing before the next '{'\n"},
    {"a stray closing brace at the end prints", "{A} x }\n",
     "T:1:7: warning: a '}' without its '{' is printed as it stands\n"},
    {"a stray closing brace before a variable ends the report", "a } {B} }\n",
     "T:1:3: error: a '}' without its '{' before a variable ends the report (run-time error 5)\n"
     "T:1:9: warning: a '}' without its '{' is printed as it stands\n"},
    {"braces of a comment do not matter", "... {nota } }\n", ""},

    // Unknown attributes.
    {"an attribute that is nearly a word", "{F,10,DERECA}\n",
     "T:1:7: error: unknown attribute 'DERECA', did you mean DERECHA?\n"},
    {"letters exchanged", "{F,10,IZQIUERDA}\n",
     "T:1:7: error: unknown attribute 'IZQIUERDA', did you mean IZQUIERDA?\n"},
    {"in either case, with blanks, at its first letter", "{F, 10,  centr }\n",
     "T:1:10: error: unknown attribute 'CENTR', did you mean CENTRO?\n"},
    {"the letter O for the digit", "{F,10,CO}\n",
     "T:1:7: error: unknown attribute 'CO', did you mean C0?\n"},
    {"a word of another language", "{F,10,RIGHT}\n",
     "T:1:7: error: unknown attribute 'RIGHT', did you mean DERECHA?\n"},
    {"an attribute like none", "{F,XYZ}\n", "T:1:4: error: unknown attribute 'XYZ'\n"},
    {"a control word as an attribute", "{F,NEGRA}\n",
     "T:1:4: error: unknown attribute 'NEGRA': it is a control word, which has braces of its "
     "own\n"},
    {"an empty attribute", "{F,,10}\n",
     "T:1:3: error: an attribute is empty: nothing follows this ','\n"},
    {"nothing behind the last comma", "{F,10,}\n",
     "T:1:6: error: an attribute is empty: nothing follows this ','\n"},
    {"control characters of an attribute are shown as numbers", "{F,X\x1B}\n",
     "T:1:4: error: unknown attribute 'X\\x1B'\n"},
    {"an unknown word's argument is no finding of its own", "{F,IFF(\"S\",a,b),QR}\n",
     "T:1:4: error: unknown attribute 'IFF', did you mean IIF?\n"},
    {"a pattern's word", "{F,5,PATRONSEPARADO=2B}\n",
     "T:1:6: error: unknown attribute 'PATRONSEPARADO=2B', did you mean PATRONSEPARADOR=?\n"},
    {"a constant's attributes too", "{@Total,10,DERECA}\n",
     "T:1:12: error: unknown attribute 'DERECA', did you mean DERECHA?\n"},

    // IIF.
    {"IIF with two values and a quoted text", "{F,IIF(\"S\",Exento,),12,QR}\n", ""},
    {"IIF with one value", "{F,IIF(\"S\",Exento)}\n",
     "T:1:4: error: IIF has 1 value, it needs two (run-time error 9 when the missing one is "
     "needed)\n"},
    {"IIF with a parenthesis in a value", "{F,IIF(\"S\",a(b),c)}\n",
     "T:1:4: error: IIF has 1 value, it needs two (run-time error 9 when the missing one is "
     "needed): a ')' inside a value ends them\n"
     "T:1:17: error: unknown attribute 'C)'\n"},
    {"two alignments", "{F,10,QR,CENTRO}{G,10,QR,DERECHA}{H,10,qc,Izquierda,QLR}\n",
     "T:1:10: warning: CENTRO takes the place of QR\n"
     "T:1:43: warning: IZQUIERDA takes the place of QC\n"},
    {"a width or an attribute without its comma",
     "{F 30}{C.NOMBRE derecha,8}{G QR}{H;5}{I J}{K 1A}\n",
     "T:1:1: warning: the client is asked for 'F 30', a name with a blank: is a comma missing?\n"
     "T:1:7: warning: the client is asked for 'NOMBRE DERECHA', a name with a blank: is a comma "
     "missing?\n"
     "T:1:27: warning: the client is asked for 'G QR', a name with a blank: is a comma missing?\n"
     "T:1:33: warning: the client is asked for 'H;5', a name with a semicolon: is a comma "
     "missing?\n"},
    {"IIF with none", "{F,IIF(\"S\")}\n",
     "T:1:4: error: IIF has no value, it needs two (run-time error 9 when the missing one is "
     "needed)\n"},
    {"IIF with three", "{F,IIF(\"S\",a,b,c)}\n",
     "T:1:4: warning: IIF has 3 values: only the first two are ever printed\n"},
    {"IIF without quotes", "{F,IIF(S,a,b)}\n",
     "T:1:7: warning: the condition of IIF compares with texts between '\"': without them the "
     "second value is always printed\n"},
    {"IIF without its argument", "{F,IIF,10}\n",
     "T:1:4: error: IIF without its values: IIF(\"X\",value,value)\n"},
    {"IIF that is not closed", "{F,IIF(\"S\",a,b}\n",
     "T:1:7: error: the '(' of IIF is not closed\n"},
    {"a second IIF", "{F,IIF(\"S\",a,b),IIF(\"N\",c,d)}\n",
     "T:1:20: error: a second IIF in one variable is not read\n"},
    {"brackets without QLR are endless", "{F,IIF(\"S\",[2]a,b)}\n",
     "T:1:12: error: brackets in a value of IIF need QLR before the IIF: without it the report "
     "never ends\n"},
    {"brackets with QLR behind the IIF are endless", "{F,IIF(\"S\",a[2],b),QLR}\n",
     "T:1:13: error: brackets in a value of IIF need QLR before the IIF: without it the report "
     "never ends\n"},
    {"brackets behind a pattern's word are endless without a message",
     "{F,IIF(\"S\",PATRONSEPARADOR=[2]a,b)}\n",
     "T:1:28: error: brackets in a value of IIF need QLR before the IIF: without it the report "
     "never ends\n"},
    {"brackets with QLR tell the operator", "{F,QLR,IIF(\"S\",[1,2]a,b)}\n",
     "T:1:16: warning: each bracket group shows the operator the message of an unknown attribute; "
     "blanks written as they are print the same\n"},
    {"brackets hold numbers", "{F,QLR,IIF(\"S\",[x]a,b)}\n",
     "T:1:16: error: the brackets of an IIF value hold one or two numbers of blanks (run-time "
     "error 13)\n"},
    {"brackets of the last value are text", "{F,IIF(\"S\",a,[2]b)}\n", ""},

    // Dates.
    {"DATEFORMAT before IIF", "{F,DATEFORMAT(dd/mm/yyyy),QR}{G,DF(dd),IIF(\"S\",a,b)}\n", ""},
    {"DATEFORMAT after IIF", "{F,IIF(\"S\",a,b),DATEFORMAT(dd/mm)}\n",
     "T:1:17: error: DATEFORMAT after IIF is read as a second IIF: write it before\n"},
    {"DATEFORMAT without its format", "{F,DF,10}\n",
     "T:1:4: error: DF without its format prints nothing: DF(dd/mm/yyyy)\n"},
    {"IIF where nothing is chosen", "{@Total,IIF(\"S\",a)}{BOLD,IIF}{LIGHT}\n",
     "T:1:9: warning: IIF chooses by the client's enumeration or boolean: it has no effect here\n"
     "T:1:26: warning: IIF chooses by the client's enumeration or boolean: it has no effect "
     "here\n"},
    {"DATEFORMAT with an empty one", "{F,DATEFORMAT()}\n",
     "T:1:4: error: DATEFORMAT with an empty format prints nothing\n"},
    {"DATEFORMAT that is not closed", "{F,DATEFORMAT(dd/mm}\n",
     "T:1:14: error: the '(' of DATEFORMAT is not closed\n"},
    {"a full stop in a format without a record", "{FECHA,DATEFORMAT(dd.mm.yyyy)}\n",
     "T:1:21: error: this '.' ends the record name, though it stands behind a ',': begin the "
     "variable with a record name, or with '.' for none\n"},
    {"a full stop in a format with a record, and with an empty one",
     "{F.FECHA,DATEFORMAT(dd.mm.yyyy)}{.FECHA,DATEFORMAT(dd.mm.yyyy)}\n", ""},
    {"an argument of another word", "{F,10,CENTRO(x)}\n",
     "T:1:13: warning: CENTRO has no argument: this one is ignored\n"},
    {"an argument of another word behind IIF", "{F,IIF(\"S\",a,b),CENTRO(x)}\n",
     "T:1:23: error: CENTRO has no argument: this one is read as that of a second IIF\n"},
    {"an argument of another word behind DATEFORMAT", "{F,DF(dd),CENTRO(x)}\n",
     "T:1:17: error: CENTRO has no argument: this one is read as the date's format\n"},

    {"an argument of another word behind DATEFORMAT without its own", "{F,DF,CENTRO(x)}\n",
     "T:1:4: error: DF without its format prints nothing: DF(dd/mm/yyyy)\n"
     "T:1:13: error: CENTRO has no argument: this one is read as the date's format\n"},

    // Numbers.
    {"the greatest width", "{F,255,4}\n",
     "T:1:1: error: the line has more than 254 characters: each time it is printed a warning is "
     "shown\n"
     "T:1:1: warning: the line takes 255 columns at least, the paper has 80\n"},
    {"a width out of range", "{F,256}\n",
     "T:1:4: error: '256' is out of range, widths and decimals are 0 to 255 (run-time error 6)\n"},
    {"a negative one", "{F,10,-1}\n",
     "T:1:7: error: '-1' is out of range, widths and decimals are 0 to 255 (run-time error 6)\n"},
    {"a width of 0", "{F,0,10}\n",
     "T:1:4: warning: a width of 0 is none: the next number is the width\n"},
    {"a third number", "{F,12,2,3}\n",
     "T:1:9: warning: a third number takes the place of the decimals\n"},
    {"more decimals than an amount has", "{F,12,5}\n",
     "T:1:7: warning: an amount has four decimals: the others are always 0\n"},
    {"no room for the decimals", "{F,3,2}\n",
     "T:1:6: warning: a width of 3 has no room for 2 decimals: numbers print as '*'\n"},
    {"just room for them", "{F,4,2}{F,12,0}{F,4}\n", ""},
    {"an element number", "{D.P[255][32767]}\n", ""},
    {"an element number out of range", "x{D.P[256]}\n",
     "T:1:6: error: an element number is a number from 0 to 255 between '[' and ']' (run-time "
     "error 6)\n"},
    {"an element number that is none", "{D[x].P}\n",
     "T:1:3: error: an element number is a number from 0 to 255 between '[' and ']' (run-time "
     "error 13)\n"},
    {"an element number without its end", "{D.P[1}\n",
     "T:1:5: error: an element number is a number from 0 to 255 between '[' and ']' (run-time "
     "error 13)\n"},

    // Values that can be made without a client.
    {"FILL without a width", "{F,FILL}\n",
     "T:1:4: warning: FILL without a width repeats nothing\n"},
    {"a pattern", "{F,5,PATRONSEPARADOR=2C3B-B}\n", ""},
    {"a pattern with a count that is none", "{F,5,PATRONSEPARADOR=2B-XB}\n",
     "T:1:6: error: a pattern is made of codes like 2B or 3C, with '-' between them (run-time "
     "error 13)\n"},
    {"a value that may not be justified", "{F,30,JUSTIFICADO}\n",
     "T:1:7: note: a text that is too short even with a second blank between all its words, "
     "such as a single word, cannot be justified (run-time error 6)\n"},
    {"a constant that cannot be justified", "{@Total,30,QJ}\n",
     "T:1:1: error: this constant cannot be justified to its width (run-time error 6)\n"},
    {"a constant that can", "{@Son en total los montos,26,QJ}\n", ""},
    {"a value of IIF that cannot be justified", "{F,IIF(\"S\",si,no),30,QJ}\n",
     "T:1:4: error: a value of IIF cannot be justified to its width (run-time error 6)\n"},

    // Names.
    {"words that are nearly control words", "{NEGRITA}a{BLANCO} {COMPRIMIDA}{NORMALES}\n",
     "T:1:1: warning: the client is asked for NEGRITA, did you mean the control word NEGRA?\n"
     "T:1:11: warning: the client is asked for BLANCO, did you mean the control word BLANCA?\n"
     "T:1:20: warning: the client is asked for COMPRIMIDA, did you mean the control word "
     "COMPRIMIDO?\n"},
    {"but not with a record or a width", "{CLIENTE.NEGRITA}{BLANCO,10}{NOMBRE}{MONTO}{SALDO}\n",
     ""},
    {"a field that is a control word", "{ZONA.NORMAL}\n",
     "T:1:1: warning: the field NORMAL is the control word, whatever record it has: the client is "
     "not asked\n"},
    {"a control word with a width", "{NEGRA,10}a{BLANCA}\n",
     "T:1:1: warning: a width pads or cuts what NEGRA sends: it needs none\n"},
    {"a skip without a number", "{SNL}a\n", "T:1:1: warning: SNL without a number: {SNL,n}\n"},
    {"skips with their numbers", "{SNL,2}a\n{NB,5}{SNP,6}b\n", ""},
    {"a variable without a name", "{}{.}{,5}\n",
     "T:1:1: warning: a variable without a field name\n"
     "T:1:3: warning: a variable without a field name\n"
     "T:1:6: warning: a variable without a field name\n"},

    // Control words of a line.
    {"REPEAT in a form", "{REPEAT}{TEXTO}\n", "T:1:1: warning: REPEAT has no effect in a form\n"},
    {"a skip of several lines breaks several pages", "{SALTAPAGINA}{SNL,3}\n",
     "T:1:1: warning: the page is broken before each of the line's 3 lines\n"},
    {"an open line without text breaks none", "{SALTAPAGINA}{SNP,3}\n",
     "T:1:1: warning: an open line without text breaks no page\n"},
    {"a pause that is none", "...PAUSE\n",
     "T:1:4: warning: a comment 'PAUSE', did you mean PAUSA?\n"},
    {"a pause with too few full stops", "..pausa\n",
     "T:1:1: warning: a pause begins with three full stops: this line is printed\n"},
    {"pauses and comments", "...PAUSA\n  ... pausa  \n... Recibo de pago\n", ""},
};

class CheckVariables : public ::testing::TestWithParam<CheckCase> {};

TEST_P(CheckVariables, FindsExactlyThese) {
  EXPECT_EQ(findingsIn(bytesOf(GetParam().text), TemplateKind::kForm), GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(, CheckVariables, ::testing::ValuesIn(kCases));

TEST(CheckVariablesOfALongLine, TellsEveryPlaceInCharacters) {
  EXPECT_EQ(findingsIn(bytesOf("ñandú é {F,DERECA} ú {G,QX}\n")),
            "T:1:12: error: unknown attribute 'DERECA', did you mean DERECHA?\n"
            "T:1:25: error: unknown attribute 'QX'\n");
}

}  // namespace
}  // namespace tarvordp::test
