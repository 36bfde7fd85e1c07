// A template line takes nothing from the heap once it was translated before, as long as the text
// service need not be asked.
#include <gtest/gtest.h>

#include "equipment/allocations.h"
#include "frame/clsInitLibTarvoRpd.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"
#include "template/line_translator.h"

namespace tarvo::test {
namespace {

// A client as one writes it: every field has a value of one kind, by its name.
class Client final : public VariableSource {
 public:
  bool answer(Ref<clsObLineCharacts>& line) override {
    clsObSpecialVar& variable = *line->GetSpecialVar();
    const TextView field = variable.GetFieldName();
    ++answers;
    if (field == u"NUMERO") {
      variable.SetContentNumeric(Currency{12'345'678'900}, true);
    } else if (field == u"NEGATIVO") {
      variable.SetContentNumeric(Currency{-12'345'600}, true);
    } else if (field == u"NOMBRE") {
      variable.SetContentString(u"Ferreter\u00EDa El Tornillo C.A., Sucesores y Asociados");
    } else if (field == u"VACIO") {
      variable.SetContentString(u"");
    } else if (field == u"FECHA") {
      variable.SetContentDate(Date{36'000});
    } else if (field == u"TIPO") {
      variable.SetContentEnum(u"C");
    } else if (field == u"ACTIVO") {
      variable.SetContentBoolean(true);
    } else if (field == u"LETRA") {
      variable.SetContentString(u"-");
    } else {
      return false;
    }
    return true;
  }

  int answers = 0;
};

class TemplateAllocations : public ::testing::Test {
 protected:
  TemplateAllocations() {
    LibTarvoCI::CoreServices services;
    services.handTo(*make<clsInitLibTarvoRpd>(), printer);
    printer->SetChrBold(u"a control string that is longer than a small text");
  }
  ~TemplateAllocations() override { modRDPGlobalValues::ofThisThread() = modRDPGlobalValues(); }

  void translate(TextView templateLine) {
    line->sClrRecord();
    translator.translate(line, templateLine, client);
    printed += line->GetTextToPrint().size();
  }

  // What a hundred lines take, after some have been translated.
  std::size_t ofLines(TextView templateLine) {
    for (int i = 0; i < 3; ++i) translate(templateLine);
    const std::size_t before = allocations();
    for (int i = 0; i < 100; ++i) translate(templateLine);
    return allocations() - before;
  }

  Ref<clsUtilImp> printer = make<clsUtilImp>();
  Ref<clsObLineCharacts> line = make<clsObLineCharacts>();
  LineTranslator translator;
  Client client;
  std::size_t printed = 0;
};

struct LineCase {
  const char* shows;
  TextView line;
};

constexpr LineCase kTypicalLines[] = {
    {"text", u"a line of text that is longer than a small one"},
    {"nothing", u""},
    {"a number", u"Total: {F.NUMERO,20}"},
    {"numbers in every dress",
     u"{NUMERO,20,4}{NUMERO,20,CP}{NUMERO,20,SC}{NUMERO,20,0,SC}{NEGATIVO,20,C0}{NEGATIVO,20,QL}"
     u"{NUMERO,20,QC}{NUMERO,3}{NUMERO}{NUMERO,20,NB}"},
    {"texts",
     u"{NOMBRE}{NOMBRE,20}{NOMBRE,80}{NOMBRE,80,QR}{NOMBRE,80,QC}{VACIO,20}{NOMBRE,80,NB}"},
    {"a rule", u"{LETRA,80,FILL}"},
    {"dates", u"{FECHA}{FECHA,20}{FECHA,20,QR}{FECHA,DF(dd/mm/yyyy),20}{FECHA,DF(d/m/yy)}"},
    {"enumerations", u"{TIPO,IIF(\"C\",Contado,Credito),8}{TIPO,IIF(\"R\",Credito,Contado)}"},
    {"with a long value", u"{TIPO,IIF(\"C\",\"Contado a treinta dias\",Credito),30,QR}"},
    {"booleans", u"{ACTIVO}{ACTIVO,5}{ACTIVO,IIF(\"S\",Activo,Inactivo),12}"},
    {"control words",
     u"{NEGRA}{BLANCA}{COMP}{NORM}{NB,40}{SNL,3}{TAB}{SALTAPAGINA}{REPEAT}{SNP,9}"},
    {"constants", u"{@a constant that is longer than a small text,60,QR}{@b}"},
    {"conditions", u"{VACIO,VACIO}text{NOMBRE,CONDICION}"},
    {"what nobody knows", u"{DESCONOCIDO,40}"},
    {"element numbers", u"{R[1].NUMERO[2][3],20}"},
    {"everything of an invoice",
     u"{NEGRA} {F.NUMERO,8,0} {C.NOMBRE,30} {F.FECHA,10} {D.NUMERO,16} "
     u"{C.TIPO,IIF(\"C\",Contado,Credito),8}{BLANCA}"},
};

TEST_F(TemplateAllocations, AreCounted) {
  const std::size_t before = allocations();
  ::operator delete(::operator new(1));
  EXPECT_EQ(allocations(), before + 1);
}

TEST_F(TemplateAllocations, NoneForATypicalLine) {
  for (const LineCase& row : kTypicalLines) {
    EXPECT_EQ(ofLines(row.line), 0u) << row.shows;
  }
  EXPECT_GT(printed, 0u);
}

// As a report goes through its template for every record.
TEST_F(TemplateAllocations, NoneForOneLineAfterAnother) {
  const auto translateAll = [this] {
    for (const LineCase& row : kTypicalLines) translate(row.line);
  };
  for (int i = 0; i < 3; ++i) translateAll();
  const std::size_t before = allocations();
  const int answersBefore = client.answers;
  for (int i = 0; i < 20; ++i) translateAll();
  EXPECT_EQ(allocations(), before);
  EXPECT_EQ((client.answers - answersBefore) % 20, 0);
  EXPECT_GT(client.answers, answersBefore);
}

// Every engine reads its lines into storage of its own.
TEST_F(TemplateAllocations, NoneWhereverTheLineStandsInMemory) {
  const TextView text = kTypicalLines[2].line;
  std::vector<Text> copies(200, Text(text));
  for (const Text& copy : copies) translate(copy);
  for (const Text& copy : copies) translate(copy);
  const std::size_t before = allocations();
  for (const Text& copy : copies) translate(copy);
  EXPECT_EQ(allocations(), before);
}

// What was read with the services of before is forgotten, and kept again with the new ones.
TEST_F(TemplateAllocations, NoneOnceTheServicesWereReplaced) {
  for (int i = 0; i < 3; ++i) {
    for (const LineCase& row : kTypicalLines) translate(row.line);
    LibTarvoCI::CoreServices others;
    others.handTo(*make<clsInitLibTarvoRpd>(), printer);
    for (const LineCase& row : kTypicalLines) EXPECT_EQ(ofLines(row.line), 0u) << row.shows;
  }
}

TEST_F(TemplateAllocations, SomeForALineThatIsNew) {
  const std::size_t before = allocations();
  translate(u"{F.NUMERO,20} {C.NOMBRE,30}");
  EXPECT_GT(allocations(), before);
}

}  // namespace
}  // namespace tarvo::test
