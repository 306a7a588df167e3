// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <string>

#include "bench/jet_workload.h"
#include "bench/report.h"

namespace bench {
namespace {

struct Cost {
  double insert = 0;  // microseconds
  double seek = 0;
};

constexpr std::size_t kSeeks = 100000;

Cost MeasureJet(const std::vector<Alias>& aliases) {
  const Folder folder;
  const auto database = MakeJet(folder.File("bench.mdb"), Indexes::kFormulaAndName);
  jet::Table& table = database->OpenTable(kTable);
  const Stopwatch inserts;
  jet::Transaction transaction(*database);
  for (const Alias& alias : aliases) InsertJet(table, alias);
  transaction.Commit();
  const double insert = inserts.Seconds();
  const jet::Database::ReadGuard guard(*database);
  jet::IndexCursor cursor = table.OpenCursor(*table.FindIndex(kNameIndex));
  const Stopwatch seeks;
  for (std::size_t i = 0; i < kSeeks; ++i) {
    const std::array key = {jet::Value::Text(aliases[i * 7919 % aliases.size()].name)};
    cursor.Seek(key);
  }
  return {1e6 * insert / static_cast<double>(aliases.size()), 1e6 * seeks.Seconds() / kSeeks};
}

Cost MeasureSqlite(const std::vector<Alias>& aliases) {
  const Folder folder;
  const auto database = MakeSqlite(folder.File("bench.db"), Indexes::kFormulaAndName);
  SqliteStatement insert(*database, kSqliteInsert);
  const Stopwatch inserts;
  database->Run("BEGIN");
  for (const Alias& alias : aliases) InsertSqlite(insert, alias);
  database->Run("COMMIT");
  const double seconds = inserts.Seconds();
  SqliteStatement select(*database, "SELECT AliasID FROM Alias WHERE Alias=?1");
  database->Run("BEGIN");
  const Stopwatch seeks;
  for (std::size_t i = 0; i < kSeeks; ++i) {
    select.Bind(1, aliases[i * 7919 % aliases.size()].name);
    select.Step();
    select.Reset();
  }
  return {1e6 * seconds / static_cast<double>(aliases.size()), 1e6 * seeks.Seconds() / kSeeks};
}

}  // namespace

void ShowGrowth(std::size_t largest) {
  for (std::size_t rows = 1000; rows <= largest; rows *= 10) {
    const std::vector<Alias> aliases = MakeAliases(rows);
    const Cost ours = MeasureJet(aliases);
    const Cost other = MeasureSqlite(aliases);
    const std::string of = " at " + std::to_string(rows) + " rows";
    PrintRatio("insert" + of, ours.insert, other.insert, "us", 0);
    PrintRatio("seek" + of, ours.seek, other.seek, "us", 0);
  }
}

}  // namespace bench
