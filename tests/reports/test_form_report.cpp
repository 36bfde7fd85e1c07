// The form report beyond whole cases: its states, its errors, and what goes wrong in the middle.
#include <gmock/gmock.h>

#include "form_client.h"
#include "report_world.h"
#include "reports/clsObRepPlanilla.h"

namespace tarvo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FormReport : public ::testing::Test {
 protected:
  FormReport() {
    world.files->write(u"F/ANVERSO.ID", templateBytes("uno {NOMBRE}\n...PAUSA\n{NEGRA}dos\n"));
    world.files->write(u"F/REVERSO.ID", templateBytes("tres {NOMBRE}\n"));
    client->values.add("NOMBRE=text Peña");
  }

  void init(ePruebaODefinitiva kind = ePOD_Definitiva, eHojaDeLaPlanilla sheets = eHP_PrimeraHoja) {
    form->sInit(callbacks, u"Recibo", u"", u"", u"", u"F/", kind, sheets);
    form->SetFileNameIDFirstSheet(u"ANVERSO");
    form->SetFileNameIDSecondSheet(u"REVERSO");
    form->SetFileNameIDDraft(u"ANVERSO");
  }

  ReportWorld world;
  Ref<FormClient> client = make<FormClient>(world.calls);
  Ref<clsImplementIDTraduc> callbacks = client;
  Ref<clsObRepPlanilla> form = make<clsObRepPlanilla>(world.ports());
};

constexpr const char* kFirstSheet =
    "[Recibo]\n<1B>@<12>uno Pe<A4>a<0D><0A>\n<1B>Edos<0D><0A>\n<12><0C>\n";

// --- States.

TEST_F(FormReport, HasNoLineObjectUntilALineIsRead) {
  EXPECT_FALSE(form->GetLineToWrite());
  init();
  EXPECT_FALSE(form->GetLineToWrite());
  form->sPrintReport();
  ASSERT_TRUE(form->GetLineToWrite());
  EXPECT_EQ(form->GetLineToWrite()->GetTextToPrint(),
            u"\x1B"
            u"Edos")
      << "the last line";
  const Ref<clsObLineCharacts> line = form->GetLineToWrite();
  form->sPrintReport();
  EXPECT_EQ(form->GetLineToWrite(), line) << "it lives as long as the engine";
  init();
  EXPECT_FALSE(form->GetLineToWrite());
}

TEST_F(FormReport, TranslatingBeforeThereIsALineObjectIsError91) {
  init();
  EXPECT_EQ(errorNumberOf([&] { form->sSearchSpecialVarAndTranslate(u"x"); }), kObjectNotSet);
  EXPECT_EQ(world.error->trail(), "sSearchSpecialVarAndTranslate");
  EXPECT_EQ(world.error->reports.at(0).className, u"clsObRepPlanilla");
  EXPECT_EQ(world.error->reports.at(0).module, u"Lib. Impresión Texto - Ob Rep");
  EXPECT_EQ(world.error->reports.at(0).kind, 2);
}

TEST_F(FormReport, TranslatesLinesForAUserReportWithoutPrinting) {
  form->sInitForUserReport(callbacks);
  ASSERT_TRUE(form->GetLineToWrite());
  EXPECT_TRUE(form->GetLineToWrite()->GetPrintLine()) << "cleared";
  form->sSearchSpecialVarAndTranslate(u"{NOMBRE,6}|{@Total}|{NADA}");
  EXPECT_EQ(form->GetLineToWrite()->GetTextToPrint(), u"Peña  |Total|No se encontró");
  EXPECT_THAT(world.calls.lines(), ElementsAre("client.fTranslateSpecialVar NOMBRE",
                                               "client.fTranslateSpecialVar NADA"));
  form->GetLineToWrite()->sClrRecord();
  form->sSearchSpecialVarAndTranslate(u"... PAUSA");
  EXPECT_TRUE(form->GetLineToWrite()->GetPauseWasRead());
  EXPECT_FALSE(form->GetLineToWrite()->GetPrintLine());
  EXPECT_THAT(world.spoolerCalls.lines(), IsEmpty());
}

TEST_F(FormReport, MakesANewLineObjectForEachUserReport) {
  form->sInitForUserReport(callbacks);
  const Ref<clsObLineCharacts> first = form->GetLineToWrite();
  form->sInitForUserReport(callbacks);
  EXPECT_NE(form->GetLineToWrite(), first);
}

TEST_F(FormReport, InitEmptiesTheNamesOfTheSheets) {
  init();
  form->sInit(callbacks, u"Recibo", u"", u"", u"", u"F/", ePOD_Definitiva, eHP_AmbasHojas);
  EXPECT_EQ(form->GetFileNameIDFirstSheet(), u"");
  EXPECT_EQ(form->GetFileNameIDSecondSheet(), u"");
  EXPECT_EQ(form->GetFileNameIDDraft(), u"");
  form->sPrintReport();
  EXPECT_THAT(world.spoolerCalls.lines(), IsEmpty());
}

TEST_F(FormReport, InitForgetsThatALineWasPrinted) {
  world.files->write(u"F/VACIA.ID", "... nada\n");
  init();
  form->sPrintReport();
  form->sInit(callbacks, u"Otro", u"", u"", u"", u"F/", ePOD_Definitiva, eHP_PrimeraHoja);
  form->SetFileNameIDFirstSheet(u"VACIA");
  form->sPrintReport();
  EXPECT_EQ(world.jobsText(), std::string(kFirstSheet) + "[Otro]\n<1B>@<12><12>\n");
}

TEST_F(FormReport, WithoutInitPrintingAgainPrintsTheSameSheets) {
  init();
  form->sPrintReport();
  form->sPrintReport();
  EXPECT_EQ(world.jobsText(), std::string(kFirstSheet) + kFirstSheet);
}

TEST_F(FormReport, ADefinitiveFormAfterADraftLooksAtTheTextModeAgain) {
  world.printer->SetCanPrintInTextMode(false);
  init(ePOD_Borrador);
  form->sPrintReport();
  form->sPrintReport();
  EXPECT_EQ(world.pageCalls.linesOf("show").size(), 2u);
  init(ePOD_Definitiva);
  form->sPrintReport();
  EXPECT_EQ(world.pageCalls.linesOf("show").size(), 2u);
  EXPECT_EQ(world.calls.linesOf("clsMessage").size(), 1u) << "no text mode";
  EXPECT_THAT(world.spoolerCalls.lines(), IsEmpty());
}

TEST_F(FormReport, LinesAreCountedOnOverTheSheets) {
  world.files->write(u"F/ANVERSO.ID", std::string(200, '\n'));
  world.files->write(u"F/REVERSO.ID", std::string(54, '\n'));
  init(ePOD_Definitiva, eHP_AmbasHojas);
  form->sPrintReport();
  world.files->write(u"F/REVERSO.ID", std::string(55, '\n'));
  init(ePOD_Definitiva, eHP_AmbasHojas);
  EXPECT_EQ(errorNumberOf([&] { form->sPrintReport(); }), kOverflow);
  EXPECT_TRUE(world.error->trail().ends_with(
      "sWriteReport sWriteSecondSheet sWritePlanillaDefinitiva sPrintReport"));
}

TEST_F(FormReport, InitTakesItsStepsInOrder) {
  init();
  form->sPrintReport();
  world.files->write(u"G/ANVERSO.ID", "de G\n");
  world.clock->fault.raiseAt(1, kTypeMismatch);
  EXPECT_EQ(errorNumberOf([&] {
              form->sInit(callbacks, u"Otro", u"", u"", u"", u"G/", ePOD_Definitiva,
                          eHP_PrimeraHoja);
            }),
            kTypeMismatch);
  EXPECT_FALSE(form->GetLineToWrite()) << "dropped before the date is asked for";
  EXPECT_EQ(form->GetFileNameIDFirstSheet(), u"ANVERSO") << "emptied last";
  form->sPrintReport();
  EXPECT_TRUE(world.jobsText().ends_with("[Otro]\n<1B>@<12>de G<0D><0A>\n<12><0C>\n"))
      << world.jobsText();
}

// The operator's message may lead to the client's program, which has the line object.
TEST_F(FormReport, AWarningThatChangesTheLineDoesNotChangeWhatIsPrinted) {
  class Meddler final : public clsMessage {
   public:
    explicit Meddler(clsObRepPlanilla& form) : form_(form) {}
    void sShowMessage(Text&) override {}
    void sShowMessageWithTitle(TextView, TextView) override {}
    void sWarning(Text&) override {
      form_.GetLineToWrite()->SetTextToWrite(Text(5000, u'y'));
      form_.GetLineToWrite()->SetTextToWrite(u"y");
    }
    void sWarningWithTitle(TextView, TextView) override {}
    bool fAskAcceptCancel(TextView, TextView) override { return true; }
    bool fWarnLocation(TextView, std::int16_t) override { return true; }

   private:
    clsObRepPlanilla& form_;
  };
  modRDPGlobalValues::ofThisThread().refInsMessage = make<Meddler>(*form);
  world.files->write(u"F/ANVERSO.ID", std::string(300, 'x') + "\n");
  init();
  form->sPrintReport();
  EXPECT_EQ(world.spooler->bytes(), "\x1B@\x12" + std::string(300, 'x') + "\r\n\x12\f");
}

TEST_F(FormReport, ADefinitiveSheetOfATextPrinterTellsThePageOutputNothing) {
  init();
  form->sPrintReport();
  EXPECT_THAT(world.pageCalls.lines(), IsEmpty());
}

TEST(ReportNames, HaveTheirDefaults) {
  EXPECT_EQ(fileNameTxtOf(u""), u"a");
  EXPECT_EQ(fileNameTxtOf(u"salida"), u"salida");
  EXPECT_EQ(userPrefixOf(u""), u"Infor_");
  EXPECT_EQ(userPrefixOf(u"ana"), u"ana_");
  EXPECT_EQ(userPrefixOf(u"a_na"), u"a_na");
}

// --- Clients that do what they want.

TEST_F(FormReport, AClientMayPutAnotherLineObjectInItsPlace) {
  init();
  const auto other = make<clsObLineCharacts>();
  client->translates = [&](Ref<clsObLineCharacts>& line) {
    other->sClrRecord();
    other->SetTextToWrite(u"otra {x}");
    other->sExtractSpecialVar(u"otra {x}");
    other->GetSpecialVar()->SetContentString(u"!");
    line = other;
    return true;
  };
  form->sPrintReport();
  EXPECT_EQ(form->GetLineToWrite(), other);
}

TEST_F(FormReport, AClientThatTakesTheVariableAwayIsError91) {
  init();
  client->translates = [](Ref<clsObLineCharacts>& line) {
    line->SetSpecialVar(nullptr);
    return false;
  };
  EXPECT_EQ(errorNumberOf([&] { form->sPrintReport(); }), kObjectNotSet);
  EXPECT_TRUE(
      world.error->trail().starts_with("SetSpecialVarString sSearchSpecialVarAndTranslate "))
      << world.error->trail();
}

TEST_F(FormReport, WithoutAClientTheFirstVariableIsError91) {
  callbacks = nullptr;
  init();
  EXPECT_EQ(errorNumberOf([&] { form->sPrintReport(); }), kObjectNotSet);
}

// --- Errors: who signs.

struct Trail {
  const char* shows;
  void (*disturb)(FormReport&, ReportWorld&, FormClient&);
  ePruebaODefinitiva kind;
  eHojaDeLaPlanilla sheets;
  std::int32_t number;
  const char* trail;
};

void PrintTo(const Trail& row, std::ostream* out) { *out << row.shows; }

class FormReportTrails : public FormReport, public ::testing::WithParamInterface<Trail> {};

modRDPGlobalValues& services() { return modRDPGlobalValues::ofThisThread(); }

const Trail kTrails[] = {
    {"NoProfile", [](FormReport&, ReportWorld&, FormClient&) { services().refInsImp = nullptr; },
     ePOD_Definitiva, eHP_PrimeraHoja, kObjectNotSet,
     "fCurrentPrinterAlreadySelected sPrintReport"},
    {"MessageOfTheMissingPrinter",
     [](FormReport&, ReportWorld& w, FormClient&) {
       w.printer->SetPrinterName({});
       w.message->fault.raiseAt(1, kTypeMismatch);
     },
     ePOD_Definitiva, eHP_PrimeraHoja, kTypeMismatch,
     "fCurrentPrinterAlreadySelected sPrintReport"},
    {"MessageOfTheMissingTextMode",
     [](FormReport&, ReportWorld& w, FormClient&) {
       w.printer->SetCanPrintInTextMode(false);
       w.message->fault.raiseAt(1, kTypeMismatch);
     },
     ePOD_Definitiva, eHP_PrimeraHoja, kTypeMismatch,
     "fCanSendReportToCurrentPrinter sWritePlanillaDefinitiva sPrintReport"},
    {"OpeningTheFirstSheet",
     [](FormReport&, ReportWorld& w, FormClient&) { w.spooler->fault.raiseAt(1, kOutOfMemory); },
     ePOD_Definitiva, eHP_PrimeraHoja, kOutOfMemory,
     "sSendJobAndStartNewOne sInitializePrinterFileHandle sWriteFirstSheet "
     "sWritePlanillaDefinitiva sPrintReport"},
    {"OpeningTheSecondSheet",
     [](FormReport&, ReportWorld& w, FormClient&) { w.spooler->fault.raiseAt(1, kOutOfMemory); },
     ePOD_Definitiva, eHP_SegundaHoja, kOutOfMemory,
     "sSendJobAndStartNewOne sInitializePrinterFileHandle sWriteSecondSheet "
     "sWritePlanillaDefinitiva sPrintReport"},
    {"TurningTheSheet",
     [](FormReport&, ReportWorld& w, FormClient&) { w.message->fault.raiseAt(1, kTypeMismatch); },
     ePOD_Definitiva, eHP_AmbasHojas, kTypeMismatch,
     "fFollowingSheetWasPlaced sWriteSecondSheet sWritePlanillaDefinitiva sPrintReport"},
    {"FileService",
     [](FormReport&, ReportWorld& w, FormClient&) {
       w.fileService->fault.raiseAt(1, kTypeMismatch);
     },
     ePOD_Definitiva, eHP_PrimeraHoja, kTypeMismatch,
     "sReadTextFileAndPrint sWriteReport sWriteFirstSheet sWritePlanillaDefinitiva sPrintReport"},
    {"FileServiceOfADraft",
     [](FormReport&, ReportWorld& w, FormClient&) {
       w.fileService->fault.raiseAt(1, kTypeMismatch);
     },
     ePOD_Borrador, eHP_PrimeraHoja, kTypeMismatch,
     "sReadTextFileAndPrint sWriteReport sWritePlanillaDraft sPrintReport"},
    {"MessageOfTheMissingTemplate",
     [](FormReport&, ReportWorld& w, FormClient&) {
       w.files->remove(u"F/ANVERSO.ID");
       w.message->fault.raiseAt(1, kTypeMismatch);
     },
     ePOD_Definitiva, eHP_PrimeraHoja, kTypeMismatch,
     "sSendAlertIDNotFound sReadTextFileAndPrint sWriteReport sWriteFirstSheet "
     "sWritePlanillaDefinitiva sPrintReport"},
    {"Variable", [](FormReport&, ReportWorld&, FormClient& c) { c.fault.raiseAt(1, -2147220991); },
     ePOD_Definitiva, eHP_PrimeraHoja, -2147220991,
     "sSearchSpecialVarAndTranslate sReadTextFileAndPrint sWriteReport sWriteFirstSheet "
     "sWritePlanillaDefinitiva sPrintReport"},
    {"Pause", [](FormReport&, ReportWorld&, FormClient& c) { c.fault.raiseAt(2, kTypeMismatch); },
     ePOD_Definitiva, eHP_PrimeraHoja, kTypeMismatch,
     "sPrintLine sReadTextFileAndPrint sWriteReport sWriteFirstSheet sWritePlanillaDefinitiva "
     "sPrintReport"},
    {"LineOfAPageBreak",
     [](FormReport&, ReportWorld& w, FormClient&) {
       w.files->write(u"F/ANVERSO.ID", "{SALTAPAGINA}a\n");
       w.spooler->fault.raiseAt(6, kOutOfMemory);
     },
     ePOD_Definitiva, eHP_PrimeraHoja, kOutOfMemory,
     "fSendStringToPrinter sWriteToFileHandle sWrite sWriteFormFeed sSkipPage sWriteLine "
     "sPrintLine "
     "sReadTextFileAndPrint sWriteReport sWriteFirstSheet sWritePlanillaDefinitiva sPrintReport"},
    {"ReportUtilityOfADraft",
     [](FormReport&, ReportWorld&, FormClient&) { services().refInsUtReport = nullptr; },
     ePOD_Borrador, eHP_PrimeraHoja, kObjectNotSet,
     "fConfigReport sPrintReport sCloseGraphicHandle sWritePlanillaDraft sPrintReport"},
};

TEST_P(FormReportTrails, NameEveryProcedureFromTheInnermost) {
  init(GetParam().kind, GetParam().sheets);
  GetParam().disturb(*this, world, *client);
  const auto error = errorOf([&] { form->sPrintReport(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), GetParam().number);
  EXPECT_EQ(world.error->trail(), GetParam().trail);
  EXPECT_EQ(world.files->openStreams(), 0);
}

INSTANTIATE_TEST_SUITE_P(All, FormReportTrails, ::testing::ValuesIn(kTrails),
                         [](const auto& row) { return std::string(row.param.shows); });

TEST_F(FormReport, InitSignsItsErrors) {
  world.clock->fault.raiseAt(1, kTypeMismatch);
  EXPECT_EQ(errorNumberOf([&] { init(); }), kTypeMismatch);
  EXPECT_EQ(world.error->trail(), "sInit");
  services().refInsConvert = nullptr;
  EXPECT_EQ(errorNumberOf([&] { init(); }), kObjectNotSet);
  EXPECT_EQ(world.error->trail(), "sInit fReportWidthAccordingToTitleColumns sInit");
  services().refInsTexto = nullptr;
}

// --- Faults as loops: after each one the error is out, nothing stays open, and the next report
// --- prints.

class FormReportFaults : public FormReport {
 protected:
  // Prints with a fault at every nth call in turn until none is reached.
  template <class Arm, class IsPending>
  void atEveryCall(ePruebaODefinitiva kind, std::int32_t number, Arm arm, IsPending isPending,
                   int fewest = 4) {
    int faults = 0;
    for (int nth = 1;; ++nth) {
      ASSERT_LT(nth, 500) << "no end of calls";
      init(kind, eHP_AmbasHojas);
      arm(nth);
      const std::size_t reportsBefore = world.error->reports.size();
      const std::int32_t raised = errorNumberOf([&] { form->sPrintReport(); });
      if (isPending()) {
        EXPECT_EQ(raised, 0);
        arm(0);
        break;
      }
      ++faults;
      EXPECT_EQ(raised, number) << "call " << nth;
      ASSERT_GT(world.error->reports.size(), reportsBefore) << "call " << nth;
      EXPECT_EQ(world.error->reports.back().procedure, u"sPrintReport") << "call " << nth;
      EXPECT_EQ(world.files->openStreams(), 0) << "call " << nth;
      expectThatTheNextReportPrints(nth);
    }
    EXPECT_GE(faults, fewest) << "the loop reached too few calls to mean anything";
  }

  void expectThatTheNextReportPrints(int nth) {
    const auto jobs = world.spooler->jobs().size();
    init();
    form->sPrintReport();
    const std::string all = world.jobsText();
    EXPECT_TRUE(all.ends_with(kFirstSheet)) << "after call " << nth << ": " << all;
    EXPECT_GT(world.spooler->jobs().size(), jobs);
  }
};

TEST_F(FormReportFaults, OfTheSpooler) {
  atEveryCall(
      ePOD_Definitiva, kOutOfMemory,
      [&](int nth) {
        nth == 0 ? world.spooler->fault.never() : world.spooler->fault.raiseAt(nth, kOutOfMemory);
      },
      [&] { return world.spooler->fault.isPending(); });
}

TEST_F(FormReportFaults, OfTheFiles) {
  atEveryCall(
      ePOD_Definitiva, kDeviceError,
      [&](int nth) {
        nth == 0 ? world.files->fault.never() : world.files->fault.raiseAt(nth, kDeviceError);
      },
      [&] { return world.files->fault.isPending(); });
}

TEST_F(FormReportFaults, OfTheFilesOfADraft) {
  atEveryCall(
      ePOD_Borrador, kDeviceError,
      [&](int nth) {
        nth == 0 ? world.files->fault.never() : world.files->fault.raiseAt(nth, kDeviceError);
      },
      [&] { return world.files->fault.isPending(); });
}

TEST_F(FormReportFaults, OfTheClient) {
  world.files->write(u"F/REVERSO.ID", "{NOMBRE}{NOMBRE}\n...PAUSA\n{NOMBRE}\n");
  atEveryCall(
      ePOD_Definitiva, kTypeMismatch,
      [&](int nth) {
        nth == 0 ? client->fault.never() : client->fault.raiseAt(nth, kTypeMismatch);
      },
      [&] { return client->fault.isPending(); });
}

TEST_F(FormReportFaults, OfTheFileService) {
  atEveryCall(
      ePOD_Definitiva, kDeviceError,
      [&](int nth) {
        nth == 0 ? world.fileService->fault.never()
                 : world.fileService->fault.raiseAt(nth, kDeviceError);
      },
      [&] { return world.fileService->fault.isPending(); }, 2);
}

TEST_F(FormReportFaults, OfTheMessageService) {
  world.files->write(u"F/ANVERSO.ID",
                     std::string(300, 'x') + "\nuno {NOMBRE}\n" + std::string(300, 'x') + "\n");
  int faults = 0;
  for (int nth = 1;; ++nth) {
    init(ePOD_Definitiva, eHP_AmbasHojas);
    world.message->fault.raiseAt(nth, kTypeMismatch);
    const std::int32_t raised = errorNumberOf([&] { form->sPrintReport(); });
    if (world.message->fault.isPending()) break;
    ++faults;
    EXPECT_EQ(raised, kTypeMismatch);
    EXPECT_EQ(world.files->openStreams(), 0);
  }
  EXPECT_EQ(faults, 3) << "two warnings and the question";
}

// What the spooler answers changes nothing, but for opening the printer, which is told.
TEST_F(FormReportFaults, OfTheSpoolersAnswers) {
  for (int nth = 1;; ++nth) {
    ReportWorld fresh;
    fresh.files->write(u"F/ANVERSO.ID", "uno\n");
    const Ref<FailingSpooler> failing = make<FailingSpooler>(nth);
    const auto printer = make<clsUtilImp>(make<RecordingSpooler>(fresh.spoolerCalls, failing));
    fillReportProfile(*printer);
    modRDPGlobalValues::ofThisThread().refInsImp = printer;
    const auto sheet = make<clsObRepPlanilla>(fresh.ports());
    sheet->sInit(callbacks, u"Recibo", u"", u"", u"", u"F/", ePOD_Definitiva, eHP_PrimeraHoja);
    sheet->SetFileNameIDFirstSheet(u"ANVERSO");
    sheet->sPrintReport();
    if (!failing->hasFailed()) {
      EXPECT_GT(nth, 10);
      break;
    }
    EXPECT_EQ(fresh.spoolerCalls.linesOf("write").size(), 5u) << "call " << nth;
    EXPECT_EQ(fresh.calls.linesOf("clsMessage").size(), nth == 1 ? 1u : 0u) << "call " << nth;
  }
}

// --- Templates that change while they are read.

TEST_F(FormReport, ATemplateThatVanishesAfterTheQuestionIsError53) {
  init();
  world.files->beforeAccess = [&](int) { world.files->remove(u"F/ANVERSO.ID"); };
  EXPECT_EQ(errorNumberOf([&] { form->sPrintReport(); }), kFileNotFound);
  EXPECT_TRUE(world.error->trail().starts_with("sReadTextFileAndPrint sWriteReport "));
}

TEST_F(FormReport, ATemplateThatGrowsWhileItIsReadPrintsWhatItHoldsThen) {
  init();
  world.files->beforeAccess = [&](int access) {
    if (access == 3) world.files->append(u"F/ANVERSO.ID", "nueva\n");
  };
  form->sPrintReport();
  EXPECT_EQ(world.jobsText(),
            "[Recibo]\n<1B>@<12>uno Pe<A4>a<0D><0A>\n<1B>Edos<0D><0A>\nnueva<0D><0A>\n<12><0C>\n");
}

TEST_F(FormReport, ATemplateThatIsCutShortWhileItIsReadEndsThere) {
  init();
  world.files->beforeAccess = [&](int access) {
    if (access == 4) world.files->remove(u"F/ANVERSO.ID");
  };
  form->sPrintReport();
  EXPECT_EQ(world.jobsText(), "[Recibo]\n<1B>@<12>uno Pe<A4>a<0D><0A>\n<12><0C>\n");
}

// --- Long and odd templates.

TEST_F(FormReport, ALineOfAMegabyteIsPrintedWhole) {
  world.files->write(u"F/ANVERSO.ID", std::string(1 << 20, 'x') + "\n");
  init();
  form->sPrintReport();
  EXPECT_EQ(world.spooler->bytes(), "\x1B@\x12" + std::string(1 << 20, 'x') + "\r\n\x12\f");
  EXPECT_EQ(world.calls.linesOf("clsMessage.sWarning").size(), 1u);
}

TEST_F(FormReport, LinesMayEndAsOnWindowsAndTheLastOneNotAtAll) {
  for (const char* bytes : {"uno\r\ndos\r\n", "uno\ndos\n", "uno\r\ndos", "uno\ndos"}) {
    world.files->write(u"F/ANVERSO.ID", bytes);
    init();
    form->sPrintReport();
    EXPECT_TRUE(
        world.jobsText().ends_with("[Recibo]\n<1B>@<12>uno<0D><0A>\ndos<0D><0A>\n<12><0C>\n"))
        << bytes;
  }
}

TEST_F(FormReport, ALoneNulIsPrintedAsItIs) {
  world.files->write(u"F/ANVERSO.ID", std::string(1, '\0'));
  init();
  form->sPrintReport();
  EXPECT_EQ(world.spooler->bytes(), std::string("\x1B@\x12\0\r\n\x12\f", 8));
}

TEST_F(FormReport, MoreLinesThanAPageCanCountAreAnOverflow) {
  world.files->write(u"F/ANVERSO.ID", std::string(255, '\n'));
  init();
  EXPECT_EQ(errorNumberOf([&] { form->sPrintReport(); }), kOverflow);
  EXPECT_TRUE(world.error->trail().starts_with("sWriteLineNoSkipPage sPrintLine "));
}

}  // namespace
}  // namespace tarvo::test
