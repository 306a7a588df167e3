// SPDX-License-Identifier: MIT
// The query language: SELECT over inner joins.
//
// - select    = SELECT item {, item} FROM joined [WHERE or] [ORDER BY order {, order}] [;]
// - item      = * | table.* | column
// - order     = column [ASC | DESC]
// - joined    = source {[INNER] JOIN source ON or}
// - source    = table [AS name] | ( joined )
// - or        = and {OR and}
// - and       = not {AND not}
// - not       = NOT not | ( or ) | test
// - test      = operand (= <> < > <= >=) operand | operand IS [NOT] NULL | column
// - operand   = column | 'text' | "text" | [+ -] number | TRUE | FALSE | NULL | ?
// - column    = name | table.name
// - name      = word | [any letters]
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/variant.h"

namespace recordset {

struct ColumnName {
  std::string_view table;  // empty when not given
  std::string_view name;
  std::size_t offset = 0;  // in the source
};

struct OperandSyntax {
  enum class Kind : std::uint8_t { kColumn, kLiteral, kParameter };
  Kind kind = Kind::kLiteral;
  ColumnName column;
  platform::Variant literal;
  std::size_t parameter = 0;  // number of the "?", from 0 on
  std::size_t offset = 0;
};

enum class Comparison : std::uint8_t {
  kEqual,
  kNotEqual,
  kLess,
  kLessEqual,
  kGreater,
  kGreaterEqual
};

struct ConditionSyntax {
  enum class Kind : std::uint8_t { kCompare, kIsNull, kIsTrue, kAnd, kOr, kNot };
  Kind kind = Kind::kCompare;
  Comparison comparison = Comparison::kEqual;
  OperandSyntax left, right;              // right: kCompare only
  std::vector<ConditionSyntax> operands;  // two or more of kAnd and kOr, one of kNot
};

struct SelectItem {
  enum class Kind : std::uint8_t { kAll, kAllOfTable, kColumn };
  Kind kind = Kind::kColumn;
  ColumnName column;  // kAllOfTable: only the table
};

struct SourceTable {
  std::string_view name;
  std::size_t offset = 0;
  std::string_view alias = {};  // that AS gives; empty for none
  // By which the query speaks of it.
  std::string_view Name() const { return alias.empty() ? name : alias; }
};

struct OrderItem {
  ColumnName column;
  bool descending = false;
};

struct SelectSyntax {
  std::vector<SelectItem> items;
  std::vector<SourceTable> tables;          // in the order of the text
  std::vector<ConditionSyntax> conditions;  // all must hold: those of ON and of WHERE
  std::vector<OrderItem> order;
  std::size_t parameters = 0;
};

// Parses exactly one statement. The result refers to the source. Raises kErrSyntax.
SelectSyntax ParseSelect(std::string_view source);

// Parses a criterion of Filter: comparisons joined by AND. Empty for a blank text.
std::vector<ConditionSyntax> ParseFilter(std::string_view source);

// Parses a criterion of Find: exactly one comparison.
ConditionSyntax ParseFind(std::string_view source);

// Whether the source of a recordset is a query rather than the name of a table.
bool IsSelect(std::string_view source);

}  // namespace recordset
