// What sExtract makes of a line: the place, the names, element numbers, free variables; the
// operations that do the parts of it, called by themselves; which services are asked, and who is
// named when one of them fails.
#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <set>

#include "equipment/golden.h"
#include "template/parse_test.h"

namespace tarvo::test {
namespace {

using namespace std::string_view_literals;

// --- The place.

struct PlaceCase {
  const char* shows;
  Text line;
  const char* place;
  std::int32_t error = 0;
};

TEST_F(ParseTest, TheFirstBracesOfTheLineCount) {
  const PlaceCase rows[] = {
      {"a variable inside a line", u"Total: {FACTURA.MONTO,15,DERECHA}",
       "8-33 size=24 reads 'FACTURA.MONTO,15,DERECHA'"},
      {"the line is the variable", u"{F}", "1-3 size=1 reads 'F'"},
      {"nothing between the braces", u"{}", "1-2 size=0 reads ''"},
      {"only the first variable is read", u"a {B} {C}", "3-5 size=1 reads 'B'"},
      {"only the first closing brace counts", u"{A}}", "1-3 size=1 reads 'A'"},
      {"a second opening brace is text", u"{{A}", "1-4 size=2 reads '{A'"},
      {"a second opening brace is text, inside", u"{A{B} {C}", "1-5 size=3 reads 'A{B'"},
      {"line ends are text", u"{A\r\n}", "1-5 size=3 reads 'A\r\n'"},
      {"no brace", u"Total", "0-0 size=-1 reads ''"},
      {"an empty line", u"", "0-0 size=-1 reads ''"},
      {"a closing brace alone is no failure", u"a}b", "0-2 size=1 reads ''"},
      {"a closing brace in front, and no other", u"}", "0-1 size=0 reads ''"},

      {"no closing brace", u"a{B", "2-0 size=-3 reads 'a{B'", 5},
      {"an opening brace alone", u"{", "1-0 size=-2 reads '{'", 5},
      {"a closing brace in front", u"}{A}", "2-1 size=-2 reads '}{A}'", 5},
      {"a closing brace earlier in the line", u"a} {B}", "4-2 size=-3 reads 'a} {B}'", 5},
  };
  for (const PlaceCase& row : rows) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(read(*variable, row.line), row.error);
    EXPECT_EQ(placeOf(*variable), row.place);
    EXPECT_EQ(error->trail(), row.error == 0 ? "" : "sExtract");
    EXPECT_EQ(calls.linesOf("clsMessage").size(), 0U);
  }
}

TEST_F(ParseTest, WithoutAnOpeningBraceThereAreNoNames) {
  for (const TextView line : {u"Total"sv, u"R.F,12"sv, u"R.F,12}"sv, u"}"sv, u""sv}) {
    SCOPED_TRACE(toUtf8(line));
    variable->sExtract(u"{R.F,12}");
    variable->sExtract(line);
    EXPECT_EQ(dumpOf(*variable), "");
  }
}

TEST_F(ParseTest, PlacesAreCountedInSixteenBits) {
  constexpr std::size_t kLast = 32767;
  const Text blanks(kLast, u' ');

  variable->sExtract(blanks.substr(2) + u"{}");
  EXPECT_EQ(placeOf(*variable), "32766-32767 size=0 reads ''");
  variable->sExtract(u"{" + blanks.substr(2) + u"}");
  EXPECT_EQ(placeOf(*variable), "1-32767 size=32765 reads '" + std::string(kLast - 2, ' ') + "'");

  const Text tooFar[] = {blanks.substr(1) + u"{}", blanks + u"{}", u"{" + blanks + u"}",
                         blanks + u"}"};
  for (const Text& line : tooFar) {
    EXPECT_EQ(read(*variable, line), kOverflow);
    EXPECT_EQ(error->trail(), "sExtract");
  }
}

TEST_F(ParseTest, ALineMayBeATextOfTheVariableItself) {
  variable->SetTextToWrite(u"a{R.F,12}");
  variable->sExtract(variable->GetTextToWrite());
  EXPECT_EQ(placeOf(*variable), "2-9 size=6 reads 'R.F,12'");
  variable->SetReadText(u"{G}");
  variable->sExtract(variable->GetReadText());
  EXPECT_EQ(dumpOf(*variable), "field='G'");
}

// --- Names.

TEST_F(ParseTest, NamesStandBeforeTheFirstComma) {
  const ParseCase rows[] = {
      {"a field alone", u"{F}", "field='F'"},
      {"a record and a field", u"{FACTURA.MONTO}", "record='FACTURA' field='MONTO'"},
      {"the record keeps its case, the field is in capitals", u"{factura.monto}",
       "record='factura' field='MONTO'"},
      {"a field alone is in capitals too", u"{monto}", "field='MONTO'"},
      {"letters beyond the plain ones", u"{Año.señalÿß}", "record='Año' field='SEÑALŸß'"},
      {"blanks around both are taken off", u"{  Fact  .  monto  }", "record='Fact' field='MONTO'"},
      {"blanks before the comma too", u"{ f ,3}", "field='F' length=3"},
      {"blanks inside stay", u"{mi tabla.mi campo}", "record='mi tabla' field='MI CAMPO'"},
      {"only the first dot separates", u"{a.b.c}", "record='a' field='B.C'"},
      {"a dot among the attributes is the first one too", u"{f,ql.g}", "record='f,ql' field='G'"},
      {"a fraction needs a record part before it", u"{F,1.5}", "record='F,1' field='5'"},
      {"nothing", u"{}", ""},
      {"blanks only", u"{   }", ""},
      {"a dot only", u"{.}", ""},
      {"a dot between blanks", u"{ . }", ""},
      {"an empty record part", u"{.F}", "field='F'"},
      {"an empty field part", u"{R.}", "record='R'"},
      {"an empty field part before an attribute", u"{R.,3}", "record='R' length=3"},
      {"no names before an attribute", u"{,5}", "length=5 decimals=2"},
  };
  expectEach(rows);
}

TEST_F(ParseTest, ACharacter0IsText) {
  variable->sExtract(u"\0{r\0.f\0g}"sv);
  EXPECT_EQ(variable->GetPosBegin(), 2);
  EXPECT_EQ(variable->GetRecordName(), u"r\0"sv);
  EXPECT_EQ(variable->GetFieldName(), u"F\0G"sv);
}

TEST_F(ParseTest, NamesMayEndInAnElementNumberAndAPlaceInIt) {
  const ParseCase rows[] = {
      {"after the field", u"{DETALLE.PRECIO[3]}", "record='DETALLE' field='PRECIO' element=3"},
      {"a place inside the element", u"{DETALLE.PRECIO[3][1]}",
       "record='DETALLE' field='PRECIO' element=3 place index=1"},
      {"before attributes", u"{DET.CANT[2][5],3}",
       "record='DET' field='CANT' element=2 length=3 place index=5"},
      {"after the record", u"{Det[4].CANT}", "record='Det' field='CANT' element=4"},
      {"after the record, with a place", u"{Det[4][2].CANT}",
       "record='Det' field='CANT' element=4 place index=2"},
      {"after both the field's counts", u"{R[1][2].F[3][4]}",
       "record='R' field='F' element=3 place index=4"},
      {"each part of its own", u"{R[1][2].F[3]}", "record='R' field='F' element=3 place index=2"},
      {"without a name", u"{[3]}", "element=3"},
      {"element 0", u"{F[0]}", "field='F' element=0"},
      {"the last element", u"{F[255]}", "field='F' element=255"},
      {"blanks inside the brackets", u"{F[ 7 ][ 8 ]}", "field='F' element=7 place index=8"},
      {"a sign and zeros", u"{F[+007][-01]}", "field='F' element=7 place"},
      {"what follows the brackets goes", u"{F[2]xyz}", "field='F' element=2"},
      {"text between the groups", u"{F[2]xyz[5]}", "field='F' element=2 place index=5"},
      {"a third group is nothing", u"{F[2][5][6]}", "field='F' element=2 place index=5"},
      {"a blank before the bracket stays", u"{F [2]}", "field='F ' element=2"},
      {"the least and the greatest place", u"{R[1][-32768].F[1][32767]}",
       "record='R' field='F' element=1 place index=32767"},
      {"the least place", u"{F[1][-32768]}", "field='F' element=1 place index=-32768"},
      {"half rounds to even, down", u"{R.F[2.5]}", "record='R' field='F' element=2"},
      {"half rounds to even, up", u"{R.F[3.5]}", "record='R' field='F' element=4"},
      {"the place rounds too", u"{R.F[1][2.5]}", "record='R' field='F' element=1 place index=2"},
      {"a closing bracket alone is text", u"{F]2}", "field='F]2'"},
  };
  expectEach(rows);
}

TEST_F(ParseTest, EveryElementNumberOfAByteIsRead) {
  for (int number = 0; number <= 255; ++number) {
    const std::string digits = std::to_string(number);
    EXPECT_EQ(dumpOfLine(u"{f[" + fromAscii(digits) + u"]}"), "field='F' element=" + digits);
  }
}

TEST_F(ParseTest, AnElementNumberThatIsNoneFails) {
  constexpr const char* kElement = "sExtractIfHasNumberArrayElement";
  constexpr const char* kPlace =
      "sExtractIfHasIndexOfValueInArrayElement sExtractIfHasNumberArrayElement";
  const ParseCase rows[] = {
      {"past a byte", u"{f[256]}", "field='F[256]' element=0", fails(6, kElement)},
      {"below a byte", u"{f[-1]}", "field='F[-1]' element=0", fails(6, kElement)},
      {"rounded past a byte", u"{R.F[255.5]}", "record='R' field='F[255.5]' element=0",
       fails(6, kElement)},
      {"no number", u"{f[x]}", "field='F[X]' element=0", fails(13, kElement)},
      {"nothing", u"{f[]}", "field='F[]' element=0", fails(13, kElement)},
      {"blanks", u"{f[  ]}", "field='F[  ]' element=0", fails(13, kElement)},
      {"two numbers", u"{f[1 2]}", "field='F[1 2]' element=0", fails(13, kElement)},
      {"a comma ends the name", u"{f[2,5]}", "field='F[2' element=0", fails(13, kElement)},
      {"no closing bracket", u"{f[2}", "field='F[2' element=0", fails(13, kElement)},
      {"the closing bracket in front", u"{f]2[}", "field='F]2[' element=0", fails(13, kElement)},
      {"a bracket in brackets", u"{f[[2]]}", "field='F[[2]]' element=0", fails(13, kElement)},
      {"the record's", u"{r[x].f}", "record='r[x]' element=0", fails(13, kElement)},
      {"the record's is cut by the dot", u"{r[2.5].f}", "record='r[2' element=0",
       fails(13, kElement)},

      {"a place that is no number", u"{f[2][x]}", "field='F[2][X]' element=2 place",
       fails(13, kPlace)},
      {"an empty place", u"{f[2][]}", "field='F[2][]' element=2 place", fails(13, kPlace)},
      {"a place without a closing bracket", u"{f[2][5}", "field='F[2][5' element=2 place",
       fails(13, kPlace)},
      {"a place whose closing bracket is in front", u"{f[2]]5[}", "field='F[2]]5[' element=2 place",
       fails(13, kPlace)},
      {"a place past 16 bits", u"{f[2][32768]}", "field='F[2][32768]' element=2 place",
       fails(6, kPlace)},
      {"a place below 16 bits", u"{f[2][-32769]}", "field='F[2][-32769]' element=2 place",
       fails(6, kPlace)},
  };
  expectEach(rows);
}

// --- Free variables.

TEST_F(ParseTest, AFreeVariableKeepsItsName) {
  const ParseCase rows[] = {
      {"the name as it is, the attributes in either case", u"{@Nombre del cliente,izquierda}",
       "field='@Nombre del cliente' left"},
      {"without attributes", u"{@Nombre}", "field='@Nombre'"},
      {"the sign alone", u"{@}", "field='@'"},
      {"the sign and an attribute", u"{@,5}", "field='@' length=5 decimals=2"},
      {"no record part", u"{@a.b.c}", "field='@a.b.c'"},
      {"a fraction needs no record part", u"{@a,2.5}", "field='@a' length=2"},
      {"no element number", u"{@a[2][3],3}", "field='@a[2][3]' length=3"},
      {"nor a wrong one", u"{@a[x}", "field='@a[x'"},
      {"blanks behind the name are taken off", u"{@a  ,3}", "field='@a' length=3"},
      {"blanks behind the sign stay", u"{@ a}", "field='@ a'"},
      {"a date format is in capitals", u"{@f,DATEFORMAT(dd/mm/yyyy)}",
       "field='@f' dated dateFormat='DD/MM/YYYY'"},
      {"values are in capitals", u"{@ñ,iif(\"s\",sí,ÿ)}",
       "field='@ñ' iif values=['SÍ','Ÿ'] condition='\"S\",'"},
      {"unknown attributes too", u"{@f,xyz}", "field='@f'", reports({u"XYZ"})},

      {"a blank in front makes it a field", u"{ @Nombre[2],3}",
       "field='@NOMBRE' element=2 length=3"},
      {"a field part that begins so keeps its name", u"{r.@f[x],3}",
       "record='r' field='@f[x]' length=3"},
      {"and its attributes their case", u"{r.@f,DF(dd)}",
       "record='r' field='@f' dated dateFormat='dd'"},
      {"a record with an element", u"{r[2].@f[3]}", "record='r' field='@f[3]' element=2"},
  };
  expectEach(rows);
}

TEST_F(ParseTest, AFreeVariableHas255CharactersOfAttributes) {
  const Text name = u"@" + Text(300, u'n');
  const auto blanksBefore = [](std::size_t place) { return u"," + Text(place - 2, u' '); };
  const auto lineWith = [&](const Text& attributes) { return u"{" + name + attributes + u"}"; };

  variable->sExtract(lineWith(blanksBefore(254) + u"qr"));
  EXPECT_EQ(variable->GetReadText(), name + blanksBefore(254) + u"QR");
  EXPECT_EQ(variable->GetFieldName(), name);
  EXPECT_EQ(variable->GetAlignmentType(), eAT_Right);
  EXPECT_EQ(variable->GetSize(), 301 + 255);
  EXPECT_EQ(messagesShown().size(), 0U);

  variable->sExtract(lineWith(blanksBefore(255) + u"qr"));
  EXPECT_EQ(variable->GetReadText(), name + blanksBefore(255) + u"Q");
  EXPECT_EQ(variable->GetAlignmentWasRead(), false);
  EXPECT_EQ(variable->GetSize(), 301 + 256);
  EXPECT_EQ(messagesShown(), std::vector{messageAbout(u"Q", name + blanksBefore(255) + u"Q")});

  const Text uncut = u"{F" + blanksBefore(300) + u"qr}";
  EXPECT_EQ(dumpOfLine(uncut), "field='F' right");
}

TEST_F(ParseTest, ReadTextHoldsTheAttributesOfAFreeVariableInCapitals) {
  variable->sExtract(u"a {@Nombre,izquierda}");
  EXPECT_EQ(placeOf(*variable), "3-21 size=17 reads '@Nombre,IZQUIERDA'");
  variable->sExtract(u"a {Nombre,izquierda}");
  EXPECT_EQ(placeOf(*variable), "3-20 size=16 reads 'Nombre,izquierda'");
}

// --- The parts, called by themselves.

struct NameCase {
  const char* shows;
  Text name;
  const char* dump;
  Text rest;  // what the name is afterwards
  std::int32_t error = 0;
};

TEST_F(ParseTest, NumberArrayElementTakesTheBracketsOffAName) {
  const NameCase rows[] = {
      {"a number", u"Cant[2]", "element=2", u"Cant"},
      {"two groups", u"Cant[2][5]", "element=2 place", u"Cant"},
      {"no brackets", u"Cant", "", u"Cant"},
      {"nothing", u"", "", u""},
      {"brackets alone", u"[2]", "element=2", u""},
      {"a comma before decimals", u"F[2,5]", "element=2", u"F"},
      {"too great", u"F[256]", "element=0", u"F[256]", 6},
      {"no number", u"F[x]", "element=0", u"F[x]", 13},
      {"no place", u"F[2][x]", "element=2 place", u"F[2][x]", 13},
  };
  for (const NameCase& row : rows) {
    SCOPED_TRACE(row.shows);
    variable->sClrObject();
    Text name = row.name;
    EXPECT_EQ(errorNumberOf([&] { variable->sExtractIfHasNumberArrayElement(name); }), row.error);
    EXPECT_EQ(name, row.rest);
    EXPECT_EQ(dumpOf(*variable), row.dump);
  }
}

// The character of "abcdefgh" that the variable's place takes.
std::string elementTaken(clsObSpecialVar& variable) {
  variable.SetContentArray(u"abcdefgh", 8, -1, false, false, -1);
  return toUtf8(variable.GetContentString());
}

TEST_F(ParseTest, IndexOfValueReadsTheSecondGroup) {
  const NameCase rows[] = {
      {"a place", u"[3]", "c", u"[3]"},
      {"with text around", u"x[4]y", "d", u"x[4]y"},
      {"rounded", u"[2,5]", "b", u"[2,5]"},
      {"none", u"3", "abcdefgh", u"3"},
      {"nothing", u"", "abcdefgh", u""},
      {"no number", u"[x]", "abcdefgh", u"[x]", 13},
      {"no closing bracket", u"[3", "abcdefgh", u"[3", 13},
      {"too great", u"[32768]", "abcdefgh", u"[32768]", 6},
  };
  for (const NameCase& row : rows) {
    SCOPED_TRACE(row.shows);
    variable->sClrObject();
    Text group = row.name;
    const auto call = [&] { variable->sExtractIfHasIndexOfValueInArrayElement(group); };
    EXPECT_EQ(errorNumberOf(call), row.error);
    EXPECT_EQ(group, row.rest);
    const bool wasWritten = row.name.find(u'[') != Text::npos;
    EXPECT_EQ(variable->GetFieldOfArrayHasPositionInsideTheArray(), wasWritten);
    EXPECT_EQ(elementTaken(*variable), row.dump);
  }
}

TEST_F(ParseTest, ThePlaceOfAReadVariableTakesItsCharacter) {
  variable->sExtract(u"{R.F[2][5]}");
  EXPECT_EQ(elementTaken(*variable), "e");
  variable->sExtract(u"{R.F[2]}");
  EXPECT_EQ(elementTaken(*variable), "abcdefgh");
}

TEST_F(ParseTest, FieldAndCharacteristicsReadsReadText) {
  variable->SetReadText(u"Fact.monto[2],7");
  variable->sExtractFieldAndCharacteristics();
  EXPECT_EQ(dumpOf(*variable), "record='Fact' field='MONTO' element=2 length=7 decimals=2");
  EXPECT_EQ(toUtf8(variable->GetReadText()), "Fact.monto[2],7");
}

TEST_F(ParseTest, FieldAndCharacteristicsClearsNothing) {
  variable->sExtract(u"{R.F[2],7,QR}");
  variable->SetReadText(u"g,1,SC");
  variable->sExtractFieldAndCharacteristics();
  EXPECT_EQ(dumpOf(*variable), "record='R' field='G' element=2 right length=7 decimals=1 noComa");
}

// --- Who is asked, and who is named.

// Every call of the text and the conversion service while the line is read.
std::string callsOf(clsObSpecialVar& variable, CallLog& log, TextView line) {
  log.clear();
  variable.sExtract(line);
  return log.text();
}

TEST_F(ParseTest, AsksTheServicesForEveryStep) {
  EXPECT_EQ(callsOf(*variable, serviceCalls, u"Total"),
            R"(clsTexto.fPosition "Total", "{", 1
clsTexto.fPosition "Total", "}", 1
clsTexto.fPosition "", ".", 1
clsTexto.fPosition "", ",", 1
clsTexto.fTrim ""
clsTexto.fPosition "", "[", 1
)");
  EXPECT_EQ(callsOf(*variable, serviceCalls, u"a {Fact.monto,qr}"),
            R"(clsTexto.fPosition "a {Fact.monto,qr}", "{", 1
clsTexto.fPosition "a {Fact.monto,qr}", "}", 1
clsTexto.fPart "a {Fact.monto,qr}", 4, 13
clsTexto.fPosition "Fact.monto,qr", ".", 1
clsTexto.fPart "Fact.monto,qr", 1, 4
clsTexto.fPart "Fact.monto,qr", 6, 0
clsTexto.fTrim "Fact"
clsTexto.fPosition "Fact", "[", 1
clsTexto.fPosition "monto,qr", ",", 1
clsTexto.fPart "monto,qr", 1, 5
clsTexto.fTrim "monto"
clsTexto.fPosition "MONTO", "[", 1
clsTexto.fPart "monto,qr", 7, 0
clsTexto.fPosition "qr", ",", 1
clsTexto.fPosition "qr", "(", 1
clsTexto.fTrim "qr"
)");
  EXPECT_EQ(callsOf(*variable, serviceCalls, u"{f[ 2 ][3]}"),
            R"(clsTexto.fPosition "{f[ 2 ][3]}", "{", 1
clsTexto.fPosition "{f[ 2 ][3]}", "}", 1
clsTexto.fPart "{f[ 2 ][3]}", 2, 9
clsTexto.fPosition "f[ 2 ][3]", ".", 1
clsTexto.fPosition "f[ 2 ][3]", ",", 1
clsTexto.fTrim "f[ 2 ][3]"
clsTexto.fPosition "F[ 2 ][3]", "[", 1
clsTexto.fPosition "F[ 2 ][3]", "]", 1
clsTexto.fPart "F[ 2 ][3]", 3, 3
clsConvert.fNumberToText text " 2 "
clsConvert.fTextToByte "2"
clsTexto.fPart "F[ 2 ][3]", 7, 0
clsTexto.fPosition "[3]", "[", 1
clsTexto.fPosition "[3]", "]", 1
clsTexto.fPart "[3]", 2, 1
clsConvert.fTextToInteger "3"
clsTexto.fPart "F[ 2 ][3]", 1, 1
)");
  EXPECT_EQ(callsOf(*variable, serviceCalls, u"{@f, 12 }"),
            R"(clsTexto.fPosition "{@f, 12 }", "{", 1
clsTexto.fPosition "{@f, 12 }", "}", 1
clsTexto.fPart "{@f, 12 }", 2, 7
clsTexto.fPosition "@f, 12 ", ",", 1
clsTexto.fPart "@f, 12 ", 1, 2
clsTexto.fPart "@f, 12 ", 3, 255
clsTexto.fPosition "@f, 12 ", ".", 1
clsTexto.fPosition "@f, 12 ", ",", 1
clsTexto.fPart "@f, 12 ", 1, 2
clsTexto.fTrim "@f"
clsTexto.fPart "@f, 12 ", 4, 0
clsTexto.fPosition " 12 ", ",", 1
clsTexto.fPosition " 12 ", "(", 1
clsTexto.fTrim " 12 "
clsConvert.fIsNumeric "12"
clsConvert.fTextToByte "12"
)");
}

// Lines that, together, pass through every operation of the parse.
constexpr TextView kRichLines[] = {
    u"a {Det[1][2].cant[3][4],QR,12,PATRONSEPARADOR=2C-B}",
    u"{F,QLR,IIF(\"S\",[1,2]A,[3]B,C),3}",
    u"{F,DF(dd),x}",
    u"{@Nombre,3}",
};
constexpr std::int32_t kRaised = -2147220991;  // a client's own error, as a service may raise it

class FailingServiceTest : public ParseTest {
 protected:
  // Reads each rich line again and again, a service failing at the next one of its calls each time,
  // and then looks.
  void atEachCall(const std::function<void(TextView line, const std::string& call)>& look) {
    for (const TextView line : kRichLines) {
      SCOPED_TRACE(toUtf8(line));
      serviceCalls.clear();
      make<clsObSpecialVar>()->sExtract(line);
      const std::vector<std::string> all = serviceCalls.lines();
      for (std::size_t nth = 0; nth < all.size(); ++nth) {
        SCOPED_TRACE(all[nth]);
        variable = make<clsObSpecialVar>();
        raiseAt(all, nth);
        ASSERT_EQ(read(*variable, line), kRaised);
        look(line, all[nth]);
      }
    }
  }

 private:
  // The nth of these calls: each service counts its own.
  void raiseAt(const std::vector<std::string>& all, std::size_t nth) {
    const bool isConvert = all[nth].starts_with("clsConvert");
    const std::string service = isConvert ? "clsConvert" : "clsTexto";
    int own = 0;
    for (std::size_t i = 0; i <= nth; ++i) own += all[i].starts_with(service) ? 1 : 0;
    (isConvert ? convert->fault : texto->fault).raiseAt(own, kRaised);
  }
};

TEST_F(FailingServiceTest, IsReportedByEveryOperationItPasses) {
  std::string trails;
  atEachCall([&](TextView, const std::string& call) {
    trails += call + "\n    " + error->trail() + "\n";
  });
  EXPECT_TRUE(matchesGolden("template/golden/parse_trails.txt", trails));
}

TEST_F(FailingServiceTest, LeavesTheVariableReadyForTheNextText) {
  atEachCall([&](TextView, const std::string&) {
    variable->SetIifPossibleValues(Value());
    EXPECT_EQ(read(*variable, u"{r.f[2],12,QR}"), 0);
    EXPECT_EQ(dumpOf(*variable), "record='r' field='F' element=2 right length=12 decimals=2");
  });
}

TEST_F(FailingServiceTest, DoesNotLeaveHalfOfAVariableToBeTakenAgain) {
  std::map<Text, std::string> wholeDumps;
  for (const TextView line : kRichLines) {
    const Ref<clsObSpecialVar> whole = make<clsObSpecialVar>();
    whole->sExtract(line);
    wholeDumps[Text(line)] = dumpOf(*whole);
  }
  atEachCall([&](TextView line, const std::string&) {
    EXPECT_EQ(read(*variable, line), 0);
    EXPECT_EQ(dumpOf(*variable), wholeDumps[Text(line)]);
  });
}

TEST_F(FailingServiceTest, IsReportedInTheNameOfTheClass) {
  std::set<std::string> signatures;
  atEachCall([&](TextView, const std::string&) {
    for (const RecordingError::Report& report : error->reports) {
      signatures.insert(toUtf8(report.className) + ", " + toUtf8(report.module) + ", " +
                        std::to_string(report.kind));
    }
  });
  EXPECT_THAT(signatures,
              ::testing::ElementsAre("clsObSpecialVar, Lib. Impresión Texto - Ob Special Var, 2"));
}

TEST_F(ParseTest, AFailingOperatorIsReportedByTheAttribute) {
  message->fault.raiseAt(2, 513);
  EXPECT_EQ(read(*variable, u"{F,X,Y,QR}"), 513);
  EXPECT_EQ(error->trail(), "sReadAttribute sExtractFieldAndCharacteristics sExtract");
  EXPECT_EQ(dumpOf(*variable), "field='F'");
}

TEST_F(ParseTest, AMissingServiceIsReportedToo) {
  modRDPGlobalValues::ofThisThread().refInsConvert = {};
  EXPECT_EQ(read(*variable, u"{F,12}"), kObjectNotSet);
  EXPECT_EQ(error->trail(), "sReadAttribute sExtractFieldAndCharacteristics sExtract");
  modRDPGlobalValues::ofThisThread().refInsTexto = {};
  EXPECT_EQ(read(*variable, u"{F,12}"), kObjectNotSet);
  EXPECT_EQ(error->trail(), "sExtract");
}

}  // namespace
}  // namespace tarvo::test
