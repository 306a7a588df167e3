' SPDX-License-Identifier: MIT
' What the add-in believes of the machine's database provider, step by step:
'   cscript //nologo provider.vbs COPY_OF_A_PROJECT.ovs [ADODB]
' On Windows run it with the cscript of the kind (32 or 64 bit) that the provider has: for Jet that is
' C:\Windows\SysWOW64\cscript.exe. The file is changed: give it a copy. With OVFormulaEditor instead of
' ADODB the same steps go to this system's own objects. Every belief that does not hold is named, and
' all are tried; the last line says how many there were. Lines with "note:" tell what may be either
' way.
Option Explicit
Dim checks: checks = 0
Dim wrong: wrong = 0
Dim path: path = WScript.Arguments(0)
Dim model: model = "ADODB"
If WScript.Arguments.Count > 1 Then model = WScript.Arguments(1)
Const source = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source="
Const mode = ";Mode=Read|Write|Share Deny None;"

Sub Check(what, is_, wanted)
  checks = checks + 1
  If "" & is_ = "" & wanted Then Exit Sub
  wrong = wrong + 1
  WScript.Echo "DIFFERS: " & what & ": " & is_ & " instead of " & wanted
End Sub
' The error that the statement before raised; 0 for none.
Sub CheckError(what, wanted)
  Dim number: number = Err.Number
  Dim words: words = Err.Description
  Err.Clear
  Check what & " (" & words & ")", number, wanted
End Sub
Sub Note(what, is_)
  WScript.Echo "note: " & what & ": " & is_
End Sub
Function Rows(table, cursor, lock, kind, index)
  Dim opened: Set opened = CreateObject(model & ".Recordset")
  opened.CursorLocation = 2
  If index <> "" Then opened.Index = index
  opened.Open table, cn, cursor, lock, kind
  Set Rows = opened
End Function

Dim cn: Set cn = CreateObject(model & ".Connection")
cn.Open source & path & mode, "", "", -1
Check "state", cn.State, 1

' --- Definitions ---
Dim schema, names, found
Set schema = cn.OpenSchema(20)
Do Until schema.EOF
  If schema.Fields("TABLE_TYPE").Value = "TABLE" Then names = names & schema.Fields("TABLE_NAME").Value & ";"
  schema.MoveNext
Loop
schema.Close
Check "own tables", InStr(names, "TvbfAlias;") > 0 And InStr(names, "MSys") = 0, True
Set schema = cn.OpenSchema(4, Array(Empty, Empty, "TvbfAlias"))
Do Until schema.EOF
  Select Case schema.Fields("COLUMN_NAME").Value
    Case "ID"
      Check "place of ID", schema.Fields("ORDINAL_POSITION").Value, 1
      Check "type of ID", schema.Fields("DATA_TYPE").Value, 3
      Check "flags of a number of its own", schema.Fields("COLUMN_FLAGS").Value, 90
    Case "VBAlias"
      Check "type of a text", schema.Fields("DATA_TYPE").Value, 130
      Check "a text is not long", schema.Fields("COLUMN_FLAGS").Value And 128, 0
      Check "it has a length", schema.Fields("CHARACTER_MAXIMUM_LENGTH").Value > 0, True
  End Select
  schema.MoveNext
Loop
schema.Close
Set schema = cn.OpenSchema(12, Array(Empty, Empty, Empty, Empty, "TvbfParams"))
Do Until schema.EOF
  If schema.Fields("INDEX_NAME").Value = "Unique" Then
    found = found & schema.Fields("ORDINAL_POSITION").Value & schema.Fields("COLUMN_NAME").Value & ";"
    Check "a unique index", CBool(schema.Fields("UNIQUE").Value), True
  End If
  schema.MoveNext
Loop
schema.Close
Check "columns of an index", InStr(found, "1ParentID;") > 0 And InStr(found, "2AliasID;") > 0, True
Set schema = cn.OpenSchema(19, Array(Empty, Empty, "TvbfAlias"))
Dim counted: counted = schema.Fields("CARDINALITY").Value
schema.Close

' --- Rows of a table ---
Dim rs: Set rs = Rows("TvbfAlias", 1, 3, 2, "")
Check "counted rows", rs.RecordCount, counted
Check "type", rs.Fields("VBAlias").Type, 202
Do Until rs.EOF
  If Left(rs.Fields("VBAlias").Value, 4) = "Zz__" Then rs.Delete
  rs.MoveNext
Loop
rs.AddNew Array("ItemID", "VBAlias"), Array("Zz.A", "Zz__A")
Dim first: first = rs.Fields("ID").Value
Check "number of a new row", first > 0, True
Check "nothing is pending behind it", rs.EditMode, 0
rs.AddNew Array("ItemID", "VBAlias"), Array(Chr(0), "Zz__B")
rs.Filter = "ID= " & first
Check "filter", rs.Fields("VBAlias").Value, "Zz__A"
Check "rows behind the filter", rs.RecordCount, 1
rs.Filter = 0
rs.MoveFirst
rs.Find "VBAlias = 'Zz__B'", 0, 1
Check "one character of code 0", rs.Fields("ItemID").Value = Chr(0), True
Dim mark: mark = rs.Bookmark
Note "type of a bookmark", VarType(mark)
rs.Find "VBAlias = 'Zz__B'", 0, 1
Check "the current row is found, too", rs.EOF, False
rs.MoveFirst
rs.Bookmark = mark
Check "bookmark", rs.Fields("VBAlias").Value, "Zz__B"
Check "two bookmarks of a row", SameMark(mark, rs.Bookmark), True
Function SameMark(a, b)
  Dim i
  SameMark = True
  If Not IsArray(a) Then
    SameMark = (a = b)
  ElseIf LenB(a) <> LenB(b) Then
    SameMark = False
  Else
    For i = 1 To LenB(a)
      If MidB(a, i, 1) <> MidB(b, i, 1) Then SameMark = False
    Next
  End If
End Function

' --- Edits ---
rs.Fields("ItemID").Value = "Zz.New"
Check "an edit is pending", rs.EditMode, 1
Check "value before it", rs.Fields("ItemID").OriginalValue = Chr(0), True
On Error Resume Next
rs.Close
CheckError "closing with an edit pending", 3219
Check "still open", rs.State, 1
On Error Goto 0
rs.CancelUpdate
Check "cancelled", rs.Fields("ItemID").Value = Chr(0), True
rs.Fields("ItemID").Value = "Zz.New"
rs.Update
Check "updated", rs.Fields("ItemID").Value, "Zz.New"
On Error Resume Next
rs.AddNew Array("ItemID", "VBAlias"), Array("Zz.C", "Zz__A")
Note "number of the error for a key that is there", Err.Number
Note "its words", Err.Description
Err.Clear
Note "its state", cn.Errors(0).SQLState
Err.Clear
Note "its native number", cn.Errors(0).NativeError
Err.Clear
rs.CancelUpdate
CheckError "cancelling it", 0
rs.MoveLast
rs.MoveNext
Check "at the end", rs.EOF, True
Dim ignored: ignored = rs.EditMode
Note "error of the mode of editing at the end", Err.Number
Err.Clear
rs.Find "ID = 1", 0, -1
Note "error of searching backwards from there", Err.Number
Err.Clear
rs.MoveFirst
rs.Resync 1, 2
CheckError "reading the row again", 0
rs.AbsolutePosition = 2
CheckError "going to a place", 0
Note "place", rs.AbsolutePosition
Err.Clear
On Error Goto 0
Dim copy: Set copy = rs.Clone
copy.MoveFirst
Check "a clone has a place of its own", copy.Fields("ID").Value <> rs.Fields("ID").Value, True
copy.Close
rs.Close

' --- Queries ---
Dim query: Set query = CreateObject(model & ".Command")
Set query.ActiveConnection = cn
query.CommandText = "SELECT * FROM TvbfAlias WHERE (VBAlias = ?) AND (ID = ?)"
query.CommandType = 1
query.Parameters.Append query.CreateParameter("", 202, 1, 5, "Zz__A")
query.Parameters.Append query.CreateParameter("", 3, 1, 0, first)
Set rs = CreateObject(model & ".Recordset")
rs.CursorLocation = 2
rs.Open query, , 0, 1, -1
Dim block: block = rs.GetRows(512, , Array("ID", "VBAlias"))
Check "fields of a block", UBound(block, 1), 1
Check "rows of a block", UBound(block, 2), 0
Check "block", block(0, 0) & block(1, 0), first & "Zz__A"
Check "behind the block", rs.EOF, True
rs.Close

' --- Index ---
Set rs = Rows("TvbfAlias", 1, 1, 512, "VBAlias")
Note "rows of a table with an index", rs.RecordCount
rs.Seek Array("Zz__B"), 1
Check "sought", rs.Fields("VBAlias").Value, "Zz__B"
Note "its place", rs.AbsolutePosition
rs.Seek Array("Zz__"), 4
Check "the first behind it", rs.Fields("VBAlias").Value, "Zz__A"
rs.Seek Array("Zz__Nothing"), 1
Check "sought in vain", rs.EOF, True
rs.Close

' --- Transactions ---
Set rs = Rows("TvbfAlias", 1, 3, 2, "")
Dim before: before = rs.RecordCount
Note "level of a transaction", cn.BeginTrans
Dim inside: Set inside = Rows("TvbfAlias", 1, 3, 512, "")
inside.AddNew Array("ItemID", "VBAlias"), Array("Zz.D", "Zz__D")
On Error Resume Next
cn.BeginTrans
CheckError "one in another", 0
cn.RollbackTrans
cn.RollbackTrans
CheckError "rolled back", 0
inside.MoveFirst
Note "error of a recordset that was opened in it", Err.Number
Err.Clear
inside.Close
Note "error of closing it", Err.Number
Err.Clear
rs.MoveFirst
Note "error of one that was opened before", Err.Number
Err.Clear
rs.Close
cn.RollbackTrans
Note "error of rolling back nothing", Err.Number
Err.Clear
On Error Goto 0
Set rs = Rows("TvbfAlias", 1, 3, 2, "")
Check "rows are as before", rs.RecordCount, before

' --- The end ---
rs.Filter = "VBAlias = 'Zz__A'"
rs.Delete
rs.Filter = "VBAlias = 'Zz__B'"
rs.Delete
rs.Filter = 0
Check "deleted", rs.RecordCount, before - 2
rs.Close
cn.Close
Check "closed", cn.State, 0
If wrong = 0 Then
  WScript.Echo checks & " checks passed"
Else
  WScript.Echo wrong & " of " & checks & " beliefs do not hold"
End If
