// Prints an invoice of two pages: a whole client of the library, in C++ on Linux.
//
//   invoice PRINTER FOLDER [NUMBER]
//
//   PRINTER  a CUPS queue; or file:PATH, which prints into a file
//   FOLDER   where the template FACTURA.ID is: samples/templates
//   NUMBER   1254, which is printed, or 1255, which was annulled and is refused
//
// Ends with 0 when the invoice was printed or refused, 1 after an error, 2 for wrong arguments.
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "frame/clsImplementIDMD.h"
#include "printer/clsUtilImp.h"
#include "reports/clsObRepMasterDetail.h"
#include "services/all.h"
#include "template/clsObLineCharacts.h"

using tarvo::Currency;
using tarvo::make;
using tarvo::Ref;
using tarvo::Text;
using tarvo::TextView;

namespace {

constexpr int kInvoice = 1254;
constexpr int kAnnulledInvoice = 1255;

// --- The program's data.  A real one has a database.

struct Item {
  TextView description;
  int quantity;
  Currency price;  // in ten-thousandths
  TextView note;

  Currency amount() const { return {price.tenThousandths * quantity}; }
};

constexpr std::array<Item, 5> kItems{{
    {u"Resma de papel tamaño carta", 12, {65'000}, u""},
    {u"Cinta para impresora", 4, {152'500}, u"Garantía de 30 días"},
    {u"Bolígrafo azul", 50, {4'500}, u""},
    {u"Cuaderno de 100 hojas", 20, {18'000}, u"Entrega parcial: quedan 5 por enviar"},
    {u"Engrapadora", 2, {240'000}, u""},
}};

// --- What the report asks the program.

class Invoice final : public tarvo::clsImplementIDMD {
 public:
  explicit Invoice(int number) : number_(number) {}

  bool isPrinted() const { return number_ != kAnnulledInvoice; }

  // Called for each {...} of the template that is not the library's own.  A line may be asked for
  // twice, to measure it and to print it: the same record must always get the same answers.
  bool fTranslateSpecialVarMD(Ref<tarvo::clsObLineCharacts>& refLineToWrite,
                              Currency /*valMontoSubTotal*/) override {
    tarvo::clsObSpecialVar& variable = *refLineToWrite->GetSpecialVar();
    const Text& record = variable.GetRecordName();  // as it was written
    const Text& field = variable.GetFieldName();    // in capitals
    if (record == u"RENGLON") return answerItem(variable, field);
    if (record == u"FACTURA") return answerInvoice(variable, field);
    if (record == u"CLIENTE" && field == u"NOMBRE") {
      variable.SetContentString(u"Begoña Núñez");
      return true;
    }
    return false;  // "No se encontró" is printed
  }

  // For the line "...PAUSA" of the template: here before each page.  The report waits.
  void sDisplayPauseDialog() override {
    std::puts("Coloque una hoja en la impresora.");
    std::fflush(stdout);
    if (isatty(STDIN_FILENO) != 0) std::getchar();
  }

  // --- The records, from the first to the last.  A second copy would begin again.

  bool fReadFirstRecord() override {
    present_ = 0;
    return !kItems.empty();
  }
  bool fReadNextRecord() override { return ++present_ < kItems.size(); }

  // After each record: the subtotal that VAN and VIENEN print.
  void sAccumSubTotal(Currency& refMontoSubTotal) override {
    refMontoSubTotal += kItems[present_].amount();
  }

  // Asked once, before the first copy.
  bool fCanExecuteWriteReport(bool& refMustShowErrorMsg, Text& refErrorMsgToDisplay) override {
    if (isPrinted()) return true;
    refMustShowErrorMsg = true;
    refErrorMsgToDisplay = u"La factura está anulada.";
    return false;
  }

  // Asked only for a template with {CUERPO=0}, which has no page length.
  std::int32_t fDetailRecordCount() override { return static_cast<std::int32_t>(kItems.size()); }

 private:
  bool answerItem(tarvo::clsObSpecialVar& variable, TextView field) const {
    const Item& item = kItems[present_];
    if (field == u"DESCRIPCION") {
      variable.SetContentString(item.description);
    } else if (field == u"CANTIDAD") {
      variable.SetContentNumeric(Currency::ofUnits(item.quantity), false);
    } else if (field == u"PRECIO") {
      variable.SetContentNumeric(item.price, false);
    } else if (field == u"MONTO") {
      variable.SetContentNumeric(item.amount(), false);
    } else if (field == u"NOTA") {
      variable.SetContentString(item.note);  // an empty one suppresses its line (CONDICION)
    } else {
      return false;
    }
    return true;
  }

  bool answerInvoice(tarvo::clsObSpecialVar& variable, TextView field) const {
    if (field == u"NUMERO") {
      variable.SetContentNumeric(Currency::ofUnits(number_), false);
    } else if (field == u"FECHA") {
      variable.SetContentDate(tarvo::dateOf({2026, 3, 15}));
    } else if (field == u"VENCE") {
      variable.SetContentDate(tarvo::dateOf({2026, 4, 14}));
    } else if (field == u"CONDICION") {
      variable.SetContentEnum(u"CR");  // the template says what is printed for it
    } else if (field == u"TOTAL") {
      variable.SetContentNumeric(total(), false);
    } else {
      return false;
    }
    return true;
  }

  static Currency total() {
    Currency sum;
    for (const Item& item : kItems) sum += item.amount();
    return sum;
  }

  int number_;
  std::size_t present_ = 0;
};

// --- Start-up: once on each thread that prints.

// The printer with its control codes, as its manual lists them.
Ref<tarvo::clsUtilImp> makePrinter(TextView name) {
  auto printer = make<tarvo::clsUtilImp>();
  printer->SetPrinterName(name);
  printer->SetCanPrintInTextMode(true);
  printer->SetChrReset(u"\x1b@");
  printer->SetChrFormFeed(u"\f");
  printer->SetChrNormal(u"\x12");
  printer->SetChrCondensed(u"\x0f");
  printer->SetChrBold(u"\x1b\x45");   // ESC E
  printer->SetChrLight(u"\x1b\x46");  // ESC F
  printer->SetChrInitExpanded(u"\x1bW1");
  printer->SetChrEndExpanded(u"\x1bW0");
  printer->SetChrInitUnderlying(u"\x1b-1");
  printer->SetChrEndUnderlying(u"\x1b-0");
  return printer;
}

void print(Ref<tarvo::clsUtilImp>& printer, Text folder, int number) {
  // The stand-ins serve well; a service of your own goes into `services` before handTo().
  LibTarvoCI::CoreServices services;
  services.handTo(*make<tarvo::clsInitLibTarvoRpd>(), printer);

  if (!folder.ends_with(u'/')) folder += u'/';  // folder and name are joined as they are
  const auto invoice = make<Invoice>(number);
  Ref<tarvo::clsImplementIDMD> answers = invoice;
  const auto report = make<tarvo::clsObRepMasterDetail>();
  const Text title = u"Factura Nº " + tarvo::fromUtf8(std::to_string(number));
  report->sInit(answers, title, u"", u"", u"FACTURA", folder, 1);
  report->sPrintReport();
  std::printf("Factura %d %s.\n", number, invoice->isPrinted() ? "impresa" : "no impresa");
}

}  // namespace

int main(int argc, char** argv) {
  const int number = argc == 4 ? std::atoi(argv[3]) : kInvoice;
  if (argc < 3 || argc > 4 || (number != kInvoice && number != kAnnulledInvoice)) {
    std::fputs("usage: invoice PRINTER FOLDER [1254|1255]\n", stderr);
    return 2;
  }
  Ref<tarvo::clsUtilImp> printer = makePrinter(tarvo::fromUtf8(argv[1]));
  try {
    print(printer, tarvo::fromUtf8(argv[2]), number);
    return 0;
  } catch (const tarvo::RunTimeError& error) {
    // The description says where it happened: one line for each procedure that it passed.
    std::fprintf(stderr, "Error %d: %s\n", static_cast<int>(error.number()),
                 tarvo::toUtf8(error.description()).c_str());
    printer->sCancelPrintProcess();  // the job is still open
    return 1;
  }
}
