// SPDX-License-Identifier: MIT
// History, check and data flow in the window.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> PaneRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {4200, "&Verlauf...", "&History..."},
      {4201, "Zeit", "Time"},
      {4202, "Änderung", "Change"},
      {4203, "Stand", "State"},
      {4204, "Wer", "Who"},
      {4205, "Programm", "Program"},
      {4206, "&Diese zurücknehmen", "&Undo This"},
      {4207, "&Diese wiederherstellen", "&Redo This"},
      {4208, "zurückgenommen", "undone"},
      {4209, "Datensätze und Code der Änderung", "Rows and code of the change"},
      {4210, "... und <Count> weitere Zeilen", "... and <Count> more lines"},
      {4211, "Seit der Verlauf geführt wird, wurde an diesem Projekt nichts geändert.",
       "Nothing was changed in this project since its history is kept."},
      {4212, "Erledigt: <Title>", "Done: <Title>"},
      {4213, "Rückgängig", "Undo"},
  });
  return kRows;
}

}  // namespace texts
