// SPDX-License-Identifier: MIT
// Table definitions: one logical string of bytes over one or more pages (docs/jet4.md, 9).
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "jet/page.h"
#include "jet/pager.h"
#include "jet/schema.h"
#include "messages/message.h"

namespace jet {

// offset  size
//      0     2  02 01
//      2     2  unused bytes of this page, less 8
//      4     4  next page of the definition or 0 (on every page)
//      8     4  length of the logical string
//     16     4  number of rows
//     20     4  last AutoNumber given out
//     40     1  4E user table, 53 system table
//     41     2  highest column id ever used + 1
//     43     2  variable columns ever created
//     45     2  columns
//     47     4  logical indexes
//     51     4  physical indexes
//     55     4  row reference of the map of owned pages
//     59     4  row reference of the map of pages with free space
//     63    12  for each physical index: entries when built, distinct keys, 0
// then columns (25 each), their names, physical indexes (52 each), logical indexes (28 each),
// their names, the maps of long-value columns, FF FF.
inline constexpr std::size_t kDefinitionNextOffset = 4;
inline constexpr std::size_t kDefinitionLengthOffset = 8;
inline constexpr std::size_t kDefinitionRowsOffset = 16;
inline constexpr std::size_t kDefinitionAutoNumberOffset = 20;
inline constexpr std::size_t kDefinitionTypeOffset = 40;
inline constexpr std::size_t kDefinitionMaxColumnsOffset = 41;
inline constexpr std::size_t kDefinitionVariableOffset = 43;
inline constexpr std::size_t kDefinitionColumnsOffset = 45;
inline constexpr std::size_t kDefinitionLogicalOffset = 47;
inline constexpr std::size_t kDefinitionPhysicalOffset = 51;
inline constexpr std::size_t kDefinitionOwnedMapOffset = 55;
inline constexpr std::size_t kDefinitionFreeMapOffset = 59;
inline constexpr std::size_t kDefinitionCountersOffset = 63;
inline constexpr std::size_t kDefinitionCounterSize = 12;
inline constexpr std::size_t kContinuationHead = 8;
inline constexpr std::uint8_t kUserTable = 0x4E;
inline constexpr std::uint8_t kSystemTable = 0x53;
inline constexpr std::size_t kMaxColumns = 255;
inline constexpr std::size_t kMaxIndexes = 32;
inline constexpr std::uint16_t kMaxTextLength = 510;  // bytes of a text or binary column
inline constexpr std::uint8_t kMaxDecimalDigits = 28;

inline constexpr std::size_t kColumnRecordSize = 25;
inline constexpr std::size_t kColumnExtendedFlagsOffset = 16;
inline constexpr std::size_t kPhysicalRecordSize = 52;
inline constexpr std::size_t kLogicalRecordSize = 28;
inline constexpr std::size_t kMaxIndexColumns = 10;
inline constexpr std::uint16_t kNoColumn = 0xFFFF;

inline constexpr std::uint8_t kColumnFixed = 0x01;
inline constexpr std::uint8_t kColumnAlways = 0x02;
inline constexpr std::uint8_t kColumnAutoNumber = 0x04;
inline constexpr std::uint8_t kColumnSystem = 0x10;
inline constexpr std::uint8_t kColumnAccount = 0x20;
inline constexpr std::uint8_t kColumnAutoGuid = 0x40;
inline constexpr std::uint8_t kColumnHyperlink = 0x80;
inline constexpr std::uint8_t kColumnCompressed = 0x01;

inline constexpr std::uint8_t kIndexUnique = 0x01;
inline constexpr std::uint8_t kIndexIgnoreNulls = 0x02;
inline constexpr std::uint8_t kIndexRequired = 0x08;
inline constexpr std::uint8_t kIndexAlways = 0x80;

// The maps of a memo or OLE column's pages.
struct LongValueMaps {
  std::size_t column = 0;  // position in the column list
  RowId owned;
  RowId free;
};

struct TableDefinition {
  PageNumber page = 0;
  std::vector<PageNumber> pages;  // all pages of the definition
  std::uint8_t type = kUserTable;
  std::uint16_t max_columns = 0;
  std::uint16_t variable_columns = 0;  // ever created
  std::vector<Column> columns;
  std::vector<PhysicalIndex> physical;
  std::vector<Index> indexes;
  RowId owned_map;
  RowId free_map;
  std::vector<LongValueMaps> long_values;  // in the order of the columns
  // Features that are not understood; such a table is not written.
  messages::Message unknown;
};

// Reads and checks a definition. Raises kDamaged.
TableDefinition ReadTableDefinition(Pager& pager, PageNumber page);
// The logical string of a definition.
std::vector<std::byte> ReadDefinitionBytes(Pager& pager, PageNumber page,
                                           std::vector<PageNumber>& pages);

}  // namespace jet
