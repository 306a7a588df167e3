// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "jet/database.h"
#include "jet/new_database.h"

namespace jet {

// A table with an AutoNumber, a unique text index and a memo, as the tests use it.
inline TableSpec ItemsSpec() {
  TableSpec spec;
  spec.name = "Items";
  spec.columns = {{"ID", ColumnType::kLong, 0, true, false},
                  {"Item", ColumnType::kText, 0, false, true},
                  {"Note", ColumnType::kMemo, 0, false, false}};
  spec.indexes = {{"PrimaryKey", {{"ID", true}}, false, true, false, false},
                  {"Item", {{"Item", true}}, true, false, false, false}};
  return spec;
}

inline InsertResult AddItem(Table& table, const std::string& item, const std::string& note) {
  const ColumnValue values[] = {{1, Value::Text(item)}, {2, Value::Text(note)}};
  return table.Insert(values);
}

// The rows of Items as texts, in the order of the primary key.
inline std::vector<std::string> Items(Database& database) {
  Table& table = database.OpenTable("Items");
  std::vector<std::string> rows;
  RowBuffer row;
  for (IndexCursor cursor = table.OpenCursor(table.PrimaryKey().value()); cursor.Next();) {
    if (!table.Read(cursor.row(), row)) continue;
    const auto text = [&](std::size_t i) {
      return row[i].is_null() ? std::string("-") : std::string(row[i].text());
    };
    rows.push_back(std::to_string(row[0].integer()) + "|" + text(1) + "|" + text(2));
  }
  return rows;
}

// All findings of Verify, a line each; empty when all is well.
inline std::string Faults(Database& database) {
  std::string text;
  for (const Finding& finding : database.Verify().findings) {
    text += finding.table + ", page " + std::to_string(finding.place.page) + ", row " +
            std::to_string(finding.place.row) + ": " + finding.text.English() + "\n";
  }
  return text;
}

}  // namespace jet
