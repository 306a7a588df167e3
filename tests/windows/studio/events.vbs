' SPDX-License-Identifier: MIT
' A script that plays the studio: cscript events.vbs DATABASE.ovs PROJECT.vbp. Its tree is a dictionary,
' its environment our own objects over the project's files. Each check that fails is named; the last
' line says how many there were.
Option Explicit
Dim checks: checks = 0

Sub Check(what, is_, wanted)
  checks = checks + 1
  If "" & is_ <> "" & wanted Then Fail what & ": " & is_ & " instead of " & wanted
End Sub
Sub Fail(what)
  WScript.Echo "FAILED: " & what
  WScript.Quit 1
End Sub

Function KeysOf(dictionary)
  Dim key, list
  For Each key In dictionary.Keys
    If list <> "" Then list = list & ","
    list = list & key
  Next
  KeysOf = list
End Function

Class Studio
  Public Nodes
  Public Pictures
  Public Selected
  Public Editor
  Public Updates

  Private Sub Class_Initialize
    Set Nodes = CreateObject("Scripting.Dictionary")
    Set Pictures = CreateObject("Scripting.Dictionary")
  End Sub
  ' Parent, text, picture, flags, fourth text.
  Public Function Part(key, number)
    Dim node: node = Nodes.Item(key)
    Part = node(number)
  End Function
  Public Sub RegisterPicture(key, picture)
    If Not Pictures.Exists(key) Then Pictures.Add key, picture
  End Sub
  Public Function AddNode(parent, text, key, info, icon, first, second, third, fourth)
    If Nodes.Exists(key) Then Fail "the node " & key & " is added twice"
    Nodes.Add key, Array(parent, text, icon, first & "," & second & "," & third & "," & fourth, info)
    AddNode = 0
  End Function
  Public Sub RemoveNode(key)
    Dim child
    If Not Nodes.Exists(key) Then Fail "there is no node " & key & " to be removed"
    For Each child In ChildKeys(key, 1)
      RemoveNode child
    Next
    Nodes.Remove key
  End Sub
  Public Function ChildKeys(key, depth)
    Dim each_key, found
    For Each each_key In Nodes.Keys
      If Part(each_key, 0) = key Then found = found & " " & each_key
    Next
    ChildKeys = Array()
    If found <> "" Then ChildKeys = Split(Trim(found), " ")
  End Function
  Public Sub SelectedNode(project, key, text)
    project = "Plant"
    key = Selected
    text = Part(Selected, 1)
  End Sub
  Public Sub UpdateNode(key, first, second)
    Updates = Updates & key & "," & first & "," & second & ";"
  End Sub
  Public Property Get MainWindow
    MainWindow = 0
  End Property
  Public Function RegisterEditor(name)
    RegisterEditor = 7
  End Function
  Public Sub HandOverEditor(handle)
    Editor = handle
  End Sub
End Class

Dim environment: Set environment = CreateObject("OVFormulaEditor.VBE")
environment.Open WScript.Arguments(1)
Dim host: Set host = New Studio
Dim addin: Set addin = CreateObject("OVFormulaEditor.Connect")

' --- Out of order ---
Check "a click before the start", addin.NodeClick("Plant", "FOR0", "Formulas"), 0
Check "an end before the start", addin.Terminate(), 0

' --- Start ---
Check "start", addin.Initialize(WScript.Arguments(0), "PumpServer", host, environment), 0
Check "pictures", KeysOf(host.Pictures), "icoForEditor,icoForFunction,icoForAlias"
Dim picture: Set picture = host.Pictures.Item("icoForAlias")
Check "picture", picture.Type, 3
Check "root", KeysOf(host.Nodes), "FOR0"
Check "its flags", host.Part("FOR0", 3), "-1,-1,-1,0"
addin.StartupComplete
Check "an end without a click", addin.Terminate(), 0
Check "tree", host.Nodes.Count, 0

' --- First use ---
addin.Initialize WScript.Arguments(0), "PumpServer", host, environment
Check "first click", addin.NodeClick("Plant", "FOR0", "Formulas"), 0
Check "nodes", KeysOf(host.Nodes), "FOR0,FORA0,FORF0,FORF1"
Check "formula", host.Part("FORF1", 1), "FillTank"
Check "its icon", host.Part("FORF1", 2), "icoForFunction"
Check "hand-over", host.Editor, 7
Check "second click", addin.NodeClick("Plant", "FORF1", "FillTank"), 0
Check "nothing new", host.Nodes.Count, 4
host.Selected = "FORF1"
Check "double click", addin.NodeDblClick("Plant", "FORF1", "FillTank"), 0
Check "left button", addin.NodeMouseUp("Plant", "FORF1", "FillTank", 1, 0, 3.5, 4), 0
Dim key: key = 117
Dim shift: shift = 4
Check "Alt+F6", addin.NodeKeyDown("Plant", "FORF1", "FillTank", key, shift), 0
Check "is taken", key, 0
key = 65
Check "another key", addin.NodeKeyDown("Plant", "FORF1", "FillTank", key, shift), 0
Check "is left", key, 65
Check "message", addin.GetMessage("Studio", "Saved", Array(1, 2)), 0

' --- Start again, stop ---
Check "start again", addin.Initialize(WScript.Arguments(0), "PumpServer", host, environment), 0
Check "its tree", KeysOf(host.Nodes), "FOR0"
Check "expansion", addin.NodeExpand("Plant", "FOR0", "Formulas"), 0
Check "nodes again", host.Nodes.Count, 4
Check "end", addin.Terminate(), 0
Check "empty tree", host.Nodes.Count, 0
Check "second end", addin.Terminate(), 0
Set addin = Nothing
WScript.Echo checks & " checks passed"
