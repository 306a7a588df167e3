// SPDX-License-Identifier: MIT
// Texts of lists in the window: import with its preview, export, copy and paste.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    {4100, "&Importieren...", "&Import..."},
    {4101, "&Exportieren...", "&Export..."},
    {4102, "Liste importieren", "Import list"},
    {4103, "Listen (*.csv;*.txt;*.json)|*.csv;*.txt;*.json;*.CSV;*.TXT;*.JSON|Alle Dateien (*.*)|*",
     "Lists (*.csv;*.txt;*.json)|*.csv;*.txt;*.json;*.CSV;*.TXT;*.JSON|All files (*.*)|*"},
    {4104, "Projekt exportieren", "Export project"},
    {4105,
     "Alles (JSON, *.json)|*.json|Aliase (CSV, *.csv)|*.csv|Formeln mit Argumenten (CSV, "
     "*.csv)|*.csv",
     "Everything (JSON, *.json)|*.json|Aliases (CSV, *.csv)|*.csv|Formulas with arguments (CSV, "
     "*.csv)|*.csv"},
    {4106, "Exportiert nach <File>.", "Exported to <File>."},
    {4107, "<File> kann nicht importiert werden.", "<File> cannot be imported."},
    {4108, "Nach <File> kann nicht exportiert werden.", "Cannot export to <File>."},
    {4109,
     "Exportiert nach <File>. <Count> Felder enthalten Steuerzeichen, die eine Tabelle nicht "
     "mitnimmt; \"Alles (JSON)\" nimmt sie mit.",
     "Exported to <File>. <Count> fields hold control characters, which a table cannot carry; "
     "\"Everything (JSON)\" can."},

    // Preview.
    {4110, "Import: <Name>", "Import: <Name>"},
    {4111, "An&zeigen:", "Sho&w:"},
    {4112, "alle Zeilen (<Count>)", "all lines (<Count>)"},
    {4113, "neu (<Count>)", "new (<Count>)"},
    {4114, "geändert (<Count>)", "changed (<Count>)"},
    {4115, "unverändert (<Count>)", "unchanged (<Count>)"},
    {4116, "abgelehnt (<Count>)", "refused (<Count>)"},
    {4117, "Aktion", "Action"},
    {4118, "Zeile", "Line"},
    {4119, "Name", "Name"},
    {4120, "Item, Argumente", "Item, Arguments"},
    {4121, "Grund", "Reason"},
    {4122, "neu", "new"},
    {4123, "geändert", "changed"},
    {4124, "unverändert", "unchanged"},
    {4125, "abgelehnt", "refused"},
    {4126, "&Vorhandenes mit anderen Werten:", "&Existing with other values:"},
    {4127, "die Zeile ablehnen", "refuse the line"},
    {4128, "lassen, wie es ist", "leave it as it is"},
    {4129, "auf die Werte der Liste ändern", "change it to the list's values"},
    {4130, "die Zeile unter freiem Namen anlegen", "add the line under a free name"},
    {4131, "&Klasse, wo keine genannt ist:", "C&lass where none is named:"},
    {4132, "&Fehlende Aliase von Argumenten anlegen", "&Create missing aliases of arguments"},
    {4133, "Abgelehnte Zeilen a&uslassen", "Leave &refused lines out"},
    {4134, "I&mportieren", "I&mport"},
    {4135,
     "Abgelehnte Zeilen: <Count>. Ändern Sie die Wahl oder die Liste, oder lassen Sie diese Zeilen "
     "aus.",
     "Refused lines: <Count>. Change the choices or the list, or leave these lines out."},
    {4136, "Es gibt nichts zu tun: Alles ist schon da.",
     "There is nothing to do: everything is there already."},
    {4137, "Diese Spalten bleiben unbeachtet: <Names>", "These columns are ignored: <Names>"},
    {4138, "Keine solche Zeile.", "No such line."},
    {4139, "Die Liste wird geprüft", "Checking the list"},
    {4140, "Die Liste wird importiert", "Importing the list"},
    {4141,
     "Importiert: <New> neu, <Changed> geändert, <Unchanged> unverändert, <Refused> ausgelassen.",
     "Imported: <New> new, <Changed> changed, <Unchanged> unchanged, <Refused> left out."},
    {4142, "Ausgelassene Zeilen speichern", "Save the lines left out"},
    {4143, "Keine Zeile ist abgelehnt.", "No line is refused."},
    {4144, "<New> neu, <Changed> geändert, <Unchanged> unverändert, <Refused> abgelehnt",
     "<New> new, <Changed> changed, <Unchanged> unchanged, <Refused> refused"},

    // Clipboard.
    {4150, "Zwischenablage", "Clipboard"},
    {4151, "Das lässt sich hier nicht einfügen.", "This cannot be pasted here."},
    {4152, "Einfügen: <Count>", "Paste: <Count>"},

    // Copies of a formula.
    {4160, "D&uplizieren...", "Dup&licate..."},
    {4161, "Formel duplizieren, auch mit anderen Namen",
     "Duplicate the formula, also with other names"},
    {4162, "Formel duplizieren: <Name>", "Duplicate formula: <Name>"},
    {4163, "&Name der Kopie:", "&Name of the copy:"},
    {4164, "durch die Ersetzungen, sonst der nächste freie",
     "by the replacements, or the next free one"},
    {4165, "&Klasse:", "&Class:"},
    {4166, "&Ersetzen:", "&Replace:"},
    {4167,
     "In jeder Zeile ALT=NEU, in Name, Argumenten, Items, Kommentar und Code. Reihen machen "
     "mehrere Kopien: Tank1=Tank{2..8}. Die Eingabetaste beginnt eine neue Zeile; Strg+Eingabe "
     "dupliziert.",
     "OLD=NEW in each line, in name, arguments, items, comment and code. Series make several "
     "copies: Tank1=Tank{2..8}. Enter begins a new line; Ctrl+Enter duplicates."},
    {4168, "&Vorschau:", "&Preview:"},
    {4169, "„<Word>“: Es wird ALT=NEU gebraucht.", "\"<Word>\": OLD=NEW is needed."},
    {4170, "&Duplizieren", "&Duplicate"},
    {4171, "Die Formel wird dupliziert", "Duplicating the formula"},

    // Several arguments at once.
    {4190, "<Count> Argumente bearbeiten", "Edit <Count> arguments"},
    {4191, "&Übergabewert:", "&Input value:"},
    {4192, "&Rückgabewert:", "&Return value:"},
    {4193, "bei jedem lassen, wie er ist", "leave each as it is"},
    {4194, "ja", "yes"},
    {4195, "nein", "no"},
    {4196, "Argumente bearbeiten: <Count>", "Edit arguments: <Count>"},
};

}  // namespace

std::span<const Row> ListRows() { return kRows; }

}  // namespace texts
