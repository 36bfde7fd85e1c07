'uses checks.vbs recorders.vbs start.vbs
' Shows the printing mode's dialog, in the order in which printing_mode.cpp works it, and looks at
' what the client gets.
Const LIBRARY = "LibTarvoRdpCI"
Const F2 = 113, F3 = 114, F6 = 117, ESC = 27

' A platform-call service that takes F6 and Esc, chooses and presses by itself for F2, and fails for
' F3.
Class KeyService
  Public seen

  Public Function fFormKey(refForm, valKeyCode, valShift)
    seen = seen & valKeyCode & "/" & valShift & " "
    fFormKey = (valKeyCode = F6 Or valKeyCode = ESC)
    If valKeyCode = F2 Then
      seen = seen & refForm.Name & ", " & refForm.CAPTION & ", "
      refForm.optPrintingMode(1).Value = True
      seen = seen & refForm.optPrintingMode(0).Value & ", " & refForm.optPrintingMode(1).Value
      refForm.cmdContinue.Click
    End If
    If valKeyCode = F3 Then refForm.Nada
  End Function
  Public Sub sPressButton(refButton)
    seen = seen & "press"
  End Sub
End Class

Dim helpers, mode
Set helpers = CreateObject("LibTarvoRdpCI.clsLibTarvoRdp")

On Error Resume Next
CheckChoices
CheckService
Finish 52

' The output is changed whatever it was before.
Sub CheckChoice(shows, accepted, chosen)
  Dim answer
  mode = 7
  answer = helpers.fChoosePrintingMode(mode)
  Check shows & ": answer", answer, accepted
  Check shows & ": mode", mode, CLng(chosen)
End Sub

Sub CheckChoices
  On Error Resume Next
  CheckChoice "Enter", True, 1
  CheckChoice "Esc", False, 1
  CheckChoice "F6", True, 1
  CheckChoice "the first button's letter", True, 1
  CheckChoice "the second button's letter", False, 1
  CheckChoice "the other option", True, 0
  CheckChoice "the other option by the mouse", True, 0
  CheckChoice "there and back", True, 1
  CheckChoice "the second button by the mouse", False, 1
  CheckChoice "the close box", False, 1
  CheckChoice "Alt+F4", False, 1
  CheckChoice "F6 on the other option", True, 0
  CheckChoice "Esc on the other option", False, 1
  CheckChoice "Esc on the first button", False, 1
  CheckChoice "F6 on the second button", True, 1
  CheckChoice "Enter on the second button", False, 1
  CheckChoice "round the controls", True, 1
  CheckChoice "a click by message", True, 1
  CheckChoice "the tooltip", False, 1
  CheckNoError "the choices"
End Sub

Sub CheckService
  On Error Resume Next
  Dim errors, answer
  Set errors = New RecordingError
  Set errorService = errors
  Set api = New KeyService
  HandOver
  CheckChoice "keys that the service takes", True, 1
  Check "what it saw", api.seen, "117/0 27/0 "
  api.seen = ""
  CheckChoice "a service that chooses", True, 0
  Check "what it saw of the form", api.seen, "113/0 frmChoosePrintingMode, " & _
      "Modos de Impresión Disponibles, False, True"
  CheckNoError "with a service"
  mode = 7
  answer = "antes"
  answer = helpers.fChoosePrintingMode(mode)
  CheckErrorNumber "a service that fails", 438
  Check "no answer", answer, "antes"
  Check "the mode is graphic all the same", mode, CLng(1)
  Check "the trail", Visible(errors.trail), Visible( _
      "frmChoosePrintingMode.sCheckForSpecialKeys (Selección de Modo de Impresión) 1" & vbLf & _
      "frmChoosePrintingMode.optPrintingMode_KeyDown (Selección de Modo de Impresión) 1" & vbLf & _
      "clsLibTarvoRdp.fChoosePrintinMode (clsLibTarvoRdp) 2" & vbLf)
  Set api = Nothing
  TakeCompanionsServices
  HandOver
  CheckChoice "the next one", True, 1
End Sub
