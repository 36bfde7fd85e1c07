' A client's start: a printer channel, and the services from the companion.  A script puts its own
' objects in their places, and hands them over again.
Dim channel, start
Dim errorService, messageService, textService, conversionService
Dim defGen, api, utilFile, utilDate, errorCodes, mathOperations, reportUtility

Set channel = CreateObject("LibTarvoRdpCI.clsUtilImp")
Set start = CreateObject("LibTarvoRdpCI.clsInitLibTarvoRpd")

Sub TakeCompanionsServices
  Set errorService = CreateObject("LibTarvoCI.clsError")
  Set messageService = CreateObject("LibTarvoCI.clsMessage")
  Set textService = CreateObject("LibTarvoCI.clsTexto")
  Set conversionService = CreateObject("LibTarvoCI.clsConvert")
  Set defGen = CreateObject("LibTarvoCI.clsDefGen")
  Set api = CreateObject("LibTarvoCI.clsApi")
  Set utilFile = CreateObject("LibTarvoCI.clsUtilFile")
  Set utilDate = CreateObject("LibTarvoCI.clsUtilDate")
  Set errorCodes = CreateObject("LibTarvoCI.clsErrorCodesIG")
  Set mathOperations = CreateObject("LibTarvoCI.clsUtilMathOperations")
  Set reportUtility = CreateObject("LibTarvoCI.clsUtReport")
End Sub

Sub HandOver
  start.sInitializeInternalGlobalClasses errorService, messageService, textService, defGen, _
      conversionService, api, utilFile, utilDate, errorCodes, mathOperations
  start.sInitializePrintLibrary channel, reportUtility
End Sub

TakeCompanionsServices
HandOver

