// SPDX-License-Identifier: MIT
#include <array>

#include "bench/jet_workload.h"
#include "bench/process.h"
#include "bench/report.h"

namespace bench {
namespace {

constexpr std::size_t kRows = 100000;
constexpr int kRounds = 15;

// Medians of whole processes, taken in turn.
struct Pair {
  ProcessResult ours;
  ProcessResult other;
};

Pair RunInTurn(const std::vector<std::string>& ours, const std::vector<std::string>& other) {
  std::vector<double> our_seconds, other_seconds;
  Pair pair;
  for (int round = 0; round < kRounds; ++round) {
    pair.ours = RunProcess(ours);
    pair.other = RunProcess(other);
    our_seconds.push_back(pair.ours.seconds);
    other_seconds.push_back(pair.other.seconds);
  }
  pair.ours.seconds = Median(our_seconds);
  pair.other.seconds = Median(other_seconds);
  return pair;
}

}  // namespace

void MakeForProcesses(const std::string& path) {
  const auto database = MakeJet(path, Indexes::kPrimaryKeyAndName);
  jet::Table& table = database->OpenTable(kTable);
  jet::Transaction transaction(*database);
  for (const Alias& alias : MakeAliases(kRows)) InsertJet(table, alias);
  transaction.Commit();
}

void CompareProcesses(const std::string& program) {
  if (!IsInstalled("mdb-export")) return PrintNote("mdb-export is not installed");
  const std::string ovformula = program.substr(0, program.rfind('/') + 1) + "ovformula";
  const Folder folder;
  const std::string path = folder.File("bench.mdb");
  RunProcess({program, "--make", path});
  const Pair tables = RunInTurn({ovformula, "db", "tables", path}, {"mdb-tables", path});
  const Pair exported =
      RunInTurn({ovformula, "db", "export", path, kTable}, {"mdb-export", path, kTable});
  if (tables.ours.exit_code != 0 || exported.ours.exit_code != 0) {
    return PrintNote("ovformula db does not run: " + ovformula);
  }
  PrintRatio("open and list of tables, whole process", 1e3 * tables.ours.seconds,
             1e3 * tables.other.seconds, "ms", 1.0);
  PrintRatio("export of 100,000 aliases to CSV, whole process", exported.ours.seconds,
             exported.other.seconds, "s", 0.1);
  PrintRatio("memory of the export", exported.ours.peak_mib, 16, "MiB, limit 16", 1.0);
}

}  // namespace bench
