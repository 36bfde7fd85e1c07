// Clients of the master-detail report that answer little, or do in a callback what they should not.
#include "master_detail_report.h"

namespace tarvo::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kNothingToPrint =
    "clsMessage.sShowMessageWithTitle \"No se encontró información para imprimir.\", \"Impresión "
    "de "
    "Informe\"";

constexpr const char* kTemplate =
    "{A}\n{CUERPO=2}\n{CODIGO}\n{UNINSERTOCUERPO}\n{B}\n{FINCUERPO}\n{C}\n";

class MasterDetailClients : public MasterDetailReport {
 protected:
  MasterDetailClients() { write(kTemplate); }

  void initWith(Ref<clsImplementIDMD> other, int copies = 1) {
    report->sInit(other, u"Factura", u"", u"", u"FACTURA", u"F/", narrow<std::int16_t>(copies));
  }
};

TEST_F(MasterDetailClients, TheDefaultClassPrintsNoCopyAndShowsNothingOfItsOwn) {
  initWith(make<clsImplementIDMD>(), 3);
  report->sPrintReport();
  EXPECT_EQ(world.jobsText(), "[Factura]\n<1B>@<12><12>\n");
  EXPECT_THAT(world.calls.lines(), ElementsAre(kNothingToPrint));
  EXPECT_EQ(world.files->opened(), 0) << "the template is not read";
}

// The default class, but for the permission.
class PermittingClient : public clsImplementIDMD {
 public:
  bool fCanExecuteWriteReport(bool&, Text&) override { return true; }
};

TEST_F(MasterDetailClients, TheDefaultClassWithAPermissionKnowsNoValueAndNoRecord) {
  initWith(make<PermittingClient>());
  EXPECT_EQ(printed(), "No se encontr\xA2\r\n\r\nNo se encontr\xA2\r\nNo se encontr\xA2\r\n");
  EXPECT_FALSE(report->GetEndOfDetailRecords()) << "they never began";
}

TEST_F(MasterDetailClients, TheDefaultClassCountsNoRecordOfAnUnlimitedBody) {
  write("{CUERPO=0}\n{CODIGO}\n{UNINSERTOCUERPO}\nx\n{FINCUERPO}\n");
  initWith(make<PermittingClient>());
  EXPECT_EQ(printed(), "x\r\n");
}

TEST_F(MasterDetailClients, ACountOfRecordsThatIsTooSmallFillsNothing) {
  class Miscounting final : public PermittingClient {
   public:
    bool fReadFirstRecord() override { return true; }
    bool fReadNextRecord() override { return ++read_ < 3; }
    std::int32_t fDetailRecordCount() override { return -7; }

   private:
    int read_ = 0;
  };
  write("{CUERPO=0}\nx\n{UNINSERTOCUERPO}\ny\n{FINCUERPO}\nz\n");
  initWith(make<Miscounting>());
  EXPECT_EQ(printed(), "x\r\nx\r\nx\r\ny\r\nz\r\n");
}

TEST_F(MasterDetailClients, AClientThatAnswersFalseToEverythingPrintsNothing) {
  client->canPrint = false;
  client->translates = [](Ref<clsObLineCharacts>&) { return false; };
  init();
  report->sPrintReport();
  EXPECT_THAT(world.calls.lines(),
              ElementsAre("client.fCanExecuteWriteReport false, \"\"", kNothingToPrint));
}

TEST_F(MasterDetailClients, APermissionIsAPermissionWhateverTheMessage) {
  client->showsRefusal = true;
  client->refusal = u"nada";
  init();
  EXPECT_EQ(countOf(printed(), "No se encontr"), 3);
  EXPECT_THAT(world.calls.linesOf("clsMessage"), IsEmpty());
}

TEST_F(MasterDetailClients, ARefusalThatIsNotToBeShownIsNotShown) {
  client->canPrint = false;
  client->refusal = u"nada";
  init();
  report->sPrintReport();
  EXPECT_THAT(world.calls.linesOf("clsMessage"), ElementsAre(kNothingToPrint));
}

TEST_F(MasterDetailClients, WithoutAClientPrintingIsError91) {
  initWith(nullptr);
  EXPECT_EQ(errorOfPrinting(), kObjectNotSet);
  EXPECT_EQ(world.error->trail(), "sWriteNCopiesOfReport sPrintReport");
}

TEST_F(MasterDetailClients, WithoutInitThereIsNoTemplate) {
  report->sPrintReport();
  EXPECT_THAT(world.calls.lines(),
              ElementsAre("clsMessage.sShowMessageWithTitle \"La plantilla de impresión .ID no fue "
                          "encontrada, chequee su directorio de instalación a ver si encuentra el "
                          "archivo de nombre: .ID\", \"Archivo no encontrado\""));
}

TEST_F(MasterDetailClients, TheSubtotalIsTheClientsToChange) {
  write("{CUERPO=1}\n{CODIGO}\n{FINCUERPO}\n{VAN,6}\n");
  addRecord("A", "5");
  addRecord("B", "5");
  client->beforeCall = [&](const std::string& call) {
    if (call.starts_with("sAccumSubTotal")) report->SetMontoSubTotalVan(Currency::ofUnits(90));
  };
  init();
  EXPECT_EQ(printed(), "A\r\n 95,00\r\n\fB\r\n  0,00\r\n");
}

TEST_F(MasterDetailClients, AnotherLineObjectInThePlaceOfTheReportsIsPrinted) {
  const auto other = make<clsObLineCharacts>();
  client->translates = [&](Ref<clsObLineCharacts>& line) {
    other->sClrRecord();
    other->SetTextToWrite(u"otra {x}");
    other->sExtractSpecialVar(u"otra {x}");
    other->GetSpecialVar()->SetContentString(u"!");
    line = other;
    return true;
  };
  write("{A}\n{CUERPO=1}\n{FINCUERPO}\n");
  init();
  EXPECT_EQ(printed(), "otra !\r\n\r\n");
}

TEST_F(MasterDetailClients, TakingTheLineObjectOrItsVariableAwayIsError91) {
  client->translates = [](Ref<clsObLineCharacts>& line) {
    line = nullptr;
    return true;
  };
  init();
  EXPECT_EQ(errorOfPrinting(), kObjectNotSet);
  client->translates = [](Ref<clsObLineCharacts>& line) {
    line->SetSpecialVar(nullptr);
    return true;
  };
  init();
  EXPECT_EQ(errorOfPrinting(), kObjectNotSet);
  EXPECT_EQ(world.files->openStreams(), 0);
}

// --- Callbacks that start the report anew.  What is printed is nobody's promise; the report lives.

class MasterDetailReentry : public MasterDetailClients {
 protected:
  MasterDetailReentry() {
    write("{CAB}\n{CUERPO=4}\n" + std::string(40, 'x') + "{REPEAT}{TEXTO}\n" +
          std::string(40, 'y') + "{CODIGO}\n{UNINSERTOCUERPO}\n" + std::string(40, 'z') +
          "{REPEAT}{TEXTO}\n{FINCUERPO}\n{PIE}\n");
    addRecord("A");
    addRecord("B");
    client->repeats["TEXTO"] = {"uno", "dos"};
  }

  // Does that in every nth callback in turn, once in each report.
  void inEveryCallback(const std::function<void()>& action) {
    for (int nth = 1;; ++nth) {
      client->restart();
      client->beforeCall = nullptr;
      init(2);
      int calls = 0;
      client->beforeCall = [&](const std::string&) {
        if (++calls == nth) action();
      };
      const std::int32_t raised = errorOfPrinting();
      EXPECT_TRUE(raised == 0 || raised == kObjectNotSet || raised == kOverflow)
          << "callback " << nth << ": " << raised;
      EXPECT_EQ(world.files->openStreams(), 0);
      if (calls < nth) break;
      ASSERT_LT(nth, 500);
    }
    client->restart();
    client->beforeCall = nullptr;
    init();
    EXPECT_EQ(countOf(printed(), "xuno\r\n"), 2) << "afterwards it prints as ever";
  }
};

TEST_F(MasterDetailReentry, ByInitIsBorne) {
  inEveryCallback([this] { init(2); });
}

TEST_F(MasterDetailReentry, ByInitAndPrintingIsBorne) {
  inEveryCallback([this] {
    init(1);
    errorOfPrinting();
  });
}

TEST_F(MasterDetailReentry, ByPrintingIsBorne) {
  inEveryCallback([this] { errorOfPrinting(); });
}

TEST_F(MasterDetailReentry, ByInitAndAReportThatFailsIsBorne) {
  inEveryCallback([this] {
    init(1);
    client->fault.raiseAt(5, kOverflow);
    errorOfPrinting();
    client->fault.never();
  });
}

TEST_F(MasterDetailReentry, OfAnotherReportIsBorne) {
  inEveryCallback([this] {
    const auto other = make<clsObRepMasterDetail>(world.ports());
    other->sInit(callbacks, u"Otra", u"", u"", u"FACTURA", u"F/", 1);
    errorNumberOf([&] { other->sPrintReport(); });
  });
}

}  // namespace
}  // namespace tarvo::test
