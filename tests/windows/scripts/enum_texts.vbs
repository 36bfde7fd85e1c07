'uses checks.vbs recorders.vbs start.vbs
' The enumerations' texts, combo boxes of a script, and the operator's help text.
Const LIBRARY = "LibTarvoRdpCI"

' A script's list: it has no type with a name.
Class ComboBox
  Public calls
  Public first
  Public second
  Public Sub Clear
    calls = calls & "Clear; "
  End Sub
  Public Sub AddItem(item)
    calls = calls & "AddItem " & item & "; "
  End Sub
  Public Property Get ListCount
    ListCount = 2
  End Property
  Public Property Get List(index)
    If index = 0 Then List = first Else List = second
  End Property
  Public Property Let List(index, item)
    If index = 0 Then first = item Else second = item
    calls = calls & "List(" & index & ") " & item & "; "
  End Property
  Public Property Let Text(value)
    calls = calls & "Text " & value & "; "
  End Property
  Public Property Let ListIndex(value)
    calls = calls & "ListIndex " & value & "; "
  End Property
  Public Property Let Width(value)
    calls = calls & "Width " & value & "; "
  End Property
End Class

Class Plain
End Class

Dim texts, helpers, messages
Set texts = CreateObject("LibTarvoRdpCI.clsEnumPrint")
Set helpers = CreateObject("LibTarvoRdpCI.clsLibTarvoRdp")
Set messages = New RecordingMessage
Set messageService = messages
HandOver

On Error Resume Next
CheckTexts
CheckNumbers
CheckCombos
CheckHelp
Finish 39

Sub CheckTexts
  On Error Resume Next
  Check "final print", texts.fEnumPruebaODefinitivaToString(0), "Imprimir Planilla"
  Check "draft", texts.fEnumPruebaODefinitivaToString(1), "Borrador"
  Check "neither", texts.fEnumPruebaODefinitivaToString(2), "Imprimir Planilla"
  Check "less", texts.fEnumPruebaODefinitivaToString(-1), "Imprimir Planilla"
  Check "text", texts.fEnumPrintingModeToString(0), "Impresión Texto (DOS)"
  Check "graphic", texts.fEnumPrintingModeToString(1), "Impresión Gráfica"
  Check "neither of them", texts.fEnumPrintingModeToString(5), "Impresión Texto (DOS)"
  Check "a number's text", texts.fEnumPrintingModeToString("1"), "Impresión Gráfica"
  CheckNoError "texts"
  Dim ignored
  ignored = texts.fEnumPrintingModeToString("uno")
  CheckError "no number", 13, "Type mismatch: valPrintingMode", LIBRARY
End Sub

Sub CheckNumbers
  On Error Resume Next
  Check "BORRADOR", texts.fStrPruebaODefinitivaToNum("BORRADOR", True), CInt(1)
  Check "borrador", texts.fStrPruebaODefinitivaToNum("borrador", True), CInt(1)
  Check "imprimir planilla", texts.fStrPruebaODefinitivaToNum("imprimir planilla", True), CInt(0)
  Check "impresión gráfica", texts.fStrPrintingModeToNum("impresión gráfica", True), CInt(1)
  Check "IMPRESIÓN GRÁFICA", texts.fStrPrintingModeToNum("IMPRESIÓN GRÁFICA", True), CInt(1)
  Check "IMPRESIÓN TEXTO (DOS)", texts.fStrPrintingModeToNum("IMPRESIÓN TEXTO (DOS)", True), CInt(0)
  Check "no warning", messages.calls, ""
  Check "without accent", texts.fStrPrintingModeToNum("Impresion Texto (DOS)", True), CInt(0)
  Check "the warning", messages.calls, "sWarning ""Valor Impresion Texto (DOS) no existe en " & _
      "tipo enumerativo PrintingMode""" & vbLf
  messages.calls = ""
  Check "another", texts.fStrPruebaODefinitivaToNum("año", True), CInt(0)
  Check "its warning", messages.calls, _
      "sWarning ""Valor año no existe en tipo enumerativo pruebaODefinitiva""" & vbLf
  messages.calls = ""
  Check "unwarned", texts.fStrPruebaODefinitivaToNum("otro", False), CInt(0)
  Check "unwarned too", texts.fStrPrintingModeToNum("otro", False), CInt(0)
  Check "no warning now", messages.calls, ""
  CheckNoError "numbers"
End Sub

Sub CheckCombos
  On Error Resume Next
  Dim combo
  Set combo = New ComboBox
  texts.sFillComboBoxWithPrintingMode combo
  CheckNoError "a fill"
  Check "what it did", combo.calls, "Clear; Text Impresión Gráfica; List(0) Impresión Gráfica; " & _
      "List(1) Impresión Texto (DOS); ListIndex 0; Width 2580; "
  Check "the chosen entry", texts.fStrPrintingModeToNum(combo.List(0), True), CInt(1)
  Check "the other one", texts.fStrPrintingModeToNum(combo.List(1), True), CInt(0)
  texts.sFillComboBoxWithPrintingMode New Plain
  CheckErrorNumber "an object without Clear", 438
  texts.sFillComboBoxWithPrintingMode Nothing
  CheckError "Nothing", 91, "Object variable not set", LIBRARY
  texts.sFillComboBoxWithPruebaODefinitiva Nothing
  CheckNoError "Nothing is no combo box"
  texts.sFillComboBoxWithPruebaODefinitiva texts
  CheckNoError "nor is another object"
  texts.sFillComboBoxWithPruebaODefinitiva New Plain
  CheckNoError "nor one whose type has another name"
  texts.sFillComboBoxWithPruebaODefinitiva "texto"
  CheckError "a text is no object", 13, "Type mismatch: refComboBox", LIBRARY
End Sub

Sub CheckHelp
  On Error Resume Next
  Check "where the printer is chosen", helpers.fMsgForLocateOptionChoosePrinter, vbCrLf & _
      "Para accesar a la opción de Escoger Impresora, debe dirigirse al menú T, seleccionar " & _
      "la opción 'Configuración de Impresión', una vez allí presione el botón " & _
      "'Impresión Texto' y ubíquese en la pestaña 'Escoger Impresora'"
  CheckNoError "the help text"
  Dim missing
  missing = helpers.fChoosePrintingMode()
  CheckErrorNumber "the mode must be given", 449
  CheckNoError "and nothing else happened"
  Set messageService = Nothing
  messages.calls = ""
End Sub
