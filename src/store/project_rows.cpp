// SPDX-License-Identifier: MIT
#include "store/project_rows.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"

namespace store {
namespace {

using platform::BlockValue;
using platform::RowBlock;
using platform::Variant;

const std::vector<std::string> kFormulaFields = {"ID",       "Name",    "ProgID", "Type",
                                                 "ScanTime", "Enabled", "Comment"};
const std::vector<std::string> kAliasFields = {"ID", "ItemID", "VBAlias"};
const std::vector<std::string> kArgumentFields = {"ID", "ParentID", "AliasID", "In", "Out"};

std::string TextOf(const BlockValue& value) {
  std::string text = value.ToText();
  if (text == std::string_view("\0", 1)) text.clear();
  return text;
}

FormulaRecord FormulaOf(const RowBlock& rows, std::size_t row) {
  FormulaRecord record;
  record.id = rows.At(0, row).ToLong();
  record.name = TextOf(rows.At(1, row));
  record.prog_id = TextOf(rows.At(2, row));
  record.type = rows.At(3, row).ToLong();
  record.scan_time = rows.At(4, row).ToLong();
  record.enabled = rows.At(5, row).ToBool();
  record.comment = TextOf(rows.At(6, row));
  record.comment_is_null = rows.At(6, row).IsNull();
  return record;
}

AliasRecord AliasOf(const RowBlock& rows, std::size_t row) {
  AliasRecord record;
  record.id = rows.At(0, row).ToLong();
  record.item_id = TextOf(rows.At(1, row));
  record.vb_alias = TextOf(rows.At(2, row));
  return record;
}

ArgumentRecord ArgumentOf(const RowBlock& rows, std::size_t row) {
  ArgumentRecord record;
  record.id = rows.At(0, row).ToLong();
  record.parent_id = rows.At(1, row).ToLong();
  record.alias_id = rows.At(2, row).ToLong();
  record.in = rows.At(3, row).ToBool();
  record.out = rows.At(4, row).ToBool();
  return record;
}

template <class Record>
std::optional<Record> FirstOf(std::vector<Record> records) {
  if (records.empty()) return std::nullopt;
  return std::move(records.front());
}

// Ends the edit of a row if nobody does it before.
class PendingEdit {
 public:
  explicit PendingEdit(platform::Recordset& row) : row_(row) {}
  ~PendingEdit() {
    if (done_) return;
    try {
      row_.CancelUpdate();
    } catch (const platform::Error&) {
      // The failure that led here is the one to report.
    }
  }
  PendingEdit(const PendingEdit&) = delete;
  PendingEdit& operator=(const PendingEdit&) = delete;
  void Done() { done_ = true; }

 private:
  platform::Recordset& row_;
  bool done_ = false;
};

}  // namespace

std::vector<std::string> ClassesOf(const std::vector<FormulaRecord>& formulas) {
  std::vector<std::string> classes;
  std::unordered_set<std::string> seen;
  for (const FormulaRecord& formula : formulas) {
    if (seen.insert(platform::FoldCase(formula.prog_id)).second) classes.push_back(formula.prog_id);
  }
  return classes;
}

ProjectRows::ProjectRows(std::shared_ptr<platform::Connection> connection)
    : connection_(std::move(connection)),
      formula_by_id_(*connection_, "SELECT * FROM TvbfFormulas WHERE ID = ?"),
      formulas_by_name_(*connection_, "SELECT * FROM TvbfFormulas WHERE Name = ? ORDER BY ID"),
      formula_in_class_(*connection_,
                        "SELECT * FROM TvbfFormulas WHERE (ProgID = ?) AND (Name = ?)"),
      all_formulas_(*connection_, "SELECT * FROM TvbfFormulas ORDER BY ID"),
      formula_names_(*connection_, "SELECT Name FROM TvbfFormulas"),
      uses_of_alias_(*connection_,
                     "SELECT TvbfFormulas.* FROM TvbfParams INNER JOIN TvbfFormulas "
                     "ON TvbfParams.ParentID = TvbfFormulas.ID WHERE TvbfParams.AliasID = ? "
                     "ORDER BY TvbfFormulas.ID"),
      alias_by_id_(*connection_, "SELECT * FROM TvbfAlias WHERE ID = ?"),
      alias_by_name_(*connection_, "SELECT * FROM TvbfAlias WHERE VBAlias = ?"),
      all_aliases_(*connection_, "SELECT * FROM TvbfAlias ORDER BY ID"),
      argument_by_id_(*connection_, "SELECT * FROM TvbfParams WHERE ID = ?"),
      aliases_of_formula_(*connection_, "SELECT AliasID FROM TvbfParams WHERE ParentID = ?"),
      arguments_of_formula_(*connection_,
                            "SELECT * FROM TvbfParams WHERE ParentID = ? ORDER BY ID"),
      all_arguments_(*connection_, "SELECT * FROM TvbfParams") {}

// --- Reading ---

std::vector<FormulaRecord> ProjectRows::Formulas(codegen::PreparedQuery& query,
                                                 std::vector<Variant> parameters) {
  std::vector<FormulaRecord> records;
  query.ForEachRow(
      std::move(parameters), kFormulaFields,
      [&](const RowBlock& rows, std::size_t row) { records.push_back(FormulaOf(rows, row)); });
  return records;
}

std::vector<AliasRecord> ProjectRows::Aliases(codegen::PreparedQuery& query,
                                              std::vector<Variant> parameters) {
  std::vector<AliasRecord> records;
  query.ForEachRow(std::move(parameters), kAliasFields, [&](const RowBlock& rows, std::size_t row) {
    records.push_back(AliasOf(rows, row));
  });
  return records;
}

std::vector<ArgumentRecord> ProjectRows::Arguments(codegen::PreparedQuery& query, std::int32_t id) {
  std::vector<ArgumentRecord> records;
  query.ForEachRow({id}, kArgumentFields, [&](const RowBlock& rows, std::size_t row) {
    records.push_back(ArgumentOf(rows, row));
  });
  for (ArgumentRecord& record : records) {
    if (const auto alias = FindAlias(record.alias_id)) {
      record.vb_alias = alias->vb_alias;
      record.item_id = alias->item_id;
    }
  }
  return records;
}

std::optional<FormulaRecord> ProjectRows::FindFormula(std::int32_t id) {
  return FirstOf(Formulas(formula_by_id_, {id}));
}
std::vector<FormulaRecord> ProjectRows::FindFormulasByName(std::string_view name) {
  return Formulas(formulas_by_name_, {name});
}
std::optional<FormulaRecord> ProjectRows::FindFormulaInClass(std::string_view prog_id,
                                                             std::string_view name) {
  return FirstOf(Formulas(formula_in_class_, {prog_id, name}));
}
std::vector<FormulaRecord> ProjectRows::UsesOfAlias(std::int32_t alias_id) {
  return Formulas(uses_of_alias_, {alias_id});
}
std::optional<AliasRecord> ProjectRows::FindAlias(std::int32_t id) {
  return FirstOf(Aliases(alias_by_id_, {id}));
}
const std::optional<AliasRecord>& ProjectRows::KnownAlias(std::int32_t id) {
  const auto [known, is_new] = known_aliases_.try_emplace(id);
  if (is_new) known->second = FindAlias(id);
  return known->second;
}
std::optional<AliasRecord> ProjectRows::FindAliasByName(std::string_view vb_alias) {
  return FirstOf(Aliases(alias_by_name_, {vb_alias}));
}
std::optional<ArgumentRecord> ProjectRows::FindArgument(std::int32_t id) {
  return FirstOf(Arguments(argument_by_id_, id));
}
std::vector<ArgumentRecord> ProjectRows::ArgumentsOf(std::int32_t formula_id) {
  return Arguments(arguments_of_formula_, formula_id);
}
std::unordered_set<std::int32_t> ProjectRows::AliasesOf(std::int32_t formula_id) {
  std::unordered_set<std::int32_t> aliases;
  aliases_of_formula_.ForEachRow(
      {formula_id}, {"AliasID"},
      [&](const RowBlock& rows, std::size_t row) { aliases.insert(rows.At(0, row).ToLong()); });
  return aliases;
}

void ProjectRows::ForEachFormula(const std::function<void(const FormulaRecord&)>& visit) {
  all_formulas_.ForEachRow({}, kFormulaFields, [&](const RowBlock& rows, std::size_t row) {
    visit(FormulaOf(rows, row));
  });
}
void ProjectRows::ForEachFormulaName(const std::function<void(const std::string&)>& visit) {
  formula_names_.ForEachRow({}, {"Name"}, [&](const RowBlock& rows, std::size_t row) {
    visit(rows.At(0, row).ToText());
  });
}
void ProjectRows::ForEachAlias(const std::function<void(const AliasRecord&)>& visit) {
  all_aliases_.ForEachRow(
      {}, kAliasFields, [&](const RowBlock& rows, std::size_t row) { visit(AliasOf(rows, row)); });
}
void ProjectRows::ForEachArgument(const std::function<void(const ArgumentRecord&)>& visit) {
  all_arguments_.ForEachRow({}, kArgumentFields, [&](const RowBlock& rows, std::size_t row) {
    visit(ArgumentOf(rows, row));
  });
}

Statistics ProjectRows::Count() {
  return {connection_->TableRowCount(kFormulasTable), connection_->TableRowCount(kArgumentsTable),
          connection_->TableRowCount(kAliasTable)};
}

// --- Writing ---

ProjectRows::OpenTable& ProjectRows::TableToAddTo(std::string_view table) {
  const auto known = tables_.find(table);
  if (known != tables_.end()) return known->second;
  OpenTable opened{connection_->CreateRecordset(), {}, 0};
  platform::Recordset& rows = *opened.rows;
  rows.SetSource(table);
  rows.SetCommandType(platform::CommandType::kTableDirect);
  rows.SetCursorLocation(platform::CursorLocation::kServer);
  rows.SetCursorType(platform::CursorType::kKeyset);
  rows.SetLockType(platform::LockType::kOptimistic);
  rows.Open();
  opened.names = rows.FieldNames();
  const auto id = std::ranges::find_if(
      opened.names, [](const auto& name) { return platform::EqualsIgnoringCase(name, "ID"); });
  opened.id = static_cast<std::size_t>(id - opened.names.begin());
  return tables_.emplace(table, std::move(opened)).first->second;
}

std::shared_ptr<platform::Recordset> ProjectRows::OpenRow(std::string_view table, std::int32_t id) {
  std::shared_ptr<platform::Recordset> row = connection_->CreateRecordset();
  row->SetSource("SELECT * FROM " + std::string(table) + " WHERE ID = ?");
  row->SetCommandType(platform::CommandType::kText);
  row->SetCursorLocation(platform::CursorLocation::kServer);
  row->SetCursorType(platform::CursorType::kKeyset);
  row->SetLockType(platform::LockType::kOptimistic);
  row->SetParameters({id});
  row->Open();
  return row;
}

std::int32_t ProjectRows::Add(std::string_view table, Values values) {
  std::vector<std::string> fields;
  std::vector<Variant> contents;
  fields.reserve(values.size());
  contents.reserve(values.size());
  for (auto& value : values) {
    fields.push_back(std::move(value.first));
    contents.push_back(std::move(value.second));
  }
  OpenTable& opened = TableToAddTo(table);
  PendingEdit edit(*opened.rows);
  opened.rows->AddNew(fields, contents);
  edit.Done();
  Record(RowChange::Kind::kAdded, table, *opened.rows, opened.names);
  return opened.rows->Fields(opened.id).Value().ToLong();
}

void ProjectRows::Change(std::string_view table, std::int32_t id, const Values& values) {
  if (table == kAliasTable) known_aliases_.clear();
  const std::shared_ptr<platform::Recordset> row = OpenRow(table, id);
  PendingEdit edit(*row);
  for (const auto& [field, value] : values) row->Fields(field).SetValue(value);
  row->Update();
  edit.Done();
  Record(RowChange::Kind::kChanged, table, *row, row->FieldNames());
  row->Close();
}

void ProjectRows::Remove(std::string_view table, std::int32_t id) {
  if (table == kAliasTable) known_aliases_.clear();
  const std::shared_ptr<platform::Recordset> row = OpenRow(table, id);
  Record(RowChange::Kind::kDeleted, table, *row, row->FieldNames());
  row->Delete();
  row->Close();
}

void ProjectRows::Record(RowChange::Kind kind, std::string_view table, platform::Recordset& row,
                         const std::vector<std::string>& names) {
  if (!changes_.kept()) return;
  RowChange change;
  change.kind = kind;
  change.table = table;
  change.members.reserve(names.size());
  for (std::size_t field = 0; field < names.size(); ++field) {
    change.members.emplace_back(names[field], row.Fields(field).Value());
  }
  changes_.Add(std::move(change));
}

void ProjectRows::CloseTables() noexcept {
  known_aliases_.clear();
  for (auto& [table, opened] : tables_) {
    try {
      if (opened.rows->State() == platform::ObjectState::kOpen) opened.rows->Close();
    } catch (const platform::Error&) {
      // It is made anew when it is needed again.
    }
  }
  tables_.clear();
}

}  // namespace store
