// SPDX-License-Identifier: MIT
// The texts with fixed numbers. Doubled blanks, blanks before question marks and captions without
// mnemonic are part of the texts.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    // Buttons and names of keys.
    {10, "OK", "OK"},
    {11, "Abbrechen", "Cancel"},
    {12, "&Hilfe", "&Help"},
    {30, "Strg+", "Ctrl+"},
    {31, "Umsch+", "Shift+"},
    {32, "Alt+", "Alt+"},
    // Columns of the grids.
    {101, "ItemID", "ItemID"},
    {102, "Alias", "Alias"},
    {110, "Alias", "Alias"},
    {111, "Übergabewert", "Input Value"},
    {112, "Rückgabewert", "Return Value"},
    // Tree nodes and menus.
    {121, "Formeln", "Formulas"},
    {122, "Aliasbezeichner", "Alias Identifier"},
    {123, "Formeldefinitionen", "Formula Definition"},
    {131, "&Aliasbezeichner", "&Alias Identifier"},
    {132, "&Neu", "&New"},
    {133, "&Bearbeiten", "&Edit"},
    {134, "&Löschen", "Delete"},
    {140, "&Formeldefinition", "&Formula Definition"},
    {141, "&Neu", "&New"},
    {142, "&Bearbeiten", "&Edit"},
    {143, "&Löschen", "Delete"},
    {144, "&Code anzeigen", "Show &Code"},
    {150, "A&rgument", "A&rgument"},
    {151, "&Neu", "&New"},
    {152, "&Bearbeiten", "&Edit"},
    {153, "&Löschen", "&Delete"},
    {160, "&Extras", "&Extras"},
    {161, "Statistik", "Statistics"},
    {162, "Ansicht aktualisieren", "Refresh View"},
    {163, "Optionen", "Options"},
    {164, "Konsistenzüberprüfung", "Check Consistency"},
    {165, "Report", "Report"},
    {170, "Editor anzeigen", "Show Editor"},
    // Captions of the editor window.
    {180, "OrvanaStudio Formeleditor", "OrvanaStudio Formula Editor"},
    {181, "  Formeldefinition: ", "  Formula Definition: "},
    {182, "  Aliasbezeichner", "  Alias Identifier"},
    // Questions before deleting.
    {190, "Sollen die selektierten VB-Aliase wirklich gelöscht werden ?",
     "You really want to delete the selected Alias?"},
    {191, "Sollen die selektierten Argumente wirklich gelöscht werden ?",
     "You really want to delete the selected Parameter?"},
    {192, "Soll die selektierte Formel wirklich gelöscht werden ?", kOmitted,
     "You really want to delete the selected Formula?"},
    // Status bar.
    {200, "Funktion:", "Function:"},
    {201, "Formeldefinitionen:", "Formula Definitions:"},
    {202, "Argumente:", "Arguments:"},
    {203, "VBAlias:", "VBAlias:"},
    // Formula dialog.
    {301, "Formeldefinition", "Formula Definition"},
    {302, "Name", "Name"},
    {303, "Klassenname", "Class Name"},
    {304, "Formelaufruf", "Call Formula"},
    {305, "Abtastzeit", "Scan Time"},
    {306, "Kommentar", "Comment"},
    {307, "Definition aktiv", "Definition enabled"},
    {310, "Formel", "Formula"},
    {311,
     "Überschreitung der maximalen Länge für die Klassen: \r\n<ClassNames>\r\nSie können diese "
     "Klassen als Formelklassen benutzen wenn Sie entweder den Projektnamen des Formelservers oder "
     "den Klassennamen selbst kürzen",
     "Overflow maximum Length of Classnames: \r\n<ClassNames>\r\nYou can use these Classes as "
     "Formula Classes if you cut the name of the Formula Server Project or the class names (max. "
     "Length of both '39' chars)"},
    {320, "vor Initialisierung", "before Initialization"},
    {321, "nach Initialisierung", "after Initialization"},
    {322, "vor Zyklus", "before Cycle"},
    {323, "nach Zyklus", "after Cycle"},
    {324, "vor Beenden", "before Ending"},
    {325, "nach Beenden", "after Ending"},
    {326, "bei Variablenänderung", "on Variable Change"},
    {327, "asynchron", "asynchronous"},
    {340, "Initialisierung Formeldefinitionsdialog fehlgeschlagen",
     "Initialization of Formula Definition Dialog failed"},
    {341, "Zurückschreiben Formeldefinitionsdialog fehlgeschlagen",
     "Data Storage of Formula Definition Dialog failed"},
    // Alias dialog.
    {401, "Itemname", "Item Name"},
    {402, "VBAlias", "VBAlias"},
    {450, "Itemname und Aliasbezeichnung dürfen nicht leer sein!",
     "Item Name and Alias Identifier must not be empty!"},
    {451, "Der Alias ist nicht entsprechend den Visual Basic Namenskonventionen gewählt!!!",
     "The Alias does not meet the Visual Basic naming conventions!!!"},
    // Argument dialog.
    {500, "Argument", "Argument"},
    {501, "VBAlias", "VBAlias"},
    {502, "Übergabeparameter", "Input Value"},
    {503, "Rückgabewert", "Return Value"},
    {550, "Initialisierung Argumentedialog fehlgeschlagen",
     "Initialization of Arguments Dialog failed"},
    {551, "Zurückschreiben Argumentedialog fehlgeschlagen",
     "Data Storage  of Arguments Dialog failed"},
    {552,
     "Ein Parameter kann bei dem gewählten Funktionstyp (bei Variablenänderung) \r\nnicht "
     "gleichzeitig Übergabe- und Rückgabewert sein",
     "The Parameter can't be at the same time In- and Output Value \r\nif the Function type is 'on "
     "Variable Change'"},
    // Comment lines of the generated code.
    {600, "'********************************************************",
     "'********************************************************"},
    {601, "'OrvanaStudio Formel \"<Name>\"\r\n", "'OrvanaStudio Formula '<Name>'\r\n"},
    {602, "'Argumente:", "'Arguments:"},
    // Options dialog.
    {701, "&Editorfont", "&Editor Font"},
    {702, "Abfrage vor &Löschen", "Ask before &Deleting"},
    {703, "&Statuszeile anzeigen", "Show &Status Bar"},
    {704, "Einstellungen &automatisch beim Verlassen speichern",
     "Save Settings &automatically on Exit"},
};

}  // namespace

std::span<const Row> SharedRows() { return kRows; }

}  // namespace texts
