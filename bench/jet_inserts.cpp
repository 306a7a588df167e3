// SPDX-License-Identifier: MIT
#include <cstdio>

#include "bench/jet_workload.h"
#include "bench/process.h"
#include "bench/report.h"

namespace bench {
namespace {

constexpr std::size_t kRows = 100000;
constexpr int kRounds = 5;
constexpr std::size_t kDurablePairs = 300;

double TimeJet(const std::vector<Alias>& aliases, Indexes indexes) {
  const Folder folder;
  const auto database = MakeJet(folder.File("bench.mdb"), indexes);
  jet::Table& table = database->OpenTable(kTable);
  const Stopwatch watch;
  jet::Transaction transaction(*database);
  for (const Alias& alias : aliases) InsertJet(table, alias);
  transaction.Commit();
  return watch.Seconds();
}

double TimeSqlite(const std::vector<Alias>& aliases, Indexes indexes) {
  const Folder folder;
  const auto database = MakeSqlite(folder.File("bench.db"), indexes);
  SqliteStatement insert(*database, kSqliteInsert);
  const Stopwatch watch;
  database->Run("BEGIN");
  for (const Alias& alias : aliases) InsertSqlite(insert, alias);
  database->Run("COMMIT");
  return watch.Seconds();
}

void CompareInserts(const std::string& what, Indexes indexes) {
  const std::vector<Alias> aliases = MakeAliases(kRows);
  std::vector<double> ours, other;
  for (int round = 0; round < kRounds; ++round) {
    ours.push_back(TimeJet(aliases, indexes));
    other.push_back(TimeSqlite(aliases, indexes));
  }
  PrintRatio("100,000 inserts, one transaction, " + what, Median(ours), Median(other), "s", 1.0);
}

}  // namespace

void CompareInserts() {
  CompareInserts("ID + text index", Indexes::kPrimaryKeyAndName);
  CompareInserts("two indexes", Indexes::kFormulaAndName);
}

int RunDurable(const std::string& engine, std::size_t count) {
  const Folder folder;
  const std::vector<Alias> aliases = MakeAliases(count);
  if (engine == "jet") {
    const auto database = MakeJet(folder.File("bench.mdb"), Indexes::kFormulaAndName);
    jet::Table& table = database->OpenTable(kTable);
    for (const Alias& alias : aliases) InsertJet(table, alias);
  } else {
    const auto database = MakeSqlite(folder.File("bench.db"), Indexes::kFormulaAndName);
    SqliteStatement insert(*database, kSqliteInsert);
    for (const Alias& alias : aliases) InsertSqlite(insert, alias);
  }
  return 0;
}

namespace {

// Syncs for each insert, from the difference of a long and a short run under strace.
double CountSyncs(const std::string& program, const std::string& engine) {
  constexpr std::size_t kFew = 20;
  constexpr std::size_t kMany = 120;
  const auto syncs = [&](std::size_t count) {
    return CountSystemCalls({program, "--durable", engine, std::to_string(count)},
                            "fsync,fdatasync,sync_file_range,msync");
  };
  return (syncs(kMany) - syncs(kFew)) / static_cast<double>(kMany - kFew);
}

}  // namespace

void CompareDurableInserts(const std::string& program) {
  const Folder folder;
  const std::vector<Alias> aliases = MakeAliases(20000);
  const auto database = MakeJet(folder.File("bench.mdb"), Indexes::kFormulaAndName);
  const auto other_database = MakeSqlite(folder.File("bench.db"), Indexes::kFormulaAndName);
  jet::Table& table = database->OpenTable(kTable);
  SqliteStatement insert(*other_database, kSqliteInsert);
  {
    jet::Transaction transaction(*database);
    other_database->Run("BEGIN");
    for (std::size_t i = kDurablePairs; i < aliases.size(); ++i) {
      InsertJet(table, aliases[i]);
      InsertSqlite(insert, aliases[i]);
    }
    transaction.Commit();
    other_database->Run("COMMIT");
  }
  std::vector<double> ours, other;
  for (std::size_t i = 0; i < kDurablePairs; ++i) {
    const Stopwatch first;
    InsertJet(table, aliases[i]);
    ours.push_back(1e6 * first.Seconds());
    const Stopwatch second;
    InsertSqlite(insert, aliases[i]);
    other.push_back(1e6 * second.Seconds());
  }
  PrintRatio("one durable insert, median of pairs", Median(ours), Median(other), "us", 1.0);
  const double our_syncs = CountSyncs(program, "jet");
  if (our_syncs < 0) return PrintNote("syncs: strace is not installed");
  PrintRatio("syncs for each durable insert", our_syncs, CountSyncs(program, "sqlite"), "calls",
             1.0);
}

}  // namespace bench
