// SPDX-License-Identifier: MIT
// Texts of the operations on formulas, arguments and aliases.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> StoreRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {1000, "Es wurde nichts geändert.", "Nothing was changed."},
      {1001, "Die Formel mit der ID <ID> gibt es nicht mehr. Aktualisieren Sie die Ansicht.",
       "The formula with the ID <ID> no longer exists. Refresh the view."},
      {1002, "Den Alias mit der ID <ID> gibt es nicht mehr. Aktualisieren Sie die Ansicht.",
       "The alias with the ID <ID> no longer exists. Refresh the view."},
      {1003, "Das Argument mit der ID <ID> gibt es nicht mehr. Aktualisieren Sie die Ansicht.",
       "The argument with the ID <ID> no longer exists. Refresh the view."},
      {1004,
       "Es ist kein Visual-Basic-Projekt geöffnet. Öffnen Sie das Formelserver-Projekt (--vbp "
       "DATEI), "
       "oder ändern Sie nur die Datensätze (--no-code).",
       "No Visual Basic project is open. Open the formula server project (--vbp FILE), or change "
       "the rows only (--no-code)."},
      {1005,
       "<Class> kann keine Formeln enthalten. Nötig ist eine Klasse mit Instancing MultiUse oder "
       "GlobalMultiUse in einem geöffneten ActiveX-DLL-Projekt.",
       "<Class> cannot hold formulas. That takes a class with Instancing MultiUse or "
       "GlobalMultiUse in an open ActiveX DLL project."},
      {1006, "<Class> hat schon eine Formel <Name>. Wählen Sie einen anderen Namen.",
       "<Class> already has a formula <Name>. Choose another name."},
      {1007, "<Name> kann keine Formel bezeichnen. Wählen Sie einen anderen Namen.",
       "<Name> cannot be the name of a formula. Choose another name."},
      {1008, "Übergabe- und Rückgabewert zugleich: <Names>. Ändern Sie zuerst diese Argumente.",
       "Input and return value at the same time: <Names>. Change these arguments first."},
      {1009, "Der Formelaufruf muss eine Zahl von 0 bis 7 sein, nicht <Type>.",
       "The call type must be a number from 0 to 7, not <Type>."},
      {1010, "<Name> ist schon der Alias von <Item>; frei: <Free>",
       "<Name> is already the alias of <Item>; free: <Free>"},
      {1011,
       "<Name> ist schon ein Argument von <Formula>. Ändern Sie jenes Argument, oder wählen Sie "
       "einen anderen Alias.",
       "<Name> is already an argument of <Formula>. Edit that argument, or choose another alias."},
      {1012, "<Name> wird benutzt von: <Formulas>. Löschen Sie zuerst diese Argumente.",
       "<Name> is used by: <Formulas>. Delete these arguments first."},
      {1013,
       "Der bisherige Code von <Name> steht auskommentiert in <Class>; er wurde nicht mitgenommen.",
       "The previous code of <Name> stays in <Class>, commented out; it was not moved."},
      {1014, "Alle Namen von <Base>1 bis <Base>32767 sind vergeben. Geben Sie einen Namen ein.",
       "All names from <Base>1 to <Base>32767 are taken. Enter a name."},
      {1015, "Abgebrochen. Es wurde nichts geändert.", "Cancelled. Nothing was changed."},
      {1016,
       "<Class> enthält <Name> schon als etwas anderes. Wählen Sie einen anderen Alias, oder "
       "benennen Sie es in der Klasse um.",
       "<Class> already holds <Name> as something else. Choose another alias, or rename it in the "
       "class."},
      {1017, "Gültig wäre <Name>.", "<Name> would be valid."},
      {1018, "Die Änderung ist fehlgeschlagen und ließ sich noch nicht zurücknehmen.",
       "The change failed and could not be undone yet."},
      {1019,
       "Der Tabelle <Table> fehlt die Spalte <Column>; ergänzen Sie sie in der Datenbank. Es wurde "
       "nichts geändert.",
       "The table <Table> lacks the column <Column>; add it in the database. Nothing was changed."},
  });
  return kRows;
}

}  // namespace texts
