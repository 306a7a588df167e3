// SPDX-License-Identifier: MIT
// Texts of the window's look: fonts and titles.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> LookRows() {
  static constexpr auto kRows = std::to_array<Row>({
      // Fonts, in the options of the program.
      {4930, "Schrift der &Tabellen:", "&Table font:"},
      {4931, "Schrift des &Codes:", "&Code font:"},
      {4932, "Stan&dardschriften", "&Default Fonts"},
      // Titles of dialogs and of the window.
      {4940, "Neue Formel", "New formula"},
      {4941, "Formel <Name>", "Formula <Name>"},
      {4942, "Neues Argument", "New argument"},
      {4943, "Argument <Name>", "Argument <Name>"},
      {4944, "Neuer Alias", "New alias"},
      {4945, "Alias <Name>", "Alias <Name>"},
      {4946, "Aliase", "Aliases"},
      {4947, "Formeln", "Formulas"},
      {4948, "&Neuer Alias...", "&New Alias..."},
      // Going on in what was found.
      {4970, "F3, Umschalt+F3", "F3, Shift+F3"},
      {4971, "Zur nächsten oder vorigen Fundstelle im Code",
       "Go to the next place found in the code, or to the one before"},
      {4972, "Stelle <Number> von <Count>", "Place <Number> of <Count>"},
      {4973, "Esc", "Esc"},
      {4974, "Suche in Baum, Tabelle oder Code beenden", "End the search in tree, table or code"},
      // Beside the search of a table.
      {4985, "<Count> von <Total>", "<Count> of <Total>"},
  });
  return kRows;
}

}  // namespace texts
