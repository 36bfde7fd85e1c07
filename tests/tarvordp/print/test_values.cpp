// Every kind of value, from the job file to the printed bytes.
#include "print_testing.h"

namespace tarvordp {
namespace {

class ValuesTest : public test::PrintTest {
 protected:
  // Prints a header of these lines with that record; gives the header as it was printed.
  std::string headerOf(const std::string& lines, const std::string& record) {
    writeMasterDetail(lines + "{CUERPO=1}\n{FINCUERPO}\n", ", \"record\": " + record);
    const test::Outcome outcome = print();
    EXPECT_EQ(outcome.err, "") << lines;
    EXPECT_EQ(outcome.status, kDone) << lines;
    const std::string all = printed();
    return all.substr(0, all.find("\n<0D><0A>\n<0C>"));
  }
};

struct ValueCase {
  const char* shows;
  const char* line;
  const char* value;
  const char* printed;
};

constexpr ValueCase kValues[] = {
    {"a text", "[{A,6}]", R"("Peña")", "[Pe<A4>a  ]<0D><0A>"},
    {"a number", "[{A,10}]", "1250.5", "[  1.250,50]<0D><0A>"},
    {"a number to its fourth decimal", "[{A,12,4}]", "0.10005", "[      0,1000]<0D><0A>"},
    {"a number with an exponent", "[{A,10}]", "12.505e2", "[  1.250,50]<0D><0A>"},
    {"a negative number", "[{A,10}]", "-3", "[     -3,00]<0D><0A>"},
    {"a negative number with parentheses", "[{A,10}]", R"({"number": "-3", "parenthesis": true})",
     "[    (3,00)]<0D><0A>"},
    {"a boolean", "[{A}]", "true", "[S]<0D><0A>"},
    {"a boolean through IIF", "[{A,IIF(\"S\",sí,no)}]", "false", "[no]<0D><0A>"},
    {"a date", "[{A}]", R"({"date": "2026-03-15"})", "[15/03/2026]<0D><0A>"},
    {"a date and a time", "[{A,DATEFORMAT(dd-mm hh:nn:ss)}]", R"({"date": "2026-03-15T18:30:05"})",
     "[15-03 18:30:05]<0D><0A>"},
    {"an enumeration", "[{A,IIF(\"X\",Exento,Gravado)}]", R"({"enum": "X"})", "[Exento]<0D><0A>"},
    {"another enumeration", "[{A,IIF(\"X\",Exento,Gravado)}]", R"({"enum": "Y"})",
     "[Gravado]<0D><0A>"},
    {"an array with the element in its variable", "[{A[2]}]",
     R"({"array": "SNX", "usePosition": true})", "[N]<0D><0A>"},
    {"an array with the element in its value", "[{A}]", R"({"array": "SNX", "position": 3})",
     "[X]<0D><0A>"},
    {"an array with a second number", "[{A[1][2]}]", R"({"array": "SNX"})", "[N]<0D><0A>"},
    {"an array filled to its width", "[{A}]",
     R"({"array": "SN", "maxWidth": 4, "fill": true, "index": 0})", "[SN  ]<0D><0A>"},
    {"an array as a whole", "[{A}]", R"({"array": "SNX"})", "[SNX]<0D><0A>"},
    {"a segment of a long text", "[{A[2],10}]",
     R"({"lines": ["uno dos tres cuatro cinco ", "seis"]})", "[tres      ]<0D><0A>"},
    {"null", "[{A}]", "null", "[No se encontr<A2>]<0D><0A>"},
};

TEST_F(ValuesTest, EveryKindIsStoredWithItsOperation) {
  for (const ValueCase& row : kValues) {
    const std::string record = R"({"A": )" + std::string(row.value) + "}";
    EXPECT_EQ(headerOf(std::string(row.line) + "\n", record), row.printed) << row.shows;
  }
}

TEST_F(ValuesTest, AnAmountIsTheWrittenDecimal) {
  EXPECT_EQ(headerOf("{A,8,4}{B,8,4}{C,20,4}\n",
                     R"({"A": 0.12345, "B": 0.12355, "C": 922337203685477.5807})"),
            "  0,1234  0,1236922337203685477,5807<0D><0A>");
}

TEST_F(ValuesTest, NamesAreFoundWithoutCase) {
  EXPECT_EQ(headerOf("{cliente.nombre} {Cliente.NOMBRE} {fecha} {Fecha}\n",
                     R"({"Cliente.Nombre": "Ana", "FECHA": "hoy"})"),
            "Ana Ana hoy hoy<0D><0A>");
}

TEST_F(ValuesTest, ANameThatIsNowhereIsNotFound) {
  writeMasterDetail("{CLIENTE.NOMBRE} {NOMBRE}\n{CUERPO=1}\n{FINCUERPO}\n",
                    R"(, "record": {"OTRO.NOMBRE": "Ana"})");
  EXPECT_EQ(print().status, kDone);
  EXPECT_EQ(printed(), "No se encontr<A2> No se encontr<A2><0D><0A>\n<0D><0A>\n<0C>");
}

TEST_F(ValuesTest, ALongTextIsPrintedSegmentBySegmentOnARepeatedLine) {
  EXPECT_EQ(
      headerOf("[{A,10}]\nend\n[{A,10}]\n",
               R"({"A": {"lines": ["uno dos tres cuatro ", "cinco seis"]}})"),
      "[uno dos   ]<0D><0A>\n[tres      ]<0D><0A>\n[cuatro    ]<0D><0A>\n[cinco seis]<0D><0A>\n"
      "end<0D><0A>\n"
      "[uno dos   ]<0D><0A>\n[tres      ]<0D><0A>\n[cuatro    ]<0D><0A>\n[cinco seis]<0D><0A>");
}

TEST_F(ValuesTest, ALongTextWithoutWordsIsNotFound) {
  EXPECT_EQ(headerOf("[{A,10}]\n[{B,10}]\nend\n", R"({"A": {"lines": []}, "B": {"lines": [""]}})"),
            "end<0D><0A>");
}

TEST_F(ValuesTest, ARepeatGivesOneValuePerPassAndStartsOver) {
  EXPECT_EQ(headerOf("[{A,5}]\nend\n[{A,5}]\n", R"({"A": {"repeat": ["a", 2, "c"]}})"),
            "[a    ]<0D><0A>\n[ 2,00]<0D><0A>\n[c    ]<0D><0A>\nend<0D><0A>\n"
            "[a    ]<0D><0A>\n[ 2,00]<0D><0A>\n[c    ]<0D><0A>");
}

TEST_F(ValuesTest, ANullEndsARepetition) {
  EXPECT_EQ(headerOf("[{A}]\nend\n[{A}]\n", R"({"A": {"repeat": ["a", null, "c"]}})"),
            "[a]<0D><0A>\n[No se encontr<A2>]<0D><0A>\nend<0D><0A>\n"
            "[a]<0D><0A>\n[No se encontr<A2>]<0D><0A>");
}

TEST_F(ValuesTest, ARepetitionIsPrintedAsItWasMeasured) {
  writeMasterDetail(
      "{CUERPO=4}\n[{T,8}]\n<{R}>\n{FINCUERPO}\nfooter\n",
      R"(, "details": [{"T": {"lines": ["uno dos tres"]}, "R": {"repeat": ["a", "b"]}},
                                     {"T": {"lines": ["cuatro"]}, "R": {"repeat": ["c"]}}])");
  EXPECT_EQ(print().status, kDone);
  EXPECT_EQ(
      printed(),
      "[uno dos ]<0D><0A>\n[tres    ]<0D><0A>\n<3C>a><0D><0A>\n<3C>b><0D><0A>\nfooter<0D><0A>\n"
      "<0C>[cuatro  ]<0D><0A>\n<3C>c><0D><0A>\n<0D><0A>\n<0D><0A>\nfooter<0D><0A>\n<0C>");
}

TEST_F(ValuesTest, ADetailRecordComesBeforeTheRecordAndStaysAfterTheLastOne) {
  writeMasterDetail("header {X}\n{CUERPO=2}\n{X} {Y}\n{FINCUERPO}\nfooter {X} {Y}\n",
                    R"(, "record": {"X": "all", "Y": "every"},
                         "details": [{"X": "one"}, {"X": "two", "Y": null}])");
  EXPECT_EQ(print().status, kDone);
  EXPECT_EQ(printed(),
            "header all<0D><0A>\none every<0D><0A>\ntwo No se encontr<A2><0D><0A>\n"
            "footer two No se encontr<A2><0D><0A>\n<0C>");
}

TEST_F(ValuesTest, SetReplacesAValueOfTheRecordByAText) {
  writeMasterDetail("{FACTURA.NUMERO,6}|{OTRO}|{D}\n{CUERPO=1}\n{D}\n{FINCUERPO}\n",
                    R"(, "record": {"Factura.Numero": 12, "D": "r"}, "details": [{"D": "d"}])");
  EXPECT_EQ(print({"--set", "factura.numero=7=8", "--set", "OTRO=", "--set", "D=Ñandú"}).status,
            kDone);
  EXPECT_EQ(printed(), "7=8   ||<A5>and<A3><0D><0A>\nd<0D><0A>\n<0C>");
}

}  // namespace
}  // namespace tarvordp
