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
       "Exchange argument <Name> of <Formula> for <New>"},
      {3317, "Argument <Name> von <Formula> löschen", "Delete argument <Name> of <Formula>"},
      {3318, "<Count> Argumente löschen", "Delete <Count> arguments"},
  });
  return kRows;
}

}  // namespace texts
