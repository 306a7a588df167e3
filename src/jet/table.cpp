// SPDX-License-Identifier: MIT
#include "jet/table.h"

#include "jet/bytes.h"
#include "jet/error.h"
#include "jet/table_state.h"
#include "jet/text_codec.h"

namespace jet {

Table::Table(std::unique_ptr<TableState> state) : state_(std::move(state)) {}
Table::~Table() = default;

const std::string& Table::name() const { return state_->name(); }
PageNumber Table::definition_page() const { return state_->definition().page; }
const std::vector<Column>& Table::columns() const { return state_->definition().columns; }
const std::vector<Index>& Table::indexes() const { return state_->definition().indexes; }
const std::vector<PhysicalIndex>& Table::physical_indexes() const {
  return state_->definition().physical;
}

std::optional<std::size_t> Table::FindColumn(std::string_view name) const {
  return state_->FindColumn(name);
}

std::optional<std::size_t> Table::FindIndex(std::string_view name) const {
  for (std::size_t i = 0; i < indexes().size(); ++i) {
    if (SameName(indexes()[i].name, name)) return i;
  }
  return std::nullopt;
}

std::optional<std::size_t> Table::PrimaryKey() const {
  for (std::size_t i = 0; i < indexes().size(); ++i) {
    if (indexes()[i].kind == IndexKind::kPrimaryKey) return i;
  }
  return std::nullopt;
}

messages::Message Table::ReadOnlyReason() const { return state_->ReadOnlyReason(); }

std::uint32_t Table::RowCount() {
  const ReadLock lock(state_->session());
  return Load32(state_->pager().Read(definition_page()).data() + kDefinitionRowsOffset);
}

bool Table::Read(RowId id, std::span<const std::size_t> columns, RowBuffer& row) {
  const ReadLock lock(state_->session());
  state_->Refresh();
  const auto stored = state_->reader().Find(id);
  if (!stored) {
    state_->CheckGone(id);
    return false;
  }
  state_->reader().Decode(id, *stored, columns, row);
  return true;
}

bool Table::Read(RowId id, RowBuffer& row) { return Read(id, state_->all_columns(), row); }

namespace {

// A change in the open transaction, or in one of its own.
template <class Change>
void InTransaction(TableState& table, Change change) {
  Session& session = table.session();
  const bool own = !session.InTransaction();
  if (!own) session.CheckUsable();
  if (own) session.Begin();
  try {
    table.Refresh();
    if (table.definition().type != kUserTable) {
      throw Error(ErrorKind::kReadOnly, table.path(), {},
                  {message::kSystemTable, {{"<Table>", table.name()}}}, message::kChangeUserTables);
    }
    if (const messages::Message& reason = table.ReadOnlyReason(); !reason.empty()) {
      throw Error(ErrorKind::kReadOnly, table.path(), {}, reason, message::kChangeInAccess);
    }
    change();
    if (own) session.Commit();
  } catch (...) {
    if (own) session.Rollback();
    throw;
  }
}

}  // namespace

InsertResult Table::Insert(std::span<const ColumnValue> values) {
  InsertResult result;
  InTransaction(*state_, [&] {
    result = state_->writer().Insert(values);
    Log(RowEdit::kAdded, result.id, nullptr);
  });
  return result;
}

void Table::Update(RowId id, std::span<const ColumnValue> values) {
  InTransaction(*state_, [&] {
    std::unique_ptr<RowImage> before = ReadForLog(id);
    state_->writer().Update(id, values);
    Log(RowEdit::kChanged, id, std::move(before));
  });
}

void Table::Delete(RowId id) {
  InTransaction(*state_, [&] {
    std::unique_ptr<RowImage> before = ReadForLog(id);
    state_->writer().Delete(id);
    Log(RowEdit::kDeleted, id, std::move(before));
  });
}

// Null when nothing is kept, or when there is no such row: the change fails then.
std::unique_ptr<RowImage> Table::ReadForLog(RowId id) {
  RowBuffer row;
  if (!state_->session().row_log().kept || !Read(id, row)) return nullptr;
  return std::make_unique<RowImage>(row);
}

void Table::Log(RowEdit edit, RowId id, std::unique_ptr<RowImage> before) {
  RowLog& log = state_->session().row_log();
  if (log.kept) log.Add(edit, id, this, std::move(before));
}

}  // namespace jet
