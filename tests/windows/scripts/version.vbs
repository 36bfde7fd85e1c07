'uses checks.vbs start.vbs recorders.vbs
' The library announces its version.  Arguments: the version, "1.0.25", and the companion's file.
Dim registry
Set errorService = New RecordingError
HandOver
Set registry = CreateObject("LibTarvoCI.clsVersionRegistry")
Check "nothing was announced", registry.GetRegisteredVersion, ""
start.sSendDllVersionToLibTarvoCI
Check "name and version", registry.GetRegisteredVersion, _
    "LibTarvoRdpCI.dll  Versión: " & WScript.Arguments(1)

' Without a core library there is nobody to announce it to.
Check "the companion is gone", CreateObject("WScript.Shell").Run( _
    "regsvr32 /s /u """ & WScript.Arguments(2) & """", 0, True), CLng(0)
On Error Resume Next
start.sSendDllVersionToLibTarvoCI
CheckError "the registry's class is named", 429, "Component can't create object: " & _
    "LibTarvoCI.clsVersionRegistry < sSendDllVersionToLibTarvoCI", "LibTarvoRdpCI"
Check "the report", errorService.trail, _
    "clsInitLibTarvoRpd.sSendDllVersionToLibTarvoCI (clsInitLibTarvoRpd) 2" & vbLf
Finish 5
