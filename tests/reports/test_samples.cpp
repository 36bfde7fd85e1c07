// The reports that script clients print as well: the same templates, read from their files, with
// the same values give the same bytes (tests/windows/scripts/reports.vbs).
#include <gmock/gmock.h>

#include <array>

#include "equipment/golden.h"
#include "frame/clsImplementIDMD.h"
#include "frame/clsImplementIDTraduc.h"
#include "report_world.h"
#include "reports/clsObRepMasterDetail.h"
#include "reports/clsObRepPlanilla.h"
#include "services/clsUtilFile.h"

namespace tarvo::test {
namespace {

constexpr int kRecords = 118;  // three on a page, forty pages

class Receipt final : public clsImplementIDTraduc {
 public:
  int pauses = 0;

  bool fTranslateSpecialVar(Ref<clsObLineCharacts>& refLineToWrite) override {
    clsObSpecialVar& variable = *refLineToWrite->GetSpecialVar();
    const Text& field = variable.GetFieldName();
    if (field == u"NUMERO") {
      variable.SetContentNumeric(Currency::ofUnits(1254), false);
    } else if (field == u"NOMBRE") {
      variable.SetContentString(u"José Peña Muñoz");
    } else if (field == u"CEDULA") {
      variable.SetContentString(u"V-7123456");
    } else if (field == u"FECHA") {
      variable.SetContentDate(dateOf({2026, 3, 15, 0, 0, 0}));
    } else if (field == u"TIPO") {
      variable.SetContentEnum(u"F");
    } else if (field == u"SUELDO") {
      variable.SetContentNumeric(currencyFromText(u"4500,75"), false);
    } else if (field == u"DEDUCCION") {
      variable.SetContentNumeric(currencyFromText(u"-312,5"), true);
    } else if (field == u"NETO") {
      variable.SetContentNumeric(currencyFromText(u"4188,25"), false);
    } else {
      return false;
    }
    return true;
  }

  void sDisplayPauseDialog() override { ++pauses; }
};

class Ledger final : public clsImplementIDMD {
 public:
  bool fTranslateSpecialVarMD(Ref<clsObLineCharacts>& refLineToWrite, Currency) override {
    static constexpr std::array<TextView, 4> kNames{
        u"Tornillo de 3 pulgadas", u"Cañería galvanizada", u"Pintura al agua", u"Llave inglesa"};
    clsObSpecialVar& variable = *refLineToWrite->GetSpecialVar();
    const Text& field = variable.GetFieldName();
    if (field == u"CODIGO") {
      variable.SetContentString(u"ART-" + fromUtf8(std::to_string(present_)));
    } else if (field == u"NOMBRE") {
      variable.SetContentString(kNames[static_cast<std::size_t>(present_) % kNames.size()]);
    } else if (field == u"MONTO") {
      variable.SetContentNumeric(amount(), false);
    } else if (field == u"NOTA") {
      variable.SetContentString(present_ % 5 == 0 ? u"en oferta" : u"");
    } else if (field == u"TOTAL") {
      variable.SetContentNumeric(Currency::ofUnits(kRecords), false);
    } else {
      return false;
    }
    return true;
  }

  bool fReadFirstRecord() override {
    present_ = 1;
    return true;
  }
  bool fReadNextRecord() override {
    ++present_;
    return present_ <= kRecords;
  }
  void sAccumSubTotal(Currency& refMontoSubTotal) override { refMontoSubTotal += amount(); }
  bool fCanExecuteWriteReport(bool&, Text&) override { return true; }
  void sDisplayPauseDialog() override { ++pauses; }

  int pauses = 0;

 private:
  // 12.35 for each number.
  Currency amount() const { return {123'500LL * present_}; }

  int present_ = 0;
};

class Samples : public ::testing::Test {
 protected:
  ReportPorts ports() const { return {platform::makeTextFiles(), world.pages}; }

  static Text folder() { return fromUtf8(TARVO_TESTS_DIR "/reports/samples/"); }

  // The template files are there in truth.
  Samples() { modRDPGlobalValues::ofThisThread().refInsUtilFile = make<LibTarvoCI::clsUtilFile>(); }

  ReportWorld world;
};

TEST_F(Samples, OfATwoSheetForm) {
  const auto form = make<clsObRepPlanilla>(ports());
  const auto receipt = make<Receipt>();
  Ref<clsImplementIDTraduc> client = receipt;
  form->sInit(client, u"Recibo Nº 1254", u"", u"", u"", folder(), ePOD_Definitiva, eHP_AmbasHojas);
  form->SetFileNameIDFirstSheet(u"RECIBO1");
  form->SetFileNameIDSecondSheet(u"RECIBO2");
  form->sPrintReport();
  ASSERT_EQ(world.spooler->jobs().size(), 2u);
  EXPECT_TRUE(
      matchesGolden("reports/golden/recibo_1.txt", bytesDump(world.spooler->jobs()[0].bytes)));
  EXPECT_TRUE(
      matchesGolden("reports/golden/recibo_2.txt", bytesDump(world.spooler->jobs()[1].bytes)));
  EXPECT_EQ(receipt->pauses, 1);
}

TEST_F(Samples, OfADraft) {
  const auto form = make<clsObRepPlanilla>(ports());
  Ref<clsImplementIDTraduc> client = make<Receipt>();
  form->sInit(client, u"Borrador", u"", u"", u"", folder(), ePOD_Borrador, eHP_AmbasHojas);
  form->SetFileNameIDDraft(u"BORRADOR");
  form->sPrintReport();
  EXPECT_THAT(
      world.pageCalls.lines(),
      ::testing::ElementsAre("show \"Borrador\" modal", "Borrador del recibo de José Peña Muñoz",
                             "Neto        4.188,25 ¿á é í ó ú ñ Ñ?"));
}

TEST_F(Samples, OfALedgerOfFortyPagesInTwoCopies) {
  const auto report = make<clsObRepMasterDetail>(ports());
  const auto ledger = make<Ledger>();
  Ref<clsImplementIDMD> client = ledger;
  report->sInit(client, u"Libro de inventario", u"", u"", u"LIBRO", folder(), 2);
  report->sPrintReport();
  ASSERT_EQ(world.spooler->jobs().size(), 1u);
  EXPECT_TRUE(matchesGolden("reports/golden/libro.txt", bytesDump(world.spooler->jobs()[0].bytes)));
  EXPECT_EQ(ledger->pauses, 1);
}

}  // namespace
}  // namespace tarvo::test
