'uses checks.vbs start.vbs recorders.vbs
' Objects of a script as services: what they are asked, what becomes of their answers, and of their
' errors.  Argument: what stands before the names of files that are printed ("file:C:\FOLDER\").
Const ERROR_OF_OBJECT = -2147220991   ' vbObjectError + 513
Const MODULE = "Lib. Impresión Texto"

' A text service that marks its answers, so that it shows which of them was used.
Class MarkingText
  Public calls
  Public Function fReplaceAll(valText, valOld, valNew)
    calls = calls & "fReplaceAll " & Shown(valText) & ", " & Shown(valOld) & ", " & _
        Shown(valNew) & vbLf
    fReplaceAll = valText & valOld
  End Function
  Public Function fLeftMargin(valText, valMargin)
    calls = calls & "fLeftMargin " & Shown(valText) & ", " & Shown(valMargin) & vbLf
    fLeftMargin = "[" & valText & "]"
  End Function
End Class

' Answers every replacement with the same value.
Class AnsweringText
  Public answer
  Public Function fReplaceAll(valText, valOld, valNew)
    If IsObject(answer) Then Set fReplaceAll = answer Else fReplaceAll = answer
  End Function
  Public Function fLeftMargin(valText, valMargin)
    If IsObject(answer) Then Set fLeftMargin = answer Else fLeftMargin = answer
  End Function
End Class

Class MarkingConversion
  Public calls
  Public answer
  Public Function fNumberToText(valNumber)
    calls = calls & Shown(valNumber) & vbLf
    fNumberToText = answer
  End Function
End Class

Class ObjectWithoutOperations
  Private Function fReplaceAll(valText, valOld, valNew)
    fReplaceAll = valText
  End Function
End Class

' Fails as its `way` says.
Class FailingObject
  Public way
  Private Sub Fail
    Dim zero
    zero = 0
    Select Case way
      Case "overflow"
        Err.Raise 6
      Case "own"
        Err.Raise vbObjectError + 513, "Its source", "Its description"
      Case "division"
        zero = 1 \ zero
      Case "member"
        channel.NoSuchMember
      Case "library"
        channel.SetMaxLinPage 256
    End Select
  End Sub
  Public Function fReplaceAll(valText, valOld, valNew)
    Fail
  End Function
  Public Function fNumberToText(valNumber)
    Fail
  End Function
  Public Sub sShowMessage(refText)
    Fail
  End Sub
  Public Function fDescribeError(valDescription, valClassName, valProcedureName, _
                                 valModuleDescription, valKind, valHelpContext, valHelpFile, _
                                 valLastDllError, valReserved)
    Fail
  End Function
End Class

' Puts something else into the text that it is to show.
Class ChangingMessage
  Public newText
  Public Sub sShowMessage(refText)
    If IsObject(newText) Then Set refText = newText Else refText = newText
  End Sub
End Class

Dim files, companionsText, companionsConversion, recordingError, recordingMessage
files = WScript.Arguments(1)
Set companionsText = textService
Set companionsConversion = conversionService
Set recordingError = New RecordingError
Set recordingMessage = New RecordingMessage
Set errorService = recordingError
Set messageService = recordingMessage
HandOver

On Error Resume Next
CheckUnknownPrinters
CheckTextService
CheckConversionService
CheckErrorService
CheckMissingOperations
CheckAnswers
CheckErrors
CheckChangedTexts
Finish 46

Sub CheckUnknownPrinters
  On Error Resume Next
  channel.sInitializePrinterFileHandle "  \\srv\Ñandú, 2ª ", "Documento"
  CheckNoError "an unknown printer is no error"
  Check "an unknown printer is one message", recordingMessage.calls, _
      "sShowMessage ""No se reconoce el nombre de la impresora:   \\srv\Ñandú, 2ª """ & vbLf
  recordingMessage.calls = ""
  channel.sWriteLn "texto", 2
  channel.sWrite "texto", 0
  channel.sSkipNPoints 2
  channel.sResetPrinter
  channel.sPrintTestPage
  channel.sSendJobAndStartNewOne
  channel.sWriteLn "texto", 0
  channel.sClosePrinterFileHandle
  channel.sClosePrinterFileHandle
  channel.sCancelPrintProcess
  CheckNoError "what is printed afterwards is no error"
  Check "and no further message", recordingMessage.calls, ""
  channel.sInitializePrinterFileHandle "", "Documento"
  Check "an empty name is an unknown printer", recordingMessage.calls, _
      "sShowMessage ""No se reconoce el nombre de la impresora: """ & vbLf
  CheckNoError "nor is that an error"
End Sub

Sub CheckTextService
  On Error Resume Next
  Dim marking
  Set marking = New MarkingText
  Set textService = marking
  HandOver
  channel.sInitializePrinterFileHandle files & "textos.prn", ""
  channel.sWriteLn "A" & Chr(0), 2
  CheckNoError "a script's text service"
  Check "a write is a margin and eight replacements, each of the answer before", marking.calls, _
      "fLeftMargin ""A<00>"", Byte 2" & vbLf & _
      "fReplaceAll ""[A<00>]<0D><0A>"", ""á"", """ & Chr(160) & """" & vbLf & _
      "fReplaceAll ""[A<00>]<0D><0A>á"", ""é"", ""‚""" & vbLf & _
      "fReplaceAll ""[A<00>]<0D><0A>áé"", ""í"", ""¡""" & vbLf & _
      "fReplaceAll ""[A<00>]<0D><0A>áéí"", ""ó"", ""¢""" & vbLf & _
      "fReplaceAll ""[A<00>]<0D><0A>áéíó"", ""ú"", ""£""" & vbLf & _
      "fReplaceAll ""[A<00>]<0D><0A>áéíóú"", ""ñ"", ""¤""" & vbLf & _
      "fReplaceAll ""[A<00>]<0D><0A>áéíóúñ"", ""Ñ"", ""¥""" & vbLf & _
      "fReplaceAll ""[A<00>]<0D><0A>áéíóúñÑ"", ""º"", ""§""" & vbLf
  marking.calls = ""
  channel.sWrite "", 0
  Check "an empty write as well, without a margin", marking.calls, _
      "fReplaceAll """", ""á"", """ & Chr(160) & """" & vbLf & _
      "fReplaceAll ""á"", ""é"", ""‚""" & vbLf & _
      "fReplaceAll ""áé"", ""í"", ""¡""" & vbLf & _
      "fReplaceAll ""áéí"", ""ó"", ""¢""" & vbLf & _
      "fReplaceAll ""áéíó"", ""ú"", ""£""" & vbLf & _
      "fReplaceAll ""áéíóú"", ""ñ"", ""¤""" & vbLf & _
      "fReplaceAll ""áéíóúñ"", ""Ñ"", ""¥""" & vbLf & _
      "fReplaceAll ""áéíóúñÑ"", ""º"", ""§""" & vbLf
  channel.sClosePrinterFileHandle
  CheckNoError "and is written"
  Set textService = companionsText
  HandOver
End Sub

Sub CheckConversionService
  On Error Resume Next
  Dim marking, units
  Set marking = New MarkingConversion
  marking.answer = "#"
  Set conversionService = marking
  HandOver
  channel.sInitializePrinterFileHandle files & "numeros.prn", ""
  channel.sPrintHorizontalRule False, 1, 2
  CheckNoError "a script's conversion service"
  units = "Integer 0" & vbLf & "Integer 1" & vbLf & "Integer 2" & vbLf & "Integer 3" & vbLf & _
      "Integer 4" & vbLf & "Integer 5" & vbLf & "Integer 6" & vbLf & "Integer 7" & vbLf & _
      "Integer 8" & vbLf & "Integer 9" & vbLf
  Check "a horizontal rule has integers", marking.calls, units & units & units & "Integer 1" & vbLf
  marking.calls = ""
  channel.sPrintVerticalRule 2, False
  CheckNoError "and another rule"
  Check "a vertical rule has doubles", marking.calls, "Double 1" & vbLf & "Double 2" & vbLf
  channel.sClosePrinterFileHandle
  Set conversionService = companionsConversion
  HandOver
End Sub

' The failure is a missing text service; the platform call before it, the opening of a printer that
' there is not, failed with code 1801.
Sub CheckErrorService
  On Error Resume Next
  Set textService = Nothing
  HandOver
  channel.sInitializePrinterFileHandle "no such printer", ""
  channel.sWrite "x", 0
  CheckError "a missing service", 91, "Object variable not set < fReplaceInvalidChars < " & _
      "sWriteToFileHandle < sWrite", "LibTarvoRdpCI"
  Check "the error service has nine arguments", recordingError.lastCall, _
      """Object variable not set < fReplaceInvalidChars < sWriteToFileHandle"", " & _
      """clsUtilImp"", ""sWrite"", """ & MODULE & """, Integer 2, Long 0, """", Long 1801, Long 0"
  Set textService = companionsText
  HandOver
End Sub

Sub CheckMissingOperations
  On Error Resume Next
  Set textService = New ObjectWithoutOperations
  Set conversionService = New ObjectWithoutOperations
  HandOver
  CheckNoError "an object without operations is taken"
  channel.sWrite "x", 0
  CheckError "a missing operation, which a private one is, fails when it is called", 438, _
      "Object doesn't support this property or method: fReplaceAll < fReplaceInvalidChars < " & _
      "sWriteToFileHandle < sWrite", "LibTarvoRdpCI"
  channel.sWrite "x", 1
  CheckError "another one", 438, _
      "Object doesn't support this property or method: fLeftMargin < sWrite", "LibTarvoRdpCI"
  Set textService = companionsText
  HandOver
  channel.sPrintHorizontalRule False, 1, 1
  CheckError "one of the conversion service", 438, _
      "Object doesn't support this property or method: fNumberToText < sPrintHorizontalRule", _
      "LibTarvoRdpCI"
  Set conversionService = companionsConversion
  Set messageService = New ObjectWithoutOperations
  HandOver
  channel.sInitializePrinterFileHandle "no such printer", ""
  CheckError "one of the message service", 438, "Object doesn't support this property or " & _
      "method: sShowMessage < sSendJobAndStartNewOne < sInitializePrinterFileHandle", _
      "LibTarvoRdpCI"
  Set errorService = New ObjectWithoutOperations
  HandOver
  channel.sInitializePrinterFileHandle "no such printer", ""
  CheckError "one of the error service, whose own failure goes on", 438, _
      "Object doesn't support this property or method: fDescribeError", "LibTarvoRdpCI"
  Set messageService = recordingMessage
  Set errorService = Nothing
  Set textService = Nothing
  HandOver
  channel.sWrite "x", 0
  CheckError "without an error service, its absence is the error", 91, _
      "Object variable not set", "LibTarvoRdpCI"
  Set errorService = recordingError
  Set textService = companionsText
  HandOver
End Sub

' Answers that are no texts.
Sub CheckAnswers
  On Error Resume Next
  Dim answering, marking
  Const MISMATCH = "Type mismatch < fReplaceInvalidChars < sWriteToFileHandle < sWrite"
  Set answering = New AnsweringText
  Set textService = answering
  HandOver
  channel.sInitializePrinterFileHandle files & "respuestas.prn", ""
  answering.answer = Array("a")
  channel.sWrite "x", 0
  CheckError "an array for a text", 13, MISMATCH, "LibTarvoRdpCI"
  answering.answer = Null
  channel.sWrite "x", 0
  CheckError "Null for a text", 13, MISMATCH, "LibTarvoRdpCI"
  Set answering.answer = Nothing
  channel.sWrite "x", 0
  CheckError "Nothing for a text", 13, MISMATCH, "LibTarvoRdpCI"
  Set answering.answer = answering
  channel.sWrite "x", 0
  CheckError "an object for a text", 13, MISMATCH, "LibTarvoRdpCI"
  channel.sWrite "x", 1
  CheckError "an object for a margined text", 13, "Type mismatch < sWrite", "LibTarvoRdpCI"
  answering.answer = 12
  channel.sWrite "x", 0
  CheckNoError "a number for a text is its digits"
  answering.answer = Empty
  channel.sWrite "x", 0
  CheckNoError "Empty for a text is the empty one"
  answering.answer = "(texto)"
  channel.sWrite "x", 3
  channel.sClosePrinterFileHandle
  CheckNoError "a text for a text"
  Set textService = companionsText
  Set marking = New MarkingConversion
  Set conversionService = marking
  HandOver
  marking.answer = Array(1)
  channel.sPrintVerticalRule 1, False
  CheckError "an array for a number's text", 13, "Type mismatch < sPrintVerticalRule", _
      "LibTarvoRdpCI"
  Set conversionService = companionsConversion
  HandOver
End Sub

' A script's own errors.  Wine's engine gives the number away and nothing else.
Sub CheckErrors
  On Error Resume Next
  Dim failing
  Const ENGINE = "Microsoft VBScript runtime error"
  Set failing = New FailingObject
  Set textService = failing
  HandOver
  failing.way = "overflow"
  channel.sWrite "x", 0
  CheckErrorOfScript "a classic error of a script", 6, "Overflow", "Overflow", ENGINE
  failing.way = "own"
  channel.sWrite "x", 0
  CheckErrorOfScript "an error of a script's own", ERROR_OF_OBJECT, _
      "Run-time error -2147220991", "Its description", "Its source"
  failing.way = "division"
  channel.sWrite "x", 0
  CheckErrorNumber "a script's mistake", 11
  failing.way = "member"
  channel.sWrite "x", 0
  CheckErrorNumber "an unknown member", 438
  failing.way = "library"
  channel.sWrite "x", 0
  CheckErrorNumber "the library's own error in a script that the library called", 6
  Set textService = companionsText
  Set conversionService = failing
  Set messageService = failing
  HandOver
  failing.way = "own"
  channel.sPrintVerticalRule 1, False
  CheckErrorNumber "of the conversion service", ERROR_OF_OBJECT
  channel.sInitializePrinterFileHandle "no such printer", ""
  CheckErrorNumber "of the message service", ERROR_OF_OBJECT
  Set conversionService = companionsConversion
  Set errorService = failing
  HandOver
  channel.sInitializePrinterFileHandle "no such printer", ""
  CheckErrorNumber "of the error service", ERROR_OF_OBJECT
  failing.way = "overflow"
  channel.sInitializePrinterFileHandle "no such printer", ""
  CheckErrorNumber "of the error service and the message service", 6
  Set messageService = recordingMessage
  Set errorService = recordingError
  HandOver
End Sub

' An engine that names the error's source gives its description as well.  Otherwise the description
' is the number's, and there is no source: the error is not the library's own.
Sub CheckErrorOfScript(shows, number, neutral, given, givenSource)
  Const TRAIL = " < fReplaceInvalidChars < sWriteToFileHandle < sWrite"
  If Err.Source = givenSource Then
    CheckError shows, number, given & TRAIL, givenSource
  Else
    CheckError shows, number, neutral & TRAIL, ""
  End If
End Sub

' The text of a message comes back as the service leaves it, and then has to be one still.
Sub CheckChangedTexts
  On Error Resume Next
  Dim changing
  Const MISMATCH = "Type mismatch < sSendJobAndStartNewOne < sInitializePrinterFileHandle"
  Set changing = New ChangingMessage
  Set messageService = changing
  HandOver
  changing.newText = "otro texto"
  channel.sInitializePrinterFileHandle "no such printer", ""
  CheckNoError "a changed text comes back"
  changing.newText = 5
  channel.sInitializePrinterFileHandle "no such printer", ""
  CheckNoError "a number comes back as a text"
  changing.newText = Array(1)
  channel.sInitializePrinterFileHandle "no such printer", ""
  CheckError "an array does not", 13, MISMATCH, "LibTarvoRdpCI"
  changing.newText = Null
  channel.sInitializePrinterFileHandle "no such printer", ""
  CheckError "nor does Null", 13, MISMATCH, "LibTarvoRdpCI"
  Set changing.newText = channel
  channel.sInitializePrinterFileHandle "no such printer", ""
  CheckError "nor does an object", 13, MISMATCH, "LibTarvoRdpCI"
End Sub
