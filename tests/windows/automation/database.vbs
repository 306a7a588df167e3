' SPDX-License-Identifier: MIT
' The database objects as scripts use them: cscript database.vbs DATABASE.ovs UMLAUT. Each check that fails
' is named; the last line says how many there were.
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
' Checks the number of the error that the statement before raised.
Sub CheckError(what, number)
  checks = checks + 1
  If Err.Number <> number Then Fail what & ": error " & Err.Number & " (" & Err.Description & ") instead of " & number
  If Err.Description = "" Then Fail what & ": an error without words"
  Err.Clear
End Sub

Dim path: path = WScript.Arguments(0)
Dim cn: Set cn = CreateObject("OVFormulaEditor.Connection")
Dim rs: Set rs = CreateObject("OVFormulaEditor.Recordset")

' --- Closed objects and what cannot be had ---
Check "state", cn.State, 0
On Error Resume Next
rs.MoveNext
CheckError "moving in a closed recordset", 3704
rs.Open "TvbfAlias", 7
CheckError "a number as connection", 3001
cn.Open "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" & path & ".missing"
CheckError "opening what is not there", -2147467259
rs.NoSuchMember
CheckError "an unknown member", 438
On Error Goto 0

' --- Rows ---
cn.Open "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" & path & ";Mode=Read|Write|Share Deny None;"
Check "state", cn.State, 1
rs.Open "TvbfAlias", cn, 3, 3, 2
Check "fields", rs.Fields.Count, 3
Check "name", rs.Fields(1).Name, "ItemID"
Check "type", rs.Fields("VBAlias").Type, 202
Check "size", rs("vbAlias").DefinedSize > 0, True
Check "rows", rs.RecordCount, 2
Check "value", rs("VBAlias"), "Level"
Check "umlaut", rs("ItemID"), "Tank1.F" & umlaut & "llstand"
Dim field, names
For Each field In rs.Fields
  names = names & field.Name & ";"
Next
Check "for each", names, "ID;ItemID;VBAlias;"
Dim place: place = rs.Bookmark
rs.MoveLast
Check "last", rs("VBAlias"), "Pump"
rs.Bookmark = place
Check "bookmark", rs("VBAlias"), "Level"
rs.Move 1
Check "move", rs.AbsolutePosition, 2
Dim block: block = rs.GetRows(-1, 1, Array("VBAlias", "ID"))
Check "block of fields", UBound(block, 1), 1
Check "block of rows", UBound(block, 2), 1
Check "block", block(0, 1) & block(1, 1), "Pump2"
Check "behind the block", rs.EOF, True
rs.Filter = "VBAlias='Pump'"
Check "filtered", rs.RecordCount, 1
rs.Filter = 0
Check "not filtered", rs.RecordCount, 2
rs.Find "VBAlias='Pump'"
Check "found", rs("ID"), 2
On Error Resume Next
rs("Nothing") = 1
CheckError "an unknown field", 3265
rs.Open "TvbfAlias", cn
CheckError "opening twice", 3705
On Error Goto 0

' --- Edits ---
cn.BeginTrans
rs.AddNew Array("ItemID", "VBAlias"), Array("Gone", "Gone")
cn.RollbackTrans
rs.Requery
Check "rolled back", rs.RecordCount, 2
rs.AddNew Array("ItemID", "VBAlias"), Array("Tank1.Valve", "Valve")
Check "number of the new row", rs("ID") >= 3, True
Dim valve: valve = rs("ID")
rs("ItemID") = "Tank2.Valve"
Check "edit mode", rs.EditMode, 1
Check "original", rs("ItemID").OriginalValue, "Tank1.Valve"
rs.CancelUpdate
Check "cancelled", rs("ItemID"), "Tank1.Valve"
rs("ItemID").Value = "Tank3.Valve"
rs.Update
rs.Fields("VBAlias") = Null
On Error Resume Next
rs.Close
CheckError "closing during an edit", 3219
On Error Goto 0
rs.CancelUpdate
rs.Close
rs.Index = "VBAlias"
rs.Open "TvbfAlias", cn, 1, 3, 512
rs.Seek Array("Valve"), 1
Check "sought", rs("ItemID"), "Tank3.Valve"
On Error Resume Next
rs("VBAlias") = "Pump"
rs.Update
CheckError "a name that is taken", -2147217887
Check "errors", cn.Errors.Count > 0, True
Check "its number", cn.Errors(0).Number, -2147217887
On Error Goto 0
rs.CancelUpdate
rs.Close

' --- Queries ---
Dim query: Set query = CreateObject("OVFormulaEditor.Command")
Set query.ActiveConnection = cn
query.CommandText = "SELECT VBAlias FROM TvbfAlias WHERE ID = ?"
query.Parameters.Append query.CreateParameter("ID", 3, 1, 4, 2)
Dim answer: Set answer = query.Execute
Check "with a parameter", answer("VBAlias"), "Pump"
query.Parameters(0).Value = valve
rs.Index = ""
rs.Open query
Check "with another value", rs("VBAlias"), "Valve"
On Error Resume Next
answer("VBAlias") = "X"
CheckError "writing what is read only", 3251
cn.Execute "SELECT nonsense FROM"
CheckError "no query", -2147217900
On Error Goto 0

' --- Definitions ---
Dim schema, found: Set schema = cn.OpenSchema(12, Array(Empty, Empty, Empty, Empty, "TvbfAlias"))
Do Until schema.EOF
  If schema("INDEX_NAME") = "VBAlias" Then found = schema("COLUMN_NAME")
  schema.MoveNext
Loop
Check "columns of an index", found, "VBAlias"
Set schema = cn.OpenSchema(4, Array(Empty, Empty, "TvbfAlias"))
Check "an automatic number", schema.Fields("COLUMN_FLAGS").Value, 90
Set schema = cn.OpenSchema(19, Array(Empty, Empty, "TvbfAlias"))
Check "row count", schema("CARDINALITY"), 3
cn.Close
Check "state of the rows behind", rs.State, 0
WScript.Echo checks & " checks passed"
