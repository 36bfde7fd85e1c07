'uses checks.vbs start.vbs recorders.vbs
' How arguments of a script reach an operation, and how wrong ones are told.
Const LIBRARY = "LibTarvoRdpCI"

' Every access to it is an error but its default member.
Class ObjectWithText
  Public Default Property Get Text
    Text = "7"
  End Property
End Class

' Takes what a margin becomes.
Class MarginTaker
  Public margin
  Public Function fLeftMargin(valText, valMargin)
    margin = valMargin
    fLeftMargin = valText
  End Function
  Public Function fReplaceAll(valText, valOld, valNew)
    fReplaceAll = valText
  End Function
End Class

Dim taker, variable
Set taker = New MarginTaker
Set textService = taker
Set errorService = New RecordingError
Set messageService = New RecordingMessage
HandOver

On Error Resume Next
CheckByReference
CheckCoercions
CheckWrongKinds
CheckOverflows
CheckNumberOfArguments
CheckNames
CheckObjects
Finish 84

' A by-reference argument that the operation does not change comes back as it went, kind and all.
Sub CheckByReference
  On Error Resume Next
  Dim number, text, real, truth
  number = 3
  text = "2"
  real = 1.4
  truth = False
  channel.sSkipNPoints number
  channel.sSkipNPoints text
  channel.sSkipNPoints real
  channel.sSkipNPoints truth
  channel.sSkipNPoints variable
  channel.sSkipNPoints (number)
  channel.sSkipNPoints 2
  CheckNoError "sSkipNPoints by reference, by value"
  Check "an integer", number, 3
  Check "a text", text, "2"
  Check "a double", real, 1.4
  Check "a truth value", truth, False
  Check "a variable without a value", variable, Empty
  Dim servicesBefore
  Set servicesBefore = textService
  HandOver
  Check "an object", textService Is servicesBefore, True
End Sub

Sub CheckMargin(shows, given, expected)
  On Error Resume Next
  taker.margin = "not called"
  channel.sWrite "x", given
  CheckNoError shows
  If expected = 0 Then
    Check shows & ": no margin", taker.margin, "not called"
  Else
    Check shows & ": its value", taker.margin, CByte(expected)
  End If
End Sub

Sub CheckCoercions
  On Error Resume Next
  CheckMargin "a byte", CByte(255), 255
  CheckMargin "a long", CLng(12), 12
  CheckMargin "a currency", CCur(4), 4
  CheckMargin "a numeric text", "7", 7
  CheckMargin "a numeric text with blanks", " 7 ", 7
  CheckMargin "Empty", Empty, 0
  CheckMargin "a fraction goes to the even number", 2.5, 2
  CheckMargin "and the next one too", 3.5, 4
  CheckMargin "False", False, 0
  channel.SetMaxLinPage "66"
  Check "a text for a byte property", channel.GetMaxLinPage, CByte(66)
  channel.SetChrBold 12
  Check "a number for a text property", channel.GetChrBold, "12"
  channel.SetChrBold Empty
  Check "Empty for a text property", channel.GetChrBold, ""
  channel.SetCanPrintInTextMode 5
  Check "a number for a truth value", channel.GetCanPrintInTextMode, True
  channel.SetCanPrintInTextMode 0
  Check "zero for a truth value", channel.GetCanPrintInTextMode, False
  channel.SetCanPrintInTextMode "True"
  Check "a text for a truth value", channel.GetCanPrintInTextMode, True
  CheckNoError "none of them is an error"
End Sub

Sub CheckWrongKinds
  On Error Resume Next
  Dim nobody, list
  Set nobody = Nothing
  list = Array(1, 2)
  channel.sWrite "x", Nothing
  CheckError "Nothing for a number", 13, "Type mismatch: valLeftMargin", LIBRARY
  channel.sWrite "x", nobody
  CheckError "a variable with Nothing", 13, "Type mismatch: valLeftMargin", LIBRARY
  channel.sWrite "x", Null
  CheckError "Null for a number", 13, "Type mismatch: valLeftMargin", LIBRARY
  channel.sWrite "x", "siete"
  CheckError "a text that is no number", 13, "Type mismatch: valLeftMargin", LIBRARY
  channel.sWrite "x", ""
  CheckError "an empty text is no number", 13, "Type mismatch: valLeftMargin", LIBRARY
  channel.sWrite "x", list
  CheckError "an array for a number", 13, "Type mismatch: valLeftMargin", LIBRARY
  channel.sWrite "x", channel
  CheckError "an object for a number", 13, "Type mismatch: valLeftMargin", LIBRARY
  channel.sWrite Null, 0
  CheckError "Null for a text", 13, "Type mismatch: valText", LIBRARY
  channel.sWrite Nothing, 0
  CheckError "Nothing for a text", 13, "Type mismatch: valText", LIBRARY
  channel.sWrite list, 0
  CheckError "an array for a text", 13, "Type mismatch: valText", LIBRARY
  channel.sWrite Nothing, Nothing
  CheckError "the first wrong one is named", 13, "Type mismatch: valText", LIBRARY
  channel.sPrintUnderscore 1, "quizás"
  CheckError "a text that is no truth value", 13, "Type mismatch: valSkipLine", LIBRARY
  channel.sSkipNPoints Nothing
  CheckError "by reference, by value", 13, "Type mismatch: valNumberOfPoints", LIBRARY
  channel.sSkipNPoints nobody
  CheckError "by reference", 13, "Type mismatch: valNumberOfPoints", LIBRARY
  Check "which is still Nothing", nobody, Nothing
  channel.SetChrBold Nothing
  CheckError "for a property", 13, "Type mismatch: valNewValue", LIBRARY
  Check "which is what it was", channel.GetChrBold, ""
  Check "none of them is reported to the error service", errorService.trail, ""
End Sub

Sub CheckOverflows
  On Error Resume Next
  Dim number
  number = 256
  channel.sWrite "x", 256
  CheckError "a byte above its range", 6, "Overflow: valLeftMargin", LIBRARY
  channel.sWrite "x", -1
  CheckError "a byte below its range", 6, "Overflow: valLeftMargin", LIBRARY
  channel.sWrite "x", "300"
  CheckError "a text above its range", 6, "Overflow: valLeftMargin", LIBRARY
  channel.sWrite "x", 1E+300
  CheckError "a double above its range", 6, "Overflow: valLeftMargin", LIBRARY
  channel.sSkipNPoints number
  CheckError "by reference", 6, "Overflow: valNumberOfPoints", LIBRARY
  Check "which is what it was", number, 256
  channel.sPrintUnderscore 32768, False
  CheckError "an integer above its range", 6, "Overflow: valNumberOfUnderscore", LIBRARY
  channel.sPrintHorizontalRule False, 1, -32769
  CheckError "an integer below its range", 6, "Overflow: valLengthCondensedRule", LIBRARY
  channel.SetMaxLinPage 66
  channel.SetMaxLinPage 256
  CheckError "a property", 6, "Overflow: valNewValue", LIBRARY
  Check "which is what it was", channel.GetMaxLinPage, CByte(66)
End Sub

Sub CheckNumberOfArguments
  On Error Resume Next
  channel.sWrite "x"
  CheckErrorNumber "an argument too few", 449
  channel.sWrite
  CheckErrorNumber "no arguments", 449
  channel.sWrite , 0
  CheckErrorNumber "an argument left out", 449
  channel.sPrintHorizontalRule False, , 3
  CheckErrorNumber "an argument left out between others", 449
  channel.sWrite "x", 0, 0
  CheckErrorNumber "an argument too many", 450
  channel.sResetPrinter 1
  CheckErrorNumber "an argument where there is none", 450
  variable = channel.GetChrBold(1)
  CheckErrorNumber "an argument for a property", 450
End Sub

Sub CheckNames
  On Error Resume Next
  Dim object
  channel.NoSuchOperation
  CheckErrorNumber "an unknown member", 438
  channel.MaxLinPage = 3
  CheckErrorNumber "a property that is no member", 438
  variable = channel.ChrBold
  CheckErrorNumber "nor to be read", 438
  channel.SetMaxLinPage = 3
  CheckErrorNumber "an operation is no property", 438
  channel.SETMAXLINPAGE 72
  Check "capitals do not matter", channel.getmaxlinpage, CByte(72)
  CheckNoError "names in another case"
  Set object = CreateObject("libtarvordpci.CLSUTILIMP")
  CheckNoError "nor in the name of the class"
  Check "a new object is new", object.GetMaxLinPage, CByte(0)
  Set object = CreateObject("LibTarvoRdpCI.clsNone")
  CheckErrorNumber "an unknown class", 429
End Sub

Sub CheckObjects
  On Error Resume Next
  Dim unset
  start.sInitializePrintLibrary 3, reportUtility
  CheckError "a number for an object", 13, "Type mismatch: refInsImp", LIBRARY
  start.sInitializePrintLibrary channel, "x"
  CheckError "a text for an object", 13, "Type mismatch: refInsUtReport", LIBRARY
  start.sInitializePrintLibrary unset, reportUtility
  CheckError "a variable without a value", 13, "Type mismatch: refInsImp", LIBRARY
  start.sInitializePrintLibrary Null, reportUtility
  CheckError "Null for an object", 13, "Type mismatch: refInsImp", LIBRARY
  start.sInitializePrintLibrary taker, reportUtility
  CheckError "another object than the library's own", 13, "Type mismatch: refInsImp", LIBRARY
  start.sInitializePrintLibrary Nothing, Nothing
  CheckNoError "Nothing is taken"
  start.sInitializePrintLibrary channel, New ObjectWithText
  CheckNoError "any object may be a service"
  channel.sWrite New ObjectWithText, 0
  CheckNoError "an object's default member is its text"
End Sub
