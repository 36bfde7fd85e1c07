'uses checks.vbs start.vbs recorders.vbs
' A client prints reports from the sample templates: a form of two sheets and a ledger of forty pages
' in two copies, on a printer; a draft, and lines of its own, as PDF files.
' Arguments: the templates' folder with its separator, the printer, the folder for the PDF files.
Dim templates, printer, pages
templates = WScript.Arguments(1)
printer = WScript.Arguments(2)
pages = WScript.Arguments(3)
CreateObject("WScript.Shell").CurrentDirectory = pages

Set messageService = New RecordingMessage
Set errorService = New RecordingError
HandOver
channel.SetPrinterName printer
channel.SetMaxLinPage 66
channel.SetCanPrintInTextMode True
channel.SetChrFormFeed Chr(12)
channel.SetChrReset Chr(27) & "@"
channel.SetChrNormal Chr(18)
channel.SetChrCondensed Chr(15)
channel.SetChrBold Chr(27) & "E"
channel.SetChrLight Chr(27) & "F"
channel.SetChrHighLine1Point Chr(27) & "A1"
channel.SetChrHighLine12Points Chr(27) & "A2"

Class Receipt
  Public pauses
  Public refuses

  Private Sub Class_Initialize
    pauses = 0
    refuses = False
  End Sub

  Public Function fTranslateSpecialVar(refLineToWrite)
    Dim variable
    If refuses Then Err.Raise vbObjectError + 513, "Receipt", "no answer"
    Set variable = refLineToWrite.GetSpecialVar
    fTranslateSpecialVar = True
    Select Case variable.GetFieldName
      Case "NUMERO"
        variable.SetContentNumeric 1254, False
      Case "NOMBRE"
        variable.SetContentString "José Peña Muñoz"
      Case "CEDULA"
        variable.SetContentString "V-7123456"
      Case "FECHA"
        variable.SetContentDate DateSerial(2026, 3, 15)
      Case "TIPO"
        variable.SetContentEnum "F"
      Case "SUELDO"
        variable.SetContentNumeric CCur(4500.75), False
      Case "DEDUCCION"
        variable.SetContentNumeric CCur(-312.5), True
      Case "NETO"
        variable.SetContentNumeric CCur(4188.25), False
      Case Else
        fTranslateSpecialVar = False
    End Select
  End Function

  Public Sub sDisplayPauseDialog
    pauses = pauses + 1
  End Sub
End Class

Class Ledger
  Public pauses
  Public present
  Private names

  Private Sub Class_Initialize
    pauses = 0
    names = Array("Tornillo de 3 pulgadas", "Cañería galvanizada", "Pintura al agua", _
        "Llave inglesa")
  End Sub

  Private Function Amount
    Amount = CCur(12.35) * present
  End Function

  Public Function fTranslateSpecialVarMD(refLineToWrite, valMontoSubTotal)
    Dim variable
    Set variable = refLineToWrite.GetSpecialVar
    fTranslateSpecialVarMD = True
    Select Case variable.GetFieldName
      Case "CODIGO"
        variable.SetContentString "ART-" & present
      Case "NOMBRE"
        variable.SetContentString names(present Mod 4)
      Case "MONTO"
        variable.SetContentNumeric Amount, False
      Case "NOTA"
        If present Mod 5 = 0 Then variable.SetContentString "en oferta" Else variable.SetContentString ""
      Case "TOTAL"
        variable.SetContentNumeric 118, False
      Case Else
        fTranslateSpecialVarMD = False
    End Select
  End Function

  Public Sub sDisplayPauseDialog
    pauses = pauses + 1
  End Sub
  Public Function fReadFirstRecord
    present = 1
    fReadFirstRecord = True
  End Function
  Public Function fReadNextRecord
    present = present + 1
    fReadNextRecord = present <= 118
  End Function
  Public Sub sAccumSubTotal(refMontoSubTotal)
    refMontoSubTotal = refMontoSubTotal + Amount
  End Sub
  Public Function fCanExecuteWriteReport(refMustShowErrorMsg, refErrorMsgToDisplay)
    fCanExecuteWriteReport = True
  End Function
  Public Function fDetailRecordCount
    fDetailRecordCount = 118
  End Function
End Class

On Error Resume Next
PrintForm
PrintLedger
PrintDraft
PrintLines
CheckMessages
CheckErrors
Finish 3 + 3 + 4 + 2 + 6 + 4

Sub PrintForm
  On Error Resume Next
  Dim form, client
  Set form = CreateObject("LibTarvoRdpCI.clsObRepPlanilla")
  Set client = New Receipt
  form.sInit client, "Recibo Nº 1254", "", "", "", templates, 0, 2
  form.SetFileNameIDFirstSheet "RECIBO1"
  form.SetFileNameIDSecondSheet "RECIBO2"
  form.sPrintReport
  CheckNoError "a form of two sheets is printed"
  Check "with its pause", client.pauses, CInt(1)
  Check "and its question", messageService.calls, "fAskAcceptCancel """ & _
      "Coloque la segunda hoja de la planilla Recibo Nº 1254 en su impresora. Cuando esté listo " & _
      " presione <Aceptar>.<0D>Si no desea continuar con la impresión de la planilla, presione " & _
      "<Cancelar>."", ""Voltear Planilla""" & vbLf
End Sub

Sub PrintLedger
  On Error Resume Next
  Dim report, client
  Set report = CreateObject("LibTarvoRdpCI.clsObRepMasterDetail")
  Set client = New Ledger
  report.sInit client, "Libro de inventario", "", "", "LIBRO", templates, 2
  report.sPrintReport
  CheckNoError "a ledger of forty pages is printed in two copies"
  Check "with a pause in between", client.pauses, CInt(1)
  Check "its subtotal is empty afterwards", report.GetMontoSubTotalVan, CCur(0)
End Sub

' Nobody is there to see it: it becomes a file.
Sub PrintDraft
  On Error Resume Next
  Dim form, client
  Set form = CreateObject("LibTarvoRdpCI.clsObRepPlanilla")
  Set client = New Receipt
  Check "there is no line object", form.GetLineToWrite Is Nothing, True
  form.sInit client, "Borrador", "", "", "", templates, 1, 2
  form.SetFileNameIDDraft "BORRADOR"
  Check "the draft's name", form.GetFileNameIDDraft, "BORRADOR"
  form.sPrintReport
  CheckNoError "a draft is shown"
  Check "the line object has the last line", form.GetLineToWrite.GetTextToPrint, _
      Chr(27) & "ENeto" & Chr(27) & "F        4.188,25 ¿á é í ó ú ñ Ñ?"
End Sub

Sub PrintLines
  On Error Resume Next
  Dim graphic, i
  Set graphic = CreateObject("LibTarvoRdpCI.clsARObRep")
  graphic.sInit "file:" & pages & "\lineas.pdf", "Líneas", 2
  For i = 1 To 100
    graphic.sWriteLn "Línea " & i & " ñandú", 4
  Next
  graphic.sSkipNPoints 30
  graphic.sWrite "fin", 0
  CheckNoError "lines are written"
  graphic.sCloseGraphicHandle
  CheckNoError "lines become a file"
End Sub

Sub CheckMessages
  On Error Resume Next
  Dim form, report, client
  messageService.calls = ""
  Set client = New Receipt
  Set form = CreateObject("LibTarvoRdpCI.clsObRepPlanilla")
  form.sInit client, "Recibo", "", "", "", templates, 1, 0
  form.SetFileNameIDDraft "NINGUNA"
  channel.SetPrinterName ""
  form.sPrintReport
  CheckNoError "without a printer nothing is printed"
  Check "and it is said", Left(messageService.calls, 64), _
      "sShowMessageWithTitle ""Aún no ha sido escogida la impresora.<0D>"
  channel.SetPrinterName printer
  messageService.calls = ""
  Set client = New Ledger
  Set report = CreateObject("LibTarvoRdpCI.clsObRepMasterDetail")
  report.sInit client, "Libro", "", "", "NINGUNO", templates, 1
  report.sPrintReport
  CheckNoError "without a template nothing is printed"
  Check "and that is said", messageService.calls, _
      "sShowMessageWithTitle ""La plantilla de impresión " & templates & "NINGUNO.ID no fue " & _
      "encontrada, chequee su directorio de instalación a ver si encuentra el archivo de " & _
      "nombre: NINGUNO.ID"", ""Archivo no encontrado""" & vbLf
  report.sInit client, "Libro", "", "", "NINGUNO", templates, 256
  CheckError "too many copies", 6, "Overflow < sInit", "LibTarvoRdpCI"
  Check "by whom", errorService.trail, _
      "clsObRepMasterDetail.sInit (Lib. Impresión Texto - Ob Rep) 2" & vbLf
End Sub

' An error of the client's comes out of its call, through every procedure.
Sub CheckErrors
  On Error Resume Next
  Dim form, client
  errorService.Forget
  Set client = New Receipt
  client.refuses = True
  Set form = CreateObject("LibTarvoRdpCI.clsObRepPlanilla")
  form.sInitForUserReport client
  form.sSearchSpecialVarAndTranslate "{NOMBRE}"
  CheckErrorNumber "a client's error", vbObjectError + 513
  Check "has its trail", errorService.trail, _
      "clsObRepPlanilla.sSearchSpecialVarAndTranslate (Lib. Impresión Texto - Ob Rep) 2" & vbLf
  client.refuses = False
  form.GetLineToWrite.sClrRecord
  form.sSearchSpecialVarAndTranslate "{NOMBRE}, {@Total}"
  CheckNoError "a line of the client's own is resolved"
  Check "to its text", form.GetLineToWrite.GetTextToPrint, "José Peña Muñoz, Total"
End Sub
