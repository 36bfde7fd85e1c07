// NOT RUN HERE: this project has no .NET.  What the tests do check is that every operation that
// stands here exists, with these parameters in this order.
//
// Prints an invoice of two pages, late bound: no interop assembly is needed.
//
//   csc Invoice.cs                      (.NET Framework; the bitness of the registered servers)
//   Invoice.exe PRINTER FOLDER NUMBER
using System;
using System.Runtime.InteropServices;

static class Program
{
    [STAThread]  // the library keeps its services for each thread's apartment
    static int Main(string[] words)
    {
        if (words.Length != 3)
        {
            Console.Error.WriteLine("usage: Invoice PRINTER FOLDER NUMBER");
            return 2;
        }
        dynamic printer = Create("LibTarvoRdpCI.clsUtilImp");
        try
        {
            FillProfile(printer, words[0]);
            HandOverServices(printer);
            PrintInvoice(words[1], int.Parse(words[2]));
            return 0;
        }
        catch (Exception error)
        {
            // .NET turns some of the library's errors (800A0000 and their number) into exceptions
            // of its own, error 6 into an OverflowException: the number tells them apart.  The
            // message says where it happened: one line for each procedure that the error passed.
            Console.Error.WriteLine("Error {0}: {1}", error.HResult & 0xFFFF, error.Message);
            printer.sCancelPrintProcess();  // the job is still open
            return 1;
        }
    }

    static dynamic Create(string progId)
    {
        return Activator.CreateInstance(Type.GetTypeFromProgID(progId, true));
    }

    // The printer with its control codes, as its manual lists them.
    static void FillProfile(dynamic printer, string name)
    {
        printer.SetPrinterName(name);
        printer.SetCanPrintInTextMode(true);
        printer.SetChrReset("\u001b@");
        printer.SetChrFormFeed("\f");
        printer.SetChrNormal("\u0012");
        printer.SetChrCondensed("\u000f");
        printer.SetChrBold("\u001bE");
        printer.SetChrLight("\u001bF");
        printer.SetChrInitExpanded("\u001bW1");
        printer.SetChrEndExpanded("\u001bW0");
        printer.SetChrInitUnderlying("\u001b-1");
        printer.SetChrEndUnderlying("\u001b-0");
    }

    // Once on each thread that prints.
    static void HandOverServices(dynamic printer)
    {
        dynamic start = Create("LibTarvoRdpCI.clsInitLibTarvoRpd");
        start.sInitializeInternalGlobalClasses(
            Create("LibTarvoCI.clsError"), Create("LibTarvoCI.clsMessage"),
            Create("LibTarvoCI.clsTexto"), Create("LibTarvoCI.clsDefGen"),
            Create("LibTarvoCI.clsConvert"), Create("LibTarvoCI.clsApi"),
            Create("LibTarvoCI.clsUtilFile"), Create("LibTarvoCI.clsUtilDate"),
            Create("LibTarvoCI.clsErrorCodesIG"), Create("LibTarvoCI.clsUtilMathOperations"));
        start.sInitializePrintLibrary(printer, Create("LibTarvoCI.clsUtReport"));
    }

    static void PrintInvoice(string folder, int number)
    {
        if (!folder.EndsWith("\\")) folder += "\\";  // joined with the name as it is
        dynamic report = Create("LibTarvoRdpCI.clsObRepMasterDetail");
        report.sInit(new Invoice(number), "Factura Nº " + number, "", "", "FACTURA", folder, 1);
        report.sPrintReport();
    }
}

// What the report asks the program.  The library calls these by name, so the names are exactly those
// of clsImplementIDMD.  What comes by reference is an `object`: the library lends a variant, and
// takes back whatever was put into it.
[ComVisible(true), ClassInterface(ClassInterfaceType.AutoDispatch)]
public sealed class Invoice
{
    const int AnnulledInvoice = 1255;

    sealed class Item
    {
        public readonly string Description;
        public readonly int Quantity;
        public readonly decimal Price;
        public readonly string Note;

        public Item(string description, int quantity, decimal price, string note)
        {
            Description = description;
            Quantity = quantity;
            Price = price;
            Note = note;
        }

        public decimal Amount { get { return Quantity * Price; } }
    }

    // A real program has a database.
    static readonly Item[] items =
    {
        new Item("Resma de papel tamaño carta", 12, 6.5m, ""),
        new Item("Cinta para impresora", 4, 15.25m, "Garantía de 30 días"),
        new Item("Bolígrafo azul", 50, 0.45m, ""),
        new Item("Cuaderno de 100 hojas", 20, 1.8m, "Entrega parcial: quedan 5 por enviar"),
        new Item("Engrapadora", 2, 24m, ""),
    };

    readonly int number;
    int present;

    public Invoice(int number) { this.number = number; }

    static decimal Total()
    {
        decimal sum = 0;
        foreach (Item item in items) sum += item.Amount;
        return sum;
    }

    // An amount as automation has it.
    static object Amount(decimal value) { return new CurrencyWrapper(value); }

    // Called for each {...} of the template that is not the library's own.  A line may be asked for
    // twice, to measure it and to print it: the same record must always get the same answers.
    public bool fTranslateSpecialVarMD(ref object refLineToWrite, object valMontoSubTotal)
    {
        dynamic line = refLineToWrite;
        dynamic variable = line.GetSpecialVar();
        Item item = items[present];
        // The record's name is as it was written, the field's in capitals.
        switch ((string)variable.GetRecordName() + "." + (string)variable.GetFieldName())
        {
            case "RENGLON.DESCRIPCION": variable.SetContentString(item.Description); return true;
            case "RENGLON.CANTIDAD": variable.SetContentNumeric(item.Quantity, false); return true;
            case "RENGLON.PRECIO": variable.SetContentNumeric(Amount(item.Price), false); return true;
            case "RENGLON.MONTO": variable.SetContentNumeric(Amount(item.Amount), false); return true;
            case "RENGLON.NOTA": variable.SetContentString(item.Note); return true;
            case "FACTURA.NUMERO": variable.SetContentNumeric(number, false); return true;
            case "FACTURA.FECHA": variable.SetContentDate(new DateTime(2026, 3, 15)); return true;
            case "FACTURA.VENCE": variable.SetContentDate(new DateTime(2026, 4, 14)); return true;
            case "FACTURA.CONDICION": variable.SetContentEnum("CR"); return true;
            case "FACTURA.TOTAL": variable.SetContentNumeric(Amount(Total()), false); return true;
            case "CLIENTE.NOMBRE": variable.SetContentString("Begoña Núñez"); return true;
            default: return false;  // "No se encontró" is printed
        }
    }

    // For the line "...PAUSA" of the template.  The report waits.
    public void sDisplayPauseDialog()
    {
        Console.WriteLine("Coloque una hoja en la impresora, y presione Entrar.");
        Console.ReadLine();
    }

    // The records, from the first to the last.  A second copy would begin again.
    public bool fReadFirstRecord()
    {
        present = 0;
        return true;
    }

    public bool fReadNextRecord() { return ++present < items.Length; }

    // After each record: the subtotal that VAN and VIENEN print.
    public void sAccumSubTotal(ref object refMontoSubTotal)
    {
        refMontoSubTotal = Amount(Convert.ToDecimal(refMontoSubTotal) + items[present].Amount);
    }

    // Asked once, before the first copy.
    public bool fCanExecuteWriteReport(ref object refMustShowErrorMsg,
                                       ref object refErrorMsgToDisplay)
    {
        if (number != AnnulledInvoice) return true;
        refMustShowErrorMsg = true;
        refErrorMsgToDisplay = "La factura está anulada.";
        return false;
    }

    // Asked only for a template with {CUERPO=0}, which has no page length.
    public int fDetailRecordCount() { return items.Length; }
}
