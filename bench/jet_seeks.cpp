// SPDX-License-Identifier: MIT
#include <array>
#include <cstdio>
#include <cstdlib>

#include "bench/jet_workload.h"
#include "bench/report.h"

namespace bench {
namespace {

constexpr std::size_t kRows = 100000;
constexpr int kRounds = 7;

struct Filled {
  Folder folder;
  std::vector<Alias> aliases = MakeAliases(kRows);
  std::unique_ptr<jet::Database> jet =
      MakeJet(folder.File("bench.mdb"), Indexes::kPrimaryKeyAndName);
  std::unique_ptr<Sqlite> sqlite = MakeSqlite(folder.File("bench.db"), Indexes::kPrimaryKeyAndName);

  Filled() {
    jet::Table& table = jet->OpenTable(kTable);
    SqliteStatement insert(*sqlite, kSqliteInsert);
    jet::Transaction transaction(*jet);
    sqlite->Run("BEGIN");
    for (const Alias& alias : aliases) {
      InsertJet(table, alias);
      InsertSqlite(insert, alias);
    }
    transaction.Commit();
    sqlite->Run("COMMIT");
  }
};

void Expect(bool found) {
  if (found) return;
  std::fprintf(stderr, "a row that was inserted is not found\n");
  std::exit(1);
}

// Microseconds for each seek; with the row, one column of it is read as well.
double TimeJet(Filled& data, bool read_row) {
  jet::Table& table = data.jet->OpenTable(kTable);
  const jet::Database::ReadGuard guard(*data.jet);
  jet::IndexCursor cursor = table.OpenCursor(*table.FindIndex(kNameIndex));
  const std::array columns = {*table.FindColumn("FormulaID")};
  jet::RowBuffer row;
  std::int64_t sum = 0;
  const Stopwatch watch;
  for (std::size_t i = 0; i < kRows; ++i) {
    const std::array key = {jet::Value::Text(data.aliases[i * 7919 % kRows].name)};
    Expect(cursor.Seek(key));
    if (read_row) {
      Expect(table.Read(cursor.row(), columns, row));
      sum += row[0].integer();
    } else {
      sum += cursor.row().page;
    }
  }
  Expect(sum > 0);
  return 1e6 * watch.Seconds() / kRows;
}

double TimeSqlite(Filled& data, bool read_row) {
  SqliteStatement select(*data.sqlite, read_row ? "SELECT FormulaID FROM Alias WHERE Alias=?1"
                                                : "SELECT AliasID FROM Alias WHERE Alias=?1");
  std::int64_t sum = 0;
  data.sqlite->Run("BEGIN");
  const Stopwatch watch;
  for (std::size_t i = 0; i < kRows; ++i) {
    select.Bind(1, data.aliases[i * 7919 % kRows].name);
    Expect(select.Step());
    sum += select.Integer(0);
    select.Reset();
  }
  const double seconds = watch.Seconds();
  data.sqlite->Run("COMMIT");
  Expect(sum > 0);
  return 1e6 * seconds / kRows;
}

}  // namespace

void CompareSeeks() {
  Filled data;
  for (const bool read_row : {false, true}) {
    std::vector<double> ours, other;
    for (int round = 0; round < kRounds; ++round) {
      ours.push_back(TimeJet(data, read_row));
      other.push_back(TimeSqlite(data, read_row));
    }
    PrintRatio(
        read_row ? "warm seek in 100,000 texts and read of the row" : "warm seek in 100,000 texts",
        Median(ours), Median(other), "us", 1.0);
  }
}

}  // namespace bench
