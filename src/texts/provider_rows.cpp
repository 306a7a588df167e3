// SPDX-License-Identifier: MIT
// Messages about the machine's database provider.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> ProviderRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {4450, "Der Datenbankanbieter <Provider> meldet den Fehler <Number>: <Text>"},
      {4451,
       "Prüfen Sie, ob die Datei da ist, geschrieben werden darf und von keinem anderen Programm "
       "allein geöffnet ist."},
      {4452, "Öffnen Sie das Projekt neu, wenn sich das wiederholt."},
      {4453,
       "Der Datenbankanbieter <Provider> ist auf diesem Rechner für Programme von <Bits> Bit nicht "
       "eingerichtet (<Cause>)."},
      {4454,
       "<Cause> Die Einstellung „Provider“ verlangt ihn mit „jet“: Richten Sie ihn ein, oder "
       "setzen "
       "Sie sie auf „auto“ oder „own“."},
      {4455,
       "Über den Datenbankanbieter <Provider> werden keine Dateien, Tabellen und Indizes angelegt. "
       "Legen Sie sie mit „ovformula new --into“ an."},
      {4456, "<File>: geöffnet mit dem Datenbankanbieter <Provider>."},
      {4457, "<File>: geöffnet mit dem eigenen Datenbankkern. <Cause>"},
      {4458,
       "Die Zeilen der Datenbank konnten nicht zurückgesetzt werden: <Cause> Vergleichen Sie sie "
       "mit "
       "dem Code („ovformula check“)."},
  });
  return kRows;
}

}  // namespace texts
