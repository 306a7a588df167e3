// SPDX-License-Identifier: MIT
// Table definitions as bytes, for new tables and new indexes (docs/jet4.md, 9).
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "jet/page.h"
#include "jet/pager.h"
#include "jet/table_definition.h"

namespace jet {

// The logical string of a new definition without rows. Columns are written in their order;
// logical indexes too, which has to be that of their names.
std::vector<std::byte> EncodeDefinition(const TableDefinition& definition);

// The logical string with one index more.
std::vector<std::byte> AddIndexToDefinition(const TableDefinition& definition,
                                            std::span<const std::byte> bytes,
                                            const PhysicalIndex& physical, const Index& index);

// Writes a logical string over the pages of the definition and as many new ones as it needs.
// `pages` begins with the definition's page.
void StoreDefinition(Pager& pager, std::span<const PageNumber> pages,
                     std::span<const std::byte> bytes);

// Adds a record for an empty map, on the last of the map pages or on a new one.
RowId AddEmptyMap(Pager& pager, PageNumber& map_page);

// Flags of a column's record.
std::uint8_t ColumnFlags(const Column& column);

}  // namespace jet
