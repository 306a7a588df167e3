; SPDX-License-Identifier: MIT
; The installer for one user: needs no administrator. scripts/package-windows calls it:
;   makensis -DVERSION=... -DCONTENT=folder -DOUT=file installer.nsi
;
; /S installs without a window; /PATH=no leaves PATH, /FILETYPE=no leaves .ovs files alone;
; /D=folder (last) installs elsewhere. Ends with 0, or 2 when a program that is to be replaced runs.

Unicode true
Target amd64-unicode
RequestExecutionLevel user
SetCompressor /SOLID lzma
ManifestDPIAware true

!include LogicLib.nsh
!include FileFunc.nsh
!include MUI2.nsh
!include WinMessages.nsh
!include path.nsh

!define PRODUCT "OrvanaStudio Formula Editor"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\ovformula"
!define CLASSES "Software\Classes"
!define PROJECT_CLASS "ovformula.Project"
!define FAILED 2

Name "${PRODUCT}"
BrandingText "${PRODUCT} ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\${PRODUCT}"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"  ; another version is replaced in its place

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${PRODUCT}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "${PRODUCT} Setup"
VIAddVersionKey "LegalCopyright" "MIT licence"

!define MUI_ICON "program.ico"
!define MUI_UNICON "program.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\ovformula-desktop.exe"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

; The first one speaks where the system has neither.
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "German"
!include texts.nsh

; --- Installing ---

; A program that runs cannot be replaced: nothing is replaced then.
!macro DemandFree file
  ${Do}
    ${IfNot} ${FileExists} "$INSTDIR\${file}"
      ${ExitDo}
    ${EndIf}
    ClearErrors
    FileOpen $0 "$INSTDIR\${file}" a
    ${IfNot} ${Errors}
      FileClose $0
      ${ExitDo}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(InUse)" /SD IDCANCEL IDRETRY +3
    SetErrorLevel ${FAILED}
    Quit
  ${Loop}
!macroend

Section "-programs"
  !insertmacro DemandFree "ovformula-desktop.exe"
  !insertmacro DemandFree "ovformula.exe"
  SetOutPath "$INSTDIR"
  SetOverwrite on
  File "${CONTENT}\ovformula.exe"
  File "${CONTENT}\ovformula-desktop.exe"
  File "${CONTENT}\README.txt"
  File "${CONTENT}\LIESMICH.txt"
  File "${CONTENT}\LICENSES.txt"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\$(ShortcutName).lnk" "$INSTDIR\ovformula-desktop.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Shortcut" "$SMPROGRAMS\$(ShortcutName).lnk"

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "$(ShortcutName)"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\ovformula-desktop.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "OrvanaStudio formula editor maintainers"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

; Another program that opens these files keeps them; then ours is offered beside it.
Section "$(FileType)" file_type
  WriteRegStr HKCU "${CLASSES}\${PROJECT_CLASS}" "" "$(ProjectName)"
  WriteRegStr HKCU "${CLASSES}\${PROJECT_CLASS}\DefaultIcon" "" "$INSTDIR\ovformula-desktop.exe,1"
  WriteRegStr HKCU "${CLASSES}\${PROJECT_CLASS}\shell\open\command" "" \
    '"$INSTDIR\ovformula-desktop.exe" "%1"'
  WriteRegNone HKCU "${CLASSES}\.ovs\OpenWithProgids" "${PROJECT_CLASS}"
  ReadRegStr $0 HKCU "${CLASSES}\.ovs" ""
  ReadRegStr $1 HKCR ".ovs" ""
  ${If} "$0$1" == ""
    WriteRegStr HKCU "${CLASSES}\.ovs" "" "${PROJECT_CLASS}"
  ${EndIf}
  Call RefreshFileTypes
SectionEnd

Section "$(Path)" path
  !insertmacro AddToPath "$INSTDIR"
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${file_type} "$(FileTypeHelp)"
  !insertmacro MUI_DESCRIPTION_TEXT ${path} "$(PathHelp)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

!macro ApplySwitch name section
  ClearErrors
  ${GetOptions} $1 "${name}" $0
  ${If} $0 == "no"
    SectionSetFlags ${section} 0
  ${EndIf}
!macroend

Function .onInit
  ${GetParameters} $1
  !insertmacro ApplySwitch "/FILETYPE=" ${file_type}
  !insertmacro ApplySwitch "/PATH=" ${path}
FunctionEnd

!macro RefreshFileTypes
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend
Function RefreshFileTypes
  !insertmacro RefreshFileTypes
FunctionEnd

; --- Removing: what was installed, and nothing of the user's ---

Section "Uninstall"
  !insertmacro DemandFree "ovformula-desktop.exe"
  !insertmacro DemandFree "ovformula.exe"
  !insertmacro RemoveFromPath "$INSTDIR"
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "Shortcut"
  Delete "$0"
  ReadRegStr $0 HKCU "${CLASSES}\.ovs" ""
  ${If} $0 == "${PROJECT_CLASS}"
    DeleteRegValue HKCU "${CLASSES}\.ovs" ""
  ${EndIf}
  DeleteRegValue HKCU "${CLASSES}\.ovs\OpenWithProgids" "${PROJECT_CLASS}"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.ovs\OpenWithProgids"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.ovs"
  DeleteRegKey HKCU "${CLASSES}\${PROJECT_CLASS}"
  !insertmacro RefreshFileTypes
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  Delete "$INSTDIR\ovformula.exe"
  Delete "$INSTDIR\ovformula-desktop.exe"
  Delete "$INSTDIR\README.txt"
  Delete "$INSTDIR\LIESMICH.txt"
  Delete "$INSTDIR\LICENSES.txt"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
SectionEnd
