// SPDX-License-Identifier: MIT
// Texts of the desktop program's window.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    {1500, "Item auswählen", "Choose item"},
    {1501, "&Suchen:", "&Search:"},
    {1502, "Item", "Item"},
    {1503, "Typ", "Type"},
    {1504, "Kommentar", "Comment"},
    {1505, "Wählen Sie ein Item aus, oder geben Sie seinen Namen ein.",
     "Choose an item, or type its name."},
    {1506, "Der Itemkatalog <File> ist leer oder fehlt. Geben Sie den Namen des Items ein.",
     "The item catalogue <File> is empty or missing. Type the item's name."},
    {1507, "Kein Item enthält „<Text>“.", "No item contains \"<Text>\"."},
    {1508, "OrvanaStudio-Formeleditor", "OrvanaStudio Formula Editor"},
    {1509, "&Projekt", "&Project"},
    {1510, "&Neu...", "&New..."},
    {1511, "&Öffnen...", "&Open..."},
    {1512, "&Zuletzt geöffnet", "&Recent"},
    {1513, "Code &speichern", "&Save Code"},
    {1514, "Sicherung &wiederherstellen", "Restore &Backup"},
    {1515, "&Beenden", "&Quit"},
    {1516, "&Hilfe", "&Help"},
    {1517, "&Inhalt", "&Contents"},
    {1518, "Ü&ber...", "&About..."},
    {1519, "Projektbaum", "Project tree"},
    {1520, "Code", "Code"},
    {1521, "&Modul:", "&Module:"},
    {1522, "Öffnen Sie ein Projekt mit Strg+Umschalt+O, oder legen Sie mit Strg+N eines an.",
     "Open a project with Ctrl+Shift+O, or create one with Ctrl+N."},
    {1523, "Wählen Sie eine Formel, um ihren Code zu sehen.", "Select a formula to see its code."},
    {1524, "Projektdatenbanken (*.ovs)|*.ovs|Alle Dateien|*",
     "Project databases (*.ovs)|*.ovs|All files|*"},
    {1525, "Der Code wurde geändert; Strg+S speichert ihn.",
     "The code has been changed; Ctrl+S saves it."},
    {1526, "Gespeichert: <Name>", "Saved: <Name>"},
    {1527, "Das Modul <Name> hat ungespeicherte Änderungen. Speichern?",
     "The module <Name> has unsaved changes. Save them?"},
    {1528,
     "Das Modul <Name> wurde von einem anderen Programm an derselben Stelle geändert wie von "
     "Ihnen.",
     "Another program changed the module <Name> at the same place as you."},
    {1529,
     "Mit - beginnen die Zeilen der Datei, mit + Ihre. Was Sie nicht wählen, liegt danach in der "
     "Zwischenablage.",
     "Lines that begin with - are in the file, those with + are yours. What you do not choose is "
     "in the clipboard afterwards."},
    {1530, "Das Projekt <File> lässt sich nicht öffnen.", "The project <File> cannot be opened."},
    {1531, "Das Projekt <File> lässt sich nicht anlegen.", "The project <File> cannot be created."},
    {1532, "Das Modul <Name> lässt sich nicht speichern.", "The module <Name> cannot be saved."},
    {1533, "Alle Dateien des Projekts auf den Stand vom <Date> zurücksetzen?",
     "Restore all project files to <Date>?"},
    {1534, "Der jetzige Stand wird vorher gesichert, das Projekt danach neu geöffnet.",
     "The current state is backed up first, and the project is opened again afterwards."},
    {1535, "Sicherung vom <Date> wiederhergestellt.", "Backup of <Date> restored."},
    {1536, "Es ließ sich keine Sicherung anlegen: <Text>", "The backup failed: <Text>"},
    {1537, "(noch keine)", "(none yet)"},
    {1538, "(noch keine)", "(none yet)"},
    {1539, "<File> wurde von einem anderen Programm geändert.",
     "<File> was changed by another program."},
    {1540, "Version <Version>", "Version <Version>"},
    {1541, "Formeln, Argumente und Aliase von OrvanaStudio-Projekten.",
     "Formulas, arguments and aliases of OrvanaStudio projects."},
    {1542, "Formelbericht", "Formula report"},
    {1543, "Bericht: <File>", "Report: <File>"},
    {1544, "Im Programm ist ein Fehler aufgetreten. Ihre Dateien sind, wie sie vorher waren.",
     "An error occurred in the program. Your files are as they were before."},
    {1545,
     "Das Protokoll <File> enthält Version und Schritte, aber nichts vom Inhalt des Projekts.",
     "The log <File> holds the version and the steps, but nothing of the project's contents."},
    {1546, "Das Programm wurde beim letzten Mal unerwartet beendet.",
     "The program ended unexpectedly last time."},
    {1547,
     "Das Fenster braucht eine Anzeige (DISPLAY oder WAYLAND_DISPLAY). Ohne sie arbeitet das "
     "Programm ovformula; ovformula --help zeigt seine Befehle.",
     "The window needs a display (DISPLAY or WAYLAND_DISPLAY). The program ovformula works without "
     "one; ovformula --help shows its commands."},
    {1548, "Im Code suchen", "Find in the code"},
    {1549, "Der Code enthält „<Text>“ nicht.", "The code does not contain \"<Text>\"."},

    {1550,
     "<File>:<Line>: „<Text>“ nennt kein Item; die Zeile wurde übergangen. Schreiben Sie zuerst "
     "den Namen.",
     "<File>:<Line>: \"<Text>\" names no item; the line was skipped. Write the name first."},
    {1551,
     "<File>:<Line>: Den Typ „<Text>“ gibt es nicht; die Zeile wurde übergangen. Schreiben Sie "
     "einen Typ von Visual Basic (Double) oder seine Nummer (5).",
     "<File>:<Line>: there is no type \"<Text>\"; the line was skipped. Write a type of Visual "
     "Basic (Double) or its number (5)."},
    {1552,
     "<File>:<Line>: Einem Anführungszeichen in „<Text>“ fehlt das Gegenstück; die Zeile wurde "
     "übergangen.",
     "<File>:<Line>: a quotation mark in \"<Text>\" lacks its counterpart; the line was skipped."},
    {1553,
     "<File>:<Line>: Das Item „<Text>“ ist zu lang; die Zeile wurde übergangen. Kürzen Sie Name "
     "oder Kommentar.",
     "<File>:<Line>: the item \"<Text>\" is too long; the line was skipped. Shorten name or "
     "comment."},
    {1554, "<File>: <Count> weitere Zeilen wurden übergangen.",
     "<File>: <Count> more lines were skipped."},

    {1560, "Geöffnet: <File>", "Opened: <File>"},
    {1561, "Später", "Later"},

    {1570, "Über den OrvanaStudio-Formeleditor", "About OrvanaStudio Formula Editor"},
    {1571, "&Lizenzen der Komponenten", "Third-party &licences"},
    {1572, "&Schließen", "&Close"},
    {1573, "Änderungen am Code &verwerfen", "&Discard Changes to Code"},
    {1574, "Verworfener Text liegt danach in der Zwischenablage.",
     "Discarded text is in the clipboard afterwards."},
    {1575, "Vom Visual-Basic-Projekt zu <File> fehlt ein Teil.",
     "Part of the Visual Basic project of <File> is missing."},
    {1576, "Die Codepage des Codes kennt nicht alle Zeichen; in Kommentaren steht „?“ dafür.",
     "The code page of the code lacks some characters; comments show \"?\" instead."},
    {1577, "<File>, Zeile <Line>: <Text>", "<File>, line <Line>: <Text>"},
    {1578,
     "Starten Sie das Programm mit der Codepage des Projekts, zum Beispiel --code-page 1251; das "
     "Programm merkt sie sich.",
     "Start the program with the project's code page, for example --code-page 1251; it is "
     "remembered."},
    {1579, "Es gibt nichts zu speichern.", "There is nothing to save."},
    {1580, "Neues Projekt", "New project"},
    {1581, "Projekt öffnen", "Open project"},
    {1582, "Die Sicherung lässt sich nicht wiederherstellen.", "The backup cannot be restored."},
    {1583, "Zuletzt geöffnete Projekte", "Recent projects"},
    {1584, "Projekte, die Sie öffnen, stehen beim nächsten Mal hier.",
     "Projects that you open are listed here next time."},
    {1585, "Code &speichern", "&Save Code"},
    {1586,
     "Das Modul <Name> wurde inzwischen geändert; Ihr ungespeicherter Text enthält jetzt beides.",
     "The module <Name> has been changed meanwhile; your unsaved text now contains both."},
    {1587, "Code im Modul <Name> wurde vor dem Beenden nicht gespeichert.",
     "Code in the module <Name> was not saved before the program ended."},
    {1588,
     "„Zurückholen“ zeigt ihn; gespeichert wird er erst, wenn Sie es tun. „Abbrechen“ behält die "
     "Kopie bis zum nächsten Öffnen.",
     "\"Bring Back\" shows it; it is saved only when you save it. \"Cancel\" keeps the copy until "
     "the project is opened again."},
    {1589, "&Zurückholen", "&Bring Back"},
    {1590, "Das Modul <File> gehört nicht mehr zum Projekt. Der Text liegt in der Zwischenablage.",
     "The module <File> is no longer part of the project. The text is in the clipboard."},
    {1591, "Von ungespeichertem Code lässt sich keine Kopie anlegen: <Text>",
     "Unsaved code cannot be backed up: <Text>"},
    {1592,
     "<Name>: Die Datei fehlt oder lässt sich nicht lesen. Ihr ungespeicherter Text bleibt "
     "erhalten.",
     "<Name>: the file is missing or cannot be read. Your unsaved text is kept."},
    {1593, "&Rückgängig", "&Undo"},
    {1594, "&Wiederholen", "&Redo"},
    {1595, "&Ausschneiden", "Cu&t"},
    {1596, "&Kopieren", "&Copy"},
    {1597, "&Einfügen", "&Paste"},
    {1598, "&Löschen", "&Delete"},
    {1599, "A&lles auswählen", "Select &All"},
};

}  // namespace

std::span<const Row> DesktopRows() { return kRows; }

}  // namespace texts
