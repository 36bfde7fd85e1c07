'uses checks.vbs start.vbs recorders.vbs
' The line buffer and the helpers for long texts, with arrays of a script.
Const LIBRARY = "LibTarvoRdpCI"

Dim body, helpers, variable
Set body = CreateObject("LibTarvoRdpCI.clsBody")
Set helpers = CreateObject("LibTarvoRdpCI.clsLibTarvoRdp")
Set variable = CreateObject("LibTarvoRdpCI.clsObSpecialVar")

On Error Resume Next
CheckBody
CheckRows
CheckShortText
CheckErrors
Finish 48

Sub CheckBody
  On Error Resume Next
  Dim lines
  lines = body.GetLinesArray
  Check "the lines are an array", IsArray(lines), True
  Check "of 51", LBound(lines) & " to " & UBound(lines), "0 to 50"
  Check "without a first", lines(0), Empty
  Check "and a last value", lines(50), Empty
  body.SetLinesArray 0, "{det.cant,5} ñ"
  body.SetLinesArray 50, ""
  lines = body.GetLinesArray
  Check "the first line", lines(0), "{det.cant,5} ñ"
  Check "the last line", lines(50), ""
  Check "and none between", lines(1), Empty
  lines(0) = "otra"
  lines = body.GetLinesArray
  Check "it was a copy", lines(0), "{det.cant,5} ñ"
  CheckNoError "all of them"
  body.SetLinesArray 51, "fuera"
  CheckError "a line behind the last", 9, "Subscript out of range", LIBRARY
  body.SetLinesArray -1, "fuera"
  CheckError "a line before the first", 9, "Subscript out of range", LIBRARY
  Check "no number", body.GetNumberOfLinesWithInformation, CInt(0)
  body.SetNumberOfLinesWithInformation 51
  body.SetMaxNumberOfLinesToPrint "40"
  body.SetNumberOfFirstLineOfBody 12.4
  body.SetUseNumberWithCharacterToTheLeftSide True
  body.SetCharacterToTheLeftSide "-"
  body.SetRecordNumberToPrint 32767
  body.SetHasInsertBody True
  CheckNoError "setters"
  Check "the lines read", body.GetNumberOfLinesWithInformation, CInt(51)
  Check "the most lines", body.GetMaxNumberOfLinesToPrint, CInt(40)
  Check "the first line of the page", body.GetNumberOfFirstLineOfBody, CInt(12)
  Check "a character instead of numbers", body.GetUseNumberWithCharacterToTheLeftSide, True
  Check "the character", body.GetCharacterToTheLeftSide, "-"
  Check "the record", body.GetRecordNumberToPrint, CInt(32767)
  Check "a truth value as a number", body.GetHasInsertBody, CInt(-1)
  body.SetRecordNumberToPrint 32768
  CheckError "a number past 16 bits", 6, "Overflow: valNewValue", LIBRARY
End Sub

Function Joined(items)
  Dim i
  Joined = ""
  For i = LBound(items) To UBound(items)
    Joined = Joined & "|" & Shown(items(i))
  Next
End Function

Sub CheckRows
  On Error Resume Next
  Dim rows
  rows = helpers.fToStringArray("ABCDEFGH", 3, 3)
  CheckNoError "a text in rows"
  Check "rows", Joined(rows), "|""ABC""|""DEF""|""GH""|Empty"
  Check "no rows", Joined(helpers.fToStringArray("ABC", 0, 3)), "|Empty"
  Check "a number's digits", Joined(helpers.fToStringArray(1234, 2, 2)), "|""12""|""34""|Empty"
  rows = helpers.fToStringArray("ABC", -1, 3)
  CheckError "a negative number of rows", 9, _
      "Subscript out of range" & vbCrLf & _
      "   en clsLibTarvoRdp.fToStringArray (clsLibTarvoRdp)", LIBRARY
  rows = helpers.fToStringArray("ABC", 3, 20000)
  CheckError "rows past 16 bits", 6, _
      "Overflow" & vbCrLf & "   en clsLibTarvoRdp.fToStringArray (clsLibTarvoRdp)", LIBRARY
End Sub

' As a repeated line is printed.
Function Walk(width, lines)
  Dim pass
  variable.sClrObject
  variable.SetArrayPosition 1
  variable.SetLength width
  variable.SetEndOfRepeatPrintLine False
  Walk = ""
  For pass = 1 To 20
    Walk = Walk & "|" & helpers.fExtractShortText(variable, lines, True)
    If variable.GetEndOfRepeatPrintLine Then Exit For
  Next
End Function

Sub CheckShortText
  On Error Resume Next
  Check "words stay whole", Walk(10, Array("uno dos tres cuatro")), "|uno dos|tres|cuatro"
  Check "the position went on", variable.GetArrayPosition, CByte(4)
  Check "a long word", Walk(5, Array("abcdefghijkl")), "|abcde|fghij|kl"
  Check "a hyphen", Walk(6, Array("alfa-beta gamma")), "|alfa|-beta|gamma"
  Check "lines, of which the last is left", Walk(10, Array("abc", "def", "ghi")), "|abcdef"
  Check "a line without a value", Walk(10, Array("abc", Empty, "def", "ghi")), "|abcdef"
  Check "a split text", Walk(7, Split("uno,dos,tres,", ",")), "|unodost|res"
  CheckNoError "all of them"
  variable.sClrObject
  variable.SetArrayPosition 9
  variable.SetLength 10
  Check "past the end", helpers.fExtractShortText(variable, Array("uno"), True), ""
  Check "is no line", variable.GetPrintLine, False
  CheckNoError "is no error"
  ' A repeated line of more passes than anybody prints, each from the start.
  variable.SetArrayPosition 254
  variable.SetLength 1
  Check "the last but one of 255", _
      helpers.fExtractShortText(variable, Array(String(300, "x")), True), "x"
  Check "the next one", variable.GetArrayPosition, CByte(255)
End Sub

Sub CheckErrors
  On Error Resume Next
  Const HERE = "   en clsLibTarvoRdp.fExtractShortText (clsLibTarvoRdp)"
  Const THERE = "   en clsLibTarvoRdp.sAddTextIfPossible (clsLibTarvoRdp)"
  Dim segment, none
  segment = "antes"
  segment = helpers.fExtractShortText(variable, Array(String(300, "x")), True)
  CheckError "a position past a byte", 6, "Overflow" & vbCrLf & HERE, LIBRARY
  segment = helpers.fExtractShortText(variable, "texto", True)
  CheckError "a text is no array", 13, "Type mismatch: valShortText" & vbCrLf & HERE, LIBRARY
  segment = helpers.fExtractShortText(variable, Array(1, "texto"), True)
  CheckError "a number is no line", 13, "Type mismatch: valShortText" & vbCrLf & HERE, LIBRARY
  segment = helpers.fExtractShortText(variable, Array("texto", 1, "texto"), True)
  CheckError "nor a later one", 13, _
      "Type mismatch: valShortText" & vbCrLf & THERE & vbCrLf & HERE, LIBRARY
  segment = helpers.fExtractShortText(Nothing, Array("texto"), True)
  CheckError "Nothing is no variable", 91, "Object variable not set" & vbCrLf & HERE, LIBRARY
  segment = helpers.fExtractShortText(none, Array("texto"), True)
  CheckError "nor is one without a value", 13, "Type mismatch: refVarEspecial", LIBRARY
  segment = helpers.fExtractShortText(body, Array("texto"), True)
  CheckError "nor another object", 13, "Type mismatch: refVarEspecial", LIBRARY
  Check "none of them gave a text", segment, "antes"
End Sub
