'uses checks.vbs recorders.vbs
' Without a core library there is nobody to announce the version to.
Dim start, recording
Set start = CreateObject("LibTarvoRdpCI.clsInitLibTarvoRpd")
Set recording = New RecordingError
start.sInitializeInternalGlobalClasses recording, Nothing, Nothing, Nothing, Nothing, Nothing, _
    Nothing, Nothing, Nothing, Nothing
On Error Resume Next
start.sSendDllVersionToLibTarvoCI
CheckError "the registry's class is named", 429, "Component can't create object: " & _
    "LibTarvoCI.clsVersionRegistry < sSendDllVersionToLibTarvoCI", "LibTarvoRdpCI"
Check "the report", recording.trail, _
    "clsInitLibTarvoRpd.sSendDllVersionToLibTarvoCI (clsInitLibTarvoRpd) 2" & vbLf
Finish 2
