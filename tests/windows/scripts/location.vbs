'uses checks.vbs recorders.vbs
' The library looks where it was loaded from.  Arguments: files of the library, and behind each the
' location code that it has to tell, or 0.  They are registered and loaded one after the other.
Dim place
For place = 1 To WScript.Arguments.Count - 1 Step 2
  CheckLocation WScript.Arguments(place), CInt(WScript.Arguments(place + 1))
Next
Finish 4 * (WScript.Arguments.Count - 1)

Sub CheckLocation(fileName, code)
  On Error Resume Next
  Dim start, message, failures, expected, answer
  Check fileName & ": is registered", CreateObject("WScript.Shell").Run( _
      "regsvr32 /s """ & fileName & """", 0, True), CLng(0)
  Set start = CreateObject("LibTarvoRdpCI.clsInitLibTarvoRpd")
  Set message = New RecordingMessage
  Set failures = New RecordingError
  start.sInitializeInternalGlobalClasses failures, message, Nothing, Nothing, Nothing, Nothing, _
      Nothing, Nothing, Nothing, Nothing

  expected = ""
  If code <> 0 Then expected = "fWarnLocation ""LibTarvoRdpCI"", Integer " & code & vbLf
  Check fileName & ": answer", start.fCheckDllPathSendMsgAndReturnFalseIfCantExecute, False
  Check fileName & ": warning", message.calls, expected
  message.calls = ""
  message.answer = False
  Check fileName & ": answer after a refusal", _
      start.fCheckDllPathSendMsgAndReturnFalseIfCantExecute, False
  Check fileName & ": every call warns", message.calls, expected

  message.answer = "quizás"
  answer = start.fCheckDllPathSendMsgAndReturnFalseIfCantExecute
  If code = 0 Then
    CheckNoError fileName & ": nobody is asked"
  Else
    CheckError fileName & ": an answer that is no truth value", 13, "Type mismatch", _
        "LibTarvoRdpCI"
  End If
  start.sInitializeInternalGlobalClasses failures, Nothing, Nothing, Nothing, Nothing, Nothing, _
      Nothing, Nothing, Nothing, Nothing
  answer = start.fCheckDllPathSendMsgAndReturnFalseIfCantExecute
  If code = 0 Then
    CheckNoError fileName & ": no message service is needed"
  Else
    CheckError fileName & ": without a message service", 91, "Object variable not set", _
        "LibTarvoRdpCI"
  End If
  Check fileName & ": the operation has no error handler", failures.trail, ""
End Sub
