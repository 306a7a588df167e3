// SPDX-License-Identifier: MIT
#include "recordset/query.h"

#include <algorithm>
#include <utility>

#include "jet/error.h"
#include "platform/ado.h"
#include "recordset/ascii_text.h"
#include "recordset/sql_lexer.h"
#include "recordset/value_comparison.h"

namespace recordset {
namespace {

constexpr std::size_t kMaxTables = 32;  // bits of Condition::tables

}  // namespace

std::shared_ptr<const SelectText> SelectText::Parse(std::string text) {
  const auto parsed = std::make_shared<SelectText>();
  parsed->text_ = std::move(text);
  parsed->syntax_ = ParseSelect(parsed->text_);
  return parsed;
}

std::shared_ptr<const SelectText> SelectText::None() {
  static const auto kNone = std::make_shared<const SelectText>();
  return kNone;
}

std::unique_ptr<Query> Query::Select(jet::Database& database,
                                     std::shared_ptr<const SelectText> text,
                                     std::vector<platform::Variant> parameters) {
  std::unique_ptr<Query> query(new Query(database, std::move(text), std::move(parameters)));
  const SelectSyntax& syntax = query->syntax();
  query->OpenTables();
  for (const SelectItem& item : syntax.items) query->AddOutput(item);
  query->NameOutput();

  ConditionBinder binder(
      query->text(), query->tables_, query->parameters_,
      [&query](const ColumnName& name) { return query->Resolve(name); }, query->needed_);
  query->conditions_.reserve(syntax.conditions.size());
  for (const ConditionSyntax& condition : syntax.conditions) {
    query->conditions_.push_back(binder.Bind(condition));
  }
  query->own_conditions_ = query->conditions_.size();
  for (const OrderItem& item : syntax.order) {
    query->AddOrder(query->Resolve(item.column), item.descending);
  }
  query->TakeOrderFromIndex();
  return query;
}

std::unique_ptr<Query> Query::OfTable(jet::Database& database, jet::Table& table,
                                      std::optional<std::size_t> index) {
  std::unique_ptr<Query> query(new Query(database, SelectText::None(), {}));
  query->tables_ = {&table};
  query->needed_ = NeededColumns(1);
  query->AddColumnsOf(0);
  if (index) {
    query->row_index_ = index;
    const jet::Index& definition = table.indexes()[*index];
    for (const jet::IndexColumn& column : table.physical_indexes()[definition.physical].columns) {
      query->AddOrder({0, column.column}, !column.ascending);
    }
  }
  return query;
}

void Query::OpenTables() {
  if (syntax().tables.size() > kMaxTables) {
    ThrowSyntax(text(), syntax().tables[kMaxTables].offset, message::kTooManyTables);
  }
  for (const SourceTable& source : syntax().tables) {
    try {
      tables_.push_back(&database_.OpenTable(source.name));
    } catch (const jet::Error& error) {
      if (error.kind() != jet::ErrorKind::kNotFound) throw;
      ThrowAt(platform::kErrNoSuchTable, text(), source.offset,
              {message::kNoTableInFrom, {{"<Path>", database_.path()}, {"<Table>", source.name}}});
    }
  }
  needed_ = NeededColumns(tables_.size());
}

std::string_view Query::NameOf(std::size_t table) const {
  const bool renamed = table < syntax().tables.size() && !syntax().tables[table].alias.empty();
  return renamed ? syntax().tables[table].alias : tables_[table]->name();
}

std::size_t Query::FindTable(const ColumnName& name) const {
  for (std::size_t i = 0; i < tables_.size(); ++i) {
    if (SameName(NameOf(i), name.table)) return i;
  }
  ThrowAt(platform::kErrParameter, text(), name.offset,
          {message::kTableNotNamed, {{"<Table>", name.table}}});
}

TableColumn Query::Resolve(const ColumnName& name) const {
  if (!name.table.empty()) {
    const std::size_t table = FindTable(name);
    if (const auto column = tables_[table]->FindColumn(name.name)) return {table, *column};
    ThrowAt(platform::kErrParameter, text(), name.offset,
            {message::kTableHasNoColumn, {{"<Table>", name.table}, {"<Column>", name.name}}});
  }
  std::optional<TableColumn> found;
  for (std::size_t table = 0; table < tables_.size(); ++table) {
    const auto column = tables_[table]->FindColumn(name.name);
    if (!column) continue;
    if (found) {
      ThrowAt(platform::kErrParameter, text(), name.offset,
              {message::kColumnAmbiguous, {{"<Column>", name.name}}});
    }
    found = TableColumn{table, *column};
  }
  if (found) return *found;
  ThrowAt(platform::kErrParameter, text(), name.offset,
          {message::kNoTableHasColumn, {{"<Column>", name.name}}});
}

void Query::AddOutput(const SelectItem& item) {
  switch (item.kind) {
    case SelectItem::Kind::kAll:
      for (std::size_t table = 0; table < tables_.size(); ++table) AddColumnsOf(table);
      break;
    case SelectItem::Kind::kAllOfTable:
      AddColumnsOf(FindTable(item.column));
      break;
    case SelectItem::Kind::kColumn:
      output_.push_back({Resolve(item.column), {}});
      break;
  }
}

void Query::AddColumnsOf(std::size_t table) {
  const std::vector<jet::Column>& columns = tables_[table]->columns();
  for (std::size_t column = 0; column < columns.size(); ++column) {
    output_.push_back({{table, column}, columns[column].name});
  }
}

void Query::NameOutput() {
  auto column_name = [this](const OutputColumn& output) -> const std::string& {
    return tables_[output.source.table]->columns()[output.source.column].name;
  };
  for (OutputColumn& output : output_) {
    const std::string& name = column_name(output);
    const bool shared = std::any_of(output_.begin(), output_.end(), [&](const OutputColumn& other) {
      return other.source.table != output.source.table && SameName(column_name(other), name);
    });
    output.name = shared ? std::string(NameOf(output.source.table)) + "." + name : name;
  }
}

void Query::AddOrder(TableColumn column, bool descending) {
  order_.push_back({column, needed_.Slot(column), descending});
}

void Query::TakeOrderFromIndex() {
  if (order_.empty() || !IsWholeTable()) return;
  const jet::Table& table = *tables_.front();
  for (std::size_t i = 0; i < table.indexes().size(); ++i) {
    const jet::PhysicalIndex& physical = table.physical_indexes()[table.indexes()[i].physical];
    const bool same = std::equal(physical.columns.begin(), physical.columns.end(), order_.begin(),
                                 order_.end(), [&](const auto& column, const OrderColumn& order) {
                                   return column.column == order.source.column &&
                                          column.ascending != order.descending &&
                                          CanSearch(table.columns()[column.column]);
                                 });
    if (same && !physical.ignore_nulls) row_index_ = i;
  }
}

std::optional<std::size_t> Query::FindOutput(std::string_view name) const {
  for (std::size_t i = 0; i < output_.size(); ++i) {
    if (SameName(output_[i].name, name)) return i;
  }
  const std::size_t point = name.find('.');
  if (point == std::string_view::npos) return std::nullopt;
  return FindOutput(name.substr(0, point), name.substr(point + 1));
}

std::optional<std::size_t> Query::FindOutput(std::string_view table, std::string_view name) const {
  for (std::size_t i = 0; i < output_.size(); ++i) {
    const jet::Table& source = *tables_[output_[i].source.table];
    if (SameName(NameOf(output_[i].source.table), table) &&
        SameName(source.columns()[output_[i].source.column].name, name)) {
      return i;
    }
  }
  return std::nullopt;
}

TableColumn Query::ResolveOutput(std::string_view criterion, const ColumnName& name) const {
  const auto found = name.table.empty() ? FindOutput(name.name) : FindOutput(name.table, name.name);
  if (!found) {
    ThrowAt(platform::kErrInvalidArgument, criterion, name.offset,
            {message::kFieldUnknown, {{"<Field>", name.name}}});
  }
  return output_[*found].source;
}

void Query::SetFilter(std::string_view criterion) {
  std::string text(criterion);
  std::vector<ConditionSyntax> syntax = ParseFilter(text);
  NeededColumns needed = needed_;
  std::vector<Condition> bound;
  bound.reserve(syntax.size());
  ConditionBinder binder(
      text, tables_, {}, [&](const ColumnName& name) { return ResolveOutput(text, name); }, needed);
  for (const ConditionSyntax& condition : syntax) bound.push_back(binder.Bind(condition));

  conditions_.resize(own_conditions_);
  conditions_.insert(conditions_.end(), bound.begin(), bound.end());
  needed_ = std::move(needed);
  filter_syntax_ = std::move(syntax);
  filter_ = std::move(text);
}

bool Query::Passes(std::span<const jet::RowBuffer> rows) const {
  return std::ranges::all_of(conditions_, [&](const Condition& condition) {
    return Evaluate(condition, rows) == Truth::kTrue;
  });
}

Condition Query::BindFind(std::string_view source, const ConditionSyntax& syntax,
                          NeededColumns& needed) const {
  ConditionBinder binder(
      source, tables_, {}, [&](const ColumnName& name) { return ResolveOutput(source, name); },
      needed);
  return binder.Bind(syntax);
}

}  // namespace recordset
