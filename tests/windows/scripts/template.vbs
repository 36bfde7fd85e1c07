'uses checks.vbs start.vbs recorders.vbs
' A client that resolves a template line itself: it reads every variable, answers it with values of
' every kind that a script has, and reads the line.
Const LIBRARY = "LibTarvoRdpCI"
Const MODULE = "Lib. Impresión Texto - Ob Special Var"

Set messageService = New RecordingMessage
HandOver
channel.SetChrBold "<negra>"
channel.SetChrCondensed "<comp>"

Dim line, variable
Set line = CreateObject("LibTarvoRdpCI.clsObLineCharacts")
Set variable = line.GetSpecialVar

On Error Resume Next
CheckProperties
CheckLine
CheckNumbers
CheckOtherValues
CheckIif
CheckTextsByReference
CheckControlWords
CheckComment
CheckSetters
CheckObjects
CheckErrors
CheckCallbackClasses
Finish 111 + 8 * 3

Sub Extract(text)
  line.sClrRecord
  line.SetTextToWrite text
  line.sExtractSpecialVar text
End Sub

' The kinds in which a script gets them, too.
Sub CheckProperties
  On Error Resume Next
  Extract "Total: {Factura.monto[7],15,DERECHA,NOCERO}"
  CheckNoError "a variable is read"
  Check "ReadText", variable.GetReadText, "Factura.monto[7],15,DERECHA,NOCERO"
  Check "RecordName", variable.GetRecordName, "Factura"
  Check "FieldName", variable.GetFieldName, "MONTO"
  Check "the line's field", line.GetField, "MONTO"
  Check "IsFieldOfArray", variable.GetIsFieldOfArray, True
  Check "ArrayPosition", variable.GetArrayPosition, CByte(7)
  Check "ContentString", variable.GetContentString, ""
  Check "ContentNumeric", variable.GetContentNumeric, CCur(0)
  Check "ContentDate", variable.GetContentDate, DateSerial(1900, 1, 1)
  Check "ContentBool", variable.GetContentBool, False
  Check "ContentEnum", variable.GetContentEnum, ""
  Check "AlignmentWasRead", variable.GetAlignmentWasRead, True
  Check "AlignmentType", variable.GetAlignmentType, CLng(0)
  Check "TypeField", variable.GetTypeField, CLng(0)
  Check "Length", variable.GetLength, CByte(15)
  Check "DecimalPlaces", variable.GetDecimalPlaces, CByte(2)
  Check "PrintComa", variable.GetPrintComa, True
  Check "PrintZero", variable.GetPrintZero, False
  Check "PosBegin", variable.GetPosBegin, CInt(8)
  Check "PosEnd", variable.GetPosEnd, CInt(43)
  Check "Size", variable.GetSize, CInt(34)
  Check "IifPossibleValues before an IIF", variable.GetIifPossibleValues, Empty
  Check "PrintLine", variable.GetPrintLine, True
  Check "EndOfRepeatPrintLine", variable.GetEndOfRepeatPrintLine, True
  Check "SpecialSeparationString", variable.GetSpecialSeparationString, ""
  Check "the line's NumberOfSkips", line.GetNumberOfSkips, CByte(1)
  Check "the line's Alignment", line.GetAlignment, CLng(1)
End Sub

' What a report does with a line, as long as a variable is left in it.
Sub CheckLine
  On Error Resume Next
  Dim content
  line.sClrRecord
  line.SetTextToWrite "{bold}{c.nombre,12}|{c.monto,10}|{c.fecha}|{c.activo}|{c.nadie}"
  Do While InStr(line.GetTextToWrite, "{") > 0
    line.sExtractSpecialVar line.GetTextToWrite
    If line.fSpecialVarIsAnyControlChar(line.GetField, content) Then
      variable.SetContentString content
    Else
      Answer line.GetField
    End If
    line.sFormatSpecialVar
    line.sReplaceVarInTextToWrite
    If Err.Number <> 0 Then Exit Do
  Loop
  CheckNoError "a line is resolved"
  Check "the line", line.GetTextToPrint, _
      "<negra>Ñandú & Cía.|  1.234,50|15/03/2024|S|No se encontró"
  Check "takes one printed line", line.fNumberOfPrintedLinesThatWillFill, CByte(1)
  line.SetLineToWriteEmpty True
  Check "an empty one", line.GetTextToPrint, ""
End Sub

Sub Answer(field)
  Select Case field
    Case "NOMBRE"
      variable.SetContentString "Ñandú & Cía."
    Case "MONTO"
      variable.SetContentNumeric 1234.5, False
    Case "FECHA"
      variable.SetContentDate DateSerial(2024, 3, 15)
    Case "ACTIVO"
      variable.SetContentBoolean True
    Case Else
      variable.SetContentString "No se encontró"
  End Select
End Sub

Sub CheckNumber(shows, value, expected)
  On Error Resume Next
  Extract "{c.monto}"
  variable.SetContentNumeric value, False
  variable.sFormatSpecialVar
  CheckNoError shows
  Check shows & ": its value", variable.GetContentNumeric, expected
  Check shows & ": its kind", variable.GetTypeField, CLng(1)
End Sub

Sub CheckNumbers
  On Error Resume Next
  Dim held
  held = CCur("12")
  CheckNumber "a currency in a variable", held, CCur(12)
  CheckNumber "an integer", 1500, CCur(1500)
  CheckNumber "a long", CLng(-70000), CCur(-70000)
  CheckNumber "a byte", CByte(7), CCur(7)
  CheckNumber "a double", 0.25, CCur(0.25)
  CheckNumber "a double with a fifth decimal", 1.00006, CCur(1.0001)
  CheckNumber "a text", "12", CCur(12)
  CheckNumber "Empty", Empty, CCur(0)
  Extract "{c.monto,12}"
  variable.SetContentNumeric CCur(-99999.99), True
  variable.sFormatSpecialVar
  Check "in parentheses", variable.GetTextToWrite, " (99.999,99)"
  variable.SetContentNumeric Null, False
  CheckError "Null is no number", 13, "Type mismatch: valValue", LIBRARY
  variable.SetContentNumeric 1E+30, False
  CheckError "too great a number", 6, "Overflow: valValue", LIBRARY
  variable.SetContentNumeric "doce", False
  CheckError "a word", 13, "Type mismatch: valValue", LIBRARY
  variable.SetContentNumeric variable, False
  CheckError "an object", 13, "Type mismatch: valValue", LIBRARY
  Check "which all leave the value", variable.GetContentNumeric, CCur(-99999.99)
End Sub

Sub CheckOtherValues
  On Error Resume Next
  Extract "{c.texto,8,DERECHA}"
  variable.SetContentString 12
  variable.sFormatSpecialVar
  Check "a number as a text", variable.GetTextToWrite, "      12"
  Check "an empty text", variable.fIsEmpty, False
  variable.SetContentString ""
  Check "which is none", variable.fIsEmpty, True
  Extract "{c.fecha,DATEFORMAT(dd-mm-yy)}"
  variable.SetContentDate DateSerial(1998, 1, 2)
  variable.sFormatSpecialVar
  Check "a date in its format", variable.GetTextToWrite, "02-01-98"
  Check "the date", variable.GetContentDate, DateSerial(1998, 1, 2)
  variable.SetContentDate 36526.5
  Check "a number as a date", variable.GetContentDate, DateSerial(2000, 1, 1) + 0.5
  Extract "{c.activo}"
  variable.SetContentBoolean 0
  variable.sFormatSpecialVar
  Check "false", variable.GetTextToWrite, "N"
  Extract "{det.letras[2]}"
  variable.SetContentArray "SNxy", 6, -1, True, True, -1
  variable.sFormatSpecialVar
  Check "a character of an array", variable.GetTextToWrite, "N"
  Extract "{r.linea,5,FILL}"
  variable.SetContentString "-"
  variable.sFormatSpecialVar
  Check "a rule", variable.GetTextToWrite, "-----"
  CheckNoError "all of them"
End Sub

Sub CheckIif
  On Error Resume Next
  Dim values
  Extract "{c.estado,IIF(""A""""B"",Activo,Inactivo,Otro)}"
  values = variable.GetIifPossibleValues
  Check "the list is an array", IsArray(values), True
  Check "of three", UBound(values), CLng(2)
  Check "of texts", values(0) & "/" & values(1) & "/" & values(2), "Activo/Inactivo/Otro"
  variable.SetContentEnum "B"
  variable.sFormatSpecialVar
  Check "the first for a value in the condition", variable.GetTextToWrite, "Activo"
  variable.SetContentEnum "X"
  variable.sFormatSpecialVar
  Check "the second for another", variable.GetTextToWrite, "Inactivo"
  variable.SetIifPossibleValues Array("uno", "dos")
  variable.sFormatSpecialVar
  Check "from a list of the client's", variable.GetTextToWrite, "dos"
  Check "the list was a copy", values(0), "Activo"
  values = variable.GetIifPossibleValues
  Check "whose first value is the other", values(0), "uno"
  CheckNoError "all of them"
End Sub

Sub CheckTextsByReference
  On Error Resume Next
  Dim name, rest
  variable.sClrObject
  name = "CANT[3][5]"
  variable.sExtractIfHasNumberArrayElement name
  CheckNoError "a text by reference"
  Check "comes back changed", name, "CANT"
  Check "its number", variable.GetArrayPosition, CByte(3)
  Check "its second number was seen", variable.GetFieldOfArrayHasPositionInsideTheArray, True
  variable.sExtractIfHasNumberArrayElement "CANT[4]"
  CheckNoError "by value"
  Check "is read", variable.GetArrayPosition, CByte(4)
  rest = "IIF(S,Sí,No),QL"
  variable.sExtractIfHasFunction rest
  Check "an IIF is taken off", rest, ",QL"
  rest = "DATEFORMAT(dd/mm),12"
  variable.sExtractIfHasDateFormat rest
  Check "of a DATEFORMAT the argument", rest, "DATEFORMAT,12"
  name = 12
  variable.sExtractIfHasNumberArrayElement name
  Check "a number stays what it is", name, 12
  Set name = variable
  variable.sExtractIfHasNumberArrayElement name
  CheckError "an object is no text", 13, "Type mismatch: refName", LIBRARY
End Sub

Sub CheckControlWords
  On Error Resume Next
  Dim content
  content = "antes"
  line.sClrRecord
  Check "a control word", line.fSpecialVarIsAnyControlChar(" negra ", content), True
  Check "and its code", content, "<negra>"
  Check "no control word", line.fSpecialVarIsAnyControlChar("NEGRITA", content), False
  Check "no code", content, ""
  content = 7
  Check "a word without code", line.fSpecialVarIsAnyControlChar("SALTAPAGINA", content), True
  Check "into a variable of another kind", content, ""
  Check "sets its flag", line.GetSkipPageWasRead, True
  Check "the code is not wanted", line.fSpecialVarIsAnyControlChar("comp", "x"), True
  Extract "{snl,3}"
  line.fSpecialVarIsAnyControlChar line.GetField, content
  Check "skips lines", line.GetNumberOfSkips, CByte(3)
  Check "which counts", line.fNumberOfPrintedLinesThatWillFill, CByte(3)
  CheckNoError "all of them"
End Sub

Sub CheckComment
  On Error Resume Next
  Dim comment
  comment = " ... Pausa "
  line.sClrRecord
  line.sExtractComment comment
  Check "a comment's text", line.GetTextToWrite, "  Pausa "
  Check "is the pause word", line.fCheckAnyPrintingControlVarInCommentary(line.GetTextToWrite), _
      True
  Check "which the line knows then", line.GetPauseWasRead, True
  CheckNoError "all of them"
End Sub

Sub CheckSetters
  On Error Resume Next
  variable.SetAlignmentType 2
  Check "an enumeration", variable.GetAlignmentType, CLng(2)
  variable.SetLength "12"
  Check "a text for a byte", variable.GetLength, CByte(12)
  variable.SetPosBegin -32768
  Check "a number of 16 bits", variable.GetPosBegin, CInt(-32768)
  variable.SetFieldName Empty
  Check "Empty for a text", variable.GetFieldName, ""
  variable.SetPrintLine "False"
  Check "a text for a truth value", variable.GetPrintLine, False
  CheckNoError "all of them"
  variable.SetPosEnd 32768
  CheckError "a number past 16 bits", 6, "Overflow: valNewValue", LIBRARY
  variable.SetLength 256
  CheckError "a number past a byte", 6, "Overflow: valNewValue", LIBRARY
End Sub

Sub CheckObjects
  On Error Resume Next
  Dim other
  Check "the variable is the same object", line.GetSpecialVar Is variable, True
  Set other = CreateObject("LibTarvoRdpCI.clsObSpecialVar")
  line.SetSpecialVar other
  Check "until another takes its place", line.GetSpecialVar Is other, True
  line.SetSpecialVar Nothing
  Check "or nothing", line.GetSpecialVar Is Nothing, True
  line.SetSpecialVar line
  CheckError "a line is no variable", 13, "Type mismatch: valNewValue", LIBRARY
  line.SetSpecialVar New RecordingError
  CheckError "nor is an object of the script", 13, "Type mismatch: valNewValue", LIBRARY
  line.SetSpecialVar variable
  CheckNoError "and back"
End Sub

Function Trail(where, procedures)
  Dim procedure
  Trail = ""
  For Each procedure In Split(procedures, " ")
    Trail = Trail & vbCrLf & "   en " & procedure & " (" & where & ")"
  Next
End Function

Sub CheckErrors
  On Error Resume Next
  line.sExtractSpecialVar "{c.monto,256}"
  CheckError "a width above a byte", 6, _
      "Overflow: valText" & Trail(MODULE, "clsObSpecialVar.sReadAttribute " & _
      "clsObSpecialVar.sExtractFieldAndCharacteristics clsObSpecialVar.sExtract") & _
      Trail("Lib. Impresión Texto - Ob Line", "clsObLineCharacteristic.sExtractSpecialVar"), _
      "LibTarvoCI"
  line.sExtractSpecialVar "{sin fin"
  CheckError "a brace without its other", 5, _
      "Invalid procedure call or argument" & Trail(MODULE, "clsObSpecialVar.sExtract") & _
      Trail("Lib. Impresión Texto - Ob Line", "clsObLineCharacteristic.sExtractSpecialVar"), LIBRARY
  Extract "{c.estado}"
  variable.SetIifPossibleValues Empty
  variable.SetContentEnum "A"
  variable.sFormatSpecialVar
  CheckErrorNumber "an enumeration without an IIF", 13
  Extract "{c.monto,XYZ}"
  CheckNoError "an unknown attribute is no error"
  Check "but a message", messageService.calls, _
      "sShowMessageWithTitle ""No se encontró el tipo de atributo XYZ en la línea c.monto,XYZ"", " & _
      """Impresión de Plantilla""" & vbLf
End Sub

' The library's own callback classes answer nothing.
Sub CheckCallbackClasses
  On Error Resume Next
  Dim report, form, sameLine, total, mustShow, message
  Set report = CreateObject("LibTarvoRdpCI.clsImplementIDMD")
  Set form = CreateObject("LibTarvoRdpCI.clsImplementIDTraduc")
  Set sameLine = line
  total = CCur(12.5)
  mustShow = False
  message = "antes"
  Check "a report's variable", report.fTranslateSpecialVarMD(sameLine, total), False
  Check "whose line stays", sameLine Is line, True
  report.sDisplayPauseDialog
  Check "the first record", report.fReadFirstRecord, False
  Check "the next one", report.fReadNextRecord, False
  report.sAccumSubTotal total
  Check "the subtotal", total, CCur(12.5)
  Check "the permission", report.fCanExecuteWriteReport(mustShow, message), False
  Check "without a message", mustShow & " " & message, "False antes"
  Check "the number of records", report.fDetailRecordCount, CLng(0)
  Check "a form's variable", form.fTranslateSpecialVar(sameLine), False
  form.sDisplayPauseDialog
  CheckNoError "all of them"
End Sub
