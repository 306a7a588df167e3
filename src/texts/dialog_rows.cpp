// SPDX-License-Identifier: MIT
// Texts of the dialogs and the editor window that have no shared number.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    // Dialogs.
    {1600,
     "Die gespeicherte Klasse <Class> ist in keinem geöffneten Projekt. Bitte wählen Sie eine "
     "Klasse.",
     "The stored class <Class> is not in any open project. Choose a class."},
    {1601,
     "Keine Klasse kann Formeln aufnehmen: Es fehlt ein ActiveX-DLL-Projekt mit einer öffentlichen "
     "Klasse (Instancing MultiUse).",
     "No class can hold formulas: an ActiveX DLL project with a public class (Instancing MultiUse) "
     "is missing."},
    {1602, "Wählen Sie zuerst eine Klasse.", "Choose a class first."},
    {1603, "Wählen Sie zuerst einen Alias.", "Choose an alias first."},
    {1605, "Item: <Item>", "Item: <Item>"},
    {1606, "Die Abtastzeit gilt nur für asynchrone Formeln.",
     "The scan time applies to asynchronous formulas only."},
    {1607, "Datentyp: <Type>", "Data type: <Type>"},
    {1608, "Item aus dem Katalog wählen", "Choose an item from the catalogue"},
    {1609, "Noch keine Aliase. Legen Sie zuerst unter „Aliasbezeichner“ mit F8 einen an.",
     "No aliases yet. Create one first, with F8 under \"Alias Identifier\"."},
    {1610, "Alias wählen", "Choose alias"},
    {1611, "&Suchen:", "&Search:"},
    {1612, "Kein Alias und kein Item enthält „<Text>“.",
     "No alias and no item contains \"<Text>\"."},
    // Questions and messages of the editor window.
    {1613,
     "Formel <Name> (<Class>) mit <Count> Argumenten löschen? Ihr Code bleibt auskommentiert in "
     "der "
     "Klasse.",
     "Delete formula <Name> (<Class>) with <Count> arguments? Its code stays in the class, "
     "commented "
     "out."},
    {1614,
     "Formel <Name> (<Class>) mit einem Argument löschen? Ihr Code bleibt auskommentiert in der "
     "Klasse.",
     "Delete formula <Name> (<Class>) with one argument? Its code stays in the class, commented "
     "out."},
    {1615, "Formel <Name> (<Class>) löschen? Ihr Code bleibt auskommentiert in der Klasse.",
     "Delete formula <Name> (<Class>)? Its code stays in the class, commented out."},
    {1616,
     "Argumente von <Name>: <Names>. Deklarationen, die keine andere Formel der Klasse braucht, "
     "werden entfernt.",
     "Arguments of <Name>: <Names>. Declarations that no other formula of the class needs will be "
     "removed."},
    {1617, "Aliase: <Names>. Benutzte Aliase bleiben erhalten.",
     "Aliases: <Names>. Aliases in use are kept."},
    {1618, "<Name> – in <Names>", "<Name> – in <Names>"},
    {1619,
     "Es gibt keinen Alias <Name>. Wählen Sie einen aus der Liste oder legen Sie ihn zuerst an "
     "(„Aliasbezeichner“, F8).",
     "There is no alias <Name>. Choose one from the list or create it first (\"Alias Identifier\", "
     "F8)."},
    {1620, "Noch keine Argumente. F8 fügt eines hinzu.", "No arguments yet. F8 adds one."},
    {1621, "Wählen Sie im Baum eine Formel. F8 auf „Formeldefinitionen“ legt eine neue an.",
     "Select a formula in the tree. F8 on \"Formula Definition\" creates a new one."},
    {1622, "Noch keine Aliase. F8 fügt einen hinzu.", "No aliases yet. F8 adds one."},
    {1623, "Keine Zeile enthält „<Text>“.", "No row contains \"<Text>\"."},
    {1624, "&Suchen:", "&Find:"},
    {1626, "Die Zeile wurde inzwischen gelöscht. Die Ansicht zeigt jetzt den neuen Stand.",
     "The row has been deleted meanwhile. The view now shows the current state."},
    {1627,
     "Die Einstellungen konnten nicht in <File> geschrieben werden. Prüfen Sie, ob die Datei "
     "schreibgeschützt oder geöffnet ist.",
     "The settings could not be written to <File>. Check whether the file is read-only or open."},
    {1628,
     "Das Report-Add-In fehlt oder ist nicht registriert. Installieren Sie es und versuchen "
     "Sie es erneut.",
     "The report add-in is missing or not registered. Install it and try again."},
    {1629, "Zur Formel <Name> gibt es in <Class> keine Prozedur.",
     "There is no procedure for formula <Name> in <Class>."},
    // Why a command does not apply.
    {1630, "Wählen Sie zuerst Argumente aus.", "Select arguments first."},
    {1631, "Wählen Sie zuerst Aliase aus.", "Select aliases first."},
    {1632, "Es gibt noch keinen Alias.", "There is no alias yet."},
    {1633, "Argumente", "Arguments"},
    {1634, "Aliase", "Aliases"},
    {1635, "… und <Count> weitere; der Bericht nennt sie.",
     "… and <Count> more; the report lists them."},
    {1636, "Löschen Sie dort zuerst das Argument.", "Delete the argument there first."},
    {1637, "Ein Argument gelöscht.", "One argument deleted."},
    {1638, "<Count> Argumente gelöscht.", "<Count> arguments deleted."},
    // What a button does.
    {1640, "Neue Formel", "New formula"},
    {1641, "Formel bearbeiten", "Edit formula"},
    {1642, "Formel löschen", "Delete formula"},
    {1643, "Code anzeigen", "Show code"},
    {1644, "Neues Argument", "New argument"},
    {1645, "Argument bearbeiten", "Edit argument"},
    {1646, "Argumente löschen", "Delete arguments"},
    {1647, "Neuer Alias", "New alias"},
    {1648, "Alias bearbeiten", "Edit alias"},
    {1649, "Aliase löschen", "Delete aliases"},
    // What a field holds.
    {1650, "Die Abtastzeit muss eine ganze Zahl von 0 bis 2147483647 sein, in Millisekunden.",
     "The scan time must be a whole number from 0 to 2147483647, in milliseconds."},
    {1651, "Der Itemname enthält einen Zeilenumbruch. Schreiben Sie ihn in einer Zeile.",
     "The item name contains a line break. Write it on one line."},
    {1652, "Code &mitnehmen", "Move the code &along"},
    {1653,
     "Ohne Häkchen bleibt der Code auskommentiert in <Class>, und die neue Klasse erhält eine "
     "leere Prozedur.",
     "Without the check mark the code stays in <Class>, commented out, and the new class gets an "
     "empty procedure."},
    {1655, "Ein Alias gelöscht.", "One alias deleted."},
    {1656, "<Count> Aliase gelöscht.", "<Count> aliases deleted."},
    // Cells of the tables.
    {1660, "&Zelle bearbeiten", "Edit Ce&ll"},
    {1661, "&Kopieren", "&Copy"},
    {1662, "&Einfügen", "&Paste"},
    {1663, "Ein Häkchen setzt die Leertaste.", "The space bar sets a check mark."},
    {1664, "Die Zwischenablage enthält keinen Text.", "The clipboard holds no text."},
};

}  // namespace

std::span<const Row> DialogRows() { return kRows; }

}  // namespace texts
