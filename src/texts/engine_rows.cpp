// SPDX-License-Identifier: MIT
// Texts of failures of the database and the source files.
#include "texts/rows.h"

namespace texts {

std::span<const Row> EngineRows() {
  static constexpr Row kRows[] = {
      {1800,
       "Der Datenbank fehlt: <Names>. Fehlende Tabellen legt „ovformula new DATEI --into“ an; "
       "fehlende Spalten fügen Sie in der Datenbank hinzu.",
       "The database lacks: <Names>. \"ovformula new FILE --into\" adds missing tables; add "
       "missing columns in the database."},
  };
  return kRows;
}

}  // namespace texts
