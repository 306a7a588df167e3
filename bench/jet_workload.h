// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "bench/folder.h"
#include "bench/sqlite.h"
#include "jet/database.h"

namespace bench {

// A row of the alias table that all comparisons use.
struct Alias {
  std::int64_t formula = 0;
  std::string name;
  std::string value;
};

// Which columns have an index.
enum class Indexes {
  kPrimaryKeyAndName,  // SQLite has its row number for the primary key
  kFormulaAndName,
};

// The same rows at each call: names of a plant, in an order that is not theirs.
std::vector<Alias> MakeAliases(std::size_t count);

std::unique_ptr<jet::Database> MakeJet(const std::string& path, Indexes indexes);
void InsertJet(jet::Table& table, const Alias& alias);

std::unique_ptr<Sqlite> MakeSqlite(const std::string& path, Indexes indexes);
inline constexpr const char* kSqliteInsert =
    "INSERT INTO Alias(FormulaID, Alias, Value) VALUES(?1, ?2, ?3)";
void InsertSqlite(SqliteStatement& insert, const Alias& alias);

inline constexpr const char* kTable = "Alias";
inline constexpr const char* kNameIndex = "Name";

// The benchmarks; each prints its lines.
void CompareInserts();
void CompareSeeks();
void CompareDurableInserts(const std::string& program);
void ShowGrowth(std::size_t largest);
void CompareProcesses(const std::string& program);
// The database that CompareProcesses reads, made by a process of its own.
void MakeForProcesses(const std::string& path);
// Runs a few durable inserts of one engine, for counting what it asks of the system.
int RunDurable(const std::string& engine, std::size_t count);

}  // namespace bench
