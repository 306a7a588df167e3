// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <vector>

#include "jet/catalog.h"
#include "jet/database.h"
#include "jet/definition_writer.h"
#include "jet/session.h"

namespace jet {

// Creates tables and indexes. Asks for an open transaction; a failure leaves it to be rolled back.
class TableCreator {
 public:
  TableCreator(Session& session, Catalog& catalog) : session_(session), catalog_(catalog) {}

  // Raises kInvalid for a TableSpec that makes no table, and kExists.
  void CreateTable(const TableSpec& spec);
  void CreateIndex(TableState& table, const IndexSpec& spec);

 private:
  TableDefinition Define(const TableSpec& spec);
  PhysicalIndex MakePhysical(const TableDefinition& definition, const IndexSpec& spec,
                             PageNumber& map_page);
  void CheckIndex(const TableDefinition& definition, const IndexSpec& spec) const;
  void CheckName(const messages::Message& what, const std::string& name) const;
  void AddToCatalog(const TableDefinition& definition, const std::string& name);
  void AddAccessRows(PageNumber table, std::span<const std::byte> owner);
  std::vector<std::byte> OwnerOfNewObjects();
  [[noreturn]] void Refuse(const messages::Message& cause, const messages::Message& remedy) const;

  Session& session_;
  Catalog& catalog_;
};

}  // namespace jet
