; SPDX-License-Identifier: MIT
; What the installer says besides what its language files do.

LangString ShortcutName ${LANG_ENGLISH} "OrvanaStudio Formula Editor"
LangString ShortcutName ${LANG_GERMAN} "OrvanaStudio-Formeleditor"

LangString ProjectName ${LANG_ENGLISH} "OrvanaStudio project database"
LangString ProjectName ${LANG_GERMAN} "OrvanaStudio-Projektdatenbank"

LangString FileType ${LANG_ENGLISH} "Open .ovs files"
LangString FileType ${LANG_GERMAN} ".ovs-Dateien öffnen"
LangString FileTypeHelp ${LANG_ENGLISH} "A double click on a project opens it. A program that opens these files already keeps them."
LangString FileTypeHelp ${LANG_GERMAN} "Ein Doppelklick auf ein Projekt öffnet es. Ein Programm, das diese Dateien schon öffnet, behält sie."

LangString Path ${LANG_ENGLISH} "Command line in PATH"
LangString Path ${LANG_GERMAN} "Befehlszeile im PATH"
LangString PathHelp ${LANG_ENGLISH} "The command ovformula is found in every new terminal."
LangString PathHelp ${LANG_GERMAN} "Der Befehl ovformula wird in jedem neuen Terminal gefunden."

LangString InUse ${LANG_ENGLISH} "The formula editor is running. Close it, then try again."
LangString InUse ${LANG_GERMAN} "Der Formeleditor läuft. Beenden Sie ihn und wiederholen Sie den Vorgang."
