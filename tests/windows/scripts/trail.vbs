'uses checks.vbs start.vbs recorders.vbs
' The way of an error through the library: which procedures report it, in which order and under
' which names, and what the client has of it in the end.  Argument: what stands before the names of
' files that are printed ("file:C:\FOLDER\").
Const MODULE = "Lib. Impresión Texto"

' These services fail by answering with no text, which is error 13.
Class FailingText
  Public failingText
  Public Function fReplaceAll(valText, valOld, valNew)
    If Left(valText, Len(failingText)) = failingText Then
      fReplaceAll = Array(valText)
    Else
      fReplaceAll = valText
    End If
  End Function
  Public Function fLeftMargin(valText, valMargin)
    fLeftMargin = Array(valText)
  End Function
End Class

Class FailingConversion
  Public Function fNumberToText(valNumber)
    fNumberToText = Array(valNumber)
  End Function
End Class

Class FailingMessage
  Public Sub sShowMessage(refText)
    refText = Array(refText)
  End Sub
End Class

Dim companionsError, recordingError
Set companionsError = errorService
Set recordingError = New RecordingError
Set textService = New FailingText
Set conversionService = New FailingConversion
Set messageService = New FailingMessage
HandOver
channel.sInitializePrinterFileHandle WScript.Arguments(1) & "rastro.prn", "Documento"

On Error Resume Next
Const WRITE = "fReplaceInvalidChars sWriteToFileHandle sWrite"
Const WRITE_LINE = "fReplaceInvalidChars sWriteToFileHandle sWriteLn"
CheckTrail "sWrite", 13, WRITE
CheckTrail "sWriteLn", 13, WRITE_LINE
CheckTrail "sWrite with a margin", 13, "sWrite"
CheckTrail "sWriteLn with a margin", 13, "sWriteLn"
CheckTrail "sSkipNPoints: height", 13, WRITE & " sSkipNPoints"
CheckTrail "sSkipNPoints: line", 13, WRITE_LINE & " sSkipNPoints"
CheckTrail "sSkipNPoints: 255", 6, "sSkipNPoints"
CheckTrail "sResetPrinter", 13, WRITE & " sResetPrinter"
CheckTrail "sPrintUnderscore", 13, WRITE & " sPrintUnderscore"
CheckTrail "sPrintUnderscore: line", 13, WRITE_LINE & " sPrintUnderscore"
CheckTrail "sPrintVerticalRule: reset", 13, WRITE & " sPrintVerticalRule"
CheckTrail "sPrintVerticalRule: length", 6, "sPrintVerticalRule"
CheckTrail "sPrintVerticalRule: number", 13, "sPrintVerticalRule"
CheckTrail "sPrintHorizontalRule: reset", 13, WRITE & " sPrintHorizontalRule"
CheckTrail "sPrintHorizontalRule: number", 13, "sPrintHorizontalRule"
CheckTrail "sPrintHorizontalRule: length", 6, "sPrintHorizontalRule"
CheckTrail "sPrintTestPage: reset", 13, WRITE & " sPrintTestPage"
CheckTrail "sPrintTestPage: line", 13, WRITE_LINE & " sPrintTestPage"
CheckTrail "sPrintTestPage: rule", 13, "sPrintVerticalRule sPrintTestPage"
' The worker that opens a printer signs with another operation's name.
CheckTrail "sInitializePrinterFileHandle", 13, _
    "sSendJobAndStartNewOne sInitializePrinterFileHandle"

' Whoever cancels has no error, but what was below it has reported its own.
Set errorService = recordingError
HandOver
recordingError.Forget
textService.failingText = "no"
channel.SetChrFormFeed "no"
channel.SetChrReset "no"
channel.sCancelPrintProcess
CheckNoError "sCancelPrintProcess"
Check "sCancelPrintProcess: two writes have failed", recordingError.trail, _
    TrailOf(WRITE & " " & WRITE)
Finish 20 * 2 + 2

' The same failure with the script's error service, which knows every level, and with the
' companion's, whose descriptions the client gets.
Sub CheckTrail(what, number, procedures)
  On Error Resume Next
  Set errorService = recordingError
  HandOver
  recordingError.Forget
  Fail what
  Err.Clear
  Check what & ": reports", recordingError.trail, TrailOf(procedures)
  Set errorService = companionsError
  HandOver
  Fail what
  CheckError what & ": description", number, DescriptionOf(number, procedures), "LibTarvoRdpCI"
End Sub

Sub Fail(what)
  textService.failingText = "no"
  channel.SetChrReset ""
  channel.SetChrNormal ""
  channel.SetChrHighLine1Point ""
  Select Case what
    Case "sWrite"
      channel.sWrite "no", 0
    Case "sWriteLn"
      channel.sWriteLn "no", 0
    Case "sWrite with a margin"
      channel.sWrite "x", 1
    Case "sWriteLn with a margin"
      channel.sWriteLn "x", 1
    Case "sSkipNPoints: height"
      channel.SetChrHighLine1Point "no"
      channel.sSkipNPoints 3
    Case "sSkipNPoints: line"
      textService.failingText = vbCrLf
      channel.sSkipNPoints 3
    Case "sSkipNPoints: 255"
      channel.sSkipNPoints 255
    Case "sResetPrinter"
      channel.SetChrReset "no"
      channel.sResetPrinter
    Case "sPrintUnderscore"
      textService.failingText = "_"
      channel.sPrintUnderscore 3, True
    Case "sPrintUnderscore: line"
      textService.failingText = vbCrLf
      channel.sPrintUnderscore 3, True
    Case "sPrintVerticalRule: reset"
      channel.SetChrReset "no"
      channel.sPrintVerticalRule 1, False
    Case "sPrintVerticalRule: length"
      channel.sPrintVerticalRule 5462, False
    Case "sPrintVerticalRule: number"
      channel.sPrintVerticalRule 1, False
    Case "sPrintHorizontalRule: reset"
      channel.SetChrReset "no"
      channel.sPrintHorizontalRule False, 1, 1
    Case "sPrintHorizontalRule: number"
      channel.sPrintHorizontalRule False, 1, 1
    Case "sPrintHorizontalRule: length"
      channel.sPrintHorizontalRule False, -32768, 1
    Case "sPrintTestPage: reset"
      channel.SetChrReset "no"
      channel.sPrintTestPage
    Case "sPrintTestPage: line"
      textService.failingText = "  PAGINA DE PRUEBA"
      channel.sPrintTestPage
    Case "sPrintTestPage: rule"
      channel.sPrintTestPage
    Case "sInitializePrinterFileHandle"
      channel.sInitializePrinterFileHandle "no such printer", "Documento"
  End Select
End Sub

Function TrailOf(procedures)
  Dim procedure
  TrailOf = ""
  For Each procedure In Split(procedures, " ")
    TrailOf = TrailOf & "clsUtilImp." & procedure & " (" & MODULE & ") 2" & vbLf
  Next
End Function

Function DescriptionOf(number, procedures)
  Dim procedure
  If number = 6 Then DescriptionOf = "Overflow" Else DescriptionOf = "Type mismatch"
  For Each procedure In Split(procedures, " ")
    DescriptionOf = DescriptionOf & vbCrLf & "   en clsUtilImp." & procedure & " (" & MODULE & ")"
  Next
End Function
