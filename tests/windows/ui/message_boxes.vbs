'uses checks.vbs start.vbs
' Shows every kind of the companion's message boxes, in the order in which message_boxes.cpp expects
' them, and looks at the answers.
On Error Resume Next
channel.sInitializePrinterFileHandle "Impresora rápida Nº 1 (Ñandú)", "Documento"
CheckNoError "an unknown printer"
channel.sWriteLn "a ninguna parte", 3
channel.sClosePrinterFileHandle
CheckNoError "what is printed on it"
channel.sInitializePrinterFileHandle "otra", "Documento"
CheckNoError "another one"

messageService.sShowMessageWithTitle "Atributo desconocido: «ÁÉÍÓÚ áéíóú ñÑ üÜ ¿? ¡! ªº €»", _
    "Impresión de Plantilla"
CheckNoError "a message with a title"
Dim warning
warning = "Línea uno" & vbLf & "Línea dos"
messageService.sWarning warning
CheckNoError "a warning"
Check "its text is not changed", warning, "Línea uno" & vbLf & "Línea dos"
messageService.sWarningWithTitle "antes" & Chr(0) & "después", "Impresión de Informe"
CheckNoError "a warning with a title, and with character 0 in its text"

Check "a question that Enter accepts", _
    messageService.fAskAcceptCancel("¿Está listo?", "Dé la vuelta a la hoja"), True
Check "a question that Escape cancels", _
    messageService.fAskAcceptCancel("¿Está listo?", "Dé la vuelta a la hoja"), False
Check "a question whose second button is pressed", _
    messageService.fAskAcceptCancel("¿Está listo?", "Dé la vuelta a la hoja"), False
Check "a location that is accepted", messageService.fWarnLocation("Proyecto", 1), True
Check "a location that is refused", messageService.fWarnLocation("Proyecto", 2), False
CheckNoError "questions"
Finish 13
