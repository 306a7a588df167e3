// SPDX-License-Identifier: MIT
// Texts of the add-in in the studio.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> ComRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {4001,
       "Der Code von <Class> konnte nicht zurückgesetzt werden: <Cause> Vergleichen Sie ihn mit "
       "den "
       "Formeln.",
       "The code of <Class> could not be put back: <Cause> Compare it with the formulas."},
      {4002, "Er wurde inzwischen geändert.", "It was changed meanwhile."},
      {4003,
       "Der Formeleditor arbeitet in diesem Programm schon an einem Projekt. Schließen Sie zuerst "
       "dieses.",
       "The formula editor works on a project in this program already. Close that one first."},
      {4004, "Ein Fehler im Formeleditor. Die Daten sind unverändert.",
       "A fault in the formula editor. The data is unchanged."},
      {4005,
       "Der Formeleditor kann hier keine Fenster öffnen: Das Programm läuft ohne Bildschirm. "
       "Starten Sie es in einer Sitzung mit Bildschirm.",
       "The formula editor can open no windows here: the program runs without a display. Start it "
       "in a session with a display."},
  });
  return kRows;
}

}  // namespace texts
