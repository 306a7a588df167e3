// SPDX-License-Identifier: MIT
// What operations are called, and the texts of the history.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> HistoryRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {3301, "Alias <Name> anlegen", "Add alias <Name>"},
      {3302, "<Count> Aliase anlegen", "Add <Count> aliases"},
      {3303, "Alias <Name> in <New> umbenennen", "Rename alias <Name> to <New>"},
      {3304, "Alias <Name> ändern", "Edit alias <Name>"},
      {3305, "Alias <Name> löschen", "Delete alias <Name>"},
      {3306, "<Count> Aliase löschen", "Delete <Count> aliases"},
      {3307, "Formel <Name> anlegen", "Add formula <Name>"},
      {3308, "Formel <Name> in <New> umbenennen", "Rename formula <Name> to <New>"},
      {3309, "Formel <Name> nach <Class> verschieben", "Move formula <Name> to <Class>"},
      {3310, "Formel <Name> ändern", "Edit formula <Name>"},
      {3311, "Formel <Name> löschen", "Delete formula <Name>"},
      {3312, "<Count> Formeln löschen", "Delete <Count> formulas"},
      {3313, "Argument <Name> von <Formula> anlegen", "Add argument <Name> of <Formula>"},
      {3314, "<Count> Argumente von <Formula> anlegen", "Add <Count> arguments of <Formula>"},
      {3315, "Argument <Name> von <Formula> ändern", "Edit argument <Name> of <Formula>"},
      {3316, "Argument <Name> von <Formula> durch <New> ersetzen",
       "Replace argument <Name> of <Formula> with <New>"},
      {3317, "Argument <Name> von <Formula> löschen", "Delete argument <Name> of <Formula>"},
      {3318, "<Count> Argumente löschen", "Delete <Count> arguments"},
      {3319, "Code in <File> ändern", "Edit code in <File>"},
      {3320, "Code in <Count> Dateien ändern", "Edit code in <Count> files"},
      {3321, "<Count> Datensätze ändern", "Edit <Count> rows"},
      {3322, "Rückgängig: <Title>", "Undo: <Title>"},
      {3323, "Wiederherstellen: <Title>", "Redo: <Title>"},
      {3330,
       "Der Verlauf <Path> ist beschädigt oder stammt nicht von diesem Programm; er heißt jetzt "
       "<Name>, ein neuer wurde begonnen.",
       "The history <Path> is damaged or was not written by this program; it is now <Name>, and a "
       "new one was begun."},
      {3331, "Der Verlauf <Path> wird nicht fortgeschrieben: <Cause>",
       "The history <Path> cannot be continued: <Cause>"},
      {3332,
       "Der Verlauf <Path> ist schreibgeschützt: Änderungen lassen sich nicht rückgängig machen. "
       "Heben Sie den Schutz auf, oder schalten Sie den Verlauf ab (--no-history).",
       "The history <Path> is read-only: changes cannot be undone. Remove the protection, or "
       "switch "
       "the history off (--no-history)."},
      {3333,
       "Der Verlauf <Path> ist beschädigt oder stammt nicht von diesem Programm; ältere Einträge "
       "lassen sich nicht lesen.",
       "The history <Path> is damaged or was not written by this program; older entries cannot be "
       "read."},
      {3340, "Listet auf, was wann von wem geändert wurde.",
       "Lists what was changed, when and by whom."},
      {3341, "Zeigt Datensätze und Code einer Änderung.", "Shows rows and code of one change."},
      {3342, "Nimmt eine Änderung zurück, die letzte oder die genannte.",
       "Undoes a change, the last one or the one given."},
      {3343, "Führt eine zurückgenommene Änderung wieder aus.", "Redoes a change that was undone."},
      {3344, "Nummer der Änderung im Verlauf", "number of the change in the history"},
      {3345, "höchstens so viele, die neuesten", "at most this many, the newest ones"},
      {3346, "diese Änderung nicht in den Verlauf aufnehmen",
       "keep no record of this change in the history"},
      {3347, "Der Verlauf hat keinen Eintrag <Number>. „ovformula history“ zeigt alle.",
       "The history has no entry <Number>. \"ovformula history\" shows all."},
      {3350, "Lässt sich nicht zurücknehmen: <Title>", "This cannot be undone: <Title>"},
      {3351, "Lässt sich nicht wieder ausführen: <Title>", "This cannot be redone: <Title>"},
      {3352, "Es gibt nichts zurückzunehmen.", "There is nothing to undo."},
      {3353, "Es gibt nichts wieder auszuführen.", "There is nothing to redo."},
      {3354, "Änderung <Number> ist schon zurückgenommen.", "Change <Number> is already undone."},
      {3355, "Änderung <Number> ist nicht zurückgenommen.", "Change <Number> is not undone."},
      {3356, "Spätere Änderungen bauen darauf auf: <List>. Nehmen Sie diese zuerst zurück.",
       "Later changes build on it: <List>. Undo these first."},
      {3357, "<Place> wurde seitdem geändert. Erwartet: <Expected>. Jetzt: <Found>",
       "<Place> has been changed since. Expected: <Expected>. Now: <Found>"},
      {3358, "<Place> wurde seitdem gelöscht. Erwartet: <Expected>",
       "<Place> has been deleted since. Expected: <Expected>"},
      {3359, "<Place> gibt es wieder: <Found>", "<Place> exists again: <Found>"},
      {3360, "Die Tabelle <Table> fehlt.", "The table <Table> is missing."},
      {3361,
       "<Path>:<Line>: Diese Zeilen wurden seitdem geändert oder sind nicht eindeutig zu "
       "finden.\r\nErwartet:\r\n<Expected>\r\nJetzt:\r\n<Found>",
       "<Path>:<Line>: these lines have been changed since, or cannot be found for "
       "certain.\r\nExpected:\r\n<Expected>\r\nNow:\r\n<Found>"},
      {3362, "<Path> fehlt.", "<Path> is missing."},
      {3363, "<Path> gibt es wieder.", "<Path> exists again."},
      {3364, "<Path> wurde seitdem geändert.", "<Path> has been changed since."},
      {3365, "<Path> gehört nicht zum Projekt.", "<Path> does not belong to the project."},
      {3366, "<Place> fehlte danach die Formel oder der Alias.",
       "<Place> would then lack its formula or alias."},
      {3367, "<Place> wird noch von Argumenten benutzt.", "<Place> is still used by arguments."},
      {3368, "Unverändert und frei zur Rücknahme: Datensätze <Rows>, Dateien <Files>.",
       "Unchanged since, and can be undone: rows <Rows>, files <Files>."},
  });
  return kRows;
}

}  // namespace texts
