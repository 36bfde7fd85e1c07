// What the attributes of a special variable set: words, numbers, the separator pattern, IIF with
// its values and blanks, DATEFORMAT; and what is said of those that nobody knows.
#include <gmock/gmock.h>
#include <malloc.h>

#include <set>
#include <sstream>

#include "frame/upper_case.h"
#include "template/asked_services.h"
#include "template/attribute_words.h"
#include "template/parse_test.h"

namespace tarvo::test {
namespace {

// --- Words.

struct WordCase {
  TextView word;
  const char* sets;
};

constexpr WordCase kWords[] = {
    {u"IZQUIERDA", "left"},
    {u"QL", "left"},
    {u"DERECHA", "right"},
    {u"QR", "right"},
    {u"CENTRO", "center"},
    {u"QC", "center"},
    {u"JUSTIFICADO", "justify"},
    {u"QJ", "justify"},
    {u"SINCOMAS", "noComa"},
    {u"SC", "noComa"},
    {u"NOCERO", "noZero"},
    {u"NC", "noZero"},
    {u"NOBLANCOS", "noSpaces"},
    {u"NB", "noSpaces"},
    {u"CONCEROS", "zeros"},
    {u"C0", "zeros"},
    {u"COMASYPUNTO", "commasAndDot"},
    {u"CP", "commasAndDot"},
    {u"FILL", "fill"},
    {u"REPEAT", "fill"},
    {u"VACIA", "writeEmpty conditional"},
    {u"VACIO", "writeEmpty conditional"},
    {u"CONDICION", "writeEmpty conditional"},
    {u"IIF", "iif"},
    {u"DATEFORMAT", "dated"},
    {u"DF", "dated"},
    {u"QLR", "qlr"},
};
constexpr bool isAlignment(std::size_t word) { return word < 8; }

Text lowerCase(TextView word) {
  Text lower(word);
  for (char16_t& c : lower) c = c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
  return lower;
}

// Every second letter.
Text mixedCase(TextView word) {
  Text mixed = lowerCase(word);
  for (std::size_t i = 0; i < mixed.size(); i += 2) mixed[i] = word[i];
  return mixed;
}

using AttributesTest = ParseTest;

TEST_F(AttributesTest, EveryWordIsKnownInEitherCaseAndWithBlanksAround) {
  for (const WordCase& each : kWords) {
    SCOPED_TRACE(toUtf8(each.word));
    const std::string dump = std::string("field='F' ") + each.sets;
    const Text lower = lowerCase(each.word);
    const Text mixed = mixedCase(each.word);
    const Text lines[] = {u"{F," + Text(each.word) + u"}", u"{F," + lower + u"}",
                          u"{F," + mixed + u"}", u"{F,  " + lower + u" }"};
    for (const Text& line : lines) {
      const ParseCase row = {"", line, dump.c_str()};
      expectEach({&row, 1});
    }
  }
}

TEST_F(AttributesTest, NoOtherWordIsKnown) {
  std::set<Text> known;
  for (const WordCase& each : kWords) known.emplace(each.word);
  EXPECT_EQ(known.size(), std::size(kWords));
  std::set<Text> applied;
  for (const AttributeWord& each : kAttributeWords) {
    applied.emplace(each.word);
    if (!each.shortWord.empty()) applied.emplace(each.shortWord);
  }
  EXPECT_EQ(applied, known);
}

TEST_F(AttributesTest, AWordIsKnownOnlyAsAWhole) {
  for (const WordCase& each : kWords) {
    const Text word(each.word);
    for (const Text& other : {u"X" + word, word + u"X", word + u" X", word + u"=", u"-" + word,
                              word.substr(0, 1) + u" " + word.substr(1)}) {
      SCOPED_TRACE(toUtf8(other));
      const Text line = u"{F," + other + u"}";
      const ParseCase row = {"", line, "field='F'", reports({other})};
      expectEach({&row, 1});
    }
  }
}

TEST_F(AttributesTest, NothingIsSetByTheLetterInsteadOfTheZero) {
  const ParseCase rows[] = {
      {"a letter O", u"{F,CO}", "field='F'", reports({u"CO"})},
      {"a tabulator is no blank", u"{F,QR\t}", "field='F'", reports({u"QR\t"})},
      {"a no-break blank is none", u"{F,\u00A0QR}", "field='F'", reports({u"\u00A0QR"})},
  };
  const ParseCase& letter = rows[0];
  expectEach({&letter, 1});
  for (const ParseCase& row : rows) {
    EXPECT_EQ(read(*variable, row.line), 0);
    EXPECT_EQ(variable->GetAlignmentWasRead(), false) << row.shows;
    EXPECT_EQ(messagesShown().size(), 1U);
  }
}

// The words of a dump.
std::set<std::string> wordsOf(const std::string& dump) {
  std::istringstream words(dump);
  return {std::istream_iterator<std::string>(words), std::istream_iterator<std::string>()};
}

TEST_F(AttributesTest, TheLaterAlignmentCountsAndOtherWordsAddUp) {
  for (std::size_t first = 0; first < std::size(kWords); ++first) {
    for (std::size_t second = 0; second < std::size(kWords); ++second) {
      const Text line = u"{F," + Text(kWords[first].word) + u"," + Text(kWords[second].word) + u"}";
      SCOPED_TRACE(toUtf8(line));
      std::set<std::string> expected = wordsOf(kWords[second].sets);
      if (!isAlignment(first) || !isAlignment(second)) {
        expected.merge(wordsOf(kWords[first].sets));
      }
      expected.insert("field='F'");
      EXPECT_EQ(wordsOf(dumpOfLine(line)), expected);
    }
  }
}

TEST_F(AttributesTest, AllWordsInOneVariable) {
  Text line = u"{F";
  for (const WordCase& each : kWords) line += u"," + Text(each.word);
  const ParseCase row = {"", line += u"}",
                         "field='F' justify noComa noZero noSpaces zeros commasAndDot fill "
                         "writeEmpty conditional iif dated qlr"};
  expectEach({&row, 1});
}

// --- Numbers.

TEST_F(AttributesTest, TheFirstNumberIsTheWidthALaterOneTheDecimals) {
  const ParseCase rows[] = {
      {"a width below 4 has no decimals", u"{F,3}", "field='F' length=3"},
      {"a width of 4 has two", u"{F,4}", "field='F' length=4 decimals=2"},
      {"a width of 15 too, aligned to the right", u"{FACTURA.MONTO,15,DERECHA}",
       "record='FACTURA' field='MONTO' right length=15 decimals=2"},
      {"a width of 12 has two", u"{F,12}", "field='F' length=12 decimals=2"},
      {"unless none are asked for", u"{F,12,0}", "field='F' length=12"},
      {"none, with a short width", u"{F,10,0}", "field='F' length=10"},
      {"decimals of a width below 4", u"{F,3,1}", "field='F' length=3 decimals=1"},
      {"the last decimals count", u"{F,12,0,5}", "field='F' length=12 decimals=5"},
      {"a width of 0 is none yet", u"{F,0}", "field='F'"},
      {"the number after it is the width", u"{F,0,10}", "field='F' length=10 decimals=2"},
      {"any number of them", u"{F,0,0,0,10,0}", "field='F' length=10"},
      {"more decimals than width", u"{F,1,255}", "field='F' length=1 decimals=255"},
      {"words in between", u"{F,QR,12,SC,0,NC}", "field='F' right length=12 noComa noZero"},
      {"whatever kind of value it is for", u"{F,QL,IIF,DF,4}",
       "field='F' left length=4 decimals=2 iif dated"},
      {"blanks around", u"{F, 12 , 1 }", "field='F' length=12 decimals=1"},
      {"a plus and zeros in front", u"{F,+0012}", "field='F' length=12 decimals=2"},
      {"minus 0", u"{F,-0,5}", "field='F' length=5 decimals=2"},
      {"a fraction rounds half to even, down", u"{R.F,2.5}", "record='R' field='F' length=2"},
      {"up, and then it is 4", u"{R.F,3.5}", "record='R' field='F' length=4 decimals=2"},
      {"a half is no width yet", u"{R.F,0.5,7}", "record='R' field='F' length=7 decimals=2"},
      {"nor is minus a half", u"{R.F,-0.5,7}", "record='R' field='F' length=7 decimals=2"},
      {"decimals round as well", u"{R.F,9,1.5}", "record='R' field='F' length=9 decimals=2"},
      {"just below 256", u"{R.F,255.49}", "record='R' field='F' length=255 decimals=2"},
  };
  expectEach(rows);
}

TEST_F(AttributesTest, EveryByteIsAWidthAndANumberOfDecimals) {
  for (int number = 1; number <= 255; ++number) {
    const std::string digits = std::to_string(number);
    EXPECT_EQ(dumpOfLine(u"{F," + fromAscii(digits) + u"}"),
              "field='F' length=" + digits + (number >= 4 ? " decimals=2" : ""));
    EXPECT_EQ(dumpOfLine(u"{F,9," + fromAscii(digits) + u"}"),
              "field='F' length=9 decimals=" + digits);
  }
}

TEST_F(AttributesTest, ANumberThatIsNoByteFails) {
  constexpr const char* kAttribute = "sReadAttribute";
  const ParseCase rows[] = {
      {"a width of 256", u"{F,256,QR}", "field='F'", fails(6, kAttribute)},
      {"decimals of 256", u"{F,10,256,QR}", "field='F' length=10 decimals=2", fails(6, kAttribute)},
      {"a negative width", u"{F,-1}", "field='F'", fails(6, kAttribute)},
      {"negative decimals", u"{F,3,-1}", "field='F' length=3", fails(6, kAttribute)},
      {"rounded to 256", u"{R.F,255.5}", "record='R' field='F'", fails(6, kAttribute)},
      {"past every type", u"{F,99999999999999999999999}", "field='F'", fails(6, kAttribute)},
      {"what came before stays", u"{F,QR,C0,-1}", "field='F' right zeros", fails(6, kAttribute)},
      {"after a report", u"{F,XYZ,256}", "field='F'", fails(6, kAttribute, {u"XYZ"})},
  };
  expectEach(rows);
}

TEST_F(AttributesTest, WhatOnlyLooksLikeANumberIsNotKnown) {
  const ParseCase rows[] = {
      {"an exponent", u"{F,1E1}", "field='F'", reports({u"1E1"})},
      {"two numbers", u"{F,1 2}", "field='F'", reports({u"1 2"})},
      {"a currency sign", u"{F,$5}", "field='F'", reports({u"$5"})},
      {"hexadecimal", u"{F,&h10}", "field='F'", reports({u"&H10"})},
      {"a sign alone", u"{F,-}", "field='F'", reports({u"-"})},
      {"a mark at the end", u"{R.F,5.}", "record='R' field='F'", reports({u"5."})},
      {"a mark in front", u"{R.F,.5}", "record='R' field='F'", reports({u".5"})},
  };
  expectEach(rows);
}

// --- The separator pattern.

TEST_F(AttributesTest, ASeparatorPatternIsWhatFollowsTheSign) {
  const ParseCase rows[] = {
      {"a pattern", u"{F,PATRONSEPARADOR=2C-B}", "field='F' pattern='2C-B'"},
      {"in capitals", u"{F,patronSeparador=2c-bñ}", "field='F' pattern='2C-BÑ'"},
      {"blanks around", u"{F,  PATRONSEPARADOR=2C-B  }", "field='F' pattern='2C-B'"},
      {"blanks behind the sign stay", u"{F,PATRONSEPARADOR= 2C - B}",
       "field='F' pattern=' 2C - B'"},
      {"an empty one", u"{F,PATRONSEPARADOR=}", "field='F' pattern=''"},
      {"a second sign is the pattern's", u"{F,PATRONSEPARADOR==}", "field='F' pattern='='"},
      {"the last one counts", u"{F,PATRONSEPARADOR=C,PATRONSEPARADOR=B}", "field='F' pattern='B'"},
      {"an empty one counts too", u"{F,PATRONSEPARADOR=C,PATRONSEPARADOR=}",
       "field='F' pattern=''"},
      {"a comma ends it", u"{F,PATRONSEPARADOR=C,7}", "field='F' length=7 decimals=2 pattern='C'"},
      {"a parenthesis ends it", u"{F,PATRONSEPARADOR=C(B),7}",
       "field='F' length=7 decimals=2 pattern='C'"},
      {"without the sign it is not known", u"{F,PATRONSEPARADOR}", "field='F'",
       reports({u"PATRONSEPARADOR"})},
      {"nor with a blank before the sign", u"{F,PATRONSEPARADOR =C}", "field='F'",
       reports({u"PATRONSEPARADOR =C"})},
      {"nor behind something else", u"{F,XPATRONSEPARADOR=C}", "field='F'",
       reports({u"XPATRONSEPARADOR=C"})},
  };
  expectEach(rows);
}

// --- What nobody knows.

TEST_F(AttributesTest, UnknownAttributesAreReportedAndTheRestIsRead) {
  const ParseCase rows[] = {
      {"one", u"{F,XYZ}", "field='F'", reports({u"XYZ"})},
      {"in capitals, without blanks around", u"{F,  xyz ñ }", "field='F'", reports({u"XYZ Ñ"})},
      {"each of them", u"{F,A,12,B,QR,A}", "field='F' right length=12 decimals=2",
       reports({u"A", u"B", u"A"})},
      {"an empty one", u"{F,,5}", "field='F' length=5 decimals=2", reports({u""})},
      {"blanks only", u"{F,  ,5}", "field='F' length=5 decimals=2", reports({u""})},
      {"an empty one at the end", u"{F,5,}", "field='F' length=5 decimals=2", reports({u""})},
      {"nothing but a comma", u"{,}", "", reports({u""})},
      {"with a parenthesis in front", u"{F,(x),QR}", "field='F' right", reports({u"(X)"})},
      {"with an argument", u"{F,XYZ(1),QR}", "field='F' right", reports({u"XYZ"})},
      {"with an argument of two parts", u"{F,XYZ(1,2),QR}", "field='F' right",
       reports({u"XYZ", u"2)"})},
      {"a word's argument is dropped", u"{F,QR(1),SC(x)}", "field='F' right noComa"},
      {"a number's too", u"{F,12(3)}", "field='F' length=12 decimals=2"},
      {"a parenthesis alone", u"{F,(}", "field='F'", reports({u"("})},
      {"a closing one alone", u"{F,)}", "field='F'", reports({u")"})},
      {"a blank before the parenthesis", u"{F, (x)}", "field='F'", reports({u""})},
  };
  expectEach(rows);
}

TEST_F(AttributesTest, TheMessageHasTheAttributeAndTheTextBetweenTheBraces) {
  variable->sExtract(u"Total: {factura.monto, xyz ,12}.");
  EXPECT_EQ(calls.text(),
            "clsMessage.sShowMessageWithTitle \"No se encontró el tipo de atributo XYZ en la línea "
            "factura.monto, xyz ,12\", \"Impresión de Plantilla\"\n");
}

TEST_F(AttributesTest, ReadAttributeAppliesOneToWhatIsThere) {
  variable->sReadAttribute(u" ql ");
  variable->sReadAttribute(u"9");
  variable->sReadAttribute(u"1");
  variable->sReadAttribute(u"Derecha");
  variable->sReadAttribute(u"patronseparador=c");
  EXPECT_EQ(dumpOf(*variable), "right length=9 decimals=1 pattern='C'");
  EXPECT_EQ(calls.text(), "");

  variable->SetReadText(u"whatever is there");
  variable->sReadAttribute(u"a,b");
  EXPECT_EQ(messagesShown(), std::vector{messageAbout(u"A,B", u"whatever is there")});
  EXPECT_EQ(errorNumberOf([this] { variable->sReadAttribute(u"256"); }), kOverflow);
  EXPECT_EQ(error->trail(), "sReadAttribute");
  EXPECT_EQ(dumpOf(*variable), "right length=9 decimals=1 pattern='C'");
}

TEST_F(AttributesTest, ReadAttributeMayBeGivenATextOfTheVariableItself) {
  variable->sReadAttribute(u"PATRONSEPARADOR=PATRONSEPARADOR=B");
  variable->sReadAttribute(variable->GetSpecialSeparationString());
  EXPECT_EQ(dumpOf(*variable), "pattern='B'");
}

// --- IIF.

TEST_F(AttributesTest, AnIifHasAConditionAndValues) {
  const ParseCase rows[] = {
      {"two values, and an attribute behind", u"{C.ACTIVO,IIF(S,Activo,Inactivo),IZQUIERDA}",
       "record='C' field='ACTIVO' left iif values=['Activo','Inactivo'] condition='S,'"},
      {"attributes before", u"{F,12,QR,IIF(S,A,B)}",
       "field='F' right length=12 decimals=2 iif values=['A','B'] condition='S,'"},
      {"one value", u"{F,IIF(S,A)}", "field='F' iif values=['A'] condition='S,'"},
      {"five values", u"{F,IIF(S,A,B,C,D,E)}",
       "field='F' iif values=['A','B','C','D','E'] condition='S,'"},
      {"condition and values are kept as written", u"{F,IIF( \"s\"\"n\" , sí , \"No\" )}",
       "field='F' iif values=[' sí ',' \"No\" '] condition=' \"s\"\"n\" ,'"},
      {"dots behind the record's", u"{R.F,IIF(\"1.5\",1.5,2.5)}",
       "record='R' field='F' iif values=['1.5','2.5'] condition='\"1.5\",'"},
      {"brackets without a comma behind", u"{F,IIF(S,A,[2]B)}",
       "field='F' iif values=['A','[2]B'] condition='S,'"},
      {"in lower case", u"{f,iif(s,a,b),qr}",
       "field='F' right iif values=['a','b'] condition='s,'"},
      {"blanks around the word and behind", u"{F, IIF (S,A,B) ,QR}",
       "field='F' right iif values=['A','B'] condition='S,'"},
      {"text behind the parenthesis is dropped", u"{F,IIF(S,A,B)xyz,QR}",
       "field='F' right iif values=['A','B'] condition='S,'"},
      {"the first closing parenthesis ends it", u"{F,IIF(S,A(b),C),QR}",
       "field='F' right iif values=['A(b']", reports({u"C)"})},
      {"the word alone has no values", u"{F,IIF,QR}", "field='F' right iif"},
      {"it takes the argument of a later word", u"{F,IIF,QR(S,A,B)}",
       "field='F' right iif values=['A','B'] condition='S,'"},
      {"even of an unknown one", u"{F,IIF(S,A,B),XYZ(T,C,D)}", "field='F' iif values=['C','D']",
       reports({u"XYZ"})},
  };
  expectEach(rows);
}

TEST_F(AttributesTest, EmptyValuesCountWhereTheyAreWritten) {
  const ParseCase rows[] = {
      {"a condition alone", u"{F,IIF(\"S\")}", "field='F' iif values=[] condition='\"S\"'"},
      {"nothing", u"{F,IIF()}", "field='F' iif values=[]"},
      {"a comma alone", u"{F,IIF(,)}", "field='F' iif values=[''] condition=','"},
      {"no condition", u"{F,IIF(,A,B)}", "field='F' iif values=['A','B'] condition=','"},
      {"one empty value", u"{F,IIF(\"S\",)}", "field='F' iif values=[''] condition='\"S\",'"},
      {"two", u"{F,IIF(\"S\",,)}", "field='F' iif values=['',''] condition='\"S\",'"},
      {"three", u"{F,IIF(\"S\",,,)}", "field='F' iif values=['','',''] condition='\"S\",'"},
      {"an empty first", u"{F,IIF(\"S\",,No)}",
       "field='F' iif values=['','No'] condition='\"S\",'"},
      {"an empty last", u"{F,IIF(\"S\",Exento,)}",
       "field='F' iif values=['Exento',''] condition='\"S\",'"},
      {"an empty one between", u"{F,IIF(\"S\",A,,C)}",
       "field='F' iif values=['A','','C'] condition='\"S\",'"},
      {"a blank one", u"{F,IIF(\"S\", ,B)}", "field='F' iif values=[' ','B'] condition='\"S\",'"},
  };
  expectEach(rows);
}

TEST_F(AttributesTest, WithoutAClosingParenthesisAnIifHasNoArgument) {
  const ParseCase rows[] = {
      {"what follows is read as attributes", u"{F,IIF(S,A,QR}", "field='F' right iif values=[]",
       reports({u"A"})},
      {"what follows is one attribute", u"{F,IIF(S}", "field='F' iif values=[]"},
      {"nothing follows", u"{F,IIF(}", "field='F' iif values=[]"},
      {"the closing one in front", u"{F,IIF,Q)R(S,QR}", "field='F' right iif values=[]",
       reports({u"Q)R"})},
      {"and another behind", u"{F,IIF,Q)R(S,A),QR}", "field='F' right iif values=[]",
       reports({u"Q)R", u"A)"})},
      {"an earlier argument is gone", u"{F,IIF(S,A,B),QR(T}", "field='F' right iif values=[]"},
  };
  expectEach(rows);
}

TEST_F(AttributesTest, TheWordsLettersGoWithTheArgument) {
  const ParseCase rows[] = {
      {"from whatever follows", u"{F,IIF(S,A,B),XIIFY}", "field='F' iif values=['A','B']",
       reports({u"XY"})},
      {"in capitals only", u"{F,IIF(S,A,B),xiify}", "field='F' iif values=['A','B']",
       reports({u"XIIFY"})},
      {"so a second one in capitals is none", u"{F,IIF(S,A,B),IIF(T,C,D)}",
       "field='F' iif values=['A','B']", reports({u"(T", u"C", u"D)"})},
      {"but one in other letters is", u"{F,IIF(S,A,B),Iif(T,C,D)}",
       "field='F' iif values=['C','D'] condition='T,'"},
      {"before it they stay", u"{F,XIIFY,IIF(S,A,B)}", "field='F' iif values=['A','B']",
       reports({u"XIIFY"})},
  };
  expectEach(rows);
}

TEST_F(AttributesTest, FunctionTakesItsArgumentOffTheText) {
  struct Row {
    const char* shows;
    Text text;
    Text rest;
    const char* dump;
  };
  const Row rows[] = {
      {"with a word", u"IIF(S,A,B),QR", u",QR", "values=['A','B']"},
      {"with another word", u" x (S,A) y ", u"x  y", "values=['A']"},
      {"alone", u"(S)", u"", "values=[]"},
      {"every IIF goes", u"IIF(S,A)IIFxIIF", u"x", "values=['A']"},
      {"without parentheses", u" IIF ", u" IIF ", "values=[]"},
      {"without the closing one", u"IIF(S,A ", u"IIF(S,A ", "values=[]"},
      {"nothing", u"", u"", "values=[]"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.shows);
    variable->SetIifPossibleValues(Value(7));
    Text text = row.text;
    variable->sExtractIfHasFunction(text);
    EXPECT_EQ(toUtf8(text), toUtf8(row.rest));
    EXPECT_EQ(dumpOf(*variable), row.dump);
  }
}

TEST_F(AttributesTest, AFunctionThatFailsHasNeitherConditionNorValues) {
  variable->sExtract(u"{F,IIF(\"S\",Sí,No)}");
  Text function = u"IIF(\"S\",A,B)";
  texto->fault.raiseAt(3, 4711);
  EXPECT_EQ(errorNumberOf([&] { variable->sExtractIfHasFunction(function); }), 4711);
  EXPECT_EQ(error->trail(), "sExtractIfHasFunction");
  EXPECT_EQ(propertiesOf(*variable), "field='F' iif values=''");
  variable->SetContentBoolean(true);
  variable->sFormatSpecialVar();
  EXPECT_EQ(toUtf8(variable->GetTextToWrite()), "S");  // the value's own text
}

TEST_F(AttributesTest, TheConditionDecidesWhichValueIsPrinted) {
  const auto printed = [this](TextView line, TextView content) {
    variable->sExtract(line);
    variable->SetContentEnum(content);
    variable->sFormatSpecialVar();
    return toUtf8(variable->GetTextToWrite());
  };
  EXPECT_EQ(printed(u"{F,XYZ,IIF(\"S\",Sí,No)}", u"S"), "Sí");
  EXPECT_EQ(printed(u"{F,XYZ,IIF(\"S\",Sí,No)}", u"N"), "No");
  EXPECT_EQ(printed(u"{F,QLR,IIF(\"S\",[1,2]Sí,[3]No,)}", u"S"), " Sí  ");
  EXPECT_EQ(printed(u"{F,QLR,IIF(\"S\",[1,2]Sí,[3]No,)}", u"N"), "   No");
}

// --- Blanks around the values.

TEST_F(AttributesTest, AfterQlrBracketsAreBlanksAroundAValue) {
  // Every one of these is reported for its "[" first.
  const ParseCase rows[] = {
      {"before a value", u"{F,QLR,IIF(S,[2]A,B)}", "field='F' iif values=['  A','B']",
       reports({u"["})},
      {"before and behind", u"{F,QLR,IIF(S,[1,2]A,B)}", "field='F' iif values=[' A  ','B']",
       reports({u"["})},
      {"behind only", u"{F,QLR,IIF(S,[0,2]A,B)}", "field='F' iif values=['A  ','B']",
       reports({u"["})},
      {"none", u"{F,QLR,IIF(S,[0]A,[0,0]B)}", "field='F' iif values=['A','B']",
       reports({u"[", u"["})},
      {"the second value", u"{F,QLR,IIF(S,A,[1]B,C)}", "field='F' iif values=['A',' B','C']",
       reports({u"["})},
      {"every value, each its own", u"{F,QLR,IIF(S,[1,2]A,[3]B,[0,1]C)}",
       "field='F' iif values=[' A  ','   B','C ']", reports({u"[", u"[", u"["})},
      {"the last value needs a comma of its own", u"{F,QLR,IIF(S,A,[1,2]B)}",
       "field='F' iif values=['A',' B  ']", reports({u"["})},
      {"blanks and dashes do not matter", u"{F,QLR,IIF(S,[ -1 -, - 2- ]A,B)}",
       "field='F' iif values=[' A  ','B']", reports({u"["})},
      {"nor between digits", u"{F,QLR,IIF(S,[1-0]A,B)}", "field='F' iif values=['          A','B']",
       reports({u"["})},
      {"what stands before the bracket is lost", u"{F,QLR,IIF(S,xyz [1]A,B)}",
       "field='F' iif values=[' A','B']", reports({u"XYZ ["})},
      {"an empty value between blanks", u"{F,QLR,IIF(S,[1,1],B)}",
       "field='F' iif values=['  ','B']", reports({u"["})},
      {"an empty last value", u"{F,QLR,IIF(S,A,[0,0])}", "field='F' iif values=['A','']",
       reports({u"["})},
      {"in lower case", u"{F,qlr,iif(s,[1]a,b)}", "field='F' iif values=[' a','b']",
       reports({u"["})},
      {"attributes behind", u"{F,QLR,IIF(S,[1,2]A,B),QR,7}",
       "field='F' right length=7 decimals=2 iif values=[' A  ','B']", reports({u"["})},
      {"in a free variable", u"{@f,qlr,iif(s,[1]a,b)}", "field='@f' iif values=[' A','B']",
       reports({u"["})},
      {"a word before a bracket is no word", u"{F,QLR,IIF(S,SC[1]A,B)}",
       "field='F' iif values=[' A','B']", reports({u"SC["})},
      {"but a pattern is one", u"{F,QLR,IIF(S,PATRONSEPARADOR=C[1]A,B)}",
       "field='F' iif values=[' A','B'] pattern='C[' condition='S,' qlr"},
  };
  expectEach(rows);
}

TEST_F(AttributesTest, BracketsWithoutANumberFail) {
  constexpr const char* kSpaces =
      "sExtractSpacesToLeftAndRigth fAssignSpacesBeforeAndAfterInConditionalValues "
      "sExtractIfHasFunction";
  constexpr const char* kValues = "field='F' iif values=''";
  const ParseCase rows[] = {
      {"nothing", u"{F,QLR,IIF(S,[]A,B)}", kValues, fails(13, kSpaces, {u"["})},
      {"a dash", u"{F,QLR,IIF(S,[-]A,B)}", kValues, fails(13, kSpaces, {u"["})},
      {"a letter", u"{F,QLR,IIF(S,[x]A,B)}", kValues, fails(13, kSpaces, {u"["})},
      {"no closing bracket", u"{F,QLR,IIF(S,[1A,B)}", kValues, fails(13, kSpaces, {u"["})},
      {"nothing behind the comma", u"{F,QLR,IIF(S,[1,]A,B)}", kValues, fails(13, kSpaces, {u"["})},
      {"nothing before it", u"{F,QLR,IIF(S,[,1]A,B)}", kValues, fails(13, kSpaces, {u"["})},
      {"a letter behind it", u"{F,QLR,IIF(S,[1,x]A,B)}", kValues, fails(13, kSpaces, {u"["})},
      {"too many", u"{F,QLR,IIF(S,[32768]A,B)}", kValues, fails(6, kSpaces, {u"["})},
      {"too many behind", u"{F,QLR,IIF(S,[1,32768]A,B)}", kValues, fails(6, kSpaces, {u"["})},
  };
  expectEach(rows);
}

TEST_F(AttributesTest, BlanksAreAsManyAsAreWritten) {
  variable->sExtract(u"{F,QLR,IIF(S,[32767,300]A,B)}");
  const auto* values = variable->GetIifPossibleValues().tryGet<ValueArray>();
  ASSERT_NE(values, nullptr);
  EXPECT_EQ(values->at(0), Value(Text(32767, u' ') + u"A" + Text(300, u' ')));
}

// The line's message comes again and again; this operator gives up at the end.
constexpr const char* kEndless =
    "sReadAttribute fAssignSpacesBeforeAndAfterInConditionalValues sExtractIfHasFunction "
    "sExtractFieldAndCharacteristics sExtract";

TEST_F(AttributesTest, WithoutQlrTheMessageComesUntilTheOperatorFails) {
  const TextView lines[] = {u"{F,IIF(S,[1]A,B)}", u"{F,IIF(S,[1]A,B),QLR}", u"{F,IIF(S,A,[1]B,C)}",
                            u"{F,IIF(S,[1A,B)}", u"{F,QR(QLR),IIF(S,[1]A,B)}"};
  for (const TextView line : lines) {
    SCOPED_TRACE(toUtf8(line));
    message->fault.raiseAt(1000, 4711);
    EXPECT_EQ(read(*variable, line), 4711);
    EXPECT_EQ(error->trail(), kEndless);
    const std::vector<std::string> shown = messagesShown();
    EXPECT_EQ(shown.size(), 1000U);
    EXPECT_EQ(std::set<std::string>(shown.begin(), shown.end()),
              std::set{messageAbout(u"[", variable->GetReadText())});
    variable->SetIifPossibleValues(Value());
    EXPECT_EQ(read(*variable, u"{F,QR}"), 0);
    EXPECT_EQ(dumpOf(*variable), "field='F' right");
  }
}

// What an empty text is split into is the service's own.
TEST_F(AttributesTest, AnIifWithoutAnItemHasNoValue) {
  const Ref<AskedTexto> service = make<AskedTexto>();
  service->splitsIntoNothing = true;
  modRDPGlobalValues::ofThisThread().refInsTexto = service;
  EXPECT_EQ(read(*variable, u"{F,IIF(\"S\",)}"), 0);
  EXPECT_EQ(variable->GetIifPossibleValues(), Value(ValueArray()));
}

// A value that begins so is no unknown attribute: nobody is told, and nobody could end it.
TEST_F(AttributesTest, WithoutQlrAndWithoutAMessageItEndsInAnOverflow) {
  useUnwatchedTexto();
  EXPECT_EQ(read(*variable, u"{F,IIF(S,PATRONSEPARADOR=[1]A,B)}"), 6);
  EXPECT_EQ(error->trail(),
            "fAssignSpacesBeforeAndAfterInConditionalValues sExtractIfHasFunction "
            "sExtractFieldAndCharacteristics sExtract");
  EXPECT_TRUE(messagesShown().empty());
}

// An operator who looks at the memory in use at two of the messages, and fails at the second.
class PatientOperator final : public ForwardingMessage {
 public:
  static constexpr int kFirst = 1000;
  static constexpr int kLast = 50000;

  std::size_t atFirst = 0;
  std::size_t atLast = 0;

  void sShowMessageWithTitle(TextView, TextView) override {
    ++shown_;
    if (shown_ == kFirst) atFirst = mallinfo2().uordblks;
    if (shown_ < kLast) return;
    atLast = mallinfo2().uordblks;
    throw RunTimeError(4711);
  }

 private:
  int shown_ = 0;
};

TEST_F(AttributesTest, TheEndlessMessageTakesNoMemory) {
  const Ref<PatientOperator> patient = make<PatientOperator>();
  modRDPGlobalValues::ofThisThread().refInsMessage = patient;
  modRDPGlobalValues::ofThisThread().refInsConvert = make<LibTarvoCI::clsConvert>();
  useUnwatchedTexto();
  EXPECT_EQ(read(*variable, u"{F,IIF(S,[1]A,B)}"), 4711);
  if (patient->atFirst == 0) GTEST_SKIP() << "this build's heap does not say what is in use";
  EXPECT_EQ(patient->atLast, patient->atFirst);
}

// --- DATEFORMAT.

TEST_F(AttributesTest, ADateFormatIsKeptAsWritten) {
  const ParseCase rows[] = {
      {"a format, and an attribute behind", u"{C.FECHA,DATEFORMAT(dd/mm/yyyy),DERECHA}",
       "record='C' field='FECHA' right dated dateFormat='dd/mm/yyyy'"},
      {"the short word, in lower case", u"{f,df(Dd MMM yy),12}",
       "field='F' length=12 decimals=2 dated dateFormat='Dd MMM yy'"},
      {"commas and blanks", u"{F, DF ( d, m, yy ) ,QR}",
       "field='F' right dated dateFormat=' d, m, yy '"},
      {"dots behind the record's", u"{R.F,DF(d.m.yy)}",
       "record='R' field='F' dated dateFormat='d.m.yy'"},
      {"a dot without a record is the record's", u"{F,DF(d.m)}", "record='F,DF(d' field='M)'"},
      {"an opening parenthesis in it", u"{F,DF(d(m),QR}", "field='F' right dated dateFormat='d(m'"},
      {"an empty one", u"{F,DF(),QR}", "field='F' right dated"},
      {"none", u"{F,DF,QR}", "field='F' right dated"},
      {"text behind the parenthesis is dropped", u"{F,DF(dd)xyz,QR}",
       "field='F' right dated dateFormat='dd'"},
      {"the last one counts", u"{F,DF(dd),DATEFORMAT(mm)}", "field='F' dated dateFormat='mm'"},
      {"an empty one counts too", u"{F,DF(dd),DF()}", "field='F' dated"},
      {"a later word's argument is one", u"{F,DF,QR(dd)}", "field='F' right dated dateFormat='dd'"},
      {"an earlier word's is none", u"{F,QR(dd),DF}", "field='F' right dated"},
      {"no closing parenthesis", u"{F,DF(dd,QR}", "field='F' right dated"},
      {"no closing parenthesis, after a format", u"{F,DF(dd),DF(mm}", "field='F' dated"},
      {"the closing one in front", u"{F,DF,Q)R(dd),QR}", "field='F' right", reports({u"Q)R"})},
  };
  expectEach(rows);
}

TEST_F(AttributesTest, AfterAnIifADateFormatsArgumentIsTheIifs) {
  const ParseCase rows[] = {
      {"condition and values are replaced", u"{F,IIF(S,A,B),DATEFORMAT(dd,mm,yy),QR}",
       "field='F' right iif values=['mm','yy'] condition='dd,' dated"},
      {"by a condition alone", u"{F,IIF(S,A,B),DF(dd/mm)}",
       "field='F' iif values=[] condition='dd/mm' dated"},
      {"but not by the word alone", u"{F,IIF(S,A,B),DF,QR}",
       "field='F' right iif values=['A','B'] condition='S,' dated"},
      {"before the IIF each has its own", u"{F,DATEFORMAT(dd,mm),IIF(S,A,B)}",
       "field='F' iif values=['A','B'] condition='S,' dated dateFormat='dd,mm'"},
      {"and a third is the IIF's again", u"{F,DF(dd),IIF(S,A,B),DF(x,y)}",
       "field='F' iif values=['y'] condition='x,' dated dateFormat='dd'"},
  };
  expectEach(rows);
}

TEST_F(AttributesTest, DateFormatTakesItsArgumentOffTheText) {
  const std::pair<TextView, TextView> rows[] = {
      {u"DATEFORMAT(dd),QR", u"DATEFORMAT,QR"},
      {u" x (dd) y ", u" x  y "},
      {u"(dd)", u""},
      {u"()", u""},
      {u"DF(dd", u"DF(dd"},
      {u"DF", u"DF"},
      {u"", u""},
  };
  for (const auto& [before, after] : rows) {
    Text text(before);
    variable->sExtractIfHasDateFormat(text);
    EXPECT_EQ(toUtf8(text), toUtf8(after));
    EXPECT_EQ(dumpOf(*variable), "");  // the word alone says that there is one
  }
}

TEST_F(AttributesTest, ADateIsPrintedInTheFormatThatWasRead) {
  const auto printed = [this](TextView line) {
    variable->sExtract(line);
    variable->SetContentDate(dateOf({.year = 2024, .month = 3, .day = 15}));
    variable->sFormatSpecialVar();
    return toUtf8(variable->GetTextToWrite());
  };
  EXPECT_EQ(printed(u"{F,DF(yyyy\\-dd)}"), "2024-15");
  EXPECT_EQ(printed(u"{F,XYZ,DF(\"el\" d)}"), "el 15");
  EXPECT_EQ(printed(u"{F}"), "15/03/2024");
}

}  // namespace
}  // namespace tarvo::test
