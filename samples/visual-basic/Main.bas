Attribute VB_Name = "Main"
' NOT RUN HERE: this project has no Visual Basic 6.  What the tests do check is that every operation
' that stands here exists, with these parameters in this order.
'
' Prints the invoice of Invoice.cls, early bound.  The program's arguments: PRINTER;FOLDER;NUMBER
Option Explicit

Sub Main()
  Dim words() As String
  words = Split(Command$, ";")
  If UBound(words) <> 2 Then
    MsgBox "Invoice PRINTER;FOLDER;NUMBER"
    Exit Sub
  End If
  Dim printer As LibTarvoRdpCI.clsUtilImp
  Set printer = New LibTarvoRdpCI.clsUtilImp
  On Error GoTo Failed
  FillProfile printer, words(0)
  HandOverServices printer
  PrintInvoice words(1), CLng(words(2))
  Exit Sub

Failed:
  ' The description says where it happened: one line for each procedure that it passed.
  MsgBox "Error " & Err.Number & ": " & Err.Description, vbCritical
  printer.sCancelPrintProcess   ' the job is still open
End Sub

' The printer with its control codes, as its manual lists them.
Private Sub FillProfile(printer As LibTarvoRdpCI.clsUtilImp, printerName As String)
  Dim escape As String
  escape = Chr$(27)
  printer.SetPrinterName printerName
  printer.SetCanPrintInTextMode True
  printer.SetChrReset escape & "@"
  printer.SetChrFormFeed Chr$(12)
  printer.SetChrNormal Chr$(18)
  printer.SetChrCondensed Chr$(15)
  printer.SetChrBold escape & "E"
  printer.SetChrLight escape & "F"
  printer.SetChrInitExpanded escape & "W1"
  printer.SetChrEndExpanded escape & "W0"
  printer.SetChrInitUnderlying escape & "-1"
  printer.SetChrEndUnderlying escape & "-0"
End Sub

' Once, before the first report.  The arguments are by reference and of the services' own types, so
' each has a variable of its type.
Private Sub HandOverServices(printer As LibTarvoRdpCI.clsUtilImp)
  Dim errors As New LibTarvoCI.clsError
  Dim messages As New LibTarvoCI.clsMessage
  Dim texto As New LibTarvoCI.clsTexto
  Dim defGen As New LibTarvoCI.clsDefGen
  Dim convert As New LibTarvoCI.clsConvert
  Dim api As New LibTarvoCI.clsApi
  Dim utilFile As New LibTarvoCI.clsUtilFile
  Dim utilDate As New LibTarvoCI.clsUtilDate
  Dim errorCodes As New LibTarvoCI.clsErrorCodesIG
  Dim mathOperations As New LibTarvoCI.clsUtilMathOperations
  Dim utReport As New LibTarvoCI.clsUtReport
  Dim start As New LibTarvoRdpCI.clsInitLibTarvoRpd
  start.sInitializeInternalGlobalClasses errors, messages, texto, defGen, convert, api, _
      utilFile, utilDate, errorCodes, mathOperations
  start.sInitializePrintLibrary printer, utReport
  start.sSendDllVersionToLibTarvoCI
End Sub

Private Sub PrintInvoice(ByVal folder As String, ByVal number As Long)
  Dim report As LibTarvoRdpCI.clsObRepMasterDetail
  Dim answers As LibTarvoRdpCI.clsImplementIDMD
  Dim invoiceAnswers As Invoice
  If Right$(folder, 1) <> "\" Then folder = folder & "\"   ' joined with the name as it is
  Set invoiceAnswers = New Invoice
  invoiceAnswers.Number = number
  Set answers = invoiceAnswers   ' the same object, as its contract
  Set report = New LibTarvoRdpCI.clsObRepMasterDetail
  report.sInit answers, "Factura Nº " & number, "", "", "FACTURA", folder, 1
  report.sPrintReport
End Sub
