// The tables of what a client must answer.
#include "check_test.h"
#include "equipment/golden.h"
#include "equipment/processor_time.h"
#include "tarvordp/check/fields.h"

namespace tarvordp::test {
namespace {

std::string fieldsIn(const std::string& utf8) {
  Findings findings;
  std::ostringstream shown;
  write(shown, "T", fieldsOf(bytesOf(utf8), findings));
  return shown.str();
}

TEST(Fields, OfAMasterDetailReportStandInItsSections) {
  EXPECT_TRUE(tarvo::test::matchesGolden("tarvordp/check/golden/fields_master_detail.txt",
                                         fieldsIn(
                                             R"(...NMAXLINPAGINA=33
{NEGRA}FACTURA {FACTURA.NUMERO,8,0}{BLANCA} {FACTURA.FECHA,DATEFORMAT(dd/mm/yyyy),10}
{CLIENTE.NOMBRE,40} {@R.I.F.} {CLIENTE.RIF,PATRONSEPARADOR=B}
Vienen {VIENEN,15}
{CUERPO=12}
{NUMERAR,4,0} {RENGLON.CÓDIGO,10} {RENGLON.MONTO,15,NOCERO}
{RENGLON.NOTA,VACIO}{RENGLON.NOTA,30}
{REPEAT}{RENGLON.TEXTO,60}
{UNINSERTOCUERPO}
{-,76,FILL} {TOTAL.IVA[2],12} {TOTAL.SI[3][1]}
{FACTURA.ESTADO,IIF("P","Pagada",Pendiente)} {FACTURA.ESTADO,IIF("P","Pagada",Pendiente)}
{FINCUERPO}
Van {VAN,15}
{FINRENGLONESDOCUMENTOS,VACIO}Firma
)")));
}

TEST(Fields, OfAFormAreItsSheets) {
  EXPECT_EQ(fieldsIn("{EMPLEADO.NOMBRE,30} {VAN}\n{SNL,2}\n{EMPLEADO.NOMBRE,30}\n"),
            "T: form\n"
            "sheet\n"
            "  RECORD    FIELD   WIDTH  DECIMALS  LINES  HINTS\n"
            "  EMPLEADO  NOMBRE  30     2         1, 3\n"
            "  -         VAN     -      -         1\n");
}

TEST(Fields, OfATemplateWithoutAny) {
  EXPECT_EQ(fieldsIn("Total\n{NEGRA}{@Firma}\n"), "T: form\nno fields\n");
}

TEST(Fields, ThatCannotBeReadAreLeftOut) {
  EXPECT_EQ(fieldsIn("{A} {B,300} {C\n"),
            "T: form\n"
            "sheet\n"
            "  RECORD  FIELD  WIDTH  DECIMALS  LINES  HINTS\n"
            "  -       A      -      -         1\n");
}

TEST(Fields, ManyTakeNoLongerThanOthers) {
  std::string text;
  for (int i = 0; i < 60'000; ++i) text += "{F" + std::to_string(i) + "}\n";
  std::size_t fields = 0;
  const double seconds = tarvo::test::processorSecondsOf([&] {
    Findings findings;
    fields = fieldsOf(text, findings).sections.at(0).fields.size();
  });
  EXPECT_EQ(fields, 60'000U);
  EXPECT_LT(seconds, 6);
}

}  // namespace
}  // namespace tarvordp::test
