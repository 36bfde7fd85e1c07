'uses checks.vbs start.vbs profile.vbs
' Prints three documents, four jobs, on a printer, and again into files.
' Arguments: the profile's file, the printer of the first two documents, that of the third, and what
' stands before the files' names ("file:C:\FOLDER\").
Dim firstPrinter, secondPrinter, files
firstPrinter = WScript.Arguments(2)
secondPrinter = WScript.Arguments(3)
files = WScript.Arguments(4)

ReadProfile WScript.Arguments(1)
Check "the code with every byte has every byte", Len(profile("ChrGraphics")), CLng(256)
FillProfile channel, firstPrinter
CheckProfile "", channel, firstPrinter

PrintTestPage channel.GetPrinterName
PrintRules firstPrinter
PrintLetters secondPrinter
PrintTestPage files & "pagina.prn"
PrintRules files & "reglas.prn"
PrintLetters files & "letras.prn"

EmptyProfile
CheckProfile "new: ", CreateObject("LibTarvoRdpCI.clsUtilImp"), ""
Finish 1 + 26 + 26

Sub PrintTestPage(printer)
  channel.sInitializePrinterFileHandle printer, "Página de prueba"
  channel.sPrintTestPage
  channel.sClosePrinterFileHandle
End Sub

' Two jobs of one name.
Sub PrintRules(printer)
  channel.sInitializePrinterFileHandle printer, "Reglas"
  channel.sPrintVerticalRule 1, True
  channel.sSendJobAndStartNewOne
  channel.sPrintHorizontalRule True, 3, 12
  channel.sClosePrinterFileHandle
End Sub

Sub PrintLetters(printer)
  channel.sInitializePrinterFileHandle printer, "Letras: €, ñ"
  channel.sWriteLn channel.GetChrGraphics, 0
  channel.sWriteLn "Año", 2
  channel.sWriteLn "", 255
  channel.sSkipNPoints 3
  channel.sPrintUnderscore 5, True
  channel.sResetPrinter
  channel.sCancelPrintProcess
End Sub
