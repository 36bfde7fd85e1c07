'uses checks.vbs start.vbs recorders.vbs
' The library looks where it was loaded from.  Argument: the location code that it has to tell, or 0.
Dim recording, code, expected
code = CInt(WScript.Arguments(1))
Set recording = New RecordingMessage
Set messageService = recording
Set errorService = New RecordingError
HandOver

expected = ""
If code <> 0 Then expected = "fWarnLocation ""LibTarvoRdpCI"", Integer " & code & vbLf
Check "the answer is False", start.fCheckDllPathSendMsgAndReturnFalseIfCantExecute, False
Check "the warning", recording.calls, expected

recording.calls = ""
recording.answer = False
Check "after a refusal too", start.fCheckDllPathSendMsgAndReturnFalseIfCantExecute, False
Check "every call warns", recording.calls, expected
recording.calls = ""
recording.answer = "quizás"

On Error Resume Next
Dim answer
answer = start.fCheckDllPathSendMsgAndReturnFalseIfCantExecute
If code = 0 Then
  CheckNoError "nobody is asked"
Else
  CheckError "an answer that is no truth value", 13, "Type mismatch", "LibTarvoRdpCI"
End If
Set messageService = Nothing
HandOver
answer = start.fCheckDllPathSendMsgAndReturnFalseIfCantExecute
If code = 0 Then
  CheckNoError "no message service is needed"
Else
  CheckError "without a message service", 91, "Object variable not set", "LibTarvoRdpCI"
End If
Check "this operation has no error handler", errorService.trail, ""
Finish 7
