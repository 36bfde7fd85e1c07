'uses checks.vbs start.vbs recorders.vbs
' The library announces its version.  Argument: the version, "1.0.25".
Dim registry
Set errorService = New RecordingError
HandOver
Set registry = CreateObject("LibTarvoCI.clsVersionRegistry")
Check "nothing was announced", registry.GetRegisteredVersion, ""
start.sSendDllVersionToLibTarvoCI
Check "name and version", registry.GetRegisteredVersion, _
    "LibTarvoRdpCI.dll  Versión: " & WScript.Arguments(1)
Finish 2
