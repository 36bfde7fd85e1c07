' Services that write down what the library asks them.

' Answers questions with `answer`.
Class RecordingMessage
  Public calls
  Public answer

  Private Sub Class_Initialize
    calls = ""
    answer = True
  End Sub

  Private Sub Record(operation, arguments)
    calls = calls & operation & " " & arguments & vbLf
  End Sub

  Public Sub sShowMessage(refText)
    Record "sShowMessage", Shown(refText)
  End Sub
  Public Sub sShowMessageWithTitle(valText, valTitle)
    Record "sShowMessageWithTitle", Shown(valText) & ", " & Shown(valTitle)
  End Sub
  Public Sub sWarning(refText)
    Record "sWarning", Shown(refText)
  End Sub
  Public Sub sWarningWithTitle(valText, valTitle)
    Record "sWarningWithTitle", Shown(valText) & ", " & Shown(valTitle)
  End Sub
  Public Function fAskAcceptCancel(valText, valTitle)
    Record "fAskAcceptCancel", Shown(valText) & ", " & Shown(valTitle)
    fAskAcceptCancel = answer
  End Function
  Public Function fWarnLocation(valProjectTitle, valLocationCode)
    Record "fWarnLocation", Shown(valProjectTitle) & ", " & Shown(valLocationCode)
    fWarnLocation = answer
  End Function
End Class

' Its descriptions are the procedures that the error passed: "Overflow < sWrite < sResetPrinter".
Class RecordingError
  Public trail        ' class.procedure (module) kind, a line for each level
  Public lastCall     ' all nine arguments of the last level

  Private Sub Class_Initialize
    Forget
  End Sub

  Public Sub Forget
    trail = ""
    lastCall = ""
  End Sub

  Public Function fDescribeError(valDescription, valClassName, valProcedureName, _
                                 valModuleDescription, valKind, valHelpContext, valHelpFile, _
                                 valLastDllError, valReserved)
    trail = trail & valClassName & "." & valProcedureName & " (" & valModuleDescription & ") " & _
        valKind & vbLf
    lastCall = Shown(valDescription) & ", " & Shown(valClassName) & ", " & _
        Shown(valProcedureName) & ", " & Shown(valModuleDescription) & ", " & Shown(valKind) & _
        ", " & Shown(valHelpContext) & ", " & Shown(valHelpFile) & ", " & _
        Shown(valLastDllError) & ", " & Shown(valReserved)
    fDescribeError = valDescription & " < " & valProcedureName
  End Function
End Class

