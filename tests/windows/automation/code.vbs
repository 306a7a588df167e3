' SPDX-License-Identifier: MIT
' The objects of Visual Basic projects as scripts use them: cscript code.vbs PROJECT.vbp UMLAUT. Each check
' that fails is named; the last line says how many there were.
Option Explicit
Dim checks: checks = 0
Dim umlaut: umlaut = WScript.Arguments(1)

Sub Check(what, is_, wanted)
  checks = checks + 1
  If "" & is_ <> "" & wanted Then Fail what & ": " & is_ & " instead of " & wanted
End Sub
Sub Fail(what)
  WScript.Echo "FAILED: " & what
  WScript.Quit 1
End Sub

Dim vbe: Set vbe = CreateObject("OVFormulaEditor.VBE")
vbe.Open WScript.Arguments(0)
Check "projects", vbe.VBProjects.Count, 1
Dim project: Set project = vbe.VBProjects("pumpserver")
Check "name", project.Name, "PumpServer"
Check "type", project.Type, 2
Dim component, classes
For Each component In project.VBComponents
  If component.Type = 2 Then
    If component.Properties("Instancing").Value >= 5 Then classes = classes & component.Name & ";"
  End If
Next
Check "classes", classes, "CPump;CTank;GUnits;"

Dim pump: Set pump = project.VBComponents("CPump").CodeModule
Check "declarations", pump.CountOfDeclarationLines < pump.CountOfLines, True
Dim body: body = pump.ProcBodyLine("Start", 0)
Check "line", Left(pump.Lines(body, 1), 16), "Public Sub Start"
Dim kind: kind = 9
Check "procedure of a line", pump.ProcOfLine(body, kind), "Start"
Check "its kind", kind, 0
Check "member", pump.Members("Tick").CodeLocation, pump.ProcBodyLine("Tick", 0)
pump.CodePane.SetSelection body, 1, body, 7
Dim first, column, last, ending
pump.CodePane.GetSelection first, column, last, ending
Check "selection", first & "," & column & "," & last & "," & ending, body & ",1," & body & ",7"

' Edits are there at once and in the file when they are saved.
Dim lines: lines = pump.CountOfLines
pump.InsertLines body + 1, "    ' F" & umlaut & "llen"
pump.AddFromString "Public Sub Added()" & vbCrLf & "End Sub" & vbCrLf
Check "inserted", pump.Lines(body + 1, 1), "    ' F" & umlaut & "llen"
Check "added", pump.ProcCountLines("Added", 0) >= 2, True
Dim other: Set other = CreateObject("OVFormulaEditor.VBE")
other.Open WScript.Arguments(0)
Check "not saved yet", other.VBProjects(1).VBComponents("CPump").CodeModule.CountOfLines, lines
On Error Resume Next
vbe.Open WScript.Arguments(0)
Check "opening between edits", Err.Number, 3219
Err.Clear
pump.DeleteLines 9999
Check "deleting what is not there", Err.Number, 9
Err.Clear
Dim missing: missing = pump.ProcStartLine("Missing", 0)
Check "a procedure that is not there", Err.Number, 35
On Error Goto 0
vbe.Save
Set other = CreateObject("OVFormulaEditor.VBE")
other.Open WScript.Arguments(0)
Check "saved", other.VBProjects(1).VBComponents("CPump").CodeModule.Lines(body + 1, 1), "    ' F" & umlaut & "llen"
pump.ReplaceLine body + 1, "    ' dropped"
WScript.Echo checks & " checks passed"
