// SPDX-License-Identifier: MIT
// Texts of the window's views of the whole project: overview of formulas, going to a name.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> PlantRows() {
  static constexpr auto kRows = std::to_array<Row>({
      // The overview of formulas.
      {4300, "Formeln", "Formulas"},
      {4301, "Name", "Name"},
      {4302, "Klasse", "Class"},
      {4303, "Formelaufruf", "Call type"},
      {4304, "Abtastzeit (ms)", "Scan time (ms)"},
      {4305, "Aktiv", "Enabled"},
      {4306, "Argumente", "Arguments"},
      {4307, "Kommentar", "Comment"},
      {4308, "Formeln filtern", "Filter formulas"},
      {4309, "Alle Klassen", "All classes"},
      {4310, "Alle Formelaufrufe", "All call types"},
      {4311, "1 Formel", "1 formula"},
      {4312, "<Count> Formeln", "<Count> formulas"},
      {4313, "<Count> von <Total> Formeln", "<Count> of <Total> formulas"},
      {4314, "Noch keine Formeln. F8 legt eine an.", "No formulas yet. F8 creates one."},
      {4315, "Keine Formel passt zum Filter.", "No formula matches the filter."},
      // Its menu.
      {4320, "&Öffnen", "&Open"},
      {4321, "&Neu", "&New"},
      {4322, "&Bearbeiten", "&Edit"},
      {4323, "&Löschen", "&Delete"},
      {4324, "&Code anzeigen", "Show &Code"},
      {4325, "Namen &kopieren", "Cop&y Name"},
      {4326, "&Aktivieren", "En&able"},
      {4327, "&Deaktivieren", "D&isable"},
      {4328, "&Formelaufruf", "Call &Type"},
      {4329, "In Klasse &verschieben", "&Move to Class"},
      // What is done to several.
      {4330, "<Count> Formeln aktivieren", "Enable <Count> formulas"},
      {4331, "<Count> Formeln deaktivieren", "Disable <Count> formulas"},
      {4332, "Formelaufruf von <Count> Formeln ändern", "Change the call type of <Count> formulas"},
      {4333, "<Count> Formeln nach <Class> verschieben", "Move <Count> formulas to <Class>"},
      {4334, "<Count> Formeln mit zusammen <Arguments> Argumenten löschen?",
       "Delete <Count> formulas with <Arguments> arguments in all?"},
      {4335, "Formeln: <Names>. Ihr Code bleibt auskommentiert in den Klassen.",
       "Formulas: <Names>. Their code stays in the classes, commented out."},
      {4336, "<Count> Formeln nach <Class> verschieben?", "Move <Count> formulas to <Class>?"},
      {4337, "Eine Formel nach <Class> verschieben?", "Move one formula to <Class>?"},
      {4338,
       "Ohne den Code bleibt er auskommentiert in der alten Klasse, und die neue Klasse erhält "
       "leere Prozeduren.",
       "Without the code, it stays in the old class, commented out, and the new class gets empty "
       "procedures."},
      {4339, "&Mit Code", "&With code"},
      {4340, "&Ohne Code", "Without c&ode"},
      {4341, "Eine Formel geändert.", "One formula changed."},
      {4342, "<Count> Formeln geändert.", "<Count> formulas changed."},
      {4343, "Eine Formel gelöscht.", "One formula deleted."},
      {4344, "<Count> Formeln gelöscht.", "<Count> formulas deleted."},
      {4345, "Nichts zu ändern: Die Formeln sind schon so.",
       "Nothing to change: the formulas are already like this."},
      {4346, "Wählen Sie zuerst Formeln aus.", "Select formulas first."},
      {4347, "Das betrifft die Formel <Name> (<Class>). Keine Formel wurde geändert.",
       "This concerns the formula <Name> (<Class>). No formula was changed."},
      {4348, "Formeln ändern", "Changing formulas"},
      // The strip above a formula's arguments.
      {4350, "Klasse: <Class>", "Class: <Class>"},
      {4351, "Aufruf: <Type>", "Call: <Type>"},
      {4352, "Aktiv", "Enabled"},
      {4353, "Nicht aktiv", "Not enabled"},
      {4354, "Kommentar: <Text>", "Comment: <Text>"},
      {4355, "Kein Kommentar", "No comment"},
      {4357, "Im Dialog ändern", "Change in the dialog"},
      // Going to a name.
      {4360, "Gehe zu", "Go to"},
      {4361, "Teil eines Namens, Items oder Kommentars", "Part of a name, an item or a comment"},
      {4362, "Gefundene Namen", "Names found"},
      {4363, "Art", "Kind"},
      {4364, "Näheres", "Details"},
      {4365, "Pfeiltasten wählen, Eingabe geht dorthin, Esc schließt.",
       "Arrow keys choose, Enter goes there, Esc closes."},
      {4366, "Keine Formel, keine Klasse, kein Alias und kein Item heißt so.",
       "No formula, class, alias or item is called this."},
      {4367, "Für das Item <Item> gibt es noch keinen Alias. F8 legt einen an.",
       "The item <Item> has no alias yet. F8 creates one."},
      {4368, "&Gehe zu...", "&Go To..."},
      {4370, "Formel", "Formula"},
      {4371, "Klasse", "Class"},
      {4372, "Alias", "Alias"},
      {4373, "Item", "Item"},
      // What is known of items, beside arguments and aliases.
      {4380, "Item", "Item"},
      {4381, "Typ", "Type"},
      {4382, "Kommentar", "Comment"},
      {4383, "Verwendungen", "Uses"},
      {4384, "Katalog", "Catalogue"},
      {4385, "fehlt", "missing"},
      {4386, "Diese Spalte wird nur gezeigt; sie lässt sich hier nicht ändern.",
       "This column is only shown; it cannot be changed here."},
      // What is seen of the window.
      {4390, "&Ansicht", "&View"},
      {4391, "&Projektbaum", "Project &Tree"},
      {4392, "&Code", "&Code"},
      {4393, "Code &neben der Tabelle", "Code &Beside the Table"},
  });
  return kRows;
}

}  // namespace texts
