// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "jet/row_buffer.h"
#include "jet/table.h"
#include "jet/value.h"
#include "platform/variant.h"
#include "recordset/sql_parser.h"

namespace recordset {

// A column of one of the tables of a query.
struct TableColumn {
  std::size_t table = 0;   // position among the query's tables
  std::size_t column = 0;  // position in Table::columns()
  friend bool operator==(const TableColumn&, const TableColumn&) = default;
};

// The columns that have to be read of each table, in the order of their slots in the row buffers.
class NeededColumns {
 public:
  explicit NeededColumns(std::size_t tables) : columns_(tables) {}
  // The slot in which the column will be found.
  std::size_t Slot(TableColumn column);
  std::span<const std::size_t> Of(std::size_t table) const { return columns_[table]; }

 private:
  std::vector<std::vector<std::size_t>> columns_;
};

struct Operand {
  bool is_column = false;
  TableColumn column;
  std::size_t slot = 0;
  jet::Value value;  // of a constant; refers to the text of the query or to a parameter
};

// A condition whose names are resolved.
struct Condition {
  using Kind = ConditionSyntax::Kind;
  Kind kind = Kind::kCompare;
  Comparison comparison = Comparison::kEqual;
  Operand left, right;
  std::vector<Condition> operands;
  std::uint32_t tables = 0;  // bit i: the condition reads table i
};

enum class Truth : std::uint8_t { kFalse, kUnknown, kTrue };

// The row buffers hold the current row of each table, with the columns at their slots.
Truth Evaluate(const Condition& condition, std::span<const jet::RowBuffer> rows);

// Resolves the names and constants of conditions, and checks that what is compared can be.
class ConditionBinder {
 public:
  using Resolve = std::function<TableColumn(const ColumnName&)>;

  // `source` is the text that the syntax came from. All must outlive the bound conditions.
  ConditionBinder(std::string_view source, std::span<jet::Table* const> tables,
                  std::span<const platform::Variant> parameters, Resolve resolve,
                  NeededColumns& needed)
      : source_(source),
        tables_(tables),
        parameters_(parameters),
        resolve_(std::move(resolve)),
        needed_(needed) {}

  Condition Bind(const ConditionSyntax& syntax);

 private:
  Operand BindOperand(const OperandSyntax& syntax);
  jet::ColumnType TypeOf(const Operand& operand) const;
  void CheckComparable(const Operand& left, const Operand& right, std::size_t offset) const;

  std::string_view source_;
  std::span<jet::Table* const> tables_;
  std::span<const platform::Variant> parameters_;
  Resolve resolve_;
  NeededColumns& needed_;
};

}  // namespace recordset
