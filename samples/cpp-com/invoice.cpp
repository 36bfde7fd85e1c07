// Prints an invoice of two pages: a whole client of the library, in C++ on Windows, early bound.
//
//   invoice.exe PRINTER FOLDER [NUMBER]
//
//   PRINTER  a printer as Windows knows it; or file:PATH, which prints into a file
//   FOLDER   where the template FACTURA.ID is: samples\templates
//   NUMBER   1254, which is printed, or 1255, which was annulled and is refused
//
// Both servers must be registered, in the bitness of this program.  Ends with 0 when the invoice
// was printed or refused, 1 after an error, 2 for wrong arguments.
//
// LibTarvoRdpCI_2402.h, LibTarvoCI_2402.h and what they include come with the servers, in the
// folder "include" (in a build of the project: build/win64/interfaces and tools/interfaces).
// Building:
//
//   x86_64-w64-mingw32-g++ -std=c++20 -municode -static -I INCLUDE invoice.cpp -o invoice.exe
//       -lole32 -loleaut32 -luuid
//   cl /std:c++20 /EHsc /I INCLUDE invoice.cpp ole32.lib oleaut32.lib        (not tried here)
#include <windows.h>
// windows.h must come first; this one makes the identifiers of the interfaces part of the program.
#include <initguid.h>

#include "LibTarvoCI_2402.h"
#include "LibTarvoRdpCI_2402.h"
#include "com_helpers.h"

#include <array>
#include <cstdio>
#include <string>

namespace {

constexpr int kInvoice = 1254;
constexpr int kAnnulledInvoice = 1255;

// --- The program's data.  A real one has a database.

CURRENCY currency(LONGLONG tenThousandths) {
  CURRENCY amount;
  amount.int64 = tenThousandths;
  return amount;
}

struct Item {
  const wchar_t* description;
  int quantity;
  LONGLONG price;  // in ten-thousandths
  const wchar_t* note;

  LONGLONG amount() const { return price * quantity; }
};

constexpr std::array<Item, 5> kItems{{
    {L"Resma de papel tama\u00f1o carta", 12, 65'000, L""},
    {L"Cinta para impresora", 4, 152'500, L"Garant\u00eda de 30 d\u00edas"},
    {L"Bol\u00edgrafo azul", 50, 4'500, L""},
    {L"Cuaderno de 100 hojas", 20, 18'000, L"Entrega parcial: quedan 5 por enviar"},
    {L"Engrapadora", 2, 240'000, L""},
}};

// A date as automation counts it: days since 30 December 1899.
DATE date(WORD year, WORD month, WORD day) {
  SYSTEMTIME parts{};
  parts.wYear = year;
  parts.wMonth = month;
  parts.wDay = day;
  DATE result = 0;
  SystemTimeToVariantTime(&parts, &result);
  return result;
}

VARIANT_BOOL automationBool(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

// A line on the console, in its code page.
void say(const std::wstring& line) {
  const std::wstring text = line + L"\r\n";
  std::string bytes(text.size() * 2, '\0');
  const int size =
      WideCharToMultiByte(CP_OEMCP, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr);
  DWORD written = 0;
  WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), static_cast<DWORD>(size), &written,
            nullptr);
}

// --- What the report asks the program.

class Invoice final : public com::Implements<_clsImplementIDMD> {
 public:
  explicit Invoice(int number) : number_(number) {}

  bool isPrinted() const { return number_ != kAnnulledInvoice; }

  // Called for each {...} of the template that is not the library's own.  A line may be asked for
  // twice, to measure it and to print it: the same record must always get the same answers.
  HRESULT STDMETHODCALLTYPE fTranslateSpecialVarMD(_clsObLineCharacts** refLineToWrite,
                                                   CURRENCY /*valMontoSubTotal*/,
                                                   VARIANT_BOOL* result) override try {
    com::Ref<_clsObSpecialVar> variable;
    com::Text record;  // as it was written
    com::Text field;   // in capitals
    com::check((*refLineToWrite)->GetSpecialVar(variable.out()));
    com::check(variable->GetRecordName(record.out()));
    com::check(variable->GetFieldName(field.out()));
    *result = automationBool(answer(*variable.operator->(), record.str() + L"." + field.str()));
    return S_OK;
  } catch (const com::Error& error) {
    return error.status();  // exceptions do not cross COM
  }

  // For the line "...PAUSA" of the template: here before each page.  The report waits.
  HRESULT STDMETHODCALLTYPE sDisplayPauseDialog() override {
    say(L"Coloque una hoja en la impresora.");
    DWORD mode = 0;
    const bool hasOperator = GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != FALSE;
    if (hasOperator) std::getchar();
    return S_OK;
  }

  // --- The records, from the first to the last.  A second copy would begin again.

  HRESULT STDMETHODCALLTYPE fReadFirstRecord(VARIANT_BOOL* result) override {
    present_ = 0;
    *result = VARIANT_TRUE;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE fReadNextRecord(VARIANT_BOOL* result) override {
    ++present_;
    *result = automationBool(present_ < kItems.size());
    return S_OK;
  }

  // After each record: the subtotal that VAN and VIENEN print.
  HRESULT STDMETHODCALLTYPE sAccumSubTotal(CURRENCY* refMontoSubTotal) override {
    refMontoSubTotal->int64 += kItems[present_].amount();
    return S_OK;
  }

  // Asked once, before the first copy.
  HRESULT STDMETHODCALLTYPE fCanExecuteWriteReport(VARIANT_BOOL* refMustShowErrorMsg,
                                                   BSTR* refErrorMsgToDisplay,
                                                   VARIANT_BOOL* result) override {
    *result = automationBool(isPrinted());
    if (isPrinted()) return S_OK;
    *refMustShowErrorMsg = VARIANT_TRUE;
    SysFreeString(*refErrorMsgToDisplay);  // in and out: what came in is ours to free
    *refErrorMsgToDisplay = com::Text(L"La factura est\u00e1 anulada.").release();
    return S_OK;
  }

  // Asked only for a template with {CUERPO=0}, which has no page length.
  HRESULT STDMETHODCALLTYPE fDetailRecordCount(LONG* result) override {
    *result = static_cast<LONG>(kItems.size());
    return S_OK;
  }

 private:
  // False: "No se encontró" is printed.
  bool answer(_clsObSpecialVar& variable, const std::wstring& name) const {
    const Item& item = kItems[present_];
    if (name == L"RENGLON.DESCRIPCION") return give(variable, item.description);
    if (name == L"RENGLON.CANTIDAD") return give(variable, currency(item.quantity * 10'000));
    if (name == L"RENGLON.PRECIO") return give(variable, currency(item.price));
    if (name == L"RENGLON.MONTO") return give(variable, currency(item.amount()));
    // An empty one suppresses its line (CONDICION).
    if (name == L"RENGLON.NOTA") return give(variable, item.note);
    if (name == L"FACTURA.NUMERO") return give(variable, currency(number_ * 10'000));
    if (name == L"FACTURA.FECHA") return giveDate(variable, date(2026, 3, 15));
    if (name == L"FACTURA.VENCE") return giveDate(variable, date(2026, 4, 14));
    if (name == L"FACTURA.TOTAL") return give(variable, currency(total()));
    if (name == L"CLIENTE.NOMBRE") return give(variable, L"Bego\u00f1a N\u00fa\u00f1ez");
    if (name != L"FACTURA.CONDICION") return false;
    com::check(variable.SetContentEnum(com::Text(L"CR")));  // the template says what is printed
    return true;
  }

  static bool give(_clsObSpecialVar& variable, const wchar_t* text) {
    com::check(variable.SetContentString(com::Text(text)));
    return true;
  }
  static bool give(_clsObSpecialVar& variable, CURRENCY amount) {
    com::check(variable.SetContentNumeric(amount, VARIANT_FALSE));
    return true;
  }
  static bool giveDate(_clsObSpecialVar& variable, DATE value) {
    com::check(variable.SetContentDate(value));
    return true;
  }

  static LONGLONG total() {
    LONGLONG sum = 0;
    for (const Item& item : kItems) sum += item.amount();
    return sum;
  }

  int number_;
  std::size_t present_ = 0;
};

// --- A message service of our own, in place of LibTarvoCI.clsMessage.

class ConsoleMessages final : public com::Implements<_clsMessage> {
 public:
  HRESULT STDMETHODCALLTYPE sShowMessage(BSTR* refText) override { return show(*refText); }
  HRESULT STDMETHODCALLTYPE sShowMessageWithTitle(BSTR valText, BSTR valTitle) override {
    return show(valText, valTitle);
  }
  HRESULT STDMETHODCALLTYPE sWarning(BSTR* refText) override { return show(*refText); }
  HRESULT STDMETHODCALLTYPE sWarningWithTitle(BSTR valText, BSTR valTitle) override {
    return show(valText, valTitle);
  }
  HRESULT STDMETHODCALLTYPE fAskAcceptCancel(BSTR valText, BSTR valTitle,
                                             VARIANT_BOOL* result) override {
    *result = automationBool(MessageBoxW(nullptr, valText, valTitle, MB_OKCANCEL) == IDOK);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE fWarnLocation(BSTR, SHORT, VARIANT_BOOL* result) override {
    *result = VARIANT_TRUE;
    return S_OK;
  }

 private:
  // A text without characters may be a null pointer.
  static std::wstring str(BSTR text) { return {text == nullptr ? L"" : text, SysStringLen(text)}; }

  static HRESULT show(BSTR text, BSTR title = nullptr) {
    say(title == nullptr ? str(text) : L"[" + str(title) + L"] " + str(text));
    return S_OK;
  }
};

// --- Start-up: once on each thread that prints.

// The printer with its control codes, as its manual lists them.
void fillProfile(_clsUtilImp& printer, const wchar_t* name) {
  using com::Text;
  com::check(printer.SetPrinterName(Text(name)));
  com::check(printer.SetCanPrintInTextMode(VARIANT_TRUE));
  com::check(printer.SetChrReset(Text(L"\x1b@")));
  com::check(printer.SetChrFormFeed(Text(L"\f")));
  com::check(printer.SetChrNormal(Text(L"\x12")));
  com::check(printer.SetChrCondensed(Text(L"\x0f")));
  com::check(printer.SetChrBold(Text(L"\x1b\x45")));   // ESC E
  com::check(printer.SetChrLight(Text(L"\x1b\x46")));  // ESC F
  com::check(printer.SetChrInitExpanded(Text(L"\x1bW1")));
  com::check(printer.SetChrEndExpanded(Text(L"\x1bW0")));
  com::check(printer.SetChrInitUnderlying(Text(L"\x1b-1")));
  com::check(printer.SetChrEndUnderlying(Text(L"\x1b-0")));
}

// Services from the companion server, but messages through an object of our own.
void handOverServices(com::Ref<_clsUtilImp>& printer) {
  com::Ref<_clsInitLibTarvoRpd> start;
  com::Ref<_clsError> errors;
  com::Ref<_clsMessage> messages(new ConsoleMessages);
  com::Ref<_clsTexto> texto;
  com::Ref<_clsDefGen> defGen;
  com::Ref<_clsConvert> convert;
  com::Ref<_clsApi> api;
  com::Ref<_clsUtilFile> utilFile;
  com::Ref<_clsUtilDate> utilDate;
  com::Ref<_clsErrorCodesIG> errorCodes;
  com::Ref<_clsUtilMathOperations> mathOperations;
  com::Ref<_clsUtReport> utReport;
  com::create(L"LibTarvoRdpCI.clsInitLibTarvoRpd", start);
  com::create(L"LibTarvoCI.clsError", errors);
  com::create(L"LibTarvoCI.clsTexto", texto);
  com::create(L"LibTarvoCI.clsDefGen", defGen);
  com::create(L"LibTarvoCI.clsConvert", convert);
  com::create(L"LibTarvoCI.clsApi", api);
  com::create(L"LibTarvoCI.clsUtilFile", utilFile);
  com::create(L"LibTarvoCI.clsUtilDate", utilDate);
  com::create(L"LibTarvoCI.clsErrorCodesIG", errorCodes);
  com::create(L"LibTarvoCI.clsUtilMathOperations", mathOperations);
  com::create(L"LibTarvoCI.clsUtReport", utReport);
  com::check(start->sInitializeInternalGlobalClasses(
      errors.inOut(), messages.inOut(), texto.inOut(), defGen.inOut(), convert.inOut(), api.inOut(),
      utilFile.inOut(), utilDate.inOut(), errorCodes.inOut(), mathOperations.inOut()));
  com::check(start->sInitializePrintLibrary(printer.inOut(), utReport.inOut()));
}

void printInvoice(std::wstring folder, int number) {
  if (!folder.ends_with(L'\\')) folder += L'\\';  // folder and name are joined as they are
  const std::wstring numberText = std::to_wstring(number);
  Invoice* const invoice = new Invoice(number);
  com::Ref<_clsImplementIDMD> answers(invoice);
  com::Ref<_clsObRepMasterDetail> report;
  com::create(L"LibTarvoRdpCI.clsObRepMasterDetail", report);
  com::check(report->sInit(answers.inOut(), com::Text(L"Factura N\u00ba " + numberText),
                           com::Text(L""), com::Text(L""), com::Text(L"FACTURA"), com::Text(folder),
                           1));
  com::check(report->sPrintReport());
  say(L"Factura " + numberText + (invoice->isPrinted() ? L" impresa." : L" no impresa."));
}

// Everything of COM's is gone before CoUninitialize.
int run(const wchar_t* printerName, const wchar_t* folder, int number) {
  com::Ref<_clsUtilImp> printer;
  try {
    com::create(L"LibTarvoRdpCI.clsUtilImp", printer);
    fillProfile(*printer.operator->(), printerName);
    handOverServices(printer);
  } catch (const com::Error& error) {
    say(L"The servers cannot be used: " + error.description());
    return 1;
  }
  try {
    printInvoice(folder, number);
    return 0;
  } catch (const com::Error& error) {
    // The status is 800A0000 and the error's number; the description says where it happened: one
    // line for each procedure that it passed.
    say(L"Error " + std::to_wstring(error.status() & 0xFFFF) + L": " + error.description());
    printer->sCancelPrintProcess();  // the job is still open
    return 1;
  }
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  const int number = argc == 4 ? _wtoi(argv[3]) : kInvoice;
  if (argc < 3 || argc > 4 || (number != kInvoice && number != kAnnulledInvoice)) {
    say(L"usage: invoice PRINTER FOLDER [1254|1255]");
    return 2;
  }
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const int status = run(argv[1], argv[2], number);
  CoUninitialize();
  return status;
}
