# NOT RUN HERE: this project has no PowerShell.  What the tests do check is that every operation that
# stands here exists, with these parameters in this order.
#
# Prints an invoice of two pages, with Windows PowerShell 5.1 in the bitness of the registered
# servers:
#
#   powershell -STA -File invoice.ps1 PRINTER FOLDER [NUMBER]
#
# The library calls its callback object by name.  A class of .NET can be called so, a class of
# PowerShell cannot; so the few lines of one are compiled here, and the script only gives the data.
#
# Keep this file in UTF-8 with its byte order mark, or PowerShell 5.1 reads the accents wrongly.
param(
    [Parameter(Mandatory)] [string] $PrinterName,
    [Parameter(Mandatory)] [string] $Folder,
    [int] $Number = 1254
)
$ErrorActionPreference = 'Stop'
$annulledInvoice = 1255

Add-Type -Language CSharp -ReferencedAssemblies Microsoft.CSharp, System.Core -TypeDefinition @'
using System;
using System.Collections;
using System.Runtime.InteropServices;

// Answers from tables: those of the present record, then those of the document.
[ComVisible(true), ClassInterface(ClassInterfaceType.AutoDispatch)]
public sealed class TableAnswers
{
    public IDictionary Document;
    public IDictionary[] Records;
    public string AmountName;  // of the record field that is added up
    public string Refusal;     // empty: may be printed
    int present;

    public bool fTranslateSpecialVarMD(ref object refLineToWrite, object valMontoSubTotal)
    {
        dynamic line = refLineToWrite;
        dynamic variable = line.GetSpecialVar();
        string name = (string)variable.GetRecordName() + "." + (string)variable.GetFieldName();
        object value = Records[present][name] ?? Document[name];
        if (value is string) variable.SetContentString((string)value);
        else if (value is DateTime) variable.SetContentDate((DateTime)value);
        else if (value is char[]) variable.SetContentEnum(new string((char[])value));
        else if (value != null) variable.SetContentNumeric(Amount(value), false);
        return value != null;
    }

    public void sDisplayPauseDialog()
    {
        Console.WriteLine("Coloque una hoja en la impresora, y presione Entrar.");
        Console.ReadLine();
    }

    public bool fReadFirstRecord() { present = 0; return Records.Length > 0; }
    public bool fReadNextRecord()
    {
        if (present + 1 >= Records.Length) return false;
        ++present;
        return true;
    }

    public void sAccumSubTotal(ref object refMontoSubTotal)
    {
        decimal amount = Convert.ToDecimal(Records[present][AmountName]);
        refMontoSubTotal = Amount(Convert.ToDecimal(refMontoSubTotal) + amount);
    }

    public bool fCanExecuteWriteReport(ref object refMustShowErrorMsg,
                                       ref object refErrorMsgToDisplay)
    {
        if (string.IsNullOrEmpty(Refusal)) return true;
        refMustShowErrorMsg = true;
        refErrorMsgToDisplay = Refusal;
        return false;
    }

    public int fDetailRecordCount() { return Records.Length; }

    static object Amount(object value) { return new CurrencyWrapper(Convert.ToDecimal(value)); }
}
'@

# --- The data.  A real script reads them.

$items = @(
    @('Resma de papel tamaño carta', 12, 6.5, ''),
    @('Cinta para impresora', 4, 15.25, 'Garantía de 30 días'),
    @('Bolígrafo azul', 50, 0.45, ''),
    @('Cuaderno de 100 hojas', 20, 1.8, 'Entrega parcial: quedan 5 por enviar'),
    @('Engrapadora', 2, 24, '')
)
$total = [decimal] 0
$records = foreach ($item in $items) {
    $amount = [decimal] $item[1] * [decimal] $item[2]
    $total += $amount
    @{
        'RENGLON.DESCRIPCION' = $item[0]
        'RENGLON.CANTIDAD'    = $item[1]
        'RENGLON.PRECIO'      = $item[2]
        'RENGLON.MONTO'       = $amount
        'RENGLON.NOTA'        = $item[3]
    }
}

$answers = New-Object TableAnswers
$answers.Records = $records
$answers.AmountName = 'RENGLON.MONTO'
$answers.Document = @{
    'FACTURA.NUMERO'    = $Number
    'FACTURA.FECHA'     = [datetime] '2026-03-15'
    'FACTURA.VENCE'     = [datetime] '2026-04-14'
    'FACTURA.CONDICION' = 'CR'.ToCharArray()  # an enumeration: the template says what is printed
    'FACTURA.TOTAL'     = $total
    'CLIENTE.NOMBRE'    = 'Begoña Núñez'
}
if ($Number -eq $annulledInvoice) { $answers.Refusal = 'La factura está anulada.' }

# --- Start-up.

function New-Service($name) { New-Object -ComObject "LibTarvoCI.$name" }

$escape = [string] [char] 27
$printer = New-Object -ComObject LibTarvoRdpCI.clsUtilImp
$printer.SetPrinterName($PrinterName)
$printer.SetCanPrintInTextMode($true)
$printer.SetChrReset($escape + '@')
$printer.SetChrFormFeed([string] [char] 12)
$printer.SetChrNormal([string] [char] 18)
$printer.SetChrCondensed([string] [char] 15)
$printer.SetChrBold($escape + 'E')
$printer.SetChrLight($escape + 'F')
$printer.SetChrInitExpanded($escape + 'W1')
$printer.SetChrEndExpanded($escape + 'W0')
$printer.SetChrInitUnderlying($escape + '-1')
$printer.SetChrEndUnderlying($escape + '-0')

$start = New-Object -ComObject LibTarvoRdpCI.clsInitLibTarvoRpd
$start.sInitializeInternalGlobalClasses(
    (New-Service clsError), (New-Service clsMessage), (New-Service clsTexto),
    (New-Service clsDefGen), (New-Service clsConvert), (New-Service clsApi),
    (New-Service clsUtilFile), (New-Service clsUtilDate), (New-Service clsErrorCodesIG),
    (New-Service clsUtilMathOperations))
$start.sInitializePrintLibrary($printer, (New-Service clsUtReport))

# --- The report.  Folder and template name are joined as they are.

if (-not $Folder.EndsWith('\')) { $Folder += '\' }
$report = New-Object -ComObject LibTarvoRdpCI.clsObRepMasterDetail
try {
    $report.sInit($answers, "Factura Nº $Number", '', '', 'FACTURA', $Folder, 1)
    $report.sPrintReport()
}
catch {
    # The message says where it happened: one line for each procedure that the error passed.
    Write-Host "Error $($_.Exception.HResult -band 0xFFFF): $($_.Exception.Message)"
    $printer.sCancelPrintProcess()  # the job is still open
    exit 1
}
