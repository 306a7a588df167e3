// SPDX-License-Identifier: MIT
// The four system tables that every database begins with (docs/jet4.md, 15).
#pragma once

#include <array>

#include "jet/table_definition.h"

namespace jet {

// Definitions of MSysObjects, MSysACEs, MSysQueries and MSysRelationships, in the order of their
// pages, 2 to 5. Maps and roots are those of a new database.
std::array<TableDefinition, 4> SystemTables();

inline constexpr PageNumber kSystemMapPage = 6;
inline constexpr std::uint8_t kSystemMapRows = 31;
inline constexpr PageNumber kFirstSystemRoot = 7;
inline constexpr PageNumber kNewDatabasePages = 14;  // before the first row is stored

}  // namespace jet
