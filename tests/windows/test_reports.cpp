// The reports of the server as a compiled client has them: through the tables of functions, with a
// client object that has nothing else either.
#include <fstream>

#include "both_sides.h"
#include "early_bound_answers.h"
#include "equipment/temporary_folder.h"
#include "graphic/clsARObRep_members.h"
#include "graphic/line_table.h"
#include "record_set.h"
#include "reports/clsObRepMasterDetail_members.h"
#include "reports/clsObRepPlanilla_members.h"

namespace tarvo::com {
namespace {

using client::EarlyBoundAnswers;

constexpr HRESULT kOutOfStack = static_cast<HRESULT>(0x800A001C);
constexpr HRESULT kOverflowStatus = static_cast<HRESULT>(0x800A0006);
constexpr HRESULT kClientsError = static_cast<HRESULT>(0x80040201);

class ReportsOfServer : public BothSides {
 protected:
  ~ReportsOfServer() override {
    client::handOverNothing();
    EXPECT_EQ(0, utility_.references());
  }

  void SetUp() override {
    BothSides::SetUp();
    folder_.write(u"LIBRO.ID",
                  "...NMAXLINPAGINA=6\r\n{CUERPO=2}\r\n{NUMERAR,2,0} {MONTO,10}\r\n{FINCUERPO}\r\n"
                  "Van {VAN,10}\r\n");
    services_ = client::Services::fromCompanion();
    printer_ = client::createPrinter();
    printer_->SetPrinterName(Bstr(u"file:" + folder_.pathOf(u"libro.prn")).get());
    printer_->SetCanPrintInTextMode(VARIANT_TRUE);
    printer_->SetChrFormFeed(Bstr(u"\f").get());
    _clsUtilImp* printer = printer_.get();
    _clsUtReport* utility = services_.utReport.get();
    ASSERT_EQ(S_OK, client::createStartUp()->sInitializePrintLibrary(&printer, &utility));
    answers_.mayPrint = VARIANT_TRUE;
    answers_.translate = [](_clsObLineCharacts** line, VARIANT_BOOL* known) {
      ComPtr<_clsObSpecialVar> variable;
      (*line)->GetSpecialVar(variable.out());
      CURRENCY amount;
      amount.int64 = 125'000;
      *known = VARIANT_TRUE;
      return variable->SetContentNumeric(amount, VARIANT_FALSE);
    };
  }

  HRESULT init(SHORT copies) {
    _clsImplementIDMD* answers = &answers_;
    const HRESULT status =
        report_->sInit(&answers, Bstr(u"Libro").get(), Bstr(u"").get(), Bstr(u"").get(),
                       Bstr(u"LIBRO").get(), Bstr(folder_.pathOf(u"")).get(), copies);
    EXPECT_EQ(&answers_, answers) << "by reference, and not changed";
    return status;
  }

  test::TemporaryFolder folder_;
  client::Services services_;
  ComPtr<_clsUtilImp> printer_;
  EarlyBoundAnswers answers_;
  client::FakeService utility_;
  ComPtr<_clsObRepMasterDetail> report_ =
      client::create<_clsObRepMasterDetail>(client::library(), CLSID_clsObRepMasterDetail);
};

TEST_F(ReportsOfServer, PrintForACompiledClientInTheOrderOfTheReport) {
  ASSERT_EQ(S_OK, init(1));
  ASSERT_EQ(S_OK, report_->sPrintReport());
  EXPECT_EQ(folder_.contentOf(u"libro.prn"), " 1      12,50\r\n\r\nVan       0,00\r\n\f");
  EXPECT_THAT(answers_.calls(),
              testing::ElementsAre("fCanExecuteWriteReport 0 \"\"", "fReadFirstRecord",
                                   "fTranslateSpecialVarMD 0", "fTranslateSpecialVarMD 0",
                                   "sAccumSubTotal 0", "fReadNextRecord"));
}

TEST_F(ReportsOfServer, PassAnErrorOfTheClientOnWithItsTrail) {
  answers_.failing = "sAccumSubTotal";
  answers_.failure = kClientsError;
  ASSERT_EQ(S_OK, init(1));
  EXPECT_EQ(kClientsError, report_->sPrintReport());
  EXPECT_THAT(client::takeErrorText(),
              testing::EndsWith("   en clsObRepMasterDetail.sPrintBody (Lib. Impresión Texto - Ob "
                                "Rep)\r\n   en clsObRepMasterDetail.sWriteReport (Lib. Impresión "
                                "Texto - Ob Rep)\r\n   en clsObRepMasterDetail."
                                "sWriteNCopiesOfReport (Lib. Impresión Texto - Ob Rep)\r\n   en "
                                "clsObRepMasterDetail.sPrintReport (Lib. Impresión Texto - Ob "
                                "Rep)"));
  answers_.failing.clear();
  ASSERT_EQ(S_OK, init(1));
  EXPECT_EQ(S_OK, report_->sPrintReport()) << "the next report prints";
}

TEST_F(ReportsOfServer, RefuseMoreCopiesThanAByteHolds) {
  EXPECT_EQ(kOverflowStatus, init(256));
  EXPECT_EQ(kOverflowStatus, init(-1));
}

TEST_F(ReportsOfServer, LetGoOfTheClientWithTheReport) {
  ASSERT_EQ(S_OK, init(1));
  EXPECT_GT(answers_.references(), 0);
  report_ = {};
  EXPECT_EQ(0, answers_.references());
}

// A header that breaks its own page: the program lives on.
TEST_F(ReportsOfServer, EndABreakThatLeadsToItselfWithError28) {
  folder_.write(u"LIBRO.ID", "{SALTAPAGINA}cabeza\r\n{CUERPO=2}\r\n{FINCUERPO}\r\n");
  ASSERT_EQ(S_OK, init(1));
  EXPECT_EQ(kOutOfStack, report_->sPrintReport());
  EXPECT_THAT(client::takeErrorText(), testing::HasSubstr("clsObRepMasterDetail.sPrintPageHeader"));
}

template <class Own, class Server>
void expectSameProperties(const ComPtr<Server>& server) {
  const auto own = make<Own>();
  EXPECT_EQ(ownProperties(*own), earlyProperties<Own>(server.get()));
  EXPECT_EQ(ownProperties(*own), lateProperties<Own>(server.get()));
  for (int which = 0; which < 4; ++which) {
    setAllEnds(*own, server.get(), which);
    EXPECT_EQ(ownProperties(*own), earlyProperties<Own>(server.get()));
    EXPECT_EQ(ownProperties(*own), lateProperties<Own>(server.get()));
  }
}

TEST_F(ReportsOfServer, HaveThePropertiesOfTheirClasses) {
  expectSameProperties<clsObRepMasterDetail>(report_);
  expectSameProperties<clsObRepPlanilla>(
      client::create<_clsObRepPlanilla>(client::library(), CLSID_clsObRepPlanilla));
}

TEST_F(ReportsOfServer, GiveTheLineObjectOfAUserReport) {
  const auto form = client::create<_clsObRepPlanilla>(client::library(), CLSID_clsObRepPlanilla);
  const auto nobody =
      client::create<_clsImplementIDTraduc>(client::library(), CLSID_clsImplementIDTraduc);
  _clsImplementIDTraduc* callbacks = nobody.get();
  ASSERT_EQ(S_OK, form->sInitForUserReport(&callbacks));
  ASSERT_EQ(S_OK, form->sSearchSpecialVarAndTranslate(Bstr(u"{@Total}: {NADA}").get()));
  ComPtr<_clsObLineCharacts> line;
  ASSERT_EQ(S_OK, form->GetLineToWrite(line.out()));
  Bstr text;
  ASSERT_EQ(S_OK, line->GetTextToPrint(text.out()));
  EXPECT_EQ(toUtf8(text.view()), "Total: No se encontró");
}

TEST_F(ReportsOfServer, SaveRowsOfTheGraphicChannel) {
  const auto channel = client::create<_clsARObRep>(client::library(), CLSID_clsARObRep);
  const Bstr path(u"file:" + folder_.pathOf(u"filas.pdf"));
  ASSERT_EQ(S_OK, channel->sInit(path.get(), Bstr(u"Filas").get(), ::ePD_Disk));
  ASSERT_EQ(S_OK, channel->sWriteLn(Bstr(u"una").get(), 2));
  ASSERT_EQ(S_OK, channel->sWrite(Bstr(u"otra").get(), 0));
  ASSERT_EQ(S_OK, channel->sSkipNPoints(24));
  ASSERT_EQ(S_OK, channel->sCloseGraphicHandle());
  EXPECT_THAT(folder_.contentOf(u"filas.pdf"), testing::StartsWith("%PDF-1.4"));
  EXPECT_NE(S_OK, channel->sCloseGraphicHandle()) << "it is closed";
}

// What a member that is reached by name, with a name as its index, gives.
ComPtr<IUnknown> partOf(IUnknown* whole, TextView name, TextView index = {}) {
  const NamedAccess named(whole);
  const Bstr text(index);
  std::vector<VARIANT> arguments;
  if (!index.empty()) arguments.push_back(holding(VT_BSTR, text.get()));
  Variant result;
  named.invoke(named.idOf(name), DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments, &result);
  return ComPtr<IUnknown>(V_VT(&result) == VT_DISPATCH ? V_UNKNOWN(&result) : nullptr);
}

TEST_F(ReportsOfServer, GiveTheirRowsToAUtilityAsARecordSet) {
  std::vector<std::string> rows;
  utility_.offer(L"fLoadLayout", [](auto&, VARIANT* result, EXCEPINFO*) {
    V_VT(result) = VT_BSTR;
    V_BSTR(result) = allocateBstr(u"diseño");
    return S_OK;
  });
  utility_.offer(L"fApplyLayout", [](auto&, VARIANT* result, EXCEPINFO*) {
    *result = holding(VT_BOOL, VARIANT_TRUE);
    return S_OK;
  });
  const auto nothing = [](auto&, VARIANT*, EXCEPINFO*) { return S_OK; };
  utility_.offer(L"sBindText", nothing);
  utility_.offer(L"sSetFont", nothing);
  utility_.offer(L"sRunReport", [&rows](auto& arguments, VARIANT*, EXCEPINFO*) {
    const auto detail = partOf(V_UNKNOWN(&behind(arguments[0])), u"Sections", u"Detail");
    const auto data = partOf(detail.get(), u"Controls", u"dcOrigenData");
    const client::RecordSet lines(partOf(data.get(), u"Recordset").get());
    if (lines) rows = lines.texts(kLineColumn);
    return S_OK;
  });
  _clsUtilImp* printer = printer_.get();
  auto* service = reinterpret_cast<_clsUtReport*>(static_cast<IDispatch*>(&utility_));
  ASSERT_EQ(S_OK, client::createStartUp()->sInitializePrintLibrary(&printer, &service));
  const auto channel = client::create<_clsARObRep>(client::library(), CLSID_clsARObRep);
  ASSERT_EQ(S_OK, channel->sInit(Bstr(u"").get(), Bstr(u"Filas").get(), ::ePD_Disk));
  ASSERT_EQ(S_OK, channel->sWriteLn(Bstr(u"Año").get(), 0));
  ASSERT_EQ(S_OK, channel->sWriteLn(Bstr(u"Ж").get(), 0));
  EXPECT_EQ(S_OK, channel->sCloseGraphicHandle()) << client::takeErrorText();
  EXPECT_THAT(rows, testing::ElementsAre("Año", "Ж"));
}

}  // namespace
}  // namespace tarvo::com
