' SPDX-License-Identifier: MIT
' The time of one late-bound call from VBScript through Varnock.dll: a
' property read and a method that works on the object alone, each repeated.
'   cscript //nologo timing.vbs
Option Explicit
Dim user, i, started, count, name
count = 20000
Set user = CreateObject("Varnock.User")
user.Username = "jdoe"
started = Timer
For i = 1 To count
  name = user.Username
Next
WScript.Echo "property read: " & CLng((Timer - started) * 1000000000 / count) & " ns"
started = Timer
For i = 1 To count
  name = user.GetTableName()
Next
WScript.Echo "method call: " & CLng((Timer - started) * 1000000000 / count) & " ns"
