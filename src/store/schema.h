// SPDX-License-Identifier: MIT
// The tables of the project database.
#pragma once

#include <string>
#include <vector>

#include "messages/message.h"
#include "platform/ado.h"

namespace store {

struct TableDefinition {
  std::string name;
  std::vector<platform::Connection::ColumnInfo> columns;
  std::vector<platform::Connection::IndexInfo> indexes;
};

// What a new project database gets. Databases made elsewhere may have other index columns.
const std::vector<TableDefinition>& ProjectSchema();

// "Table", or "Table.Column", for what an operation cannot do without and the database lacks.
std::vector<std::string> MissingFromSchema(platform::Connection& connection);

// "Table.Index" for what nothing but speed and uniqueness rests on. The tables are there.
std::vector<std::string> MissingIndexes(platform::Connection& connection);

// What the user reads when something is missing; empty when all is there.
messages::Message DescribeMissing(const std::vector<std::string>& missing);

// Adds the tables that are missing, and to tables that are there the indexes whose names are
// missing; nothing else is touched. Returns what was added, as "Table" and "Table.Index". All or
// nothing: raises platform::Error, kErrErrorsOccurred when rows that are there have equal keys in
// a unique index, kErrItemNotFound when a table that is there lacks a column.
std::vector<std::string> CompleteSchema(platform::Connection& connection);

}  // namespace store
