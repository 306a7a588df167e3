// SPDX-License-Identifier: MIT
// Texts of the window around tables and code: project tree, messages, options.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> FrameRows() {
  static constexpr auto kRows = std::to_array<Row>({
      // The project tree.
      {4500, "<Name> (nicht aktiv)", "<Name> (not enabled)"},
      {4501, "<Name> (<Count>)", "<Name> (<Count>)"},
      {4502, "Projektbaum filtern", "Filter the project tree"},
      {4503, "Name, Kommentar oder Alias", "Name, comment or alias"},
      {4504, "Unbekannter Formelaufruf <Type>", "Unknown call type <Type>"},
      // Its part of the menu "View".
      {4510, "Formeln als &Liste", "Formulas as a &List"},
      {4511, "Nach &Klasse gruppiert", "Grouped by Cl&ass"},
      {4512, "Nach &Formelaufruf gruppiert", "Grouped by Call T&ype"},
      {4513, "In der Reihenfolge des &Anlegens", "In &Order of Creation"},
      {4514, "Nach Namen &sortiert", "Sorted by &Name"},
      // Its context menus.
      {4520, "Namen k&opieren", "Cop&y Name"},
      {4521, "&Neue Formel", "&New Formula"},
      {4522, "Neuer &Alias", "New &Alias"},
      {4523, "Dazu gehört eine Formel: Wählen Sie eine im Projektbaum.",
       "This needs a formula: select one in the project tree."},
      // The lower edge of the window.
      {4530, "1 Formel", "1 formula"},
      {4531, "<Count> Formeln", "<Count> formulas"},
      {4532, "1 Argument", "1 argument"},
      {4533, "<Count> Argumente", "<Count> arguments"},
      {4534, "1 Alias", "1 alias"},
      {4535, "<Count> Aliase", "<Count> aliases"},
      // The list of messages.
      {4540, "&Meldungen", "&Messages"},
      {4541, "Meldungen", "Messages"},
      {4542, "Meldung", "Message"},
      {4543, "Noch keine Meldungen.", "No messages yet."},
      // Several arguments or aliases at once.
      {4550, "Argumente zu <Name> hinzufügen", "Add arguments to <Name>"},
      {4551, "Schon benutzt", "Already used"},
      {4552, "&Neuer Alias...", "&New Alias..."},
      {4553, "Wählen Sie Aliase, die die Formel noch nicht hat.",
       "Select aliases that the formula does not have yet."},
      {4554, "&Mehrere hinzufügen...", "Add &Several..."},
      {4555, "Aliase für Items anlegen", "Add aliases for items"},
      {4556, "Wählen Sie Items, die noch keinen Alias haben.",
       "Select items that have no alias yet."},
      {4557, "Wählen Sie zuerst eine Formel oder „Aliasbezeichner“ im Projektbaum.",
       "Select a formula or “Alias Identifier” in the project tree first."},
      {4558, "Ein Argument hinzugefügt.", "One argument added."},
      {4559, "<Count> Argumente hinzugefügt.", "<Count> arguments added."},
      {4560, "Ein Alias angelegt.", "One alias added."},
      {4561, "<Count> Aliase angelegt.", "<Count> aliases added."},
      // The list of keys.
      {4570, "&Tastatur...", "&Keyboard..."},
      {4571, "Tastatur", "Keyboard"},
      {4572, "Menü", "Menu"},
      {4573, "Taste", "Key"},
      {4574, "Was sie tut", "What it does"},
      {4575, "Überall", "Everywhere"},
      {4580, "F1", "F1"},
      {4581, "Hilfe zu dem, was Sie gerade sehen", "Help on what you are looking at"},
      {4582, "F6", "F6"},
      {4583, "Reihum: Baum, Tabelle, Code", "In turn: tree, table, code"},
      {4584, "Alt+F6", "Alt+F6"},
      {4585, "Vom Baum in die Tabelle und zurück", "From the tree to the table, and back"},
      {4586, "Strg+F", "Ctrl+F"},
      {4587, "Im Baum, in der Tabelle oder im Code suchen", "Find in tree, table or code"},
      {4588, "Alt+Auf, Alt+Ab", "Alt+Up, Alt+Down"},
      {4589, "Tabelle nach der Spalte ordnen", "Order the table by the column"},
      // Options of the program.
      {4600, "Pro&grammoptionen...", "&Program Options..."},
      {4601, "Programmoptionen", "Program options"},
      {4602, "&Sprache (Language):", "&Language (Sprache):"},
      {4603, "&Aussehen:", "&Appearance:"},
      {4604, "wie das System", "same as the system"},
      {4605, "hell", "light"},
      {4606, "dunkel", "dark"},
      {4607, "Unter Windows ist das Fenster hell.", "On Windows the window is light."},
      {4608, "&Ungespeicherter Code:", "&Unsaved code:"},
      {4609, "beim Verlassen fragen", "ask when leaving"},
      {4610, "beim Verlassen speichern", "save when leaving"},
      {4611, "&Verlauf führen, damit sich alles rückgängig machen lässt",
       "Keep a &history, so that everything can be undone"},
      {4612, "Jeden Tag eine Sicherung an&legen", "Make a &backup every day"},
      {4613, "Sprache, Aussehen, Verlauf und Sicherungen ändern sich beim nächsten Start.",
       "Language, appearance, history and backups change at the next start."},
      {4614, "Gespeichert. Die Änderung zeigt sich beim nächsten Start.",
       "Saved. The next start shows the change."},
  });
  return kRows;
}

}  // namespace texts
