' Prints an invoice of two pages: a whole client of the library, in VBScript.
'
'   cscript //nologo invoice.vbs PRINTER FOLDER [NUMBER]
'
'   PRINTER  a printer as Windows knows it; or file:PATH, which prints into a file
'   FOLDER   where the template FACTURA.ID is: samples\templates
'   NUMBER   1254, which is printed, or 1255, which was annulled and is refused
'
' Both servers must be registered.  Ends with 0 when the invoice was printed or refused, 1 after an
' error, 2 for wrong arguments.  With wscript instead of cscript, messages are windows.
'
' Keep this file in the system's single-byte code page (Windows-1252): the script host reads it so.
Option Explicit

Const PrintedInvoice = 1254
Const AnnulledInvoice = 1255

Dim printer, number
number = PrintedInvoice
If WScript.Arguments.Count = 3 Then number = CLng(WScript.Arguments(2))
If WScript.Arguments.Count < 2 Or WScript.Arguments.Count > 3 Or _
    (number <> PrintedInvoice And number <> AnnulledInvoice) Then
  WScript.Echo "usage: invoice.vbs PRINTER FOLDER [1254|1255]"
  WScript.Quit 2
End If

Set printer = CreateObject("LibTarvoRdpCI.clsUtilImp")
FillProfile WScript.Arguments(0)
HandOverServices

On Error Resume Next
PrintInvoice WScript.Arguments(1)
If Err.Number <> 0 Then
  ' The description says where it happened: one line for each procedure that it passed.
  WScript.Echo "Error " & Err.Number & ": " & Err.Description
  printer.sCancelPrintProcess  ' the job is still open
  WScript.Quit 1
End If
WScript.Quit 0

' The printer with its control codes, as its manual lists them.
Sub FillProfile(printerName)
  Dim escape
  escape = Chr(27)
  printer.SetPrinterName printerName
  printer.SetCanPrintInTextMode True
  printer.SetChrReset escape & "@"
  printer.SetChrFormFeed Chr(12)
  printer.SetChrNormal Chr(18)
  printer.SetChrCondensed Chr(15)
  printer.SetChrBold escape & "E"
  printer.SetChrLight escape & "F"
  printer.SetChrInitExpanded escape & "W1"
  printer.SetChrEndExpanded escape & "W0"
  printer.SetChrInitUnderlying escape & "-1"
  printer.SetChrEndUnderlying escape & "-0"
End Sub

' Start-up, once: services from the companion server, but messages through an object of our own.
Sub HandOverServices
  Dim start
  Set start = CreateObject("LibTarvoRdpCI.clsInitLibTarvoRpd")
  start.sInitializeInternalGlobalClasses CreateObject("LibTarvoCI.clsError"), _
      New ScriptMessages, CreateObject("LibTarvoCI.clsTexto"), _
      CreateObject("LibTarvoCI.clsDefGen"), CreateObject("LibTarvoCI.clsConvert"), _
      CreateObject("LibTarvoCI.clsApi"), CreateObject("LibTarvoCI.clsUtilFile"), _
      CreateObject("LibTarvoCI.clsUtilDate"), CreateObject("LibTarvoCI.clsErrorCodesIG"), _
      CreateObject("LibTarvoCI.clsUtilMathOperations")
  start.sInitializePrintLibrary printer, CreateObject("LibTarvoCI.clsUtReport")
End Sub

Sub PrintInvoice(folder)
  Dim report, answers
  If Right(folder, 1) <> "\" Then folder = folder & "\"  ' folder and name are joined as they are
  Set answers = New Invoice
  Set report = CreateObject("LibTarvoRdpCI.clsObRepMasterDetail")
  report.sInit answers, "Factura Nº " & number, "", "", "FACTURA", folder, 1
  report.sPrintReport
  If answers.IsPrinted Then
    WScript.Echo "Factura " & number & " impresa."
  Else
    WScript.Echo "Factura " & number & " no impresa."
  End If
End Sub

' --- What the report asks the program.  Every operation of clsImplementIDMD has to be here.
Class Invoice
  Private items   ' description, quantity, price, note; a real program has a database
  Private present

  Private Sub Class_Initialize
    items = Array( _
        Array("Resma de papel tamaño carta", 12, CCur(6.5), ""), _
        Array("Cinta para impresora", 4, CCur(15.25), "Garantía de 30 días"), _
        Array("Bolígrafo azul", 50, CCur(0.45), ""), _
        Array("Cuaderno de 100 hojas", 20, CCur(1.8), "Entrega parcial: quedan 5 por enviar"), _
        Array("Engrapadora", 2, CCur(24), ""))
    present = 0
  End Sub

  Public Property Get IsPrinted
    IsPrinted = number <> AnnulledInvoice
  End Property

  Private Function AmountOf(item)
    AmountOf = items(item)(1) * items(item)(2)
  End Function

  Private Function Total
    Dim item
    Total = CCur(0)
    For item = 0 To UBound(items)
      Total = Total + AmountOf(item)
    Next
  End Function

  ' Called for each {...} of the template that is not the library's own.  A line may be asked for
  ' twice, to measure it and to print it: the same record must always get the same answers.
  Public Function fTranslateSpecialVarMD(refLineToWrite, valMontoSubTotal)
    Dim variable
    Set variable = refLineToWrite.GetSpecialVar
    fTranslateSpecialVarMD = True
    ' The record's name is as it was written, the field's in capitals.
    Select Case variable.GetRecordName & "." & variable.GetFieldName
      Case "RENGLON.DESCRIPCION"
        variable.SetContentString items(present)(0)
      Case "RENGLON.CANTIDAD"
        variable.SetContentNumeric items(present)(1), False
      Case "RENGLON.PRECIO"
        variable.SetContentNumeric items(present)(2), False
      Case "RENGLON.MONTO"
        variable.SetContentNumeric AmountOf(present), False
      Case "RENGLON.NOTA"
        variable.SetContentString items(present)(3)  ' an empty one suppresses its line (CONDICION)
      Case "FACTURA.NUMERO"
        variable.SetContentNumeric number, False
      Case "FACTURA.FECHA"
        variable.SetContentDate DateSerial(2026, 3, 15)
      Case "FACTURA.VENCE"
        variable.SetContentDate DateSerial(2026, 4, 14)
      Case "FACTURA.CONDICION"
        variable.SetContentEnum "CR"  ' the template says what is printed for it
      Case "FACTURA.TOTAL"
        variable.SetContentNumeric Total, False
      Case "CLIENTE.NOMBRE"
        variable.SetContentString "Begoña Núñez"
      Case Else
        fTranslateSpecialVarMD = False  ' "No se encontró" is printed
    End Select
  End Function

  ' For the line "...PAUSA" of the template: here before each page.  The report waits; wscript shows
  ' a window, so that the operator has time.
  Public Sub sDisplayPauseDialog
    WScript.Echo "Coloque una hoja en la impresora."
  End Sub

  ' The records, from the first to the last.  A second copy would begin again.
  Public Function fReadFirstRecord
    present = 0
    fReadFirstRecord = True
  End Function
  Public Function fReadNextRecord
    present = present + 1
    fReadNextRecord = present <= UBound(items)
  End Function

  ' After each record: the subtotal that VAN and VIENEN print.
  Public Sub sAccumSubTotal(refMontoSubTotal)
    refMontoSubTotal = refMontoSubTotal + AmountOf(present)
  End Sub

  ' Asked once, before the first copy.
  Public Function fCanExecuteWriteReport(refMustShowErrorMsg, refErrorMsgToDisplay)
    fCanExecuteWriteReport = IsPrinted
    If Not IsPrinted Then
      refMustShowErrorMsg = True
      refErrorMsgToDisplay = "La factura está anulada."
    End If
  End Function

  ' Asked only for a template with {CUERPO=0}, which has no page length.
  Public Function fDetailRecordCount
    fDetailRecordCount = UBound(items) + 1
  End Function
End Class

' --- A message service of our own, in place of LibTarvoCI.clsMessage.
Class ScriptMessages
  Public Sub sShowMessage(refText)
    WScript.Echo refText
  End Sub
  Public Sub sShowMessageWithTitle(valText, valTitle)
    WScript.Echo "[" & valTitle & "] " & valText
  End Sub
  Public Sub sWarning(refText)
    WScript.Echo refText
  End Sub
  Public Sub sWarningWithTitle(valText, valTitle)
    WScript.Echo "[" & valTitle & "] " & valText
  End Sub
  Public Function fAskAcceptCancel(valText, valTitle)
    fAskAcceptCancel = MsgBox(valText, vbOKCancel, valTitle) = vbOK
  End Function
  Public Function fWarnLocation(valProjectTitle, valLocationCode)
    fWarnLocation = True
  End Function
End Class
