// SPDX-License-Identifier: MIT
// Undo, history, notices and places in the window.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> WindowRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {3800, "&Bearbeiten", "E&dit"},
      {3801, "&Rückgängig", "&Undo"},
      {3802, "&Wiederherstellen", "&Redo"},
      {3803, "&Rückgängig: <Title>", "&Undo: <Title>"},
      {3804, "&Wiederherstellen: <Title>", "&Redo: <Title>"},
      {3805, "Rückgängig gemacht: <Title>", "Undone: <Title>"},
      {3806, "Wiederhergestellt: <Title>", "Redone: <Title>"},
      {3807, "Der Verlauf ist abgeschaltet; ohne ihn lässt sich nichts zurücknehmen.",
       "The history is switched off; nothing can be undone without it."},
      {3808, "Der Verlauf lässt sich nicht lesen.", "The history cannot be read."},
      {3809, "Verlauf", "History"},
      {3810, "Es ist kein Projekt geöffnet.", "No project is open."},

      {3840, "Das Projekt ist schreibgeschützt geöffnet. <Text>",
       "The project is open for reading only. <Text>"},
      {3841, "Erneut öffnen", "Open again"},
      {3842,
       "Zu diesem Projekt gibt es kein Visual-Basic-Projekt (.vbp): Formeln lassen sich nicht "
       "ändern.",
       "This project has no Visual Basic project (.vbp): formulas cannot be changed."},
      {3843, "VB-Projekt wählen...", "Choose VB project..."},
      {3844, "Visual-Basic-Projekte (*.vbp, *.vbg)|*.vbp;*.vbg|Alle Dateien|*",
       "Visual Basic projects (*.vbp, *.vbg)|*.vbp;*.vbg|All files|*"},
      {3845, "Die Klasse <Class> ist in keinem geöffneten Visual-Basic-Projekt.",
       "The class <Class> is not in any open Visual Basic project."},
      {3848, "Der Bericht ist fertig, aber es gibt kein Programm, das ihn anzeigt.",
       "The report is ready, but there is no program to show it."},
      {3849, "Speichern &unter...", "Save &As..."},
      {3850, "Berichte (*.html)|*.html|Alle Dateien|*", "Reports (*.html)|*.html|All files|*"},
      {3851, "Wählen Sie dafür im Baum eine Formel.", "Select a formula in the tree for this."},
      {3852, "Stand der Datei &laden", "&Load the file"},
      {3853, "Mit meinem Text &überschreiben", "&Overwrite with my text"},
      {3854, "<File> gibt es schon. Ersetzen?", "<File> exists already. Replace it?"},
  });
  return kRows;
}

}  // namespace texts
