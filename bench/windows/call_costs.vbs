' What a call of the printer channel costs a script: writes "NAME NANOSECONDS" lines into the file
' that is its argument.  The loop itself is taken off.
Option Explicit
' So many that the clock's steps, a few milliseconds each, do not matter.
Const CALLS = 100000
Const RUNS = 2
Dim channel, start, results, code, emptyLoop

Set start = CreateObject("LibTarvoRdpCI.clsInitLibTarvoRpd")
start.sInitializeInternalGlobalClasses CreateObject("LibTarvoCI.clsError"), _
    CreateObject("LibTarvoCI.clsMessage"), CreateObject("LibTarvoCI.clsTexto"), _
    CreateObject("LibTarvoCI.clsDefGen"), CreateObject("LibTarvoCI.clsConvert"), _
    CreateObject("LibTarvoCI.clsApi"), CreateObject("LibTarvoCI.clsUtilFile"), _
    CreateObject("LibTarvoCI.clsUtilDate"), CreateObject("LibTarvoCI.clsErrorCodesIG"), _
    CreateObject("LibTarvoCI.clsUtilMathOperations")
Set channel = CreateObject("LibTarvoRdpCI.clsUtilImp")
channel.sInitializePrinterFileHandle "file:NUL", "Medida"
code = Chr(27) & "E"

Set results = CreateObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(0), True)
emptyLoop = Least("nothing")
WriteCost "GetMaxLinPage"
WriteCost "SetChrBold"
WriteCost "SetChrBold_variable"
WriteCost "sWriteLn"
results.Close
WScript.Quit 42

Sub WriteCost(what)
  results.WriteLine what & " " & CLng((Least(what) - emptyLoop) / CALLS * 1000000000)
End Sub

' The shortest of the runs, in seconds.
Function Least(what)
  Dim i, seconds
  Least = TimeOf(what)
  For i = 2 To RUNS
    seconds = TimeOf(what)
    If seconds < Least Then Least = seconds
  Next
End Function

Function TimeOf(what)
  Dim i, began, line, lines
  line = String(78, "x")
  began = Timer
  Select Case what
    Case "nothing"
      For i = 1 To CALLS
      Next
    Case "GetMaxLinPage"
      For i = 1 To CALLS
        lines = channel.GetMaxLinPage
      Next
    Case "SetChrBold"
      For i = 1 To CALLS
        channel.SetChrBold "[E"
      Next
    Case "SetChrBold_variable"
      For i = 1 To CALLS
        channel.SetChrBold code
      Next
    Case "sWriteLn"
      For i = 1 To CALLS
        channel.sWriteLn line, 2
      Next
  End Select
  TimeOf = Timer - began
End Function
