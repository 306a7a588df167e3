// SPDX-License-Identifier: MIT
// Undo, history and check in the window.
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
  });
  return kRows;
}

}  // namespace texts
