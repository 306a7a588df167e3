// SPDX-License-Identifier: MIT
// The editor in the studio.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> StudioRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {4475,
       "Die Datenbank ist mit dem Datenbankanbieter des Rechners geöffnet, der keinen Verlauf "
       "führt. "
       "Mit der Einstellung „Provider“ gleich „own“ lässt sich zurücknehmen.",
       "The database is open with the machine's database provider, which keeps no history. With "
       "the "
       "setting \"Provider\" at \"own\" changes can be undone."},
      {4476, "Der Text von <Class> lässt sich in der Codepage der Quelldateien nicht darstellen.",
       "The text of <Class> cannot be written in the code page of the source files."},
  });
  return kRows;
}

}  // namespace texts
