; SPDX-License-Identifier: MIT
; The user's PATH. It may be longer than an NSIS string, which would cut it: it stays in memory that
; is asked for, and keeps the type that it has.

!define PATH_KEY "Environment"
!define PATH_ROOM 65536  ; bytes more than the value has
!define REG_EXPAND_SZ 2
!define SEMICOLON 59

; Reads PATH: $1 memory with its text (0: it cannot be read), $2 its type, $8 the key.
!macro ReadPath
  StrCpy $1 0
  System::Call 'advapi32::RegOpenKeyExW(p -2147483647, w "${PATH_KEY}", i 0, i 0x20006|0x20019, *p .r8) i .r0'
  ${If} $0 = 0
    System::Call 'advapi32::RegQueryValueExW(p r8, w "Path", p 0, *i .r2, p 0, *i .r3) i .r0'
    ${If} $0 = 2  ; there is none yet
      StrCpy $2 ${REG_EXPAND_SZ}
      StrCpy $3 0
    ${EndIf}
    ${If} $0 = 0
    ${OrIf} $0 = 2
      IntOp $3 $3 + ${PATH_ROOM}
      System::Call 'kernel32::GlobalAlloc(i 0x40, p r3) p .r1'
      System::Call 'advapi32::RegQueryValueExW(p r8, w "Path", p 0, *i .r2r2, p r1, *i r3) i .r4'
      ${If} $0 = 2
        StrCpy $2 ${REG_EXPAND_SZ}
      ${ElseIf} $4 <> 0
        System::Call 'kernel32::GlobalFree(p r1)'
        StrCpy $1 0
      ${EndIf}
    ${EndIf}
  ${EndIf}
!macroend

!macro WritePath
  System::Call 'kernel32::lstrlenW(p r1) i .r3'
  IntOp $3 $3 * 2
  IntOp $3 $3 + 2
  System::Call 'advapi32::RegSetValueExW(p r8, w "Path", i 0, i r2, p r1, i r3) i .r0'
  SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 "STR:Environment" /TIMEOUT=2000
!macroend

!macro ClosePath
  ${If} $1 P<> 0
    System::Call 'kernel32::GlobalFree(p r1)'
  ${EndIf}
  System::Call 'advapi32::RegCloseKey(p r8)'
!macroend

; The folder in $5 as an element of the text at $1: $6 where it begins, 0 when it is not there; $7 its
; length.
!macro FindInPath
  StrLen $7 $5
  StrCpy $6 $1
  ${Do}
    System::Call 'shlwapi::StrStrIW(p r6, w r5) p .r6'
    ${If} $6 P= 0
      ${ExitDo}
    ${EndIf}
    StrCpy $9 ${SEMICOLON}  ; what stands before it, and at $4 behind it
    ${If} $6 P> $1
      IntPtrOp $0 $6 - 2
      System::Call '*$0(&i2 .r9)'
    ${EndIf}
    IntOp $4 $7 * 2
    IntPtrOp $4 $6 + $4
    System::Call '*$4(&i2 .r4)'
    ${If} $4 = 0
      StrCpy $4 ${SEMICOLON}
    ${EndIf}
    ${If} $9 = ${SEMICOLON}
    ${AndIf} $4 = ${SEMICOLON}
      ${ExitDo}
    ${EndIf}
    IntPtrOp $6 $6 + 2
  ${Loop}
!macroend

; Appends the folder to PATH, unless it is there.
!macro AddToPath folder
  StrCpy $5 "${folder}"
  !insertmacro ReadPath
  ${If} $1 P<> 0
    !insertmacro FindInPath
    ${If} $6 P= 0
      System::Call 'kernel32::lstrlenW(p r1) i .r3'
      ${If} $3 > 0
        System::Call 'kernel32::lstrcatW(p r1, w ";")'
      ${EndIf}
      System::Call 'kernel32::lstrcatW(p r1, w r5)'
      !insertmacro WritePath
    ${EndIf}
  ${EndIf}
  !insertmacro ClosePath
!macroend

; Takes the folder out of PATH, with one of the semicolons around it.
!macro RemoveFromPath folder
  StrCpy $5 "${folder}"
  !insertmacro ReadPath
  ${If} $1 P<> 0
    !insertmacro FindInPath
    ${If} $6 P<> 0
      IntOp $7 $7 * 2
      IntPtrOp $4 $6 + $7  ; what follows
      ${If} $6 P> $1
        IntPtrOp $6 $6 - 2
      ${Else}
        System::Call '*$4(&i2 .r9)'
        ${If} $9 = ${SEMICOLON}
          IntPtrOp $4 $4 + 2
        ${EndIf}
      ${EndIf}
      System::Call 'kernel32::lstrlenW(p r4) i .r3'
      IntOp $3 $3 * 2
      IntOp $3 $3 + 2
      System::Call 'kernel32::RtlMoveMemory(p r6, p r4, p r3)'
      !insertmacro WritePath
    ${EndIf}
  ${EndIf}
  !insertmacro ClosePath
!macroend
