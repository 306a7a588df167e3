' SPDX-License-Identifier: MIT
' Lists the formulas of a project database with their arguments. Neither Access nor its database
' engine is needed: the rows are read by OVFormulaEditor.dll, which must be registered.
'
'   cscript //nologo list-formulas.vbs C:\Plants\Plant.ovs
Option Explicit

If WScript.Arguments.Count <> 1 Then
  WScript.Echo "Usage: cscript //nologo list-formulas.vbs DATABASE.ovs"
  WScript.Quit 2
End If

Dim connection: Set connection = CreateObject("OVFormulaEditor.Connection")
connection.Open "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" & WScript.Arguments(0) & ";Mode=Read;"

Dim query: Set query = CreateObject("OVFormulaEditor.Command")
Set query.ActiveConnection = connection
query.CommandText = _
    "SELECT TvbfAlias.VBAlias, TvbfAlias.ItemID, TvbfParams.In, TvbfParams.Out " & _
    "FROM TvbfParams INNER JOIN TvbfAlias ON TvbfParams.AliasID = TvbfAlias.ID " & _
    "WHERE TvbfParams.ParentID = ?"
query.Parameters.Append query.CreateParameter("Formula", 3, 1, 4, 0)

Dim formulas: Set formulas = connection.Execute("SELECT * FROM TvbfFormulas ORDER BY ID")
Do Until formulas.EOF
  WScript.Echo formulas("ID") & " " & formulas("ProgID") & "." & formulas("Name")
  query.Parameters(0).Value = formulas("ID").Value
  Dim arguments: Set arguments = query.Execute
  Do Until arguments.EOF
    WScript.Echo "  " & arguments("VBAlias") & " = " & arguments("ItemID") & Use(arguments)
    arguments.MoveNext
  Loop
  formulas.MoveNext
Loop
connection.Close

' Whether the formula reads the item, writes it, or both.
Function Use(argument)
  If argument("In") Then Use = Use & " in"
  If argument("Out") Then Use = Use & " out"
End Function
