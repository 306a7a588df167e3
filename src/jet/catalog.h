// SPDX-License-Identifier: MIT
// The system catalog, table MSysObjects (docs/jet4.md, 14.1).
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "jet/table_state.h"

namespace jet {

inline constexpr std::int32_t kTablesContainer = 0x0F000001;

enum class ObjectType : std::int32_t {
  kLocalTable = 1,
  kDatabase = 2,
  kContainer = 3,
  kOdbcTable = 4,
  kQuery = 5,
  kLinkedTable = 6,
  kRelation = 8,
};

inline constexpr std::uint32_t kBuiltInObject = 0x80000000;
inline constexpr std::uint32_t kAccessObject = 0x00000002;

struct CatalogEntry {
  RowId row;
  std::int32_t id = 0;  // a table's definition page
  std::int32_t parent = 0;
  std::string name;
  ObjectType type = ObjectType::kLocalTable;
  std::uint32_t flags = 0;
  double created = 0;
  double updated = 0;

  bool IsUserObject() const { return (flags & (kBuiltInObject | kAccessObject)) == 0; }
};

class Catalog {
 public:
  explicit Catalog(Session& session);

  void ForEach(const std::function<void(const CatalogEntry&)>& visit);
  // A table or link to one, by name without regard to case.
  std::optional<CatalogEntry> FindTable(std::string_view name);
  TableState& table() { return table_; }
  // Position of a column of MSysObjects; raises kDamaged when the catalog lacks it.
  std::size_t Position(std::string_view column) const;
  // The columns that an entry is made of, and the entry of a row read with them.
  const std::vector<std::size_t>& columns() const { return columns_; }
  CatalogEntry Entry(const RowBuffer& row) const;

 private:
  std::optional<RowId> FindByIndex(std::string_view name);
  std::optional<CatalogEntry> LookFor(std::string_view name);

  TableState table_;
  std::vector<std::size_t> columns_;
  // Tables that were found, by the names that were asked for, as of a generation of the session.
  std::map<std::string, CatalogEntry, std::less<>> known_;
  std::uint64_t known_generation_ = 0;
};

}  // namespace jet
