// Prints on a printer what the tests of the back-ends compare.
//
//   print_samples calibration PRINTER   the test page as job "Página de prueba", the two rules as
//                                       jobs of "Reglas Nº 2" (one each)
//   print_samples bulk PRINTER LINES    so many numbered lines as job "Listado"
//   print_samples title PRINTER TITLE   one line as job TITLE
//   print_samples pause PRINTER         one line; waits for a line on the standard input before the
//                                       document ends
//   print_samples close PRINTER         one line of a document that is closed without being ended
//   print_samples reopen PRINTER NEXT   one line of the document "Abierto", which is left without
//                                       being ended or closed; then, on the same spooler, two lines
//                                       of "Siguiente" on the printer NEXT
//
// The spooler's answers of "pause", "close", "bulk" and "reopen" are printed, with its code after a
// failure.
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "services/all.h"

namespace {

using tarvo::PrinterHandle;
using tarvo::Ref;
using tarvo::Spooler;
using tarvo::Text;
using tarvo::TextView;

void printCalibration(TextView printer) {
  const Ref<tarvo::clsUtilImp> channel = tarvo::make<tarvo::clsUtilImp>();
  channel->SetChrReset(TextView(u"\x1B@\0", 3));
  channel->SetChrNormal(u"\x12");
  channel->SetChrCondensed(u"\x0F");
  channel->SetChrBold(
      u"\x1B"
      u"E");
  channel->SetChrLight(
      u"\x1B"
      u"F");
  channel->SetChrFormFeed(u"\f");
  channel->SetChrHighLine1Point(
      u"\x1B"
      u"A\x01");
  channel->SetChrHighLine12Points(
      u"\x1B"
      u"A\x0C");

  channel->sInitializePrinterFileHandle(printer, u"P\u00E1gina de prueba");
  channel->sPrintTestPage();
  channel->sWriteLn(u"\u00E1\u00E9\u00ED\u00F3\u00FA\u00F1\u00D1\u00BA \u20AC \u00FC \u0416", 3);
  channel->sClosePrinterFileHandle();

  channel->sInitializePrinterFileHandle(printer, u"Reglas N\u00BA 2");
  channel->sPrintVerticalRule(3, true);
  channel->sSendJobAndStartNewOne();
  channel->sPrintHorizontalRule(true, 8, 13);
  channel->sClosePrinterFileHandle();
}

// One step of a document; tells how it went.
bool step(Spooler& spooler, const char* name, bool answer) {
  if (answer) {
    std::printf("%s: true\n", name);
  } else {
    std::printf("%s: false, error %d\n", name, spooler.lastError());
  }
  std::fflush(stdout);
  return answer;
}

// Opens the printer and writes the lines of a document that goes on; false when it cannot begin.
bool beginDocument(Spooler& spooler, TextView printer, const Text& title, int lines,
                   PrinterHandle& handle) {
  if (!step(spooler, "openPrinter", spooler.openPrinter(printer, handle))) return false;
  if (!step(spooler, "startDocument", spooler.startDocument(handle, {title, {}, {}}))) return false;
  spooler.startPage(handle);
  bool written = true;
  for (int i = 1; i <= lines; ++i) {
    written &= spooler.write(handle, std::to_string(i) + " " + std::string(70, '.') + "\r\n");
  }
  step(spooler, "write", written);
  return true;
}

int printDocument(const std::string& command, TextView printer, int lines) {
  const Ref<Spooler> spooler = tarvo::makeSpooler();
  PrinterHandle handle = 0;
  if (!beginDocument(*spooler, printer, u"Listado", lines, handle)) return 1;
  if (command == "pause") {
    std::string line;
    std::getline(std::cin, line);
  }
  spooler->endPage(handle);
  if (command != "close") {
    step(*spooler, "endDocument", spooler->endDocument(handle));
  }
  return step(*spooler, "closePrinter", spooler->closePrinter(handle)) ? 0 : 1;
}

int printReopened(TextView printer, TextView next) {
  const Ref<Spooler> spooler = tarvo::makeSpooler();
  PrinterHandle left = 0;
  if (!beginDocument(*spooler, printer, u"Abierto", 1, left)) return 1;
  PrinterHandle handle = 0;
  const bool goesOn = beginDocument(*spooler, next, u"Siguiente", 2, handle);
  step(*spooler, "endDocument of the first", spooler->endDocument(left));
  if (!goesOn) return 1;
  step(*spooler, "endDocument", spooler->endDocument(handle));
  return step(*spooler, "closePrinter", spooler->closePrinter(handle)) ? 0 : 1;
}

void printTitled(TextView printer, TextView title) {
  const Ref<tarvo::clsUtilImp> channel = tarvo::make<tarvo::clsUtilImp>();
  channel->sInitializePrinterFileHandle(printer, title);
  channel->sWriteLn(u"una l\u00EDnea", 0);
  channel->sClosePrinterFileHandle();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const std::string command = argv[1];
  const Text printer = tarvo::fromUtf8(argv[2]);
  LibTarvoCI::CoreServices services;
  services.handTo(*tarvo::make<tarvo::clsInitLibTarvoRpd>());
  if (command == "calibration") {
    printCalibration(printer);
  } else if (command == "title" && argc == 4) {
    printTitled(printer, tarvo::fromUtf8(argv[3]));
  } else if (command == "reopen" && argc == 4) {
    return printReopened(printer, tarvo::fromUtf8(argv[3]));
  } else if (command == "bulk" && argc == 4) {
    return printDocument(command, printer, std::atoi(argv[3]));
  } else if (command == "pause" || command == "close") {
    return printDocument(command, printer, 1);
  } else {
    return 2;
  }
  return 0;
}
