// Whole form reports, from cases/forms.case: templates and values in, printed bytes, pages and
// calls out.
//
// Sections of a case:
//   settings      KEYWORD and value, a line each, see apply()
//   first sheet, second sheet, draft   the templates; without one the sheet has no name
//   values        see typed_values.h
//   jobs          what the spooler got
//   pages         what the page output got
//   calls         of the client and the message service
#include <gtest/gtest.h>

#include "equipment/case_file.h"
#include "form_client.h"
#include "report_world.h"
#include "reports/clsObRepPlanilla.h"

namespace tarvo::test {
namespace {

CaseFile& caseFile() {
  static CaseFile file("reports/cases/forms.case", {"settings", "first sheet", "second sheet",
                                                    "draft", "values", "jobs", "pages", "calls"});
  return file;
}

class FormCases : public ::testing::TestWithParam<std::size_t> {
 protected:
  const Case& given() const { return caseFile().cases()[GetParam()]; }

  void apply(const std::string& line) {
    const Setting setting(line);
    const std::string& keyword = setting.keyword;
    const std::string& value = setting.value;
    if (setting.applyTo(*world.printer)) return;
    if (keyword == "kind") {
      kind = value == "draft" ? ePOD_Borrador : ePOD_Definitiva;
    } else if (keyword == "sheets") {
      sheets = value == "first"    ? eHP_PrimeraHoja
               : value == "second" ? eHP_SegundaHoja
                                   : eHP_AmbasHojas;
    } else if (keyword == "operator-cancels") {
      world.message->accepts = false;
    } else if (keyword == "missing") {
      missing = fromUtf8(value);
    } else {
      FAIL() << "unknown setting: " << line;
    }
  }

  // The name of the sheet's template, which is written if the case has it.
  Text writeTemplate(const char* section, TextView name) {
    if (!given().has(section)) return {};
    if (name != missing) {
      world.files->write(u"C:\\Formas\\" + Text(name) + u".ID",
                         templateBytes(given().textOf(section)));
    }
    return Text(name);
  }

  ReportWorld world;
  ePruebaODefinitiva kind = ePOD_Definitiva;
  eHojaDeLaPlanilla sheets = eHP_AmbasHojas;
  Text missing;
};

TEST_P(FormCases, Print) {
  for (const std::string& setting : given().linesOf("settings")) apply(setting);
  const auto client = make<FormClient>(world.calls);
  for (const std::string& value : given().linesOf("values")) client->values.add(value);
  const auto form = make<clsObRepPlanilla>(world.ports());
  Ref<clsImplementIDTraduc> callbacks = client;
  form->sInit(callbacks, u"Recibo de Pago", u"", u"", u"", u"C:\\Formas\\", kind, sheets);
  form->SetFileNameIDFirstSheet(writeTemplate("first sheet", u"HOJA1"));
  form->SetFileNameIDSecondSheet(writeTemplate("second sheet", u"HOJA2"));
  form->SetFileNameIDDraft(writeTemplate("draft", u"BORRADOR"));
  form->sPrintReport();
  EXPECT_TRUE(caseFile().matches(GetParam(), "jobs", world.jobsText()));
  EXPECT_TRUE(caseFile().matches(GetParam(), "pages", world.pageCalls.text()));
  EXPECT_TRUE(caseFile().matches(GetParam(), "calls", world.calls.text()));
  EXPECT_EQ(world.files->openStreams(), 0);
}

INSTANTIATE_TEST_SUITE_P(All, FormCases,
                         ::testing::Range<std::size_t>(0, caseFile().cases().size()),
                         [](const auto& row) { return caseFile().testName(row.param); });

}  // namespace
}  // namespace tarvo::test
