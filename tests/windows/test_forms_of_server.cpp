// The form report of the server as a compiled client has it: two sheets, and the question between
// them.
#include "both_sides.h"
#include "early_bound_form.h"
#include "equipment/temporary_folder.h"

namespace tarvo::com {
namespace {

class FormsOfServer : public BothSides {
 protected:
  void SetUp() override {
    BothSides::SetUp();
    folder_.write(u"UNO.ID", "Primera: {R.A}\r\n");
    folder_.write(u"DOS.ID", "Segunda: {R.NADIE}\r\n");
    services_ = client::Services::fromCompanion();
    printer_ = client::createPrinter();
    printer_->SetPrinterName(Bstr(u"file:" + folder_.pathOf(u"hojas.prn")).get());
    printer_->SetCanPrintInTextMode(VARIANT_TRUE);
    printer_->SetChrFormFeed(Bstr(u"\f").get());
    _clsUtilImp* printer = printer_.get();
    _clsUtReport* utility = services_.utReport.get();
    ASSERT_EQ(S_OK, client::createStartUp()->sInitializePrintLibrary(&printer, &utility));
    messages_.offer(L"fAskAcceptCancel", [this](auto& arguments, VARIANT* result, EXCEPINFO*) {
      questions_.push_back(toUtf8(viewOf(V_BSTR(arguments[1]))));
      *result = holding(VT_BOOL, accepts_);
      return S_OK;
    });
  }

  HRESULT init(_clsImplementIDTraduc* client) {
    _clsImplementIDTraduc* given = client;
    const HRESULT status = form_->sInit(
        &given, Bstr(u"Planilla").get(), Bstr(u"").get(), Bstr(u"").get(), Bstr(u"").get(),
        Bstr(folder_.pathOf(u"")).get(), ::ePOD_Definitiva, ::eHP_AmbasHojas);
    EXPECT_EQ(client, given) << "by reference, and not changed";
    return status;
  }
  void nameSheets() {
    ASSERT_EQ(S_OK, form_->SetFileNameIDFirstSheet(Bstr(u"UNO").get()));
    ASSERT_EQ(S_OK, form_->SetFileNameIDSecondSheet(Bstr(u"DOS").get()));
  }

  test::TemporaryFolder folder_;
  client::Services services_;
  ComPtr<_clsUtilImp> printer_;
  client::EarlyBoundForm client_;
  VARIANT_BOOL accepts_ = VARIANT_TRUE;
  std::vector<std::string> questions_;
  ComPtr<_clsObRepPlanilla> form_ =
      client::create<_clsObRepPlanilla>(client::library(), CLSID_clsObRepPlanilla);
};

TEST_F(FormsOfServer, PrintBothSheetsWhenTheSecondOneWasPlaced) {
  ASSERT_EQ(S_OK, init(&client_));
  nameSheets();
  ASSERT_EQ(S_OK, form_->sPrintReport()) << client::takeErrorText();
  EXPECT_THAT(questions_, testing::ElementsAre("Voltear Planilla"));
  EXPECT_THAT(folder_.contentOf(u"hojas.prn"), testing::StartsWith("Primera: valor"));
  EXPECT_THAT(folder_.contentOf(u"hojas.prn.2"), testing::StartsWith("Segunda: "));
}

TEST_F(FormsOfServer, PrintNoSecondSheetWhenItsQuestionWasCancelled) {
  accepts_ = VARIANT_FALSE;
  ASSERT_EQ(S_OK, init(&client_));
  nameSheets();
  ASSERT_EQ(S_OK, form_->sPrintReport()) << client::takeErrorText();
  EXPECT_THAT(questions_, testing::ElementsAre("Voltear Planilla"));
  EXPECT_THAT(folder_.contentOf(u"hojas.prn"), testing::StartsWith("Primera: valor"));
  EXPECT_FALSE(folder_.has(u"hojas.prn.2"));
}

using Getter = HRESULT (STDMETHODCALLTYPE _clsObRepPlanilla::*)(BSTR*);
using Setter = HRESULT (STDMETHODCALLTYPE _clsObRepPlanilla::*)(BSTR);

TEST_F(FormsOfServer, KeepEachSheetsTemplateUntilTheNextReport) {
  constexpr std::pair<Getter, Setter> kNames[] = {
      {&_clsObRepPlanilla::GetFileNameIDFirstSheet, &_clsObRepPlanilla::SetFileNameIDFirstSheet},
      {&_clsObRepPlanilla::GetFileNameIDSecondSheet, &_clsObRepPlanilla::SetFileNameIDSecondSheet},
      {&_clsObRepPlanilla::GetFileNameIDDraft, &_clsObRepPlanilla::SetFileNameIDDraft}};
  const auto all = [&] {
    std::string names;
    for (const auto& [get, set] : kNames) {
      Bstr name;
      EXPECT_EQ(S_OK, (form_.get()->*get)(name.out()));
      names += toUtf8(name.view()) + "|";
    }
    return names;
  };
  EXPECT_EQ("|||", all());
  const TextView values[] = {u"Año 1", u"DOS", u"borrador"};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(S_OK, (form_.get()->*kNames[i].second)(Bstr(values[i]).get()));
  }
  EXPECT_EQ("Año 1|DOS|borrador|", all());
  ASSERT_EQ(S_OK, init(&client_));
  EXPECT_EQ("|||", all());
}

// Nothing is no error before it is asked.
TEST_F(FormsOfServer, NeedTheirClientWhenTheyPrint) {
  ASSERT_EQ(S_OK, init(nullptr));
  nameSheets();
  EXPECT_EQ(static_cast<HRESULT>(0x800A005B), form_->sPrintReport());
  EXPECT_THAT(client::takeErrorText(),
              testing::StartsWith("LibTarvoRdpCI|Object variable not set"));
}

}  // namespace
}  // namespace tarvo::com
