' The checks of a test script.  Each makes one line of the report, whose name is the script's first
' argument; the script ends with Finish, which says how many there had to be: under "On Error Resume
' Next", a check that could not be made would go unnoticed.
'
' This file comes first; what it declares, and that variables must be declared, is for the whole.
Option Explicit

Dim checkReport
Set checkReport = CreateObject("Scripting.FileSystemObject").CreateTextFile( _
    WScript.Arguments(0), True, True)

' Text without characters that would break a line of the report.
Function Visible(text)
  Dim i, character
  Visible = ""
  For i = 1 To Len(text)
    character = Mid(text, i, 1)
    If Asc(character) >= 0 And Asc(character) < 32 Then
      Visible = Visible & "<" & Right("0" & Hex(Asc(character)), 2) & ">"
    Else
      Visible = Visible & character
    End If
  Next
End Function

' A value with its kind: Byte 3, String "abc", Nothing.
Function Shown(value)
  If IsObject(value) Then
    If value Is Nothing Then Shown = "Nothing" Else Shown = "(object)"
  ElseIf IsNull(value) Then
    Shown = "Null"
  ElseIf IsEmpty(value) Then
    Shown = "Empty"
  ElseIf IsArray(value) Then
    Shown = "(array)"
  ElseIf VarType(value) = vbString Then
    Shown = """" & Visible(value) & """"
  Else
    Shown = TypeName(value) & " " & CStr(value)
  End If
End Function

Sub ReportCheck(shows, expected, actual)
  If actual = expected Then
    checkReport.WriteLine "ok " & shows
  Else
    checkReport.WriteLine "FAILED " & shows & ": expected " & expected & ", was " & actual
  End If
End Sub

' The value and its kind.
Sub Check(shows, actual, expected)
  ReportCheck shows, Shown(expected), Shown(actual)
End Sub

' The error that the statement before has raised; it is forgotten then.
Sub CheckError(shows, number, description, source)
  Dim actual
  actual = Err.Number & " """ & Visible(Err.Description) & """ from " & Err.Source
  Err.Clear
  ReportCheck shows, number & " """ & Visible(description) & """ from " & source, actual
End Sub

' The error's number alone, where description and source are the script host's own.
Sub CheckErrorNumber(shows, number)
  Dim actual
  actual = CStr(Err.Number)
  Err.Clear
  ReportCheck shows, CStr(number), actual
End Sub

Sub CheckNoError(shows)
  Dim actual
  actual = Err.Number & " """ & Visible(Err.Description) & """"
  Err.Clear
  ReportCheck shows, "0 """"", actual
End Sub

Sub Finish(numberOfChecks)
  checkReport.WriteLine "end " & numberOfChecks
  checkReport.Close
  WScript.Quit 42
End Sub

