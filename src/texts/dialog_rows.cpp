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
     "The stored class <Class> is in no open project. Choose a class."},
    {1601,
     "Keine Klasse kann Formeln aufnehmen: Es fehlt ein ActiveX-DLL-Projekt mit einer öffentlichen "
     "Klasse (Instancing MultiUse).",
     "No class can hold formulas: an ActiveX DLL project with a public class (Instancing MultiUse) "
     "is missing."},
    {1602, "Wählen Sie zuerst eine Klasse.", "Choose a class first."},
    {1603, "Wählen Sie zuerst einen Alias.", "Choose an alias first."},
    {1604, "Gültig wäre: <Name>", "Valid would be: <Name>"},
    {1605, "Item: <Item>", "Item: <Item>"},
    {1606, "Die Abtastzeit gilt nur für asynchrone Formeln.",
     "The scan time applies to asynchronous formulas only."},
    {1607, "Datentyp: <Type>", "Data type: <Type>"},
    {1608, "Item aus dem Katalog wählen", "Choose an item from the catalogue"},
    {1609, "Noch keine Aliase. Legen Sie zuerst unter \"Aliasbezeichner\" mit F8 einen an.",
     "No aliases yet. Create one first, with F8 under \"Alias Identifier\"."},
    {1610, "Alias wählen", "Choose Alias"},
    {1611, "&Suchen:", "&Search:"},
    {1612, "Kein Alias und kein Item enthält \"<Text>\".",
     "No alias and no item contains \"<Text>\"."},
};

}  // namespace

std::span<const Row> DialogRows() { return kRows; }

}  // namespace texts
