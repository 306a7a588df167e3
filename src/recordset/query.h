// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/database.h"
#include "jet/table.h"
#include "platform/variant.h"
#include "recordset/condition.h"
#include "recordset/sql_parser.h"

namespace recordset {

// A column that a query delivers. The name is "Table.Column" when two columns have one name.
struct OutputColumn {
  TableColumn source;
  std::string name;
};

struct OrderColumn {
  TableColumn source;
  std::size_t slot = 0;
  bool descending = false;
};

// A SELECT text that was parsed.
class SelectText {
 public:
  // Raises kErrSyntax with the place.
  static std::shared_ptr<const SelectText> Parse(std::string text);
  // That of a whole table, which is no SELECT.
  static std::shared_ptr<const SelectText> None();

  const std::string& text() const { return text_; }
  const SelectSyntax& syntax() const { return syntax_; }

 private:
  std::string text_;
  SelectSyntax syntax_;  // refers to text_
};

// What rows a recordset shows: a query whose names are resolved, or a whole table, and the filter
// over it. Holds no rows. Its tables must stay open.
class Query {
 public:
  // A SELECT text. Raises what names unknown tables and columns, with the place.
  static std::unique_ptr<Query> Select(jet::Database& database,
                                       std::shared_ptr<const SelectText> text,
                                       std::vector<platform::Variant> parameters);
  // All rows of a table, in stored order or in that of an index.
  static std::unique_ptr<Query> OfTable(jet::Database& database, jet::Table& table,
                                        std::optional<std::size_t> index);

  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  jet::Database& database() const { return database_; }
  const std::vector<jet::Table*>& tables() const { return tables_; }
  const std::vector<OutputColumn>& output() const { return output_; }
  // All of these must hold; those of the filter are among them.
  const std::vector<Condition>& conditions() const { return conditions_; }
  const std::vector<OrderColumn>& order() const { return order_; }
  // What conditions and order read.
  const NeededColumns& needed() const { return needed_; }
  // Whether all conditions hold. The row buffers hold the current row of each table, the needed
  // columns at their slots.
  bool Passes(std::span<const jet::RowBuffer> rows) const;
  // The index whose entries are the rows in their order, for a whole table.
  std::optional<std::size_t> row_index() const { return row_index_; }
  bool IsWholeTable() const { return tables_.size() == 1 && conditions_.empty(); }

  const std::string& filter() const { return filter_; }
  // Replaces the filter; a blank criterion removes it. On failure nothing changed.
  void SetFilter(std::string_view criterion);

  // The position in output() of a field, by its name, its column's name where that is unique, or
  // "Table.Column"; nothing when there is none.
  std::optional<std::size_t> FindOutput(std::string_view name) const;

  // A criterion over the output, for searching. Refers to `syntax` and its source.
  Condition BindFind(std::string_view source, const ConditionSyntax& syntax,
                     NeededColumns& needed) const;

 private:
  Query(jet::Database& database, std::shared_ptr<const SelectText> text,
        std::vector<platform::Variant> parameters)
      : database_(database), text_(std::move(text)), parameters_(std::move(parameters)) {}

  const std::string& text() const { return text_->text(); }
  const SelectSyntax& syntax() const { return text_->syntax(); }

  void OpenTables();
  // A column of the tables, as the text of the query names it.
  TableColumn Resolve(const ColumnName& name) const;
  // A column of the output, as a criterion names it.
  TableColumn ResolveOutput(std::string_view criterion, const ColumnName& name) const;
  std::optional<std::size_t> FindOutput(std::string_view table, std::string_view name) const;
  // By which the query speaks of the table.
  std::string_view NameOf(std::size_t table) const;
  std::size_t FindTable(const ColumnName& name) const;
  void AddOutput(const SelectItem& item);
  void AddColumnsOf(std::size_t table);
  void AddOrder(TableColumn column, bool descending);
  // An index over just the columns of ORDER BY has the rows of a table in order.
  void TakeOrderFromIndex();
  void NameOutput();

  jet::Database& database_;
  std::shared_ptr<const SelectText> text_;
  std::vector<platform::Variant> parameters_;
  std::vector<jet::Table*> tables_;
  std::vector<OutputColumn> output_;
  std::vector<Condition> conditions_;
  std::size_t own_conditions_ = 0;  // the first ones; the others are the filter's
  std::vector<OrderColumn> order_;
  NeededColumns needed_{0};
  std::optional<std::size_t> row_index_;

  std::string filter_;
  std::vector<ConditionSyntax> filter_syntax_;  // holds the filter's constants
};

}  // namespace recordset
