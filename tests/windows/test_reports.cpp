// The reports of the server as a compiled client has them: through the tables of functions, with a
// client object that has nothing else either.
#include <fstream>
#include <functional>

#include "both_sides.h"
#include "early_bound_answers.h"
#include "equipment/temporary_folder.h"
#include "graphic/clsARObRep_members.h"
#include "graphic/line_table.h"
#include "record_set.h"
#include "reports/clsObRepMasterDetail_members.h"
#include "reports/clsObRepPlanilla_members.h"
#include "script_host.h"

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

// --- Page breaks and reports that lead to themselves, on the stack of a program whose maker asked
// --- for none: the client gets error 28 and goes on.

constexpr SIZE_T kSmallStack = SIZE_T{1} << 20;

// Of the present thread, used or not.
SIZE_T stackSize() {
  MEMORY_BASIC_INFORMATION stack{};
  VirtualQuery(&stack, &stack, sizeof stack);
  const auto* thread = reinterpret_cast<const NT_TIB*>(NtCurrentTeb());
  return static_cast<SIZE_T>(static_cast<const char*>(thread->StackBase) -
                             static_cast<const char*>(stack.AllocationBase));
}

DWORD WINAPI runAction(void* action) {
  (*static_cast<const std::function<void()>*>(action))();
  return 0;
}

// The action in a thread of its own.
void onSmallStack(std::function<void()> action) {
  constexpr SIZE_T kMostRoundedUp = SIZE_T{64} << 10;
  std::function<void()> measured = [&action] {
    ASSERT_LE(stackSize(), kSmallStack + kMostRoundedUp);
    ASSERT_EQ(S_OK, CoInitialize(nullptr));
    action();
    CoUninitialize();
  };
  const HANDLE thread = CreateThread(nullptr, kSmallStack, runAction, &measured,
                                     STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
  ASSERT_NE(nullptr, thread);
  EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(thread, INFINITE));
  CloseHandle(thread);
}

// A report of the present thread, with the services and the printer, which are the thread's too.
class ReportOfThread {
 public:
  explicit ReportOfThread(const test::TemporaryFolder& folder) : folder_(folder) {
    printer_->SetCanPrintInTextMode(VARIANT_TRUE);
    printer_->SetChrFormFeed(Bstr(u"\f").get());
    const auto startUp = client::createStartUp();
    _clsUtilImp* printer = printer_.get();
    _clsUtReport* utility = services_.utReport.get();
    EXPECT_EQ(S_OK, services_.handOver(startUp.get()));
    EXPECT_EQ(S_OK, startUp->sInitializePrintLibrary(&printer, &utility));
  }
  ReportOfThread(const ReportOfThread&) = delete;
  ReportOfThread& operator=(const ReportOfThread&) = delete;
  ~ReportOfThread() { client::handOverNothing(); }

  _clsObRepMasterDetail* operator->() const { return report_.get(); }
  IUnknown* object() const { return report_.get(); }

  // The template, in a file of its own, on pages of the first length: that of a template stays with
  // the printer.
  void use(const char* typed) {
    folder_.write(u"HILO.ID", typed);
    printed_ = u"hilo" + fromAscii(std::to_string(++files_)) + u".prn";
    printer_->SetPrinterName(Bstr(u"file:" + folder_.pathOf(printed_)).get());
    printer_->SetMaxLinPage(60);
  }

  // Prints the template for the client.
  HRESULT print(_clsImplementIDMD* answers, const char* typed, BYTE topMarginLines) {
    use(typed);
    EXPECT_EQ(S_OK, report_->sInit(&answers, Bstr(u"Hilo").get(), Bstr(u"").get(), Bstr(u"").get(),
                                   Bstr(u"HILO").get(), Bstr(folder_.pathOf(u"")).get(), 1));
    EXPECT_EQ(S_OK, report_->SetTopMarginLines(topMarginLines));
    return report_->sPrintReport();
  }

  std::string printed() const { return folder_.contentOf(printed_); }

 private:
  const test::TemporaryFolder& folder_;
  client::Services services_ = client::Services::fromCompanion();
  ComPtr<_clsUtilImp> printer_ = client::createPrinter();
  ComPtr<_clsObRepMasterDetail> report_ =
      client::create<_clsObRepMasterDetail>(client::library(), CLSID_clsObRepMasterDetail);
  Text printed_;
  int files_ = 0;
};

struct EndlessReport {
  const char* shows;
  const char* typed;
  BYTE topMarginLines;
};

constexpr EndlessReport kEndlessReports[] = {
    {"the word in the header", "{A}{SALTAPAGINA}\r\n{CUERPO=2}\r\n{FINCUERPO}\r\n", 0},
    {"the word in a header that repeats",
     "{SALTAPAGINA}{REPEAT}{A}\r\n{CUERPO=2}\r\n{FINCUERPO}\r\n", 0},
    {"a margin as long as its page", "...NMAXLINPAGINA=2\r\n{A}\r\n{CUERPO=2}\r\n{FINCUERPO}\r\n",
     2},
    {"a margin longer than its page", "...NMAXLINPAGINA=2\r\n{A}\r\n{CUERPO=2}\r\n{FINCUERPO}\r\n",
     255},
    {"the word under a margin", "{A}\r\n{CUERPO=5}\r\n{SALTAPAGINA}x\r\n{FINCUERPO}\r\n", 1},
};

constexpr const char* kPlain = "{A}\r\n{CUERPO=2}\r\n{A}\r\n{FINCUERPO}\r\n";

TEST_F(ReportsOfServer, EndBreaksThatLeadToThemselvesOnASmallStack) {
  onSmallStack([this] {
    ReportOfThread report(folder_);
    for (const EndlessReport& row : kEndlessReports) {
      EXPECT_EQ(kOutOfStack, report.print(&answers_, row.typed, row.topMarginLines)) << row.shows;
      EXPECT_THAT(client::takeErrorText(),
                  testing::HasSubstr("clsObRepMasterDetail.sPrintPageHeader"))
          << row.shows;
      EXPECT_EQ(S_OK, report.print(&answers_, kPlain, 0)) << "after " << row.shows;
      EXPECT_EQ("13\r\n13\r\n\r\n\f", report.printed()) << row.shows;
    }
  });
}

constexpr TextView kScriptClient =
    uR"(
Class Client
  Public again

  Public Function fTranslateSpecialVarMD(refLineToWrite, valMontoSubTotal)
    refLineToWrite.GetSpecialVar.SetContentString "guion"
    fTranslateSpecialVarMD = True
  End Function
  Public Sub sDisplayPauseDialog
  End Sub
  Public Function fReadFirstRecord
    If again Then informe.sPrintReport
    fReadFirstRecord = True
  End Function
  Public Function fReadNextRecord
    fReadNextRecord = False
  End Function
  Public Sub sAccumSubTotal(refMontoSubTotal)
  End Sub
  Public Function fCanExecuteWriteReport(refMustShowErrorMsg, refErrorMsgToDisplay)
    fCanExecuteWriteReport = True
  End Function
  Public Function fDetailRecordCount
    fDetailRecordCount = 1
  End Function
End Class
Dim answers, number
Set answers = New Client
)";

// The script prints; "0", or the number of the error that it gets.
std::string printByScript(ScriptHost& host) {
  EXPECT_EQ("", host.run(u"On Error Resume Next\nErr.Clear\ninforme.sPrintReport\n"
                         u"number = CStr(Err.Number)\nErr.Clear"));
  return host.text(L"number");
}

TEST_F(ReportsOfServer, EndBreaksThatLeadToThemselvesForAScriptOnASmallStack) {
  onSmallStack([this] {
    ReportOfThread report(folder_);
    ScriptHost host(L"VBScript");
    ASSERT_TRUE(host.isThere());
    host.add(L"informe", report.object());
    ASSERT_EQ("", host.run(kScriptClient));
    const Text begin = u"informe.sInit answers, \"Hilo\", \"\", \"\", \"HILO\", \"" +
                       folder_.pathOf(u"") + u"\", 1\ninforme.SetTopMarginLines ";
    const auto print = [&](const char* typed, int topMarginLines) {
      report.use(typed);
      EXPECT_EQ("", host.run(begin + fromAscii(std::to_string(topMarginLines))));
      return printByScript(host);
    };
    for (const EndlessReport& row : kEndlessReports) {
      EXPECT_EQ("28", print(row.typed, row.topMarginLines)) << row.shows;
      EXPECT_EQ("0", print(kPlain, 0)) << "after " << row.shows;
      EXPECT_EQ("guion\r\nguion\r\n\r\n\f", report.printed()) << row.shows;
    }
    ASSERT_EQ("", host.run(u"answers.again = True"));
    EXPECT_EQ("28", print(kPlain, 0)) << "a report that prints itself";
    ASSERT_EQ("", host.run(u"answers.again = False"));
    EXPECT_EQ("0", print(kPlain, 0));
    ASSERT_EQ("", host.run(u"informe.sInit Nothing, \"\", \"\", \"\", \"\", \"\", 1"));
  });
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
