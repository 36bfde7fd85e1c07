// Prints an invoice of two pages: a whole client of the library, in JScript.
//
//   cscript //nologo invoice.js PRINTER FOLDER [NUMBER]
//
//   PRINTER  a printer as Windows knows it; or file:PATH, which prints into a file
//   FOLDER   where the template FACTURA.ID is: samples\templates
//   NUMBER   1254, which is printed, or 1255, which was annulled and is refused
//
// Both servers must be registered.  Ends with 0 when the invoice was printed or refused, 1 after an
// error, 2 for wrong arguments.  With wscript instead of cscript, messages are windows.
//
// JScript passes everything by value: what a callback puts into a by-reference argument never comes
// back.  This client shows the two ways around it, at sAccumSubTotal and fCanExecuteWriteReport.
//
// Keep this file in the system's single-byte code page (Windows-1252): the script host reads it so.

var PRINTED_INVOICE = 1254;
var ANNULLED_INVOICE = 1255;

// --- The program's data.  A real one has a database.  Prices are cents: they have no fractions.

function Item(description, quantity, price, note) {
  this.description = description;
  this.quantity = quantity;
  this.price = price;
  this.note = note;
}
Item.prototype.amount = function() { return this.quantity * this.price; };

var items = [
  new Item("Resma de papel tamaño carta", 12, 650, ""),
  new Item("Cinta para impresora", 4, 1525, "Garantía de 30 días"),
  new Item("Bolígrafo azul", 50, 45, ""),
  new Item("Cuaderno de 100 hojas", 20, 180, "Entrega parcial: quedan 5 por enviar"),
  new Item("Engrapadora", 2, 2400, "")
];

function totalOf(count) {
  var cents = 0;
  for (var i = 0; i < count; ++i) cents += items[i].amount();
  return cents / 100;
}

// A date as automation counts it: days since 30 December 1899.
function automationDate(year, month, day) {
  return (Date.UTC(year, month - 1, day) - Date.UTC(1899, 11, 30)) / 86400000;
}

// --- A message service of our own, in place of LibTarvoCI.clsMessage.

function show(text, title) { WScript.Echo(title ? "[" + title + "] " + text : text); }

var messages = {
  sShowMessage: function(text) { show(text); },
  sShowMessageWithTitle: show,
  sWarning: function(text) { show(text); },
  sWarningWithTitle: show,
  fAskAcceptCancel: function(text, title) {
    var okAndCancel = 1, ok = 1;
    var shell = new ActiveXObject("WScript.Shell");
    return shell.Popup(text, 0, title, okAndCancel) == ok;
  },
  fWarnLocation: function(project, code) { return true; }
};

// --- What the report asks the program.  Every operation of clsImplementIDMD has to be here.

function Invoice(number, title, report) {
  this.number = number;
  this.title = title;
  this.report = report;
  this.present = 0;
}

Invoice.prototype = {
  isPrinted: function() { return this.number != ANNULLED_INVOICE; },

  // Called for each {...} of the template that is not the library's own.  A line may be asked for
  // twice, to measure it and to print it: the same record must always get the same answers.
  fTranslateSpecialVarMD: function(line, subtotal) {
    var variable = line.GetSpecialVar();
    var item = items[this.present];
    // The record's name is as it was written, the field's in capitals.
    switch (variable.GetRecordName() + "." + variable.GetFieldName()) {
      case "RENGLON.DESCRIPCION": variable.SetContentString(item.description); break;
      case "RENGLON.CANTIDAD": variable.SetContentNumeric(item.quantity, false); break;
      case "RENGLON.PRECIO": variable.SetContentNumeric(item.price / 100, false); break;
      case "RENGLON.MONTO": variable.SetContentNumeric(item.amount() / 100, false); break;
      // An empty one suppresses its line (CONDICION).
      case "RENGLON.NOTA": variable.SetContentString(item.note); break;
      case "FACTURA.NUMERO": variable.SetContentNumeric(this.number, false); break;
      case "FACTURA.FECHA": variable.SetContentDate(automationDate(2026, 3, 15)); break;
      case "FACTURA.VENCE": variable.SetContentDate(automationDate(2026, 4, 14)); break;
      // The template says what is printed for it.
      case "FACTURA.CONDICION": variable.SetContentEnum("CR"); break;
      case "FACTURA.TOTAL": variable.SetContentNumeric(totalOf(items.length), false); break;
      case "CLIENTE.NOMBRE": variable.SetContentString("Begoña Núñez"); break;
      default: return false;  // "No se encontró" is printed
    }
    return true;
  },

  // For the line "...PAUSA" of the template: here before each page.  The report waits; wscript
  // shows a window, so that the operator has time.
  sDisplayPauseDialog: function() { WScript.Echo("Coloque una hoja en la impresora."); },

  // The records, from the first to the last.  A second copy would begin again.
  fReadFirstRecord: function() {
    this.present = 0;
    return true;
  },

  // The subtotal that VAN and VIENEN print is set here, in the report itself: sAccumSubTotal was
  // called just before, but what it puts into its argument is lost.
  fReadNextRecord: function() {
    ++this.present;
    this.report.SetMontoSubTotalVan(totalOf(this.present));
    return this.present < items.length;
  },
  sAccumSubTotal: function(subtotal) {},

  // Asked once, before the first copy.  The library cannot learn our message, so we show it.
  fCanExecuteWriteReport: function(mustShow, message) {
    if (!this.isPrinted()) show("La factura está anulada.", "Impresión de " + this.title);
    return this.isPrinted();
  },

  // Asked only for a template with {CUERPO=0}, which has no page length.
  fDetailRecordCount: function() { return items.length; }
};

// --- Start-up, and the report.

// The printer with its control codes, as its manual lists them.
function fillProfile(printer, name) {
  printer.SetPrinterName(name);
  printer.SetCanPrintInTextMode(true);
  printer.SetChrReset("\x1b@");
  printer.SetChrFormFeed("\x0c");
  printer.SetChrNormal("\x12");
  printer.SetChrCondensed("\x0f");
  printer.SetChrBold("\x1b\x45");   // ESC E
  printer.SetChrLight("\x1b\x46");  // ESC F
  printer.SetChrInitExpanded("\x1bW1");
  printer.SetChrEndExpanded("\x1bW0");
  printer.SetChrInitUnderlying("\x1b-1");
  printer.SetChrEndUnderlying("\x1b-0");
}

function service(name) { return new ActiveXObject("LibTarvoCI." + name); }

// Once: services from the companion server, but messages through an object of our own.
function handOverServices(printer) {
  var start = new ActiveXObject("LibTarvoRdpCI.clsInitLibTarvoRpd");
  start.sInitializeInternalGlobalClasses(service("clsError"), messages, service("clsTexto"),
      service("clsDefGen"), service("clsConvert"), service("clsApi"), service("clsUtilFile"),
      service("clsUtilDate"), service("clsErrorCodesIG"), service("clsUtilMathOperations"));
  start.sInitializePrintLibrary(printer, service("clsUtReport"));
}

function printInvoice(number, folder) {
  if (folder.charAt(folder.length - 1) != "\\") folder += "\\";  // joined with the name as it is
  var title = "Factura Nº " + number;
  var report = new ActiveXObject("LibTarvoRdpCI.clsObRepMasterDetail");
  var answers = new Invoice(number, title, report);
  report.sInit(answers, title, "", "", "FACTURA", folder, 1);
  report.sPrintReport();
  WScript.Echo("Factura " + number + (answers.isPrinted() ? " impresa." : " no impresa."));
}

var words = WScript.Arguments;
var number = words.length == 3 ? Number(words(2)) : PRINTED_INVOICE;
if (words.length < 2 || words.length > 3 ||
    (number != PRINTED_INVOICE && number != ANNULLED_INVOICE)) {
  WScript.Echo("usage: invoice.js PRINTER FOLDER [1254|1255]");
  WScript.Quit(2);
}
var printer = new ActiveXObject("LibTarvoRdpCI.clsUtilImp");
fillProfile(printer, words(0));
handOverServices(printer);
try {
  printInvoice(number, words(1));
} catch (error) {
  // The number holds 800A0000 and the error's own; the description says where it happened: one line
  // for each procedure that it passed.
  WScript.Echo("Error " + (error.number & 0xFFFF) + ": " + error.description);
  printer.sCancelPrintProcess();  // the job is still open
  WScript.Quit(1);
}
WScript.Quit(0);
