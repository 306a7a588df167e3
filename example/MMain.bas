Attribute VB_Name = "MMain"
Option Explicit

Private Declare Function GetTickCount Lib "kernel32" () As Long

Public Enum EState
    Stopped = 0
    Running = 1
End Enum

Public Const STATION = "Pumping station 1"

Public Sub Main()
    Debug.Print STATION; GetTickCount()
End Sub
