' SPDX-License-Identifier: MIT
' A studio that runs where no windows can be opened: cscript no_display.vbs DATABASE.ovs. It is told so.
Option Explicit

Class Studio
  Public Said
  Public Nodes

  Public Function AddNode(parent, text, key, info, icon, first, second, third, fourth)
    Nodes = Nodes + 1
    AddNode = 0
  End Function
  Public Sub ShowError(text)
    Said = Said & text
  End Sub
End Class

Dim host: Set host = New Studio
Dim addin: Set addin = CreateObject("OVFormulaEditor.Connect")
Dim result: result = addin.Initialize(WScript.Arguments(0), "PumpServer", host, Nothing)
addin.NodeClick "Plant", "FOR0", "Formulas"
addin.Terminate
Set addin = Nothing
WScript.Echo result & ", " & host.Nodes & " nodes: " & host.Said
WScript.Echo "ended well"
