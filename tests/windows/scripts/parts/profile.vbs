' A printer profile from a file: lines of a property's name and its value (see profile.txt).
Dim profile
Set profile = CreateObject("Scripting.Dictionary")

Sub ReadProfile(fileName)
  Dim file, line, name, value
  Set file = CreateObject("Scripting.FileSystemObject").OpenTextFile(fileName)
  Do Until file.AtEndOfStream
    line = file.ReadLine
    If line <> "" And Left(line, 1) <> "#" Then
      name = Left(line, InStr(line, " ") - 1)
      value = Mid(line, InStr(line, " ") + 1)
      If Left(name, 3) = "Chr" Then
        profile.Add name, CodeOf(value)
      ElseIf Left(name, 3) = "Can" Then
        profile.Add name, CBool(value)
      Else
        profile.Add name, CByte(value)
      End If
    End If
  Loop
  file.Close
End Sub

' "1B 45" or "00-FF" as characters, one for each byte.
Function CodeOf(bytes)
  Dim word, ends, number
  CodeOf = ""
  For Each word In Split(bytes, " ")
    ends = Split(word & "-" & word, "-")
    For number = CInt("&H" & ends(0)) To CInt("&H" & ends(1))
      CodeOf = CodeOf & Chr(number)
    Next
  Next
End Function

' As a client's program does it: property by property.
Sub FillProfile(channel, printerName)
  channel.SetPrinterName printerName
  channel.SetMaxLinPage profile("MaxLinPage")
  channel.SetMaxChrLinCondensed80Columns profile("MaxChrLinCondensed80Columns")
  channel.SetChrFormFeed profile("ChrFormFeed")
  channel.SetChrCondensed profile("ChrCondensed")
  channel.SetChrNormal profile("ChrNormal")
  channel.SetChrInitExpanded profile("ChrInitExpanded")
  channel.SetChrEndExpanded profile("ChrEndExpanded")
  channel.SetChrBold profile("ChrBold")
  channel.SetChrLight profile("ChrLight")
  channel.SetChrReset profile("ChrReset")
  channel.SetChrInitUnderlying profile("ChrInitUnderlying")
  channel.SetChrEndUnderlying profile("ChrEndUnderlying")
  channel.SetChrFont10Points profile("ChrFont10Points")
  channel.SetChrFont12Points profile("ChrFont12Points")
  channel.SetChrInitItalic profile("ChrInitItalic")
  channel.SetChrEndItalic profile("ChrEndItalic")
  channel.SetChrHighLine1Point profile("ChrHighLine1Point")
  channel.SetChrHighLine12Points profile("ChrHighLine12Points")
  channel.SetChrGraphics profile("ChrGraphics")
  channel.SetChrInternationalChars profile("ChrInternationalChars")
  channel.SetChrInitialString1 profile("ChrInitialString1")
  channel.SetChrInitialString2 profile("ChrInitialString2")
  channel.SetChrInitialString3 profile("ChrInitialString3")
  channel.SetChrInitialString4 profile("ChrInitialString4")
  channel.SetCanPrintInTextMode profile("CanPrintInTextMode")
End Sub

' All 26, kinds included.
Sub CheckProfile(when, channel, printerName)
  Check when & "PrinterName", channel.GetPrinterName, printerName
  Check when & "MaxLinPage", channel.GetMaxLinPage, profile("MaxLinPage")
  Check when & "MaxChrLinCondensed80Columns", channel.GetMaxChrLinCondensed80Columns, _
      profile("MaxChrLinCondensed80Columns")
  Check when & "ChrFormFeed", channel.GetChrFormFeed, profile("ChrFormFeed")
  Check when & "ChrCondensed", channel.GetChrCondensed, profile("ChrCondensed")
  Check when & "ChrNormal", channel.GetChrNormal, profile("ChrNormal")
  Check when & "ChrInitExpanded", channel.GetChrInitExpanded, profile("ChrInitExpanded")
  Check when & "ChrEndExpanded", channel.GetChrEndExpanded, profile("ChrEndExpanded")
  Check when & "ChrBold", channel.GetChrBold, profile("ChrBold")
  Check when & "ChrLight", channel.GetChrLight, profile("ChrLight")
  Check when & "ChrReset", channel.GetChrReset, profile("ChrReset")
  Check when & "ChrInitUnderlying", channel.GetChrInitUnderlying, profile("ChrInitUnderlying")
  Check when & "ChrEndUnderlying", channel.GetChrEndUnderlying, profile("ChrEndUnderlying")
  Check when & "ChrFont10Points", channel.GetChrFont10Points, profile("ChrFont10Points")
  Check when & "ChrFont12Points", channel.GetChrFont12Points, profile("ChrFont12Points")
  Check when & "ChrInitItalic", channel.GetChrInitItalic, profile("ChrInitItalic")
  Check when & "ChrEndItalic", channel.GetChrEndItalic, profile("ChrEndItalic")
  Check when & "ChrHighLine1Point", channel.GetChrHighLine1Point, profile("ChrHighLine1Point")
  Check when & "ChrHighLine12Points", channel.GetChrHighLine12Points, _
      profile("ChrHighLine12Points")
  Check when & "ChrGraphics", channel.GetChrGraphics, profile("ChrGraphics")
  Check when & "ChrInternationalChars", channel.GetChrInternationalChars, _
      profile("ChrInternationalChars")
  Check when & "ChrInitialString1", channel.GetChrInitialString1, profile("ChrInitialString1")
  Check when & "ChrInitialString2", channel.GetChrInitialString2, profile("ChrInitialString2")
  Check when & "ChrInitialString3", channel.GetChrInitialString3, profile("ChrInitialString3")
  Check when & "ChrInitialString4", channel.GetChrInitialString4, profile("ChrInitialString4")
  Check when & "CanPrintInTextMode", channel.GetCanPrintInTextMode, profile("CanPrintInTextMode")
End Sub

' What a new channel has.
Sub EmptyProfile
  Dim property
  For Each property In profile.Keys
    If Left(property, 3) = "Chr" Then
      profile(property) = ""
    ElseIf Left(property, 3) = "Can" Then
      profile(property) = False
    Else
      profile(property) = CByte(0)
    End If
  Next
End Sub

