// SPDX-License-Identifier: MIT
// What a table's definition says of columns and indexes (docs/jet4.md, 9).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jet/page.h"
#include "jet/value.h"

namespace jet {

// One column. Id, position in the table's column list, display position and variable index are
// four different numbers.
struct Column {
  std::string name;
  ColumnType type = ColumnType::kLong;
  std::uint16_t id = 0;              // null-mask bit; what index definitions refer to
  std::uint16_t variable_index = 0;  // columns that are not of fixed length
  std::uint16_t fixed_offset = 0;    // columns of fixed length
  std::uint16_t display_position = 0;
  std::uint16_t length = 0;  // bytes; a text column of 255 characters has 510
  std::uint16_t lcid = 0x0409;
  std::uint8_t collation_version = 0;
  std::uint8_t precision = 0;  // decimal
  std::uint8_t scale = 0;      // decimal
  bool fixed = true;           // stored in the fixed area
  bool auto_number = false;
  bool auto_guid = false;
  bool hyperlink = false;
  bool system = false;
  bool account = false;     // holds an account of the security system
  bool compressed = false;  // text that fits is stored in one byte per character

  bool IsLongValue() const { return type == ColumnType::kMemo || type == ColumnType::kOle; }
};

struct IndexColumn {
  std::size_t column = 0;  // position in the table's column list
  bool ascending = true;
};

// A tree on disk. Several named indexes may share one.
struct PhysicalIndex {
  std::vector<IndexColumn> columns;
  RowId usage_map;
  PageNumber root = 0;
  bool unique = false;
  bool ignore_nulls = false;  // rows whose columns are all Null have no entry
  bool required = false;      // no column may be Null
};

enum class IndexKind : std::uint8_t { kOrdinary = 0, kPrimaryKey = 1, kRelation = 2 };

// A named index.
struct Index {
  std::string name;
  std::size_t physical = 0;  // position in the table's list of physical indexes
  IndexKind kind = IndexKind::kOrdinary;
  std::uint32_t number = 0;         // within the table
  std::uint8_t relation_side = 0;   // 1 referenced table, 2 referencing table, else 0
  std::int32_t related_index = -1;  // its number in the other table
  PageNumber related_table = 0;     // definition page of the other table
  bool cascade_updates = false;
  bool cascade_deletes = false;
};

}  // namespace jet
