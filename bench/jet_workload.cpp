// SPDX-License-Identifier: MIT
#include "bench/jet_workload.h"

#include <array>
#include <random>

#include "files/file_system.h"

namespace bench {

std::vector<Alias> MakeAliases(std::size_t count) {
  static const std::array kAreas = {"Tank", "Ventil", "Pumpe", "Kessel", "Rührwerk", "Messung"};
  std::vector<Alias> aliases(count);
  for (std::size_t i = 0; i < count; ++i) {
    aliases[i].formula = static_cast<std::int64_t>(i / 8 + 1);
    aliases[i].name = std::string(kAreas[i % kAreas.size()]) + "_" + std::to_string(i % 97) +
                      "_Istwert_" + std::to_string(i);
    aliases[i].value = "OPC.Server.Linie" + std::to_string(i % 12) + ".Wert" + std::to_string(i);
  }
  std::mt19937 random(1);
  for (std::size_t i = count; i > 1; --i) std::swap(aliases[i - 1], aliases[random() % i]);
  return aliases;
}

std::unique_ptr<jet::Database> MakeJet(const std::string& path, Indexes indexes) {
  auto database = jet::Database::Create(files::RealFileSystem(), path);
  jet::TableSpec table{kTable,
                       {{"AliasID", jet::ColumnType::kLong, 0, true},
                        {"FormulaID", jet::ColumnType::kLong},
                        {"Alias", jet::ColumnType::kText},
                        {"Value", jet::ColumnType::kText}},
                       {}};
  jet::IndexSpec first{"First", {{"FormulaID", true}}};
  if (indexes == Indexes::kPrimaryKeyAndName) {
    first.columns = {{"AliasID", true}};
    first.primary = true;
  }
  jet::IndexSpec name{kNameIndex, {{"Alias", true}}};
  name.unique = true;
  table.indexes = {first, name};
  database->CreateTable(table);
  return database;
}

void InsertJet(jet::Table& table, const Alias& alias) {
  // The columns in the order of the definition.
  static const std::array columns = {*table.FindColumn("FormulaID"), *table.FindColumn("Alias"),
                                     *table.FindColumn("Value")};
  const std::array values = {jet::ColumnValue{columns[0], jet::Value::Integer(alias.formula)},
                             jet::ColumnValue{columns[1], jet::Value::Text(alias.name)},
                             jet::ColumnValue{columns[2], jet::Value::Text(alias.value)}};
  table.Insert(values);
}

std::unique_ptr<Sqlite> MakeSqlite(const std::string& path, Indexes indexes) {
  auto database = std::make_unique<Sqlite>(path);
  database->Run("PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL");
  database->Run(
      "CREATE TABLE Alias(AliasID INTEGER PRIMARY KEY, FormulaID INTEGER, Alias TEXT, Value TEXT);"
      "CREATE UNIQUE INDEX Name ON Alias(Alias)");
  if (indexes == Indexes::kFormulaAndName) database->Run("CREATE INDEX First ON Alias(FormulaID)");
  return database;
}

void InsertSqlite(SqliteStatement& insert, const Alias& alias) {
  insert.Bind(1, alias.formula);
  insert.Bind(2, alias.name);
  insert.Bind(3, alias.value);
  insert.Step();
  insert.Reset();
}

}  // namespace bench
